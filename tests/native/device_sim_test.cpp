// The simulated device services themselves: counters advanced by the pages a job prints, the
// reader notification raised by plugging the reader, and a reset to a fresh device.
#include <gtest/gtest.h>

#include <vector>

#include "sim_fixture.h"
#include "tovr_sim_device.h"
#include "tovr_sim_events.h"
#include "tovr_sim_job.h"
#include "zel_fnd_job_proxy.h"

namespace {

class DeviceSim : public sim_test::SimDeviceTest {};

TEST_F(DeviceSim, PrintedPagesAdvanceTheCounters) {
    tarnwick::zel_fnd_job_proxy proxy;
    tovr_sim::set_job_pace(0);
    unsigned int id = 0;
    ASSERT_EQ(0, proxy.generate_jobinfo(ESV_ZEL_JOB_PHB_CATEGORY_COPY, id));
    ASSERT_EQ(0, proxy.set_value(id, ESV_ZEL_JOB_SETTING_COPIES, 2u));
    ASSERT_EQ(0, proxy.set_value(id, ESV_ZEL_JOB_SETTING_ORIGINAL_PAGES, 3u));
    ASSERT_EQ(0, proxy.set_value(id, ESV_ZEL_JOB_SETTING_ORIGINAL_SIZE, 4u));
    ASSERT_EQ(0, proxy.set_value(id, ESV_ZEL_JOB_SETTING_COLOR_MODE, 1u));
    ASSERT_EQ(0, proxy.commit_jobinfo(id));
    unsigned int uid = 0;
    ASSERT_EQ(0, proxy.create_job(ESV_ZEL_JOB_CATEGORY_COPY, id, uid));
    ASSERT_EQ(0, proxy.start(uid));
    ASSERT_TRUE(tovr_sim::wait_job_done(uid, 10000));
    EXPECT_EQ(6u, tovr_sim::sysinfo_count(tovr_sim::kCountKindPrint, 4, 1));
    EXPECT_EQ(6u, tovr_sim::sysinfo_count(tovr_sim::kCountKindTotal, 4, 1));
    EXPECT_EQ(0u, tovr_sim::sysinfo_count(tovr_sim::kCountKindPrint, 4, 0));
}

class ReaderRecorder : public tarnwick::esv_zel_acc_observer {
public:
    std::vector<ESV_ZEL_ACC_ICCARD_STATE_CHANGE_INFO> changes;
    int notify_iccard_detect(ESV_ZEL_ACC_ICCARD_INFO&) override { return 0; }
    int notify_iccard_read_error(int) override { return 0; }
    int notify_iccard_state_change_info(ESV_ZEL_ACC_ICCARD_STATE_CHANGE_INFO& info) override {
        changes.push_back(info);
        return 0;
    }
};

TEST_F(DeviceSim, PluggingTheReaderRaisesTheReaderNotification) {
    ReaderRecorder recorder;
    auto* acc = tarnwick::esv_zel_acc_facade::esv_zel_acc_get_instance();
    ASSERT_EQ(0ul, acc->esv_zel_acc_add_observer(&recorder));
    tovr_sim::acc_set_reader(0x1234, 0x5678, 4);
    EXPECT_EQ(0u, tovr_sim::acc_plug_reader(true));  // already plugged: nothing happens
    EXPECT_EQ(1u, tovr_sim::acc_plug_reader(false));
    EXPECT_EQ(1u, tovr_sim::acc_plug_reader(true));
    ASSERT_EQ(2u, recorder.changes.size());
    EXPECT_EQ(0, recorder.changes[0].state);
    EXPECT_EQ(1, recorder.changes[1].state);
    EXPECT_EQ(0x1234, recorder.changes[1].vendor_id);
    EXPECT_EQ(0x5678, recorder.changes[1].product_id);
    EXPECT_EQ(4, recorder.changes[1].card_types);
    acc->esv_zel_acc_remove_observer(&recorder);
}

TEST_F(DeviceSim, ResetGivesAFreshDevice) {
    tovr_sim::sysinfo_set_model_type(9);
    tovr_sim::sysinfo_set_value(1, 2);
    tovr_sim::webservice_set_holder(0, "h");
    tovr_sim::power_set_state(2);
    tovr_sim::panel_set_identity("x", 3);
    tovr_sim::acc_plug_reader(false);
    tovr_sim::reset_device_services();
    unsigned int type = 0, v = 0;
    tarnwick::esv_zel_systeminfo_facade::esv_zel_systeminfo_get_instance()->esv_zel_systeminfo_get_model_type(type);
    EXPECT_EQ(tovr_sim::kDefaultModelType, type);
    EXPECT_FALSE(tovr_sim::sysinfo_value(1, &v));
    EXPECT_EQ("", tovr_sim::webservice_holder(0));
    EXPECT_EQ(0, tovr_sim::power_state());
    EXPECT_TRUE(tovr_sim::acc_reader_present());
    ESV_ZEL_PAPER_INFO tray{};
    ASSERT_TRUE(tovr_sim::sysinfo_tray(2, &tray));
    EXPECT_EQ(2, tray.paper_size);
    EXPECT_EQ(100, tray.paper_remain);
}

}  // namespace
