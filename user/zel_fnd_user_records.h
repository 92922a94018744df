// Holders that Java allocates and hands to an authentication operation, which writes its
// output into them. Each starts zeroed.
#ifndef TARNWICK_ZEL_FND_USER_RECORDS_H
#define TARNWICK_ZEL_FND_USER_RECORDS_H

#include "esv_zel_user_facade.h"

namespace tarnwick {

/** The certificate number of a logged-in user: given at login, handed back at logout. */
struct ZEL_FND_CERTIFICATE_ID {
    unsigned long id = 0;
};

/**
 * Holder of an authentication mode ({@code ESV_ZEL_USER_AUTHMODE}) that {@code get_auth_mode}
 * fills.
 */
struct ZEL_FND_AUTH_MODE {
    ESV_ZEL_USER_AUTHMODE mode = ESV_ZEL_USER_AUTHMODE_OFF;
};

/** Holder of an access level that {@code get_rights} fills: 0 administrator, 1 ordinary user. */
struct ZEL_FND_USER_ACCESS_LEVEL {
    ESV_ZEL_USER_RIGHTS level = ESV_ZEL_USER_RIGHTS_ADMIN;
};

}  // namespace tarnwick

#endif
