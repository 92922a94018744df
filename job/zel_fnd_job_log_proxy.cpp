#include "zel_fnd_job_log_proxy.h"

#include <cstdint>
#include <iterator>

#include "cmt_retcode.h"
#include "cmt_trace.h"
#include "esv_zel_jobinfo_facade.h"

#define CMT_TRACE_MODULE "zel_fnd_job_log_proxy"

namespace tarnwick {

namespace {

const cmt_retcode_row kResults[] = {
    CMT_RETCODE_ROW(ESV_ZEL_JOBINFO_OK, 0),
    CMT_RETCODE_ROW(ESV_ZEL_JOBINFO_ERROR, 1),
    CMT_RETCODE_ROW(ESV_ZEL_JOBINFO_DUPL_OBSERVER, 2),
    CMT_RETCODE_ROW(ESV_ZEL_JOBINFO_NO_OBSERVER, 3),
    CMT_RETCODE_ROW(ESV_ZEL_JOBINFO_PARAM_ERROR, 4),
    CMT_RETCODE_ROW(ESV_ZEL_JOBINFO_NOT_FOUND_ERROR, 5),
    CMT_RETCODE_ROW(ESV_ZEL_JOBINFO_ERROR_OUT_OF_RANGE, 6),
    CMT_RETCODE_ROW(ESV_ZEL_JOBINFO_ERROR_CRITICAL, 7),
    CMT_RETCODE_ROW(ESV_ZEL_JOBINFO_IPC_ERROR, 8),
    CMT_RETCODE_ROW(ESV_ZEL_JOBINFO_LIST_OPERATE_ERROR, 9),
};
// Unknown codes read as the general error, traced like it and at the ordinary level.
const cmt_retcode_table kConversion{CMT_TRACE_MODULE, kResults, std::size(kResults), "rc = %s.",
                                    "rc = ESV_ZEL_JOBINFO_ERROR.", kTraceFlow, 1};

}  // namespace

zel_fnd_job_log_proxy::zel_fnd_job_log_proxy() {}

zel_fnd_job_log_proxy::~zel_fnd_job_log_proxy() {}

int zel_fnd_job_log_proxy::retrieve_joblog(unsigned int receipt_id, ESV_ZEL_JOBINFO_JOBLOG_TYPE_VAL job_log_type,
                                           ESV_ZEL_JOBINFO_JOBLOG& joblog) {
    CMT_TRACE(kTraceFlow, "[Start]. receipt_id = [%d], job_log_type = [%d].", receipt_id, job_log_type);
    long rc = esv_zel_jobinfo_facade::esv_zel_jobinfo_get_instance()->esv_zel_jobinfo_retrieve_joblog(
        receipt_id, job_log_type, joblog);
    CMT_TRACE(kTraceFlow, "[End]");
    return convert_retcode(rc);
}

int zel_fnd_job_log_proxy::create_send_info_list(unsigned int receipt_id, ESV_ZEL_JOBINFO_JOBLOG_TYPE_VAL job_log_type) {
    CMT_TRACE(kTraceFlow, "[Start]. receipt_id = [%d], job_log_type = [%d].", receipt_id, job_log_type);
    long rc = esv_zel_jobinfo_facade::esv_zel_jobinfo_get_instance()->esv_zel_jobinfo_create_send_info_list(
        receipt_id, job_log_type);
    CMT_TRACE(kTraceFlow, "[End]");
    return convert_retcode(rc);
}

int zel_fnd_job_log_proxy::get_send_info(ESV_ZEL_JOBINFO_SEND_INFO& info) {
    CMT_TRACE(kTraceFlow, "[Start]");
    long rc = esv_zel_jobinfo_facade::esv_zel_jobinfo_get_instance()->esv_zel_jobinfo_get_send_info(info);
    CMT_TRACE(kTraceFlow, "[End]");
    return convert_retcode(rc);
}

int zel_fnd_job_log_proxy::delete_send_info_list() {
    CMT_TRACE(kTraceFlow, "[Start]");
    long rc = esv_zel_jobinfo_facade::esv_zel_jobinfo_get_instance()->esv_zel_jobinfo_delete_send_info_list();
    CMT_TRACE(kTraceFlow, "[End]");
    return convert_retcode(rc);
}

int zel_fnd_job_log_proxy::create_receive_info_list(unsigned int receipt_id,
                                                    ESV_ZEL_JOBINFO_JOBLOG_TYPE_VAL job_log_type) {
    CMT_TRACE(kTraceFlow, "[Start]. receipt_id = [%d], job_log_type = [%d].", receipt_id, job_log_type);
    long rc = esv_zel_jobinfo_facade::esv_zel_jobinfo_get_instance()->esv_zel_jobinfo_create_receive_info_list(
        receipt_id, job_log_type);
    CMT_TRACE(kTraceFlow, "[End]");
    return convert_retcode(rc);
}

int zel_fnd_job_log_proxy::get_receive_info(ESV_ZEL_JOBINFO_RECEIVE_INFO& info) {
    CMT_TRACE(kTraceFlow, "[Start]");
    long rc = esv_zel_jobinfo_facade::esv_zel_jobinfo_get_instance()->esv_zel_jobinfo_get_receive_info(info);
    CMT_TRACE(kTraceFlow, "[End]");
    return convert_retcode(rc);
}

int zel_fnd_job_log_proxy::delete_receive_info_list() {
    CMT_TRACE(kTraceFlow, "[Start]");
    long rc = esv_zel_jobinfo_facade::esv_zel_jobinfo_get_instance()->esv_zel_jobinfo_delete_receive_info_list();
    CMT_TRACE(kTraceFlow, "[End]");
    return convert_retcode(rc);
}

int zel_fnd_job_log_proxy::convert_retcode(long code) {
    return cmt_convert_retcode(kConversion, static_cast<std::int32_t>(code));  // facade codes are 32 bits on the device
}

}  // namespace tarnwick
