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

/**
 * The event bridge: {@link #init()} registers the library's observers with the device
 * services, after which the device's notifications reach the static {@code fire...} methods of
 * the event proxies in {@code tarnwick.zel.controller.event.proxy} (and so the listeners an
 * application adds there); {@link #terminate()} removes them. Make one manager after
 * {@code cmt_init.init()}.
 */
class zel_fnd_event_manager {
public:
    zel_fnd_event_manager();
    virtual ~zel_fnd_event_manager();

    /**
     * Creates the observers and registers them with their services (common device status, jobs,
     * panel, IC card reader, job information, in this order).
     * @return always true
     */
    bool init();
    /**
     * Removes the observers from their services and destroys them.
     * @return always true
     */
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
