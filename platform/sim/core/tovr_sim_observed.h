// A simulated facade that has observers: its observers and its notification thread.
#ifndef TOVR_SIM_OBSERVED_H
#define TOVR_SIM_OBSERVED_H

#include <functional>
#include <future>
#include <memory>
#include <tuple>
#include <type_traits>

#include "tovr_sim_record.h"
#include "tovr_sim_services.h"
#include "tovr_sim_threads.h"

namespace tarnwick {
class esv_zel_common_observer;
class esv_zel_panel_observer;
class esv_zel_acc_observer;
class esv_zel_job_observer;
class esv_zel_jobinfo_observer;
}  // namespace tarnwick

namespace tovr_sim {

// The observers of one facade and the facade's notification thread: every simulated facade
// with observers keeps them in one of these (the job facades too, see tovr_sim_job.h).
template <typename Observer>
class ObservedFacade {
public:
    explicit ObservedFacade(const char* thread_name) : thread_(new FacadeThread(thread_name)) {}

    // The one facade of these observers, its thread named `thread_name` when it is first made;
    // never destroyed, as observers may leave and device threads run during static destruction.
    static ObservedFacade& instance(const char* thread_name) {
        static ObservedFacade* f = new ObservedFacade(thread_name);
        return *f;
    }

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

// Raising one notification of an observer: Notifier<Facade, Notify>::raise(args...) calls the
// member `Notify` of every observer of the facade that `Facade()` answers, on the facade's thread
// (ObservedFacade::raise), and answers the observers' answers. A service's control header names
// it after the notification (tovr_sim_common.h). Each observer is given its own copy of the
// arguments, as a notification may take one by reference.
template <auto Facade, auto Notify, typename = decltype(Notify)>
struct Notifier;

template <auto Facade, auto Notify, typename Observer, typename R, typename... P>
struct Notifier<Facade, Notify, R (Observer::*)(P...)> {
    static Answers raise(std::decay_t<P>... args) {
        return Facade().raise([=](Observer* o) {
            std::tuple<std::decay_t<P>...> own(args...);
            return static_cast<unsigned long>(std::apply([o](auto&... a) { return (o->*Notify)(a...); }, own));
        });
    }
};

// The simulated facades with observers, each made once, in sim_observed.cpp: the many files that
// name a facade's notifications do not each compile its facade again.
extern template class ObservedFacade<tarnwick::esv_zel_common_observer>;
extern template class ObservedFacade<tarnwick::esv_zel_panel_observer>;
extern template class ObservedFacade<tarnwick::esv_zel_acc_observer>;
extern template class ObservedFacade<tarnwick::esv_zel_job_observer>;
extern template class ObservedFacade<tarnwick::esv_zel_jobinfo_observer>;

}  // namespace tovr_sim

// The members of the simulated facade esv_zel_<AREA>_facade whose observers `OBSERVED` (an
// ObservedFacade) keeps and which answers every registration 0: its one instance, and its
// add_observer and remove_observer, each recorded as a call; and its service "<AREA>"
// (tovr_sim_services.h), returned to a fresh device by `RESET`.
#define TOVR_SIM_OBSERVED_FACADE(AREA, OBSERVED, RESET)                                                    \
    namespace {                                                                                             \
    const bool registered_##AREA = tovr_sim::register_service(                                             \
        tovr_sim::Service{#AREA, RESET, [] { return OBSERVED.observers().size(); }});                       \
    }                                                                                                       \
    TOVR_SIM_FACADE_INSTANCE(AREA)                                                                          \
    unsigned long esv_zel_##AREA##_facade::esv_zel_##AREA##_add_observer(esv_zel_##AREA##_observer* observer) {    \
        TOVR_SIM_RECORD(unsigned long, observer);                                                           \
        OBSERVED.observers().add(observer);                                                                 \
        return 0;                                                                                           \
    }                                                                                                       \
    unsigned long esv_zel_##AREA##_facade::esv_zel_##AREA##_remove_observer(esv_zel_##AREA##_observer* observer) { \
        TOVR_SIM_RECORD(unsigned long, observer);                                                           \
        OBSERVED.observers().remove(observer);                                                              \
        return 0;                                                                                           \
    }

#endif
