// The document manager without a Java VM (deletion, the listing's failure before Java is
// reached, the one instance) and the simulated easy box of the common facade.
#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <set>
#include <thread>
#include <vector>

#include "CJvm.h"
#include "esv_zel_common_facade.h"
#include "fake_jvm.h"
#include "stand_in_vm.h"
#include "tovr_sim.h"
#include "tovr_sim_storage.h"
#include "zel_fnd_document_manager.h"
#include "sim_fixture.h"

using tarnwick::zel_fnd_document_manager;

namespace {

struct Line {
    int level;
    std::string text;
    bool operator==(const Line& o) const { return level == o.level && text == o.text; }
};
std::ostream& operator<<(std::ostream& os, const Line& l) { return os << l.level << " " << l.text; }

std::vector<Line> lines() {
    std::vector<Line> out;
    const std::string module = "zel_fnd_document_manager[";
    for (const tovr_sim::TraceLine& l : tovr_sim::trace_lines()) {
        if (l.text.compare(0, module.size(), module) != 0) continue;
        EXPECT_EQ(0x2601u, l.id);
        EXPECT_EQ(0x101u, l.sub_id);
        out.push_back(Line{l.level, l.text.substr(l.text.find("]::") + 3)});
    }
    return out;
}

tarnwick::esv_zel_common_facade* common() { return tarnwick::esv_zel_common_facade::esv_zel_common_get_instance(); }

class DocumentBox : public sim_test::SimDeviceTest {
protected:
    void SetUp() override {
        SimDeviceTest::SetUp();
        fake_jvm::reset();
    }
    void TearDown() override {
        EXPECT_EQ(0, tovr_sim::open_resources(tovr_sim::kBoxListing));
        EXPECT_EQ(0, tovr_sim::open_resources("platform block"));
        SimDeviceTest::TearDown();
        tarnwick::CJvm::ms_jvm = nullptr;
        fake_jvm::reset();
    }
};

}  // namespace

TEST(BoxRecords, Layout) {
    EXPECT_EQ(3080u, sizeof(ESV_ZEL_EASY_BOX_INFO));
    EXPECT_EQ(8u, offsetof(ESV_ZEL_EASY_BOX_INFO, name));
    EXPECT_EQ(1540u, offsetof(ESV_ZEL_EASY_BOX_INFO, date));
    EXPECT_EQ(1544u, offsetof(ESV_ZEL_EASY_BOX_INFO, size));
    EXPECT_EQ(1548u, offsetof(ESV_ZEL_EASY_BOX_INFO, path));
}

TEST_F(DocumentBox, OneInstanceForAllThreads) {
    std::vector<std::thread> threads;
    std::vector<zel_fnd_document_manager*> got(8);
    for (int i = 0; i < 8; ++i) {
        threads.emplace_back([&got, i] { got[i] = zel_fnd_document_manager::zel_fnd_get_instance(); });
    }
    for (auto& t : threads) t.join();
    std::set<zel_fnd_document_manager*> distinct(got.begin(), got.end());
    EXPECT_EQ(1u, distinct.size());
    EXPECT_NE(nullptr, *distinct.begin());
}

TEST_F(DocumentBox, DeletionResults) {
    tovr_sim::box_add_document("/f", "d.pdf", 10, 0);
    zel_fnd_document_manager* m = zel_fnd_document_manager::zel_fnd_get_instance();
    EXPECT_EQ(0, m->zel_fnd_delete_document("/f/d.pdf"));
    EXPECT_FALSE(tovr_sim::box_exists("/f/d.pdf"));
    EXPECT_EQ(8, m->zel_fnd_delete_document("/f/d.pdf"));
    EXPECT_EQ(1, m->zel_fnd_delete_document("/f"));  // a folder is no document
    tovr_sim::force_result("esv_zel_delete_easy_document", 0x0401020B);
    EXPECT_EQ(8, m->zel_fnd_delete_document("x"));
    tovr_sim::force_result("esv_zel_delete_easy_document", -1);
    EXPECT_EQ(1, m->zel_fnd_delete_document("x"));
    EXPECT_EQ((std::vector<Line>{
                  {3, "zel_fnd_delete_document,[Enter]. path=(/f/d.pdf)"},
                  {3, "zel_fnd_delete_document,[Enter]. path=(/f/d.pdf)"},
                  {0, "zel_fnd_delete_document,result(67174923)=ESV_ZEL_COMMON_PATH_ERROR"},
                  {3, "zel_fnd_delete_document,[Enter]. path=(/f)"},
                  {0, "zel_fnd_delete_document,result(67174913)=UNKNOWN"},
                  {3, "zel_fnd_delete_document,[Enter]. path=(x)"},
                  {0, "zel_fnd_delete_document,result(67174923)=ESV_ZEL_COMMON_PATH_ERROR"},
                  {3, "zel_fnd_delete_document,[Enter]. path=(x)"},
                  {0, "zel_fnd_delete_document,result(-1)=UNKNOWN"},
              }),
              lines());
    EXPECT_EQ((std::vector<std::string>{"/f/d.pdf"}), tovr_sim::calls("esv_zel_delete_easy_document")[0].args);
}

