// Simulated department facade: device-wide accounting settings and hidden departments with
// their limits, restrictions and per-slot page counters.
#include <algorithm>
#include <array>
#include <cstring>
#include <map>
#include <mutex>

#include "esv_zel_dept_facade.h"
#include "sim_user_internal.h"
#include "tovr_sim_user.h"

using tarnwick::esv_zel_dept_facade;

namespace tovr_sim {

using usersim::get;
using usersim::put;

namespace {

struct Department {
    ESV_ZEL_DEPT_DEPTINFO info;
    std::array<unsigned int, ESV_ZEL_DEPT_SLOT_NUM> counters{};
};

struct Depts {
    std::mutex mutex;
    std::map<std::string, Department> by_id;
    int limit_action = ESV_ZEL_DEPT_LIMIT_ACTION_STOP_JOB;
    int invalid_mode = ESV_ZEL_DEPT_INVALID_DEPT_MODE_PROHIBIT;
    int mix_mode = ESV_ZEL_DEPT_MIX_MODE_SEPARATE;
    int dept_mode = ESV_ZEL_DEPT_DEPT_MODE_OFF;
};

Depts& depts() { return lasting<Depts>(); }



// A record as stored: every text within its field and terminated.
ESV_ZEL_DEPT_DEPTINFO stored(const ESV_ZEL_DEPT_DEPTINFO& in) {
    ESV_ZEL_DEPT_DEPTINFO r;
    std::memcpy(&r, &in, sizeof r);
    put(r.name, get(in.name));
    put(r.note, get(in.note));
    put(r.id, get(in.id));
    return r;
}

// A setting's value, checked against the enumerators 0 .. last.
long set_setting(int& target, int value, int last) {
    if (value < 0 || value > last) return ESV_ZEL_DEPT_PARAM_ERROR;
    Depts& d = depts();
    std::lock_guard<std::mutex> lock(d.mutex);
    target = value;
    return ESV_ZEL_DEPT_OK;
}

int read_setting(const int& source) {
    Depts& d = depts();
    std::lock_guard<std::mutex> lock(d.mutex);
    return source;
}

}  // namespace

// ---------------------------------------------------------------------------------------------
// Control

void reset_depts() {
    Depts& d = depts();
    std::lock_guard<std::mutex> lock(d.mutex);
    d.by_id.clear();
    d.limit_action = ESV_ZEL_DEPT_LIMIT_ACTION_STOP_JOB;
    d.invalid_mode = ESV_ZEL_DEPT_INVALID_DEPT_MODE_PROHIBIT;
    d.mix_mode = ESV_ZEL_DEPT_MIX_MODE_SEPARATE;
    d.dept_mode = ESV_ZEL_DEPT_DEPT_MODE_OFF;
}

bool dept(const std::string& id, ESV_ZEL_DEPT_DEPTINFO* out) {
    Depts& d = depts();
    std::lock_guard<std::mutex> lock(d.mutex);
    auto it = d.by_id.find(id);
    if (it == d.by_id.end()) return false;
    if (out != nullptr) *out = it->second.info;
    return true;
}

std::vector<std::string> dept_ids() {
    Depts& d = depts();
    std::lock_guard<std::mutex> lock(d.mutex);
    std::vector<std::string> ids;
    for (auto& [id, dep] : d.by_id) ids.push_back(id);
    return ids;
}

unsigned int dept_counter(const std::string& id, int slot) {
    Depts& d = depts();
    std::lock_guard<std::mutex> lock(d.mutex);
    auto it = d.by_id.find(id);
    if (it == d.by_id.end() || slot < 0 || slot >= ESV_ZEL_DEPT_SLOT_NUM) return 0;
    return it->second.counters[slot];
}

void dept_count_pages(const std::string& id, bool copy, unsigned int pages) {
    Depts& d = depts();
    std::lock_guard<std::mutex> lock(d.mutex);
    if (d.dept_mode != ESV_ZEL_DEPT_DEPT_MODE_ON) return;
    auto it = d.by_id.find(id);
    if (it == d.by_id.end()) return;
    int slot = d.mix_mode == ESV_ZEL_DEPT_MIX_MODE_MIXED ? 0 : (copy ? 3 : 6);
    it->second.counters[slot] += pages;
}

void dept_page_printed(const std::string& user_name, bool copy) {
    std::string id = department_of_user(user_name);
    if (!id.empty()) dept_count_pages(id, copy, 1);
}

int dept_limit_action() { return read_setting(depts().limit_action); }
int dept_invalid_mode() { return read_setting(depts().invalid_mode); }
int dept_mix_mode() { return read_setting(depts().mix_mode); }
int dept_mode() { return read_setting(depts().dept_mode); }

ESV_ZEL_DEPT_DEPTINFO dept_record(const std::string& id, const std::string& name) {
    ESV_ZEL_DEPT_DEPTINFO d;
    std::memset(&d, 0, sizeof d);
    put(d.id, id);
    put(d.name, name);
    return d;
}

ESV_ZEL_DEPT_DEPTINFO dept_record_full() {
    ESV_ZEL_DEPT_DEPTINFO d;
    std::memset(&d, 0, sizeof d);
    std::memset(d.name, 'N', sizeof d.name);
    std::memset(d.note, 'T', sizeof d.note);
    std::memset(d.id, 'I', sizeof d.id);
    return d;
}

void force_dept_value_output(const std::string& op, long result, int value, int times) {
    force_output(op, result, output_value(0, value), times);  // every setting is int wide
}

void force_dept_record_output(long result, const ESV_ZEL_DEPT_DEPTINFO& record, int times) {
    force_output("esv_zel_dept_retrieve_hide_dept", result, output_record(1, record), times);
}

}  // namespace tovr_sim

