// Event manager.
#include "zel_fnd_event_manager.h"

#include "esv_zel_acc_facade.h"
#include "esv_zel_common_facade.h"
#include "esv_zel_job_facade.h"
#include "esv_zel_jobinfo_facade.h"
#include "esv_zel_panel_facade.h"
#include "zel_fnd_acc_observer.h"
#include "zel_fnd_common_observer.h"
#include "zel_fnd_job_observer.h"
#include "zel_fnd_jobinfo_observer.h"
#include "zel_fnd_panel_observer.h"

namespace tarnwick {

namespace {

// Creates an observer, lets it find its Java side and registers it with its facade.
template <typename Observer, typename Facade, typename Answer, typename Interface>
Observer* registered(Facade* (*instance)(), Answer (Facade::*add)(Interface*)) {
    Observer* observer = new Observer;
    observer->init();
    (instance()->*add)(observer);
    return observer;
}

// Removes a registered observer from its facade and destroys it; nothing when there is none.
template <typename Observer, typename Facade, typename Answer, typename Interface>
void unregister(Observer*& observer, Facade* (*instance)(), Answer (Facade::*remove)(Interface*)) {
    if (observer == nullptr) return;
    (instance()->*remove)(observer);
    delete observer;
    observer = nullptr;
}

}  // namespace

zel_fnd_event_manager::zel_fnd_event_manager()
    : common_observer_(nullptr),
      job_observer_(nullptr),
      panel_observer_(nullptr),
      card_observer_(nullptr),
      jobinfo_observer_(nullptr) {}

zel_fnd_event_manager::~zel_fnd_event_manager() { terminate(); }

// An observer whose Java side could not be found is registered all the same, and a second
// init() without terminate() leaves the first set registered: both are kept on purpose.
bool zel_fnd_event_manager::init() {
    common_observer_ = registered<zel_fnd_common_observer>(&esv_zel_common_facade::esv_zel_common_get_instance,
                                                           &esv_zel_common_facade::esv_zel_common_add_observer);
    job_observer_ = registered<zel_fnd_job_observer>(&esv_zel_job_facade::esv_zel_job_get_instance,
                                                     &esv_zel_job_facade::esv_zel_job_add_observer);
    panel_observer_ = registered<zel_fnd_panel_observer>(&esv_zel_panel_facade::esv_zel_panel_get_instance,
                                                         &esv_zel_panel_facade::esv_zel_panel_add_observer);
    card_observer_ = registered<zel_fnd_acc_observer>(&esv_zel_acc_facade::esv_zel_acc_get_instance,
                                                      &esv_zel_acc_facade::esv_zel_acc_add_observer);
    jobinfo_observer_ = registered<zel_fnd_jobinfo_observer>(&esv_zel_jobinfo_facade::esv_zel_jobinfo_get_instance,
                                                             &esv_zel_jobinfo_facade::esv_zel_jobinfo_add_observer);
    return true;
}

bool zel_fnd_event_manager::terminate() {
    unregister(common_observer_, &esv_zel_common_facade::esv_zel_common_get_instance,
               &esv_zel_common_facade::esv_zel_common_remove_observer);
    unregister(job_observer_, &esv_zel_job_facade::esv_zel_job_get_instance,
               &esv_zel_job_facade::esv_zel_job_remove_observer);
    unregister(panel_observer_, &esv_zel_panel_facade::esv_zel_panel_get_instance,
               &esv_zel_panel_facade::esv_zel_panel_remove_observer);
    unregister(card_observer_, &esv_zel_acc_facade::esv_zel_acc_get_instance,
               &esv_zel_acc_facade::esv_zel_acc_remove_observer);
    unregister(jobinfo_observer_, &esv_zel_jobinfo_facade::esv_zel_jobinfo_get_instance,
               &esv_zel_jobinfo_facade::esv_zel_jobinfo_remove_observer);
    return true;
}

}  // namespace tarnwick
