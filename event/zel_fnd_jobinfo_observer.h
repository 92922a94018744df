// Forwards the job-information facade's page, job-log and interpreter notifications to
// JobInfoProxy as info objects.
#ifndef TARNWICK_ZEL_FND_JOBINFO_OBSERVER_H
#define TARNWICK_ZEL_FND_JOBINFO_OBSERVER_H

#include <jni.h>

#include <cstddef>

#include "esv_zel_jobinfo_observer.h"
#include "zel_fnd_observer.h"

namespace tarnwick {

class zel_fnd_jobinfo_observer : public esv_zel_jobinfo_observer, private zel_fnd_observer {
public:
    // Answer to the facade when the thread cannot be attached or a Java step fails.
    static constexpr long kFailure = 0x04010001;

    zel_fnd_jobinfo_observer();

    int init();

    long notify_job_update_log(const ESV_ZEL_EVENT_JOB_UPDATE_LOG& log) override;
    long notify_fax_send_page_info(const ESV_ZEL_EVENT_SEND_PAGE& page) override;
    long notify_renint_start_info(const ESV_ZEL_EVENT_RENINT_START& info, const char* job_name) override;
    long notify_print_page_info(const ESV_ZEL_EVENT_PRINT_PAGE& page) override;
    long notify_scan_page_info(const ESV_ZEL_EVENT_SCAN_PAGE& page) override;

private:
    // The fire methods, in the order init() looks them up, all of JobInfoProxy (proxy 0); the info objects are built through their
    // class holders.
    enum Method : std::size_t { kPage, kJobLog, kInterpreter };
};

}  // namespace tarnwick

#endif
