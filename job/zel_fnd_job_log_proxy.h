// Java applications' way to the device's job log: one entry by receipt id and the send and
// receive lists of an entry. Stateless: every operation makes one call on the job-information
// facade and turns its code into a small result number (0 success).
#ifndef TARNWICK_ZEL_FND_JOB_LOG_PROXY_H
#define TARNWICK_ZEL_FND_JOB_LOG_PROXY_H

#include "esv_zel_jobinfo_types.h"

namespace tarnwick {

/**
 * The device's job log: one entry by its receipt id ({@code retrieve_joblog}) and the list of
 * an entry's sends or receptions (create the list, get its items one by one, delete it).
 * <p>Every result is the device's answer as a small number: 0 success, 1 error (also any answer
 * the library does not know), 2 an observer is registered twice, 3 no observer, 4 a parameter is
 * wrong, 5 not found, 6 out of range, 7 critical error, 8 communication with the service failed,
 * 9 the list cannot be used so (not created, or already at its end).
 */
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
    /** The result number (0 to 9, as in the class description) of a job-information answer. */
    int convert_retcode(long code);
};

}  // namespace tarnwick

#endif
