// Event bridge without a Java VM: the card-data walk, the panel proxy, the manager's order, the
// observers' answers when the delivering thread cannot be attached, and the facades' threads
// when an observer calls into another facade.
#include <gtest/gtest.h>

#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <future>
#include <mutex>
#include <string>
#include <thread>
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
#include "observer_stubs.h"

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

// ----- notifications raised on a facade's thread -----
//
// An observer that calls into another facade, as a listener calling the library does: raised on
// a facade thread the other facade's notification is queued and the call returns; raised from any
// other thread it is delivered before the call returns.

namespace {

// Two threads meet here (or give up after 10 s).
class Rendezvous {
public:
    bool meet() {
        std::unique_lock<std::mutex> lock(mutex_);
        if (++arrived_ == 2) {
            met_.notify_all();
            return true;
        }
        return met_.wait_for(lock, std::chrono::seconds(10), [this] { return arrived_ == 2; });
    }

private:
    std::mutex mutex_;
    std::condition_variable met_;
    int arrived_ = 0;
};

// Runs `fn` on a thread of its own; the future does not wait for it when dropped.
template <typename Fn>
std::future<tovr_sim::Answers> detached(Fn fn) {
    std::packaged_task<tovr_sim::Answers()> task(fn);
    std::future<tovr_sim::Answers> out = task.get_future();
    std::thread(std::move(task)).detach();
    return out;
}

// Waits up to 10 s for `done`.
template <typename Pred>
bool eventually(Pred done) {
    for (int i = 0; i < 1000 && !done(); ++i) std::this_thread::sleep_for(std::chrono::milliseconds(10));
    return done();
}

class CoverObserver : public sim_test::CommonObserverStub {
public:
    unsigned long notify_cover_status(unsigned int status) override {
        if (status == 1 && meeting != nullptr) {
            met = meeting->meet();
            nested = tovr_sim::raise_start_phb(9);
        }
        covers.push_back(status);
        on_own_thread.push_back(tovr_sim::common_facade().on_facade_thread());
        return 0;
    }

    Rendezvous* meeting = nullptr;
    bool met = false;
    tovr_sim::Answers nested{99};
    std::vector<unsigned int> covers;  // written on the common facade's thread only
    std::vector<bool> on_own_thread;
};

class ScanObserver : public tarnwick::esv_zel_job_observer {
public:
    long notify_job_state_changed(ESV_ZEL_JOB_STATE) override { return 0; }
    long notify_scan_count(unsigned int count_1, unsigned int) override {
        if (meeting != nullptr) met = meeting->meet();
        nested = tovr_sim::common_facade().raise([count_1](tarnwick::esv_zel_common_observer* o) {
            return o->notify_cover_status(100 + count_1);
        });
        return 0;
    }
    long notify_start_phb(unsigned int id) override {
        phbs.push_back(id);
        return 0;
    }
    long notify_disable_info(unsigned int) override { return 0; }
    long notify_main_message(unsigned int) override { return 0; }
    long notify_phb_info(unsigned int, ESV_ZEL_PHB_INFO&) override { return 0; }
    long notify_message_info(unsigned int, ESV_ZEL_PHB_GET_MESSAGE&) override { return 0; }

    Rendezvous* meeting = nullptr;
    bool met = false;
    tovr_sim::Answers nested{99};
    std::vector<unsigned int> phbs;  // written on the job facade's thread only
};

class FacadeThreads : public ::testing::Test {
protected:
    void SetUp() override {
        tovr_sim::reset();
        tovr_sim::common_facade().observers().add(&cover);
        tovr_sim::job_facade().observers().add(&scan);
    }
    void TearDown() override {
        tovr_sim::common_facade().observers().remove(&cover);
        tovr_sim::job_facade().observers().remove(&scan);
    }
    // What the facade has delivered so far, read on its own thread.
    std::vector<unsigned int> covers() {
        return read_on(tovr_sim::common_facade(), [this] { return cover.covers; });
    }
    std::vector<unsigned int> phbs() {
        return read_on(tovr_sim::job_facade(), [this] { return scan.phbs; });
    }
    template <typename Facade, typename Read>
    static std::vector<unsigned int> read_on(Facade& facade, Read read) {
        std::vector<unsigned int> out;
        facade.post([&](auto*) {
                  out = read();
                  return 0UL;
              })
            .get();
        return out;
    }
    CoverObserver cover;
    ScanObserver scan;
};

}  // namespace

TEST_F(FacadeThreads, ARaiseFromAnyOtherThreadIsDeliveredBeforeItReturns) {
    EXPECT_EQ(tovr_sim::Answers{0}, tovr_sim::common_facade().raise([](tarnwick::esv_zel_common_observer* o) {
                  return o->notify_cover_status(5);
              }));
    EXPECT_EQ((std::vector<unsigned int>{5}), covers());
    EXPECT_EQ((std::vector<bool>{true}), cover.on_own_thread);
}

TEST_F(FacadeThreads, ARaiseOnAnotherFacadesThreadIsQueuedAndAnswersNothing) {
    EXPECT_EQ(tovr_sim::Answers{0}, tovr_sim::raise_scan_count(7, 8));
    EXPECT_EQ(tovr_sim::Answers{}, scan.nested);  // queued: no observer has answered yet
    EXPECT_TRUE(eventually([this] { return covers() == std::vector<unsigned int>{107}; }));
    EXPECT_EQ((std::vector<bool>{true}), cover.on_own_thread);  // delivered on the common facade's thread
}

TEST_F(FacadeThreads, TwoFacadeThreadsRaisingOnEachOtherAtOnceBothGoOn) {
    Rendezvous meeting;
    cover.meeting = &meeting;
    scan.meeting = &meeting;
    auto job = detached([] { return tovr_sim::raise_scan_count(1, 2); });
    auto common = detached([] {
        return tovr_sim::common_facade().raise(
            [](tarnwick::esv_zel_common_observer* o) { return o->notify_cover_status(1); });
    });
    if (job.wait_for(std::chrono::seconds(15)) != std::future_status::ready ||
        common.wait_for(std::chrono::seconds(15)) != std::future_status::ready) {
        // Nothing would end any more (the observers' removal waits for the stuck notifications).
        std::fprintf(stderr, "the job and common facade threads wait for each other\n");
        std::_Exit(1);
    }
    EXPECT_EQ(tovr_sim::Answers{0}, job.get());
    EXPECT_EQ(tovr_sim::Answers{0}, common.get());
    EXPECT_TRUE(cover.met);
    EXPECT_TRUE(scan.met);
    EXPECT_EQ(tovr_sim::Answers{}, cover.nested);
    EXPECT_EQ(tovr_sim::Answers{}, scan.nested);
    // What each raised follows on the other facade's thread.
    EXPECT_TRUE(eventually([this] { return covers() == std::vector<unsigned int>{1, 101}; }));
    EXPECT_TRUE(eventually([this] { return phbs() == std::vector<unsigned int>{9}; }));
}
