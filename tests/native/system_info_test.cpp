// System information against the simulated device: the result conversion with its trace lines,
// every operation's facade call and outputs, the kept outcome of the value accessors, power
// requests with their notifications, the certificate check and the panel's reset timer.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "cmt_system_info.h"
#include "sim_fixture.h"
#include "tovr_sim_device.h"
#include "tovr_sim_job.h"
#include "tovr_sim_events.h"
#include "observer_stubs.h"

using sim_test::args_of;
using sim_test::Line;
using tarnwick::CMT_System_Info;

namespace {

std::vector<Line> lines() { return sim_test::lines_of("cmt_system_info"); }

Line conv(const char* message) { return Line{3, std::string("convert_retcode,") + message}; }

const ESV_ZEL_ENTKEY kKey = static_cast<ESV_ZEL_ENTKEY>(41);

class SystemInfo : public sim_test::SimDeviceTest {
protected:
    CMT_System_Info info;
};

TEST_F(SystemInfo, FreshObjectReportsFalseAndTwo) {
    EXPECT_FALSE(info.get_result());
    EXPECT_EQ(2, info.get_retcode());
    EXPECT_TRUE(tovr_sim::calls().empty());
}

TEST_F(SystemInfo, ModelTypeAndScreenSize) {
    tovr_sim::sysinfo_set_model_type(0xFFFFFFF0u);
    tovr_sim::sysinfo_set_screen_size(12);
    unsigned int type = 0, size = 0;
    EXPECT_EQ(0, info.get_model_type(type));
    EXPECT_EQ(0xFFFFFFF0u, type);
    EXPECT_EQ(0, info.get_screen_size(size));
    EXPECT_EQ(12u, size);
    EXPECT_EQ((std::vector<Line>{conv("ESV_ZEL_SYSINFO_OK"), conv("ESV_ZEL_SYSINFO_OK")}), lines());
    tovr_sim::force_result("esv_zel_systeminfo_get_model_type", ESV_ZEL_SYSINFO_UNSUPPORTED_ERROR);
    type = 77;
    EXPECT_EQ(3, info.get_model_type(type));
    EXPECT_EQ(77u, type);  // left as the facade left it
    EXPECT_EQ(2u, tovr_sim::calls("esv_zel_systeminfo_get_model_type").size());
}

TEST_F(SystemInfo, PaperInfoByKey) {
    tovr_sim::sysinfo_set_tray(9, ESV_ZEL_PAPER_INFO{50, 3, 1, 2});
    ESV_ZEL_PAPER_INFO p{};
    EXPECT_EQ(0, info.get_paper_info(static_cast<ESV_ZEL_ENTKEY>(9), p));
    EXPECT_EQ(50, p.paper_remain);
    EXPECT_EQ(3, p.paper_size);
    EXPECT_EQ(1, p.paper_direction);
    EXPECT_EQ(2, p.paper_kind);
    ESV_ZEL_PAPER_INFO q{1, 1, 1, 1};
    EXPECT_EQ(2, info.get_paper_info(static_cast<ESV_ZEL_ENTKEY>(99), q));  // no such tray
    EXPECT_EQ(1, q.paper_remain);
    tovr_sim::sysinfo_set_key_answer(9, ESV_ZEL_SYSINFO_ERROR_COMPETENCE);
    EXPECT_EQ(1, info.get_paper_info(static_cast<ESV_ZEL_ENTKEY>(9), p));
    EXPECT_EQ("9", args_of("esv_zel_systeminfo_get_paper_info")[0][0]);
}

TEST_F(SystemInfo, CountByKindSizeAndColour) {
    tovr_sim::sysinfo_set_count(tovr_sim::kCountKindCopy, 4, 1, 0xFFFFFFFFu);
    ESV_ZEL_COUNT_INFO c{tovr_sim::kCountKindCopy, 4, 1};
    unsigned long count = 5;
    EXPECT_EQ(0, info.get_count(c, count));
    EXPECT_EQ(0xFFFFFFFFul, count);
    ESV_ZEL_COUNT_INFO unknown{9, 4, 1};
    count = 5;
    EXPECT_EQ(2, info.get_count(unknown, count));
    EXPECT_EQ(5ul, count);
    ESV_ZEL_COUNT_INFO fresh{tovr_sim::kCountKindScan, 1, 0};
    EXPECT_EQ(0, info.get_count(fresh, count));
    EXPECT_EQ(0ul, count);
}

TEST_F(SystemInfo, MachineInfoNumberAndTextWithTraces) {
    tovr_sim::sysinfo_set_machine_info(7, 4000000000u, 0xFFFFFFFFu);
    tovr_sim::sysinfo_set_machine_text(7, 3, "serial-XYZ");
    unsigned int value = 0;
    EXPECT_EQ(0, info.get_machine_info(static_cast<ESV_ZEL_ENTKEY>(7), 4000000000ul, value));
    EXPECT_EQ(0xFFFFFFFFu, value);
    std::string text = "initial";
    EXPECT_EQ(0, info.get_machine_info(static_cast<ESV_ZEL_ENTKEY>(7), 3ul, text));
    EXPECT_EQ("serial-XYZ", text);
    EXPECT_EQ((std::vector<Line>{{3, "get_machine_info,(key = [7], cid = [4000000000], value = [-1])"},
                                 conv("ESV_ZEL_SYSINFO_OK"),
                                 {3, "get_machine_info,(key = [7], cid = [3], value = [serial-XYZ])"},
                                 conv("ESV_ZEL_SYSINFO_OK")}),
              lines());
    // A failed read traces the value as the facade left it (the caller's initial text here).
    tovr_sim::clear_trace();
    text = "kept";
    EXPECT_EQ(2, info.get_machine_info(static_cast<ESV_ZEL_ENTKEY>(8), 3ul, text));
    EXPECT_EQ("kept", text);
    EXPECT_EQ((std::vector<Line>{{3, "get_machine_info,(key = [8], cid = [3], value = [kept])"},
                                 conv("ESV_ZEL_SYSINFO_ERROR")}),
              lines());
    EXPECT_EQ("initial", args_of("esv_zel_systeminfo_get_machine_info")[1][2]);
}

TEST_F(SystemInfo, SetMachineInfoStores) {
    EXPECT_EQ(0, info.set_machine_info(static_cast<ESV_ZEL_ENTKEY>(5), 2ul, 123u));
    unsigned int v = 0;
    ASSERT_TRUE(tovr_sim::sysinfo_machine_info(5, 2, &v));
    EXPECT_EQ(123u, v);
    tovr_sim::sysinfo_set_key_answer(5, ESV_ZEL_SYSINFO_UNSUPPORTED_ERROR);
    EXPECT_EQ(3, info.set_machine_info(static_cast<ESV_ZEL_ENTKEY>(5), 2ul, 1u));
}

TEST_F(SystemInfo, LongValueFailureKeepsRetcodeThroughALaterFailingSet) {
    tovr_sim::sysinfo_set_value(kKey, 42);
    EXPECT_EQ(42, info.get_long_value(kKey));
    EXPECT_TRUE(info.get_result());
    EXPECT_EQ(0, info.get_retcode());

    tovr_sim::sysinfo_set_key_answer(kKey, ESV_ZEL_SYSINFO_ERROR_COMPETENCE);
    EXPECT_EQ(-1, info.get_long_value(kKey));
    EXPECT_FALSE(info.get_result());
    EXPECT_EQ(1, info.get_retcode());

    tovr_sim::sysinfo_set_key_answer(kKey, 0);
    EXPECT_TRUE(info.set_long_value(kKey, 7));
    EXPECT_TRUE(info.get_result());
    EXPECT_EQ(1, info.get_retcode());  // a set leaves the code of the last get
    tovr_sim::force_result("esv_zel_systeminfo_set_value", ESV_ZEL_SYSINFO_UNSUPPORTED_ERROR);
    EXPECT_FALSE(info.set_long_value(kKey, 8));
    EXPECT_FALSE(info.get_result());
    EXPECT_EQ(1, info.get_retcode());
    unsigned int stored = 0;
    ASSERT_TRUE(tovr_sim::sysinfo_value(kKey, &stored));
    EXPECT_EQ(7u, stored);
}

TEST_F(SystemInfo, LongValueTracesOnlyTheConversion) {
    EXPECT_EQ(-1, info.get_long_value(kKey));  // never set
    EXPECT_EQ(2, info.get_retcode());
    EXPECT_EQ(std::vector<Line>{conv("ESV_ZEL_SYSINFO_ERROR")}, lines());
    tovr_sim::clear_trace();
    EXPECT_TRUE(info.set_long_value(static_cast<ESV_ZEL_ENTKEY>(3), 1));
    EXPECT_TRUE(lines().empty());  // setters do not convert
}

TEST_F(SystemInfo, LongValueAllBitsAndNegativeSet) {
    EXPECT_TRUE(info.set_long_value(kKey, -2));
    unsigned int stored = 0;
    ASSERT_TRUE(tovr_sim::sysinfo_value(kKey, &stored));
    EXPECT_EQ(0xFFFFFFFEu, stored);
    EXPECT_EQ(-2L, info.get_long_value(kKey));  // 32 bits, as on the device
    EXPECT_EQ("4294967294", args_of("esv_zel_systeminfo_set_value")[0][1]);
}

TEST_F(SystemInfo, StringValues) {
    EXPECT_TRUE(info.set_string_value(kKey, "hello"));
    EXPECT_EQ("hello", info.get_string_value(kKey));
    EXPECT_TRUE(info.get_result());
    EXPECT_EQ(0, info.get_retcode());
    EXPECT_EQ("", info.get_string_value(static_cast<ESV_ZEL_ENTKEY>(1234)));
    EXPECT_FALSE(info.get_result());
    EXPECT_EQ(2, info.get_retcode());
    tovr_sim::sysinfo_set_key_answer(kKey, ESV_ZEL_SYSINFO_UNSUPPORTED_ERROR);
    EXPECT_FALSE(info.set_string_value(kKey, "x"));
    EXPECT_EQ(2, info.get_retcode());
    EXPECT_EQ("", info.get_string_value(kKey));
    EXPECT_EQ(3, info.get_retcode());
}

TEST_F(SystemInfo, WakeupDateNarrowsAsOnTheDevice) {
    EXPECT_EQ(0, info.set_wakeup_date(5, 1700000000ul));
    long date = 0;
    ASSERT_TRUE(tovr_sim::wakeup_date(5, &date));
    EXPECT_EQ(1700000000L, date);
    EXPECT_EQ(2, info.set_wakeup_date(6, 2147483649ul));  // reaches the facade as -2147483647
    EXPECT_EQ((std::vector<std::string>{"6", "-2147483647"}), args_of("esv_zel_set_wakeup_date")[1]);
    EXPECT_FALSE(tovr_sim::wakeup_date(6, &date));
    EXPECT_EQ(std::vector<Line>({conv("ESV_ZEL_SYSINFO_OK"), conv("ESV_ZEL_SYSINFO_ERROR")}), lines());
}

TEST_F(SystemInfo, DeepSleepSuspendAndResume) {
    EXPECT_EQ(2, info.resume_deep_sleep(3));  // nothing suspended
    EXPECT_EQ(0, info.suspend_deep_sleep(3));
    EXPECT_EQ(0, info.suspend_deep_sleep(3));
    EXPECT_EQ(2, tovr_sim::deep_sleep_suspends(3));
    EXPECT_FALSE(info.request_energy_saving_mode(ESV_ZEL_STS_SLEEP_DEEP));  // held off by the suspend
    EXPECT_EQ(0, info.resume_deep_sleep(3));
    EXPECT_EQ(0, info.resume_deep_sleep(3));
    EXPECT_EQ(0, tovr_sim::deep_sleep_suspends(3));
    EXPECT_TRUE(info.request_energy_saving_mode(ESV_ZEL_STS_SLEEP_DEEP));
    tovr_sim::force_result("esv_zel_suspend_deep_sleep", 0x04010599);
    EXPECT_EQ(2, info.suspend_deep_sleep(3));
    tovr_sim::force_result("esv_zel_resume_deep_sleep", ESV_ZEL_SYSINFO_ERROR_COMPETENCE);
    EXPECT_EQ(1, info.resume_deep_sleep(3));
}

TEST_F(SystemInfo, SaveModeProhibitionTracesAFailureAtLevelZero) {
    EXPECT_EQ(0, info.set_energy_save_prohibition_mode(true));
    EXPECT_TRUE(tovr_sim::power_save_mode_prohibited());
    EXPECT_EQ((std::vector<std::string>{"1"}), args_of("esv_zel_request_save_mode_prohibition")[0]);
    EXPECT_EQ(std::vector<Line>{conv("ESV_ZEL_SYSINFO_OK")}, lines());
    EXPECT_FALSE(info.request_energy_saving_mode(ESV_ZEL_STS_SLEEP_ENERGY_SAVING));
    tovr_sim::clear_trace();
    tovr_sim::force_result("esv_zel_request_save_mode_prohibition", ESV_ZEL_SYSINFO_ERROR_COMPETENCE);
    EXPECT_EQ(1, info.set_energy_save_prohibition_mode(false));
    EXPECT_EQ((std::vector<Line>{conv("ESV_ZEL_SYSINFO_ERROR_COMPETENCE"),
                                 {0, "set_energy_save_prohibition_mode,flag = [0], result = [67175681]"}}),
              lines());
    EXPECT_EQ(0, info.set_energy_save_prohibition_mode(false));
    EXPECT_FALSE(tovr_sim::power_save_mode_prohibited());
}

// Records the sleep notifications the common facade delivers.
class SleepRecorder : public sim_test::CommonObserverStub {
public:
    std::vector<int> states;
    unsigned long notify_sleep(ESV_ZEL_EVENT_SLEEP_STATE state) override {
        states.push_back(state);
        return 0;
    }
};

TEST_F(SystemInfo, EnergySavingRaisesTheSleepNotifications) {
    SleepRecorder recorder;
    auto* common = tarnwick::esv_zel_common_facade::esv_zel_common_get_instance();
    ASSERT_EQ(0ul, common->esv_zel_common_add_observer(&recorder));
    EXPECT_TRUE(info.request_energy_saving_mode(ESV_ZEL_STS_SLEEP_ENERGY_SAVING));
    EXPECT_TRUE(info.request_energy_saving_mode(ESV_ZEL_STS_SLEEP_DEEP));  // still asleep: nothing new
    EXPECT_TRUE(info.request_energy_saving_mode(ESV_ZEL_STS_SLEEP_STANDBY));
    EXPECT_FALSE(info.request_energy_saving_mode(static_cast<ESV_ZEL_STS_SLEEP>(7)));
    EXPECT_EQ((std::vector<int>{ESV_ZEL_EVENT_SLEEP_ENTER, ESV_ZEL_EVENT_SLEEP_LEAVE}), recorder.states);
    EXPECT_EQ(ESV_ZEL_STS_SLEEP_STANDBY, tovr_sim::power_state());
    // The result is the facade's code compared with 0, with no conversion and no trace.
    EXPECT_TRUE(lines().empty());
    tovr_sim::force_result("esv_zel_request_energy_saving_mode", ESV_ZEL_SYSINFO_ERROR_COMPETENCE);
    EXPECT_FALSE(info.request_energy_saving_mode(ESV_ZEL_STS_SLEEP_ENERGY_SAVING));
    EXPECT_EQ(2u, recorder.states.size());
    common->esv_zel_common_remove_observer(&recorder);
}

TEST_F(SystemInfo, CertificateCheckIsTrueOnlyForOne) {
    tovr_sim::cert_set_answer("/certs/yes", 1);
    tovr_sim::cert_set_answer("/certs/unsure", 2);
    EXPECT_TRUE(info.check_eweb_cert_info("/certs/yes"));
    EXPECT_FALSE(info.check_eweb_cert_info("/certs/unsure"));
    EXPECT_FALSE(info.check_eweb_cert_info("/certs/none"));  // 0
    EXPECT_FALSE(info.check_eweb_cert_info(nullptr));
    EXPECT_EQ("null", args_of("esv_zel_check_eweb_cert_info")[3][0]);
    for (long answer : {0L, 2L, 3L, -1L}) {
        tovr_sim::force_result("esv_zel_check_eweb_cert_info", answer);
        EXPECT_FALSE(info.check_eweb_cert_info("/certs/yes")) << answer;
    }
    tovr_sim::force_result("esv_zel_check_eweb_cert_info", 1);
    EXPECT_TRUE(info.check_eweb_cert_info(nullptr));
    EXPECT_TRUE(lines().empty());
}

TEST_F(SystemInfo, PanelResetTimerNeverConverts) {
    EXPECT_EQ(0, info.panel_reset_timer_ctrl(4, ESV_ZEL_PNL_RST_TMR_START));
    EXPECT_EQ(ESV_ZEL_PNL_RST_TMR_START, tovr_sim::panel_reset_timer(4));
    EXPECT_EQ(-1, tovr_sim::panel_reset_timer(5));
    EXPECT_TRUE(lines().empty());
    tovr_sim::force_result("esv_zel_panel_reset_timer_ctrl", ESV_ZEL_SYSINFO_ERROR_COMPETENCE);
    EXPECT_EQ(2, info.panel_reset_timer_ctrl(4, ESV_ZEL_PNL_RST_TMR_STOP));
    EXPECT_EQ((std::vector<Line>{{0, "panel_reset_timer_ctrl,panel_reset_timer_ctrl: ZEL_FND_SYSINFO_ERROR. rc = [67175681]"}}),
              lines());
    tovr_sim::clear_trace();
    EXPECT_EQ(2, info.panel_reset_timer_ctrl(4, static_cast<ESV_ZEL_PNL_RST_TMR>(9)));
    EXPECT_EQ((std::vector<Line>{{0, "panel_reset_timer_ctrl,panel_reset_timer_ctrl: ZEL_FND_SYSINFO_ERROR. rc = [67175426]"}}),
              lines());
    EXPECT_EQ(ESV_ZEL_PNL_RST_TMR_START, tovr_sim::panel_reset_timer(4));
    EXPECT_EQ((std::vector<std::string>{"4", "9"}), args_of("esv_zel_panel_reset_timer_ctrl")[2]);
}

TEST_F(SystemInfo, OutputsForcedByTheDeviceReachTheCaller) {
    tovr_sim::force_output("esv_zel_systeminfo_get_count", ESV_ZEL_SYSINFO_ERROR, tovr_sim::output_value(1, 31ul));
    ESV_ZEL_COUNT_INFO c{0, 0, 0};
    unsigned long count = 0;
    EXPECT_EQ(2, info.get_count(c, count));
    EXPECT_EQ(31ul, count);
}

TEST(DeviceRecords, SizesAndOffsetsOnThisAbi) {
    EXPECT_EQ(4u, sizeof(ESV_ZEL_PAPER_INFO));
    EXPECT_EQ(0u, offsetof(ESV_ZEL_PAPER_INFO, paper_remain));
    EXPECT_EQ(1u, offsetof(ESV_ZEL_PAPER_INFO, paper_size));
    EXPECT_EQ(2u, offsetof(ESV_ZEL_PAPER_INFO, paper_direction));
    EXPECT_EQ(3u, offsetof(ESV_ZEL_PAPER_INFO, paper_kind));
    EXPECT_EQ(3u, sizeof(ESV_ZEL_COUNT_INFO));
    EXPECT_EQ(0u, offsetof(ESV_ZEL_COUNT_INFO, count_kind));
    EXPECT_EQ(1u, offsetof(ESV_ZEL_COUNT_INFO, paper_size));
    EXPECT_EQ(2u, offsetof(ESV_ZEL_COUNT_INFO, color_info));
    EXPECT_EQ(6u, sizeof(ESV_ZEL_ACC_ICCARD_DEVICE_INFO));
    EXPECT_EQ(0u, offsetof(ESV_ZEL_ACC_ICCARD_DEVICE_INFO, product_id));
    EXPECT_EQ(2u, offsetof(ESV_ZEL_ACC_ICCARD_DEVICE_INFO, vendor_id));
    EXPECT_EQ(4u, offsetof(ESV_ZEL_ACC_ICCARD_DEVICE_INFO, card_types));
}

}  // namespace
