// The simulated job service as the job proxies see it: job-information sets with state, send
// addresses, prohibition, and jobs that a device thread runs, observed through the facades'
// observer interfaces. Also the record layouts on this ABI and the wrapper functions that need
// no Java step.
#include <gtest/gtest.h>
#include <jni.h>

#include <cstddef>
#include <cstring>
#include <mutex>
#include <string>
#include <vector>

#include "esv_zel_job_facade.h"
#include "esv_zel_jobinfo_facade.h"
#include "sim_fixture.h"
#include "tovr_sim_job.h"
#include "zel_fnd_job_log_proxy.h"
#include "zel_fnd_job_proxy.h"

using tarnwick::zel_fnd_job_log_proxy;
using tarnwick::zel_fnd_job_proxy;

namespace {

// Records every notification as text, in arrival order.
class Recorder : public tarnwick::esv_zel_job_observer, public tarnwick::esv_zel_jobinfo_observer {
public:
    std::vector<std::string> events() {
        std::lock_guard<std::mutex> lock(mutex_);
        return events_;
    }
    long notify_job_state_changed(ESV_ZEL_JOB_STATE s) override {
        return add("state " + std::to_string(s.state) + "/" + std::to_string(s.result) + " job " +
                   std::to_string(s.user_job_id) + " user " + s.user_name);
    }
    long notify_scan_count(unsigned int a, unsigned int b) override {
        return add("scan_count " + std::to_string(a) + "/" + std::to_string(b));
    }
    long notify_start_phb(unsigned int id) override { return add("start_phb " + std::to_string(id)); }
    long notify_disable_info(unsigned int id) override { return add("disable_info " + std::to_string(id)); }
    long notify_main_message(unsigned int id) override { return add("main_message " + std::to_string(id)); }
    long notify_phb_info(unsigned int, ESV_ZEL_PHB_INFO&) override { return add("phb_info"); }
    long notify_message_info(unsigned int, ESV_ZEL_PHB_GET_MESSAGE&) override { return add("message_info"); }
    long notify_job_update_log(const ESV_ZEL_EVENT_JOB_UPDATE_LOG& l) override {
        return add("joblog " + std::to_string(l.user_job_id) + " receipt " + std::to_string(l.receipt_id));
    }
    long notify_fax_send_page_info(const ESV_ZEL_EVENT_SEND_PAGE& p) override {
        return add("fax_page " + std::to_string(p.page_num));
    }
    long notify_renint_start_info(const ESV_ZEL_EVENT_RENINT_START&, const char* name) override {
        return add(std::string("interpreter ") + (name ? name : "null"));
    }
    long notify_print_page_info(const ESV_ZEL_EVENT_PRINT_PAGE& p) override {
        return add("print_page " + std::to_string(p.page_num));
    }
    long notify_scan_page_info(const ESV_ZEL_EVENT_SCAN_PAGE& p) override {
        return add("scan_page " + std::to_string(p.page_num) + " res " + std::to_string(p.resolution));
    }

private:
    long add(std::string e) {
        std::lock_guard<std::mutex> lock(mutex_);
        events_.push_back(std::move(e));
        return 0;
    }
    std::mutex mutex_;
    std::vector<std::string> events_;
};

class JobDevice : public sim_test::SimDeviceTest {
protected:
    void SetUp() override {
        SimDeviceTest::SetUp();
        auto* job = tarnwick::esv_zel_job_facade::esv_zel_job_get_instance();
        auto* info = tarnwick::esv_zel_jobinfo_facade::esv_zel_jobinfo_get_instance();
        ASSERT_EQ(0, job->esv_zel_job_add_observer(&recorder));
        ASSERT_EQ(0, info->esv_zel_jobinfo_add_observer(&recorder));
    }
    void TearDown() override {
        tarnwick::esv_zel_job_facade::esv_zel_job_get_instance()->esv_zel_job_remove_observer(&recorder);
        tarnwick::esv_zel_jobinfo_facade::esv_zel_jobinfo_get_instance()->esv_zel_jobinfo_remove_observer(&recorder);
        SimDeviceTest::TearDown();
    }

    static ESV_ZEL_JOB_SEND_INFO mail(const char* address) {
        ESV_ZEL_JOB_SEND_INFO info{};
        info.address_type = ESV_ZEL_JOB_ADDRESS_TYPE_MAIL;
        std::strcpy(info.detail.mail_info.mail_address, address);
        return info;
    }

    // generate (send), two settings, one e-mail address, commit: the set's id.
    unsigned int send_set(unsigned int pages = 2) {
        unsigned int id = 0;
        EXPECT_EQ(0, proxy.generate_jobinfo(ESV_ZEL_JOB_PHB_CATEGORY_SEND, id));
        EXPECT_EQ(0, proxy.set_value(id, ESV_ZEL_JOB_SETTING_ORIGINAL_PAGES, pages));
        EXPECT_EQ(0, proxy.set_value(id, ESV_ZEL_JOB_SETTING_USER_NAME, std::string("alice")));
        unsigned int address_id = 0;
        EXPECT_EQ(0, proxy.add_send_address(id, address_id, mail("alice@example.com")));
        EXPECT_EQ(0, proxy.commit_jobinfo(id));
        return id;
    }

