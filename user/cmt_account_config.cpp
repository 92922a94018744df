#include "cmt_account_config.h"

#include "cmt_trace.h"
#include "esv_zel_dept_facade.h"

#define CMT_TRACE_MODULE "cmt_account_config"

namespace tarnwick {

namespace {

esv_zel_dept_facade* facade() { return esv_zel_dept_facade::esv_zel_dept_get_instance(); }

// Reads one setting of the department facade into `mode` (0 before the call): the facade's
// answer, traced at the error level under `operation` when it is not 0.
template <typename Mode>
long read(const char* operation, long (esv_zel_dept_facade::*get)(Mode&), Mode& mode) {
    CMT_TRACE_OP(kTraceFlow, operation, "[Enter]");
    mode = static_cast<Mode>(0);
    long rc = (facade()->*get)(mode);
    if (rc != 0) CMT_TRACE_OP(kTraceError, operation, "result = [%d]", static_cast<int>(rc));
    return rc;
}

// A setting written: 1 when the facade answered 0, else 0 with the answer traced under `operation`.
int written(const char* operation, long rc) {
    if (rc == 0) return 1;
    CMT_TRACE_OP(kTraceError, operation, "result = [%d]", static_cast<int>(rc));
    return 0;
}

}  // namespace

cmt_account_config::cmt_account_config() {}

cmt_account_config::~cmt_account_config() {}

int cmt_account_config::get_limit_over() {
    ESV_ZEL_DEPT_LIMIT_ACTION mode;
    return read(__func__, &esv_zel_dept_facade::esv_zel_dept_get_limit_action_mode, mode) == 0 ? mode : -1;
}

int cmt_account_config::set_limit_over(int mode) {
    CMT_TRACE(kTraceFlow, "[Enter], mode = [%d]", mode);
    return written(__func__,
                   facade()->esv_zel_dept_set_limit_action_mode(static_cast<ESV_ZEL_DEPT_LIMIT_ACTION>(mode)));
}

int cmt_account_config::get_permit_anonymous() {
    ESV_ZEL_DEPT_INVALID_DEPT_MODE mode;
    return read(__func__, &esv_zel_dept_facade::esv_zel_dept_get_invalid_dept_mode, mode) == 0 ? mode : -1;
}

int cmt_account_config::set_permit_anonymous(int permit) {
    CMT_TRACE(kTraceFlow, "[Enter], permit = [%d]", permit);
    return written(__func__,
                   facade()->esv_zel_dept_set_invalid_dept_mode(static_cast<ESV_ZEL_DEPT_INVALID_DEPT_MODE>(permit)));
}

int cmt_account_config::get_copy_print_count() {
    ESV_ZEL_DEPT_MIX_MODE mode;
    return read(__func__, &esv_zel_dept_facade::esv_zel_dept_get_mix_mode, mode) == 0 ? mode : -1;
}

int cmt_account_config::set_copy_print_count(int mode) {
    CMT_TRACE(kTraceFlow, "[Enter] mode = [%d]", mode);
    return written(__func__, facade()->esv_zel_dept_set_mix_mode(static_cast<ESV_ZEL_DEPT_MIX_MODE>(mode)));
}

bool cmt_account_config::get_mode() {
    ESV_ZEL_DEPT_DEPT_MODE mode;
    return read(__func__, &esv_zel_dept_facade::esv_zel_dept_get_dept_mode, mode) == 0 && mode == 1;
}

int cmt_account_config::set_mode(bool on) {
    CMT_TRACE(kTraceFlow, "[Enter] mode = [%d]", on ? 1 : 0);
    return written(__func__,
                   facade()->esv_zel_dept_set_dept_mode(on ? ESV_ZEL_DEPT_DEPT_MODE_ON : ESV_ZEL_DEPT_DEPT_MODE_OFF));
}

}  // namespace tarnwick
