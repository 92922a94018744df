// Hidden departments: register, change, fetch, remove, and reset their counters.
#ifndef TARNWICK_CMT_ACCOUNT_MANAGER_H
#define TARNWICK_CMT_ACCOUNT_MANAGER_H

#include <string>

#include "cmt_account.h"

namespace tarnwick {

/**
 * The device's departments: register, change, read back and remove them, and reset their
 * page counters.
 * <p>Results: {@code add} 0 success, 1 the id is taken, 3 failure; {@code update},
 * {@code retrieve_account} and {@code remove} 0 success, 2 no such department, 3 failure;
 * {@code remove_all} and {@code reset_counter} 1 success, 0 failure.
 */
class cmt_account_manager {
public:
    cmt_account_manager();
    virtual ~cmt_account_manager();

    /** 0 registered, 1 the id is taken, 3 failure. */
    int add(cmt_account* account);
    /** 0 changed, 2 no such department, 3 failure. */
    int update(cmt_account* account);
    int retrieve_account(cmt_account* account);
    int remove(const std::string& id);
    /** 1 success, 0 failure. */
    int remove_all();
    int reset_counter(const std::string& id);
};

}  // namespace tarnwick

#endif
