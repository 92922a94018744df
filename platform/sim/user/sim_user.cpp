// Simulated user facade: its members, on the users' model (sim_user_model.cpp).
#include <cstring>

#include "esv_zel_user_facade.h"
#include "sim_user_internal.h"

using tarnwick::esv_zel_user_facade;
using namespace tovr_sim::usersim;

// ---------------------------------------------------------------------------------------------
// The facade

using namespace tovr_sim;

esv_zel_user_facade::esv_zel_user_facade() {}

TOVR_SIM_FACADE_INSTANCE(user)

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
