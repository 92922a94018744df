// A simulated facade that has observers: its observers and its notification thread.
#ifndef TOVR_SIM_OBSERVED_H
#define TOVR_SIM_OBSERVED_H

#include <functional>
#include <future>
#include <memory>

#include "tovr_sim_threads.h"

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

    // post() and wait. Called on the facade's own thread it delivers in place.
    Answers raise(std::function<unsigned long(Observer*)> fn) {
        if (thread_->on_this_thread()) return observers_.deliver(fn);
        return post(std::move(fn)).get();
    }

    bool on_facade_thread() const { return thread_->on_this_thread(); }

private:
    ObserverSet<Observer> observers_;
    FacadeThread* thread_;  // lives as long as the process
};

}  // namespace tovr_sim

#endif
