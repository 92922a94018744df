// Simulated job-information facade: job log entries with their send and receive lists, and the
// page and job-log notifications of running jobs.
#include <cstring>
#include <memory>

#include "esv_zel_jobinfo_facade.h"
#include "sim_job_internal.h"

using tarnwick::esv_zel_jobinfo_facade;
using tarnwick::esv_zel_jobinfo_observer;

namespace tovr_sim {
namespace jobsim {

JobLog& joblog() { return lasting<JobLog>(); }

unsigned int store_log(LogEntry entry) {
    JobLog& j = joblog();
    std::lock_guard<std::mutex> lock(j.mutex);
    unsigned int id = j.next_receipt++;
    entry.log.receipt_id = id;
    entry.log.send_num = static_cast<uint32_t>(entry.sends.size());
    entry.log.receive_num = static_cast<uint32_t>(entry.receives.size());
    j.entries[id] = std::move(entry);
    return id;
}

void reset_joblog() {
    JobLog& j = joblog();
    std::lock_guard<std::mutex> lock(j.mutex);
    j.entries.clear();
    j.next_receipt = 5001;
    // Lists left open are dropped with the log.
    if (j.send_list.open) resource_closed(kListHandle);
    if (j.receive_list.open) resource_closed(kListHandle);
    j.send_list = {};
    j.receive_list = {};
}

}  // namespace jobsim

JobinfoFacade& jobinfo_facade() { return JobinfoFacade::instance("jobinfo"); }

Answers raise_job_update_log(const ESV_ZEL_EVENT_JOB_UPDATE_LOG& log) {
    return jobinfo_facade().raise([log](esv_zel_jobinfo_observer* o) {
        return static_cast<unsigned long>(o->notify_job_update_log(log));
    });
}

Answers raise_fax_send_page_info(const ESV_ZEL_EVENT_SEND_PAGE& page) {
    return jobinfo_facade().raise([page](esv_zel_jobinfo_observer* o) {
        return static_cast<unsigned long>(o->notify_fax_send_page_info(page));
    });
}

Answers raise_renint_start_info(const ESV_ZEL_EVENT_RENINT_START& info, const char* job_name) {
    // The text lives until the notification is answered; null stays null.
    std::shared_ptr<std::string> name = job_name ? std::make_shared<std::string>(job_name) : nullptr;
    return jobinfo_facade().raise([info, name](esv_zel_jobinfo_observer* o) {
        return static_cast<unsigned long>(o->notify_renint_start_info(info, name ? name->c_str() : nullptr));
    });
}

Answers raise_print_page_info(const ESV_ZEL_EVENT_PRINT_PAGE& page) {
    return jobinfo_facade().raise([page](esv_zel_jobinfo_observer* o) {
        return static_cast<unsigned long>(o->notify_print_page_info(page));
    });
}

Answers raise_scan_page_info(const ESV_ZEL_EVENT_SCAN_PAGE& page) {
    return jobinfo_facade().raise([page](esv_zel_jobinfo_observer* o) {
        return static_cast<unsigned long>(o->notify_scan_page_info(page));
    });
}

Answers jobinfo_raise(JobinfoNotification fn) { return jobinfo_facade().raise(std::move(fn)); }

Answers jobinfo_deliver_here(JobinfoNotification fn) { return jobinfo_facade().observers().deliver(fn); }

std::future<Answers> jobinfo_post(JobinfoNotification fn) { return jobinfo_facade().post(std::move(fn)); }

std::size_t jobinfo_observer_count() { return jobinfo_facade().observers().size(); }

bool jobinfo_observer_registered(esv_zel_jobinfo_observer* observer) {
    return jobinfo_facade().observers().contains(observer);
}

unsigned int add_joblog(ESV_ZEL_JOBINFO_JOBLOG log, const std::vector<ESV_ZEL_JOBINFO_SEND_INFO>& sends,
                        const std::vector<ESV_ZEL_JOBINFO_RECEIVE_INFO>& receives) {
    return jobsim::store_log(jobsim::LogEntry{log, sends, receives});
}

}  // namespace tovr_sim

// ---------------------------------------------------------------------------------------------
// The facade.