    Recorder recorder;
    zel_fnd_job_proxy proxy;
    zel_fnd_job_log_proxy log_proxy;
};

TEST_F(JobDevice, TheRoadOfOneJob) {
    const unsigned int id = send_set(2);
    EXPECT_EQ(1u, id);
    unsigned int uid = 0;
    EXPECT_EQ(0, proxy.create_job(ESV_ZEL_JOB_CATEGORY_SCAN_SEND, id, uid));
    EXPECT_EQ(101u, uid);
    EXPECT_EQ(0, proxy.start(uid));
    ASSERT_TRUE(tovr_sim::wait_job_done(uid, 10000));
    const unsigned int receipt = tovr_sim::receipt_of(uid);
    EXPECT_EQ(5001u, receipt);
    std::vector<std::string> expected = {
        "start_phb 1", "main_message 1",  // the address made the set startable
        "state 0/0 job 101 user alice",
        "scan_page 1 res 300", "scan_count 1/2",
        "scan_page 2 res 300", "scan_count 2/2",
        "state 2/0 job 101 user alice",
        "joblog 101 receipt 5001",
        "state 1/0 job 101 user alice",
    };
    EXPECT_EQ(expected, recorder.events());

    ESV_ZEL_JOBINFO_JOBLOG log{};
    EXPECT_EQ(0, log_proxy.retrieve_joblog(receipt, ESV_ZEL_JOBINFO_JOBLOG_TYPE_SEND, log));
    EXPECT_EQ(receipt, log.receipt_id);
    EXPECT_EQ(0, log.result);
    EXPECT_STREQ("alice", log.user_name);
    EXPECT_EQ(1u, log.send_num);
    EXPECT_EQ(0u, log.receive_num);
    EXPECT_EQ(2, log.original_page_number);
    EXPECT_EQ(0, log_proxy.create_send_info_list(receipt, ESV_ZEL_JOBINFO_JOBLOG_TYPE_SEND));
    ESV_ZEL_JOBINFO_SEND_INFO send{};
    EXPECT_EQ(0, log_proxy.get_send_info(send));
    EXPECT_EQ(ESV_ZEL_JOBINFO_CATEGORY_MAIL, send.category);
    EXPECT_STREQ("alice@example.com", send.detail.mail.mail_address);
    EXPECT_STREQ("alice@example.com", send.destination_name);
    EXPECT_EQ(6, log_proxy.get_send_info(send));  // past the end
    EXPECT_EQ(9, log_proxy.create_send_info_list(receipt, ESV_ZEL_JOBINFO_JOBLOG_TYPE_SEND));  // one list at a time
    EXPECT_EQ(0, log_proxy.delete_send_info_list());
    EXPECT_EQ(9, log_proxy.delete_send_info_list());
    EXPECT_EQ(5, log_proxy.retrieve_joblog(receipt, ESV_ZEL_JOBINFO_JOBLOG_TYPE_PRINT, log));
    EXPECT_EQ(5, log_proxy.retrieve_joblog(9999, ESV_ZEL_JOBINFO_JOBLOG_TYPE_SEND, log));
}

TEST_F(JobDevice, ScanDataInPiecesWhileContinuousReadingHoldsTheJob) {
    const unsigned int id = send_set(1);
    unsigned int uid = 0;
    ASSERT_EQ(0, proxy.create_job(ESV_ZEL_JOB_CATEGORY_SCAN_SEND, id, uid));
    ASSERT_EQ(0, proxy.continuous_read(uid));
    ASSERT_EQ(0, proxy.start(uid));
    ASSERT_TRUE(tovr_sim::wait_job_held(uid, 10000));
    auto* facade = tarnwick::esv_zel_job_facade::esv_zel_job_get_instance();
    std::vector<unsigned char> all;
    ESV_ZEL_JOB_GET_SCAN_DATA data{};
    std::vector<unsigned int> sizes;
    do {
        ASSERT_EQ(0, facade->esv_zel_job_get_scan_data(uid, data));
        sizes.push_back(data.data_size);
        all.insert(all.end(), data.scan_data, data.scan_data + data.data_size);
    } while (data.doc_state == 0);
    EXPECT_EQ((std::vector<unsigned int>{4096, tovr_sim::kScanPageBytes - 4096}), sizes);
    ASSERT_EQ(tovr_sim::kScanPageBytes, all.size());
    for (std::size_t k = 0; k < all.size(); ++k) ASSERT_EQ(static_cast<unsigned char>((31 + k) & 0xFF), all[k]) << k;
    EXPECT_FALSE(tovr_sim::wait_job_done(uid, 50));  // still waiting for the end of reading
    ASSERT_EQ(0, proxy.continuous_read_end(uid));
    ASSERT_TRUE(tovr_sim::wait_job_done(uid, 10000));
    EXPECT_EQ("state 1/0 job 101 user alice", recorder.events().back());
}

TEST_F(JobDevice, CancelWhileHeldEndsWithCancel) {
    const unsigned int id = send_set(1);
    unsigned int uid = 0;
    ASSERT_EQ(0, proxy.create_job(ESV_ZEL_JOB_CATEGORY_SCAN_SEND, id, uid));
    tovr_sim::hold_jobs(true);
    ASSERT_EQ(0, proxy.start(uid));
    ASSERT_TRUE(tovr_sim::wait_job_held(uid, 10000));
    EXPECT_EQ(0, proxy.cancel(uid));
    ASSERT_TRUE(tovr_sim::wait_job_done(uid, 10000));
    auto events = recorder.events();
    EXPECT_EQ("state 1/1 job 101 user alice", events.back());
    ESV_ZEL_JOBINFO_JOBLOG log{};
    EXPECT_EQ(0, log_proxy.retrieve_joblog(tovr_sim::receipt_of(uid), ESV_ZEL_JOBINFO_JOBLOG_TYPE_SEND, log));
    EXPECT_EQ(1, log.result);
    // A finished job leaves the queue on the next cancel; then it is unknown.
    EXPECT_EQ(0, proxy.remove_job(uid, 0));
    EXPECT_EQ(12, proxy.cancel(uid));
}

TEST_F(JobDevice, InjectedFaultEndsWithError) {
    const unsigned int id = send_set(1);
    tovr_sim::inject_job_fault(1, 0x77);
    unsigned int uid = 0;
    ASSERT_EQ(0, proxy.create_job(ESV_ZEL_JOB_CATEGORY_SCAN_SEND, id, uid));
    ASSERT_EQ(0, proxy.start(uid));
    ASSERT_TRUE(tovr_sim::wait_job_done(uid, 10000));
    EXPECT_EQ("state 1/2 job 101 user alice", recorder.events().back());
    ESV_ZEL_JOBINFO_JOBLOG log{};
    EXPECT_EQ(0, log_proxy.retrieve_joblog(tovr_sim::receipt_of(uid), ESV_ZEL_JOBINFO_JOBLOG_TYPE_SEND, log));
    EXPECT_EQ(2, log.result);
    EXPECT_EQ(0x77, log.result_err);
}

TEST_F(JobDevice, CopyJobPrintsEachPageOfEachCopy) {
    unsigned int id = 0;
    ASSERT_EQ(0, proxy.generate_jobinfo(ESV_ZEL_JOB_PHB_CATEGORY_COPY, id));
    ASSERT_EQ(0, proxy.set_value(id, ESV_ZEL_JOB_SETTING_COPIES, 2u));
    ASSERT_EQ(0, proxy.set_value(id, ESV_ZEL_JOB_SETTING_ORIGINAL_PAGES, 1u));
    ASSERT_EQ(0, proxy.commit_jobinfo(id));
    unsigned int uid = 0;
    ASSERT_EQ(11, proxy.create_job(ESV_ZEL_JOB_CATEGORY_SCAN_SEND, id, uid));  // wrong kind for the set
    ASSERT_EQ(0, proxy.create_job(ESV_ZEL_JOB_CATEGORY_COPY, id, uid));
    ASSERT_EQ(0, proxy.start(uid));
    EXPECT_EQ(8, proxy.start(uid));  // already running
    ASSERT_TRUE(tovr_sim::wait_job_done(uid, 10000));
    EXPECT_EQ((std::vector<std::string>{"state 0/0 job 101 user ", "scan_page 1 res 300", "scan_count 1/1",
                                        "state 2/0 job 101 user ", "print_page 1", "print_page 2",
                                        "joblog 101 receipt 5001", "state 1/0 job 101 user "}),
              recorder.events());
}

TEST_F(JobDevice, ValuesDefaultsCommitRollbackResetCopyDelete) {
    unsigned int id = 0, val = 0;
    ASSERT_EQ(0, proxy.generate_jobinfo(ESV_ZEL_JOB_PHB_CATEGORY_COPY, id));
    EXPECT_EQ(0, proxy.get_value(id, ESV_ZEL_JOB_SETTING_RESOLUTION, val));
    EXPECT_EQ(300u, val);
    EXPECT_EQ(0, proxy.get_default_jobinfo_val(ESV_ZEL_JOB_SETTING_ZOOM, val));
    EXPECT_EQ(100u, val);
    EXPECT_EQ("", proxy.get_value(id, ESV_ZEL_JOB_SETTING_JOB_NAME));
    EXPECT_EQ(8, proxy.get_value(id, ESV_ZEL_JOB_SETTING_JOB_NAME, val));       // a text, not a number
    EXPECT_EQ(8, proxy.set_value(id, ESV_ZEL_JOB_SETTING_COPIES, std::string("x")));  // a number, not a text
    EXPECT_EQ(8, proxy.set_value(id, ESV_ZEL_JOB_SETTING_COPIES, 0u));
    EXPECT_EQ(10, proxy.copy_jobinfo(id));  // never committed
    EXPECT_EQ(0, proxy.set_value(id, ESV_ZEL_JOB_SETTING_COPIES, 3u));
    EXPECT_EQ(0, proxy.set_value(id, ESV_ZEL_JOB_SETTING_JOB_NAME, std::string("memo")));
    EXPECT_EQ(0, proxy.set_value(id, ESV_ZEL_PHB_SETTING_ID_MARGIN, 1u, 2u, 3u));
    EXPECT_EQ(0, proxy.commit_jobinfo(id));
    EXPECT_EQ(0, proxy.set_value(id, ESV_ZEL_JOB_SETTING_COPIES, 9u));
    EXPECT_EQ(0, proxy.rollback_jobinfo(id));
    EXPECT_EQ(0, proxy.get_value(id, ESV_ZEL_JOB_SETTING_COPIES, val));
    EXPECT_EQ(3u, val);
    unsigned int a = 0, b = 0, c = 0;
    EXPECT_EQ(0, proxy.get_value(id, ESV_ZEL_PHB_SETTING_ID_MARGIN, a, b, c));
    EXPECT_EQ((std::vector<unsigned int>{1, 2, 3}), (std::vector<unsigned int>{a, b, c}));
    EXPECT_EQ(0, proxy.copy_jobinfo(id));  // the copy takes the next id
    EXPECT_EQ(0, proxy.get_value(id + 1, ESV_ZEL_JOB_SETTING_COPIES, val));
    EXPECT_EQ(3u, val);
    EXPECT_EQ("memo", proxy.get_value(id + 1, ESV_ZEL_JOB_SETTING_JOB_NAME));
    EXPECT_EQ(0, proxy.reset_jobinfo(id));
    EXPECT_EQ(0, proxy.get_value(id, ESV_ZEL_JOB_SETTING_COPIES, val));
    EXPECT_EQ(1u, val);
    EXPECT_EQ(0, proxy.delete_jobinfo(id));
    EXPECT_EQ(8, proxy.get_value(id, ESV_ZEL_JOB_SETTING_COPIES, val));
    for (unsigned int n = 0; n < 9; ++n) ASSERT_EQ(0, proxy.generate_jobinfo(ESV_ZEL_JOB_PHB_CATEGORY_COPY, a));
    EXPECT_EQ(0, proxy.commit_jobinfo(a));
    EXPECT_EQ(9, proxy.copy_jobinfo(a));  // ten sets exist
    EXPECT_EQ(6, proxy.generate_jobinfo(ESV_ZEL_JOB_PHB_CATEGORY_COPY, b));
}

TEST_F(JobDevice, HundredSendAddressesWithDeviceIds) {
    unsigned int id = 0;
    ASSERT_EQ(0, proxy.generate_jobinfo(ESV_ZEL_JOB_PHB_CATEGORY_SEND, id));
    bool prohibited = false;
    EXPECT_EQ(0, proxy.get_start_phb(id, prohibited));
    EXPECT_TRUE(prohibited);  // no destination yet
    for (unsigned int n = 1; n <= 100; ++n) {
        unsigned int address_id = 0;
        ASSERT_EQ(0, proxy.add_send_address(id, address_id, mail(("u" + std::to_string(n) + "@example.com").c_str())));
        ASSERT_EQ(n, address_id);
    }
    unsigned int address_id = 0;
    EXPECT_EQ(6, proxy.add_send_address(id, address_id, mail("one-too-many@example.com")));
    EXPECT_EQ(0, proxy.get_start_phb(id, prohibited));
    EXPECT_FALSE(prohibited);
    std::vector<unsigned int> ids;
    EXPECT_EQ(0, proxy.get_send_address_id(id, ids));
    ASSERT_EQ(100u, ids.size());
    EXPECT_EQ(0, proxy.delete_send_address(id, 50));
    EXPECT_EQ(8, proxy.delete_send_address(id, 50));
    ESV_ZEL_JOB_SEND_INFO info{};
    EXPECT_EQ(0, proxy.get_send_address(id, 51, info));
    EXPECT_STREQ("u51@example.com", info.detail.mail_info.mail_address);
    EXPECT_EQ(0, proxy.update_send_address(id, 51, mail("new@example.com")));
    EXPECT_EQ(0, proxy.get_send_address(id, 51, info));
    EXPECT_STREQ("new@example.com", info.detail.mail_info.mail_address);
    EXPECT_EQ(0, proxy.add_send_address(id, address_id, mail("next@example.com")));
    EXPECT_EQ(101u, address_id);  // ids are never reused
    EXPECT_EQ(0, proxy.delete_all_send_address(id));
    EXPECT_EQ(0, proxy.get_send_address_id(id, ids));
    EXPECT_TRUE(ids.empty());
    ESV_ZEL_JOB_SEND_INFO fax{};
    fax.address_type = ESV_ZEL_JOB_ADDRESS_TYPE_FAX;
    std::strcpy(fax.detail.fax_info.fax_number, "0123");
    EXPECT_EQ(8, proxy.add_send_address(id, address_id, fax));  // a send set takes no fax number
}

TEST_F(JobDevice, ProhibitionDisabledItemsAndMainMessage) {
    const unsigned int id = send_set(1);
    EXPECT_EQ(0, proxy.check_state_of_prohibition());
    EXPECT_EQ(0, proxy.set_state_of_prohibition(ESV_ZEL_STATE_OF_PROHIBITION_SET));
    EXPECT_EQ(5, proxy.check_state_of_prohibition());
    unsigned int uid = 0;
    EXPECT_EQ(5, proxy.create_job(ESV_ZEL_JOB_CATEGORY_SCAN_SEND, id, uid));
    EXPECT_EQ(0, proxy.set_state_of_prohibition(ESV_ZEL_STATE_OF_PROHIBITION_RELEASE));
    unsigned short mask = 0xFFFF;
    EXPECT_EQ(0, proxy.get_disable_info(id, ESV_ZEL_PHB_DISABLE_ITEM_FILE_FORMAT, mask));
    EXPECT_EQ(0, mask);
    EXPECT_EQ(0, proxy.set_value(id, ESV_ZEL_JOB_SETTING_COLOR_MODE, 1u));
    EXPECT_EQ(0, proxy.get_disable_info(id, ESV_ZEL_PHB_DISABLE_ITEM_FILE_FORMAT, mask));
    EXPECT_EQ(0x0004, mask);
    ESV_ZEL_PHB_GET_MESSAGE msg{};
    EXPECT_EQ(0, proxy.set_value(id, ESV_ZEL_JOB_SETTING_FILE_NAME, std::string("scan.pdf")));
    EXPECT_EQ(0, proxy.get_main_message(id, msg));
    EXPECT_EQ(0, msg.main_msg_1);
    EXPECT_EQ(1, msg.main_msg_2);
    EXPECT_EQ(ESV_ZEL_JOB_PHB_CATEGORY_SEND, msg.main_msg_3);
    EXPECT_EQ(1, msg.msg_detail_info[1]);
    EXPECT_STREQ("scan.pdf", msg.msg_detail_filename);
    auto events = recorder.events();
    EXPECT_NE(std::find(events.begin(), events.end(), "disable_info 1"), events.end());
}

TEST_F(JobDevice, ObserversAreRegisteredOnce) {
    auto* job = tarnwick::esv_zel_job_facade::esv_zel_job_get_instance();
    EXPECT_EQ(0x04010002, job->esv_zel_job_add_observer(&recorder));
    Recorder other;
    EXPECT_EQ(0x04010003, job->esv_zel_job_remove_observer(&other));
    EXPECT_EQ(1u, tovr_sim::job_observer_count());
    EXPECT_EQ((tovr_sim::Answers{0}), tovr_sim::raise_scan_count(5, 4000000000u));
    EXPECT_EQ("scan_count 5/4000000000", recorder.events().back());
}

TEST_F(JobDevice, ReceiveListOfADeviceEntry) {
    ESV_ZEL_JOBINFO_JOBLOG log{};
    log.job_log_type = ESV_ZEL_JOBINFO_JOBLOG_TYPE_RECEIVE;
    ESV_ZEL_JOBINFO_RECEIVE_INFO r{};
    r.category = ESV_ZEL_JOBINFO_CATEGORY_FAX;
    std::strcpy(r.detail.fax.fax_no, "0987");
    const unsigned int receipt = tovr_sim::add_joblog(log, {}, {r, r});
    EXPECT_EQ(0, log_proxy.retrieve_joblog(receipt, ESV_ZEL_JOBINFO_JOBLOG_TYPE_RECEIVE, log));
    EXPECT_EQ(2u, log.receive_num);
    EXPECT_EQ(0, log_proxy.create_receive_info_list(receipt, ESV_ZEL_JOBINFO_JOBLOG_TYPE_RECEIVE));
    ESV_ZEL_JOBINFO_RECEIVE_INFO got{};
    EXPECT_EQ(0, log_proxy.get_receive_info(got));
    EXPECT_STREQ("0987", got.detail.fax.fax_no);
    EXPECT_EQ(0, log_proxy.get_receive_info(got));
    EXPECT_EQ(6, log_proxy.get_receive_info(got));
    EXPECT_EQ(0, log_proxy.delete_receive_info_list());
}

// ---------------------------------------------------------------------------------------------
// Record layouts on this ABI (the headers assert them at compile time too).

TEST(JobRecords, SizesAndOffsets) {
    EXPECT_EQ(292u, sizeof(ESV_ZEL_JOB_STATE));
    EXPECT_EQ(288u, offsetof(ESV_ZEL_JOB_STATE, sys_info_user_job_id));
    EXPECT_EQ(288u, sizeof(ESV_ZEL_PHB_GET_MESSAGE));
    EXPECT_EQ(328u, sizeof(ESV_ZEL_JOB_SEND_INFO_FTP));
    EXPECT_EQ(456u, sizeof(ESV_ZEL_JOB_SEND_INFO_SMB));
    EXPECT_EQ(136u, sizeof(ESV_ZEL_JOB_SEND_INFO_MAIL));
    EXPECT_EQ(124u, sizeof(ESV_ZEL_JOB_SEND_INFO_FAX));
    EXPECT_EQ(120u, offsetof(ESV_ZEL_JOB_SEND_INFO_FAX, encryption_key_id));
    EXPECT_EQ(456u, sizeof(ESV_ZEL_JOB_SEND_INFO_DETAIL));
    EXPECT_EQ(460u, sizeof(ESV_ZEL_JOB_SEND_INFO));
    EXPECT_EQ(1568u, sizeof(ESV_ZEL_BOX_JOB_INIT_SETTING));
    EXPECT_EQ(1560u, offsetof(ESV_ZEL_BOX_JOB_INIT_SETTING, doc_pass));
    EXPECT_EQ(52u, sizeof(ESV_ZEL_PHB_INFO_DISABLE));
    EXPECT_EQ(32u, sizeof(ESV_ZEL_PHB_INFO_AFTERWARD));
    EXPECT_EQ(52u, sizeof(ESV_ZEL_PHB_INFO_DETAIL));
    EXPECT_EQ(56u, sizeof(ESV_ZEL_PHB_INFO));
    EXPECT_EQ(292u, sizeof(ESV_ZEL_PHB_COMBINE_DOC_INFO));
    EXPECT_EQ(4104u, sizeof(ESV_ZEL_JOB_GET_SCAN_DATA));
    EXPECT_EQ(780u, sizeof(ESV_ZEL_JOBINFO_JOBLOG));
    EXPECT_EQ(541u, offsetof(ESV_ZEL_JOBINFO_JOBLOG, login_name));
    EXPECT_EQ(776u, offsetof(ESV_ZEL_JOBINFO_JOBLOG, send_num));
    EXPECT_EQ(404u, sizeof(ESV_ZEL_JOBINFO_SEND_INFO));
    EXPECT_EQ(272u, offsetof(ESV_ZEL_JOBINFO_SEND_INFO, detail));
    EXPECT_EQ(132u, sizeof(ESV_ZEL_JOBINFO_SEND_INFO_DETAIL));
    EXPECT_EQ(80u, sizeof(ESV_ZEL_JOBINFO_SEND_INFO_FAX));
    EXPECT_EQ(280u, sizeof(ESV_ZEL_JOBINFO_RECEIVE_INFO));
    EXPECT_EQ(276u, sizeof(ESV_ZEL_JOBINFO_RECEIVE_INFO_DETAIL));
    EXPECT_EQ(272u, offsetof(ESV_ZEL_JOBINFO_RECEIVE_INFO_FAX, time));
}

}  // namespace

