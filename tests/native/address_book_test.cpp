// The personal-address search with a stand-in JNI environment (no JVM; also under qemu-ppc):
// every field through the builders on this byte order, the key name's UTF characters taken and
// released as required, a local frame per address, and no JNI call made while an exception is
// pending when a builder's class, a constructor or a string fails.
#include <gtest/gtest.h>
#include <jni.h>

#include <cstdarg>
#include <cstdlib>
#include <cstring>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "CJvm.h"
#include "cmt_address_book.h"
#include "cmt_fax_info.h"
#include "fake_jvm.h"
#include "tovr_jni_class.h"
#include "job_test_util.h"
#include "tovr_sim_address.h"

namespace {

// One Java object of the stand-in VM: a class, a string, an array or a plain object.
struct Obj {
    enum Kind { kClass, kString, kArray, kPlain } kind;
    std::string cls;  // class name (of the object, or the class itself)
    std::string text;
    std::map<std::string, Obj*> refs;
    std::map<std::string, int> ints;
    std::vector<Obj*> elements;
};

struct Vm {
    std::vector<std::unique_ptr<Obj>> heap;
    std::set<std::string> ids;  // field and method IDs: "Class.name"
    std::set<std::string> missing_classes;
    std::set<std::string> failing_constructors;
    int fail_strings = 0;  // the next n NewStringUTF fail
    bool pending = false;
    int violations = 0;  // JNI calls made while an exception was pending
    int cleared = 0;
    int utf_taken = 0, utf_released = 0;
    int globals = 0;
    int frames = 0, max_frames = 0, frames_pushed = 0;
    jsize array_limit = 1 << 20;

