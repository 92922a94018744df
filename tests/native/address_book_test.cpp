// The personal-address search with a stand-in JNI environment (no JVM; also under qemu-ppc):
// every field through the builders on this byte order, the key name's UTF characters taken and
// released as required, a local frame per address, and no JNI call made while an exception is
// pending when a builder's class, a constructor or a string fails.
#include <gtest/gtest.h>
#include <jni.h>

#include <cstring>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "CJvm.h"
#include "cmt_address_book.h"
#include "cmt_fax_info.h"
#include "fake_jvm.h"
#include "sim_fixture.h"
#include "stand_in_vm.h"
#include "tovr_sim_address.h"

namespace {

using stand_in::J;
using stand_in::O;
using stand_in::Obj;

stand_in::Vm* g_vm = nullptr;

class AddressBookSearch : public sim_test::SimDeviceTest {
protected:
    void SetUp() override {
        vm_ = std::make_unique<stand_in::Vm>(std::set<std::string>{
            "tarnwick/address/SearchKey",
            "tarnwick/zel/address/PersonalAddressImpl",
            "tarnwick/zel/address/attribute/NameInfoImpl",
            "tarnwick/zel/address/attribute/EmailInfoImpl",
            "tarnwick/zel/address/attribute/FtpInfoImpl",
            "tarnwick/zel/address/attribute/SmbInfoImpl",
            "tarnwick/zel/address/attribute/FaxInfoImpl",
            "tarnwick/zel/address/attribute/IfaxInfoImpl",
        });
        g_vm = vm_.get();
        SimDeviceTest::SetUp();
    }
    void TearDown() override {
        SimDeviceTest::TearDown();
        g_vm = nullptr;
        vm_.reset();
    }
    jobject key(const char* name) {
        Obj* k = g_vm->make(Obj::kPlain, "tarnwick/address/SearchKey");
        if (name) k->refs["name"] = O(g_vm->string(name));
        return J(k);
    }
    Obj* search(const char* name) {
        tarnwick::cmt_address_book book;
        jobjectArray a = book.search_address(1, key(name));
        return O(a);
    }
    static std::string text(Obj* o, const char* field) {
        auto it = o->refs.find(field);
        return it == o->refs.end() || it->second == nullptr ? std::string("<unset>") : it->second->text;
    }

    std::unique_ptr<stand_in::Vm> vm_;
};

}  // namespace

TEST_F(AddressBookSearch, EveryFieldOnThisByteOrder) {
    tovr_sim::generate_address_book(3);
    ESV_ZEL_PERSONAL_ADDRESS odd = tovr_sim::make_address("Person odd");
    odd.fax_info.communication_speed = 0x00000102;
    odd.ftp_info.ftp_port = 21;
    tovr_sim::add_address(odd);
    Obj* a = search("Person");
    ASSERT_NE(nullptr, a);
    EXPECT_EQ("tarnwick/zel/address/PersonalAddressImpl", a->cls);
    ASSERT_EQ(4u, a->elements.size());
    Obj* p = a->elements[1];  // Person 00002
    ASSERT_NE(nullptr, p);
    Obj* name = p->refs.at("name");
    EXPECT_EQ("Person 00002", text(name, "name"));
    EXPECT_EQ("person 00002", text(name, "pronunciation"));
    EXPECT_EQ("person00002@mfp.test", text(p->refs.at("email"), "mailAddress"));
    Obj* ftp = p->refs.at("ftp");
    EXPECT_EQ("ftp00002.mfp.test", text(ftp, "host"));
    EXPECT_EQ("/scan/00002", text(ftp, "path"));
    EXPECT_EQ(1002, ftp->ints.at("port"));
    EXPECT_EQ("ftpuser00002", text(ftp, "loginName"));
    EXPECT_EQ("ftppw00002", text(ftp, "password"));
    Obj* smb = p->refs.at("smb");
    EXPECT_EQ("share/00002", text(smb, "path"));
    EXPECT_EQ(2002, smb->ints.at("port"));
    EXPECT_EQ("smbpw00002", text(smb, "password"));
    Obj* fax = p->refs.at("fax");
    EXPECT_EQ("031200002", text(fax, "faxNum"));
    EXPECT_EQ(2, fax->ints.at("bitrateType"));  // 0x102
    EXPECT_EQ(0, fax->ints.at("ecm"));
    EXPECT_EQ("00002", text(fax, "faxAddress"));
    EXPECT_EQ(1, fax->ints.at("encode"));
    EXPECT_EQ(2, fax->ints.at("encodeID"));
    EXPECT_EQ(1, fax->ints.at("encodeBox"));
    EXPECT_EQ(2, fax->ints.at("encodeBoxNum"));
    EXPECT_EQ("Fax Person 00002", text(fax, "name"));
    EXPECT_EQ("Department 00002", text(fax, "department"));
    EXPECT_EQ("Company 00002", text(fax, "company"));
    EXPECT_EQ(2, fax->ints.at("honorificTitleType"));  // 0x302
    Obj* ifax = p->refs.at("ifax");
    EXPECT_EQ("ifax00002@mfp.test", text(ifax, "ifaxAddress"));
    EXPECT_EQ(0, ifax->ints.at("modeType"));  // 0x200
    EXPECT_EQ(2, ifax->ints.at("sizeType"));
    EXPECT_EQ(2, ifax->ints.at("resolutionType"));
    EXPECT_EQ(2, ifax->ints.at("fileType"));
    Obj* last = a->elements[3];
    EXPECT_EQ(21, last->refs.at("ftp")->ints.at("port"));
    EXPECT_EQ(2, last->refs.at("fax")->ints.at("bitrateType"));

    EXPECT_EQ(1, g_vm->utf_taken);
    EXPECT_EQ(1, g_vm->utf_released);
    EXPECT_EQ(4, g_vm->frames_pushed);
    EXPECT_EQ(1, g_vm->max_frames);
    EXPECT_EQ(0, g_vm->frames);
    EXPECT_EQ(0, g_vm->violations);
    EXPECT_EQ(8, g_vm->globals);  // the key class and the seven builders' classes, one each for the process
    EXPECT_EQ(0, tovr_sim::open_resources(tovr_sim::kAddressSearch));
    EXPECT_EQ(0, tovr_sim::outstanding_blocks());
}

