// Control interface of the simulated common, panel and access-control facades.
//
// Test and tool code only. Each facade delivers its notifications on one thread of its own,
// one at a time, to every registered observer; a test raises any notification with any
// arguments and gets each observer's answer back.
#ifndef TOVR_SIM_EVENTS_H
#define TOVR_SIM_EVENTS_H

#include <cstddef>
#include <functional>
#include <future>
#include <memory>

#include "esv_zel_acc_facade.h"
#include "esv_zel_common_facade.h"
#include "esv_zel_panel_facade.h"
#include "tovr_sim.h"

namespace tovr_sim {

// The observers of one facade and the facade's notification thread: every simulated facade
// with observers keeps them in one of these (the job facades too, see tovr_sim_job.h).
template <typename Observer>
class ObservedFacade {
public:
    explicit ObservedFacade(const char* thread_name) : thread_(new FacadeThread(thread_name)) {}

    ObserverSet<Observer>& observers() { return observers_; }

    // Runs `fn` for every registered observer on the facade's thread; the future carries one
    // answer per observer, in registration order.
    std::future<Answers> post(std::function<unsigned long(Observer*)> fn) {
        auto answers = std::make_shared<std::promise<Answers>>();
        std::future<Answers> out = answers->get_future();
        thread_->post([this, fn, answers]() -> unsigned long {
            Answers a = observers_.deliver(fn);
            answers->set_value(a);
            return static_cast<unsigned long>(a.size());
        });
        return out;
    }

    // Delivers before it returns and answers what the observers answered: in place on the
    // facade's own thread, else on that thread while the caller waits. Raised on another
    // facade's thread (an observer there calling into this facade) it is queued instead and
    // answers nothing: two facade threads waiting for each other would hold both for good.
    Answers raise(std::function<unsigned long(Observer*)> fn) {
        if (thread_->on_this_thread()) return observers_.deliver(fn);
        if (FacadeThread::on_a_facade_thread()) {
            post(std::move(fn));
            return {};
        }
        return post(std::move(fn)).get();
    }

    bool on_facade_thread() const { return thread_->on_this_thread(); }

private:
    ObserverSet<Observer> observers_;
    FacadeThread* thread_;  // lives as long as the process
};

using CommonFacade = ObservedFacade<tarnwick::esv_zel_common_observer>;
using PanelFacade = ObservedFacade<tarnwick::esv_zel_panel_observer>;
using AccFacade = ObservedFacade<tarnwick::esv_zel_acc_observer>;

CommonFacade& common_facade();
PanelFacade& panel_facade();
AccFacade& acc_facade();

// The card-data partition of the access-control facade.
constexpr const char* kAccPartition = ESV_ZEL_ACC_ICCARD_DATA_PARTITION;
constexpr std::size_t kAccPartitionSize = ESV_ZEL_ACC_ICCARD_DATA_PARTITION_SIZE;

// Writes card data as block `block_id` at `offset` of the card-data partition.
inline bool acc_write_card_data(unsigned long block_id, std::size_t offset,
                                const std::vector<unsigned char>& bytes) {
    return ipc_write_block(kAccPartition, kAccPartitionSize, block_id, offset, bytes);
}

}  // namespace tovr_sim

#endif
