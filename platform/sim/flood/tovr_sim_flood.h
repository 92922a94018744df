// A flood of notifications from all five simulated facades at once.
//
// Test and tool code only. Each facade delivers from several device threads of its own at the
// same time (the real facades deliver on more than one thread), so one observer is reached by
// concurrent notifications. Each notification carries an id; the sums let a test check that
// every id reached Java exactly once.
#ifndef TOVR_SIM_FLOOD_H
#define TOVR_SIM_FLOOD_H

#include <array>
#include <cstdint>

namespace tovr_sim {

// Facades in the order of the counts below.
enum FloodFacade { kFloodCommon, kFloodJob, kFloodPanel, kFloodAcc, kFloodJobinfo, kFloodFacades };

// What each facade delivers (ids 1, 2, ... unique per facade across its threads):
//   common   notify_cover_status(id)                   -> CommonProxy cover
//   job      notify_job_state_changed(state with id)   -> JobProxy jobStateChanged (a Job object)
//   panel    notify_key_event(id, 0)                   -> PanelProxy applStart
//   acc      notify_iccard_read_error(id)              -> AccProxy icCardError
//   jobinfo  notify_print_page_info(page with id)      -> JobInfoProxy page (a PrintPageInfo)
struct FloodCounts {
    std::array<std::uint64_t, kFloodFacades> delivered{};  // notifications every observer answered 0
    std::array<std::uint64_t, kFloodFacades> refused{};    // notifications some observer answered otherwise
    std::array<std::uint64_t, kFloodFacades> id_sum{};     // sum of the ids of the delivered ones
    std::array<std::uint64_t, kFloodFacades> unanswered{}; // notifications no observer was registered for
};

// Runs `threads_per_facade` threads per facade, each delivering `per_thread` notifications, and
// returns when all are done.
FloodCounts flood(int threads_per_facade, std::uint64_t per_thread);

}  // namespace tovr_sim

#endif
