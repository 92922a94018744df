// Job service facade: job-information sets, jobs, send addresses and scan data.
//
// A process-wide singleton; every member answers a result code of ESV_ZEL_JOB_RET. Observers
// registered here are called on the facade's own threads.
#ifndef ESV_ZEL_JOB_FACADE_H
#define ESV_ZEL_JOB_FACADE_H

#include <string>
#include <vector>

#include "esv_zel_job_observer.h"
#include "esv_zel_job_types.h"

namespace tarnwick {

class esv_zel_job_facade {
public:
    static esv_zel_job_facade* esv_zel_job_get_instance();

    long esv_zel_job_add_observer(esv_zel_job_observer* observer);
    long esv_zel_job_remove_observer(esv_zel_job_observer* observer);

    // Job-information sets.
    long esv_zel_job_generate_jobinfo(ESV_ZEL_JOB_PHB_CATEGORY function, unsigned int& current_id);
    long esv_zel_job_get_value(unsigned int current_id, ESV_ZEL_JOB_SETTING data_id, unsigned int& val);
    long esv_zel_job_set_value(unsigned int current_id, ESV_ZEL_JOB_SETTING data_id, unsigned int val);
    long esv_zel_job_get_value(unsigned int current_id, ESV_ZEL_JOB_SETTING data_id, std::string& val);
    long esv_zel_job_set_value(unsigned int current_id, ESV_ZEL_JOB_SETTING data_id, std::string val);
    long esv_zel_job_get_value(unsigned int current_id, ESV_ZEL_PHB_SETTING_ID setting_id,
                               unsigned int& value_1, unsigned int& value_2, unsigned int& value_3);
    long esv_zel_job_set_value(unsigned int current_id, ESV_ZEL_PHB_SETTING_ID setting_id,
                               unsigned int value_1, unsigned int value_2, unsigned int value_3);
    long esv_zel_job_basic_func_set_value(ESV_ZEL_JOB_FUNC_TYPE func_type, ESV_ZEL_JOB_SETTING data_id,
                                          unsigned int val);
    long esv_zel_job_get_default_jobinfo_val(ESV_ZEL_JOB_SETTING jobinfo_key, unsigned int& value);
    long esv_zel_job_commit_jobinfo(unsigned int current_id);
    long esv_zel_job_rollback_jobinfo(unsigned int current_id);
    long esv_zel_job_copy_jobinfo(unsigned int current_id);
    long esv_zel_job_delete_jobinfo(unsigned int current_id);
    long esv_zel_job_reset_jobinfo(unsigned int current_id);
    long esv_zel_job_set_state_of_prohibition(ESV_ZEL_STATE_OF_PROHIBITION state);
    long esv_zel_job_check_state_of_prohibition();
    long esv_zel_job_get_start_phb(unsigned int current_id, int& result);
    long esv_zel_job_get_disable_info(unsigned int current_id, ESV_ZEL_PHB_DISABLE_ITEM setting_id,
                                      unsigned short& val);
    long esv_zel_job_get_main_message(unsigned int current_id, ESV_ZEL_PHB_GET_MESSAGE& message);

    // Send addresses of a set.
    long esv_zel_job_add_address(unsigned int current_id, unsigned int& address_id,
                                 const ESV_ZEL_JOB_SEND_INFO& info);
    long esv_zel_job_update_address(unsigned int current_id, unsigned int address_id,
                                    const ESV_ZEL_JOB_SEND_INFO& info);
    long esv_zel_job_delete_address(unsigned int current_id, unsigned int address_id);
    long esv_zel_job_delete_all_address(unsigned int current_id);
    long esv_zel_job_get_address(unsigned int current_id, unsigned int address_id,
                                 ESV_ZEL_JOB_SEND_INFO& info);
    long esv_zel_job_get_address_id(unsigned int current_id, unsigned int& count,
                                    std::vector<unsigned int>& ids);

    // Preparation of document-box, direct-print and retrieval jobs.
    long esv_zel_job_box_job_prepare(unsigned int current_id, ESV_ZEL_BOX_JOB_INIT_SETTING& setting);
    long esv_zel_job_direct_print_prepare(unsigned int current_id, char* file_path, char* file_name);
    long esv_zel_job_retrieve_document_prepare(unsigned int current_id, char* text, unsigned long box_id,
                                               unsigned long doc_id, char* store_path);
    long esv_zel_job_combine_document(unsigned int current_id, ESV_ZEL_PHB_COMBINE_DOC_INFO& info);

    // Jobs.
    long esv_zel_job_start(ESV_ZEL_JOB_CATEGORY type, unsigned int current_id, unsigned int& user_job_id);
    long esv_zel_job_kick(unsigned int user_job_id);
    long esv_zel_job_continuous_read(unsigned int user_job_id);
    long esv_zel_job_continuous_read_end(unsigned int user_job_id);
    long esv_zel_job_get_job_list(ESV_ZEL_JOB_KIND kind, std::vector<unsigned int>& list);
    long esv_zel_job_cancel(unsigned int user_job_id, unsigned long cert_id);
    long esv_zel_job_get_scan_data(unsigned int user_job_id, ESV_ZEL_JOB_GET_SCAN_DATA& data);

private:
    esv_zel_job_facade();
    esv_zel_job_facade(const esv_zel_job_facade&) = delete;
    esv_zel_job_facade& operator=(const esv_zel_job_facade&) = delete;
};

}  // namespace tarnwick

#endif
