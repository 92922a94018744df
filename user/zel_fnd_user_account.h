// Hidden user accounts (registered by an application for its own use, kept out of the
// device's user list), over the user facade. Stateless.
#ifndef TARNWICK_ZEL_FND_USER_ACCOUNT_H
#define TARNWICK_ZEL_FND_USER_ACCOUNT_H

#include <string>

#include "esv_zel_user_facade.h"

namespace tarnwick {

/**
 * Hidden user accounts: users an application registers for its own use, kept out of the
 * device's user list, keyed by login name.
 * <p>Results: 0 success, 2 no such account, 3 the login name is taken, 4 failure.
 */
class zel_fnd_user_account {
public:
    zel_fnd_user_account();
    virtual ~zel_fnd_user_account();

    unsigned int create_hide_user(const ESV_ZEL_HIDE_USERINFO_RECORD& rec);
    unsigned int update_hide_user(const ESV_ZEL_HIDE_USERINFO_RECORD& rec);
    unsigned int remove_hide_user(const std::string& login_name);
    unsigned int remove_all_hide_user();
};

}  // namespace tarnwick

#endif