// ---------------------------------------------------------------------------------------------
// The facade

using namespace tovr_sim;

esv_zel_dept_facade::esv_zel_dept_facade() {}

TOVR_SIM_FACADE_INSTANCE(dept)

// The four settings' members are alike: the getter reads the setting, the setter checks the value
// against the enumerators 0 .. LAST; each records the call under its own name.
#define TOVR_SIM_DEPT_SETTING(NAME, TYPE, FIELD, LAST)                                            \
    long esv_zel_dept_facade::esv_zel_dept_get_##NAME(TYPE& mode) {                               \
        TOVR_SIM_RECORD(long, mode);                                                              \
        mode = static_cast<TYPE>(read_setting(depts().FIELD));                                    \
        return ESV_ZEL_DEPT_OK;                                                                   \
    }                                                                                             \
    long esv_zel_dept_facade::esv_zel_dept_set_##NAME(TYPE mode) {                                \
        TOVR_SIM_RECORD(long, mode);                                                              \
        return set_setting(depts().FIELD, mode, LAST);                                            \
    }

TOVR_SIM_DEPT_SETTING(limit_action_mode, ESV_ZEL_DEPT_LIMIT_ACTION, limit_action, ESV_ZEL_DEPT_LIMIT_ACTION_WARN_ONLY)
TOVR_SIM_DEPT_SETTING(invalid_dept_mode, ESV_ZEL_DEPT_INVALID_DEPT_MODE, invalid_mode,
                      ESV_ZEL_DEPT_INVALID_DEPT_MODE_PERMIT)
TOVR_SIM_DEPT_SETTING(mix_mode, ESV_ZEL_DEPT_MIX_MODE, mix_mode, ESV_ZEL_DEPT_MIX_MODE_MIXED)
TOVR_SIM_DEPT_SETTING(dept_mode, ESV_ZEL_DEPT_DEPT_MODE, dept_mode, ESV_ZEL_DEPT_DEPT_MODE_ON)

#undef TOVR_SIM_DEPT_SETTING

long esv_zel_dept_facade::esv_zel_dept_add_hide_dept(const ESV_ZEL_DEPT_DEPTINFO& info) {
    TOVR_SIM_RECORD(long, info);
    ESV_ZEL_DEPT_DEPTINFO r = stored(info);
    std::string id = get(r.id);
    if (id.empty()) return ESV_ZEL_DEPT_PARAM_ERROR;
    Depts& d = depts();
    std::lock_guard<std::mutex> lock(d.mutex);
    if (d.by_id.count(id) != 0) return ESV_ZEL_DEPT_DUPL_DEPT_ERROR;
    if (d.by_id.size() >= static_cast<std::size_t>(kMaxDepartments)) return ESV_ZEL_DEPT_FULL_ERROR;
    Department dep;
    dep.info = r;
    d.by_id[id] = dep;
    return ESV_ZEL_DEPT_OK;
}

// The counters stay; everything else of the record is replaced.
long esv_zel_dept_facade::esv_zel_dept_update_hide_dept(const ESV_ZEL_DEPT_DEPTINFO& info) {
    TOVR_SIM_RECORD(long, info);
    ESV_ZEL_DEPT_DEPTINFO r = stored(info);
    Depts& d = depts();
    std::lock_guard<std::mutex> lock(d.mutex);
    auto it = d.by_id.find(get(r.id));
    if (it == d.by_id.end()) return ESV_ZEL_DEPT_NOT_FOUND_ERROR;
    it->second.info = r;
    return ESV_ZEL_DEPT_OK;
}

long esv_zel_dept_facade::esv_zel_dept_retrieve_hide_dept(const std::string& id, ESV_ZEL_DEPT_DEPTINFO& info) {
    TOVR_SIM_RECORD(long, id, info);
    Depts& d = depts();
    std::lock_guard<std::mutex> lock(d.mutex);
    auto it = d.by_id.find(id);
    if (it == d.by_id.end()) return ESV_ZEL_DEPT_NOT_FOUND_ERROR;
    info = it->second.info;
    return ESV_ZEL_DEPT_OK;
}

long esv_zel_dept_facade::esv_zel_dept_delete_hide_dept(const std::string& id) {
    TOVR_SIM_RECORD(long, id);
    Depts& d = depts();
    std::lock_guard<std::mutex> lock(d.mutex);
    if (d.by_id.erase(id) == 0) return ESV_ZEL_DEPT_NOT_FOUND_ERROR;
    return ESV_ZEL_DEPT_OK;
}

long esv_zel_dept_facade::esv_zel_dept_delete_all_hide_dept() {
    TOVR_SIM_RECORD(long);
    Depts& d = depts();
    std::lock_guard<std::mutex> lock(d.mutex);
    d.by_id.clear();
    return ESV_ZEL_DEPT_OK;
}

long esv_zel_dept_facade::esv_zel_dept_reset_hide_dept_counter(const std::string& id) {
    TOVR_SIM_RECORD(long, id);
    Depts& d = depts();
    std::lock_guard<std::mutex> lock(d.mutex);
    auto it = d.by_id.find(id);
    if (it == d.by_id.end()) return ESV_ZEL_DEPT_NOT_FOUND_ERROR;
    it->second.counters.fill(0);
    return ESV_ZEL_DEPT_OK;
}
