// Simulated job facade: its instance and observers, and the job-information sets with real
// state (the settings model); addresses and documents are in sim_job_sends.cpp, jobs in
// sim_job_jobs.cpp.
#include <algorithm>
#include <cstring>
#include <ctime>

#include "esv_zel_job_facade.h"
#include "sim_job_internal.h"

namespace tovr_sim {

JobFacade& job_facade() { return JobFacade::instance("job"); }

namespace jobsim {

Device& device() { return lasting<Device>(); }

}  // namespace jobsim
}  // namespace tovr_sim

namespace tarnwick {

using namespace tovr_sim::jobsim;

esv_zel_job_facade::esv_zel_job_facade() {}

TOVR_SIM_FACADE_INSTANCE(job)

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
    if (!known_num(data_id)) return ESV_ZEL_JOB_PARAM_ERROR;
    return use_set(current_id, [&](Device&, Set& s) {
        val = s.work.nums[data_id];
        return long{ESV_ZEL_JOB_OK};
    });
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
    if (!known_text(data_id)) return ESV_ZEL_JOB_PARAM_ERROR;
    return use_set(current_id, [&](Device&, Set& s) {
        val = s.work.texts[data_id];
        return long{ESV_ZEL_JOB_OK};
    });
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
    if (!known_triple(setting_id)) return ESV_ZEL_JOB_PARAM_ERROR;
    return use_set(current_id, [&](Device&, Set& s) {
        const auto& t = s.work.triples[setting_id];
        value_1 = t[0];
        value_2 = t[1];
        value_3 = t[2];
        return long{ESV_ZEL_JOB_OK};
    });
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
    return use_set(current_id, [](Device& d, Set& s) {
        // Only a committed set without pending edits can be duplicated; the copy takes the next id.
        if (!s.committed_once) return long{ESV_ZEL_JOB_RET_NOT_COPY_JOBINFO};
        if (d.sets.size() >= kMaxSets) return long{ESV_ZEL_JOB_COPY_JOBINFO_LIMIT_OVER};
        Set copy = s;
        copy.work = copy.committed;
        d.sets[d.next_set++] = copy;
        return long{ESV_ZEL_JOB_OK};
    });
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
    return use_set(current_id, [&](Device& d, Set& s) {
        result = start_phb_of(d.prohibited, s);
        return long{ESV_ZEL_JOB_OK};
    });
}

long esv_zel_job_facade::esv_zel_job_get_disable_info(unsigned int current_id, ESV_ZEL_PHB_DISABLE_ITEM setting_id,
                                                      unsigned short& val) {
    TOVR_SIM_RECORD(long, current_id, setting_id, val);
    if (!known_item(setting_id)) return ESV_ZEL_JOB_PARAM_ERROR;
    return use_set(current_id, [&](Device&, Set& s) {
        val = disable_mask(s.work, setting_id);
        return long{ESV_ZEL_JOB_OK};
    });
}

long esv_zel_job_facade::esv_zel_job_get_main_message(unsigned int current_id, ESV_ZEL_PHB_GET_MESSAGE& message) {
    TOVR_SIM_RECORD(long, current_id, tovr_sim::unrecorded(message));
    return use_set(current_id, [&](Device& d, const Set& s) {
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
        return long{ESV_ZEL_JOB_OK};
    });
}

}  // namespace tarnwick
