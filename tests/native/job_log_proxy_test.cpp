// The job log proxy: its own result conversion (unknown codes read as the general error, at the
// ordinary level) and the one facade call of each operation with its traces.
#include <gtest/gtest.h>

#include <functional>

#include "sim_fixture.h"
#include "tovr_sim_job.h"
#include "zel_fnd_job_log_proxy.h"

using sim_test::Line;
using tarnwick::zel_fnd_job_log_proxy;

namespace {

std::vector<Line> log_lines() { return sim_test::lines_of("zel_fnd_job_log_proxy"); }

class JobLogProxy : public sim_test::SimDeviceTest {
protected:
    zel_fnd_job_log_proxy proxy;
};

TEST_F(JobLogProxy, EachOperationMakesItsOneCallWithItsTraces) {
    ESV_ZEL_JOBINFO_JOBLOG log{};
    ESV_ZEL_JOBINFO_SEND_INFO send{};
    ESV_ZEL_JOBINFO_RECEIVE_INFO receive{};
    struct Case {
        const char* op;
        std::function<int(zel_fnd_job_log_proxy&)> call;
        const char* entry;
        std::vector<std::string> args;
    };
    const std::vector<Case> cases = {
        {"esv_zel_jobinfo_retrieve_joblog", [&](zel_fnd_job_log_proxy& p) { return p.retrieve_joblog(5001, ESV_ZEL_JOBINFO_JOBLOG_TYPE_SEND, log); },
         "retrieve_joblog,[Start]. receipt_id = [5001], job_log_type = [1].", {"5001", "1"}},
        {"esv_zel_jobinfo_create_send_info_list", [&](zel_fnd_job_log_proxy& p) { return p.create_send_info_list(5002, ESV_ZEL_JOBINFO_JOBLOG_TYPE_SEND); },
         "create_send_info_list,[Start]. receipt_id = [5002], job_log_type = [1].", {"5002", "1"}},
        {"esv_zel_jobinfo_get_send_info", [&](zel_fnd_job_log_proxy& p) { return p.get_send_info(send); }, "get_send_info,[Start]", {}},
        {"esv_zel_jobinfo_delete_send_info_list", [&](zel_fnd_job_log_proxy& p) { return p.delete_send_info_list(); },
         "delete_send_info_list,[Start]", {}},
        {"esv_zel_jobinfo_create_receive_info_list", [&](zel_fnd_job_log_proxy& p) { return p.create_receive_info_list(5003, ESV_ZEL_JOBINFO_JOBLOG_TYPE_RECEIVE); },
         "create_receive_info_list,[Start]. receipt_id = [5003], job_log_type = [2].", {"5003", "2"}},
        {"esv_zel_jobinfo_get_receive_info", [&](zel_fnd_job_log_proxy& p) { return p.get_receive_info(receive); },
         "get_receive_info,[Start]", {}},
        {"esv_zel_jobinfo_delete_receive_info_list", [&](zel_fnd_job_log_proxy& p) { return p.delete_receive_info_list(); },
         "delete_receive_info_list,[Start]", {}},
    };
    for (const Case& c : cases) {
        sim_test::reset_device();
        tovr_sim::force_result(c.op, 0x04010004);
        EXPECT_EQ(4, c.call(proxy)) << c.op;
        const std::string name = std::string(c.entry).substr(0, std::string(c.entry).find(','));
        EXPECT_EQ((std::vector<Line>{{3, c.entry}, {3, name + ",[End]"}, {3, "convert_retcode,rc = ESV_ZEL_JOBINFO_PARAM_ERROR."}}),
                  log_lines())
            << c.op;
        auto calls = tovr_sim::calls();
        ASSERT_EQ(1u, calls.size());
        EXPECT_EQ(c.op, calls[0].op);
        EXPECT_EQ(c.args, calls[0].args);
    }
}

TEST_F(JobLogProxy, UnknownCodeGivesOneWithTheErrorText) {
    tovr_sim::force_result("esv_zel_jobinfo_delete_send_info_list", 0x0401000A);
    EXPECT_EQ(1, proxy.delete_send_info_list());
    EXPECT_EQ((Line{3, "convert_retcode,rc = ESV_ZEL_JOBINFO_ERROR."}), log_lines().back());
}

}  // namespace
