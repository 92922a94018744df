// Simulated user facade: the users' model. Local and hidden users with real state, password
// checks, login sessions with certificate numbers.
#include "sim_user_internal.h"

namespace tovr_sim {
namespace usersim {

LocalUser administrator() {
    LocalUser a;
    a.id = 1;
    a.user.login_name = "Admin";
    a.user.password = "admin";
    a.user.user_name = "Administrator";
    a.user.rights = ESV_ZEL_USER_RIGHTS_ADMIN;
    return a;
}

Users& users() {
    static Users* u = [] {
        auto* fresh = new Users;  // leaked: facade calls may come at exit
        fresh->local[1] = administrator();
        return fresh;
    }();
    return *u;
}
ESV_ZEL_USERINFO_RECORD record_of(const LocalUser& u) {
    ESV_ZEL_USERINFO_RECORD r;
    std::memset(&r, 0, sizeof r);
    r.id = u.id;
    put(r.login_name, u.user.login_name);
    put(r.user_name, u.user.user_name);
    put(r.email, u.user.email);
    r.rights = static_cast<ESV_ZEL_USER_RIGHTS>(u.user.rights);
    r.job_limit = u.user.job_limit;
    r.dept_id = u.user.dept_id;
    put(r.kana, u.user.kana);
    return r;
}

namespace {

// The fields a user record shares with a hidden one, taken from the hidden one: texts within
// their fields and terminated.
template <typename Record>
void put_shared(Record& r, const ESV_ZEL_HIDE_USERINFO_RECORD& h) {
    put(r.login_name, get(h.login_name));
    put(r.user_name, get(h.user_name));
    put(r.email, get(h.email));
    r.rights = h.rights;
    r.job_limit = h.job_limit;
}

}  // namespace

ESV_ZEL_USERINFO_RECORD record_of(const ESV_ZEL_HIDE_USERINFO_RECORD& h) {
    ESV_ZEL_USERINFO_RECORD r;
    std::memset(&r, 0, sizeof r);
    put_shared(r, h);
    return r;
}

LocalUser* find_local(Users& u, const std::string& login_name) {
    for (auto& [id, user] : u.local) {
        if (user.user.login_name == login_name) return &user;
    }
    return nullptr;
}

bool name_taken(Users& u, const std::string& login_name) {
    return find_local(u, login_name) != nullptr || u.hidden.count(login_name) != 0;
}

// A login name and password checked against local and hidden users, within a domain ("" is
// the device's own accounts). Fills the user's rights.
long check_password(Users& u, const std::string& login_name, const std::string& password, const std::string& domain,
                    int* rights) {
    if (LocalUser* l = find_local(u, login_name)) {
        if (l->user.domain != domain) return ESV_ZEL_USER_NOT_FOUND;
        if (l->user.password != password) return ESV_ZEL_USER_INVALID_PASSWORD;
        *rights = l->user.rights;
        return ESV_ZEL_USER_OK;
    }
    auto h = u.hidden.find(login_name);
    if (h == u.hidden.end() || !domain.empty()) return ESV_ZEL_USER_NOT_FOUND;
    if (get(h->second.login_passwd) != password) return ESV_ZEL_USER_INVALID_PASSWORD;
    *rights = h->second.rights;
    return ESV_ZEL_USER_OK;
}

unsigned long open_session(Users& u, const std::string& login_name) {
    unsigned long cert = u.next_cert++;
    u.sessions[cert] = Session{login_name};
    u.login_order.push_back(cert);
    return cert;
}

bool known_mode(int mode) { return mode >= ESV_ZEL_USER_AUTHMODE_OFF && mode <= ESV_ZEL_USER_AUTHMODE_NETWORK; }

namespace {

// check_password() under the users' lock; when the password holds, `then(users, rights)` runs
// under the same lock.
template <typename Then>
long with_password(const std::string& user, const std::string& password, const std::string& domain, Then then) {
    Users& u = users();
    std::lock_guard<std::mutex> lock(u.mutex);
    int rights = 0;
    long rc = check_password(u, user, password, domain, &rights);
    if (rc == ESV_ZEL_USER_OK) then(u, rights);
    return rc;
}

}  // namespace

long login(const std::string& user, const std::string& password, ESV_ZEL_USER_AUTHMODE mode,
           const std::string& domain, unsigned long* cert_id) {
    if (cert_id == nullptr || !known_mode(mode) || user.empty()) return ESV_ZEL_USER_PARAM_ERROR;
    return with_password(user, password, domain, [&](Users& u, int) { *cert_id = open_session(u, user); });
}

long get_rights(const std::string& user, const std::string& password, const std::string& domain,
                ESV_ZEL_USER_RIGHTS* rights) {
    if (rights == nullptr) return ESV_ZEL_USER_PARAM_ERROR;
    return with_password(user, password, domain,
                         [&](Users&, int value) { *rights = static_cast<ESV_ZEL_USER_RIGHTS>(value); });
}

// A hidden record as stored: every text within its field and terminated.
ESV_ZEL_HIDE_USERINFO_RECORD stored(const ESV_ZEL_HIDE_USERINFO_RECORD& in) {
    ESV_ZEL_HIDE_USERINFO_RECORD r;
    std::memset(&r, 0, sizeof r);
    put_shared(r, in);
    put(r.login_passwd, get(in.login_passwd));
    put(r.dept_code, get(in.dept_code));
    return r;
}

bool known_rights(int rights) { return rights == ESV_ZEL_USER_RIGHTS_ADMIN || rights == ESV_ZEL_USER_RIGHTS_USER; }

}  // namespace usersim
}  // namespace tovr_sim
