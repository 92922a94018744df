// Hidden departments: register, change, fetch, remove, and reset their counters.
#ifndef TARNWICK_CMT_ACCOUNT_MANAGER_H
#define TARNWICK_CMT_ACCOUNT_MANAGER_H

#include <string>

#include "cmt_account.h"

namespace tarnwick {

class cmt_account_manager {
public:
    cmt_account_manager();
    virtual ~cmt_account_manager();

    // 0 success, 1 duplicate, 3 failure.
    int add(cmt_account* account);
    // 0 success, 2 not found, 3 failure.
    int update(cmt_account* account);
    int retrieve_account(cmt_account* account);
    int remove(const std::string& id);
    // 1 success, 0 failure.
    int remove_all();
    int reset_counter(const std::string& id);
};

}  // namespace tarnwick

#endif
