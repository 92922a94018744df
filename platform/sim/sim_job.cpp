// Simulated job facade: job-information sets with real state, and jobs that a device thread
// runs when kicked, reporting their progress to the job and job-information observers and
// leaving a job-log entry behind.
#include <algorithm>
#include <array>
#include <chrono>
#include <condition_variable>
#include <cstring>
#include <ctime>
#include <map>
#include <memory>
#include <mutex>
#include <thread>

#include "esv_zel_job_facade.h"
#include "sim_job_internal.h"

using tarnwick::esv_zel_job_observer;

namespace tovr_sim {
namespace jobsim {
namespace {

constexpr unsigned int kMaxSets = 10;
constexpr unsigned int kMaxActiveJobs = 20;
constexpr std::size_t kMaxText = 255;
constexpr unsigned int kOriginalSizeUndefined = 0xFFFF;

// Everything a job-information set holds.
struct Values {
    std::map<int, unsigned int> nums;
    std::map<int, std::string> texts;
    std::map<int, std::array<unsigned int, 3>> triples;
    std::map<unsigned int, ESV_ZEL_JOB_SEND_INFO> addresses;  // by id, in id order
    unsigned int next_address_id = 1;
    ESV_ZEL_BOX_JOB_INIT_SETTING box{};
    ESV_ZEL_PHB_COMBINE_DOC_INFO combine{};
    std::string print_path, print_name, store_path;
    unsigned long box_id = 0, doc_id = 0;
};

struct Set {
    ESV_ZEL_JOB_PHB_CATEGORY category;
    Values work;       // edits
    Values committed;  // what a job is made from
    bool committed_once = false;
};

enum class Phase { created, running, done };

struct Job {
    unsigned int id = 0;
    ESV_ZEL_JOB_CATEGORY type{};
    ESV_ZEL_JOB_PHB_CATEGORY set_category{};
    unsigned int set_id = 0;
    Values values;
    Phase phase = Phase::created;
    bool cancel = false;
    bool continuous = false;
    bool held = false;
    bool fault = false;
    int fault_code = 0;
    std::vector<unsigned char> scan;
    std::size_t read_pos = 0;
    bool scan_done = false;
    unsigned int receipt = 0;
    std::uint32_t received_time = 0;
    std::uint32_t start_time = 0;
};

struct Device {
    std::mutex mutex;
    std::condition_variable changed;
    std::map<unsigned int, Set> sets;
    unsigned int next_set = 1;
    std::map<unsigned int, std::shared_ptr<Job>> jobs;
    unsigned int next_job = 101;
    bool prohibited = false;
    int pace_ms = 1;
    int faults = 0;
    int fault_code = 0x1234;
    bool hold = false;
    std::map<int, std::map<int, unsigned int>> basic;  // function type -> setting -> value
    std::vector<Raised> raised;
};

Device& device() {
    static Device* d = new Device;  // leaked: device threads may run at exit
    return *d;
}

FacadeThread& job_thread() {
    static FacadeThread* t = new FacadeThread("job");
    return *t;
}

ObserverSet<esv_zel_job_observer>& job_observers() {
    static auto* s = new ObserverSet<esv_zel_job_observer>;
    return *s;
}

Answers deliver(std::function<unsigned long(esv_zel_job_observer*)> fn) {
    FacadeThread& t = job_thread();
    if (t.on_this_thread()) return job_observers().deliver(fn);
    auto out = std::make_shared<Answers>();
    t.post([fn, out] {
         *out = job_observers().deliver(fn);
         return 0UL;
     }).get();
    return *out;
}

// ----- settings -----

const std::map<int, unsigned int>& factory_nums() {
    static const std::map<int, unsigned int> d = {
        {ESV_ZEL_JOB_SETTING_COPIES, 1},         {ESV_ZEL_JOB_SETTING_COLOR_MODE, 0},
        {ESV_ZEL_JOB_SETTING_DUPLEX, 0},         {ESV_ZEL_JOB_SETTING_RESOLUTION, 300},
        {ESV_ZEL_JOB_SETTING_ORIGINAL_SIZE, 0},  {ESV_ZEL_JOB_SETTING_ORIGINAL_DIR, 0},
        {ESV_ZEL_JOB_SETTING_FILE_FORMAT, 1},    {ESV_ZEL_JOB_SETTING_ZOOM, 100},
        {ESV_ZEL_JOB_SETTING_DENSITY, 5},        {ESV_ZEL_JOB_SETTING_ORIGINAL_PAGES, 2},
    };
    return d;
}

const std::vector<int>& text_keys() {
    static const std::vector<int> k = {ESV_ZEL_JOB_SETTING_JOB_NAME, ESV_ZEL_JOB_SETTING_FILE_NAME,
                                       ESV_ZEL_JOB_SETTING_MAIL_SUBJECT, ESV_ZEL_JOB_SETTING_MAIL_BODY,
                                       ESV_ZEL_JOB_SETTING_USER_NAME};
    return k;
}

bool known_num(int key) { return factory_nums().count(key) != 0; }
bool known_text(int key) { return std::find(text_keys().begin(), text_keys().end(), key) != text_keys().end(); }
bool known_triple(int key) { return key >= ESV_ZEL_PHB_SETTING_ID_ERASE_FRAME && key <= ESV_ZEL_PHB_SETTING_ID_SHARPNESS; }
bool known_category(int c) { return c >= ESV_ZEL_JOB_PHB_CATEGORY_COPY && c <= ESV_ZEL_JOB_PHB_CATEGORY_PRINT; }

Values defaults_for(Device& d, ESV_ZEL_JOB_PHB_CATEGORY category) {
    Values v;
    v.nums = factory_nums();
    for (auto& [key, val] : d.basic[category]) v.nums[key] = val;
    for (int key : text_keys()) v.texts[key] = "";
    for (int key = ESV_ZEL_PHB_SETTING_ID_ERASE_FRAME; key <= ESV_ZEL_PHB_SETTING_ID_SHARPNESS; ++key) {
        v.triples[key] = {0, 0, 0};
    }
    return v;
}

bool needs_address(ESV_ZEL_JOB_PHB_CATEGORY c) {
    return c == ESV_ZEL_JOB_PHB_CATEGORY_SEND || c == ESV_ZEL_JOB_PHB_CATEGORY_FAX;
}

// Start prohibition of a set: 0 free, 1 no destination yet, 2 the device prohibits starts.
int start_phb_of(Device& d, const Set& s) {
    if (d.prohibited) return 2;
    if (needs_address(s.category) && s.work.addresses.empty()) return 1;
    return 0;
}

// 16-bit mask of the values of `item` that the other settings rule out.
unsigned short disable_mask(const Values& v, int item) {
    auto num = [&](int key) { auto it = v.nums.find(key); return it == v.nums.end() ? 0u : it->second; };
    switch (item) {
        case ESV_ZEL_PHB_DISABLE_ITEM_FILE_FORMAT:
            return num(ESV_ZEL_JOB_SETTING_COLOR_MODE) == 1 ? 0x0004 : 0x0000;  // no JPEG in mono
        case ESV_ZEL_PHB_DISABLE_ITEM_DUPLEX:
            return num(ESV_ZEL_JOB_SETTING_ORIGINAL_SIZE) == 5 ? 0x0002 : 0x0000;  // custom size
        case ESV_ZEL_PHB_DISABLE_ITEM_RESOLUTION:
            return num(ESV_ZEL_JOB_SETTING_COLOR_MODE) == 0 ? 0x0100 : 0x0000;  // 1200 dpi mono only
        default:
            return 0;
    }
}

bool known_item(int item) { return item >= ESV_ZEL_PHB_DISABLE_ITEM_COLOR_MODE && item <= ESV_ZEL_PHB_DISABLE_ITEM_ORIGINAL_SIZE; }

std::array<unsigned short, 5> all_masks(const Values& v) {
    std::array<unsigned short, 5> m{};
    for (int i = 0; i < 5; ++i) m[i] = disable_mask(v, i);
    return m;
}

bool category_fits(ESV_ZEL_JOB_CATEGORY type, ESV_ZEL_JOB_PHB_CATEGORY set) {
    switch (type) {
        case ESV_ZEL_JOB_CATEGORY_COPY: return set == ESV_ZEL_JOB_PHB_CATEGORY_COPY;
        case ESV_ZEL_JOB_CATEGORY_SCAN_SEND: return set == ESV_ZEL_JOB_PHB_CATEGORY_SEND;
        case ESV_ZEL_JOB_CATEGORY_FAX_SEND: return set == ESV_ZEL_JOB_PHB_CATEGORY_FAX;
        case ESV_ZEL_JOB_CATEGORY_BOX_STORE:
        case ESV_ZEL_JOB_CATEGORY_BOX_PRINT: return set == ESV_ZEL_JOB_PHB_CATEGORY_BOX;
        case ESV_ZEL_JOB_CATEGORY_DIRECT_PRINT: return set == ESV_ZEL_JOB_PHB_CATEGORY_PRINT;
        case ESV_ZEL_JOB_CATEGORY_SCAN_READ:
            return set == ESV_ZEL_JOB_PHB_CATEGORY_COPY || set == ESV_ZEL_JOB_PHB_CATEGORY_SEND;
        default: return false;
    }
}

bool scans(ESV_ZEL_JOB_CATEGORY type) {
    return type == ESV_ZEL_JOB_CATEGORY_COPY || type == ESV_ZEL_JOB_CATEGORY_SCAN_SEND ||
           type == ESV_ZEL_JOB_CATEGORY_FAX_SEND || type == ESV_ZEL_JOB_CATEGORY_BOX_STORE ||
           type == ESV_ZEL_JOB_CATEGORY_SCAN_READ;
}

bool prints(ESV_ZEL_JOB_CATEGORY type) {
    return type == ESV_ZEL_JOB_CATEGORY_COPY || type == ESV_ZEL_JOB_CATEGORY_BOX_PRINT ||
           type == ESV_ZEL_JOB_CATEGORY_DIRECT_PRINT;
}

ESV_ZEL_JOBINFO_JOBLOG_TYPE_VAL log_type_of(ESV_ZEL_JOB_CATEGORY type) {
    switch (type) {
        case ESV_ZEL_JOB_CATEGORY_SCAN_SEND:
        case ESV_ZEL_JOB_CATEGORY_FAX_SEND: return ESV_ZEL_JOBINFO_JOBLOG_TYPE_SEND;
        case ESV_ZEL_JOB_CATEGORY_BOX_STORE:
        case ESV_ZEL_JOB_CATEGORY_SCAN_READ: return ESV_ZEL_JOBINFO_JOBLOG_TYPE_STORE;
        default: return ESV_ZEL_JOBINFO_JOBLOG_TYPE_PRINT;
    }
}

unsigned int num_of(const Values& v, int key) {
    auto it = v.nums.find(key);
    return it == v.nums.end() ? 0 : it->second;
}

std::string text_of(const Values& v, int key) {
    auto it = v.texts.find(key);
    return it == v.texts.end() ? std::string() : it->second;
}

void copy_text(char* to, std::size_t size, const std::string& from) {
    std::memset(to, 0, size);
    std::strncpy(to, from.c_str(), size - 1);
}

// ----- the device thread of one job -----

void record(const char* name, std::vector<long> values, Answers answers) {
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
    record("notify_job_state_changed", {state, result, static_cast<long>(job.id)}, raise_job_state_changed(s));
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
    record("notify_job_update_log", {static_cast<long>(j.id), static_cast<long>(receipt)},
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
            record("notify_scan_page_info", {static_cast<long>(j.id), static_cast<long>(p)}, raise_scan_page_info(page));
            record("notify_scan_count", {static_cast<long>(p), static_cast<long>(pages)}, raise_scan_count(p, pages));
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
            record("notify_renint_start_info", {static_cast<long>(j.id)},
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
                record("notify_print_page_info", {static_cast<long>(j.id), static_cast<long>(page.page_num)},
                       raise_print_page_info(page));
            }
        }
    }
    if (j.type == ESV_ZEL_JOB_CATEGORY_FAX_SEND) {
        for (std::size_t a = 0; a < j.values.addresses.size(); ++a) {
            for (unsigned int p = 1; p <= pages; ++p) {
                pause_step();
                if (cancelled(job)) return finish(job, ESV_ZEL_EVENT_JOB_RESULT_CANCEL, 0);
                ESV_ZEL_EVENT_SEND_PAGE page{j.id, p};
                record("notify_fax_send_page_info", {static_cast<long>(j.id), static_cast<long>(p)},
                       raise_fax_send_page_info(page));
            }
        }
    }
    wait_while(job, [](Device& d, Job&) { return d.hold; });
    if (cancelled(job)) return finish(job, ESV_ZEL_EVENT_JOB_RESULT_CANCEL, 0);
    finish(job, ESV_ZEL_EVENT_JOB_RESULT_COMPLETE, 0);
}

}  // namespace
}  // namespace jobsim

