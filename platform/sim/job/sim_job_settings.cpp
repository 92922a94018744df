// Simulated job service, the settings model: what a job-information set holds, its factory
// values, which values the other settings rule out, and when a set may start a job.
#include <algorithm>
#include <cstring>

#include "sim_job_internal.h"

namespace tovr_sim {
namespace jobsim {

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

namespace {

const std::vector<int>& text_keys() {
    static const std::vector<int> k = {ESV_ZEL_JOB_SETTING_JOB_NAME, ESV_ZEL_JOB_SETTING_FILE_NAME,
                                       ESV_ZEL_JOB_SETTING_MAIL_SUBJECT, ESV_ZEL_JOB_SETTING_MAIL_BODY,
                                       ESV_ZEL_JOB_SETTING_USER_NAME};
    return k;
}

bool needs_address(ESV_ZEL_JOB_PHB_CATEGORY c) {
    return c == ESV_ZEL_JOB_PHB_CATEGORY_SEND || c == ESV_ZEL_JOB_PHB_CATEGORY_FAX;
}

}  // namespace

bool known_num(int key) { return factory_nums().count(key) != 0; }
bool known_text(int key) { return std::find(text_keys().begin(), text_keys().end(), key) != text_keys().end(); }
bool known_triple(int key) { return key >= ESV_ZEL_PHB_SETTING_ID_ERASE_FRAME && key <= ESV_ZEL_PHB_SETTING_ID_SHARPNESS; }
bool known_category(int c) { return c >= ESV_ZEL_JOB_PHB_CATEGORY_COPY && c <= ESV_ZEL_JOB_PHB_CATEGORY_PRINT; }

Values defaults_for(const std::map<int, unsigned int>& basic, ESV_ZEL_JOB_PHB_CATEGORY category) {
    Values v;
    v.nums = factory_nums();
    for (auto& [key, val] : basic) v.nums[key] = val;
    for (int key : text_keys()) v.texts[key] = "";
    for (int key = ESV_ZEL_PHB_SETTING_ID_ERASE_FRAME; key <= ESV_ZEL_PHB_SETTING_ID_SHARPNESS; ++key) {
        v.triples[key] = {0, 0, 0};
    }
    return v;
}

int start_phb_of(bool prohibited, const Set& s) {
    if (prohibited) return 2;
    if (needs_address(s.category) && s.work.addresses.empty()) return 1;
    return 0;
}

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

// Whether a text field holds anything (within its width).
template <std::size_t N>
bool filled(const char (&text)[N]) {
    return ::strnlen(text, N) > 0;
}

bool address_fits(const ESV_ZEL_JOB_SEND_INFO& info, ESV_ZEL_JOB_PHB_CATEGORY category) {
    const bool sends = category == ESV_ZEL_JOB_PHB_CATEGORY_SEND;
    switch (info.address_type) {
        case ESV_ZEL_JOB_ADDRESS_TYPE_MAIL: return sends && filled(info.detail.mail_info.mail_address);
        case ESV_ZEL_JOB_ADDRESS_TYPE_FTP: return sends && filled(info.detail.ftp_info.host_name);
        case ESV_ZEL_JOB_ADDRESS_TYPE_SMB: return sends && filled(info.detail.smb_info.host_name);
        case ESV_ZEL_JOB_ADDRESS_TYPE_FAX:
            return category == ESV_ZEL_JOB_PHB_CATEGORY_FAX && filled(info.detail.fax_info.fax_number);
        default: return false;
    }
}

}  // namespace jobsim
}  // namespace tovr_sim
