// Simulated job facade: jobs made from a committed set, started, kicked (the job runner runs
// them), cancelled, and their scan data.
#include <algorithm>
#include <cstring>
#include <ctime>

#include "esv_zel_job_facade.h"
#include "sim_job_internal.h"

namespace tarnwick {

using namespace tovr_sim::jobsim;

long esv_zel_job_facade::esv_zel_job_start(ESV_ZEL_JOB_CATEGORY type, unsigned int current_id, unsigned int& user_job_id) {
    TOVR_SIM_RECORD(long, type, current_id, user_job_id);
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
    TOVR_SIM_RECORD(long, user_job_id);
    JobCall c(user_job_id);
    if (!c.job) return ESV_ZEL_NO_HIT_JOB;
    if (c.job->phase != Phase::created) return ESV_ZEL_JOB_PARAM_ERROR;
    if (c.d.prohibited) return ESV_ZEL_JOB_OUTPUT_PROHIBITING;
    c.job->phase = Phase::running;
    c.job->start_time = static_cast<uint32_t>(std::time(nullptr));
    if (c.d.faults > 0) {
        --c.d.faults;
        c.job->fault = true;
        c.job->fault_code = c.d.fault_code;
    }
    start_job_thread(c.job);
    return ESV_ZEL_JOB_OK;
}

long esv_zel_job_facade::esv_zel_job_continuous_read(unsigned int user_job_id) {
    TOVR_SIM_RECORD(long, user_job_id);
    JobCall c(user_job_id);
    if (!c.job) return ESV_ZEL_NO_HIT_JOB;
    if (!scans(c.job->type) || c.job->phase == Phase::done) return ESV_ZEL_JOB_PARAM_ERROR;
    c.job->continuous = true;
    return ESV_ZEL_JOB_OK;
}

long esv_zel_job_facade::esv_zel_job_continuous_read_end(unsigned int user_job_id) {
    TOVR_SIM_RECORD(long, user_job_id);
    JobCall c(user_job_id);
    if (!c.job) return ESV_ZEL_NO_HIT_JOB;
    if (!c.job->continuous) return ESV_ZEL_JOB_PARAM_ERROR;
    c.job->continuous = false;
    c.d.changed.notify_all();
    return ESV_ZEL_JOB_OK;
}

long esv_zel_job_facade::esv_zel_job_get_job_list(ESV_ZEL_JOB_KIND kind, std::vector<unsigned int>& list) {
    TOVR_SIM_RECORD(long, kind, tovr_sim::shown(list, list.size()));
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
    TOVR_SIM_RECORD(long, user_job_id, cert_id);
    std::shared_ptr<Job> not_started;
    {
        JobCall c(user_job_id);
        if (!c.job) return ESV_ZEL_NO_HIT_JOB;
        switch (c.job->phase) {
            case Phase::done:  // a finished job leaves the queue
                c.d.jobs.erase(user_job_id);
                return ESV_ZEL_JOB_OK;
            case Phase::running:
                c.job->cancel = true;
                c.d.changed.notify_all();
                return ESV_ZEL_JOB_OK;
            case Phase::created:
                c.job->cancel = true;
                c.job->phase = Phase::running;
                not_started = c.job;
                break;
        }
    }
    // A job that never ran ends at once, on a device thread like any other.
    end_cancelled_job(not_started);
    return ESV_ZEL_JOB_OK;
}

long esv_zel_job_facade::esv_zel_job_get_scan_data(unsigned int user_job_id, ESV_ZEL_JOB_GET_SCAN_DATA& data) {
    TOVR_SIM_RECORD(long, user_job_id, tovr_sim::unrecorded(data));
    JobCall c(user_job_id);
    if (!c.job) return ESV_ZEL_NO_HIT_JOB;
    Job& j = *c.job;
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