    Obj* make(Obj::Kind kind, const std::string& cls) {
        heap.push_back(std::make_unique<Obj>());
        heap.back()->kind = kind;
        heap.back()->cls = cls;
        return heap.back().get();
    }
    void check() {
        if (pending) ++violations;
    }
};

Vm* g_vm = nullptr;

Obj* O(jobject o) { return reinterpret_cast<Obj*>(o); }
jobject J(Obj* o) { return reinterpret_cast<jobject>(o); }
std::string field_name(jfieldID id) {
    const std::string& s = *reinterpret_cast<const std::string*>(id);
    return s.substr(s.find('.') + 1);
}

const std::set<std::string> kClasses = {
    "tarnwick/address/SearchKey",
    "tarnwick/zel/address/PersonalAddressImpl",
    "tarnwick/zel/address/attribute/NameInfoImpl",
    "tarnwick/zel/address/attribute/EmailInfoImpl",
    "tarnwick/zel/address/attribute/FtpInfoImpl",
    "tarnwick/zel/address/attribute/SmbInfoImpl",
    "tarnwick/zel/address/attribute/FaxInfoImpl",
    "tarnwick/zel/address/attribute/IfaxInfoImpl",
};

jclass JNICALL find_class(JNIEnv*, const char* name) {
    g_vm->check();
    if (!kClasses.count(name) || g_vm->missing_classes.count(name)) {
        g_vm->pending = true;  // NoClassDefFoundError
        return nullptr;
    }
    return reinterpret_cast<jclass>(g_vm->make(Obj::kClass, name));
}
jobject JNICALL new_global_ref(JNIEnv*, jobject o) {
    g_vm->check();
    ++g_vm->globals;
    return o;
}
void JNICALL delete_global_ref(JNIEnv*, jobject) { --g_vm->globals; }
void JNICALL delete_local_ref(JNIEnv*, jobject) {}
jfieldID JNICALL get_field_id(JNIEnv*, jclass c, const char* name, const char*) {
    g_vm->check();
    return reinterpret_cast<jfieldID>(const_cast<std::string*>(&*g_vm->ids.insert(O(c)->cls + "." + name).first));
}
jmethodID JNICALL get_method_id(JNIEnv*, jclass c, const char* name, const char*) {
    g_vm->check();
    return reinterpret_cast<jmethodID>(const_cast<std::string*>(&*g_vm->ids.insert(O(c)->cls + "." + name).first));
}
jboolean JNICALL exception_check(JNIEnv*) { return g_vm->pending ? JNI_TRUE : JNI_FALSE; }
void JNICALL exception_describe(JNIEnv*) {}
void JNICALL exception_clear(JNIEnv*) {
    if (g_vm->pending) ++g_vm->cleared;
    g_vm->pending = false;
}
jboolean JNICALL is_instance_of(JNIEnv*, jobject o, jclass c) {
    g_vm->check();
    return O(o)->cls == O(c)->cls ? JNI_TRUE : JNI_FALSE;
}
jobject JNICALL get_object_field(JNIEnv*, jobject o, jfieldID id) {
    g_vm->check();
    auto it = O(o)->refs.find(field_name(id));
    return it == O(o)->refs.end() ? nullptr : J(it->second);
}
const char* JNICALL get_string_utf_chars(JNIEnv*, jstring s, jboolean*) {
    g_vm->check();
    ++g_vm->utf_taken;
    char* copy = static_cast<char*>(std::malloc(O(s)->text.size() + 1));
    std::memcpy(copy, O(s)->text.c_str(), O(s)->text.size() + 1);
    // Some paths keep the characters on purpose (the count above tells); a list that stays
    // reachable keeps the leak checker of the sanitizer build from reporting those.
    static std::vector<char*>* taken = new std::vector<char*>;
    taken->push_back(copy);
    return copy;
}
void JNICALL release_string_utf_chars(JNIEnv*, jstring, const char* chars) {
    ++g_vm->utf_released;
    std::free(const_cast<char*>(chars));
}
jobject JNICALL new_object_v(JNIEnv*, jclass c, jmethodID, va_list) {
    g_vm->check();
    if (g_vm->failing_constructors.count(O(c)->cls)) {
        g_vm->pending = true;  // the constructor threw
        return nullptr;
    }
    return J(g_vm->make(Obj::kPlain, O(c)->cls));
}
jstring JNICALL new_string_utf(JNIEnv*, const char* chars) {
    g_vm->check();
    if (g_vm->fail_strings > 0) {
        --g_vm->fail_strings;
        g_vm->pending = true;  // OutOfMemoryError
        return nullptr;
    }
    Obj* s = g_vm->make(Obj::kString, "java/lang/String");
    s->text = chars;
    return reinterpret_cast<jstring>(s);
}
void JNICALL set_object_field(JNIEnv*, jobject o, jfieldID id, jobject v) {
    g_vm->check();
    O(o)->refs[field_name(id)] = O(v);
}
void JNICALL set_byte_field(JNIEnv*, jobject o, jfieldID id, jbyte v) {
    g_vm->check();
    O(o)->ints[field_name(id)] = v;
}
void JNICALL set_int_field(JNIEnv*, jobject o, jfieldID id, jint v) {
    g_vm->check();
    O(o)->ints[field_name(id)] = v;
}
jobjectArray JNICALL new_object_array(JNIEnv*, jsize n, jclass c, jobject) {
    g_vm->check();
    if (n > g_vm->array_limit) {
        g_vm->pending = true;
        return nullptr;
    }
    Obj* a = g_vm->make(Obj::kArray, O(c)->cls);
    a->elements.assign(static_cast<std::size_t>(n), nullptr);
    return reinterpret_cast<jobjectArray>(a);
}
void JNICALL set_object_array_element(JNIEnv*, jobjectArray a, jsize i, jobject v) {
    g_vm->check();
    O(a)->elements.at(static_cast<std::size_t>(i)) = O(v);
}
jint JNICALL push_local_frame(JNIEnv*, jint) {
    g_vm->check();
    ++g_vm->frames_pushed;
    if (++g_vm->frames > g_vm->max_frames) g_vm->max_frames = g_vm->frames;
    return 0;
}
jobject JNICALL pop_local_frame(JNIEnv*, jobject keep) {
    --g_vm->frames;
    return keep;
}

class AddressBookSearch : public ::testing::Test {
protected:
    void SetUp() override {
        vm_ = std::make_unique<Vm>();
        g_vm = vm_.get();
        std::memset(&functions_, 0, sizeof functions_);
        functions_.FindClass = find_class;
        functions_.NewGlobalRef = new_global_ref;
        functions_.DeleteGlobalRef = delete_global_ref;
        functions_.DeleteLocalRef = delete_local_ref;
        functions_.GetFieldID = get_field_id;
        functions_.GetMethodID = get_method_id;
        functions_.ExceptionCheck = exception_check;
        functions_.ExceptionDescribe = exception_describe;
        functions_.ExceptionClear = exception_clear;
        functions_.IsInstanceOf = is_instance_of;
        functions_.GetObjectField = get_object_field;
        functions_.GetStringUTFChars = get_string_utf_chars;
        functions_.ReleaseStringUTFChars = release_string_utf_chars;
        functions_.NewObjectV = new_object_v;
        functions_.NewStringUTF = new_string_utf;
        functions_.SetObjectField = set_object_field;
        functions_.SetByteField = set_byte_field;
        functions_.SetIntField = set_int_field;
        functions_.NewObjectArray = new_object_array;
        functions_.SetObjectArrayElement = set_object_array_element;
        functions_.PushLocalFrame = push_local_frame;
        functions_.PopLocalFrame = pop_local_frame;
        env_.functions = &functions_;
        fake_jvm::reset();
        fake_jvm::control().env = &env_;
        saved_ = tarnwick::CJvm::ms_jvm;
        tarnwick::CJvm::ms_jvm = fake_jvm::vm();
        tovr_sim::reset();
        tovr_sim::reset_address_book();
        tovr_sim::clear_trace();
        tarnwick::jni::JavaClass::forget_all();  // classes of another case's stand-in VM
    }
    void TearDown() override {
        tarnwick::jni::JavaClass::forget_all();
        tarnwick::CJvm::ms_jvm = saved_;
        fake_jvm::reset();
        tovr_sim::reset();
        tovr_sim::reset_address_book();
        g_vm = nullptr;
    }
    jobject key(const char* name) {
        Obj* k = g_vm->make(Obj::kPlain, "tarnwick/address/SearchKey");
        if (name) {
            Obj* s = g_vm->make(Obj::kString, "java/lang/String");
            s->text = name;
            k->refs["name"] = s;
        }
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

    std::unique_ptr<Vm> vm_;
    JNINativeInterface_ functions_;
    JNIEnv env_;
    JavaVM* saved_ = nullptr;
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
    EXPECT_EQ(job_test::Line({0, "search_personal_address,personalObjArray == NULL"}),
              job_test::lines_of("cmt_address_book").back());
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
    EXPECT_EQ(job_test::Line({0, "search_personal_address,Fail to find tarnwick/address/SearchKey."}),
              job_test::lines_of("cmt_address_book").back());
}

TEST_F(AddressBookSearch, BuilderWithoutEnvironmentTracesAndCreatesNothing) {
    fake_jvm::control().get_env_result = JNI_EDETACHED;
    tarnwick::cmt_fax_info fax;
    EXPECT_EQ(nullptr, fax.create_object());
    EXPECT_EQ((std::vector<job_test::Line>{{0, "cmt_fax_info,Fail to get JNIEnv."}}), job_test::lines_of("cmt_fax_info"));
}
