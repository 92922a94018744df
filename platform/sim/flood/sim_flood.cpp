// Notifications of all five facades from several device threads per facade at once.
#include "tovr_sim_flood.h"

#include <cstdio>
#include <cstring>
#include <functional>
#include <thread>
#include <vector>

#include "esv_zel_job_state.h"
#include "esv_zel_jobinfo_types.h"
#include "tovr_sim.h"
#include "tovr_sim_acc.h"
#include "tovr_sim_common.h"
#include "tovr_sim_panel.h"
#include "tovr_sim_job.h"

namespace tovr_sim {

namespace {

using tarnwick::esv_zel_acc_observer;
using tarnwick::esv_zel_common_observer;
using tarnwick::esv_zel_job_observer;
using tarnwick::esv_zel_jobinfo_observer;
using tarnwick::esv_zel_panel_observer;

// One notification with id `id` of facade `facade`, delivered on the calling thread.
Answers deliver(int facade, std::uint32_t id) {
    switch (facade) {
        case kFloodCommon:
            return common_facade().observers().deliver(
                [id](esv_zel_common_observer* o) { return o->notify_cover_status(id); });
        case kFloodJob:
            return job_deliver_here([id](esv_zel_job_observer* o) {
                ESV_ZEL_JOB_STATE state{};
                state.state = ESV_ZEL_EVENT_JOB_END;
                state.user_job_id = id;
                state.result = ESV_ZEL_EVENT_JOB_RESULT_COMPLETE;
                state.job_mode = 1;
                std::snprintf(state.user_name, sizeof state.user_name, "user%u", static_cast<unsigned>(id));
                return static_cast<unsigned long>(o->notify_job_state_changed(state));
            });
        case kFloodPanel:
            return panel_facade().observers().deliver([id](esv_zel_panel_observer* o) {
                return o->notify_key_event(id, ESV_ZEL_PANEL_KEY_EVENT_PRESS);
            });
        case kFloodAcc:
            return acc_facade().observers().deliver([id](esv_zel_acc_observer* o) {
                return static_cast<unsigned long>(o->notify_iccard_read_error(static_cast<int>(id)));
            });
        default:
            return jobinfo_deliver_here([id](esv_zel_jobinfo_observer* o) {
                ESV_ZEL_EVENT_PRINT_PAGE page{};
                page.user_job_id = id;
                page.page_num = 1;
                return static_cast<unsigned long>(o->notify_print_page_info(page));
            });
    }
}

}  // namespace

FloodCounts flood(int threads_per_facade, std::uint64_t per_thread) {
    const int n = threads_per_facade > 0 ? threads_per_facade : 1;
    std::vector<FloodCounts> per(static_cast<std::size_t>(n) * kFloodFacades);
    std::vector<std::thread> threads;
    for (int f = 0; f < kFloodFacades; ++f) {
        for (int t = 0; t < n; ++t) {
            FloodCounts& mine = per[static_cast<std::size_t>(f * n + t)];
            threads.emplace_back([f, t, per_thread, &mine] {
                for (std::uint64_t k = 0; k < per_thread; ++k) {
                    const std::uint64_t id = static_cast<std::uint64_t>(t) * per_thread + k + 1;
                    Answers a = deliver(f, static_cast<std::uint32_t>(id));
                    if (a.empty()) {
                        ++mine.unanswered[f];
                        continue;
                    }
                    bool ok = true;
                    for (unsigned long code : a) ok = ok && code == 0;
                    if (ok) {
                        ++mine.delivered[f];
                        mine.id_sum[f] += id;
                    } else {
                        ++mine.refused[f];
                    }
                }
            });
        }
    }
    for (std::thread& th : threads) th.join();
    FloodCounts total;
    for (const FloodCounts& c : per) {
        for (int f = 0; f < kFloodFacades; ++f) {
            total.delivered[f] += c.delivered[f];
            total.refused[f] += c.refused[f];
            total.id_sum[f] += c.id_sum[f];
            total.unanswered[f] += c.unanswered[f];
        }
    }
    return total;
}

}  // namespace tovr_sim
