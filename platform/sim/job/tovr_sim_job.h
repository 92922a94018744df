// Control interface of the simulated job service (job and job-information facades).
//
// Test and tool code only. Notifications raised here run on the facade's own thread (one per
// facade, one notification at a time) and the call returns the answers of the registered
// observers, in registration order. Called on that very thread (from inside a notification or
// a forcing) they run inline.
#ifndef TOVR_SIM_JOB_H
#define TOVR_SIM_JOB_H

#include <functional>
#include <future>
#include <string>
#include <vector>

#include "esv_zel_job_observer.h"
#include "esv_zel_jobinfo_observer.h"
#include "tovr_sim.h"

namespace tovr_sim {

// The observers and notification thread of each facade, as for every observed facade.
using JobFacade = ObservedFacade<tarnwick::esv_zel_job_observer>;
using JobinfoFacade = ObservedFacade<tarnwick::esv_zel_jobinfo_observer>;
JobFacade& job_facade();
JobinfoFacade& jobinfo_facade();

// ---------------------------------------------------------------------------------------------
// Job facade notifications (esv_zel_job_observer).
Answers raise_job_state_changed(const ESV_ZEL_JOB_STATE& state);
Answers raise_scan_count(unsigned int count_1, unsigned int count_2);
Answers raise_start_phb(unsigned int current_id);
Answers raise_disable_info(unsigned int current_id);
Answers raise_main_message(unsigned int current_id);
Answers raise_phb_info(unsigned int current_id, const ESV_ZEL_PHB_INFO& info = ESV_ZEL_PHB_INFO{});
Answers raise_message_info(unsigned int current_id, const ESV_ZEL_PHB_GET_MESSAGE& message = ESV_ZEL_PHB_GET_MESSAGE{});
// A job state record built from its fields (the user name cut to its field and terminated).
Answers raise_job_state_changed(int state, unsigned int user_job_id, int result, int job_mode,
                                const std::string& user_name, int in_dev, int out_dev);

// Job-information facade notifications (esv_zel_jobinfo_observer).
Answers raise_job_update_log(const ESV_ZEL_EVENT_JOB_UPDATE_LOG& log);
Answers raise_fax_send_page_info(const ESV_ZEL_EVENT_SEND_PAGE& page);
Answers raise_renint_start_info(const ESV_ZEL_EVENT_RENINT_START& info, const char* job_name);
Answers raise_print_page_info(const ESV_ZEL_EVENT_PRINT_PAGE& page);
Answers raise_scan_page_info(const ESV_ZEL_EVENT_SCAN_PAGE& page);
// The same records built from their fields.
Answers raise_job_update_log(unsigned int user_job_id, unsigned int receipt_id);
Answers raise_fax_send_page_info(unsigned int user_job_id, unsigned int page_num);
// A null name reaches the observers as a null pointer.
Answers raise_renint_start_info(unsigned int user_job_id, int name_setting, unsigned int interface_info,
                                const char* job_name);
// Fields of a printed page, in this order (kPrintPageFields of them): user job id, page number,
// output dev, input dev, custom x, custom y, paper size, type, direction, weight, duplex,
// staple, punch, colour mode. Nothing is raised (no answers) when fewer come.
constexpr std::size_t kPrintPageFields = 14;
Answers raise_print_page_fields(const std::vector<long long>& fields);
// Fields of a scanned page (kScanPageFields): user job id, page number, custom x, custom y,
// paper size, direction, duplex, colour mode, resolution.
constexpr std::size_t kScanPageFields = 9;
Answers raise_scan_page_fields(const std::vector<long long>& fields);

// Generic forms: any notification, given as a call on one observer. *_raise waits for the
// answers; *_post returns at once with them to come.
using JobNotification = std::function<unsigned long(tarnwick::esv_zel_job_observer*)>;
using JobinfoNotification = std::function<unsigned long(tarnwick::esv_zel_jobinfo_observer*)>;
Answers job_raise(JobNotification fn);
std::future<Answers> job_post(JobNotification fn);
Answers jobinfo_raise(JobinfoNotification fn);
std::future<Answers> jobinfo_post(JobinfoNotification fn);
// Delivers on the calling thread, as a further device thread of the facade would, concurrently
// with the facade's own thread.
Answers job_deliver_here(JobNotification fn);
Answers jobinfo_deliver_here(JobinfoNotification fn);

// Observers currently registered with each facade.
std::size_t job_observer_count();
std::size_t jobinfo_observer_count();
bool job_observer_registered(tarnwick::esv_zel_job_observer* observer);
bool jobinfo_observer_registered(tarnwick::esv_zel_jobinfo_observer* observer);

// ---------------------------------------------------------------------------------------------
// The job service.
//
// A kicked job runs on a device thread of its own:
//   START; for a job that scans, one scan-page notification and one scan count per page of the
//   original (setting ESV_ZEL_JOB_SETTING_ORIGINAL_PAGES) and its scan data, then SCAN_COMPLETE;
//   while continuous reading is on, the job waits; then the output (print pages per copy for
//   copy and print jobs, fax pages per fax address for fax jobs); a job-log entry is written
//   (job-log notification) and the job ends: COMPLETE, CANCEL when cancelled, ERROR when a fault
//   was injected.
// Scan data of a page is kScanPageBytes bytes, byte k of page p (from 1) being
// (p * 31 + k) & 0xFF; get_scan_data hands it out in pieces of at most 4096 bytes.

constexpr unsigned int kScanPageBytes = 6000;

// Drops every job-information set, job, job-log entry and list, the device-wide prohibition,
// injected faults, holds and the notification record; ids start again from their first values
// (sets 1, jobs 101, receipts 5001).
void reset_jobs();

// Pause of the device thread between two steps of a job (default 1 ms).
void set_job_pace(int milliseconds);

// The next `times` kicked jobs end with ERROR (result 2, result_err `error_code`) after their
// scan (or right after START when they do not scan).
void inject_job_fault(int times = 1, int error_code = 0x1234);

// While held, running jobs stop before writing their log entry (after scan and output); a job
// cancelled while held ends with CANCEL.
void hold_jobs(bool on);

// Waits until the job has ended (its last notification answered). False on timeout.
bool wait_job_done(unsigned int user_job_id, int timeout_ms);
// Waits until a running job is held (or waits for continuous reading). False on timeout.
bool wait_job_held(unsigned int user_job_id, int timeout_ms);

// The full scan data a job produced so far.
std::vector<unsigned char> scan_data_of(unsigned int user_job_id);
// Receipt id of a finished job's log entry (0 when none was written).
unsigned int receipt_of(unsigned int user_job_id);

// One notification the device thread raised, with the observers' answers.
struct Raised {
    std::string notification;   // e.g. "notify_job_state_changed"
    std::vector<long> values;   // main values: state/result, ids, counts, page numbers
    Answers answers;
};
std::vector<Raised> raised();

// Adds a job-log entry of the device's own (e.g. a received fax) with its lists. The receipt id
// is assigned by the device and returned; `log.receipt_id`, `send_num` and `receive_num` are
// filled in.
unsigned int add_joblog(ESV_ZEL_JOBINFO_JOBLOG log, const std::vector<ESV_ZEL_JOBINFO_SEND_INFO>& sends,
                        const std::vector<ESV_ZEL_JOBINFO_RECEIVE_INFO>& receives);

}  // namespace tovr_sim

#endif