// ---------------------------------------------------------------------------------------------
// Wrapper functions that need no Java step, called with a null JNIEnv.

extern "C" {
jlong Java_tarnwick_zel_wrapper_job_zel_1fnd_1job_1moduleJNI_new_1ESV_1ZEL_1PHB_1INFO_1DETAIL(JNIEnv*, jclass);
void Java_tarnwick_zel_wrapper_job_zel_1fnd_1job_1moduleJNI_delete_1ESV_1ZEL_1PHB_1INFO_1DETAIL(JNIEnv*, jclass, jlong);
void Java_tarnwick_zel_wrapper_job_zel_1fnd_1job_1moduleJNI_ESV_1ZEL_1PHB_1INFO_1DETAIL_1start_1info_1set(JNIEnv*, jclass, jlong, jobject, jboolean);
jboolean Java_tarnwick_zel_wrapper_job_zel_1fnd_1job_1moduleJNI_ESV_1ZEL_1PHB_1INFO_1DETAIL_1start_1info_1get(JNIEnv*, jclass, jlong, jobject);
jlong Java_tarnwick_zel_wrapper_job_zel_1fnd_1job_1moduleJNI_ESV_1ZEL_1PHB_1INFO_1DETAIL_1afterward_1info_1get(JNIEnv*, jclass, jlong, jobject);
jlong Java_tarnwick_zel_wrapper_job_zel_1fnd_1job_1moduleJNI_ESV_1ZEL_1PHB_1INFO_1AFTERWARD_1setting_1id_1get(JNIEnv*, jclass, jlong, jobject);
jlong Java_tarnwick_zel_wrapper_job_zel_1fnd_1job_1moduleJNI_new_1zel_1fnd_1job_1proxy(JNIEnv*, jclass);
void Java_tarnwick_zel_wrapper_job_zel_1fnd_1job_1moduleJNI_delete_1zel_1fnd_1job_1proxy(JNIEnv*, jclass, jlong);
jlong Java_tarnwick_zel_wrapper_job_zel_1fnd_1job_1moduleJNI_zel_1fnd_1job_1proxy_1get_1char_1array_1size(JNIEnv*, jclass, jlong, jobject, jint);
jint Java_tarnwick_zel_wrapper_job_zel_1fnd_1job_1moduleJNI_zel_1fnd_1job_1proxy_1start(JNIEnv*, jclass, jlong, jobject, jlong);
jint Java_tarnwick_zel_wrapper_job_zel_1fnd_1job_1moduleJNI_zel_1fnd_1job_1proxy_1remove_1job(JNIEnv*, jclass, jlong, jobject, jlong, jlong);
jlong Java_tarnwick_zel_wrapper_job_zel_1fnd_1job_1moduleJNI_ESV_1ZEL_1JOB_1ACCESS_1PATH_1SIZE_1get(JNIEnv*, jclass);
jlong Java_tarnwick_zel_wrapper_job_zel_1fnd_1job_1moduleJNI_ESV_1ZEL_1JOB_1FTP_1USER_1NAME_1SIZE_1get(JNIEnv*, jclass);
jlong Java_tarnwick_zel_wrapper_job_zel_1fnd_1job_1moduleJNI_ESV_1ZEL_1JOB_1SMB_1USER_1NAME_1SIZE_1get(JNIEnv*, jclass);
jlong Java_tarnwick_zel_wrapper_job_zel_1fnd_1job_1moduleJNI_new_1ESV_1ZEL_1JOB_1STATE(JNIEnv*, jclass);
void Java_tarnwick_zel_wrapper_job_zel_1fnd_1job_1moduleJNI_delete_1ESV_1ZEL_1JOB_1STATE(JNIEnv*, jclass, jlong);
void Java_tarnwick_zel_wrapper_job_zel_1fnd_1job_1moduleJNI_ESV_1ZEL_1JOB_1STATE_1user_1job_1id_1set(JNIEnv*, jclass, jlong, jobject, jlong);
jlong Java_tarnwick_zel_wrapper_job_zel_1fnd_1job_1moduleJNI_ESV_1ZEL_1JOB_1STATE_1user_1job_1id_1get(JNIEnv*, jclass, jlong, jobject);
void Java_tarnwick_zel_wrapper_job_zel_1fnd_1job_1moduleJNI_ESV_1ZEL_1JOB_1STATE_1in_1dev_1set(JNIEnv*, jclass, jlong, jobject, jshort);
jshort Java_tarnwick_zel_wrapper_job_zel_1fnd_1job_1moduleJNI_ESV_1ZEL_1JOB_1STATE_1in_1dev_1get(JNIEnv*, jclass, jlong, jobject);
void Java_tarnwick_zel_wrapper_job_zel_1fnd_1job_1moduleJNI_delete_1ESV_1ZEL_1JOB_1SEND_1INFO(JNIEnv*, jclass, jlong);
void Java_tarnwick_zel_wrapper_job_log_zel_1fnd_1job_1log_1moduleJNI_delete_1zel_1fnd_1job_1log_1proxy(JNIEnv*, jclass, jlong);
}