TEST_F(DocumentBox, ListingWithoutAnEnvironment) {
    tovr_sim::box_add_document("/f", "d", 1, 0);
    zel_fnd_document_manager* m = zel_fnd_document_manager::zel_fnd_get_instance();
    tarnwick::CJvm::ms_jvm = nullptr;
    EXPECT_EQ(1, m->zel_fnd_get_easy_box_list("/f", nullptr));
    tarnwick::CJvm::CreateJVM();
    fake_jvm::control().get_env_result = JNI_EDETACHED;
    EXPECT_EQ(1, m->zel_fnd_get_easy_box_list("/f", nullptr));
    EXPECT_EQ((std::vector<Line>{{3, "zel_fnd_get_easy_box_list,[Enter] path = [/f]"},
                                 {0, "zel_fnd_get_easy_box_list,GetJNIEnv() failed."},
                                 {3, "zel_fnd_get_easy_box_list,[Enter] path = [/f]"},
                                 {0, "zel_fnd_get_easy_box_list,GetJNIEnv() failed."}}),
              lines());
    EXPECT_TRUE(tovr_sim::calls("esv_zel_get_easy_box_info_prepare").empty());
}

TEST_F(DocumentBox, SimulatedListing) {
    tovr_sim::box_add_document("/a/b", "z", 5, -3, 2);
    tovr_sim::box_add_folder("/a/b/sub");
    tovr_sim::box_add_document("/a/b", "y", 7, 100);
    unsigned int handle = 0, total = 0;
    EXPECT_EQ(ESV_ZEL_COMMON_PARAM_ERROR, common()->esv_zel_get_easy_box_info_prepare("/a/b", 2, handle, total));
    EXPECT_EQ(ESV_ZEL_COMMON_PATH_ERROR, common()->esv_zel_get_easy_box_info_prepare("/a/c", 1, handle, total));
    EXPECT_EQ(ESV_ZEL_COMMON_PATH_ERROR, common()->esv_zel_get_easy_box_info_prepare("/a/b/z", 1, handle, total));
    ASSERT_EQ(0u, common()->esv_zel_get_easy_box_info_prepare("/a/b/", 1, handle, total));
    EXPECT_EQ(3u, total);
    EXPECT_EQ(1, tovr_sim::open_resources(tovr_sim::kBoxListing));
    ESV_ZEL_EASY_BOX_INFO e;
    unsigned int n = 9;
    const char* names[] = {"sub", "y", "z"};
    const unsigned int types[] = {1, 0, 2};
    for (int i = 0; i < 3; ++i) {
        ASSERT_EQ(0u, common()->esv_zel_get_easy_box_info(handle, n, &e));
        EXPECT_EQ(1u, n);
        EXPECT_STREQ(names[i], e.name);
        EXPECT_EQ(std::string("/a/b/") + names[i], e.path);
        EXPECT_EQ(types[i], e.type);
    }
    EXPECT_EQ(-3, e.date);
    ASSERT_EQ(0u, common()->esv_zel_get_easy_box_info(handle, n, &e));
    EXPECT_EQ(0u, n);
    EXPECT_EQ(ESV_ZEL_COMMON_PARAM_ERROR, common()->esv_zel_get_easy_box_info(handle, n, nullptr));
    EXPECT_EQ(0u, common()->esv_zel_get_easy_box_info_finish(handle));
    EXPECT_EQ(ESV_ZEL_COMMON_HANDLE_ERROR, common()->esv_zel_get_easy_box_info_finish(handle));
    EXPECT_EQ(ESV_ZEL_COMMON_HANDLE_ERROR, common()->esv_zel_get_easy_box_info(handle, n, &e));
    tovr_sim::box_set_listing_limit(1);
    unsigned int h1 = 0, h2 = 0;
    ASSERT_EQ(0u, common()->esv_zel_get_easy_box_info_prepare("/", 1, h1, total));
    EXPECT_EQ(1u, total);
    EXPECT_EQ(ESV_ZEL_COMMON_LIMIT_ERROR, common()->esv_zel_get_easy_box_info_prepare("/", 1, h2, total));
    EXPECT_EQ(0u, h2);
    EXPECT_EQ(0u, common()->esv_zel_get_easy_box_info_finish(h1));
}

