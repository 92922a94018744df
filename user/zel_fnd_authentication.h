// Logins and logouts, authentication modes, rights, the logged-in user's record and the local
// user list, over the user facade. Stateless; results are the four module results below.
#ifndef TARNWICK_ZEL_FND_AUTHENTICATION_H
#define TARNWICK_ZEL_FND_AUTHENTICATION_H

#include <jni.h>

#include <string>

#include "esv_zel_user_facade.h"
#include "zel_fnd_user_records.h"

namespace tarnwick {

class zel_fnd_authentication {
public:
    // Module results.
    static constexpr unsigned int kSuccess = 0;
    static constexpr unsigned int kInvalidPassword = 1;
    static constexpr unsigned int kNotFound = 2;
    static constexpr unsigned int kFailure = 4;

    zel_fnd_authentication();
    virtual ~zel_fnd_authentication();

    unsigned int login(const std::string& user, const std::string& password, ESV_ZEL_USER_AUTHMODE mode,
                       ZEL_FND_CERTIFICATE_ID& cert);
    unsigned int login(const std::string& user, const std::string& password, ESV_ZEL_USER_AUTHMODE mode,
                       const std::string& third, ZEL_FND_CERTIFICATE_ID& cert);
    unsigned int iccard_login(char* idm, ZEL_FND_CERTIFICATE_ID& cert);
    unsigned int logout(unsigned long cert_id);
    unsigned int get_login_user_info(ESV_ZEL_USER_USERKIND kind, ESV_ZEL_USERINFO_RECORD& rec);
    unsigned int get_auth_mode(ZEL_FND_AUTH_MODE& mode);
    unsigned int set_auth_mode(ESV_ZEL_USER_AUTHMODE mode);
    unsigned int get_rights(const std::string& user, const std::string& password, ZEL_FND_USER_ACCESS_LEVEL& level);
    unsigned int get_rights(const std::string& user, const std::string& password, const std::string& third,
                            ZEL_FND_USER_ACCESS_LEVEL& level);
    unsigned int set_func_login_mode(ESV_ZEL_MODE_10_VAL mode);
    // Appends one tarnwick.zel.user.UserImpl per local user to `list`, a java.util.ArrayList.
    unsigned int get_local_user_list(jobject list);
};

}  // namespace tarnwick

#endif
