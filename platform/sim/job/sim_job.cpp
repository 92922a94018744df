// Simulated job facade: job-information sets with real state (the settings model), and jobs
// that the device's job runner runs when kicked.
#include <algorithm>
#include <cstring>
#include <ctime>

#include "esv_zel_job_facade.h"
#include "sim_job_internal.h"

namespace tovr_sim {

JobFacade& job_facade() {
    static JobFacade* f = new JobFacade("job");  // outlives static destruction
    return *f;
}

namespace jobsim {

Device& device() {
    static Device* d = new Device;  // leaked: device threads may run at exit
    return *d;
}

}  // namespace jobsim
}  // namespace tovr_sim

namespace tarnwick {

using namespace tovr_sim::jobsim;

esv_zel_job_facade::esv_zel_job_facade() {}

esv_zel_job_facade* esv_zel_job_facade::esv_zel_job_get_instance() {
    static esv_zel_job_facade* instance = new esv_zel_job_facade;
    return instance;
}

long esv_zel_job_facade::esv_zel_job_add_observer(esv_zel_job_observer* observer) {
    TOVR_SIM_RECORD(long, observer);
    if (!observer) return ESV_ZEL_JOB_PARAM_ERROR;
    if (tovr_sim::job_facade().observers().contains(observer)) return ESV_ZEL_JOB_DUPL_OBSERVER;
    tovr_sim::job_facade().observers().add(observer);
    return ESV_ZEL_JOB_OK;
}

long esv_zel_job_facade::esv_zel_job_remove_observer(esv_zel_job_observer* observer) {
    TOVR_SIM_RECORD(long, observer);
    return tovr_sim::job_facade().observers().remove(observer) ? ESV_ZEL_JOB_OK : ESV_ZEL_JOB_NO_OBSERVER;
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
        const int phb = start_phb_of(d.prohibited, s);
        const auto masks = all_masks(s.work);
        const std::size_t addresses = s.work.addresses.size();
        rc = edit(d, s);
        change.id = id;
        change.start_phb = start_phb_of(d.prohibited, s) != phb;
        change.disable = all_masks(s.work) != masks;
        change.message = s.work.addresses.size() != addresses || change.start_phb;
    }
    change.raise();
    return rc;
}

}  // namespace

long esv_zel_job_facade::esv_zel_job_generate_jobinfo(ESV_ZEL_JOB_PHB_CATEGORY function, unsigned int& current_id) {
    TOVR_SIM_RECORD(long, function, current_id);
    if (!known_category(function)) return ESV_ZEL_JOB_PARAM_ERROR;
    Device& d = device();
    std::lock_guard<std::mutex> lock(d.mutex);
    if (d.sets.size() >= kMaxSets) return ESV_ZEL_JOB_LIMIT;
    Set s{function, defaults_for(d.basic[function], function), {}, false};
    s.committed = s.work;
    current_id = d.next_set++;
    d.sets[current_id] = s;
    return ESV_ZEL_JOB_OK;
}

long esv_zel_job_facade::esv_zel_job_get_value(unsigned int current_id, ESV_ZEL_JOB_SETTING data_id, unsigned int& val) {
    TOVR_SIM_RECORD(long, current_id, data_id, val);
    Device& d = device();
    std::lock_guard<std::mutex> lock(d.mutex);
    auto it = d.sets.find(current_id);
    if (it == d.sets.end() || !known_num(data_id)) return ESV_ZEL_JOB_PARAM_ERROR;
    val = it->second.work.nums[data_id];
    return ESV_ZEL_JOB_OK;
}

long esv_zel_job_facade::esv_zel_job_set_value(unsigned int current_id, ESV_ZEL_JOB_SETTING data_id, unsigned int val) {
    TOVR_SIM_RECORD(long, current_id, data_id, val);
    if (!known_num(data_id)) return ESV_ZEL_JOB_PARAM_ERROR;
    if (data_id == ESV_ZEL_JOB_SETTING_COPIES && (val < 1 || val > 999)) return ESV_ZEL_JOB_PARAM_ERROR;
    return edit_set(current_id, [&](Device&, Set& s) {
        s.work.nums[data_id] = val;
        return long{ESV_ZEL_JOB_OK};
    });
}

long esv_zel_job_facade::esv_zel_job_get_value(unsigned int current_id, ESV_ZEL_JOB_SETTING data_id, std::string& val) {
    TOVR_SIM_RECORD(long, current_id, data_id, val);
    Device& d = device();
    std::lock_guard<std::mutex> lock(d.mutex);
    auto it = d.sets.find(current_id);
    if (it == d.sets.end() || !known_text(data_id)) return ESV_ZEL_JOB_PARAM_ERROR;
    val = it->second.work.texts[data_id];
    return ESV_ZEL_JOB_OK;
}

long esv_zel_job_facade::esv_zel_job_set_value(unsigned int current_id, ESV_ZEL_JOB_SETTING data_id, std::string val) {
    TOVR_SIM_RECORD(long, current_id, data_id, val);
    if (!known_text(data_id) || val.size() > kMaxText) return ESV_ZEL_JOB_PARAM_ERROR;
    return edit_set(current_id, [&](Device&, Set& s) {
        s.work.texts[data_id] = val;
        return long{ESV_ZEL_JOB_OK};
    });
}

