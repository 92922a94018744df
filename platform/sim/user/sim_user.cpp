// Simulated user facade: local and hidden users with real state, password checks, login
// sessions with certificate numbers, authentication modes and the local user list handles.
#include <algorithm>
#include <cstdio>
#include <cstring>
#include <map>
#include <mutex>
#include <set>

#include "esv_zel_user_facade.h"
#include "sim_user_internal.h"
#include "tovr_sim_user.h"

using tarnwick::esv_zel_user_facade;

namespace tovr_sim {
namespace {

struct LocalUser {
    std::uint32_t id = 0;
    SimUser user;
};

struct Cursor {
    std::vector<ESV_ZEL_USERINFO_RECORD> records;  // snapshot taken at prepare
    std::size_t pos = 0;
    unsigned int per_fetch = 1;
};

struct Session {
    std::string login_name;
};

struct Users {
    std::mutex mutex;
    std::map<std::uint32_t, LocalUser> local;  // by id: the list order
    std::map<std::string, ESV_ZEL_HIDE_USERINFO_RECORD> hidden;
    std::map<unsigned long, Session> sessions;
    std::vector<unsigned long> login_order;  // certificates, latest last
    std::map<unsigned int, Cursor> cursors;
    std::uint32_t next_id = 2;
    unsigned long next_cert = kFirstCertificate;
    unsigned int next_handle = 1;
    int auth_mode = ESV_ZEL_USER_AUTHMODE_OFF;
    int func_mode = ESV_ZEL_MODE_10_VAL_OFF;
};

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

template <std::size_t N>
void put(char (&field)[N], const std::string& text) {
    std::size_t n = std::min(text.size(), N - 1);
    std::memcpy(field, text.data(), n);
    std::memset(field + n, 0, N - n);
}

template <std::size_t N>
std::string get(const char (&field)[N]) {
    return std::string(field, strnlen(field, N));
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

ESV_ZEL_USERINFO_RECORD record_of(const ESV_ZEL_HIDE_USERINFO_RECORD& h) {
    ESV_ZEL_USERINFO_RECORD r;
    std::memset(&r, 0, sizeof r);
    put(r.login_name, get(h.login_name));
    put(r.user_name, get(h.user_name));
    put(r.email, get(h.email));
    r.rights = h.rights;
    r.job_limit = h.job_limit;
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

long login(const std::string& user, const std::string& password, ESV_ZEL_USER_AUTHMODE mode,
           const std::string& domain, unsigned long* cert_id) {
    if (cert_id == nullptr || !known_mode(mode) || user.empty()) return ESV_ZEL_USER_PARAM_ERROR;
    Users& u = users();
    std::lock_guard<std::mutex> lock(u.mutex);
    int rights = 0;
    long rc = check_password(u, user, password, domain, &rights);
    if (rc != ESV_ZEL_USER_OK) return rc;
    *cert_id = open_session(u, user);
    return ESV_ZEL_USER_OK;
}

long get_rights(const std::string& user, const std::string& password, const std::string& domain,
                ESV_ZEL_USER_RIGHTS* rights) {
    if (rights == nullptr) return ESV_ZEL_USER_PARAM_ERROR;
    Users& u = users();
    std::lock_guard<std::mutex> lock(u.mutex);
    int value = 0;
    long rc = check_password(u, user, password, domain, &value);
    if (rc == ESV_ZEL_USER_OK) *rights = static_cast<ESV_ZEL_USER_RIGHTS>(value);
    return rc;
}

// A hidden record as stored: every text within its field and terminated.
ESV_ZEL_HIDE_USERINFO_RECORD stored(const ESV_ZEL_HIDE_USERINFO_RECORD& in) {
    ESV_ZEL_HIDE_USERINFO_RECORD r;
    std::memset(&r, 0, sizeof r);
    put(r.login_name, get(in.login_name));
    put(r.login_passwd, get(in.login_passwd));
    put(r.user_name, get(in.user_name));
    put(r.email, get(in.email));
    put(r.dept_code, get(in.dept_code));
    r.rights = in.rights;
    r.job_limit = in.job_limit;
    return r;
}

bool known_rights(int rights) { return rights == ESV_ZEL_USER_RIGHTS_ADMIN || rights == ESV_ZEL_USER_RIGHTS_USER; }

}  // namespace

// ---------------------------------------------------------------------------------------------
// Control

void reset_users() {
    Users& u = users();
    std::lock_guard<std::mutex> lock(u.mutex);
    for (std::size_t i = 0; i < u.cursors.size(); ++i) resource_closed(kUserListResource);
    u.local.clear();
    u.local[1] = administrator();
    u.hidden.clear();
    u.sessions.clear();
    u.login_order.clear();
    u.cursors.clear();
    u.next_id = 2;
    u.next_cert = kFirstCertificate;
    u.next_handle = 1;
    u.auth_mode = ESV_ZEL_USER_AUTHMODE_OFF;
    u.func_mode = ESV_ZEL_MODE_10_VAL_OFF;
}

std::uint32_t add_local_user(const SimUser& user) {
    Users& u = users();
    std::lock_guard<std::mutex> lock(u.mutex);
    if (user.login_name.empty() || name_taken(u, user.login_name)) return 0;
    LocalUser l;
    l.id = u.next_id++;
    l.user = user;
    u.local[l.id] = l;
    return l.id;
}

// One lock and one look at the names for the whole batch: lists of many thousand users are
// made quickly.
void add_local_users(int count) {
    Users& u = users();
    std::lock_guard<std::mutex> lock(u.mutex);
    std::set<std::string> taken;
    for (auto& [id, l] : u.local) taken.insert(l.user.login_name);
    for (auto& [name, h] : u.hidden) taken.insert(name);
    for (int n = 1; n <= count; ++n) {
        char login[16];
        std::snprintf(login, sizeof login, "user%05d", n);
        if (!taken.insert(login).second) continue;
        LocalUser l;
        l.id = u.next_id++;
        l.user.login_name = login;
        l.user.password = "pw" + std::to_string(n);
        l.user.user_name = "User " + std::to_string(n);
        l.user.email = std::string(login) + "@example.com";
        l.user.rights = n % 10 == 0 ? ESV_ZEL_USER_RIGHTS_ADMIN : ESV_ZEL_USER_RIGHTS_USER;
        l.user.job_limit = static_cast<std::uint32_t>(n);
        l.user.dept_id = static_cast<std::uint16_t>(n % 7);
        u.local[l.id] = l;
    }
}

bool remove_local_user(const std::string& login_name) {
    Users& u = users();
    std::lock_guard<std::mutex> lock(u.mutex);
    for (auto it = u.local.begin(); it != u.local.end(); ++it) {
        if (it->second.user.login_name == login_name) {
            u.local.erase(it);
            return true;
        }
    }
    return false;
}

std::size_t local_user_count() {
    Users& u = users();
    std::lock_guard<std::mutex> lock(u.mutex);
    return u.local.size();
}

bool hidden_user(const std::string& login_name, ESV_ZEL_HIDE_USERINFO_RECORD* out) {
    Users& u = users();
    std::lock_guard<std::mutex> lock(u.mutex);
    auto it = u.hidden.find(login_name);
    if (it == u.hidden.end()) return false;
    if (out != nullptr) *out = it->second;
    return true;
}

std::size_t hidden_user_count() {
    Users& u = users();
    std::lock_guard<std::mutex> lock(u.mutex);
    return u.hidden.size();
}

std::vector<unsigned long> sessions() {
    Users& u = users();
    std::lock_guard<std::mutex> lock(u.mutex);
    return u.login_order;
}

std::string session_user(unsigned long cert_id) {
    Users& u = users();
    std::lock_guard<std::mutex> lock(u.mutex);
    auto it = u.sessions.find(cert_id);
    return it == u.sessions.end() ? std::string() : it->second.login_name;
}

int auth_mode() {
    Users& u = users();
    std::lock_guard<std::mutex> lock(u.mutex);
    return u.auth_mode;
}

int func_auth_mode() {
    Users& u = users();
    std::lock_guard<std::mutex> lock(u.mutex);
    return u.func_mode;
}

std::string department_of_user(const std::string& login_name) {
    Users& u = users();
    std::lock_guard<std::mutex> lock(u.mutex);
    auto h = u.hidden.find(login_name);
    if (h != u.hidden.end()) return get(h->second.dept_code);
    if (LocalUser* l = find_local(u, login_name)) {
        return l->user.dept_id == 0 ? std::string() : std::to_string(l->user.dept_id);
    }
    return std::string();
}

void force_login_output(const std::string& op, long result, unsigned long cert_id, int times) {
    force(op, [result, cert_id](const Params& p) {
        if (!p.empty() && p.back() != nullptr) *static_cast<unsigned long*>(p.back()) = cert_id;
        return result;
    }, times);
}

void force_rights_output(long result, int rights, int times) {
    force("esv_zel_user_get_rights", [result, rights](const Params& p) {
        if (!p.empty() && p.back() != nullptr) *static_cast<ESV_ZEL_USER_RIGHTS*>(p.back()) = static_cast<ESV_ZEL_USER_RIGHTS>(rights);
        return result;
    }, times);
}

void force_auth_mode_output(long result, int mode, int times) {
    force("esv_zel_user_get_authentication_mode", [result, mode](const Params& p) {
        if (p.size() == 1 && p[0] != nullptr) *static_cast<ESV_ZEL_USER_AUTHMODE*>(p[0]) = static_cast<ESV_ZEL_USER_AUTHMODE>(mode);
        return result;
    }, times);
}

void force_userinfo_output(long result, const ESV_ZEL_USERINFO_RECORD& record, int times) {
    force("esv_zel_user_get_userinfo", [result, record](const Params& p) {
        if (p.size() == 2 && p[1] != nullptr) *static_cast<ESV_ZEL_USERINFO_RECORD*>(p[1]) = record;
        return result;
    }, times);
}

void force_list_prepare_output(long result, unsigned int handle, unsigned int total_num, int times) {
    force("esv_zel_user_get_local_user_list_prepare", [result, handle, total_num](const Params& p) {
        if (p.size() == 3) {
            *static_cast<unsigned int*>(p[1]) = handle;
            *static_cast<unsigned int*>(p[2]) = total_num;
        }
        return result;
    }, times);
}

void force_list_fetch_output(long result, unsigned int get_num, const ESV_ZEL_USERINFO_RECORD* record, int times) {
    bool has_record = record != nullptr;
    ESV_ZEL_USERINFO_RECORD copy;
    std::memset(&copy, 0, sizeof copy);
    if (has_record) copy = *record;
    force("esv_zel_user_get_local_user_list", [result, get_num, has_record, copy](const Params& p) {
        if (p.size() == 3) {
            *static_cast<unsigned int*>(p[1]) = get_num;
            if (has_record && p[2] != nullptr) *static_cast<ESV_ZEL_USERINFO_RECORD*>(p[2]) = copy;
        }
        return result;
    }, times);
}

}  // namespace tovr_sim

// ---------------------------------------------------------------------------------------------
// The facade

using namespace tovr_sim;

esv_zel_user_facade::esv_zel_user_facade() {}

esv_zel_user_facade* esv_zel_user_facade::esv_zel_user_get_instance() {
    static esv_zel_user_facade* instance = new esv_zel_user_facade;
    return instance;
}

long esv_zel_user_facade::esv_zel_user_account_login(const std::string& user, const std::string& password,
                                                     ESV_ZEL_USER_AUTHMODE mode, unsigned long* cert_id) {
    TOVR_SIM_RECORD(long, user, password, mode, cert_id);
    return login(user, password, mode, std::string(), cert_id);
}

long esv_zel_user_facade::esv_zel_user_account_login(const std::string& user, const std::string& password,
                                                     ESV_ZEL_USER_AUTHMODE mode, const std::string& domain,
                                                     unsigned long* cert_id) {
    TOVR_SIM_RECORD(long, user, password, mode, domain, cert_id);
    return login(user, password, mode, domain, cert_id);
}

long esv_zel_user_facade::esv_zel_user_idm_login(char* idm, unsigned long* cert_id) {
    TOVR_SIM_RECORD(long, idm, cert_id);
    if (idm == nullptr || cert_id == nullptr || idm[0] == '\0') return ESV_ZEL_USER_PARAM_ERROR;
    Users& u = users();
    std::lock_guard<std::mutex> lock(u.mutex);
    for (auto& [id, l] : u.local) {
        if (!l.user.idm.empty() && l.user.idm == idm) {
            *cert_id = open_session(u, l.user.login_name);
            return ESV_ZEL_USER_OK;
        }
    }
    return ESV_ZEL_USER_NOT_FOUND;
}

long esv_zel_user_facade::esv_zel_user_logout(unsigned long cert_id) {
    TOVR_SIM_RECORD(long, cert_id);
    Users& u = users();
    std::lock_guard<std::mutex> lock(u.mutex);
    if (u.sessions.erase(cert_id) == 0) return ESV_ZEL_USER_NOT_LOGGED_IN;
    u.login_order.erase(std::remove(u.login_order.begin(), u.login_order.end(), cert_id), u.login_order.end());
    return ESV_ZEL_USER_OK;
}

long esv_zel_user_facade::esv_zel_user_get_userinfo(ESV_ZEL_USER_USERKIND kind, ESV_ZEL_USERINFO_RECORD& record) {
    TOVR_SIM_RECORD(long, kind, record);
    Users& u = users();
    std::lock_guard<std::mutex> lock(u.mutex);
    if (kind == ESV_ZEL_USER_USERKIND_ADMIN) {
        auto it = u.local.find(1);
        if (it == u.local.end()) return ESV_ZEL_USER_NOT_FOUND;
        record = record_of(it->second);
        return ESV_ZEL_USER_OK;
    }
    if (kind != ESV_ZEL_USER_USERKIND_LOGIN) return ESV_ZEL_USER_PARAM_ERROR;
    if (u.login_order.empty()) return ESV_ZEL_USER_NOT_LOGGED_IN;
    const std::string& name = u.sessions[u.login_order.back()].login_name;
    if (LocalUser* l = find_local(u, name)) {
        record = record_of(*l);
        return ESV_ZEL_USER_OK;
    }
    auto h = u.hidden.find(name);
    if (h == u.hidden.end()) return ESV_ZEL_USER_NOT_FOUND;  // removed while logged in
    record = record_of(h->second);
    return ESV_ZEL_USER_OK;
}

long esv_zel_user_facade::esv_zel_user_get_authentication_mode(ESV_ZEL_USER_AUTHMODE* mode) {
    TOVR_SIM_RECORD(long, mode);
    if (mode == nullptr) return ESV_ZEL_USER_PARAM_ERROR;
    Users& u = users();
    std::lock_guard<std::mutex> lock(u.mutex);
    *mode = static_cast<ESV_ZEL_USER_AUTHMODE>(u.auth_mode);
    return ESV_ZEL_USER_OK;
}

long esv_zel_user_facade::esv_zel_user_set_authentication_mode(ESV_ZEL_USER_AUTHMODE mode) {
    TOVR_SIM_RECORD(long, mode);
    if (!known_mode(mode)) return ESV_ZEL_USER_PARAM_ERROR;
    Users& u = users();
    std::lock_guard<std::mutex> lock(u.mutex);
    u.auth_mode = mode;
    return ESV_ZEL_USER_OK;
}

long esv_zel_user_facade::esv_zel_user_set_func_auth_mode(ESV_ZEL_MODE_10_VAL mode) {
    TOVR_SIM_RECORD(long, mode);
    if (mode != ESV_ZEL_MODE_10_VAL_OFF && mode != ESV_ZEL_MODE_10_VAL_ON) return ESV_ZEL_USER_PARAM_ERROR;
    Users& u = users();
    std::lock_guard<std::mutex> lock(u.mutex);
    u.func_mode = mode;
    return ESV_ZEL_USER_OK;
}

long esv_zel_user_facade::esv_zel_user_get_rights(const std::string& user, const std::string& password,
                                                  ESV_ZEL_USER_RIGHTS* rights) {
    TOVR_SIM_RECORD(long, user, password, rights);
    return get_rights(user, password, std::string(), rights);
}

long esv_zel_user_facade::esv_zel_user_get_rights(const std::string& user, const std::string& password,
                                                  const std::string& domain, ESV_ZEL_USER_RIGHTS* rights) {
    TOVR_SIM_RECORD(long, user, password, domain, rights);
    return get_rights(user, password, domain, rights);
}

long esv_zel_user_facade::esv_zel_user_get_local_user_list_prepare(unsigned int per_fetch, unsigned int& handle,
                                                                   unsigned int& total_num) {
    TOVR_SIM_RECORD(long, per_fetch, handle, total_num);
    if (per_fetch == 0) return ESV_ZEL_USER_PARAM_ERROR;
    Users& u = users();
    std::lock_guard<std::mutex> lock(u.mutex);
    if (u.cursors.size() >= static_cast<std::size_t>(kUserListLimit)) return ESV_ZEL_USER_LIST_LIMIT;
    Cursor c;
    c.per_fetch = per_fetch;
    for (auto& [id, l] : u.local) c.records.push_back(record_of(l));
    handle = u.next_handle++;
    if (u.next_handle == 0) u.next_handle = 1;
    total_num = static_cast<unsigned int>(c.records.size());
    u.cursors[handle] = std::move(c);
    resource_opened(kUserListResource);
    return ESV_ZEL_USER_OK;
}

// Fills up to per_fetch records; past the end there is nothing more to fetch.
long esv_zel_user_facade::esv_zel_user_get_local_user_list(unsigned int handle, unsigned int& get_num,
                                                           ESV_ZEL_USERINFO_RECORD* records) {
    TOVR_SIM_RECORD(long, handle, get_num, records);
    Users& u = users();
    std::lock_guard<std::mutex> lock(u.mutex);
    auto it = u.cursors.find(handle);
    if (it == u.cursors.end()) return ESV_ZEL_USER_INVALID_HANDLE;
    if (records == nullptr) return ESV_ZEL_USER_PARAM_ERROR;
    Cursor& c = it->second;
    if (c.pos >= c.records.size()) {
        get_num = 0;
        return ESV_ZEL_USER_NOT_FOUND;
    }
    std::size_t n = std::min<std::size_t>(c.per_fetch, c.records.size() - c.pos);
    for (std::size_t i = 0; i < n; ++i) records[i] = c.records[c.pos + i];
    c.pos += n;
    get_num = static_cast<unsigned int>(n);
    return ESV_ZEL_USER_OK;
}

long esv_zel_user_facade::esv_zel_user_get_local_user_list_finish(unsigned int handle) {
    TOVR_SIM_RECORD(long, handle);
    Users& u = users();
    std::lock_guard<std::mutex> lock(u.mutex);
    if (u.cursors.erase(handle) == 0) return ESV_ZEL_USER_INVALID_HANDLE;
    resource_closed(kUserListResource);
    return ESV_ZEL_USER_OK;
}

long esv_zel_user_facade::esv_zel_user_create_hide_account(const ESV_ZEL_HIDE_USERINFO_RECORD& record) {
    TOVR_SIM_RECORD(long, record);
    ESV_ZEL_HIDE_USERINFO_RECORD r = stored(record);
    std::string name = get(r.login_name);
    if (name.empty() || !known_rights(r.rights)) return ESV_ZEL_USER_PARAM_ERROR;
    Users& u = users();
    std::lock_guard<std::mutex> lock(u.mutex);
    if (name_taken(u, name)) return ESV_ZEL_USER_DUPLICATE;
    u.hidden[name] = r;
    return ESV_ZEL_USER_OK;
}

long esv_zel_user_facade::esv_zel_user_update_hide_account(const ESV_ZEL_HIDE_USERINFO_RECORD& record) {
    TOVR_SIM_RECORD(long, record);
    ESV_ZEL_HIDE_USERINFO_RECORD r = stored(record);
    if (!known_rights(r.rights)) return ESV_ZEL_USER_PARAM_ERROR;
    Users& u = users();
    std::lock_guard<std::mutex> lock(u.mutex);
    auto it = u.hidden.find(get(r.login_name));
    if (it == u.hidden.end()) return ESV_ZEL_USER_NOT_FOUND;
    it->second = r;
    return ESV_ZEL_USER_OK;
}

long esv_zel_user_facade::esv_zel_user_delete_hide_account(const std::string& login_name) {
    TOVR_SIM_RECORD(long, login_name);
    Users& u = users();
    std::lock_guard<std::mutex> lock(u.mutex);
    if (u.hidden.erase(login_name) == 0) return ESV_ZEL_USER_NOT_FOUND;
    return ESV_ZEL_USER_OK;
}

long esv_zel_user_facade::esv_zel_user_delete_all_hide_account() {
    TOVR_SIM_RECORD(long);
    Users& u = users();
    std::lock_guard<std::mutex> lock(u.mutex);
    u.hidden.clear();
    return ESV_ZEL_USER_OK;
}
