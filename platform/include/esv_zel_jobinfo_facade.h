// Job-information facade: the device's job log with the send and receive lists of an entry.
//
// A process-wide singleton; every member answers a result code of ESV_ZEL_JOBINFO_RET.
// There is one send list and one receive list at a time. Observers registered here are called
// on the facade's own threads.
#ifndef ESV_ZEL_JOBINFO_FACADE_H
#define ESV_ZEL_JOBINFO_FACADE_H

#include "esv_zel_jobinfo_observer.h"
#include "esv_zel_jobinfo_types.h"

namespace tarnwick {

class esv_zel_jobinfo_facade {
public:
    static esv_zel_jobinfo_facade* esv_zel_jobinfo_get_instance();

    long esv_zel_jobinfo_add_observer(esv_zel_jobinfo_observer* observer);
    long esv_zel_jobinfo_remove_observer(esv_zel_jobinfo_observer* observer);

    long esv_zel_jobinfo_retrieve_joblog(unsigned int receipt_id, ESV_ZEL_JOBINFO_JOBLOG_TYPE_VAL job_log_type,
                                         ESV_ZEL_JOBINFO_JOBLOG& joblog);
    long esv_zel_jobinfo_create_send_info_list(unsigned int receipt_id,
                                               ESV_ZEL_JOBINFO_JOBLOG_TYPE_VAL job_log_type);
    long esv_zel_jobinfo_get_send_info(ESV_ZEL_JOBINFO_SEND_INFO& info);
    long esv_zel_jobinfo_delete_send_info_list();
    long esv_zel_jobinfo_create_receive_info_list(unsigned int receipt_id,
                                                  ESV_ZEL_JOBINFO_JOBLOG_TYPE_VAL job_log_type);
    long esv_zel_jobinfo_get_receive_info(ESV_ZEL_JOBINFO_RECEIVE_INFO& info);
    long esv_zel_jobinfo_delete_receive_info_list();

private:
    esv_zel_jobinfo_facade();
    esv_zel_jobinfo_facade(const esv_zel_jobinfo_facade&) = delete;
    esv_zel_jobinfo_facade& operator=(const esv_zel_jobinfo_facade&) = delete;
};

}  // namespace tarnwick

#endif