long esv_zel_job_facade::esv_zel_job_get_value(unsigned int current_id, ESV_ZEL_PHB_SETTING_ID setting_id,
                                               unsigned int& value_1, unsigned int& value_2, unsigned int& value_3) {
    TOVR_SIM_RECORD(long, current_id, setting_id, value_1, value_2, value_3);
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
    TOVR_SIM_RECORD(long, current_id, setting_id, value_1, value_2, value_3);
    if (!known_triple(setting_id)) return ESV_ZEL_JOB_PARAM_ERROR;
    return edit_set(current_id, [&](Device&, Set& s) {
        s.work.triples[setting_id] = {value_1, value_2, value_3};
        return long{ESV_ZEL_JOB_OK};
    });
}

long esv_zel_job_facade::esv_zel_job_basic_func_set_value(ESV_ZEL_JOB_FUNC_TYPE func_type, ESV_ZEL_JOB_SETTING data_id,
                                                          unsigned int val) {
    TOVR_SIM_RECORD(long, func_type, data_id, val);
    if (func_type < ESV_ZEL_JOB_FUNC_TYPE_COPY || func_type > ESV_ZEL_JOB_FUNC_TYPE_PRINT || !known_num(data_id)) {
        return ESV_ZEL_JOB_PARAM_ERROR;
    }
    Device& d = device();
    std::lock_guard<std::mutex> lock(d.mutex);
    d.basic[func_type][data_id] = val;  // sets generated for this function from now on start so
    return ESV_ZEL_JOB_OK;
}

long esv_zel_job_facade::esv_zel_job_get_default_jobinfo_val(ESV_ZEL_JOB_SETTING jobinfo_key, unsigned int& value) {
    TOVR_SIM_RECORD(long, jobinfo_key, value);
    if (!known_num(jobinfo_key)) return ESV_ZEL_JOB_PARAM_ERROR;
    value = factory_nums().at(jobinfo_key);
    return ESV_ZEL_JOB_OK;
}

long esv_zel_job_facade::esv_zel_job_commit_jobinfo(unsigned int current_id) {
    TOVR_SIM_RECORD(long, current_id);
    return edit_set(current_id, [](Device&, Set& s) {
        s.committed = s.work;
        s.committed_once = true;
        return long{ESV_ZEL_JOB_OK};
    });
}

long esv_zel_job_facade::esv_zel_job_rollback_jobinfo(unsigned int current_id) {
    TOVR_SIM_RECORD(long, current_id);
    return edit_set(current_id, [](Device&, Set& s) {
        s.work = s.committed;
        return long{ESV_ZEL_JOB_OK};
    });
}

long esv_zel_job_facade::esv_zel_job_copy_jobinfo(unsigned int current_id) {
    TOVR_SIM_RECORD(long, current_id);
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
    TOVR_SIM_RECORD(long, current_id);
    Device& d = device();
    std::lock_guard<std::mutex> lock(d.mutex);
    return d.sets.erase(current_id) ? ESV_ZEL_JOB_OK : ESV_ZEL_JOB_PARAM_ERROR;
}

long esv_zel_job_facade::esv_zel_job_reset_jobinfo(unsigned int current_id) {
    TOVR_SIM_RECORD(long, current_id);
    return edit_set(current_id, [](Device& d, Set& s) {
        s.work = defaults_for(d.basic[s.category], s.category);
        return long{ESV_ZEL_JOB_OK};
    });
}

long esv_zel_job_facade::esv_zel_job_set_state_of_prohibition(ESV_ZEL_STATE_OF_PROHIBITION state) {
    TOVR_SIM_RECORD(long, state);
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
    TOVR_SIM_RECORD(long);
    Device& d = device();
    std::lock_guard<std::mutex> lock(d.mutex);
    return d.prohibited ? ESV_ZEL_JOB_START_PROHIBITION : ESV_ZEL_JOB_OK;
}

long esv_zel_job_facade::esv_zel_job_get_start_phb(unsigned int current_id, int& result) {
    TOVR_SIM_RECORD(long, current_id, result);
    Device& d = device();
    std::lock_guard<std::mutex> lock(d.mutex);
    auto it = d.sets.find(current_id);
    if (it == d.sets.end()) return ESV_ZEL_JOB_PARAM_ERROR;
    result = start_phb_of(d.prohibited, it->second);
    return ESV_ZEL_JOB_OK;
}

long esv_zel_job_facade::esv_zel_job_get_disable_info(unsigned int current_id, ESV_ZEL_PHB_DISABLE_ITEM setting_id,
                                                      unsigned short& val) {
    TOVR_SIM_RECORD(long, current_id, setting_id, val);
    Device& d = device();
    std::lock_guard<std::mutex> lock(d.mutex);
    auto it = d.sets.find(current_id);
    if (it == d.sets.end() || !known_item(setting_id)) return ESV_ZEL_JOB_PARAM_ERROR;
    val = disable_mask(it->second.work, setting_id);
    return ESV_ZEL_JOB_OK;
}