// ----- control interface -----

using namespace jobsim;

Answers raise_job_state_changed(const ESV_ZEL_JOB_STATE& state) {
    return deliver([state](esv_zel_job_observer* o) { return static_cast<unsigned long>(o->notify_job_state_changed(state)); });
}
Answers raise_scan_count(unsigned int count_1, unsigned int count_2) {
    return deliver([=](esv_zel_job_observer* o) { return static_cast<unsigned long>(o->notify_scan_count(count_1, count_2)); });
}
Answers raise_start_phb(unsigned int current_id) {
    return deliver([=](esv_zel_job_observer* o) { return static_cast<unsigned long>(o->notify_start_phb(current_id)); });
}
Answers raise_disable_info(unsigned int current_id) {
    return deliver([=](esv_zel_job_observer* o) { return static_cast<unsigned long>(o->notify_disable_info(current_id)); });
}
Answers raise_main_message(unsigned int current_id) {
    return deliver([=](esv_zel_job_observer* o) { return static_cast<unsigned long>(o->notify_main_message(current_id)); });
}
Answers raise_phb_info(unsigned int current_id, const ESV_ZEL_PHB_INFO& info) {
    return deliver([=](esv_zel_job_observer* o) {
        ESV_ZEL_PHB_INFO copy = info;
        return static_cast<unsigned long>(o->notify_phb_info(current_id, copy));
    });
}
Answers raise_message_info(unsigned int current_id, const ESV_ZEL_PHB_GET_MESSAGE& message) {
    return deliver([=](esv_zel_job_observer* o) {
        ESV_ZEL_PHB_GET_MESSAGE copy = message;
        return static_cast<unsigned long>(o->notify_message_info(current_id, copy));
    });
}

