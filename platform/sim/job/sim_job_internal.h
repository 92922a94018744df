// Shared state of the simulated job and job-information facades (device side only).
//
// The job service is split by concern: the settings model (sim_job_settings.cpp), the device's
// job runner (sim_job_runner.cpp), the job facade (sim_job.cpp: sets; sim_job_sends.cpp:
// addresses and documents; sim_job_jobs.cpp: jobs), the job-information facade
// (sim_jobinfo.cpp) and the control interface of tests (sim_job_control.cpp, notification
// records from their fields in sim_job_events.cpp).
#ifndef TOVR_SIM_JOB_INTERNAL_H
#define TOVR_SIM_JOB_INTERNAL_H

#include <array>
#include <condition_variable>
#include <cstdint>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "esv_zel_job_types.h"
#include "esv_zel_jobinfo_types.h"
#include "tovr_sim_job.h"

namespace tovr_sim {
namespace jobsim {

// ---------------------------------------------------------------------------------------------
// The settings model: job-information sets.

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

// Factory values of the numeric settings.
const std::map<int, unsigned int>& factory_nums();
bool known_num(int key);
bool known_text(int key);
bool known_triple(int key);
bool known_category(int category);
bool known_item(int item);
// The values a new (or reset) set of `category` starts from: factory values overridden by the
// basic function settings `basic` (setting -> value).
Values defaults_for(const std::map<int, unsigned int>& basic, ESV_ZEL_JOB_PHB_CATEGORY category);
// Start prohibition of a set: 0 free, 1 no destination yet, 2 the device prohibits starts.
int start_phb_of(bool prohibited, const Set& s);
// 16-bit mask of the values of `item` that the other settings rule out.
unsigned short disable_mask(const Values& v, int item);
std::array<unsigned short, 5> all_masks(const Values& v);
// An address the device accepts for a set of `category`.
bool address_fits(const ESV_ZEL_JOB_SEND_INFO& info, ESV_ZEL_JOB_PHB_CATEGORY category);
unsigned int num_of(const Values& v, int key);
std::string text_of(const Values& v, int key);
// Zero-fills `to` and copies at most size - 1 bytes of `from`.
void copy_text(char* to, std::size_t size, const std::string& from);

// What a job of `type` does, and which sets it may be made from.
bool category_fits(ESV_ZEL_JOB_CATEGORY type, ESV_ZEL_JOB_PHB_CATEGORY set);
bool scans(ESV_ZEL_JOB_CATEGORY type);
bool prints(ESV_ZEL_JOB_CATEGORY type);
ESV_ZEL_JOBINFO_JOBLOG_TYPE_VAL log_type_of(ESV_ZEL_JOB_CATEGORY type);

// ---------------------------------------------------------------------------------------------
// Jobs and the device.

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
Device& device();

// The device locked for one call on a job: `job` is that job, or null when there is none such.
struct JobCall {
    explicit JobCall(unsigned int user_job_id) : d(device()), lock(d.mutex) {
        auto it = d.jobs.find(user_job_id);
        if (it != d.jobs.end()) job = it->second;
    }
    Device& d;
    std::lock_guard<std::mutex> lock;
    std::shared_ptr<Job> job;
};

// ---------------------------------------------------------------------------------------------
// Edits of a set by the facade's members.

// Notifications that a change of a set may call for; raised after the device lock is dropped.
struct SetChange {
    unsigned int id = 0;
    bool start_phb = false;
    bool disable = false;
    bool message = false;
    void raise() const {
        if (start_phb) raise_start_phb(id);
        if (disable) raise_disable_info(id);
        if (message) raise_main_message(id);
    }
};

// Runs `use` on set `id` under the device lock and answers what it answers; PARAM_ERROR when
// there is no such set. Members that read a set use it directly.
template <typename Use>
inline long use_set(unsigned int id, Use use) {
    Device& d = device();
    std::lock_guard<std::mutex> lock(d.mutex);
    auto it = d.sets.find(id);
    if (it == d.sets.end()) return ESV_ZEL_JOB_PARAM_ERROR;
    return use(d, it->second);
}

// Runs `edit` on set `id` under the device lock, noting what the edit changed.
template <typename Edit>
inline long edit_set(unsigned int id, Edit edit) {
    SetChange change;
    const long rc = use_set(id, [&](Device& d, Set& s) {
        const int phb = start_phb_of(d.prohibited, s);
        const auto masks = all_masks(s.work);
        const std::size_t addresses = s.work.addresses.size();
        const long answer = edit(d, s);
        change.id = id;
        change.start_phb = start_phb_of(d.prohibited, s) != phb;
        change.disable = all_masks(s.work) != masks;
        change.message = s.work.addresses.size() != addresses || change.start_phb;
        return answer;
    });
    change.raise();  // after the lock is dropped; nothing when there was no such set
    return rc;
}

// ---------------------------------------------------------------------------------------------
// The device's job runner.

// Runs a kicked job on a device thread of its own.
void start_job_thread(std::shared_ptr<Job> job);
// Ends a job that was cancelled before it ran, on a device thread of its own.
void end_cancelled_job(std::shared_ptr<Job> job);

// ---------------------------------------------------------------------------------------------
// The job log and the walking lists of the job-information facade.

struct LogEntry {
    ESV_ZEL_JOBINFO_JOBLOG log;
    std::vector<ESV_ZEL_JOBINFO_SEND_INFO> sends;
    std::vector<ESV_ZEL_JOBINFO_RECEIVE_INFO> receives;
};

// A walking list (the sends or the receives of one entry): made from an entry, read one record
// a call, deleted. At most one of each kind is open at a time.
template <typename Info>
struct WalkingList {
    bool open = false;
    std::vector<Info> records;
    std::size_t pos = 0;
};

struct JobLog {
    std::mutex mutex;
    std::map<unsigned int, LogEntry> entries;
    unsigned int next_receipt = 5001;
    WalkingList<ESV_ZEL_JOBINFO_SEND_INFO> send_list;
    WalkingList<ESV_ZEL_JOBINFO_RECEIVE_INFO> receive_list;
};
JobLog& joblog();
// Stores an entry under a new receipt id and returns it.
unsigned int store_log(LogEntry entry);
void reset_joblog();

}  // namespace jobsim
}  // namespace tovr_sim

#endif
