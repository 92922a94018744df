// User service facade: logins and certificates, authentication modes, rights, the local user
// list and hidden user accounts.
//
// A process-wide singleton; every member answers a result code of ESV_ZEL_USER_RET. The two
// records are exchanged with the closed facade library by address, so their layout is fixed
// and checked below on the host and on the device.
#ifndef ESV_ZEL_USER_FACADE_H
#define ESV_ZEL_USER_FACADE_H

#include <stdint.h>

#include <string>

// ---------------------------------------------------------------------------------------------
/**
 * The user service's answers. The authentication reports them as 0 (OK), 1 (invalid password),
 * 2 (not found) and 4 (anything else).
 */
enum ESV_ZEL_USER_RET : int {
    ESV_ZEL_USER_OK = 0x00000000,
    ESV_ZEL_USER_ERROR = 0x04010400,             ///< general failure
    ESV_ZEL_USER_INVALID_PASSWORD = 0x04010401,
    ESV_ZEL_USER_NOT_FOUND = 0x04010402,
    ESV_ZEL_USER_PARAM_ERROR = 0x04010403,
    ESV_ZEL_USER_NOT_LOGGED_IN = 0x04010404,     ///< unknown certificate, or nobody logged in
    ESV_ZEL_USER_DUPLICATE = 0x04010405,
    ESV_ZEL_USER_LIST_LIMIT = 0x04010406,        ///< too many list handles open
    ESV_ZEL_USER_INVALID_HANDLE = 0x04010407
};

// ---------------------------------------------------------------------------------------------
// Enumerations (int width; the library passes their values through).

/**
 * How the device authenticates its users (what a login names and what {@code get_auth_mode}
 * reports).
 */
enum ESV_ZEL_USER_AUTHMODE : int {
    /** No user authentication: the device is used without logging in. */
    ESV_ZEL_USER_AUTHMODE_OFF = 0,
    /** Local authentication: users registered on the device itself. */
    ESV_ZEL_USER_AUTHMODE_LOCAL = 1,
    /** Network authentication: users of a network domain (the login's third text names it). */
    ESV_ZEL_USER_AUTHMODE_NETWORK = 2
};

/** Whose record {@code zel_fnd_authentication.get_login_user_info} reads. */
enum ESV_ZEL_USER_USERKIND : int {
    ESV_ZEL_USER_USERKIND_LOGIN = 0,  ///< the user logged in last
    ESV_ZEL_USER_USERKIND_ADMIN = 1   ///< the device administrator
};

/** Access level of a user: administrator or ordinary user. */
enum ESV_ZEL_USER_RIGHTS : int {
    /** An administrator of the device. */
    ESV_ZEL_USER_RIGHTS_ADMIN = 0,
    /** An ordinary user. */
    ESV_ZEL_USER_RIGHTS_USER = 1
};

/**
 * Login per function ({@code set_func_login_mode}): off, or on (each function asks for a login).
 */
enum ESV_ZEL_MODE_10_VAL : int {
    ESV_ZEL_MODE_10_VAL_OFF = 0,
    ESV_ZEL_MODE_10_VAL_ON = 1
};

// ---------------------------------------------------------------------------------------------
// Records.

/**
 * A user as the device reports it: id, login name, name, mail address, rights, job limit,
 * department, pronunciation.
 */
struct ESV_ZEL_USERINFO_RECORD {
    uint32_t id;
    char login_name[129];
    char user_name[193];
    char email[129];
    ESV_ZEL_USER_RIGHTS rights;
    uint32_t job_limit;
    uint16_t dept_id;
    char kana[193];
};

/** A hidden user account ({@code zel_fnd_user_account}); its login name is its key. */
struct ESV_ZEL_HIDE_USERINFO_RECORD {
    char login_name[129];
    char login_passwd[129];
    char user_name[193];
    char email[129];
    char dept_code[9];
    ESV_ZEL_USER_RIGHTS rights;
    uint32_t job_limit;
};

#ifndef SWIG
#include "esv_zel_layout.h"

