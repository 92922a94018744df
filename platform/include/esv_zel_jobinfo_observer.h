// Observer interface of the job-information facade: per-page and per-job notifications. The
// facade calls these on its own threads, one notification at a time; each answers 0 when
// handled or a failure code.
#ifndef ESV_ZEL_JOBINFO_OBSERVER_H
#define ESV_ZEL_JOBINFO_OBSERVER_H

#include "esv_zel_jobinfo_types.h"

namespace tarnwick {

class esv_zel_jobinfo_observer {
public:
    virtual ~esv_zel_jobinfo_observer() {}

    virtual long notify_job_update_log(const ESV_ZEL_EVENT_JOB_UPDATE_LOG& log) = 0;
    virtual long notify_fax_send_page_info(const ESV_ZEL_EVENT_SEND_PAGE& page) = 0;
    virtual long notify_renint_start_info(const ESV_ZEL_EVENT_RENINT_START& info,
                                          const char* job_name) = 0;
    virtual long notify_print_page_info(const ESV_ZEL_EVENT_PRINT_PAGE& page) = 0;
    virtual long notify_scan_page_info(const ESV_ZEL_EVENT_SCAN_PAGE& page) = 0;
};

}  // namespace tarnwick

#endif
