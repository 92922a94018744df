// Forwards the job facade's notifications to JobProxy; a state change arrives as a Job object.
#ifndef TARNWICK_ZEL_FND_JOB_OBSERVER_H
#define TARNWICK_ZEL_FND_JOB_OBSERVER_H

#include <jni.h>

#include <cstddef>

#include "esv_zel_job_observer.h"
#include "zel_fnd_observer.h"

namespace tarnwick {

class zel_fnd_job_observer : public esv_zel_job_observer, private zel_fnd_observer {
public:
    // Answer to the facade when the thread cannot be attached or a Java step fails.
    static constexpr long kFailure = 0x04010001;

    zel_fnd_job_observer();

    int init();

    long notify_job_state_changed(ESV_ZEL_JOB_STATE state) override;
    long notify_scan_count(unsigned int count_1, unsigned int count_2) override;
    long notify_start_phb(unsigned int current_id) override;
    long notify_disable_info(unsigned int current_id) override;
    long notify_main_message(unsigned int current_id) override;
    long notify_phb_info(unsigned int current_id, ESV_ZEL_PHB_INFO& info) override;
    long notify_message_info(unsigned int current_id, ESV_ZEL_PHB_GET_MESSAGE& message) override;

private:
    // The fire methods, in the order init() looks them up, all of JobProxy (proxy 0); Job and JobState are built and read through
    // their class holders.
    enum Method : std::size_t {
        kJobStateChanged, kScanCount, kStartProhibition, kCombConstraint, kPanelMessageUpdate
    };
};

}  // namespace tarnwick

#endif
