// Shared state of the simulated user and department facades (device side only): the users'
// model, used by the user facade (sim_user.cpp), its control interface (sim_user_control.cpp)
// and the department facade (sim_dept.cpp), which counts a user's pages to the user's
// department.
#ifndef TOVR_SIM_USER_INTERNAL_H
#define TOVR_SIM_USER_INTERNAL_H

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <map>
#include <mutex>
#include <string>
#include <vector>

#include "tovr_sim_user.h"

namespace tovr_sim {

// The department a user's pages count to: a hidden user's dept_code, or a local user's
// dept_id in decimal; "" when the user is unknown or has none.
std::string department_of_user(const std::string& login_name);

namespace usersim {

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

LocalUser administrator();
Users& users();
ESV_ZEL_USERINFO_RECORD record_of(const LocalUser& u);
ESV_ZEL_USERINFO_RECORD record_of(const ESV_ZEL_HIDE_USERINFO_RECORD& h);
LocalUser* find_local(Users& u, const std::string& login_name);
bool name_taken(Users& u, const std::string& login_name);
// A login name and password checked against local and hidden users, within a domain ("" is
// the device's own accounts). Fills the user's rights.
long check_password(Users& u, const std::string& login_name, const std::string& password, const std::string& domain,
                    int* rights);
unsigned long open_session(Users& u, const std::string& login_name);
bool known_mode(int mode);
long login(const std::string& user, const std::string& password, ESV_ZEL_USER_AUTHMODE mode,
           const std::string& domain, unsigned long* cert_id);
long get_rights(const std::string& user, const std::string& password, const std::string& domain,
                ESV_ZEL_USER_RIGHTS* rights);
// A hidden record as stored: every text within its field and terminated.
ESV_ZEL_HIDE_USERINFO_RECORD stored(const ESV_ZEL_HIDE_USERINFO_RECORD& in);
bool known_rights(int rights);

}  // namespace usersim
}  // namespace tovr_sim

#endif
