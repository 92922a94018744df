// Simulated system-information facade: model type, screen size, trays by key, counters by
// kind, size and colour (advanced by the pages simulated jobs print), machine information by
// key and cid, values by key (numbers and texts), and per-key answers.
#include <map>
#include <mutex>
#include <string>
#include <tuple>

#include "esv_zel_systeminfo_facade.h"
#include "tovr_sim_system.h"

namespace tovr_sim {

namespace {

using CounterKey = std::tuple<unsigned char, unsigned char, unsigned char>;
using InfoKey = std::pair<int, std::uint32_t>;

struct SysInfo {
    std::mutex mutex;
    unsigned int model_type = kDefaultModelType;
    unsigned int screen_size = kDefaultScreenSize;
    std::map<int, ESV_ZEL_PAPER_INFO> trays;
    std::map<CounterKey, std::uint32_t> counts;
    std::map<InfoKey, unsigned int> machine_numbers;
    std::map<InfoKey, std::string> machine_texts;
    std::map<int, unsigned int> numbers;
    std::map<int, std::string> texts;
    std::map<int, long> key_answers;

    void defaults() {
        model_type = kDefaultModelType;
        screen_size = kDefaultScreenSize;
        trays.clear();
        for (int k = 1; k <= 4; ++k) {
            trays[k] = ESV_ZEL_PAPER_INFO{100, static_cast<unsigned char>(k), 0, 1};
        }
        counts.clear();
        machine_numbers.clear();
        machine_texts.clear();
        numbers.clear();
        texts.clear();
        key_answers.clear();
    }
    SysInfo() { defaults(); }

    // The answer of `key` set by a test, 0 when none (caller holds the lock).
    long key_answer(int key) const {
        auto it = key_answers.find(key);
        return it == key_answers.end() ? 0 : it->second;
    }
};

SysInfo& state() { return lasting<SysInfo>(); }

bool known_kind(unsigned char kind) { return kind <= kCountKindScan; }

// A value the device keeps under `where`, into `value`: the key's own answer when it has one,
// ESV_ZEL_SYSINFO_ERROR when the value was never given.
template <typename Map, typename Value>
long read_kept(int key, const Map& map, const typename Map::key_type& where, Value& value) {
    std::lock_guard<std::mutex> lock(state().mutex);
    if (long answer = state().key_answer(key)) return answer;
    auto it = map.find(where);
    if (it == map.end()) return ESV_ZEL_SYSINFO_ERROR;
    value = it->second;
    return ESV_ZEL_SYSINFO_OK;
}

}  // namespace

void reset_sysinfo() {
    SysInfo& s = state();
    std::lock_guard<std::mutex> lock(s.mutex);
    s.defaults();
}

namespace {
const bool registered = register_service(Service{"systeminfo", reset_sysinfo, nullptr});
}  // namespace

void sysinfo_set_model_type(unsigned int type) {
    std::lock_guard<std::mutex> lock(state().mutex);
    state().model_type = type;
}

void sysinfo_set_screen_size(unsigned int size) {
    std::lock_guard<std::mutex> lock(state().mutex);
    state().screen_size = size;
}

void sysinfo_set_tray(int key, const ESV_ZEL_PAPER_INFO& info) {
    std::lock_guard<std::mutex> lock(state().mutex);
    state().trays[key] = info;
}

void sysinfo_remove_tray(int key) {
    std::lock_guard<std::mutex> lock(state().mutex);
    state().trays.erase(key);
}

bool sysinfo_tray(int key, ESV_ZEL_PAPER_INFO* out) {
    std::lock_guard<std::mutex> lock(state().mutex);
    auto it = state().trays.find(key);
    if (it == state().trays.end()) return false;
    *out = it->second;
    return true;
}

void sysinfo_set_count(unsigned char kind, unsigned char paper_size, unsigned char color, std::uint32_t count) {
    std::lock_guard<std::mutex> lock(state().mutex);
    state().counts[CounterKey{kind, paper_size, color}] = count;
}

std::uint32_t sysinfo_count(unsigned char kind, unsigned char paper_size, unsigned char color) {
    std::lock_guard<std::mutex> lock(state().mutex);
    auto it = state().counts.find(CounterKey{kind, paper_size, color});
    return it == state().counts.end() ? 0 : it->second;
}

void sysinfo_count_printed_page(int paper_size, int color_mode) {
    const unsigned char size = static_cast<unsigned char>(paper_size & 0xFF);
    const unsigned char color = static_cast<unsigned char>(color_mode & 0xFF);
    std::lock_guard<std::mutex> lock(state().mutex);
    ++state().counts[CounterKey{kCountKindTotal, size, color}];
    ++state().counts[CounterKey{kCountKindPrint, size, color}];
}

void sysinfo_set_machine_info(int key, std::uint32_t cid, unsigned int value) {
    std::lock_guard<std::mutex> lock(state().mutex);
    state().machine_numbers[InfoKey{key, cid}] = value;
}

void sysinfo_set_machine_text(int key, std::uint32_t cid, const std::string& value) {
    std::lock_guard<std::mutex> lock(state().mutex);
    state().machine_texts[InfoKey{key, cid}] = value;
}

bool sysinfo_machine_info(int key, std::uint32_t cid, unsigned int* out) {
    std::lock_guard<std::mutex> lock(state().mutex);
    auto it = state().machine_numbers.find(InfoKey{key, cid});
    if (it == state().machine_numbers.end()) return false;
    *out = it->second;
    return true;
}

void sysinfo_set_value(int key, unsigned int value) {
    std::lock_guard<std::mutex> lock(state().mutex);
    state().numbers[key] = value;
}

void sysinfo_set_text(int key, const std::string& value) {
    std::lock_guard<std::mutex> lock(state().mutex);
    state().texts[key] = value;
}

bool sysinfo_value(int key, unsigned int* out) {
    std::lock_guard<std::mutex> lock(state().mutex);
    auto it = state().numbers.find(key);
    if (it == state().numbers.end()) return false;
    *out = it->second;
    return true;
}

bool sysinfo_text(int key, std::string* out) {
    std::lock_guard<std::mutex> lock(state().mutex);
    auto it = state().texts.find(key);
    if (it == state().texts.end()) return false;
    *out = it->second;
    return true;
}

void sysinfo_set_key_answer(int key, long code) {
    keep_or_forget(state().mutex, state().key_answers, key, code);
}

}  // namespace tovr_sim

