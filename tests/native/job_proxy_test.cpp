// The job proxy: result conversion with its trace lines, the one facade call of each operation
// with its entry and exit traces, and the operations with logic of their own.
#include <gtest/gtest.h>
#include <jni.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "CJvm.h"
#include "fake_jvm.h"
#include "sim_fixture.h"
#include "tovr_sim_job.h"
#include "zel_fnd_job_proxy.h"

using sim_test::Line;
using sim_test::lines_of;
using tarnwick::zel_fnd_job_proxy;

namespace {

std::vector<Line> proxy_lines() { return lines_of("zel_fnd_job_proxy"); }

class JobProxy : public sim_test::SimDeviceTest {
protected:
    zel_fnd_job_proxy proxy;
};

TEST_F(JobProxy, CharArraySizes) {
    const unsigned int sizes[] = {64, 128, 64, 64, 64, 128, 128, 128, 128};
    for (int key = 0; key <= 8; ++key) {
        EXPECT_EQ(sizes[key], proxy.get_char_array_size(static_cast<tarnwick::ZEL_FND_JOB_CHAR_ARRAY_SIZE_KEY>(key)));
    }
    for (int key : {9, 10, 1000, -1, -9}) {
        EXPECT_EQ(0u, proxy.get_char_array_size(static_cast<tarnwick::ZEL_FND_JOB_CHAR_ARRAY_SIZE_KEY>(key))) << key;
    }
    EXPECT_TRUE(tovr_sim::calls().empty());
    EXPECT_TRUE(proxy_lines().empty());
}

TEST_F(JobProxy, CreateJobCallsFacadeStartAndStartCallsKick) {
    tovr_sim::force_result("esv_zel_job_start", 0);
    tovr_sim::force_result("esv_zel_job_kick", 0);
    unsigned int uid = 0;
    EXPECT_EQ(0, proxy.create_job(ESV_ZEL_JOB_CATEGORY_SCAN_SEND, 4, uid));
    EXPECT_EQ(0, proxy.start(77));
    auto calls = tovr_sim::calls();
    ASSERT_EQ(2u, calls.size());
    EXPECT_EQ("esv_zel_job_start", calls[0].op);
    EXPECT_EQ((std::vector<std::string>{"1", "4", "0"}), calls[0].args);
    EXPECT_EQ("esv_zel_job_kick", calls[1].op);
    EXPECT_EQ((std::vector<std::string>{"77"}), calls[1].args);
}

TEST_F(JobProxy, CancelAndRemoveJobWithZeroMakeTheSameFacadeCall) {
    tovr_sim::force_result("esv_zel_job_cancel", 0, -1);
    EXPECT_EQ(0, proxy.cancel(9));
    EXPECT_EQ(0, proxy.remove_job(9, 0));
    auto calls = tovr_sim::calls("esv_zel_job_cancel");
    ASSERT_EQ(2u, calls.size());
    EXPECT_EQ(calls[0].args, calls[1].args);
    EXPECT_EQ((std::vector<std::string>{"9", "0"}), calls[0].args);
    // cancel traces only on entry; remove_job has its exit line.
    EXPECT_EQ((std::vector<Line>{{3, "cancel,[Start]. user_job_id = [9], cert_id = [0]."},
                                 {3, "convert_retcode,code = ESV_ZEL_JOB_OK"},
                                 {3, "remove_job,[Start]. user_job_id = [9], cert_id = [0]."},
                                 {3, "remove_job,[End]"},
                                 {3, "convert_retcode,code = ESV_ZEL_JOB_OK"}}),
              proxy_lines());
}

TEST_F(JobProxy, RemoveJobPassesCertIdAsUnsigned32) {
    tovr_sim::force_result("esv_zel_job_cancel", 0x0401000C);
    EXPECT_EQ(12, proxy.remove_job(5, 4000000000UL));
    EXPECT_EQ((std::vector<std::string>{"5", "4000000000"}), tovr_sim::calls("esv_zel_job_cancel")[0].args);
    EXPECT_EQ((Line{3, "remove_job,[Start]. user_job_id = [5], cert_id = [4000000000]."}), proxy_lines()[0]);
}

TEST_F(JobProxy, StartPhbIsTrueForAnyNonZeroAnswer) {
    for (int answer : {1, 2, 7, -1, 0x10000}) {
        tovr_sim::force_output("esv_zel_job_get_start_phb", 0, tovr_sim::output_value(1, answer));
        tovr_sim::clear_trace();
        bool result = false;
        EXPECT_EQ(0, proxy.get_start_phb(3, result));
        EXPECT_TRUE(result) << answer;
        EXPECT_EQ((Line{3, "get_start_phb,current_id = [3], result = true"}), proxy_lines().at(1));
    }
    tovr_sim::force("esv_zel_job_get_start_phb", [](const tovr_sim::Params& p) {
        EXPECT_EQ(0, *static_cast<int*>(p[1]));  // the proxy hands in a zeroed int
        return 0L;
    });
    tovr_sim::clear_trace();
    bool result = true;
    EXPECT_EQ(0, proxy.get_start_phb(3, result));
    EXPECT_FALSE(result);
    EXPECT_EQ((std::vector<Line>{{3, "get_start_phb,[Start]. current_id = [3]."},
                                 {3, "get_start_phb,current_id = [3], result = false"},
                                 {3, "convert_retcode,code = ESV_ZEL_JOB_OK"}}),
              proxy_lines());
}

TEST_F(JobProxy, StartPhbResultIsWrittenWhenTheFacadeFails) {
    tovr_sim::force_result("esv_zel_job_get_start_phb", 0x04010008);
    bool result = true;
    EXPECT_EQ(8, proxy.get_start_phb(3, result));
    EXPECT_FALSE(result);
}

TEST_F(JobProxy, TextGetValueOnFailingFacadeGivesEmptyAndNoError) {
    tovr_sim::force_output("esv_zel_job_get_value", 0x04010001L, tovr_sim::output_text(2, "string", "half-written"));
    EXPECT_EQ("", proxy.get_value(2, ESV_ZEL_JOB_SETTING_JOB_NAME));
    EXPECT_EQ((std::vector<Line>{{3, "get_value,[Start]. current_id = [2], data_id = [100], val = []."},
                                 {3, "get_value,val = empty"}}),
              proxy_lines());
}

TEST_F(JobProxy, TextGetValueReturnsTheText) {
    tovr_sim::force("esv_zel_job_get_value", [](const tovr_sim::Params& p) {
        EXPECT_EQ("", *static_cast<std::string*>(p[2]));
        *static_cast<std::string*>(p[2]) = "quarterly report";
        return 0L;
    });
    EXPECT_EQ("quarterly report", proxy.get_value(2, ESV_ZEL_JOB_SETTING_JOB_NAME));
    EXPECT_EQ((Line{3, "get_value,val = [quarterly report]"}), proxy_lines().back());
}

TEST_F(JobProxy, SendAddressIdTracesCountAndListSize) {
    tovr_sim::force("esv_zel_job_get_address_id", [](const tovr_sim::Params& p) {
        EXPECT_EQ(0u, *static_cast<unsigned int*>(p[1]));
        *static_cast<unsigned int*>(p[1]) = 5;
        auto* ids = static_cast<std::vector<unsigned int>*>(p[2]);
        ids->push_back(11);
        ids->push_back(12);
        return 0L;
    });
    std::vector<unsigned int> ids{1};
    EXPECT_EQ(0, proxy.get_send_address_id(6, ids));
    EXPECT_EQ((std::vector<unsigned int>{1, 11, 12}), ids);
    EXPECT_EQ((std::vector<Line>{{3, "get_send_address_id,[Start]. current_id = [6]."},
                                 {3, "get_send_address_id,[End]. current_id = [6], address_id_num = [5], list_size = [3]."},
                                 {3, "convert_retcode,code = ESV_ZEL_JOB_OK"}}),
              proxy_lines());
}

TEST_F(JobProxy, DisableInfoTracesTheMaskInHex) {
    tovr_sim::force_output("esv_zel_job_get_disable_info", 0, tovr_sim::output_value(2, static_cast<unsigned short>(0xAB)));
    unsigned short val = 0;
    EXPECT_EQ(0, proxy.get_disable_info(4, ESV_ZEL_PHB_DISABLE_ITEM_DUPLEX, val));
    EXPECT_EQ(0xAB, val);
    EXPECT_EQ((Line{3, "get_disable_info,[End]. current_id = [4], setting_id = [1], val = [0x00AB]"}), proxy_lines().at(1));
}

// Entry and exit lines of every operation, in order, with the conversion line last.
TEST_F(JobProxy, EntryAndExitTraces) {
    struct Case {
        const char* op;
        std::function<int(zel_fnd_job_proxy&)> call;
        std::vector<std::string> texts;  // the operation's own lines
    };
    unsigned int u = 0;
    ESV_ZEL_PHB_GET_MESSAGE msg{};
    ESV_ZEL_JOB_SEND_INFO info{};
    info.address_type = 2;
    std::vector<unsigned int> list;
    ESV_ZEL_BOX_JOB_INIT_SETTING box{};
    ESV_ZEL_PHB_COMBINE_DOC_INFO combine{};
    char path[] = "/mnt/usb", name[] = "a.pdf", store[] = "/box/1", text[] = "x";
    const std::vector<Case> cases = {
        {"esv_zel_job_generate_jobinfo", [&](zel_fnd_job_proxy& p) { u = 0; return p.generate_jobinfo(ESV_ZEL_JOB_PHB_CATEGORY_SEND, u); },
         {"generate_jobinfo,[Start]. function = [1].", "generate_jobinfo,current_id = [0]"}},
        {"esv_zel_job_start", [&](zel_fnd_job_proxy& p) { u = 0; return p.create_job(ESV_ZEL_JOB_CATEGORY_COPY, 3, u); },
         {"create_job,[Start]. type = [0], current_id = [3].", "create_job,user_job_id = [0]"}},
        {"esv_zel_job_kick", [&](zel_fnd_job_proxy& p) { return p.start(101); }, {"start,[Start]. user_job_id = [101]."}},
        {"esv_zel_job_continuous_read", [&](zel_fnd_job_proxy& p) { return p.continuous_read(101); },
         {"continuous_read,[Start]. user_job_id = [101]."}},
        {"esv_zel_job_continuous_read_end", [&](zel_fnd_job_proxy& p) { return p.continuous_read_end(101); },
         {"continuous_read_end,[Start]. user_job_id = [101]."}},
        {"esv_zel_job_get_value", [&](zel_fnd_job_proxy& p) { u = 9; return p.get_value(3, ESV_ZEL_JOB_SETTING_COPIES, u); },
         {"get_value,[Start]. current_id = [3], data_id = [0], val = [9].", "get_value,val = [9]"}},
        {"esv_zel_job_set_value", [&](zel_fnd_job_proxy& p) { return p.set_value(3, ESV_ZEL_JOB_SETTING_COPIES, 4u); },
         {"set_value,[Start]. current_id = [3], data_id = [0], val = [4]."}},
        {"esv_zel_job_set_value", [&](zel_fnd_job_proxy& p) { return p.set_value(3, ESV_ZEL_JOB_SETTING_JOB_NAME, std::string("memo")); },
         {"set_value,[Start]. current_id = [3], data_id = [100], val = [memo]."}},
        {"esv_zel_job_get_value", [&](zel_fnd_job_proxy& p) { unsigned int a = 1, b = 2, c = 3; return p.get_value(3, ESV_ZEL_PHB_SETTING_ID_MARGIN, a, b, c); },
         {"get_value,[Start]. current_id = [3], setting_id = [1], value_1 = [1], value_2 = [2], value_3 = [3].",
          "get_value,value_1 = [1], value_2 = [2], value_3 = [3]"}},
        {"esv_zel_job_set_value", [&](zel_fnd_job_proxy& p) { return p.set_value(3, ESV_ZEL_PHB_SETTING_ID_MARGIN, 4u, 5u, 6u); },
         {"set_value,[Start]. current_id = [3], setting_id = [1], value_1 = [4], value_2 = [5], value_3 = [6]."}},
        {"esv_zel_job_basic_func_set_value", [&](zel_fnd_job_proxy& p) { return p.basic_func_set_value(ESV_ZEL_JOB_FUNC_TYPE_FAX, ESV_ZEL_JOB_SETTING_DUPLEX, 1); },
         {"basic_func_set_value,[Start]. func_type = [2], data_id = [2], val = [1].", "basic_func_set_value,[End]"}},
        {"esv_zel_job_get_default_jobinfo_val", [&](zel_fnd_job_proxy& p) { u = 0; return p.get_default_jobinfo_val(ESV_ZEL_JOB_SETTING_ZOOM, u); },
         {"get_default_jobinfo_val,[Start]. jobinfo_key = [7]", "get_default_jobinfo_val,[End]. jobinfo_key = [7], value = [0]."}},
        {"esv_zel_job_commit_jobinfo", [&](zel_fnd_job_proxy& p) { return p.commit_jobinfo(3); },
         {"commit_jobinfo,[Start]. current_id = [3].", "commit_jobinfo,[End]"}},
        {"esv_zel_job_rollback_jobinfo", [&](zel_fnd_job_proxy& p) { return p.rollback_jobinfo(3); },
         {"rollback_jobinfo,[Start]. current_id = [3].", "rollback_jobinfo,[End]"}},
        {"esv_zel_job_copy_jobinfo", [&](zel_fnd_job_proxy& p) { return p.copy_jobinfo(3); },
         {"copy_jobinfo,[Start] current_id = [3].", "copy_jobinfo,[End]"}},
        {"esv_zel_job_delete_jobinfo", [&](zel_fnd_job_proxy& p) { return p.delete_jobinfo(3); },
         {"delete_jobinfo,[Start]. current_id = [3].", "delete_jobinfo,[End]"}},
        {"esv_zel_job_reset_jobinfo", [&](zel_fnd_job_proxy& p) { return p.reset_jobinfo(3); },
         {"reset_jobinfo,[Start]. current_id = [3].", "reset_jobinfo,[End]"}},
        {"esv_zel_job_set_state_of_prohibition", [&](zel_fnd_job_proxy& p) { return p.set_state_of_prohibition(ESV_ZEL_STATE_OF_PROHIBITION_SET); },
         {"set_state_of_prohibition,[Start]", "set_state_of_prohibition,[End]"}},
        {"esv_zel_job_check_state_of_prohibition", [&](zel_fnd_job_proxy& p) { return p.check_state_of_prohibition(); },
         {"check_state_of_prohibition,[Start]", "check_state_of_prohibition,[End]"}},
        {"esv_zel_job_get_main_message", [&](zel_fnd_job_proxy& p) { return p.get_main_message(3, msg); },
         {"get_main_message,[Start]. current_id = [3].", "get_main_message,[End]"}},
        {"esv_zel_job_add_address", [&](zel_fnd_job_proxy& p) { u = 42; return p.add_send_address(3, u, info); },
         {"add_send_address,[Start]. current_id = [3], address_id = [42].", "add_send_address,address_type = [2]", "add_send_address,[End]"}},
        {"esv_zel_job_update_address", [&](zel_fnd_job_proxy& p) { return p.update_send_address(3, 8, info); },
         {"update_send_address,[Start]. current_id = [3], address_id = [8].", "update_send_address,address_type = [2]", "update_send_address,[End]"}},
        {"esv_zel_job_delete_address", [&](zel_fnd_job_proxy& p) { return p.delete_send_address(3, 8); },
         {"delete_send_address,[Start]. current_id = [3], address_id = [8].", "delete_send_address,[End]"}},
        {"esv_zel_job_delete_all_address", [&](zel_fnd_job_proxy& p) { return p.delete_all_send_address(3); },
         {"delete_all_send_address,[Start]. current_id = [3].", "delete_all_send_address,[End]"}},
        {"esv_zel_job_get_address", [&](zel_fnd_job_proxy& p) { return p.get_send_address(3, 8, info); },
         {"get_send_address,[Start]. current_id = [3], address_id = [8].", "get_send_address,End]"}},
        {"esv_zel_job_get_job_list", [&](zel_fnd_job_proxy& p) { return p.get_job_list(ESV_ZEL_JOB_KIND_RUNNING, list); },
         {"get_job_list,[Start]. kind = [2].", "get_job_list,[End]"}},
        {"esv_zel_job_box_job_prepare", [&](zel_fnd_job_proxy& p) { return p.box_job_prepare(3, box); },
         {"box_job_prepare,[Start]. current_id = [3].", "box_job_prepare,[End]"}},
        {"esv_zel_job_direct_print_prepare", [&](zel_fnd_job_proxy& p) { return p.direct_print_prepare(3, path, name); },
         {"direct_print_prepare,[Start]. current_id = [3], file_path = [/mnt/usb], file_name = [a.pdf].", "direct_print_prepare,[End]"}},
        {"esv_zel_job_retrieve_document_prepare", [&](zel_fnd_job_proxy& p) { return p.retrieve_document_prepare(3, text, 4000000000UL, 7, store); },
         {"retrieve_document_prepare,[Start]. current_id = [3], box_id = [4000000000], doc_id = [7], store_path = [/box/1].",
          "retrieve_document_prepare,[End]"}},
        {"esv_zel_job_combine_document", [&](zel_fnd_job_proxy& p) { return p.combine_document(3, combine); },
         {"combine_document,[Start]. current_id = [3].", "combine_document,[End]"}},
    };
    for (const Case& c : cases) {
        sim_test::reset_device();
        tovr_sim::force_result(c.op, 0x04010006);  // answered by the facade, nothing written
        EXPECT_EQ(6, c.call(proxy)) << c.op;
        std::vector<Line> expected;
        for (const std::string& t : c.texts) expected.push_back(Line{3, t});
        expected.push_back(Line{3, "convert_retcode,code = ESV_ZEL_JOB_LIMIT"});
        EXPECT_EQ(expected, proxy_lines()) << c.op;
        auto calls = tovr_sim::calls();
        ASSERT_EQ(1u, calls.size()) << c.op;
        EXPECT_EQ(c.op, calls[0].op);
    }
}

TEST_F(JobProxy, PrepareTextsMayBeNull) {
    tovr_sim::force_result("esv_zel_job_direct_print_prepare", 0);
    tovr_sim::force_result("esv_zel_job_retrieve_document_prepare", 0);
    EXPECT_EQ(0, proxy.direct_print_prepare(3, nullptr, nullptr));
    EXPECT_EQ(0, proxy.retrieve_document_prepare(3, nullptr, 1, 2, nullptr));
    EXPECT_EQ((std::vector<std::string>{"3", "null", "null"}), tovr_sim::calls("esv_zel_job_direct_print_prepare")[0].args);
    EXPECT_EQ((std::vector<std::string>{"3", "null", "1", "2", "null"}),
              tovr_sim::calls("esv_zel_job_retrieve_document_prepare")[0].args);
}

// ---------------------------------------------------------------------------------------------
// get_scan_data needs the calling thread's environment: a minimal JNIEnv stands in for the VM's.

struct FakeArrays {
    std::vector<std::vector<jbyte>> arrays;
    bool fail_new = false;
    bool pending = false;
    int cleared = 0;
};
FakeArrays g_arrays;

jbyteArray JNICALL fake_new_byte_array(JNIEnv*, jsize len) {
    if (g_arrays.fail_new) return nullptr;
    g_arrays.arrays.emplace_back(static_cast<std::size_t>(len));
    return reinterpret_cast<jbyteArray>(g_arrays.arrays.size());  // 1-based index as the reference
}
void JNICALL fake_set_region(JNIEnv*, jbyteArray a, jsize start, jsize len, const jbyte* buf) {
    auto& v = g_arrays.arrays.at(reinterpret_cast<std::uintptr_t>(a) - 1);
    if (len > 0) std::memcpy(v.data() + start, buf, static_cast<std::size_t>(len));
}
jthrowable JNICALL fake_exception_occurred(JNIEnv*) {
    return g_arrays.pending ? reinterpret_cast<jthrowable>(1) : nullptr;
}
void JNICALL fake_exception_clear(JNIEnv*) {
    g_arrays.pending = false;
    ++g_arrays.cleared;
}

// Forced outputs of esv_zel_job_get_scan_data(user_job_id, record): its buffer filled with one
// byte, and its count.
tovr_sim::Output filled_scan_data(unsigned char byte) {
    const std::size_t n = sizeof(ESV_ZEL_JOB_GET_SCAN_DATA::scan_data);
    return tovr_sim::output_bytes(1, "bytes[" + std::to_string(n) + "]", std::vector<unsigned char>(n, byte),
                                  offsetof(ESV_ZEL_JOB_GET_SCAN_DATA, scan_data));
}

tovr_sim::Output data_size(std::uint32_t count) {
    return tovr_sim::output_value(1, count, offsetof(ESV_ZEL_JOB_GET_SCAN_DATA, data_size));
}

class JobScanData : public JobProxy {
protected:
    void SetUp() override {
        JobProxy::SetUp();
        g_arrays = FakeArrays();
        std::memset(&functions_, 0, sizeof functions_);
        functions_.NewByteArray = fake_new_byte_array;
        functions_.SetByteArrayRegion = fake_set_region;
        functions_.ExceptionOccurred = fake_exception_occurred;
        functions_.ExceptionClear = fake_exception_clear;
        env_.functions = &functions_;
        fake_jvm::reset();
        fake_jvm::control().env = &env_;
        saved_ = tarnwick::CJvm::ms_jvm;
        tarnwick::CJvm::ms_jvm = fake_jvm::vm();
    }
    void TearDown() override {
        tarnwick::CJvm::ms_jvm = saved_;
        fake_jvm::reset();
        JobProxy::TearDown();
    }
    static void answer_with(std::vector<unsigned char> bytes, long rc = 0) {
        std::vector<tovr_sim::Output> outputs{tovr_sim::output_value(
            1, static_cast<uint32_t>(bytes.size()), offsetof(ESV_ZEL_JOB_GET_SCAN_DATA, data_size))};
        if (!bytes.empty()) {
            outputs.push_back(tovr_sim::output_bytes(1, "bytes[" + std::to_string(bytes.size()) + "]", bytes,
                                                     offsetof(ESV_ZEL_JOB_GET_SCAN_DATA, scan_data)));
        }
        tovr_sim::force_outputs("esv_zel_job_get_scan_data", rc, outputs);
    }
    JNINativeInterface_ functions_;
    JNIEnv env_;
    JavaVM* saved_ = nullptr;
    ESV_ZEL_JOB_GET_SCAN_DATA data{};
};

TEST_F(JobScanData, CountZeroGivesAnEmptyArrayNotNull) {
    answer_with({});
    jbyteArray a = proxy.get_scan_data(101, data);
    ASSERT_NE(nullptr, a);
    EXPECT_EQ(0u, g_arrays.arrays.at(0).size());
    EXPECT_EQ((std::vector<Line>{{3, "get_scan_data,[Start]. user_job_id = [101]."}, {3, "get_scan_data,[End]"}}),
              proxy_lines());
}

TEST_F(JobScanData, CopiesExactlyTheCountFromTheBuffer) {
    std::vector<unsigned char> bytes(4096);
    for (std::size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<unsigned char>(i * 7);
    answer_with(bytes);
    jbyteArray a = proxy.get_scan_data(101, data);
    ASSERT_NE(nullptr, a);
    const auto& got = g_arrays.arrays.at(0);
    ASSERT_EQ(4096u, got.size());
    EXPECT_EQ(0, std::memcmp(bytes.data(), got.data(), got.size()));
    answer_with({1, 0, 3});
    ASSERT_NE(nullptr, proxy.get_scan_data(101, data));
    EXPECT_EQ((std::vector<jbyte>{1, 0, 3}), g_arrays.arrays.at(1));
}

TEST_F(JobScanData, FacadeFailureGivesNullWithoutConversionOrExitTrace) {
    answer_with({1, 2}, 0x0401000C);
    EXPECT_EQ(nullptr, proxy.get_scan_data(101, data));
    EXPECT_TRUE(g_arrays.arrays.empty());
    EXPECT_EQ((std::vector<Line>{{3, "get_scan_data,[Start]. user_job_id = [101]."}}), proxy_lines());
}

TEST_F(JobScanData, NoArrayGivesNull) {
    answer_with({1, 2});
    g_arrays.fail_new = true;
    EXPECT_EQ(nullptr, proxy.get_scan_data(101, data));
}

TEST_F(JobScanData, PendingExceptionIsClearedAndGivesNull) {
    answer_with({1, 2});
    g_arrays.pending = true;
    EXPECT_EQ(nullptr, proxy.get_scan_data(101, data));
    EXPECT_EQ(1, g_arrays.cleared);
    EXPECT_EQ(1u, proxy_lines().size());
}

TEST_F(JobScanData, NoEnvironmentGivesNullBeforeTheFacade) {
    fake_jvm::control().get_env_result = JNI_EDETACHED;
    EXPECT_EQ(nullptr, proxy.get_scan_data(101, data));
    EXPECT_TRUE(tovr_sim::calls().empty());
    EXPECT_EQ((std::vector<Line>{{3, "get_scan_data,[Start]. user_job_id = [101]."}, {0, "get_scan_data,Fail to get JNIEnv."}}),
              proxy_lines());
}

TEST_F(JobScanData, NoVmGivesNull) {
    tarnwick::CJvm::ms_jvm = nullptr;
    EXPECT_EQ(nullptr, proxy.get_scan_data(101, data));
    EXPECT_TRUE(tovr_sim::calls().empty());
}

}  // namespace

// The count is only believed for bytes inside the buffer. The record stands alone on the heap,
// so a copy past it is a heap-buffer-overflow under AddressSanitizer.
TEST_F(JobScanData, CountBeyondTheBufferIsAFacadeFailure) {
    for (std::uint32_t count : {4097u, 5000u, 100000u, 0x7FFFFFFFu, 0xFFFFFFFFu}) {
        auto record = std::make_unique<ESV_ZEL_JOB_GET_SCAN_DATA>();
        tovr_sim::force_outputs("esv_zel_job_get_scan_data", 0, {filled_scan_data(0x5A), data_size(count)});
        tovr_sim::clear_trace();
        EXPECT_EQ(nullptr, proxy.get_scan_data(102, *record)) << count;
        EXPECT_TRUE(g_arrays.arrays.empty()) << count;
        EXPECT_EQ((std::vector<Line>{{3, "get_scan_data,[Start]. user_job_id = [102]."},
                                     {0, "get_scan_data,data_size = [" + std::to_string(count) +
                                             "] exceeds the scan data buffer of [4096] bytes."}}),
                  proxy_lines())
            << count;
    }
}

TEST_F(JobScanData, CountOfExactlyTheBufferIsCopiedWhole) {
    auto record = std::make_unique<ESV_ZEL_JOB_GET_SCAN_DATA>();
    tovr_sim::force_outputs("esv_zel_job_get_scan_data", 0, {filled_scan_data(0x33), data_size(4096)});
    ASSERT_NE(nullptr, proxy.get_scan_data(103, *record));
    EXPECT_EQ(std::vector<jbyte>(4096, 0x33), g_arrays.arrays.at(0));
}
