// Logins and logouts, authentication modes, rights, the logged-in user's record and the local
// user list, over the user facade. Stateless; results are the four module results below.
#ifndef TARNWICK_ZEL_FND_AUTHENTICATION_H
#define TARNWICK_ZEL_FND_AUTHENTICATION_H

#include <jni.h>

#include <string>

#include "esv_zel_user_facade.h"
#include "zel_fnd_user_records.h"

namespace tarnwick {

/**
 * Users: login by name and password or by IC card, logout, the logged-in user's record, the
 * device's authentication mode ({@code ESV_ZEL_USER_AUTHMODE}), a user's rights and the list of
 * local users.
 * <p>Results: 0 success, 1 wrong password, 2 no such user (or, for a logout, no such
 * certificate), 4 failure. A login hands out a certificate number in the
 * {@code ZEL_FND_CERTIFICATE_ID} passed; {@code logout} takes it back.
 */
class zel_fnd_authentication {
public:
    zel_fnd_authentication();
    virtual ~zel_fnd_authentication();

    /**
     * Logs a user in by name and password.
     * @param mode how the user is known: ESV_ZEL_USER_AUTHMODE_LOCAL (a local user of the device)
     * or ESV_ZEL_USER_AUTHMODE_NETWORK
     * @return 0 logged in (the certificate number is in {@code cert}), 1 wrong password, 2 no such
     * user, 4 failure
     */
    unsigned int login(const std::string& user, const std::string& password, ESV_ZEL_USER_AUTHMODE mode,
                       ZEL_FND_CERTIFICATE_ID& cert);
    unsigned int login(const std::string& user, const std::string& password, ESV_ZEL_USER_AUTHMODE mode,
                       const std::string& third, ZEL_FND_CERTIFICATE_ID& cert);
    /**
     * Logs in the user whose IC card has this IDm (hexadecimal text, as the reader reports it).
     * @return 0 logged in (the certificate number is in {@code cert}), 2 no user has this card,
     * 4 failure
     */
    unsigned int iccard_login(char* idm, ZEL_FND_CERTIFICATE_ID& cert);
    /**
     * Logs out the user of a certificate number a login gave.
     * @return 0 logged out, 2 no such certificate, 4 failure
     */
    unsigned int logout(unsigned long cert_id);
    /**
     * The record of a user: ESV_ZEL_USER_USERKIND_LOGIN the user logged in last,
     * ESV_ZEL_USER_USERKIND_ADMIN the device administrator.
     * @return 0 success, 4 failure
     */
    unsigned int get_login_user_info(ESV_ZEL_USER_USERKIND kind, ESV_ZEL_USERINFO_RECORD& rec);
    unsigned int get_auth_mode(ZEL_FND_AUTH_MODE& mode);
    unsigned int set_auth_mode(ESV_ZEL_USER_AUTHMODE mode);
    unsigned int get_rights(const std::string& user, const std::string& password, ZEL_FND_USER_ACCESS_LEVEL& level);
    unsigned int get_rights(const std::string& user, const std::string& password, const std::string& third,
                            ZEL_FND_USER_ACCESS_LEVEL& level);
    unsigned int set_func_login_mode(ESV_ZEL_MODE_10_VAL mode);
    /**
     * Appends one {@code tarnwick.zel.user.UserImpl} per local user of the device to
     * {@code list}, a {@code java.util.ArrayList}.
     * @return 0 success, 4 failure (a Java exception met while building the list stays pending)
     */
    unsigned int get_local_user_list(jobject list);
};

}  // namespace tarnwick

#endif