Answers job_raise(JobNotification fn) { return deliver(std::move(fn)); }

Answers job_deliver_here(JobNotification fn) { return job_observers().deliver(fn); }

std::future<Answers> job_post(JobNotification fn) {
    auto promise = std::make_shared<std::promise<Answers>>();
    std::future<Answers> answers = promise->get_future();
    job_thread().post([fn, promise] {
        promise->set_value(job_observers().deliver(fn));
        return 0UL;
    });
    return answers;
}

std::size_t job_observer_count() { return job_observers().size(); }
bool job_observer_registered(esv_zel_job_observer* observer) { return job_observers().contains(observer); }

void reset_jobs() {
    Device& d = device();
    {
        std::lock_guard<std::mutex> lock(d.mutex);
        d.sets.clear();
        d.next_set = 1;
        // Running jobs are cancelled and forgotten; their threads end on their own.
        for (auto& [id, job] : d.jobs) job->cancel = true;
        d.jobs.clear();
        d.next_job = 101;
        d.prohibited = false;
        d.pace_ms = 1;
        d.faults = 0;
        d.fault_code = 0x1234;
        d.hold = false;
        d.basic.clear();
        d.raised.clear();
        d.changed.notify_all();
    }
    reset_joblog();
}

void set_job_pace(int milliseconds) {
    Device& d = device();
    std::lock_guard<std::mutex> lock(d.mutex);
    d.pace_ms = milliseconds;
}

void inject_job_fault(int times, int error_code) {
    Device& d = device();
    std::lock_guard<std::mutex> lock(d.mutex);
    d.faults = times;
    d.fault_code = error_code;
}

void hold_jobs(bool on) {
    Device& d = device();
    std::lock_guard<std::mutex> lock(d.mutex);
    d.hold = on;
    d.changed.notify_all();
}

namespace {
template <typename Pred>
bool wait_job(unsigned int user_job_id, int timeout_ms, Pred pred) {
    Device& d = device();
    std::unique_lock<std::mutex> lock(d.mutex);
    auto it = d.jobs.find(user_job_id);
    if (it == d.jobs.end()) return false;
    std::shared_ptr<Job> job = it->second;
    return d.changed.wait_for(lock, std::chrono::milliseconds(timeout_ms), [&] { return pred(*job); });
}
}  // namespace

bool wait_job_done(unsigned int user_job_id, int timeout_ms) {
    return wait_job(user_job_id, timeout_ms, [](Job& j) { return j.phase == Phase::done; });
}

bool wait_job_held(unsigned int user_job_id, int timeout_ms) {
    return wait_job(user_job_id, timeout_ms, [](Job& j) { return j.held; });
}

std::vector<unsigned char> scan_data_of(unsigned int user_job_id) {
    Device& d = device();
    std::lock_guard<std::mutex> lock(d.mutex);
    auto it = d.jobs.find(user_job_id);
    return it == d.jobs.end() ? std::vector<unsigned char>() : it->second->scan;
}

unsigned int receipt_of(unsigned int user_job_id) {
    Device& d = device();
    std::lock_guard<std::mutex> lock(d.mutex);
    auto it = d.jobs.find(user_job_id);
    return it == d.jobs.end() ? 0 : it->second->receipt;
}

std::vector<Raised> raised() {
    Device& d = device();
    std::lock_guard<std::mutex> lock(d.mutex);
    return d.raised;
}

}  // namespace tovr_sim

// ---------------------------------------------------------------------------------------------
// The facade.

