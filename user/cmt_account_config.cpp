#include "cmt_account_config.h"

#include "cmt_trace.h"
#include "esv_zel_dept_facade.h"

#define CMT_TRACE_MODULE "cmt_account_config"

namespace tarnwick {

namespace {

esv_zel_dept_facade* facade() { return esv_zel_dept_facade::esv_zel_dept_get_instance(); }

}  // namespace

cmt_account_config::cmt_account_config() {}

cmt_account_config::~cmt_account_config() {}

int cmt_account_config::get_limit_over() {
    CMT_TRACE(kTraceFlow, "[Enter]");
    ESV_ZEL_DEPT_LIMIT_ACTION mode = static_cast<ESV_ZEL_DEPT_LIMIT_ACTION>(0);
    long rc = facade()->esv_zel_dept_get_limit_action_mode(mode);
    if (rc != 0) {
        CMT_TRACE(kTraceError, "result = [%d]", static_cast<int>(rc));
        return -1;
    }
    return mode;
}

int cmt_account_config::set_limit_over(int mode) {
    CMT_TRACE(kTraceFlow, "[Enter], mode = [%d]", mode);
    long rc = facade()->esv_zel_dept_set_limit_action_mode(static_cast<ESV_ZEL_DEPT_LIMIT_ACTION>(mode));
    if (rc != 0) {
        CMT_TRACE(kTraceError, "result = [%d]", static_cast<int>(rc));
        return 0;
    }
    return 1;
}

int cmt_account_config::get_permit_anonymous() {
    CMT_TRACE(kTraceFlow, "[Enter]");
    ESV_ZEL_DEPT_INVALID_DEPT_MODE mode = static_cast<ESV_ZEL_DEPT_INVALID_DEPT_MODE>(0);
    long rc = facade()->esv_zel_dept_get_invalid_dept_mode(mode);
    if (rc != 0) {
        CMT_TRACE(kTraceError, "result = [%d]", static_cast<int>(rc));
        return -1;
    }
    return mode;
}

int cmt_account_config::set_permit_anonymous(int permit) {
    CMT_TRACE(kTraceFlow, "[Enter], permit = [%d]", permit);
    long rc = facade()->esv_zel_dept_set_invalid_dept_mode(static_cast<ESV_ZEL_DEPT_INVALID_DEPT_MODE>(permit));
    if (rc != 0) {
        CMT_TRACE(kTraceError, "result = [%d]", static_cast<int>(rc));
        return 0;
    }
    return 1;
}

int cmt_account_config::get_copy_print_count() {
    CMT_TRACE(kTraceFlow, "[Enter]");
    ESV_ZEL_DEPT_MIX_MODE mode = static_cast<ESV_ZEL_DEPT_MIX_MODE>(0);
    long rc = facade()->esv_zel_dept_get_mix_mode(mode);
    if (rc != 0) {
        CMT_TRACE(kTraceError, "result = [%d]", static_cast<int>(rc));
        return -1;
    }
    return mode;
}

int cmt_account_config::set_copy_print_count(int mode) {
    CMT_TRACE(kTraceFlow, "[Enter] mode = [%d]", mode);
    long rc = facade()->esv_zel_dept_set_mix_mode(static_cast<ESV_ZEL_DEPT_MIX_MODE>(mode));
    if (rc != 0) {
        CMT_TRACE(kTraceError, "result = [%d]", static_cast<int>(rc));
        return 0;
    }
    return 1;
}

bool cmt_account_config::get_mode() {
    CMT_TRACE(kTraceFlow, "[Enter]");
    ESV_ZEL_DEPT_DEPT_MODE mode = static_cast<ESV_ZEL_DEPT_DEPT_MODE>(0);
    long rc = facade()->esv_zel_dept_get_dept_mode(mode);
    if (rc != 0) {
        CMT_TRACE(kTraceError, "result = [%d]", static_cast<int>(rc));
        return false;
    }
    return mode == 1;
}

int cmt_account_config::set_mode(bool on) {
    CMT_TRACE(kTraceFlow, "[Enter] mode = [%d]", on ? 1 : 0);
    long rc = facade()->esv_zel_dept_set_dept_mode(on ? ESV_ZEL_DEPT_DEPT_MODE_ON : ESV_ZEL_DEPT_DEPT_MODE_OFF);
    if (rc != 0) {
        CMT_TRACE(kTraceError, "result = [%d]", static_cast<int>(rc));
        return 0;
    }
    return 1;
}

}  // namespace tarnwick
