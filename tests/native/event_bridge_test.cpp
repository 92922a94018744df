// Event bridge without a Java VM: the card-data walk, the panel proxy, the manager's order and
// the observers' answers when the delivering thread cannot be attached.
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "fake_jvm.h"
#include "tovr_sim.h"
#include "tovr_sim_events.h"
#include "tovr_sim_job.h"
#include "zel_fnd_acc_observer.h"
#include "zel_fnd_card_data.h"
#include "zel_fnd_common_observer.h"
#include "zel_fnd_event_manager.h"
#include "zel_fnd_job_observer.h"
#include "zel_fnd_jobinfo_observer.h"
#include "zel_fnd_panel_observer.h"
#include "zel_fnd_panel_proxy.h"
#include "sim_fixture.h"

using tarnwick::zel_fnd_card_system;
using tarnwick::zel_fnd_decode_card_data;

namespace {

using Bytes = std::vector<unsigned char>;

bool decode(const Bytes& b, std::vector<zel_fnd_card_system>& out) {
    return zel_fnd_decode_card_data(b.data(), b.size(), out);
}

// Trace texts of one module, without the line number: "level op,message".
std::vector<std::string> trace_of(const std::string& module) {
    std::vector<std::string> out;
    for (const tovr_sim::TraceLine& l : tovr_sim::trace_lines()) {
        if (l.text.compare(0, module.size() + 1, module + "[") != 0) continue;
        std::size_t ops = l.text.find("]::");
        out.push_back(std::to_string(l.level) + " " + l.text.substr(ops + 3));
        EXPECT_EQ(0x2601u, l.id);
        EXPECT_EQ(0x101u, l.sub_id);
    }
    return out;
}

std::vector<std::string> ops(const std::string& prefix) {
    std::vector<std::string> out;
    for (const tovr_sim::Call& c : tovr_sim::calls()) {
        if (c.op.compare(0, prefix.size(), prefix) == 0) out.push_back(c.op);
    }
    return out;
}

}  // namespace

// ----- card data -----

TEST(CardData, EmptyInputHasNoCount) {
    std::vector<zel_fnd_card_system> s;
    EXPECT_FALSE(zel_fnd_decode_card_data(nullptr, 0, s));
    EXPECT_FALSE(decode(Bytes{}, s));
}

TEST(CardData, ZeroSystems) {
    std::vector<zel_fnd_card_system> s(3);
    ASSERT_TRUE(decode(Bytes{0x00, 0xAA, 0xBB}, s));
    EXPECT_TRUE(s.empty());
}

TEST(CardData, ZeroServicesAndZeroBlocks) {
    Bytes b{2, 0x00, 0x01, 1, 2, 3, 4, 5, 6, 7, 8, 0,  // system 1: no service
            0x00, 0x02, 1, 2, 3, 4, 5, 6, 7, 8, 1, 0x12, 0x34, 0};  // system 2: one service, no block
    std::vector<zel_fnd_card_system> s;
    ASSERT_TRUE(decode(b, s));
    ASSERT_EQ(2u, s.size());
    EXPECT_EQ(1, s[0].system_code);
    EXPECT_TRUE(s[0].services.empty());
    ASSERT_EQ(1u, s[1].services.size());
    EXPECT_EQ(0x1234, s[1].services[0].service_code);
    EXPECT_EQ(0, s[1].services[0].block_count);
}

TEST(CardData, BigEndianCodesAndSkippedReservedBytes) {
    Bytes b{1, 0x80, 0x08, 0xE1, 0xE2, 0xE3, 0xE4, 0xE5, 0xE6, 0xE7, 0xE8, 1, 0xFF, 0xFE, 1};
    for (int i = 0; i < 16; ++i) b.push_back(static_cast<unsigned char>(i));
    std::vector<zel_fnd_card_system> s;
    ASSERT_TRUE(decode(b, s));
    ASSERT_EQ(1u, s.size());
    EXPECT_EQ(32776, s[0].system_code);
    ASSERT_EQ(1u, s[0].services.size());
    EXPECT_EQ(0xFFFE, s[0].services[0].service_code);
    ASSERT_EQ(1, s[0].services[0].block_count);
    // The blocks start right after the count: none of the 8 reserved bytes is among them.
    EXPECT_EQ(b.data() + 15, s[0].services[0].blocks);
    for (int i = 0; i < 16; ++i) EXPECT_EQ(i, s[0].services[0].blocks[i]);
}

