// Control interface of the simulated user and department facades.
//
// Test and tool code only. The user facade keeps local users (shown in the device's user list),
// hidden users (registered by applications, kept out of that list), login sessions with their
// certificate numbers, the authentication modes and open list handles. The department facade
// keeps the device-wide accounting settings and hidden departments with their limits,
// restrictions and per-slot page counters; printed pages of simulated jobs advance them.
#ifndef TOVR_SIM_USER_H
#define TOVR_SIM_USER_H

#include <cstdint>
#include <string>
#include <vector>

#include "esv_zel_dept_facade.h"
#include "esv_zel_user_facade.h"
#include "tovr_sim.h"

namespace tovr_sim {

// ---------------------------------------------------------------------------------------------
// Users

// Kind counted by open_resources() for the local user list handles.
constexpr const char* kUserListResource = "user list";
// Open list handles allowed at once (prepare answers ESV_ZEL_USER_LIST_LIMIT beyond).
constexpr int kUserListLimit = 8;
// First certificate number handed out after reset_users().
constexpr unsigned long kFirstCertificate = 7001;

struct SimUser {
    std::string login_name;
    std::string password;
    std::string user_name;
    std::string email;
    std::string kana;
    std::string idm;      // IC card IDm (hex text as the reader reports it); empty: no card
    std::string domain;   // network domain; empty for a local account
    int rights = ESV_ZEL_USER_RIGHTS_USER;
    std::uint32_t job_limit = 0;
    std::uint16_t dept_id = 0;
};

// Drops every local and hidden user, session and list handle; authentication mode 0, function
// login off, certificates from kFirstCertificate again. Leaves the built-in administrator
// ("Admin", password "admin", id 1).
void reset_users();
// Adds a local user (login names are unique among local and hidden users); returns its id, or
// 0 when the login name is taken or empty. Texts longer than their record fields are cut.
std::uint32_t add_local_user(const SimUser& user);
// Adds `count` local users "user00001" ... with password "pw<n>", display name "User <n>",
// mail "user<n>@example.com", rights 1 (every tenth an administrator).
void add_local_users(int count);
bool remove_local_user(const std::string& login_name);
std::size_t local_user_count();

// A hidden user as stored (false when unknown).
bool hidden_user(const std::string& login_name, ESV_ZEL_HIDE_USERINFO_RECORD* out);
std::size_t hidden_user_count();

// Login sessions: certificate numbers now valid, and whose they are ("" when unknown).
std::vector<unsigned long> sessions();
std::string session_user(unsigned long cert_id);

int auth_mode();
int func_auth_mode();

// A user record as the device lists it: `user`'s fields (texts cut to their fields and
// terminated) under `id`.
ESV_ZEL_USERINFO_RECORD userinfo_record(std::uint32_t id, const SimUser& user);
// A user record whose texts fill their fields completely (no terminator), with `rights`.
ESV_ZEL_USERINFO_RECORD userinfo_record_full(int rights);

// Typed output forcings: the next `times` calls of the operation answer `result` and write the
// given output (whatever the result).
// esv_zel_user_account_login (either form) or esv_zel_user_idm_login: the certificate.
void force_login_output(const std::string& op, long result, unsigned long cert_id, int times = 1);
void force_rights_output(long result, int rights, int times = 1);
void force_auth_mode_output(long result, int mode, int times = 1);
void force_userinfo_output(long result, const ESV_ZEL_USERINFO_RECORD& record, int times = 1);
void force_list_prepare_output(long result, unsigned int handle, unsigned int total_num, int times = 1);
// Writes `get_num` and, when `record` is given, copies it into the first record of the buffer.
void force_list_fetch_output(long result, unsigned int get_num, const ESV_ZEL_USERINFO_RECORD* record,
                             int times = 1);

// ---------------------------------------------------------------------------------------------
// Departments
//
// Counter slots as the department object addresses them (job type, mix mode): printed copy
// pages count in slot 3 when copy and print are counted separately and in slot 0 when mixed;
// printed pages of print jobs in slot 6, or slot 0 when mixed. Pages count only while
// department accounting is on, for the department of the job's user (a hidden user's
// dept_code, or a local user's dept_id in decimal).

constexpr int kMaxDepartments = 100;

// Drops every department and counter; settings back to: limit action 0, jobs without
// department prohibited (0), separate counting (0), accounting off (0).
void reset_depts();
bool dept(const std::string& id, ESV_ZEL_DEPT_DEPTINFO* out);
std::vector<std::string> dept_ids();
// Page counter of a slot (0 for an unknown department or slot).
unsigned int dept_counter(const std::string& id, int slot);
// Counts `pages` printed pages of a copy (or print) job to a department, as the device does.
void dept_count_pages(const std::string& id, bool copy, unsigned int pages);
int dept_limit_action();
int dept_invalid_mode();
int dept_mix_mode();
int dept_mode();

// Hook of the job runner: one printed page of a job whose user is `user_name`.
void dept_page_printed(const std::string& user_name, bool copy);

// A department record with `id` and `name` (cut to their fields and terminated), the rest zero.
ESV_ZEL_DEPT_DEPTINFO dept_record(const std::string& id, const std::string& name);
// A department record whose texts fill their fields completely (no terminator).
ESV_ZEL_DEPT_DEPTINFO dept_record_full();

// Typed output forcings of the department facade.
// One of the four get_* setting operations: writes `value` into its output.
void force_dept_value_output(const std::string& op, long result, int value, int times = 1);
// esv_zel_dept_retrieve_hide_dept: copies `record` into the output.
void force_dept_record_output(long result, const ESV_ZEL_DEPT_DEPTINFO& record, int times = 1);

}  // namespace tovr_sim

#endif
