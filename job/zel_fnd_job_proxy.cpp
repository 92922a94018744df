#include "zel_fnd_job_proxy.h"

#include <cstdint>
#include <iterator>

#include "CJvm.h"
#include "cmt_retcode.h"
#include "cmt_trace.h"
#include "esv_zel_job_facade.h"

#define CMT_TRACE_MODULE "zel_fnd_job_proxy"

namespace tarnwick {

namespace {

esv_zel_job_facade* facade() { return esv_zel_job_facade::esv_zel_job_get_instance(); }

// Buffer sizes of the job texts, by key.
const unsigned int kCharArraySizes[] = {64, 128, 64, 64, 64, 128, 128, 128, 128};

// The facade's codes and the proxy's results. The facade's general failure 0x04010001 has no
// row of its own: it is unknown here, like any other code.
const cmt_retcode_row kResults[] = {
    CMT_RETCODE_ROW(ESV_ZEL_JOB_OK, 0),
    CMT_RETCODE_ROW(ESV_ZEL_JOB_DUPL_OBSERVER, 2),
    CMT_RETCODE_ROW(ESV_ZEL_JOB_NO_OBSERVER, 3),
    CMT_RETCODE_ROW(ESV_ZEL_JOB_OUTPUT_PROHIBITING, 4),
    CMT_RETCODE_ROW(ESV_ZEL_JOB_START_PROHIBITION, 5),
    CMT_RETCODE_ROW(ESV_ZEL_JOB_LIMIT, 6),
    CMT_RETCODE_ROW(ESV_ZEL_JOB_IPC_ERROR, 7),
    CMT_RETCODE_ROW(ESV_ZEL_JOB_PARAM_ERROR, 8),
    CMT_RETCODE_ROW(ESV_ZEL_JOB_COPY_JOBINFO_LIMIT_OVER, 9),
    CMT_RETCODE_ROW(ESV_ZEL_JOB_RET_NOT_COPY_JOBINFO, 10),
    CMT_RETCODE_ROW(ESV_ZEL_JOB_NO_CATEGORY, 11),
    CMT_RETCODE_ROW(ESV_ZEL_NO_HIT_JOB, 12),
    CMT_RETCODE_ROW(ESV_ZEL_JOB_ORG_SIZE_UNDEFINED, 13),
};
const cmt_retcode_table kConversion{CMT_TRACE_MODULE, kResults, std::size(kResults), "code = %s",
                                    "code = unknown(0x%08lx)", kTraceError, 1};

}  // namespace

zel_fnd_job_proxy::zel_fnd_job_proxy() {}

zel_fnd_job_proxy::~zel_fnd_job_proxy() {}

int zel_fnd_job_proxy::generate_jobinfo(ESV_ZEL_JOB_PHB_CATEGORY function, unsigned int& current_id) {
    CMT_TRACE(kTraceFlow, "[Start]. function = [%d].", function);
    long rc = facade()->esv_zel_job_generate_jobinfo(function, current_id);
    CMT_TRACE(kTraceFlow, "current_id = [%d]", current_id);
    return convert_retcode(rc);
}

// Crossed names: the facade's "start" makes the job, its "kick" runs it.
int zel_fnd_job_proxy::create_job(ESV_ZEL_JOB_CATEGORY type, unsigned int current_id, unsigned int& user_job_id) {
    CMT_TRACE(kTraceFlow, "[Start]. type = [%d], current_id = [%d].", type, current_id);
    long rc = facade()->esv_zel_job_start(type, current_id, user_job_id);
    CMT_TRACE(kTraceFlow, "user_job_id = [%d]", user_job_id);
    return convert_retcode(rc);
}

int zel_fnd_job_proxy::start(unsigned int user_job_id) {
    CMT_TRACE(kTraceFlow, "[Start]. user_job_id = [%d].", user_job_id);
    long rc = facade()->esv_zel_job_kick(user_job_id);
    return convert_retcode(rc);
}

int zel_fnd_job_proxy::continuous_read(unsigned int user_job_id) {
    CMT_TRACE(kTraceFlow, "[Start]. user_job_id = [%d].", user_job_id);
    long rc = facade()->esv_zel_job_continuous_read(user_job_id);
    return convert_retcode(rc);
}

int zel_fnd_job_proxy::continuous_read_end(unsigned int user_job_id) {
    CMT_TRACE(kTraceFlow, "[Start]. user_job_id = [%d].", user_job_id);
    long rc = facade()->esv_zel_job_continuous_read_end(user_job_id);
    return convert_retcode(rc);
}

int zel_fnd_job_proxy::get_value(unsigned int current_id, ESV_ZEL_JOB_SETTING data_id, unsigned int& val) {
    CMT_TRACE(kTraceFlow, "[Start]. current_id = [%d], data_id = [%d], val = [%d].", current_id, data_id, val);
    long rc = facade()->esv_zel_job_get_value(current_id, data_id, val);
    CMT_TRACE(kTraceFlow, "val = [%d]", val);
    return convert_retcode(rc);
}

// A failure and an empty setting look alike to the caller: both give "".
std::string zel_fnd_job_proxy::get_value(unsigned int current_id, ESV_ZEL_JOB_SETTING data_id) {
    std::string val;
    CMT_TRACE(kTraceFlow, "[Start]. current_id = [%d], data_id = [%d], val = [%s].", current_id, data_id, val.c_str());
    long rc = facade()->esv_zel_job_get_value(current_id, data_id, val);
    if (rc != 0) {
        CMT_TRACE(kTraceFlow, "val = empty");
        return std::string();
    }
    CMT_TRACE(kTraceFlow, "val = [%s]", val.c_str());
    return val;
}

int zel_fnd_job_proxy::get_value(unsigned int current_id, ESV_ZEL_PHB_SETTING_ID setting_id, unsigned int& value_1,
                                 unsigned int& value_2, unsigned int& value_3) {
    CMT_TRACE(kTraceFlow, "[Start]. current_id = [%d], setting_id = [%d], value_1 = [%d], value_2 = [%d], value_3 = [%d].",
              current_id, setting_id, value_1, value_2, value_3);
    long rc = facade()->esv_zel_job_get_value(current_id, setting_id, value_1, value_2, value_3);
    CMT_TRACE(kTraceFlow, "value_1 = [%d], value_2 = [%d], value_3 = [%d]", value_1, value_2, value_3);
    return convert_retcode(rc);
}

int zel_fnd_job_proxy::set_value(unsigned int current_id, ESV_ZEL_JOB_SETTING data_id, unsigned int val) {
    CMT_TRACE(kTraceFlow, "[Start]. current_id = [%d], data_id = [%d], val = [%d].", current_id, data_id, val);
    long rc = facade()->esv_zel_job_set_value(current_id, data_id, val);
    return convert_retcode(rc);
}

int zel_fnd_job_proxy::set_value(unsigned int current_id, ESV_ZEL_JOB_SETTING data_id, std::string val) {
    CMT_TRACE(kTraceFlow, "[Start]. current_id = [%d], data_id = [%d], val = [%s].", current_id, data_id, val.c_str());
    long rc = facade()->esv_zel_job_set_value(current_id, data_id, val);
    return convert_retcode(rc);
}

int zel_fnd_job_proxy::set_value(unsigned int current_id, ESV_ZEL_PHB_SETTING_ID setting_id, unsigned int value_1,
                                 unsigned int value_2, unsigned int value_3) {
    CMT_TRACE(kTraceFlow, "[Start]. current_id = [%d], setting_id = [%d], value_1 = [%d], value_2 = [%d], value_3 = [%d].",
              current_id, setting_id, value_1, value_2, value_3);
    long rc = facade()->esv_zel_job_set_value(current_id, setting_id, value_1, value_2, value_3);
    return convert_retcode(rc);
}

int zel_fnd_job_proxy::basic_func_set_value(ESV_ZEL_JOB_FUNC_TYPE func_type, ESV_ZEL_JOB_SETTING data_id,
                                            unsigned int val) {
    CMT_TRACE(kTraceFlow, "[Start]. func_type = [%d], data_id = [%d], val = [%d].", func_type, data_id, val);
    long rc = facade()->esv_zel_job_basic_func_set_value(func_type, data_id, val);
    CMT_TRACE(kTraceFlow, "[End]");
    return convert_retcode(rc);
}

int zel_fnd_job_proxy::get_default_jobinfo_val(ESV_ZEL_JOB_SETTING jobinfo_key, unsigned int& value) {
    CMT_TRACE(kTraceFlow, "[Start]. jobinfo_key = [%d]", jobinfo_key);
    long rc = facade()->esv_zel_job_get_default_jobinfo_val(jobinfo_key, value);
    CMT_TRACE(kTraceFlow, "[End]. jobinfo_key = [%d], value = [%d].", jobinfo_key, value);
    return convert_retcode(rc);
}

int zel_fnd_job_proxy::commit_jobinfo(unsigned int current_id) {
    CMT_TRACE(kTraceFlow, "[Start]. current_id = [%d].", current_id);
    long rc = facade()->esv_zel_job_commit_jobinfo(current_id);
    CMT_TRACE(kTraceFlow, "[End]");
    return convert_retcode(rc);
}

int zel_fnd_job_proxy::rollback_jobinfo(unsigned int current_id) {
    CMT_TRACE(kTraceFlow, "[Start]. current_id = [%d].", current_id);
    long rc = facade()->esv_zel_job_rollback_jobinfo(current_id);
    CMT_TRACE(kTraceFlow, "[End]");
    return convert_retcode(rc);
}

int zel_fnd_job_proxy::copy_jobinfo(unsigned int current_id) {
    CMT_TRACE(kTraceFlow, "[Start] current_id = [%d].", current_id);
    long rc = facade()->esv_zel_job_copy_jobinfo(current_id);
    CMT_TRACE(kTraceFlow, "[End]");
    return convert_retcode(rc);
}

int zel_fnd_job_proxy::delete_jobinfo(unsigned int current_id) {
    CMT_TRACE(kTraceFlow, "[Start]. current_id = [%d].", current_id);
    long rc = facade()->esv_zel_job_delete_jobinfo(current_id);
    CMT_TRACE(kTraceFlow, "[End]");
    return convert_retcode(rc);
}

int zel_fnd_job_proxy::reset_jobinfo(unsigned int current_id) {
    CMT_TRACE(kTraceFlow, "[Start]. current_id = [%d].", current_id);
    long rc = facade()->esv_zel_job_reset_jobinfo(current_id);
    CMT_TRACE(kTraceFlow, "[End]");
    return convert_retcode(rc);
}

int zel_fnd_job_proxy::set_state_of_prohibition(ESV_ZEL_STATE_OF_PROHIBITION state) {
    CMT_TRACE(kTraceFlow, "[Start]");
    long rc = facade()->esv_zel_job_set_state_of_prohibition(state);
    CMT_TRACE(kTraceFlow, "[End]");
    return convert_retcode(rc);
}

int zel_fnd_job_proxy::check_state_of_prohibition() {
    CMT_TRACE(kTraceFlow, "[Start]");
    long rc = facade()->esv_zel_job_check_state_of_prohibition();
    CMT_TRACE(kTraceFlow, "[End]");
    return convert_retcode(rc);
}

// The facade answers an int; any non-zero value means prohibited. `result` is written even when
// the facade failed.
int zel_fnd_job_proxy::get_start_phb(unsigned int current_id, bool& result) {
    CMT_TRACE(kTraceFlow, "[Start]. current_id = [%d].", current_id);
    int phb = 0;
    long rc = facade()->esv_zel_job_get_start_phb(current_id, phb);
    if (phb != 0) {
        result = true;
        CMT_TRACE(kTraceFlow, "current_id = [%d], result = true", current_id);
    } else {
        result = false;
        CMT_TRACE(kTraceFlow, "current_id = [%d], result = false", current_id);
    }
    return convert_retcode(rc);
}

int zel_fnd_job_proxy::get_disable_info(unsigned int current_id, ESV_ZEL_PHB_DISABLE_ITEM setting_id,
                                        unsigned short& val) {
    CMT_TRACE(kTraceFlow, "[Start]. current_id = [%d].", current_id);
    long rc = facade()->esv_zel_job_get_disable_info(current_id, setting_id, val);
    CMT_TRACE(kTraceFlow, "[End]. current_id = [%d], setting_id = [%d], val = [0x%04X]", current_id, setting_id, val);
    return convert_retcode(rc);
}

int zel_fnd_job_proxy::get_main_message(unsigned int current_id, ESV_ZEL_PHB_GET_MESSAGE& message) {
    CMT_TRACE(kTraceFlow, "[Start]. current_id = [%d].", current_id);
    long rc = facade()->esv_zel_job_get_main_message(current_id, message);
    CMT_TRACE(kTraceFlow, "[End]");
    return convert_retcode(rc);
}

int zel_fnd_job_proxy::add_send_address(unsigned int current_id, unsigned int& address_id,
                                        const ESV_ZEL_JOB_SEND_INFO& info) {
    CMT_TRACE(kTraceFlow, "[Start]. current_id = [%d], address_id = [%d].", current_id, address_id);
    CMT_TRACE(kTraceFlow, "address_type = [%d]", info.address_type);
    long rc = facade()->esv_zel_job_add_address(current_id, address_id, info);
    CMT_TRACE(kTraceFlow, "[End]");
    return convert_retcode(rc);
}

int zel_fnd_job_proxy::update_send_address(unsigned int current_id, unsigned int address_id,
                                           const ESV_ZEL_JOB_SEND_INFO& info) {
    CMT_TRACE(kTraceFlow, "[Start]. current_id = [%d], address_id = [%d].", current_id, address_id);
    CMT_TRACE(kTraceFlow, "address_type = [%d]", info.address_type);
    long rc = facade()->esv_zel_job_update_address(current_id, address_id, info);
    CMT_TRACE(kTraceFlow, "[End]");
    return convert_retcode(rc);
}

int zel_fnd_job_proxy::delete_send_address(unsigned int current_id, unsigned int address_id) {
    CMT_TRACE(kTraceFlow, "[Start]. current_id = [%d], address_id = [%d].", current_id, address_id);
    long rc = facade()->esv_zel_job_delete_address(current_id, address_id);
    CMT_TRACE(kTraceFlow, "[End]");
    return convert_retcode(rc);
}

int zel_fnd_job_proxy::delete_all_send_address(unsigned int current_id) {
    CMT_TRACE(kTraceFlow, "[Start]. current_id = [%d].", current_id);
    long rc = facade()->esv_zel_job_delete_all_address(current_id);
    CMT_TRACE(kTraceFlow, "[End]");
    return convert_retcode(rc);
}

int zel_fnd_job_proxy::get_send_address(unsigned int current_id, unsigned int address_id, ESV_ZEL_JOB_SEND_INFO& info) {
    CMT_TRACE(kTraceFlow, "[Start]. current_id = [%d], address_id = [%d].", current_id, address_id);
    long rc = facade()->esv_zel_job_get_address(current_id, address_id, info);
    CMT_TRACE(kTraceFlow, "End]");  // the exit text has always read so; log readers expect it
    return convert_retcode(rc);
}

// The vector is the answer; the count the facade reports is only traced.
int zel_fnd_job_proxy::get_send_address_id(unsigned int current_id, std::vector<unsigned int>& ids) {
    CMT_TRACE(kTraceFlow, "[Start]. current_id = [%d].", current_id);
    unsigned int count = 0;
    long rc = facade()->esv_zel_job_get_address_id(current_id, count, ids);
    CMT_TRACE(kTraceFlow, "[End]. current_id = [%d], address_id_num = [%d], list_size = [%d].", current_id, count,
              static_cast<int>(ids.size()));
    return convert_retcode(rc);
}

int zel_fnd_job_proxy::get_job_list(ESV_ZEL_JOB_KIND kind, std::vector<unsigned int>& list) {
    CMT_TRACE(kTraceFlow, "[Start]. kind = [%d].", kind);
    long rc = facade()->esv_zel_job_get_job_list(kind, list);
    CMT_TRACE(kTraceFlow, "[End]");
    return convert_retcode(rc);
}

int zel_fnd_job_proxy::cancel(unsigned int user_job_id) {
    CMT_TRACE(kTraceFlow, "[Start]. user_job_id = [%d], cert_id = [%ld].", user_job_id, 0L);
    long rc = facade()->esv_zel_job_cancel(user_job_id, 0);
    return convert_retcode(rc);
}

int zel_fnd_job_proxy::remove_job(unsigned int user_job_id, unsigned long cert_id) {
    CMT_TRACE(kTraceFlow, "[Start]. user_job_id = [%d], cert_id = [%lu].", user_job_id,
              static_cast<unsigned long>(static_cast<std::uint32_t>(cert_id)));
    long rc = facade()->esv_zel_job_cancel(user_job_id, cert_id);
    CMT_TRACE(kTraceFlow, "[End]");
    return convert_retcode(rc);
}

int zel_fnd_job_proxy::box_job_prepare(unsigned int current_id, ESV_ZEL_BOX_JOB_INIT_SETTING& setting) {
    CMT_TRACE(kTraceFlow, "[Start]. current_id = [%d].", current_id);
    long rc = facade()->esv_zel_job_box_job_prepare(current_id, setting);
    CMT_TRACE(kTraceFlow, "[End]");
    return convert_retcode(rc);
}

int zel_fnd_job_proxy::direct_print_prepare(unsigned int current_id, char* file_path, char* file_name) {
    CMT_TRACE(kTraceFlow, "[Start]. current_id = [%d], file_path = [%s], file_name = [%s].", current_id,
              file_path ? file_path : "(null)", file_name ? file_name : "(null)");
    long rc = facade()->esv_zel_job_direct_print_prepare(current_id, file_path, file_name);
    CMT_TRACE(kTraceFlow, "[End]");
    return convert_retcode(rc);
}

int zel_fnd_job_proxy::retrieve_document_prepare(unsigned int current_id, char* text, unsigned long box_id,
                                                 unsigned long doc_id, char* store_path) {
    CMT_TRACE(kTraceFlow, "[Start]. current_id = [%d], box_id = [%lu], doc_id = [%lu], store_path = [%s].", current_id,
              static_cast<unsigned long>(static_cast<std::uint32_t>(box_id)),
              static_cast<unsigned long>(static_cast<std::uint32_t>(doc_id)), store_path ? store_path : "(null)");
    long rc = facade()->esv_zel_job_retrieve_document_prepare(current_id, text, box_id, doc_id, store_path);
    CMT_TRACE(kTraceFlow, "[End]");
    return convert_retcode(rc);
}

int zel_fnd_job_proxy::combine_document(unsigned int current_id, ESV_ZEL_PHB_COMBINE_DOC_INFO& info) {
    CMT_TRACE(kTraceFlow, "[Start]. current_id = [%d].", current_id);
    long rc = facade()->esv_zel_job_combine_document(current_id, info);
    CMT_TRACE(kTraceFlow, "[End]");
    return convert_retcode(rc);
}

// Returns exactly data_size bytes of the piece as a new Java array, or null on any failure.
jbyteArray zel_fnd_job_proxy::get_scan_data(unsigned int user_job_id, ESV_ZEL_JOB_GET_SCAN_DATA& data) {
    CMT_TRACE(kTraceFlow, "[Start]. user_job_id = [%d].", user_job_id);
    JNIEnv* env = CJvm::GetJNIEnv();
    if (env == nullptr) {
        CMT_TRACE(kTraceError, "Fail to get JNIEnv.");
        return nullptr;
    }
    long rc = facade()->esv_zel_job_get_scan_data(user_job_id, data);
    if (rc != 0) return nullptr;
    // The count is the facade's word only for bytes inside the buffer: a larger one would make
    // the copy read past the record.
    if (data.data_size > sizeof data.scan_data) {
        CMT_TRACE(kTraceError, "data_size = [%u] exceeds the scan data buffer of [%u] bytes.",
                  static_cast<unsigned int>(data.data_size), static_cast<unsigned int>(sizeof data.scan_data));
        return nullptr;
    }
    const jsize size = static_cast<jsize>(data.data_size);
    jbyteArray array = env->NewByteArray(size);
    if (array == nullptr) return nullptr;
    env->SetByteArrayRegion(array, 0, size, reinterpret_cast<const jbyte*>(data.scan_data));
    if (env->ExceptionOccurred()) {
        env->ExceptionClear();
        return nullptr;
    }
    CMT_TRACE(kTraceFlow, "[End]");
    return array;
}

unsigned int zel_fnd_job_proxy::get_char_array_size(ZEL_FND_JOB_CHAR_ARRAY_SIZE_KEY key) {
    const unsigned int index = static_cast<unsigned int>(key);
    if (index > 8) return 0;
    return kCharArraySizes[index];
}

int zel_fnd_job_proxy::convert_retcode(long code) {
    return cmt_convert_retcode(kConversion, static_cast<std::int32_t>(code));  // facade codes are 32 bits on the device
}

}  // namespace tarnwick
