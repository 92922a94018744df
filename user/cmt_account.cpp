#include "cmt_account.h"

#include <cstdint>
#include <cstring>

#include "cmt_trace.h"
#include "tovr_field_text.h"

#define CMT_TRACE_MODULE "cmt_account"

namespace tarnwick {

namespace {

constexpr int kNoSlot = -1;    // stored nowhere, still a success
constexpr int kBadType = -2;   // job type outside 1 to 8

// Counter slot of a job type under a mix mode.
int slot_of(int type, int mixmode) {
    static const int mixed[9] = {kBadType, kNoSlot, 0, 8, 9, kNoSlot, kNoSlot, 1, 2};
    static const int separate[9] = {kBadType, 3, 6, 8, 9, 4, 5, 7, kNoSlot};
    if (type < 1 || type > 8) return kBadType;
    if (mixmode == 1) return mixed[type];
    if (mixmode == 0) return separate[type];
    return kNoSlot;
}

// Stores `value` in the counter slot of `type` under `mixmode`, if it has one: 1, or 0 for a
// job type outside 1 to 8.
int set_slot(std::int32_t (&slots)[ESV_ZEL_DEPT_SLOT_NUM], int value, int type, int mixmode) {
    int slot = slot_of(type, mixmode);
    if (slot == kBadType) return 0;
    if (slot != kNoSlot) slots[slot] = value;
    return 1;
}

// Copies `text` into a field of N bytes: at most N-1 bytes, never part of a character, and a
// terminating NUL.
template <std::size_t N>
void copy_field(char (&field)[N], const std::string& text) {
    std::size_t n = text.size() < N - 1 ? text.size() : utf8_whole_length(text.data(), N - 1);
    std::memcpy(field, text.data(), n);
    field[n] = '\0';
}

template <std::size_t N>
std::string read_field(const char (&field)[N]) {
    return FieldText(field).c_str();
}

}  // namespace

cmt_account::cmt_account(const std::string& id) {
    std::memset(&m_deptinfo, 0, sizeof m_deptinfo);
    copy_field(m_deptinfo.id, id);
    init();
    CMT_TRACE(kTraceFlow, "cmt_account is created. id = [%s]", m_deptinfo.id);
}

cmt_account::~cmt_account() {}

void cmt_account::init() {
    m_deptinfo.name[0] = '\0';
    m_deptinfo.note[0] = '\0';
    std::memset(m_deptinfo.restriction, 0, sizeof m_deptinfo.restriction);
    m_deptinfo.reserved = 0;
    std::memset(m_deptinfo.limit, 0, sizeof m_deptinfo.limit);
}

std::string cmt_account::get_name() { return read_field(m_deptinfo.name); }

void cmt_account::set_name(const std::string& name) { copy_field(m_deptinfo.name, name); }

std::string cmt_account::get_id() { return read_field(m_deptinfo.id); }

ESV_ZEL_DEPT_DEPTINFO* cmt_account::get_deptinfo() { return &m_deptinfo; }

int cmt_account::set_limit(int value, int type, int mixmode) {
    CMT_TRACE(kTraceFlow, "page = [%d], type = [%d], mixmode = [%d]", value, type, mixmode);
    return set_slot(m_deptinfo.limit, value, type, mixmode);
}

int cmt_account::set_restriction(int value, int type, int mixmode) {
    CMT_TRACE(kTraceFlow, "mode = [%d], type = [%d], mixmode = [%d]", value, type, mixmode);
    return set_slot(m_deptinfo.restriction, value, type, mixmode);
}

int cmt_account::get_limit(int type) { return -2; }

int cmt_account::get_restriction(int type) { return get_limit(type); }

}  // namespace tarnwick
