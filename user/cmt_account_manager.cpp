#include "cmt_account_manager.h"

#include "cmt_trace.h"
#include "esv_zel_dept_facade.h"

#define CMT_TRACE_MODULE "cmt_account_manager"

namespace tarnwick {

namespace {

esv_zel_dept_facade* facade() { return esv_zel_dept_facade::esv_zel_dept_get_instance(); }

// Failures are traced by the facade's code, named where the manager knows it.
void trace_failure(const char* operation, long rc) {
    if (rc == ESV_ZEL_DEPT_NOT_FOUND_ERROR) {
        CMT_TRACE_OP(kTraceError, operation, "result = ESV_ZEL_DEPT_NOT_FOUND_ERROR");
    } else if (rc == ESV_ZEL_DEPT_DUPL_DEPT_ERROR) {
        CMT_TRACE_OP(kTraceError, operation, "result = ESV_ZEL_DEPT_DUPL_DEPT_ERROR");
    } else {
        CMT_TRACE_OP(kTraceError, operation, "result = [%d]", static_cast<int>(rc));
    }
}

// 0 success, 2 not found (when the operation tells it apart), 3 other failure.
int outcome(const char* operation, long rc, bool not_found) {
    if (rc == 0) return 0;
    trace_failure(operation, rc);
    return not_found && rc == ESV_ZEL_DEPT_NOT_FOUND_ERROR ? 2 : 3;
}

}  // namespace

cmt_account_manager::cmt_account_manager() {}

cmt_account_manager::~cmt_account_manager() {}

int cmt_account_manager::add(cmt_account* account) {
    if (account == nullptr) {
        CMT_TRACE(kTraceError, "account == NULL.");
        return 3;
    }
    long rc = facade()->esv_zel_dept_add_hide_dept(*account->get_deptinfo());
    if (rc == 0) return 0;
    trace_failure(__func__, rc);
    return rc == ESV_ZEL_DEPT_DUPL_DEPT_ERROR ? 1 : 3;
}

int cmt_account_manager::update(cmt_account* account) {
    if (account == nullptr) {
        CMT_TRACE(kTraceError, "account == NULL.");
        return 3;
    }
    return outcome(__func__, facade()->esv_zel_dept_update_hide_dept(*account->get_deptinfo()), true);
}

int cmt_account_manager::retrieve_account(cmt_account* account) {
    if (account == nullptr) {
        CMT_TRACE(kTraceError, "account == NULL.");
        return 3;
    }
    return outcome(__func__, facade()->esv_zel_dept_retrieve_hide_dept(account->get_id(), *account->get_deptinfo()),
                   true);
}

int cmt_account_manager::remove(const std::string& id) {
    return outcome(__func__, facade()->esv_zel_dept_delete_hide_dept(id), true);
}

int cmt_account_manager::remove_all() {
    long rc = facade()->esv_zel_dept_delete_all_hide_dept();
    if (rc != 0) {
        trace_failure(__func__, rc);
        return 0;
    }
    return 1;
}

int cmt_account_manager::reset_counter(const std::string& id) {
    long rc = facade()->esv_zel_dept_reset_hide_dept_counter(id);
    if (rc != 0) {
        trace_failure(__func__, rc);
        return 0;
    }
    return 1;
}

}  // namespace tarnwick