namespace tarnwick {

using tovr_sim::arg;
using tovr_sim::intercept;
using namespace tovr_sim::jobsim;

esv_zel_job_facade::esv_zel_job_facade() {}

esv_zel_job_facade* esv_zel_job_facade::esv_zel_job_get_instance() {
    static esv_zel_job_facade* instance = new esv_zel_job_facade;
    return instance;
}


long esv_zel_job_facade::esv_zel_job_add_observer(esv_zel_job_observer* observer) {
    long forced;
    if (intercept("esv_zel_job_add_observer", {arg(observer)}, {observer}, &forced)) return forced;
    if (!observer) return ESV_ZEL_JOB_PARAM_ERROR;
    if (job_observers().contains(observer)) return ESV_ZEL_JOB_DUPL_OBSERVER;
    job_observers().add(observer);
    return ESV_ZEL_JOB_OK;
}

long esv_zel_job_facade::esv_zel_job_remove_observer(esv_zel_job_observer* observer) {
    long forced;
    if (intercept("esv_zel_job_remove_observer", {arg(observer)}, {observer}, &forced)) return forced;
    return job_observers().remove(observer) ? ESV_ZEL_JOB_OK : ESV_ZEL_JOB_NO_OBSERVER;
}

namespace {

// Notifications that a change of a set may call for; raised after the device lock is dropped.
struct SetChange {
    unsigned int id = 0;
    bool start_phb = false;
    bool disable = false;
    bool message = false;
    void raise() const {
        if (start_phb) tovr_sim::raise_start_phb(id);
        if (disable) tovr_sim::raise_disable_info(id);
        if (message) tovr_sim::raise_main_message(id);
    }
};

// Runs `edit` on set `id` under the device lock, noting what the edit changed.
template <typename Edit>
long edit_set(unsigned int id, Edit edit) {
    Device& d = device();
    SetChange change;
    long rc;
    {
        std::lock_guard<std::mutex> lock(d.mutex);
        auto it = d.sets.find(id);
        if (it == d.sets.end()) return ESV_ZEL_JOB_PARAM_ERROR;
        Set& s = it->second;
        const int phb = start_phb_of(d, s);
        const auto masks = all_masks(s.work);
        const std::size_t addresses = s.work.addresses.size();
        rc = edit(d, s);
        change.id = id;
        change.start_phb = start_phb_of(d, s) != phb;
        change.disable = all_masks(s.work) != masks;
        change.message = s.work.addresses.size() != addresses || change.start_phb;
    }
    change.raise();
    return rc;
}

}  // namespace

long esv_zel_job_facade::esv_zel_job_generate_jobinfo(ESV_ZEL_JOB_PHB_CATEGORY function, unsigned int& current_id) {
    long forced;
    if (intercept("esv_zel_job_generate_jobinfo", {arg(function), arg(current_id)}, {&function, &current_id}, &forced)) {
        return forced;
    }
    if (!known_category(function)) return ESV_ZEL_JOB_PARAM_ERROR;
    Device& d = device();
    std::lock_guard<std::mutex> lock(d.mutex);
    if (d.sets.size() >= kMaxSets) return ESV_ZEL_JOB_LIMIT;
    Set s{function, defaults_for(d, function), {}, false};
    s.committed = s.work;
    current_id = d.next_set++;
    d.sets[current_id] = s;
    return ESV_ZEL_JOB_OK;
}

long esv_zel_job_facade::esv_zel_job_get_value(unsigned int current_id, ESV_ZEL_JOB_SETTING data_id, unsigned int& val) {
    long forced;
    if (intercept("esv_zel_job_get_value", {arg(current_id), arg(data_id), arg(val)}, {&current_id, &data_id, &val}, &forced)) {
        return forced;
    }
    Device& d = device();
    std::lock_guard<std::mutex> lock(d.mutex);
    auto it = d.sets.find(current_id);
    if (it == d.sets.end() || !known_num(data_id)) return ESV_ZEL_JOB_PARAM_ERROR;
    val = it->second.work.nums[data_id];
    return ESV_ZEL_JOB_OK;
}

long esv_zel_job_facade::esv_zel_job_set_value(unsigned int current_id, ESV_ZEL_JOB_SETTING data_id, unsigned int val) {
    long forced;
    if (intercept("esv_zel_job_set_value", {arg(current_id), arg(data_id), arg(val)}, {&current_id, &data_id, &val}, &forced)) {
        return forced;
    }
    if (!known_num(data_id)) return ESV_ZEL_JOB_PARAM_ERROR;
    if (data_id == ESV_ZEL_JOB_SETTING_COPIES && (val < 1 || val > 999)) return ESV_ZEL_JOB_PARAM_ERROR;
    return edit_set(current_id, [&](Device&, Set& s) {
        s.work.nums[data_id] = val;
        return long{ESV_ZEL_JOB_OK};
    });
}

long esv_zel_job_facade::esv_zel_job_get_value(unsigned int current_id, ESV_ZEL_JOB_SETTING data_id, std::string& val) {
    long forced;
    if (intercept("esv_zel_job_get_value", {arg(current_id), arg(data_id), val}, {&current_id, &data_id, &val}, &forced)) {
        return forced;
    }
    Device& d = device();
    std::lock_guard<std::mutex> lock(d.mutex);
    auto it = d.sets.find(current_id);
    if (it == d.sets.end() || !known_text(data_id)) return ESV_ZEL_JOB_PARAM_ERROR;
    val = it->second.work.texts[data_id];
    return ESV_ZEL_JOB_OK;
}

long esv_zel_job_facade::esv_zel_job_set_value(unsigned int current_id, ESV_ZEL_JOB_SETTING data_id, std::string val) {
    long forced;
    if (intercept("esv_zel_job_set_value", {arg(current_id), arg(data_id), val}, {&current_id, &data_id, &val}, &forced)) {
        return forced;
    }
    if (!known_text(data_id) || val.size() > kMaxText) return ESV_ZEL_JOB_PARAM_ERROR;
    return edit_set(current_id, [&](Device&, Set& s) {
        s.work.texts[data_id] = val;
        return long{ESV_ZEL_JOB_OK};
    });
}

long esv_zel_job_facade::esv_zel_job_get_value(unsigned int current_id, ESV_ZEL_PHB_SETTING_ID setting_id,
                                               unsigned int& value_1, unsigned int& value_2, unsigned int& value_3) {
    long forced;
    if (intercept("esv_zel_job_get_value", {arg(current_id), arg(setting_id), arg(value_1), arg(value_2), arg(value_3)},
                  {&current_id, &setting_id, &value_1, &value_2, &value_3}, &forced)) {
        return forced;
    }
    Device& d = device();
    std::lock_guard<std::mutex> lock(d.mutex);
    auto it = d.sets.find(current_id);
    if (it == d.sets.end() || !known_triple(setting_id)) return ESV_ZEL_JOB_PARAM_ERROR;
    const auto& t = it->second.work.triples[setting_id];
    value_1 = t[0];
    value_2 = t[1];
    value_3 = t[2];
    return ESV_ZEL_JOB_OK;
}

long esv_zel_job_facade::esv_zel_job_set_value(unsigned int current_id, ESV_ZEL_PHB_SETTING_ID setting_id,
                                               unsigned int value_1, unsigned int value_2, unsigned int value_3) {
    long forced;
    if (intercept("esv_zel_job_set_value", {arg(current_id), arg(setting_id), arg(value_1), arg(value_2), arg(value_3)},
                  {&current_id, &setting_id, &value_1, &value_2, &value_3}, &forced)) {
        return forced;
    }
    if (!known_triple(setting_id)) return ESV_ZEL_JOB_PARAM_ERROR;
    return edit_set(current_id, [&](Device&, Set& s) {
        s.work.triples[setting_id] = {value_1, value_2, value_3};
        return long{ESV_ZEL_JOB_OK};
    });
}

long esv_zel_job_facade::esv_zel_job_basic_func_set_value(ESV_ZEL_JOB_FUNC_TYPE func_type, ESV_ZEL_JOB_SETTING data_id,
                                                          unsigned int val) {
    long forced;
    if (intercept("esv_zel_job_basic_func_set_value", {arg(func_type), arg(data_id), arg(val)},
                  {&func_type, &data_id, &val}, &forced)) {
        return forced;
    }
    if (func_type < ESV_ZEL_JOB_FUNC_TYPE_COPY || func_type > ESV_ZEL_JOB_FUNC_TYPE_PRINT || !known_num(data_id)) {
        return ESV_ZEL_JOB_PARAM_ERROR;
    }
    Device& d = device();
    std::lock_guard<std::mutex> lock(d.mutex);
    d.basic[func_type][data_id] = val;  // sets generated for this function from now on start so
    return ESV_ZEL_JOB_OK;
}

long esv_zel_job_facade::esv_zel_job_get_default_jobinfo_val(ESV_ZEL_JOB_SETTING jobinfo_key, unsigned int& value) {
    long forced;
    if (intercept("esv_zel_job_get_default_jobinfo_val", {arg(jobinfo_key), arg(value)}, {&jobinfo_key, &value}, &forced)) {
        return forced;
    }
    if (!known_num(jobinfo_key)) return ESV_ZEL_JOB_PARAM_ERROR;
    value = factory_nums().at(jobinfo_key);
    return ESV_ZEL_JOB_OK;
}

long esv_zel_job_facade::esv_zel_job_commit_jobinfo(unsigned int current_id) {
    long forced;
    if (intercept("esv_zel_job_commit_jobinfo", {arg(current_id)}, {&current_id}, &forced)) return forced;
    return edit_set(current_id, [](Device&, Set& s) {
        s.committed = s.work;
        s.committed_once = true;
        return long{ESV_ZEL_JOB_OK};
    });
}

long esv_zel_job_facade::esv_zel_job_rollback_jobinfo(unsigned int current_id) {
    long forced;
    if (intercept("esv_zel_job_rollback_jobinfo", {arg(current_id)}, {&current_id}, &forced)) return forced;
    return edit_set(current_id, [](Device&, Set& s) {
        s.work = s.committed;
        return long{ESV_ZEL_JOB_OK};
    });
}

long esv_zel_job_facade::esv_zel_job_copy_jobinfo(unsigned int current_id) {
    long forced;
    if (intercept("esv_zel_job_copy_jobinfo", {arg(current_id)}, {&current_id}, &forced)) return forced;
    Device& d = device();
    std::lock_guard<std::mutex> lock(d.mutex);
    auto it = d.sets.find(current_id);
    if (it == d.sets.end()) return ESV_ZEL_JOB_PARAM_ERROR;
    // Only a committed set without pending edits can be duplicated; the copy takes the next id.
    if (!it->second.committed_once) return ESV_ZEL_JOB_RET_NOT_COPY_JOBINFO;
    if (d.sets.size() >= kMaxSets) return ESV_ZEL_JOB_COPY_JOBINFO_LIMIT_OVER;
    Set copy = it->second;
    copy.work = copy.committed;
    d.sets[d.next_set++] = copy;
    return ESV_ZEL_JOB_OK;
}

long esv_zel_job_facade::esv_zel_job_delete_jobinfo(unsigned int current_id) {
    long forced;
    if (intercept("esv_zel_job_delete_jobinfo", {arg(current_id)}, {&current_id}, &forced)) return forced;
    Device& d = device();
    std::lock_guard<std::mutex> lock(d.mutex);
    return d.sets.erase(current_id) ? ESV_ZEL_JOB_OK : ESV_ZEL_JOB_PARAM_ERROR;
}

long esv_zel_job_facade::esv_zel_job_reset_jobinfo(unsigned int current_id) {
    long forced;
    if (intercept("esv_zel_job_reset_jobinfo", {arg(current_id)}, {&current_id}, &forced)) return forced;
    return edit_set(current_id, [](Device& d, Set& s) {
        s.work = defaults_for(d, s.category);
        return long{ESV_ZEL_JOB_OK};
    });
}

long esv_zel_job_facade::esv_zel_job_set_state_of_prohibition(ESV_ZEL_STATE_OF_PROHIBITION state) {
    long forced;
    if (intercept("esv_zel_job_set_state_of_prohibition", {arg(state)}, {&state}, &forced)) return forced;
    if (state != ESV_ZEL_STATE_OF_PROHIBITION_RELEASE && state != ESV_ZEL_STATE_OF_PROHIBITION_SET) {
        return ESV_ZEL_JOB_PARAM_ERROR;
    }
    std::vector<unsigned int> ids;
    {
        Device& d = device();
        std::lock_guard<std::mutex> lock(d.mutex);
        const bool on = state == ESV_ZEL_STATE_OF_PROHIBITION_SET;
        if (d.prohibited != on) {
            for (auto& [id, s] : d.sets) ids.push_back(id);
        }
        d.prohibited = on;
    }
    for (unsigned int id : ids) tovr_sim::raise_start_phb(id);
    return ESV_ZEL_JOB_OK;
}

long esv_zel_job_facade::esv_zel_job_check_state_of_prohibition() {
    long forced;
    if (intercept("esv_zel_job_check_state_of_prohibition", {}, {}, &forced)) return forced;
    Device& d = device();
    std::lock_guard<std::mutex> lock(d.mutex);
    return d.prohibited ? ESV_ZEL_JOB_START_PROHIBITION : ESV_ZEL_JOB_OK;
}

long esv_zel_job_facade::esv_zel_job_get_start_phb(unsigned int current_id, int& result) {
    long forced;
    if (intercept("esv_zel_job_get_start_phb", {arg(current_id), arg(result)}, {&current_id, &result}, &forced)) {
        return forced;
    }
    Device& d = device();
    std::lock_guard<std::mutex> lock(d.mutex);
    auto it = d.sets.find(current_id);
    if (it == d.sets.end()) return ESV_ZEL_JOB_PARAM_ERROR;
    result = start_phb_of(d, it->second);
    return ESV_ZEL_JOB_OK;
}

long esv_zel_job_facade::esv_zel_job_get_disable_info(unsigned int current_id, ESV_ZEL_PHB_DISABLE_ITEM setting_id,
                                                      unsigned short& val) {
    long forced;
    if (intercept("esv_zel_job_get_disable_info", {arg(current_id), arg(setting_id), arg(val)},
                  {&current_id, &setting_id, &val}, &forced)) {
        return forced;
    }
    Device& d = device();
    std::lock_guard<std::mutex> lock(d.mutex);
    auto it = d.sets.find(current_id);
    if (it == d.sets.end() || !known_item(setting_id)) return ESV_ZEL_JOB_PARAM_ERROR;
    val = disable_mask(it->second.work, setting_id);
    return ESV_ZEL_JOB_OK;
}

long esv_zel_job_facade::esv_zel_job_get_main_message(unsigned int current_id, ESV_ZEL_PHB_GET_MESSAGE& message) {
    long forced;
    if (intercept("esv_zel_job_get_main_message", {arg(current_id)}, {&current_id, &message}, &forced)) return forced;
    Device& d = device();
    std::lock_guard<std::mutex> lock(d.mutex);
    auto it = d.sets.find(current_id);
    if (it == d.sets.end()) return ESV_ZEL_JOB_PARAM_ERROR;
    const Set& s = it->second;
    ESV_ZEL_PHB_GET_MESSAGE m{};
    m.main_msg_1 = start_phb_of(d, s);  // 0 ready, 1 add a destination, 2 starts prohibited
    m.main_msg_2 = static_cast<int>(s.work.addresses.size());
    m.main_msg_3 = s.category;
    m.msg_detail_info[0] = static_cast<int>(num_of(s.work, ESV_ZEL_JOB_SETTING_COPIES));
    m.msg_detail_info[1] = static_cast<int>(num_of(s.work, ESV_ZEL_JOB_SETTING_COLOR_MODE));
    m.msg_detail_info[2] = static_cast<int>(num_of(s.work, ESV_ZEL_JOB_SETTING_DUPLEX));
    m.msg_detail_info[3] = static_cast<int>(num_of(s.work, ESV_ZEL_JOB_SETTING_RESOLUTION));
    copy_text(m.msg_detail_filename, sizeof m.msg_detail_filename, text_of(s.work, ESV_ZEL_JOB_SETTING_FILE_NAME));
    message = m;
    return ESV_ZEL_JOB_OK;
}

namespace {

// An address the device accepts for a set of `category`.
bool address_fits(const ESV_ZEL_JOB_SEND_INFO& info, ESV_ZEL_JOB_PHB_CATEGORY category) {
    switch (info.address_type) {
        case ESV_ZEL_JOB_ADDRESS_TYPE_MAIL:
            return category == ESV_ZEL_JOB_PHB_CATEGORY_SEND &&
                   ::strnlen(info.detail.mail_info.mail_address, sizeof info.detail.mail_info.mail_address) > 0;
        case ESV_ZEL_JOB_ADDRESS_TYPE_FTP:
            return category == ESV_ZEL_JOB_PHB_CATEGORY_SEND &&
                   ::strnlen(info.detail.ftp_info.host_name, sizeof info.detail.ftp_info.host_name) > 0;
        case ESV_ZEL_JOB_ADDRESS_TYPE_SMB:
            return category == ESV_ZEL_JOB_PHB_CATEGORY_SEND &&
                   ::strnlen(info.detail.smb_info.host_name, sizeof info.detail.smb_info.host_name) > 0;
        case ESV_ZEL_JOB_ADDRESS_TYPE_FAX:
            return category == ESV_ZEL_JOB_PHB_CATEGORY_FAX &&
                   ::strnlen(info.detail.fax_info.fax_number, sizeof info.detail.fax_info.fax_number) > 0;
        default:
            return false;
    }
}

}  // namespace

long esv_zel_job_facade::esv_zel_job_add_address(unsigned int current_id, unsigned int& address_id,
                                                 const ESV_ZEL_JOB_SEND_INFO& info) {
    long forced;
    if (intercept("esv_zel_job_add_address", {arg(current_id), arg(address_id), arg(info.address_type)},
                  {&current_id, &address_id, const_cast<ESV_ZEL_JOB_SEND_INFO*>(&info)}, &forced)) {
        return forced;
    }
    return edit_set(current_id, [&](Device&, Set& s) {
        if (!address_fits(info, s.category)) return long{ESV_ZEL_JOB_PARAM_ERROR};
        if (s.work.addresses.size() >= ESV_ZEL_JOB_ADDRESS_LIST_NUM) return long{ESV_ZEL_JOB_LIMIT};
        address_id = s.work.next_address_id++;
        s.work.addresses[address_id] = info;
        return long{ESV_ZEL_JOB_OK};
    });
}

long esv_zel_job_facade::esv_zel_job_update_address(unsigned int current_id, unsigned int address_id,
                                                    const ESV_ZEL_JOB_SEND_INFO& info) {
    long forced;
    if (intercept("esv_zel_job_update_address", {arg(current_id), arg(address_id), arg(info.address_type)},
                  {&current_id, &address_id, const_cast<ESV_ZEL_JOB_SEND_INFO*>(&info)}, &forced)) {
        return forced;
    }
    return edit_set(current_id, [&](Device&, Set& s) {
        auto it = s.work.addresses.find(address_id);
        if (it == s.work.addresses.end() || !address_fits(info, s.category)) return long{ESV_ZEL_JOB_PARAM_ERROR};
        it->second = info;
        return long{ESV_ZEL_JOB_OK};
    });
}

long esv_zel_job_facade::esv_zel_job_delete_address(unsigned int current_id, unsigned int address_id) {
    long forced;
    if (intercept("esv_zel_job_delete_address", {arg(current_id), arg(address_id)}, {&current_id, &address_id}, &forced)) {
        return forced;
    }
    return edit_set(current_id, [&](Device&, Set& s) {
        return s.work.addresses.erase(address_id) ? long{ESV_ZEL_JOB_OK} : long{ESV_ZEL_JOB_PARAM_ERROR};
    });
}

long esv_zel_job_facade::esv_zel_job_delete_all_address(unsigned int current_id) {
    long forced;
    if (intercept("esv_zel_job_delete_all_address", {arg(current_id)}, {&current_id}, &forced)) return forced;
    return edit_set(current_id, [&](Device&, Set& s) {
        s.work.addresses.clear();
        return long{ESV_ZEL_JOB_OK};
    });
}

long esv_zel_job_facade::esv_zel_job_get_address(unsigned int current_id, unsigned int address_id,
                                                 ESV_ZEL_JOB_SEND_INFO& info) {
    long forced;
    if (intercept("esv_zel_job_get_address", {arg(current_id), arg(address_id)}, {&current_id, &address_id, &info},
                  &forced)) {
        return forced;
    }
    Device& d = device();
    std::lock_guard<std::mutex> lock(d.mutex);
    auto it = d.sets.find(current_id);
    if (it == d.sets.end()) return ESV_ZEL_JOB_PARAM_ERROR;
    auto a = it->second.work.addresses.find(address_id);
    if (a == it->second.work.addresses.end()) return ESV_ZEL_JOB_PARAM_ERROR;
    info = a->second;
    return ESV_ZEL_JOB_OK;
}

long esv_zel_job_facade::esv_zel_job_get_address_id(unsigned int current_id, unsigned int& count,
                                                    std::vector<unsigned int>& ids) {
    long forced;
    if (intercept("esv_zel_job_get_address_id", {arg(current_id), arg(count), arg(ids.size())},
                  {&current_id, &count, &ids}, &forced)) {
        return forced;
    }
    Device& d = device();
    std::lock_guard<std::mutex> lock(d.mutex);
    auto it = d.sets.find(current_id);
    if (it == d.sets.end()) return ESV_ZEL_JOB_PARAM_ERROR;
    ids.clear();
    for (auto& [id, a] : it->second.work.addresses) ids.push_back(id);
    count = static_cast<unsigned int>(ids.size());
    return ESV_ZEL_JOB_OK;
}

long esv_zel_job_facade::esv_zel_job_box_job_prepare(unsigned int current_id, ESV_ZEL_BOX_JOB_INIT_SETTING& setting) {
    long forced;
    if (intercept("esv_zel_job_box_job_prepare", {arg(current_id), arg(setting.box_job_type), arg(setting.box_id)},
                  {&current_id, &setting}, &forced)) {
        return forced;
    }
    return edit_set(current_id, [&](Device&, Set& s) {
        if (s.category != ESV_ZEL_JOB_PHB_CATEGORY_BOX) return long{ESV_ZEL_JOB_NO_CATEGORY};
        s.work.box = setting;
        return long{ESV_ZEL_JOB_OK};
    });
}

long esv_zel_job_facade::esv_zel_job_direct_print_prepare(unsigned int current_id, char* file_path, char* file_name) {
    long forced;
    if (intercept("esv_zel_job_direct_print_prepare", {arg(current_id), arg(file_path), arg(file_name)},
                  {&current_id, file_path, file_name}, &forced)) {
        return forced;
    }
    if (!file_path || !file_name) return ESV_ZEL_JOB_PARAM_ERROR;
    return edit_set(current_id, [&](Device&, Set& s) {
        if (s.category != ESV_ZEL_JOB_PHB_CATEGORY_PRINT) return long{ESV_ZEL_JOB_NO_CATEGORY};
        s.work.print_path = file_path;
        s.work.print_name = file_name;
        return long{ESV_ZEL_JOB_OK};
    });
}

long esv_zel_job_facade::esv_zel_job_retrieve_document_prepare(unsigned int current_id, char* text, unsigned long box_id,
                                                               unsigned long doc_id, char* store_path) {
    long forced;
    if (intercept("esv_zel_job_retrieve_document_prepare",
                  {arg(current_id), arg(text), arg(box_id), arg(doc_id), arg(store_path)},
                  {&current_id, text, &box_id, &doc_id, store_path}, &forced)) {
        return forced;
    }
    if (!store_path) return ESV_ZEL_JOB_PARAM_ERROR;
    return edit_set(current_id, [&](Device&, Set& s) {
        if (s.category != ESV_ZEL_JOB_PHB_CATEGORY_BOX) return long{ESV_ZEL_JOB_NO_CATEGORY};
        s.work.box_id = box_id;
        s.work.doc_id = doc_id;
        s.work.store_path = store_path;
        return long{ESV_ZEL_JOB_OK};
    });
}

long esv_zel_job_facade::esv_zel_job_combine_document(unsigned int current_id, ESV_ZEL_PHB_COMBINE_DOC_INFO& info) {
    long forced;
    if (intercept("esv_zel_job_combine_document", {arg(current_id), arg(info.box_id)}, {&current_id, &info}, &forced)) {
        return forced;
    }
    return edit_set(current_id, [&](Device&, Set& s) {
        if (s.category != ESV_ZEL_JOB_PHB_CATEGORY_BOX) return long{ESV_ZEL_JOB_NO_CATEGORY};
        s.work.combine = info;
        return long{ESV_ZEL_JOB_OK};
    });
}

long esv_zel_job_facade::esv_zel_job_start(ESV_ZEL_JOB_CATEGORY type, unsigned int current_id, unsigned int& user_job_id) {
    long forced;
    if (intercept("esv_zel_job_start", {arg(type), arg(current_id), arg(user_job_id)}, {&type, &current_id, &user_job_id},
                  &forced)) {
        return forced;
    }
    Device& d = device();
    std::lock_guard<std::mutex> lock(d.mutex);
    auto it = d.sets.find(current_id);
    if (it == d.sets.end() || !it->second.committed_once) return ESV_ZEL_JOB_PARAM_ERROR;
    const Set& s = it->second;
    if (!category_fits(type, s.category)) return ESV_ZEL_JOB_NO_CATEGORY;
    if (d.prohibited) return ESV_ZEL_JOB_START_PROHIBITION;
    if ((type == ESV_ZEL_JOB_CATEGORY_SCAN_SEND || type == ESV_ZEL_JOB_CATEGORY_FAX_SEND) && s.committed.addresses.empty()) {
        return ESV_ZEL_JOB_START_PROHIBITION;
    }
    if (scans(type) && num_of(s.committed, ESV_ZEL_JOB_SETTING_ORIGINAL_SIZE) == kOriginalSizeUndefined) {
        return ESV_ZEL_JOB_ORG_SIZE_UNDEFINED;
    }
    unsigned int active = 0;
    for (auto& [id, job] : d.jobs) active += job->phase != Phase::done;
    if (active >= kMaxActiveJobs) return ESV_ZEL_JOB_LIMIT;
    auto job = std::make_shared<Job>();
    job->id = d.next_job++;
    job->type = type;
    job->set_category = s.category;
    job->set_id = current_id;
    job->values = s.committed;
    job->received_time = static_cast<uint32_t>(std::time(nullptr));
    d.jobs[job->id] = job;
    user_job_id = job->id;
    return ESV_ZEL_JOB_OK;
}

long esv_zel_job_facade::esv_zel_job_kick(unsigned int user_job_id) {
    long forced;
    if (intercept("esv_zel_job_kick", {arg(user_job_id)}, {&user_job_id}, &forced)) return forced;
    Device& d = device();
    std::lock_guard<std::mutex> lock(d.mutex);
    auto it = d.jobs.find(user_job_id);
    if (it == d.jobs.end()) return ESV_ZEL_NO_HIT_JOB;
    std::shared_ptr<Job> job = it->second;
    if (job->phase != Phase::created) return ESV_ZEL_JOB_PARAM_ERROR;
    if (d.prohibited) return ESV_ZEL_JOB_OUTPUT_PROHIBITING;
    job->phase = Phase::running;
    job->start_time = static_cast<uint32_t>(std::time(nullptr));
    if (d.faults > 0) {
        --d.faults;
        job->fault = true;
        job->fault_code = d.fault_code;
    }
    std::thread(run_job, job).detach();
    return ESV_ZEL_JOB_OK;
}

long esv_zel_job_facade::esv_zel_job_continuous_read(unsigned int user_job_id) {
    long forced;
    if (intercept("esv_zel_job_continuous_read", {arg(user_job_id)}, {&user_job_id}, &forced)) return forced;
    Device& d = device();
    std::lock_guard<std::mutex> lock(d.mutex);
    auto it = d.jobs.find(user_job_id);
    if (it == d.jobs.end()) return ESV_ZEL_NO_HIT_JOB;
    if (!scans(it->second->type) || it->second->phase == Phase::done) return ESV_ZEL_JOB_PARAM_ERROR;
    it->second->continuous = true;
    return ESV_ZEL_JOB_OK;
}

long esv_zel_job_facade::esv_zel_job_continuous_read_end(unsigned int user_job_id) {
    long forced;
    if (intercept("esv_zel_job_continuous_read_end", {arg(user_job_id)}, {&user_job_id}, &forced)) return forced;
    Device& d = device();
    std::lock_guard<std::mutex> lock(d.mutex);
    auto it = d.jobs.find(user_job_id);
    if (it == d.jobs.end()) return ESV_ZEL_NO_HIT_JOB;
    if (!it->second->continuous) return ESV_ZEL_JOB_PARAM_ERROR;
    it->second->continuous = false;
    d.changed.notify_all();
    return ESV_ZEL_JOB_OK;
}

long esv_zel_job_facade::esv_zel_job_get_job_list(ESV_ZEL_JOB_KIND kind, std::vector<unsigned int>& list) {
    long forced;
    if (intercept("esv_zel_job_get_job_list", {arg(kind), arg(list.size())}, {&kind, &list}, &forced)) return forced;
    if (kind < ESV_ZEL_JOB_KIND_ALL || kind > ESV_ZEL_JOB_KIND_FINISHED) return ESV_ZEL_JOB_PARAM_ERROR;
    Device& d = device();
    std::lock_guard<std::mutex> lock(d.mutex);
    list.clear();
    for (auto& [id, job] : d.jobs) {
        const bool take = kind == ESV_ZEL_JOB_KIND_ALL ||
                          (kind == ESV_ZEL_JOB_KIND_ACTIVE && job->phase != Phase::done) ||
                          (kind == ESV_ZEL_JOB_KIND_RUNNING && job->phase == Phase::running) ||
                          (kind == ESV_ZEL_JOB_KIND_FINISHED && job->phase == Phase::done);
        if (take) list.push_back(id);
    }
    return ESV_ZEL_JOB_OK;
}

long esv_zel_job_facade::esv_zel_job_cancel(unsigned int user_job_id, unsigned long cert_id) {
    long forced;
    if (intercept("esv_zel_job_cancel", {arg(user_job_id), arg(cert_id)}, {&user_job_id, &cert_id}, &forced)) {
        return forced;
    }
    std::shared_ptr<Job> not_started;
    {
        Device& d = device();
        std::lock_guard<std::mutex> lock(d.mutex);
        auto it = d.jobs.find(user_job_id);
        if (it == d.jobs.end()) return ESV_ZEL_NO_HIT_JOB;
        std::shared_ptr<Job> job = it->second;
        switch (job->phase) {
            case Phase::done:  // a finished job leaves the queue
                d.jobs.erase(it);
                return ESV_ZEL_JOB_OK;
            case Phase::running:
                job->cancel = true;
                d.changed.notify_all();
                return ESV_ZEL_JOB_OK;
            case Phase::created:
                job->cancel = true;
                job->phase = Phase::running;
                not_started = job;
                break;
        }
    }
    // A job that never ran ends at once, on a device thread like any other.
    std::thread([not_started] { finish(not_started, ESV_ZEL_EVENT_JOB_RESULT_CANCEL, 0); }).detach();
    return ESV_ZEL_JOB_OK;
}

long esv_zel_job_facade::esv_zel_job_get_scan_data(unsigned int user_job_id, ESV_ZEL_JOB_GET_SCAN_DATA& data) {
    long forced;
    if (intercept("esv_zel_job_get_scan_data", {arg(user_job_id)}, {&user_job_id, &data}, &forced)) return forced;
    Device& d = device();
    std::lock_guard<std::mutex> lock(d.mutex);
    auto it = d.jobs.find(user_job_id);
    if (it == d.jobs.end()) return ESV_ZEL_NO_HIT_JOB;
    Job& j = *it->second;
    if (!scans(j.type)) return ESV_ZEL_JOB_PARAM_ERROR;
    std::memset(data.scan_data, 0, sizeof data.scan_data);
    const std::size_t piece = std::min<std::size_t>(sizeof data.scan_data, j.scan.size() - j.read_pos);
    std::memcpy(data.scan_data, j.scan.data() + j.read_pos, piece);
    j.read_pos += piece;
    data.data_size = static_cast<uint32_t>(piece);
    // 1: this was the last piece of a finished scan; 0: more follows (or is still being scanned).
    data.doc_state = (j.scan_done && j.read_pos == j.scan.size()) ? 1 : 0;
    return ESV_ZEL_JOB_OK;
}

}  // namespace tarnwick
