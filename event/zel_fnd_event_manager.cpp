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
    common_observer_ = new zel_fnd_common_observer;
    common_observer_->init();
    esv_zel_common_facade::esv_zel_common_get_instance()->esv_zel_common_add_observer(common_observer_);

    job_observer_ = new zel_fnd_job_observer;
    job_observer_->init();
    esv_zel_job_facade::esv_zel_job_get_instance()->esv_zel_job_add_observer(job_observer_);

    panel_observer_ = new zel_fnd_panel_observer;
    panel_observer_->init();
    esv_zel_panel_facade::esv_zel_panel_get_instance()->esv_zel_panel_add_observer(panel_observer_);

    card_observer_ = new zel_fnd_acc_observer;
    card_observer_->init();
    esv_zel_acc_facade::esv_zel_acc_get_instance()->esv_zel_acc_add_observer(card_observer_);

    jobinfo_observer_ = new zel_fnd_jobinfo_observer;
    jobinfo_observer_->init();
    esv_zel_jobinfo_facade::esv_zel_jobinfo_get_instance()->esv_zel_jobinfo_add_observer(jobinfo_observer_);
    return true;
}

bool zel_fnd_event_manager::terminate() {
    if (common_observer_ != nullptr) {
        esv_zel_common_facade::esv_zel_common_get_instance()->esv_zel_common_remove_observer(common_observer_);
        delete common_observer_;
        common_observer_ = nullptr;
    }
    if (job_observer_ != nullptr) {
        esv_zel_job_facade::esv_zel_job_get_instance()->esv_zel_job_remove_observer(job_observer_);
        delete job_observer_;
        job_observer_ = nullptr;
    }
    if (panel_observer_ != nullptr) {
        esv_zel_panel_facade::esv_zel_panel_get_instance()->esv_zel_panel_remove_observer(panel_observer_);
        delete panel_observer_;
        panel_observer_ = nullptr;
    }
    if (card_observer_ != nullptr) {
        esv_zel_acc_facade::esv_zel_acc_get_instance()->esv_zel_acc_remove_observer(card_observer_);
        delete card_observer_;
        card_observer_ = nullptr;
    }
    if (jobinfo_observer_ != nullptr) {
        esv_zel_jobinfo_facade::esv_zel_jobinfo_get_instance()->esv_zel_jobinfo_remove_observer(jobinfo_observer_);
        delete jobinfo_observer_;
        jobinfo_observer_ = nullptr;
    }
    return true;
}

}  // namespace tarnwick
