#include "zel_fnd_user_account.h"

#include "cmt_trace.h"
#include "zel_fnd_user_results.h"

#define CMT_TRACE_MODULE "zel_fnd_user_account"

namespace tarnwick {

using namespace zel_fnd_user_result;

namespace {

esv_zel_user_facade* facade() { return esv_zel_user_facade::esv_zel_user_get_instance(); }

// Each operation knows only some of the facade's codes: `not_found` and `duplicate` say which
// it tells apart; the others are failures.
unsigned int outcome(const char* operation, long rc, bool not_found, bool duplicate) {
    if (rc == 0) {
        CMT_TRACE_OP(kTraceFlow, operation, "success. retcode = [%d]", static_cast<int>(rc));
        return kSuccess;
    }
    if (not_found && rc == ESV_ZEL_USER_NOT_FOUND) {
        CMT_TRACE_OP(kTraceFlow, operation, "not found. retcode = [%d]", static_cast<int>(rc));
        return kNotFound;
    }
    if (duplicate && rc == ESV_ZEL_USER_DUPLICATE) {
        CMT_TRACE_OP(kTraceFlow, operation, "duplicate id. retcode = [%d]", static_cast<int>(rc));
        return kDuplicate;
    }
    CMT_TRACE_OP(kTraceFlow, operation, "failed. retcode = [%d]", static_cast<int>(rc));
    return kFailure;
}

}  // namespace

zel_fnd_user_account::zel_fnd_user_account() {}

zel_fnd_user_account::~zel_fnd_user_account() {}

unsigned int zel_fnd_user_account::create_hide_user(const ESV_ZEL_HIDE_USERINFO_RECORD& rec) {
    return outcome(__func__, facade()->esv_zel_user_create_hide_account(rec), false, true);
}

unsigned int zel_fnd_user_account::update_hide_user(const ESV_ZEL_HIDE_USERINFO_RECORD& rec) {
    return outcome(__func__, facade()->esv_zel_user_update_hide_account(rec), true, false);
}

unsigned int zel_fnd_user_account::remove_hide_user(const std::string& login_name) {
    return outcome(__func__, facade()->esv_zel_user_delete_hide_account(login_name), true, false);
}

unsigned int zel_fnd_user_account::remove_all_hide_user() {
    return outcome(__func__, facade()->esv_zel_user_delete_all_hide_account(), false, false);
}

}  // namespace tarnwick
