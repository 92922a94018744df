#include "cmt_system_info.h"

#include <iterator>

#include "cmt_retcode.h"
#include "cmt_trace.h"

#define CMT_TRACE_MODULE "cmt_system_info"

namespace tarnwick {

namespace {

esv_zel_systeminfo_facade* sysinfo() { return esv_zel_systeminfo_facade::esv_zel_systeminfo_get_instance(); }
esv_zel_common_facade* common() { return esv_zel_common_facade::esv_zel_common_get_instance(); }
esv_zel_panel_facade* panel() { return esv_zel_panel_facade::esv_zel_panel_get_instance(); }

const cmt_retcode_row kResults[] = {
    CMT_RETCODE_ROW(ESV_ZEL_SYSINFO_OK, 0),
    CMT_RETCODE_ROW(ESV_ZEL_SYSINFO_ERROR_COMPETENCE, 1),
    CMT_RETCODE_ROW(ESV_ZEL_SYSINFO_ERROR, 2),
    CMT_RETCODE_ROW(ESV_ZEL_SYSINFO_UNSUPPORTED_ERROR, 3),
};
// Each code's line is its bare name; any other code is an error (2).
const cmt_retcode_table kConversion{CMT_TRACE_MODULE, kResults, std::size(kResults), "%s",
                                    "default ZEL_FND_SYSINFO_ERROR", kTraceFlow, 2};

}  // namespace

CMT_System_Info::CMT_System_Info() : result(false), retcode(2) {}

CMT_System_Info::~CMT_System_Info() {}

int CMT_System_Info::get_model_type(unsigned int& type) {
    return convert_retcode(sysinfo()->esv_zel_systeminfo_get_model_type(type));
}

int CMT_System_Info::get_screen_size(unsigned int& size) {
    return convert_retcode(sysinfo()->esv_zel_systeminfo_get_screen_size(size));
}

int CMT_System_Info::get_paper_info(ESV_ZEL_ENTKEY key, ESV_ZEL_PAPER_INFO& info) {
    return convert_retcode(sysinfo()->esv_zel_systeminfo_get_paper_info(key, info));
}

int CMT_System_Info::get_count(ESV_ZEL_COUNT_INFO& info, unsigned long& count) {
    return convert_retcode(sysinfo()->esv_zel_systeminfo_get_count(info, count));
}

int CMT_System_Info::get_machine_info(ESV_ZEL_ENTKEY key, unsigned long cid, unsigned int& value) {
    long rc = sysinfo()->esv_zel_systeminfo_get_machine_info(key, cid, value);
    CMT_TRACE(kTraceFlow, "(key = [%d], cid = [%lu], value = [%d])", static_cast<int>(key), cid,
              static_cast<int>(value));
    return convert_retcode(rc);
}

int CMT_System_Info::get_machine_info(ESV_ZEL_ENTKEY key, unsigned long cid, std::string& value) {
    long rc = sysinfo()->esv_zel_systeminfo_get_machine_info(key, cid, value);
    CMT_TRACE(kTraceFlow, "(key = [%d], cid = [%lu], value = [%s])", static_cast<int>(key), cid, value.c_str());
    return convert_retcode(rc);
}

int CMT_System_Info::set_machine_info(ESV_ZEL_ENTKEY key, unsigned long cid, unsigned int value) {
    return convert_retcode(sysinfo()->esv_zel_systeminfo_set_machine_info(key, cid, value));
}

long CMT_System_Info::get_long_value(ESV_ZEL_ENTKEY key) {
    unsigned int value = 0;
    long rc = sysinfo()->esv_zel_systeminfo_get_value(key, value);
    retcode = convert_retcode(rc);
    if (rc != 0) {
        result = false;
        return -1;
    }
    result = true;
    // long is 32 bits on the device: a host build gives the same number.
    return static_cast<long>(static_cast<std::int32_t>(value));
}

bool CMT_System_Info::set_long_value(ESV_ZEL_ENTKEY key, long value) {
    long rc = sysinfo()->esv_zel_systeminfo_set_value(key, static_cast<unsigned int>(value));
    result = (rc == 0);
    return result;
}

std::string CMT_System_Info::get_string_value(ESV_ZEL_ENTKEY key) {
    std::string value;
    long rc = sysinfo()->esv_zel_systeminfo_get_value(key, value);
    retcode = convert_retcode(rc);
    if (rc != 0) {
        result = false;
        return std::string();
    }
    result = true;
    return value;
}

bool CMT_System_Info::set_string_value(ESV_ZEL_ENTKEY key, std::string value) {
    long rc = sysinfo()->esv_zel_systeminfo_set_value(key, value);
    result = (rc == 0);
    return result;
}

// The date is a 32-bit value on the device: a host build narrows it the same way, so a date
// past 2^31 reaches the facade as the same negative number on both.
int CMT_System_Info::set_wakeup_date(unsigned int app_id, unsigned long date) {
    const long device_date = static_cast<long>(static_cast<std::int32_t>(static_cast<std::uint32_t>(date)));
    return convert_retcode(static_cast<long>(common()->esv_zel_set_wakeup_date(app_id, device_date)));
}

int CMT_System_Info::resume_deep_sleep(unsigned int app_id) {
    return convert_retcode(static_cast<long>(common()->esv_zel_resume_deep_sleep(app_id)));
}

int CMT_System_Info::suspend_deep_sleep(unsigned int app_id) {
    return convert_retcode(static_cast<long>(common()->esv_zel_suspend_deep_sleep(app_id)));
}

int CMT_System_Info::set_energy_save_prohibition_mode(bool flag) {
    long rc = static_cast<long>(common()->esv_zel_request_save_mode_prohibition(flag ? 1 : 0));
    int code = convert_retcode(rc);
    if (code != 0) {
        CMT_TRACE(kTraceError, "flag = [%d], result = [%d]", flag ? 1 : 0, static_cast<int>(rc));
    }
    return code;
}

bool CMT_System_Info::request_energy_saving_mode(ESV_ZEL_STS_SLEEP state) {
    return common()->esv_zel_request_energy_saving_mode(state) == 0;
}

// A yes/no question: 1 is yes; 0 (no) and anything else (cannot tell) are both no.
bool CMT_System_Info::check_eweb_cert_info(const char* path) {
    return common()->esv_zel_check_eweb_cert_info(path) == 1;
}

int CMT_System_Info::panel_reset_timer_ctrl(unsigned int context, ESV_ZEL_PNL_RST_TMR operation) {
    long rc = static_cast<long>(panel()->esv_zel_panel_reset_timer_ctrl(context, operation));
    if (rc == 0) return 0;
    CMT_TRACE(kTraceError, "panel_reset_timer_ctrl: ZEL_FND_SYSINFO_ERROR. rc = [%d]", static_cast<int>(rc));
    return 2;
}

bool CMT_System_Info::get_result() { return result; }

int CMT_System_Info::get_retcode() { return retcode; }

int CMT_System_Info::convert_retcode(long rc) { return cmt_convert_retcode(kConversion, rc); }

}  // namespace tarnwick