long esv_zel_job_facade::esv_zel_job_get_main_message(unsigned int current_id, ESV_ZEL_PHB_GET_MESSAGE& message) {
    TOVR_SIM_RECORD(long, current_id, tovr_sim::unrecorded(message));
    Device& d = device();
    std::lock_guard<std::mutex> lock(d.mutex);
    auto it = d.sets.find(current_id);
    if (it == d.sets.end()) return ESV_ZEL_JOB_PARAM_ERROR;
    const Set& s = it->second;
    ESV_ZEL_PHB_GET_MESSAGE m{};
    m.main_msg_1 = start_phb_of(d.prohibited, s);  // 0 ready, 1 add a destination, 2 starts prohibited
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

long esv_zel_job_facade::esv_zel_job_add_address(unsigned int current_id, unsigned int& address_id,
                                                 const ESV_ZEL_JOB_SEND_INFO& info) {
    TOVR_SIM_RECORD(long, current_id, address_id, tovr_sim::shown(info, info.address_type));
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
    TOVR_SIM_RECORD(long, current_id, address_id, tovr_sim::shown(info, info.address_type));
    return edit_set(current_id, [&](Device&, Set& s) {
        auto it = s.work.addresses.find(address_id);
        if (it == s.work.addresses.end() || !address_fits(info, s.category)) return long{ESV_ZEL_JOB_PARAM_ERROR};
        it->second = info;
        return long{ESV_ZEL_JOB_OK};
    });
}

long esv_zel_job_facade::esv_zel_job_delete_address(unsigned int current_id, unsigned int address_id) {
    TOVR_SIM_RECORD(long, current_id, address_id);
    return edit_set(current_id, [&](Device&, Set& s) {
        return s.work.addresses.erase(address_id) ? long{ESV_ZEL_JOB_OK} : long{ESV_ZEL_JOB_PARAM_ERROR};
    });
}

long esv_zel_job_facade::esv_zel_job_delete_all_address(unsigned int current_id) {
    TOVR_SIM_RECORD(long, current_id);
    return edit_set(current_id, [&](Device&, Set& s) {
        s.work.addresses.clear();
        return long{ESV_ZEL_JOB_OK};
    });
}

long esv_zel_job_facade::esv_zel_job_get_address(unsigned int current_id, unsigned int address_id,
                                                 ESV_ZEL_JOB_SEND_INFO& info) {
    TOVR_SIM_RECORD(long, current_id, address_id, tovr_sim::unrecorded(info));
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
    TOVR_SIM_RECORD(long, current_id, count, tovr_sim::shown(ids, ids.size()));
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
    TOVR_SIM_RECORD(long, current_id, tovr_sim::shown(setting, setting.box_job_type, setting.box_id));
    return edit_set(current_id, [&](Device&, Set& s) {
        if (s.category != ESV_ZEL_JOB_PHB_CATEGORY_BOX) return long{ESV_ZEL_JOB_NO_CATEGORY};
        s.work.box = setting;
        return long{ESV_ZEL_JOB_OK};
    });
}

long esv_zel_job_facade::esv_zel_job_direct_print_prepare(unsigned int current_id, char* file_path, char* file_name) {
    TOVR_SIM_RECORD(long, current_id, file_path, file_name);
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
    TOVR_SIM_RECORD(long, current_id, text, box_id, doc_id, store_path);
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
    TOVR_SIM_RECORD(long, current_id, tovr_sim::shown(info, info.box_id));
    return edit_set(current_id, [&](Device&, Set& s) {
        if (s.category != ESV_ZEL_JOB_PHB_CATEGORY_BOX) return long{ESV_ZEL_JOB_NO_CATEGORY};
        s.work.combine = info;
        return long{ESV_ZEL_JOB_OK};
    });
}

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
    start_job_thread(job);
    return ESV_ZEL_JOB_OK;
}

long esv_zel_job_facade::esv_zel_job_continuous_read(unsigned int user_job_id) {
    TOVR_SIM_RECORD(long, user_job_id);
    Device& d = device();
    std::lock_guard<std::mutex> lock(d.mutex);
    auto it = d.jobs.find(user_job_id);
    if (it == d.jobs.end()) return ESV_ZEL_NO_HIT_JOB;
    if (!scans(it->second->type) || it->second->phase == Phase::done) return ESV_ZEL_JOB_PARAM_ERROR;
    it->second->continuous = true;
    return ESV_ZEL_JOB_OK;
}

long esv_zel_job_facade::esv_zel_job_continuous_read_end(unsigned int user_job_id) {
    TOVR_SIM_RECORD(long, user_job_id);
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
    end_cancelled_job(not_started);
    return ESV_ZEL_JOB_OK;
}

long esv_zel_job_facade::esv_zel_job_get_scan_data(unsigned int user_job_id, ESV_ZEL_JOB_GET_SCAN_DATA& data) {
    TOVR_SIM_RECORD(long, user_job_id, tovr_sim::unrecorded(data));
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