// Simulated job service, the control interface of tests: raising the job facade's
// notifications, pace, faults and holds of the device thread, waiting for jobs, and what the
// device did.
#include <chrono>

#include "sim_job_internal.h"

using tarnwick::esv_zel_job_observer;

namespace tovr_sim {

using namespace jobsim;

Answers raise_job_state_changed(const ESV_ZEL_JOB_STATE& state) {
    return job_facade().raise([state](esv_zel_job_observer* o) { return static_cast<unsigned long>(o->notify_job_state_changed(state)); });
}
Answers raise_scan_count(unsigned int count_1, unsigned int count_2) {
    return job_facade().raise([=](esv_zel_job_observer* o) { return static_cast<unsigned long>(o->notify_scan_count(count_1, count_2)); });
}
Answers raise_start_phb(unsigned int current_id) {
    return job_facade().raise([=](esv_zel_job_observer* o) { return static_cast<unsigned long>(o->notify_start_phb(current_id)); });
}
Answers raise_disable_info(unsigned int current_id) {
    return job_facade().raise([=](esv_zel_job_observer* o) { return static_cast<unsigned long>(o->notify_disable_info(current_id)); });
}
Answers raise_main_message(unsigned int current_id) {
    return job_facade().raise([=](esv_zel_job_observer* o) { return static_cast<unsigned long>(o->notify_main_message(current_id)); });
}
Answers raise_phb_info(unsigned int current_id, const ESV_ZEL_PHB_INFO& info) {
    return job_facade().raise([=](esv_zel_job_observer* o) {
        ESV_ZEL_PHB_INFO copy = info;
        return static_cast<unsigned long>(o->notify_phb_info(current_id, copy));
    });
}
Answers raise_message_info(unsigned int current_id, const ESV_ZEL_PHB_GET_MESSAGE& message) {
    return job_facade().raise([=](esv_zel_job_observer* o) {
        ESV_ZEL_PHB_GET_MESSAGE copy = message;
        return static_cast<unsigned long>(o->notify_message_info(current_id, copy));
    });
}

Answers job_raise(JobNotification fn) { return job_facade().raise(std::move(fn)); }

Answers job_deliver_here(JobNotification fn) { return job_facade().observers().deliver(fn); }
std::future<Answers> job_post(JobNotification fn) { return job_facade().post(std::move(fn)); }

std::size_t job_observer_count() { return job_facade().observers().size(); }
bool job_observer_registered(esv_zel_job_observer* observer) {
    return job_facade().observers().contains(observer);
}

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
    JobCall c(user_job_id);
    return c.job ? c.job->scan : std::vector<unsigned char>();
}

unsigned int receipt_of(unsigned int user_job_id) {
    JobCall c(user_job_id);
    return c.job ? c.job->receipt : 0;
}

std::vector<Raised> raised() {
    Device& d = device();
    std::lock_guard<std::mutex> lock(d.mutex);
    return d.raised;
}

}  // namespace tovr_sim
