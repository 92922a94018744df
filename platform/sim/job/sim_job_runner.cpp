// Simulated job service, the device's job runner: a kicked job runs on a device thread of its
// own, reports its progress to the job and job-information observers and leaves a job-log
// entry behind.
#include <chrono>
#include <ctime>
#include <thread>

#include "sim_job_internal.h"
#include "tovr_sim_system.h"
#include "tovr_sim_user.h"

namespace tovr_sim {
namespace jobsim {
namespace {

// Keeps what the device thread raised, for raised().
void note(const char* name, std::vector<long> values, Answers answers) {
    Device& d = device();
    std::lock_guard<std::mutex> lock(d.mutex);
    d.raised.push_back(Raised{name, std::move(values), std::move(answers)});
}

ESV_ZEL_JOB_STATE state_of(const Job& job, int state, int result) {
    ESV_ZEL_JOB_STATE s{};
    s.state = state;
    s.user_job_id = job.id;
    s.result = result;
    s.job_mode = static_cast<uint16_t>(job.type);
    copy_text(s.user_name, sizeof s.user_name, text_of(job.values, ESV_ZEL_JOB_SETTING_USER_NAME));
    s.input_box_id = job.type == ESV_ZEL_JOB_CATEGORY_BOX_PRINT ? job.values.box.box_id : 0;
    s.output_box_id = job.type == ESV_ZEL_JOB_CATEGORY_BOX_STORE ? job.values.box.box_id : 0;
    s.form_box_id = 0;
    s.in_dev = scans(job.type) ? 1 : 0;
    s.out_dev = prints(job.type) ? 1 : (job.type == ESV_ZEL_JOB_CATEGORY_FAX_SEND ? 3 : 2);
    s.sys_info_user_job_id = job.id + 0x10000;
    return s;
}

void raise_state(const Job& job, int state, int result) {
    ESV_ZEL_JOB_STATE s = state_of(job, state, result);
    note("notify_job_state_changed", {state, result, static_cast<long>(job.id)}, raise_job_state_changed(s));
}

void pause_step() {
    int ms;
    {
        Device& d = device();
        std::lock_guard<std::mutex> lock(d.mutex);
        ms = d.pace_ms;
    }
    if (ms > 0) std::this_thread::sleep_for(std::chrono::milliseconds(ms));
}

bool cancelled(const std::shared_ptr<Job>& job) {
    Device& d = device();
    std::lock_guard<std::mutex> lock(d.mutex);
    return job->cancel;
}

// Waits while `keep_waiting` holds and the job is not cancelled.
template <typename Pred>
void wait_while(const std::shared_ptr<Job>& job, Pred keep_waiting) {
    Device& d = device();
    std::unique_lock<std::mutex> lock(d.mutex);
    job->held = true;
    d.changed.notify_all();
    d.changed.wait(lock, [&] { return job->cancel || !keep_waiting(d, *job); });
    job->held = false;
}

void finish(const std::shared_ptr<Job>& job, int result, int result_err) {
    Job& j = *job;
    LogEntry entry{};
    ESV_ZEL_JOBINFO_JOBLOG& log = entry.log;
    log.result = result;
    log.result_err = result_err;
    log.received_time = j.received_time;
    log.start_time = j.start_time;
    log.end_time = static_cast<uint32_t>(std::time(nullptr));
    log.total_time = log.end_time - log.start_time;
    copy_text(log.user_name, sizeof log.user_name, text_of(j.values, ESV_ZEL_JOB_SETTING_USER_NAME));
    copy_text(log.job_name, sizeof log.job_name, text_of(j.values, ESV_ZEL_JOB_SETTING_JOB_NAME));
    copy_text(log.login_name, sizeof log.login_name, text_of(j.values, ESV_ZEL_JOB_SETTING_USER_NAME));
    log.job_log_type = log_type_of(j.type);
    log.input_attribute = scans(j.type) ? 1 : 0;
    log.output_attribute = prints(j.type) ? 1 : 2;
    const unsigned int pages = num_of(j.values, ESV_ZEL_JOB_SETTING_ORIGINAL_PAGES);
    const unsigned int copies = num_of(j.values, ESV_ZEL_JOB_SETTING_COPIES);
    log.original_page_number = static_cast<uint16_t>(pages);
    log.copies = static_cast<uint16_t>(prints(j.type) ? copies : 0);
    log.completed_copies = static_cast<uint16_t>(result == 0 && prints(j.type) ? copies : 0);
    log.print_completion_page_number = static_cast<uint16_t>(result == 0 && prints(j.type) ? pages * copies : 0);
    log.scan_type = scans(j.type) ? static_cast<int>(num_of(j.values, ESV_ZEL_JOB_SETTING_COLOR_MODE)) : 0;
    log.total_page_number = static_cast<uint16_t>(prints(j.type) ? pages * copies : pages);
    if (j.type == ESV_ZEL_JOB_CATEGORY_SCAN_SEND || j.type == ESV_ZEL_JOB_CATEGORY_FAX_SEND) {
        for (auto& [id, a] : j.values.addresses) {
            ESV_ZEL_JOBINFO_SEND_INFO s{};
            s.result = result;
            s.result_err = result_err;
            switch (a.address_type) {
                case ESV_ZEL_JOB_ADDRESS_TYPE_MAIL:
                    s.category = ESV_ZEL_JOBINFO_CATEGORY_MAIL;
                    copy_text(s.destination_name, sizeof s.destination_name, a.detail.mail_info.mail_address);
                    copy_text(s.detail.mail.mail_address, sizeof s.detail.mail.mail_address, a.detail.mail_info.mail_address);
                    break;
                case ESV_ZEL_JOB_ADDRESS_TYPE_FAX:
                    s.category = ESV_ZEL_JOBINFO_CATEGORY_FAX;
                    copy_text(s.destination_name, sizeof s.destination_name, a.detail.fax_info.fax_number);
                    copy_text(s.detail.fax.fax_no, sizeof s.detail.fax.fax_no, a.detail.fax_info.fax_number);
                    s.detail.fax.port_no = 1;
                    s.detail.fax.time = log.end_time;
                    s.detail.fax.page_number = static_cast<uint16_t>(result == 0 ? pages : 0);
                    break;
                case ESV_ZEL_JOB_ADDRESS_TYPE_FTP:
                    s.category = ESV_ZEL_JOBINFO_CATEGORY_PC;
                    copy_text(s.destination_name, sizeof s.destination_name, a.detail.ftp_info.host_name);
                    copy_text(s.detail.pc.host_name, sizeof s.detail.pc.host_name, a.detail.ftp_info.host_name);
                    break;
                default:
                    s.category = ESV_ZEL_JOBINFO_CATEGORY_PC;
                    copy_text(s.destination_name, sizeof s.destination_name, a.detail.smb_info.host_name);
                    copy_text(s.detail.pc.host_name, sizeof s.detail.pc.host_name, a.detail.smb_info.host_name);
                    break;
            }
            entry.sends.push_back(s);
        }
    }
    const unsigned int receipt = store_log(std::move(entry));
    {
        Device& d = device();
        std::lock_guard<std::mutex> lock(d.mutex);
        j.receipt = receipt;
    }
    ESV_ZEL_EVENT_JOB_UPDATE_LOG update{j.id, receipt};
    note("notify_job_update_log", {static_cast<long>(j.id), static_cast<long>(receipt)},
           raise_job_update_log(update));
    raise_state(j, ESV_ZEL_EVENT_JOB_END, result);
    Device& d = device();
    std::lock_guard<std::mutex> lock(d.mutex);
    j.phase = Phase::done;
    d.changed.notify_all();
}

void run_job(std::shared_ptr<Job> job) {
    Job& j = *job;
    pause_step();
    raise_state(j, ESV_ZEL_EVENT_JOB_START, 0);
    const unsigned int pages = num_of(j.values, ESV_ZEL_JOB_SETTING_ORIGINAL_PAGES);
    if (scans(j.type)) {
        for (unsigned int p = 1; p <= pages; ++p) {
            pause_step();
            if (cancelled(job)) return finish(job, ESV_ZEL_EVENT_JOB_RESULT_CANCEL, 0);
            {
                Device& d = device();
                std::lock_guard<std::mutex> lock(d.mutex);
                for (unsigned int k = 0; k < kScanPageBytes; ++k) {
                    j.scan.push_back(static_cast<unsigned char>((p * 31 + k) & 0xFF));
                }
            }
            ESV_ZEL_EVENT_SCAN_PAGE page{};
            page.user_job_id = j.id;
            page.page_num = p;
            page.paper_size = static_cast<int>(num_of(j.values, ESV_ZEL_JOB_SETTING_ORIGINAL_SIZE));
            page.paper_dir = static_cast<int>(num_of(j.values, ESV_ZEL_JOB_SETTING_ORIGINAL_DIR));
            page.duplex = static_cast<int>(num_of(j.values, ESV_ZEL_JOB_SETTING_DUPLEX));
            page.color_mode = static_cast<int>(num_of(j.values, ESV_ZEL_JOB_SETTING_COLOR_MODE));
            page.resolution = static_cast<int>(num_of(j.values, ESV_ZEL_JOB_SETTING_RESOLUTION));
            note("notify_scan_page_info", {static_cast<long>(j.id), static_cast<long>(p)}, raise_scan_page_info(page));
            note("notify_scan_count", {static_cast<long>(p), static_cast<long>(pages)}, raise_scan_count(p, pages));
        }
        {
            Device& d = device();
            std::lock_guard<std::mutex> lock(d.mutex);
            j.scan_done = true;
        }
        raise_state(j, ESV_ZEL_EVENT_JOB_SCAN_COMPLETE, 0);
        wait_while(job, [](Device&, Job& x) { return x.continuous; });
        if (cancelled(job)) return finish(job, ESV_ZEL_EVENT_JOB_RESULT_CANCEL, 0);
    }
    if (j.fault) return finish(job, ESV_ZEL_EVENT_JOB_RESULT_ERROR, j.fault_code);
    if (prints(j.type)) {
        if (j.type == ESV_ZEL_JOB_CATEGORY_DIRECT_PRINT) {
            ESV_ZEL_EVENT_RENINT_START info{};
            info.user_job_id = j.id;
            info.name_setting = 1;
            info.interface_info = 2;
            note("notify_renint_start_info", {static_cast<long>(j.id)},
                   raise_renint_start_info(info, j.values.print_name.c_str()));
        }
        const unsigned int copies = num_of(j.values, ESV_ZEL_JOB_SETTING_COPIES);
        for (unsigned int c = 0; c < copies; ++c) {
            for (unsigned int p = 1; p <= pages; ++p) {
                pause_step();
                if (cancelled(job)) return finish(job, ESV_ZEL_EVENT_JOB_RESULT_CANCEL, 0);
                ESV_ZEL_EVENT_PRINT_PAGE page{};
                page.user_job_id = j.id;
                page.page_num = c * pages + p;
                page.output_dev = 1;
                page.input_dev = scans(j.type) ? 1 : 0;
                page.paper_size = static_cast<int>(num_of(j.values, ESV_ZEL_JOB_SETTING_ORIGINAL_SIZE));
                page.duplex = static_cast<int>(num_of(j.values, ESV_ZEL_JOB_SETTING_DUPLEX));
                page.color_mode = static_cast<int>(num_of(j.values, ESV_ZEL_JOB_SETTING_COLOR_MODE));
                note("notify_print_page_info", {static_cast<long>(j.id), static_cast<long>(page.page_num)},
                       raise_print_page_info(page));
                sysinfo_count_printed_page(page.paper_size, page.color_mode);  // the device's counters
                dept_page_printed(text_of(j.values, ESV_ZEL_JOB_SETTING_USER_NAME), j.type == ESV_ZEL_JOB_CATEGORY_COPY);
            }
        }
    }
    if (j.type == ESV_ZEL_JOB_CATEGORY_FAX_SEND) {
        for (std::size_t a = 0; a < j.values.addresses.size(); ++a) {
            for (unsigned int p = 1; p <= pages; ++p) {
                pause_step();
                if (cancelled(job)) return finish(job, ESV_ZEL_EVENT_JOB_RESULT_CANCEL, 0);
                ESV_ZEL_EVENT_SEND_PAGE page{j.id, p};
                note("notify_fax_send_page_info", {static_cast<long>(j.id), static_cast<long>(p)},
                       raise_fax_send_page_info(page));
            }
        }
    }
    wait_while(job, [](Device& d, Job&) { return d.hold; });
    if (cancelled(job)) return finish(job, ESV_ZEL_EVENT_JOB_RESULT_CANCEL, 0);
    finish(job, ESV_ZEL_EVENT_JOB_RESULT_COMPLETE, 0);
}

}  // namespace

void start_job_thread(std::shared_ptr<Job> job) { std::thread(run_job, std::move(job)).detach(); }

void end_cancelled_job(std::shared_ptr<Job> job) {
    std::thread([job] { finish(job, ESV_ZEL_EVENT_JOB_RESULT_CANCEL, 0); }).detach();
}

}  // namespace jobsim
}  // namespace tovr_sim