TEST_F(DocumentBox, ForcedEntriesFillTheirFieldsExactly) {
    tovr_sim::force_box_prepare(0, 42, 1);
    tovr_sim::force_box_entry(0, 1, 1, std::string(2000, 'n'), 9, 8, "p");
    unsigned int handle = 0, total = 0, n = 0;
    EXPECT_EQ(0u, common()->esv_zel_get_easy_box_info_prepare("/", 1, handle, total));
    EXPECT_EQ(42u, handle);
    EXPECT_EQ(1u, total);
    ESV_ZEL_EASY_BOX_INFO e;
    std::memset(&e, 0x55, sizeof e);
    EXPECT_EQ(0u, common()->esv_zel_get_easy_box_info(handle, n, &e));
    EXPECT_EQ(std::string(1531, 'n'), std::string(e.name, sizeof e.name));
    EXPECT_EQ(0, e.pad_name);
    EXPECT_STREQ("p", e.path);
}

namespace {

// The listing building its objects in a stand-in VM.
class DocumentBoxObjects : public DocumentBox {
protected:
    void SetUp() override {
        DocumentBox::SetUp();
        vm_ = std::make_unique<stand_in::Vm>(std::set<std::string>{
            "tarnwick/zel/box/document/RemovableMemoryFileInfoImpl",
            "tarnwick/zel/box/document/RemovableMemoryFileImpl", "java/util/Calendar", "java/util/Date"});
    }
    void TearDown() override {
        vm_.reset();
        DocumentBox::TearDown();  // the listing finished, the platform block freed
    }
    std::unique_ptr<stand_in::Vm> vm_;
};

}  // namespace

TEST_F(DocumentBoxObjects, OneFileObjectPerEntry) {
    tovr_sim::box_add_document("/f", "a.pdf", 10, 0);
    tovr_sim::box_add_folder("/f/sub");
    jobject list = vm_->object("java/util/ArrayList");
    EXPECT_EQ(0, zel_fnd_document_manager::zel_fnd_get_instance()->zel_fnd_get_easy_box_list("/f", list));
    const std::vector<stand_in::Obj*>& files = stand_in::O(list)->elements;
    ASSERT_EQ(2u, files.size());
    EXPECT_EQ(1, files[0]->ints.at("isfile"));
    stand_in::Obj* info = files[0]->refs.at("info");
    EXPECT_EQ("a.pdf", info->refs.at("name")->text);
    EXPECT_EQ("/f/a.pdf", info->refs.at("path")->text);
    EXPECT_EQ(10, info->ints.at("datasize"));
    EXPECT_EQ(1970, info->refs.at("date")->ints.at("year"));
    EXPECT_EQ(0, files[1]->ints.at("isfile"));
    EXPECT_EQ(0, vm_->frames);
    EXPECT_EQ(2, vm_->frames_pushed);
    EXPECT_EQ(0, vm_->violations);
}

// A native allocation that fails inside an entry (stood in for by the VM's constructor) ends
// the listing through its failure path: 1, the block freed and the listing finished (checked
// by the fixture), nothing of the entry added, and the exception kept inside the library.
TEST_F(DocumentBoxObjects, AnAllocationFailingInsideAnEntryFinishesTheListing) {
    tovr_sim::box_add_document("/f", "a.pdf", 10, 0);
    tovr_sim::box_add_document("/f", "b.pdf", 20, 0);
    vm_->bad_alloc_constructors.insert("tarnwick/zel/box/document/RemovableMemoryFileImpl");
    jobject list = vm_->object("java/util/ArrayList");
    int result = -1;
    EXPECT_NO_THROW(result = zel_fnd_document_manager::zel_fnd_get_instance()->zel_fnd_get_easy_box_list("/f", list));
    EXPECT_EQ(1, result);
    EXPECT_TRUE(stand_in::O(list)->elements.empty());
    EXPECT_EQ(1u, tovr_sim::calls("esv_zel_get_easy_box_info").size());
    EXPECT_EQ(1u, tovr_sim::calls("esv_zel_get_easy_box_info_finish").size());
    EXPECT_EQ(0, vm_->frames);
    std::vector<Line> traced = lines();
    ASSERT_EQ(8u, traced.size());  // the entry's lines, nothing of the failure
    EXPECT_EQ((Line{3, "zel_fnd_get_easy_box_list,-------------------------------------------"}), traced.back());
}