TEST_F(AddressBookSearch, KeyNameCharactersAreKeptOnTheFailurePathsAfterTheyAreTaken) {
    // No match: taken, not released.
    EXPECT_EQ(nullptr, search("Nobody"));
    EXPECT_EQ(1, g_vm->utf_taken);
    EXPECT_EQ(0, g_vm->utf_released);
    // A failed fetch of the second pass: the same.
    tovr_sim::generate_address_book(2);
    tovr_sim::pass_address_fetches(2);
    tovr_sim::force_address_fetch(0x04010011, 0);
    EXPECT_EQ(nullptr, search("Person"));
    EXPECT_EQ(2, g_vm->utf_taken);
    EXPECT_EQ(0, g_vm->utf_released);
    EXPECT_EQ(0, tovr_sim::open_resources(tovr_sim::kAddressSearch));
    // A failed array: taken, not released, and the second search left open.
    g_vm->array_limit = 1;
    EXPECT_EQ(nullptr, search("Person"));
    EXPECT_EQ(3, g_vm->utf_taken);
    EXPECT_EQ(0, g_vm->utf_released);
    EXPECT_EQ(1, tovr_sim::open_resources(tovr_sim::kAddressSearch));
    EXPECT_EQ(0, tovr_sim::outstanding_blocks());
    EXPECT_EQ(0, g_vm->violations);
    EXPECT_EQ(sim_test::Line({0, "search_personal_address,personalObjArray == NULL"}),
              sim_test::lines_of("cmt_address_book").back());
    // Missing keys take nothing.
    EXPECT_EQ(nullptr, search(nullptr));
    EXPECT_EQ(3, g_vm->utf_taken);
}

TEST_F(AddressBookSearch, MissingBuilderClassLeavesThatPartNull) {
    tovr_sim::generate_address_book(2);
    g_vm->missing_classes.insert("tarnwick/zel/address/attribute/FaxInfoImpl");
    Obj* a = search("Person");
    ASSERT_NE(nullptr, a);
    for (Obj* p : a->elements) {
        ASSERT_NE(nullptr, p);
        EXPECT_EQ(nullptr, p->refs.at("fax"));
        EXPECT_EQ("person00001@mfp.test", text(a->elements[0]->refs.at("email"), "mailAddress"));
    }
    EXPECT_EQ(1, g_vm->cleared);
    EXPECT_EQ(0, g_vm->violations);
}

TEST_F(AddressBookSearch, FailingConstructorAndStringAreClearedAndSkipped) {
    tovr_sim::generate_address_book(2);
    g_vm->failing_constructors.insert("tarnwick/zel/address/attribute/NameInfoImpl");
    g_vm->fail_strings = 1;  // the first string made: the e-mail address of the first entry
    Obj* a = search("Person");
    ASSERT_NE(nullptr, a);
    EXPECT_EQ(nullptr, a->elements[0]->refs.at("name"));
    EXPECT_EQ("<unset>", text(a->elements[0]->refs.at("email"), "mailAddress"));
    EXPECT_EQ("person00002@mfp.test", text(a->elements[1]->refs.at("email"), "mailAddress"));
    EXPECT_EQ("ftp00001.mfp.test", text(a->elements[0]->refs.at("ftp"), "host"));
    EXPECT_EQ(3, g_vm->cleared);
    EXPECT_EQ(0, g_vm->violations);
}

TEST_F(AddressBookSearch, MissingKeyClassGivesNullBeforeTheFacade) {
    g_vm->missing_classes.insert("tarnwick/address/SearchKey");
    EXPECT_EQ(nullptr, search("x"));
    EXPECT_TRUE(tovr_sim::calls().empty());
    EXPECT_EQ(0, g_vm->violations);
    EXPECT_EQ(sim_test::Line({0, "search_personal_address,Fail to find tarnwick/address/SearchKey."}),
              sim_test::lines_of("cmt_address_book").back());
}

TEST_F(AddressBookSearch, BuilderWithoutEnvironmentTracesAndCreatesNothing) {
    fake_jvm::control().get_env_result = JNI_EDETACHED;
    tarnwick::cmt_fax_info fax;
    EXPECT_EQ(nullptr, fax.create_object());
    EXPECT_EQ((std::vector<sim_test::Line>{{0, "cmt_fax_info,Fail to get JNIEnv."}}), sim_test::lines_of("cmt_fax_info"));
}
