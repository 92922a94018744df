// Simulated power and certificate requests of the common facade: power state with the sleep
// notifications, deep-sleep suspends per application, wake-up dates, the save-mode prohibition
// and the answers of the certificate check.
#include <map>
#include <mutex>
#include <string>

#include "esv_zel_common_facade.h"
#include "esv_zel_systeminfo_facade.h"
#include "tovr_sim_common.h"

namespace tovr_sim {

namespace {

struct Power {
    std::mutex mutex;
    int state = ESV_ZEL_STS_SLEEP_STANDBY;
    bool prohibited = false;
    std::map<unsigned int, int> suspends;
    std::map<unsigned int, long> wakeups;
    std::map<std::string, unsigned long> cert_answers;

    void defaults() {
        state = ESV_ZEL_STS_SLEEP_STANDBY;
        prohibited = false;
        suspends.clear();
        wakeups.clear();
        cert_answers.clear();
    }
};

Power& power() { return lasting<Power>(); }

}  // namespace

void reset_power() {
    std::lock_guard<std::mutex> lock(power().mutex);
    power().defaults();
}

int power_state() {
    std::lock_guard<std::mutex> lock(power().mutex);
    return power().state;
}

bool power_save_mode_prohibited() {
    std::lock_guard<std::mutex> lock(power().mutex);
    return power().prohibited;
}

int deep_sleep_suspends(unsigned int app_id) {
    std::lock_guard<std::mutex> lock(power().mutex);
    auto it = power().suspends.find(app_id);
    return it == power().suspends.end() ? 0 : it->second;
}

bool wakeup_date(unsigned int app_id, long* out) {
    std::lock_guard<std::mutex> lock(power().mutex);
    auto it = power().wakeups.find(app_id);
    if (it == power().wakeups.end()) return false;
    *out = it->second;
    return true;
}

void cert_set_answer(const std::string& path, unsigned long answer) {
    std::lock_guard<std::mutex> lock(power().mutex);
    power().cert_answers[path] = answer;
}

void power_set_state(int state) {
    std::lock_guard<std::mutex> lock(power().mutex);
    power().state = state;
}

}  // namespace tovr_sim

namespace tarnwick {

using tovr_sim::power;

unsigned long esv_zel_common_facade::esv_zel_set_wakeup_date(unsigned int app_id, long date) {
    TOVR_SIM_RECORD(unsigned long, app_id, date);
    if (date < 0) return ESV_ZEL_SYSINFO_ERROR;
    std::lock_guard<std::mutex> lock(power().mutex);
    power().wakeups[app_id] = date;
    return ESV_ZEL_SYSINFO_OK;
}

unsigned long esv_zel_common_facade::esv_zel_resume_deep_sleep(unsigned int app_id) {
    TOVR_SIM_RECORD(unsigned long, app_id);
    std::lock_guard<std::mutex> lock(power().mutex);
    auto it = power().suspends.find(app_id);
    if (it == power().suspends.end() || it->second == 0) return ESV_ZEL_SYSINFO_ERROR;
    if (--it->second == 0) power().suspends.erase(it);
    return ESV_ZEL_SYSINFO_OK;
}

unsigned long esv_zel_common_facade::esv_zel_suspend_deep_sleep(unsigned int app_id) {
    TOVR_SIM_RECORD(unsigned long, app_id);
    std::lock_guard<std::mutex> lock(power().mutex);
    ++power().suspends[app_id];
    return ESV_ZEL_SYSINFO_OK;
}

unsigned long esv_zel_common_facade::esv_zel_request_save_mode_prohibition(int flag) {
    TOVR_SIM_RECORD(unsigned long, flag);
    if (flag != 0 && flag != 1) return ESV_ZEL_SYSINFO_ERROR;
    std::lock_guard<std::mutex> lock(power().mutex);
    power().prohibited = flag == 1;
    return ESV_ZEL_SYSINFO_OK;
}

unsigned long esv_zel_common_facade::esv_zel_request_energy_saving_mode(ESV_ZEL_STS_SLEEP state) {
    TOVR_SIM_RECORD(unsigned long, state);
    if (state < ESV_ZEL_STS_SLEEP_STANDBY || state > ESV_ZEL_STS_SLEEP_DEEP) return ESV_ZEL_SYSINFO_ERROR;
    int before;
    {
        std::lock_guard<std::mutex> lock(power().mutex);
        if (state != ESV_ZEL_STS_SLEEP_STANDBY && power().prohibited) return ESV_ZEL_SYSINFO_ERROR;
        if (state == ESV_ZEL_STS_SLEEP_DEEP) {
            for (const auto& s : power().suspends) {
                if (s.second > 0) return ESV_ZEL_SYSINFO_ERROR;
            }
        }
        before = power().state;
        power().state = state;
    }
    // Observers are called without the state's lock: they may ask the device again.
    if (before == ESV_ZEL_STS_SLEEP_STANDBY && state != ESV_ZEL_STS_SLEEP_STANDBY) {
        tovr_sim::raise_sleep(ESV_ZEL_EVENT_SLEEP_ENTER);
    } else if (before != ESV_ZEL_STS_SLEEP_STANDBY && state == ESV_ZEL_STS_SLEEP_STANDBY) {
        tovr_sim::raise_sleep(ESV_ZEL_EVENT_SLEEP_LEAVE);
    }
    return ESV_ZEL_SYSINFO_OK;
}

unsigned long esv_zel_common_facade::esv_zel_check_eweb_cert_info(const char* path) {
    TOVR_SIM_RECORD(unsigned long, path);
    if (path == nullptr) return 2;
    std::lock_guard<std::mutex> lock(power().mutex);
    auto it = power().cert_answers.find(path);
    return it == power().cert_answers.end() ? 0 : it->second;
}

}  // namespace tarnwick