TEST(CardData, EveryTruncationFails) {
    Bytes b{2, 0x00, 0x01, 0, 0, 0, 0, 0, 0, 0, 0, 2, 0x00, 0x10, 2};
    b.resize(b.size() + 32, 0x5A);
    b.insert(b.end(), {0x00, 0x11, 0});
    b.insert(b.end(), {0x00, 0x02, 0, 0, 0, 0, 0, 0, 0, 0, 1, 0x00, 0x20, 1});
    b.resize(b.size() + 16, 0xA5);
    std::vector<zel_fnd_card_system> s;
    ASSERT_TRUE(decode(b, s));
    ASSERT_EQ(2u, s.size());
    for (std::size_t n = 0; n < b.size(); ++n) {
        EXPECT_FALSE(zel_fnd_decode_card_data(b.data(), n, s)) << "prefix of " << n << " bytes";
        EXPECT_TRUE(s.empty());
    }
}

TEST(CardData, CountsPastTheEndOfAGuardedPartitionAreRefused) {
    // The block ends at the partition's end, which is followed by an inaccessible page: reading
    // one byte too far would fault.
    Bytes tail{1, 0x00, 0x01, 0, 0, 0, 0, 0, 0, 0, 0, 1, 0x00, 0x02, 255};
    const std::size_t offset = tovr_sim::kAccPartitionSize - tail.size();
    ASSERT_TRUE(tovr_sim::acc_write_card_data(900, offset, tail));
    auto part = tovr_sim::ipc_partition(tovr_sim::kAccPartition);
    ASSERT_NE(nullptr, part.first);
    std::vector<zel_fnd_card_system> s;
    EXPECT_FALSE(zel_fnd_decode_card_data(part.first + offset, part.second - offset, s));
    Bytes cut{3, 0x00};
    ASSERT_TRUE(tovr_sim::acc_write_card_data(901, tovr_sim::kAccPartitionSize - cut.size(), cut));
    EXPECT_FALSE(zel_fnd_decode_card_data(part.first + part.second - cut.size(), cut.size(), s));
}

// ----- panel proxy -----

class PanelProxyTest : public sim_test::SimDeviceTest {
protected:
    tarnwick::zel_fnd_panel_proxy proxy;
};

TEST_F(PanelProxyTest, BuzzerOutOfRangeIsATypeError) {
    proxy.request_buzzer(12, static_cast<tarnwick::ZEL_FND_BUZZER_TYPE>(3));
    EXPECT_TRUE(tovr_sim::calls("esv_zel_panel_request_buzzer").empty());
    EXPECT_EQ((std::vector<std::string>{"3 request_buzzer,[Start]. app_id_num = [12], buzzer_type = [3]",
                                        "0 request_buzzer,Type Error."}),
              trace_of("zel_fnd_panel_proxy"));
    proxy.request_buzzer(12, tarnwick::ZEL_FND_BUZZER_TYPE_2);
    auto calls = tovr_sim::calls("esv_zel_panel_request_buzzer");
    ASSERT_EQ(1u, calls.size());
    EXPECT_EQ((std::vector<std::string>{"12", "2"}), calls[0].args);
}

TEST_F(PanelProxyTest, StartLedOutOfRangeWritesOnlyTheStartTrace) {
    proxy.request_start_led(5, static_cast<tarnwick::ZEL_FND_LED_STATE>(2));
    EXPECT_TRUE(tovr_sim::calls("esv_zel_panel_request_start_led").empty());
    EXPECT_EQ((std::vector<std::string>{"3 request_start_led,[Start]. app_id_num = [5], operation = [2]"}),
              trace_of("zel_fnd_panel_proxy"));
}

TEST_F(PanelProxyTest, ViewUpdateTable) {
    const int expected[] = {0, 3, 1, 4, 2, 6};
    for (int t = 0; t <= 6; ++t) proxy.view_update(1, static_cast<tarnwick::ZEL_FND_VIEW_UPDATE_TYPE>(t));
    auto calls = tovr_sim::calls("esv_zel_panel_notify_view_update");
    ASSERT_EQ(6u, calls.size());
    for (int t = 0; t < 6; ++t) EXPECT_EQ(std::to_string(expected[t]), calls[t].args[1]);
}