ESV_ZEL_SIZE(ESV_ZEL_USERINFO_RECORD, 660);
ESV_ZEL_LAYOUT(ESV_ZEL_USERINFO_RECORD, id, 0);
ESV_ZEL_LAYOUT(ESV_ZEL_USERINFO_RECORD, login_name, 4);
ESV_ZEL_LAYOUT(ESV_ZEL_USERINFO_RECORD, user_name, 133);
ESV_ZEL_LAYOUT(ESV_ZEL_USERINFO_RECORD, email, 326);
ESV_ZEL_LAYOUT(ESV_ZEL_USERINFO_RECORD, rights, 456);
ESV_ZEL_LAYOUT(ESV_ZEL_USERINFO_RECORD, job_limit, 460);
ESV_ZEL_LAYOUT(ESV_ZEL_USERINFO_RECORD, dept_id, 464);
ESV_ZEL_LAYOUT(ESV_ZEL_USERINFO_RECORD, kana, 466);
ESV_ZEL_SIZE(ESV_ZEL_HIDE_USERINFO_RECORD, 600);
ESV_ZEL_LAYOUT(ESV_ZEL_HIDE_USERINFO_RECORD, login_name, 0);
ESV_ZEL_LAYOUT(ESV_ZEL_HIDE_USERINFO_RECORD, login_passwd, 129);
ESV_ZEL_LAYOUT(ESV_ZEL_HIDE_USERINFO_RECORD, user_name, 258);
ESV_ZEL_LAYOUT(ESV_ZEL_HIDE_USERINFO_RECORD, email, 451);
ESV_ZEL_LAYOUT(ESV_ZEL_HIDE_USERINFO_RECORD, dept_code, 580);
ESV_ZEL_LAYOUT(ESV_ZEL_HIDE_USERINFO_RECORD, rights, 592);
ESV_ZEL_LAYOUT(ESV_ZEL_HIDE_USERINFO_RECORD, job_limit, 596);
#endif

namespace tarnwick {

class esv_zel_user_facade {
public:
    static esv_zel_user_facade* esv_zel_user_get_instance();

    /**
     * Logins hand out a certificate number through `cert_id`; logout takes it back. The third
     * string of the longer forms is the network domain the user belongs to.
     */
    long esv_zel_user_account_login(const std::string& user, const std::string& password,
                                    ESV_ZEL_USER_AUTHMODE mode, unsigned long* cert_id);
    long esv_zel_user_account_login(const std::string& user, const std::string& password,
                                    ESV_ZEL_USER_AUTHMODE mode, const std::string& domain,
                                    unsigned long* cert_id);
    long esv_zel_user_idm_login(char* idm, unsigned long* cert_id);
    long esv_zel_user_logout(unsigned long cert_id);
    long esv_zel_user_get_userinfo(ESV_ZEL_USER_USERKIND kind, ESV_ZEL_USERINFO_RECORD& record);

    long esv_zel_user_get_authentication_mode(ESV_ZEL_USER_AUTHMODE* mode);
    long esv_zel_user_set_authentication_mode(ESV_ZEL_USER_AUTHMODE mode);
    long esv_zel_user_set_func_auth_mode(ESV_ZEL_MODE_10_VAL mode);
    long esv_zel_user_get_rights(const std::string& user, const std::string& password, ESV_ZEL_USER_RIGHTS* rights);
    long esv_zel_user_get_rights(const std::string& user, const std::string& password, const std::string& domain,
                                 ESV_ZEL_USER_RIGHTS* rights);

    /**
     * The local users, `per_fetch` records per fetch: prepare opens a list handle and tells
     * the total, each fetch fills up to `per_fetch` records and tells how many, finish closes.
     */
    long esv_zel_user_get_local_user_list_prepare(unsigned int per_fetch, unsigned int& handle,
                                                  unsigned int& total_num);
    long esv_zel_user_get_local_user_list(unsigned int handle, unsigned int& get_num,
                                          ESV_ZEL_USERINFO_RECORD* records);
    long esv_zel_user_get_local_user_list_finish(unsigned int handle);

    /** Hidden user accounts, by login name. */
    long esv_zel_user_create_hide_account(const ESV_ZEL_HIDE_USERINFO_RECORD& record);
    long esv_zel_user_update_hide_account(const ESV_ZEL_HIDE_USERINFO_RECORD& record);
    long esv_zel_user_delete_hide_account(const std::string& login_name);
    long esv_zel_user_delete_all_hide_account();

private:
    esv_zel_user_facade();
    esv_zel_user_facade(const esv_zel_user_facade&) = delete;
    esv_zel_user_facade& operator=(const esv_zel_user_facade&) = delete;
};

}  // namespace tarnwick

#endif
