// Creates the event bridge's five observers, registers them with their facades and removes
// them again.
#ifndef TARNWICK_ZEL_FND_EVENT_MANAGER_H
#define TARNWICK_ZEL_FND_EVENT_MANAGER_H

namespace tarnwick {

class zel_fnd_common_observer;
class zel_fnd_job_observer;
class zel_fnd_panel_observer;
class zel_fnd_acc_observer;
class zel_fnd_jobinfo_observer;

class zel_fnd_event_manager {
public:
    zel_fnd_event_manager();
    virtual ~zel_fnd_event_manager();

    // Creates, initialises and registers the observers: common, job, panel, card, job
    // information. Always true.
    bool init();
    // Removes and destroys the observers in the same order. Always true.
    bool terminate();

private:
    zel_fnd_event_manager(const zel_fnd_event_manager&) = delete;
    zel_fnd_event_manager& operator=(const zel_fnd_event_manager&) = delete;

    zel_fnd_common_observer* common_observer_;
    zel_fnd_job_observer* job_observer_;
    zel_fnd_panel_observer* panel_observer_;
    zel_fnd_acc_observer* card_observer_;
    zel_fnd_jobinfo_observer* jobinfo_observer_;
};

}  // namespace tarnwick

#endif