TEST_F(PanelProxyTest, ResultsAreTracedAs32BitHex) {
    tovr_sim::force_result("esv_zel_panel_notify_reset_end", -1);
    proxy.notify_reset_completed();
    tovr_sim::force_result("esv_zel_panel_notify_copy_service_login_finish", 0x04010701);
    proxy.notify_copy_service_login_finish();
    EXPECT_EQ((std::vector<std::string>{"3 notify_reset_completed,[Start]",
                                        "3 notify_reset_completed,[End]. result = [0xffffffff]",
                                        "3 notify_copy_service_login_finish,[Start]",
                                        "3 notify_copy_service_login_finish,[End. result = [0x04010701]]"}),
              trace_of("zel_fnd_panel_proxy"));
}

// ----- manager and observers -----

class ManagerTest : public sim_test::SimDeviceTest {
protected:
    void SetUp() override {
        fake_jvm::reset();
        SimDeviceTest::SetUp();
    }
    void TearDown() override {
        SimDeviceTest::TearDown();
        fake_jvm::reset();
    }
};

TEST_F(ManagerTest, TerminateOfANeverStartedManagerCallsNoFacade) {
    tarnwick::zel_fnd_event_manager m;
    EXPECT_TRUE(m.terminate());
    EXPECT_TRUE(ops("esv_zel_").empty());
}

TEST_F(ManagerTest, InitAndTerminateOrder) {
    fake_jvm::control().present = false;  // observers find no VM: registered all the same
    {
        tarnwick::zel_fnd_event_manager m;
        EXPECT_TRUE(m.init());
        EXPECT_EQ((std::vector<std::string>{"esv_zel_common_add_observer", "esv_zel_job_add_observer",
                                            "esv_zel_panel_add_observer", "esv_zel_acc_add_observer",
                                            "esv_zel_jobinfo_add_observer"}),
                  ops("esv_zel_"));
        EXPECT_EQ(5, fake_jvm::control().lookups);
        EXPECT_EQ(1u, tovr_sim::common_facade().observers().size());
        EXPECT_EQ(1u, tovr_sim::job_observer_count());
        tovr_sim::clear_calls();
    }  // the destructor terminates
    EXPECT_EQ((std::vector<std::string>{"esv_zel_common_remove_observer", "esv_zel_job_remove_observer",
                                        "esv_zel_panel_remove_observer", "esv_zel_acc_remove_observer",
                                        "esv_zel_jobinfo_remove_observer"}),
              ops("esv_zel_"));
    EXPECT_EQ(0u, tovr_sim::common_facade().observers().size());
    EXPECT_EQ(0u, tovr_sim::panel_facade().observers().size());
    EXPECT_EQ(0u, tovr_sim::acc_facade().observers().size());
    EXPECT_EQ(0u, tovr_sim::job_observer_count());
    EXPECT_EQ(0u, tovr_sim::jobinfo_observer_count());
}

TEST_F(ManagerTest, EachObserverAnswersItsCodeWhenTheThreadCannotBeAttached) {
    fake_jvm::control().attach_result = JNI_ERR;
    tarnwick::zel_fnd_event_manager m;
    m.init();  // every observer's init stops at the attach and reports success
    EXPECT_EQ(5, fake_jvm::control().attaches);
    tovr_sim::clear_trace();

    using tovr_sim::Answers;
    EXPECT_EQ(Answers{0x04010207}, tovr_sim::common_facade().raise([](tarnwick::esv_zel_common_observer* o) {
                  return o->notify_toner_status(1, 2);
              }));
    EXPECT_EQ(Answers{0x04010207}, tovr_sim::common_facade().raise([](tarnwick::esv_zel_common_observer* o) {
                  return o->request_activate(static_cast<ESV_ZEL_KIND_OF_SCENARIO>(12), 1);
              }));
    EXPECT_EQ(Answers{0x04010706}, tovr_sim::panel_facade().raise([](tarnwick::esv_zel_panel_observer* o) {
                  return o->notify_auto_panel_reset();
              }));
    EXPECT_EQ(Answers{0x04010A05}, tovr_sim::acc_facade().raise([](tarnwick::esv_zel_acc_observer* o) {
                  return static_cast<unsigned long>(o->notify_iccard_read_error(3));
              }));
    EXPECT_EQ(Answers{0x04010001}, tovr_sim::raise_scan_count(5, 4000000000u));
    ESV_ZEL_EVENT_SEND_PAGE page{1, 2};
    EXPECT_EQ(Answers{0x04010001}, tovr_sim::raise_fax_send_page_info(page));
    EXPECT_TRUE(tovr_sim::trace_lines().empty());
    EXPECT_EQ(5 + 6, fake_jvm::control().attaches);
    EXPECT_EQ(0, fake_jvm::control().detaches);  // a thread that was never attached is not detached
}
