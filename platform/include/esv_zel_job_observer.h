// Observer interface of the job service facade: job state changes, scan progress, start
// prohibition, combination constraints and panel messages. The facade calls these on its own
// threads, one notification at a time; each answers 0 when handled or a failure code.
#ifndef ESV_ZEL_JOB_OBSERVER_H
#define ESV_ZEL_JOB_OBSERVER_H

#include "esv_zel_job_types.h"

namespace tarnwick {

class esv_zel_job_observer {
public:
    virtual ~esv_zel_job_observer() {}

    virtual long notify_job_state_changed(ESV_ZEL_JOB_STATE state) = 0;
    virtual long notify_scan_count(unsigned int count_1, unsigned int count_2) = 0;
    virtual long notify_start_phb(unsigned int current_id) = 0;
    virtual long notify_disable_info(unsigned int current_id) = 0;
    virtual long notify_main_message(unsigned int current_id) = 0;
    virtual long notify_phb_info(unsigned int current_id, ESV_ZEL_PHB_INFO& info) = 0;
    virtual long notify_message_info(unsigned int current_id, ESV_ZEL_PHB_GET_MESSAGE& message) = 0;
};

}  // namespace tarnwick

#endif