namespace tarnwick {

using tovr_sim::jobsim::joblog;
using tovr_sim::jobsim::JobLog;
using tovr_sim::jobsim::LogEntry;
using tovr_sim::jobsim::WalkingList;

esv_zel_jobinfo_facade::esv_zel_jobinfo_facade() {}

TOVR_SIM_FACADE_INSTANCE(jobinfo)

long esv_zel_jobinfo_facade::esv_zel_jobinfo_add_observer(esv_zel_jobinfo_observer* observer) {
    TOVR_SIM_RECORD(long, observer);
    if (!observer) return ESV_ZEL_JOBINFO_PARAM_ERROR;
    auto& set = tovr_sim::jobinfo_facade().observers();
    if (set.contains(observer)) return ESV_ZEL_JOBINFO_DUPL_OBSERVER;
    set.add(observer);
    return ESV_ZEL_JOBINFO_OK;
}

long esv_zel_jobinfo_facade::esv_zel_jobinfo_remove_observer(esv_zel_jobinfo_observer* observer) {
    TOVR_SIM_RECORD(long, observer);
    return tovr_sim::jobinfo_facade().observers().remove(observer) ? ESV_ZEL_JOBINFO_OK : ESV_ZEL_JOBINFO_NO_OBSERVER;
}

namespace {

bool known_type(ESV_ZEL_JOBINFO_JOBLOG_TYPE_VAL t) {
    return t >= ESV_ZEL_JOBINFO_JOBLOG_TYPE_PRINT && t <= ESV_ZEL_JOBINFO_JOBLOG_TYPE_STORE;
}

// The entry of `receipt_id` in the log of `type`, or null. Caller holds the log's mutex.
LogEntry* find_entry(JobLog& j, unsigned int receipt_id, ESV_ZEL_JOBINFO_JOBLOG_TYPE_VAL type) {
    auto it = j.entries.find(receipt_id);
    if (it == j.entries.end() || it->second.log.job_log_type != type) return nullptr;
    return &it->second;
}

// The send and receive lists behave alike; `list` names the one of the log, `records` the
// entry's records it is made from.
template <typename Info>
long create_list(WalkingList<Info> JobLog::*list, std::vector<Info> LogEntry::*records, unsigned int receipt_id,
                 ESV_ZEL_JOBINFO_JOBLOG_TYPE_VAL job_log_type) {
    if (!known_type(job_log_type)) return ESV_ZEL_JOBINFO_PARAM_ERROR;
    JobLog& j = joblog();
    std::lock_guard<std::mutex> lock(j.mutex);
    WalkingList<Info>& l = j.*list;
    if (l.open) return ESV_ZEL_JOBINFO_LIST_OPERATE_ERROR;
    LogEntry* e = find_entry(j, receipt_id, job_log_type);
    if (!e) return ESV_ZEL_JOBINFO_NOT_FOUND_ERROR;
    l.records = e->*records;
    l.pos = 0;
    l.open = true;
    tovr_sim::resource_opened(tovr_sim::kListHandle);
    return ESV_ZEL_JOBINFO_OK;
}

template <typename Info>
long next_in_list(WalkingList<Info> JobLog::*list, Info& info) {
    JobLog& j = joblog();
    std::lock_guard<std::mutex> lock(j.mutex);
    WalkingList<Info>& l = j.*list;
    if (!l.open) return ESV_ZEL_JOBINFO_LIST_OPERATE_ERROR;
    if (l.pos >= l.records.size()) return ESV_ZEL_JOBINFO_ERROR_OUT_OF_RANGE;
    info = l.records[l.pos++];
    return ESV_ZEL_JOBINFO_OK;
}

template <typename Info>
long delete_list(WalkingList<Info> JobLog::*list) {
    JobLog& j = joblog();
    std::lock_guard<std::mutex> lock(j.mutex);
    WalkingList<Info>& l = j.*list;
    if (!l.open) return ESV_ZEL_JOBINFO_LIST_OPERATE_ERROR;
    l = {};
    tovr_sim::resource_closed(tovr_sim::kListHandle);
    return ESV_ZEL_JOBINFO_OK;
}

}  // namespace

long esv_zel_jobinfo_facade::esv_zel_jobinfo_retrieve_joblog(unsigned int receipt_id,
                                                             ESV_ZEL_JOBINFO_JOBLOG_TYPE_VAL job_log_type,
                                                             ESV_ZEL_JOBINFO_JOBLOG& joblog_out) {
    TOVR_SIM_RECORD(long, receipt_id, job_log_type, tovr_sim::unrecorded(joblog_out));
    if (!known_type(job_log_type)) return ESV_ZEL_JOBINFO_PARAM_ERROR;
    JobLog& j = joblog();
    std::lock_guard<std::mutex> lock(j.mutex);
    LogEntry* e = find_entry(j, receipt_id, job_log_type);
    if (!e) return ESV_ZEL_JOBINFO_NOT_FOUND_ERROR;
    joblog_out = e->log;
    return ESV_ZEL_JOBINFO_OK;
}

long esv_zel_jobinfo_facade::esv_zel_jobinfo_create_send_info_list(unsigned int receipt_id,
                                                                   ESV_ZEL_JOBINFO_JOBLOG_TYPE_VAL job_log_type) {
    TOVR_SIM_RECORD(long, receipt_id, job_log_type);
    return create_list(&JobLog::send_list, &LogEntry::sends, receipt_id, job_log_type);
}

long esv_zel_jobinfo_facade::esv_zel_jobinfo_get_send_info(ESV_ZEL_JOBINFO_SEND_INFO& info) {
    TOVR_SIM_RECORD(long, tovr_sim::unrecorded(info));
    return next_in_list(&JobLog::send_list, info);
}

long esv_zel_jobinfo_facade::esv_zel_jobinfo_delete_send_info_list() {
    TOVR_SIM_RECORD(long);
    return delete_list(&JobLog::send_list);
}

long esv_zel_jobinfo_facade::esv_zel_jobinfo_create_receive_info_list(unsigned int receipt_id,
                                                                      ESV_ZEL_JOBINFO_JOBLOG_TYPE_VAL job_log_type) {
    TOVR_SIM_RECORD(long, receipt_id, job_log_type);
    return create_list(&JobLog::receive_list, &LogEntry::receives, receipt_id, job_log_type);
}

long esv_zel_jobinfo_facade::esv_zel_jobinfo_get_receive_info(ESV_ZEL_JOBINFO_RECEIVE_INFO& info) {
    TOVR_SIM_RECORD(long, tovr_sim::unrecorded(info));
    return next_in_list(&JobLog::receive_list, info);
}

long esv_zel_jobinfo_facade::esv_zel_jobinfo_delete_receive_info_list() {
    TOVR_SIM_RECORD(long);
    return delete_list(&JobLog::receive_list);
}

}  // namespace tarnwick