namespace tarnwick {

using tovr_sim::state;

TOVR_SIM_FACADE_INSTANCE(systeminfo)

long esv_zel_systeminfo_facade::esv_zel_systeminfo_get_model_type(unsigned int& type) {
    TOVR_SIM_RECORD(long, type);
    std::lock_guard<std::mutex> lock(state().mutex);
    type = state().model_type;
    return ESV_ZEL_SYSINFO_OK;
}

long esv_zel_systeminfo_facade::esv_zel_systeminfo_get_screen_size(unsigned int& size) {
    TOVR_SIM_RECORD(long, size);
    std::lock_guard<std::mutex> lock(state().mutex);
    size = state().screen_size;
    return ESV_ZEL_SYSINFO_OK;
}

long esv_zel_systeminfo_facade::esv_zel_systeminfo_get_paper_info(ESV_ZEL_ENTKEY key, ESV_ZEL_PAPER_INFO& info) {
    TOVR_SIM_RECORD(long, key, info);
    std::lock_guard<std::mutex> lock(state().mutex);
    if (long answer = state().key_answer(key)) return answer;
    auto it = state().trays.find(key);
    if (it == state().trays.end()) return ESV_ZEL_SYSINFO_ERROR;
    info = it->second;
    return ESV_ZEL_SYSINFO_OK;
}

long esv_zel_systeminfo_facade::esv_zel_systeminfo_get_count(ESV_ZEL_COUNT_INFO& info, unsigned long& count) {
    TOVR_SIM_RECORD(long, info, count);
    std::lock_guard<std::mutex> lock(state().mutex);
    if (!tovr_sim::known_kind(info.count_kind)) return ESV_ZEL_SYSINFO_ERROR;
    auto it = state().counts.find(tovr_sim::CounterKey{info.count_kind, info.paper_size, info.color_info});
    count = it == state().counts.end() ? 0 : it->second;
    return ESV_ZEL_SYSINFO_OK;
}

long esv_zel_systeminfo_facade::esv_zel_systeminfo_get_machine_info(ESV_ZEL_ENTKEY key, unsigned long cid,
                                                                     unsigned int& value) {
    TOVR_SIM_RECORD(long, key, cid, value);
    return tovr_sim::read_kept(key, state().machine_numbers, tovr_sim::InfoKey{key, static_cast<std::uint32_t>(cid)},
                               value);
}

long esv_zel_systeminfo_facade::esv_zel_systeminfo_get_machine_info(ESV_ZEL_ENTKEY key, unsigned long cid,
                                                                     std::string& value) {
    TOVR_SIM_RECORD(long, key, cid, value);
    return tovr_sim::read_kept(key, state().machine_texts, tovr_sim::InfoKey{key, static_cast<std::uint32_t>(cid)},
                               value);
}

long esv_zel_systeminfo_facade::esv_zel_systeminfo_set_machine_info(ESV_ZEL_ENTKEY key, unsigned long cid,
                                                                     unsigned int value) {
    TOVR_SIM_RECORD(long, key, cid, value);
    std::lock_guard<std::mutex> lock(state().mutex);
    if (long answer = state().key_answer(key)) return answer;
    state().machine_numbers[tovr_sim::InfoKey{key, static_cast<std::uint32_t>(cid)}] = value;
    return ESV_ZEL_SYSINFO_OK;
}

long esv_zel_systeminfo_facade::esv_zel_systeminfo_get_value(ESV_ZEL_ENTKEY key, unsigned int& value) {
    TOVR_SIM_RECORD(long, key, value);
    return tovr_sim::read_kept(key, state().numbers, key, value);
}

long esv_zel_systeminfo_facade::esv_zel_systeminfo_get_value(ESV_ZEL_ENTKEY key, std::string& value) {
    TOVR_SIM_RECORD(long, key, value);
    return tovr_sim::read_kept(key, state().texts, key, value);
}

long esv_zel_systeminfo_facade::esv_zel_systeminfo_set_value(ESV_ZEL_ENTKEY key, unsigned int value) {
    TOVR_SIM_RECORD(long, key, value);
    std::lock_guard<std::mutex> lock(state().mutex);
    if (long answer = state().key_answer(key)) return answer;
    state().numbers[key] = value;
    return ESV_ZEL_SYSINFO_OK;
}

long esv_zel_systeminfo_facade::esv_zel_systeminfo_set_value(ESV_ZEL_ENTKEY key, std::string value) {
    TOVR_SIM_RECORD(long, key, value);
    std::lock_guard<std::mutex> lock(state().mutex);
    if (long answer = state().key_answer(key)) return answer;
    state().texts[key] = value;
    return ESV_ZEL_SYSINFO_OK;
}

}  // namespace tarnwick
