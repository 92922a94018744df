// Java applications' way to the job service: job-information sets, jobs, send addresses and
// scan data. Stateless: every operation makes one call on the job facade and turns its code
// into a small result number (0 success).
#ifndef TARNWICK_ZEL_FND_JOB_PROXY_H
#define TARNWICK_ZEL_FND_JOB_PROXY_H

#include <jni.h>

#include <string>
#include <vector>

#include "esv_zel_job_types.h"

namespace tarnwick {

/** The texts of a job whose buffer size {@code get_char_array_size} answers. */
enum ZEL_FND_JOB_CHAR_ARRAY_SIZE_KEY : int {
    ZEL_FND_JOB_CHAR_ARRAY_SIZE_KEY_0 = 0,
    ZEL_FND_JOB_CHAR_ARRAY_SIZE_KEY_1 = 1,
    ZEL_FND_JOB_CHAR_ARRAY_SIZE_KEY_2 = 2,
    ZEL_FND_JOB_CHAR_ARRAY_SIZE_KEY_3 = 3,
    ZEL_FND_JOB_CHAR_ARRAY_SIZE_KEY_4 = 4,
    ZEL_FND_JOB_CHAR_ARRAY_SIZE_KEY_5 = 5,
    ZEL_FND_JOB_CHAR_ARRAY_SIZE_KEY_6 = 6,
    ZEL_FND_JOB_CHAR_ARRAY_SIZE_KEY_7 = 7,
    ZEL_FND_JOB_CHAR_ARRAY_SIZE_KEY_8 = 8
};

/**
 * Jobs: job-information sets (the settings of a job to be), jobs made from them, send
 * addresses, scan data, document-box jobs and direct printing. A job's progress then arrives as
 * events ({@code JobProxy}, {@code JobInfoProxy} in {@code tarnwick.zel.controller.event.proxy}).
 * <p>The usual road: {@code generate_jobinfo} gives a set id, {@code set_value} and
 * {@code add_send_address} fill it, {@code commit_jobinfo} fixes it, {@code create_job} makes a
 * job of it (its user job id), {@code start} runs it, {@code cancel} stops it.
 * <p>Every {@code int} result is the device's answer as a small number: 0 success, 1 error (also
 * any answer the library does not know), 2 an observer is registered twice, 3 no observer,
 * 4 output prohibited, 5 start prohibited, 6 a limit is reached, 7 communication with the job
 * service failed, 8 a parameter is wrong, 9 too many copies of a set, 10 the set cannot be
 * copied, 11 no such category, 12 no such job, 13 the original size is not defined. Outputs come
 * back in element 0 of the array passed.
 */
class zel_fnd_job_proxy {
public:
    zel_fnd_job_proxy();
    virtual ~zel_fnd_job_proxy();

    int generate_jobinfo(ESV_ZEL_JOB_PHB_CATEGORY function, unsigned int& current_id);
    int create_job(ESV_ZEL_JOB_CATEGORY type, unsigned int current_id, unsigned int& user_job_id);
    int start(unsigned int user_job_id);
    int continuous_read(unsigned int user_job_id);
    int continuous_read_end(unsigned int user_job_id);
    int get_value(unsigned int current_id, ESV_ZEL_JOB_SETTING data_id, unsigned int& val);
    std::string get_value(unsigned int current_id, ESV_ZEL_JOB_SETTING data_id);
    int get_value(unsigned int current_id, ESV_ZEL_PHB_SETTING_ID setting_id, unsigned int& value_1,
                  unsigned int& value_2, unsigned int& value_3);
    int set_value(unsigned int current_id, ESV_ZEL_JOB_SETTING data_id, unsigned int val);
    int set_value(unsigned int current_id, ESV_ZEL_JOB_SETTING data_id, std::string val);
    int set_value(unsigned int current_id, ESV_ZEL_PHB_SETTING_ID setting_id, unsigned int value_1,
                  unsigned int value_2, unsigned int value_3);
    int basic_func_set_value(ESV_ZEL_JOB_FUNC_TYPE func_type, ESV_ZEL_JOB_SETTING data_id, unsigned int val);
    int get_default_jobinfo_val(ESV_ZEL_JOB_SETTING jobinfo_key, unsigned int& value);
    int commit_jobinfo(unsigned int current_id);
    int rollback_jobinfo(unsigned int current_id);
    int copy_jobinfo(unsigned int current_id);
    int delete_jobinfo(unsigned int current_id);
    int reset_jobinfo(unsigned int current_id);
    int set_state_of_prohibition(ESV_ZEL_STATE_OF_PROHIBITION state);
    int check_state_of_prohibition();
    int get_start_phb(unsigned int current_id, bool& result);
    int get_disable_info(unsigned int current_id, ESV_ZEL_PHB_DISABLE_ITEM setting_id, unsigned short& val);
    int get_main_message(unsigned int current_id, ESV_ZEL_PHB_GET_MESSAGE& message);
    int add_send_address(unsigned int current_id, unsigned int& address_id, const ESV_ZEL_JOB_SEND_INFO& info);
    int update_send_address(unsigned int current_id, unsigned int address_id, const ESV_ZEL_JOB_SEND_INFO& info);
    int delete_send_address(unsigned int current_id, unsigned int address_id);
    int delete_all_send_address(unsigned int current_id);
    int get_send_address(unsigned int current_id, unsigned int address_id, ESV_ZEL_JOB_SEND_INFO& info);
    int get_send_address_id(unsigned int current_id, std::vector<unsigned int>& ids);
    int get_job_list(ESV_ZEL_JOB_KIND kind, std::vector<unsigned int>& list);
    int cancel(unsigned int user_job_id);
    int remove_job(unsigned int user_job_id, unsigned long cert_id);
    int box_job_prepare(unsigned int current_id, ESV_ZEL_BOX_JOB_INIT_SETTING& setting);
    int direct_print_prepare(unsigned int current_id, char* file_path, char* file_name);
    int retrieve_document_prepare(unsigned int current_id, char* text, unsigned long box_id, unsigned long doc_id,
                                  char* store_path);
    int combine_document(unsigned int current_id, ESV_ZEL_PHB_COMBINE_DOC_INFO& info);
    jbyteArray get_scan_data(unsigned int user_job_id, ESV_ZEL_JOB_GET_SCAN_DATA& data);
    unsigned int get_char_array_size(ZEL_FND_JOB_CHAR_ARRAY_SIZE_KEY key);
    /** The result number (0 to 13, as in the class description) of a job service answer. */
    int convert_retcode(long code);
};

}  // namespace tarnwick

#endif