namespace {

void* address_of(jlong handle) {
    void* p = nullptr;
    std::memcpy(&p, &handle, sizeof p);
    return p;
}

#define JOBW(name) Java_tarnwick_zel_wrapper_job_zel_1fnd_1job_1moduleJNI_##name

TEST(JobWrapper, StartInfoWordReadsAsAfterwardFirstField) {
    jlong h = JOBW(new_1ESV_1ZEL_1PHB_1INFO_1DETAIL)(nullptr, nullptr);
    ASSERT_NE(0, h);
    auto* d = static_cast<ESV_ZEL_PHB_INFO_DETAIL*>(address_of(h));
    EXPECT_EQ(0u, d->afterward_info.setting_id);  // new records are zero
    JOBW(ESV_1ZEL_1PHB_1INFO_1DETAIL_1start_1info_1set)(nullptr, nullptr, h, nullptr, JNI_TRUE);
    EXPECT_EQ(JNI_TRUE, JOBW(ESV_1ZEL_1PHB_1INFO_1DETAIL_1start_1info_1get)(nullptr, nullptr, h, nullptr));
    jlong after = JOBW(ESV_1ZEL_1PHB_1INFO_1DETAIL_1afterward_1info_1get)(nullptr, nullptr, h, nullptr);
    EXPECT_EQ(d, address_of(after));  // a handle into the union, not a copy
    EXPECT_EQ(1, JOBW(ESV_1ZEL_1PHB_1INFO_1AFTERWARD_1setting_1id_1get)(nullptr, nullptr, after, nullptr));
    // The flag is the word's lowest byte.
    d->start_info = 0x100;
    EXPECT_EQ(JNI_FALSE, JOBW(ESV_1ZEL_1PHB_1INFO_1DETAIL_1start_1info_1get)(nullptr, nullptr, h, nullptr));
    JOBW(ESV_1ZEL_1PHB_1INFO_1DETAIL_1start_1info_1set)(nullptr, nullptr, h, nullptr, JNI_FALSE);
    EXPECT_EQ(0u, d->start_info);
    JOBW(ESV_1ZEL_1PHB_1INFO_1DETAIL_1start_1info_1set)(nullptr, nullptr, 0, nullptr, JNI_TRUE);  // null ignored
    JOBW(delete_1ESV_1ZEL_1PHB_1INFO_1DETAIL)(nullptr, nullptr, h);
}

TEST(JobWrapper, UnsignedFieldsWidenWithoutSign) {
    jlong h = JOBW(new_1ESV_1ZEL_1JOB_1STATE)(nullptr, nullptr);
    JOBW(ESV_1ZEL_1JOB_1STATE_1user_1job_1id_1set)(nullptr, nullptr, h, nullptr, 4000000000LL);
    EXPECT_EQ(4000000000LL, JOBW(ESV_1ZEL_1JOB_1STATE_1user_1job_1id_1get)(nullptr, nullptr, h, nullptr));
    JOBW(ESV_1ZEL_1JOB_1STATE_1user_1job_1id_1set)(nullptr, nullptr, h, nullptr, 0x1FFFFFFFFLL);  // low 32 bits kept
    EXPECT_EQ(0xFFFFFFFFLL, JOBW(ESV_1ZEL_1JOB_1STATE_1user_1job_1id_1get)(nullptr, nullptr, h, nullptr));
    JOBW(ESV_1ZEL_1JOB_1STATE_1in_1dev_1set)(nullptr, nullptr, h, nullptr, 200);
    EXPECT_EQ(200, JOBW(ESV_1ZEL_1JOB_1STATE_1in_1dev_1get)(nullptr, nullptr, h, nullptr));
    JOBW(ESV_1ZEL_1JOB_1STATE_1user_1job_1id_1set)(nullptr, nullptr, 0, nullptr, 1);  // null record ignored
    JOBW(delete_1ESV_1ZEL_1JOB_1STATE)(nullptr, nullptr, h);
}

TEST(JobWrapper, CharArraySizeAndConstantsReachNoFacade) {
    sim_test::reset_device();
    jlong p = JOBW(new_1zel_1fnd_1job_1proxy)(nullptr, nullptr);
    EXPECT_EQ(128, JOBW(zel_1fnd_1job_1proxy_1get_1char_1array_1size)(nullptr, nullptr, p, nullptr, 1));
    EXPECT_EQ(0, JOBW(zel_1fnd_1job_1proxy_1get_1char_1array_1size)(nullptr, nullptr, p, nullptr, -1));
    EXPECT_EQ(1531, JOBW(ESV_1ZEL_1JOB_1ACCESS_1PATH_1SIZE_1get)(nullptr, nullptr));
    EXPECT_EQ(65, JOBW(ESV_1ZEL_1JOB_1FTP_1USER_1NAME_1SIZE_1get)(nullptr, nullptr));
    EXPECT_EQ(129, JOBW(ESV_1ZEL_1JOB_1SMB_1USER_1NAME_1SIZE_1get)(nullptr, nullptr));
    EXPECT_TRUE(tovr_sim::calls().empty());
    JOBW(delete_1zel_1fnd_1job_1proxy)(nullptr, nullptr, p);
}

TEST(JobWrapper, IdsAndCertIdNarrowToThirtyTwoBits) {
    sim_test::reset_device();
    tovr_sim::force_result("esv_zel_job_kick", 0x0401000C);
    tovr_sim::force_result("esv_zel_job_cancel", 0);
    jlong p = JOBW(new_1zel_1fnd_1job_1proxy)(nullptr, nullptr);
    EXPECT_EQ(12, JOBW(zel_1fnd_1job_1proxy_1start)(nullptr, nullptr, p, nullptr, 0x100000065LL));
    EXPECT_EQ((std::vector<std::string>{"101"}), tovr_sim::calls("esv_zel_job_kick")[0].args);
    EXPECT_EQ(0, JOBW(zel_1fnd_1job_1proxy_1remove_1job)(nullptr, nullptr, p, nullptr, 7, 0x1FFFFFFFELL));
    EXPECT_EQ((std::vector<std::string>{"7", "4294967294"}), tovr_sim::calls("esv_zel_job_cancel")[0].args);
    JOBW(delete_1zel_1fnd_1job_1proxy)(nullptr, nullptr, p);
}

TEST(JobWrapper, DeleteOfNullDoesNothing) {
    JOBW(delete_1zel_1fnd_1job_1proxy)(nullptr, nullptr, 0);
    JOBW(delete_1ESV_1ZEL_1JOB_1SEND_1INFO)(nullptr, nullptr, 0);
    Java_tarnwick_zel_wrapper_job_log_zel_1fnd_1job_1log_1moduleJNI_delete_1zel_1fnd_1job_1log_1proxy(nullptr, nullptr, 0);
}

}  // namespace
