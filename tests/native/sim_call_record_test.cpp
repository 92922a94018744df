// The simulated device's call record under load: four threads calling a facade with nothing
// cleared between them keep the record at its limit, count what it dropped, and leave the
// process's resident memory where the warm-up left it.
#include <gtest/gtest.h>

#include <unistd.h>

#include <cstdio>
#include <thread>
#include <vector>

#include "esv_zel_systeminfo_facade.h"
#include "sim_fixture.h"
#include "tovr_sim.h"

namespace {

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool kResidentMemoryMeans = false;  // the sanitizers keep freed memory in quarantine
#else
constexpr bool kResidentMemoryMeans = true;
#endif

long resident_bytes() {
    long pages = 0, resident = 0;
    if (FILE* f = std::fopen("/proc/self/statm", "r")) {
        if (std::fscanf(f, "%ld %ld", &pages, &resident) != 2) resident = 0;
        std::fclose(f);
    }
    return resident * sysconf(_SC_PAGESIZE);
}

// `threads` threads, each making `per_thread` calls of a system-information member.
void call_from_threads(int threads, int per_thread) {
    std::vector<std::thread> running;
    for (int t = 0; t < threads; ++t) {
        running.emplace_back([per_thread] {
            auto* facade = tarnwick::esv_zel_systeminfo_facade::esv_zel_systeminfo_get_instance();
            unsigned int type = 0;
            for (int i = 0; i < per_thread; ++i) facade->esv_zel_systeminfo_get_model_type(type);
        });
    }
    for (std::thread& t : running) t.join();
}

class CallRecord : public sim_test::SimDeviceTest {};

TEST_F(CallRecord, FourThreadsWithoutClearingKeepTheRecordAndTheMemoryFlat) {
    // Under a sanitizer resident memory means nothing, so a tenth of the calls does: the record
    // still overflows tenfold from four threads at once.
    constexpr std::size_t kLimit = kResidentMemoryMeans ? 20000 : 2000;
    constexpr int kThreads = 4;
    tovr_sim::set_call_limit(kLimit);
    call_from_threads(kThreads, 2 * static_cast<int>(kLimit));  // the record full, the heap warm
    ASSERT_EQ(kLimit, tovr_sim::call_count());
    const std::uint64_t dropped_after_warm_up = tovr_sim::dropped_calls();
    EXPECT_EQ(kThreads * 2 * kLimit - kLimit, dropped_after_warm_up);
    const long before = resident_bytes();

    // Natively 200,000 calls: about 30 MB if the record kept them all, twice the growth allowed.
    constexpr int kPerThread = 10 * static_cast<int>(kLimit) / 4;
    call_from_threads(kThreads, kPerThread);

    EXPECT_EQ(kLimit, tovr_sim::call_count());
    EXPECT_EQ(dropped_after_warm_up + static_cast<std::uint64_t>(kThreads) * kPerThread, tovr_sim::dropped_calls());
    const long after = resident_bytes();
    if (kResidentMemoryMeans) {
        EXPECT_LT(after - before, 16L << 20) << "resident memory grew from " << before << " to " << after;
    }
}

}  // namespace
