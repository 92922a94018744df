// Java applications' way to the device's job log: one entry by receipt id and the send and
// receive lists of an entry. Stateless: every operation makes one call on the job-information
// facade and turns its code into a small result number (0 success).
#ifndef TARNWICK_ZEL_FND_JOB_LOG_PROXY_H
#define TARNWICK_ZEL_FND_JOB_LOG_PROXY_H

#include "esv_zel_jobinfo_types.h"

namespace tarnwick {

class zel_fnd_job_log_proxy {
public:
    zel_fnd_job_log_proxy();
    virtual ~zel_fnd_job_log_proxy();

    int retrieve_joblog(unsigned int receipt_id, ESV_ZEL_JOBINFO_JOBLOG_TYPE_VAL job_log_type,
                        ESV_ZEL_JOBINFO_JOBLOG& joblog);
    int create_send_info_list(unsigned int receipt_id, ESV_ZEL_JOBINFO_JOBLOG_TYPE_VAL job_log_type);
    int get_send_info(ESV_ZEL_JOBINFO_SEND_INFO& info);
    int delete_send_info_list();
    int create_receive_info_list(unsigned int receipt_id, ESV_ZEL_JOBINFO_JOBLOG_TYPE_VAL job_log_type);
    int get_receive_info(ESV_ZEL_JOBINFO_RECEIVE_INFO& info);
    int delete_receive_info_list();
    int convert_retcode(long code);
};

}  // namespace tarnwick

#endif
