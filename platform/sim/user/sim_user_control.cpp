// Simulated user facade: the control interface of tests and tools (users, sessions, modes and
// typed forcings of the outputs).
#include <cstdio>
#include <set>

#include "sim_user_internal.h"

namespace tovr_sim {

using namespace usersim;

namespace {
const bool registered = register_service(Service{"user", [] {
    reset_users();
    reset_depts();
}, nullptr});
}  // namespace

void reset_users() {
    Users& u = users();
    std::lock_guard<std::mutex> lock(u.mutex);
    resource_closed(kUserListResource, u.cursors.size());
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

ESV_ZEL_USERINFO_RECORD userinfo_record(std::uint32_t id, const SimUser& user) {
    LocalUser l;
    l.id = id;
    l.user = user;
    return record_of(l);
}

ESV_ZEL_USERINFO_RECORD userinfo_record_full(int rights) {
    ESV_ZEL_USERINFO_RECORD r;
    std::memset(&r, 0, sizeof r);
    std::memset(r.login_name, 'L', sizeof r.login_name);
    std::memset(r.user_name, 'U', sizeof r.user_name);
    std::memset(r.email, 'M', sizeof r.email);
    std::memset(r.kana, 'K', sizeof r.kana);
    r.rights = static_cast<ESV_ZEL_USER_RIGHTS>(rights);
    return r;
}

void force_login_output(const std::string& op, long result, unsigned long cert_id, int times) {
    force_output(op, result, output_value(-1, cert_id), times);  // the last argument of either form
}

void force_rights_output(long result, int rights, int times) {
    force_output("esv_zel_user_get_rights", result, output_value(-1, static_cast<ESV_ZEL_USER_RIGHTS>(rights)), times);
}

void force_auth_mode_output(long result, int mode, int times) {
    force_output("esv_zel_user_get_authentication_mode", result,
                 output_value(0, static_cast<ESV_ZEL_USER_AUTHMODE>(mode)), times);
}

void force_userinfo_output(long result, const ESV_ZEL_USERINFO_RECORD& record, int times) {
    force_output("esv_zel_user_get_userinfo", result, output_record(1, record), times);
}

void force_list_prepare_output(long result, unsigned int handle, unsigned int total_num, int times) {
    force_outputs("esv_zel_user_get_local_user_list_prepare", result,
                  {output_value(1, handle), output_value(2, total_num)}, times);
}

void force_list_fetch_output(long result, unsigned int get_num, const ESV_ZEL_USERINFO_RECORD* record, int times) {
    std::vector<Output> outputs{output_value(1, get_num)};
    if (record != nullptr) outputs.push_back(output_record(2, *record));
    force_outputs("esv_zel_user_get_local_user_list", result, outputs, times);
}

}  // namespace tovr_sim
