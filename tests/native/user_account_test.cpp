// Hidden user accounts: result mapping with trace lines, and the simulated facade's real state.
#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <string>
#include <vector>

#include "sim_fixture.h"
#include "tovr_sim_user.h"
#include "zel_fnd_user_account.h"

using tarnwick::zel_fnd_user_account;
using sim_test::Line;

namespace {

std::vector<Line> acct(const std::string& op) { return sim_test::op_lines("zel_fnd_user_account", op); }

template <std::size_t N>
void put(char (&field)[N], const char* text) {
    std::strncpy(field, text, N - 1);
    field[N - 1] = '\0';
}

ESV_ZEL_HIDE_USERINFO_RECORD hidden(const char* login, const char* pw, const char* dept = "") {
    ESV_ZEL_HIDE_USERINFO_RECORD r;
    std::memset(&r, 0, sizeof r);
    put(r.login_name, login);
    put(r.login_passwd, pw);
    put(r.user_name, "Hidden One");
    put(r.email, "hidden@example.com");
    put(r.dept_code, dept);
    r.rights = ESV_ZEL_USER_RIGHTS_USER;
    r.job_limit = 40;
    return r;
}

class HiddenUsers : public sim_test::SimDeviceTest {
protected:
    zel_fnd_user_account acc;
};

TEST_F(HiddenUsers, CreateUpdateRemove) {
    ESV_ZEL_HIDE_USERINFO_RECORD r = hidden("svc", "pw1", "D01");
    EXPECT_EQ(0u, acc.create_hide_user(r));
    EXPECT_EQ((std::vector<Line>{{3, "success. retcode = [0]"}}), acct("create_hide_user"));
    ESV_ZEL_HIDE_USERINFO_RECORD stored;
    ASSERT_TRUE(tovr_sim::hidden_user("svc", &stored));
    EXPECT_STREQ("pw1", stored.login_passwd);
    EXPECT_STREQ("D01", stored.dept_code);
    EXPECT_EQ(40u, stored.job_limit);

    tovr_sim::clear_trace();
    EXPECT_EQ(3u, acc.create_hide_user(r));
    EXPECT_EQ((std::vector<Line>{{3, "duplicate id. retcode = [67175429]"}}), acct("create_hide_user"));

    put(r.user_name, "Renamed");
    EXPECT_EQ(0u, acc.update_hide_user(r));
    ASSERT_TRUE(tovr_sim::hidden_user("svc", &stored));
    EXPECT_STREQ("Renamed", stored.user_name);

    tovr_sim::clear_trace();
    ESV_ZEL_HIDE_USERINFO_RECORD unknown = hidden("ghost", "x");
    EXPECT_EQ(2u, acc.update_hide_user(unknown));
    EXPECT_EQ((std::vector<Line>{{3, "not found. retcode = [67175426]"}}), acct("update_hide_user"));

    tovr_sim::clear_trace();
    EXPECT_EQ(2u, acc.remove_hide_user("ghost"));
    EXPECT_EQ((std::vector<Line>{{3, "not found. retcode = [67175426]"}}), acct("remove_hide_user"));
    EXPECT_EQ(0u, acc.remove_hide_user("svc"));
    EXPECT_EQ(0u, tovr_sim::hidden_user_count());
}

TEST_F(HiddenUsers, HiddenUsersStayOutOfTheListButLogIn) {
    ASSERT_EQ(0u, acc.create_hide_user(hidden("svc", "pw1")));
    tarnwick::esv_zel_user_facade* f = tarnwick::esv_zel_user_facade::esv_zel_user_get_instance();
    unsigned int h = 0, total = 0;
    ASSERT_EQ(0, f->esv_zel_user_get_local_user_list_prepare(1, h, total));
    EXPECT_EQ(1u, total);  // the administrator only
    f->esv_zel_user_get_local_user_list_finish(h);
    unsigned long cert = 0;
    EXPECT_EQ(0, f->esv_zel_user_account_login("svc", "pw1", ESV_ZEL_USER_AUTHMODE_LOCAL, &cert));
    EXPECT_EQ("svc", tovr_sim::session_user(cert));
    // A local user's name cannot be taken by a hidden one.
    EXPECT_EQ(3u, acc.create_hide_user(hidden("Admin", "x")));
}

TEST_F(HiddenUsers, DuplicateOnUpdateIsAPlainFailureAndRemoveAllNeverNotFound) {
    tovr_sim::force_result("esv_zel_user_update_hide_account", 0x04010405);
    EXPECT_EQ(4u, acc.update_hide_user(hidden("a", "b")));
    EXPECT_EQ((std::vector<Line>{{3, "failed. retcode = [67175429]"}}), acct("update_hide_user"));
    tovr_sim::force_result("esv_zel_user_delete_hide_account", 0x04010405);
    EXPECT_EQ(4u, acc.remove_hide_user("a"));
    tovr_sim::force_result("esv_zel_user_create_hide_account", 0x04010402);
    EXPECT_EQ(4u, acc.create_hide_user(hidden("a", "b")));
    tovr_sim::clear_trace();
    tovr_sim::force_result("esv_zel_user_delete_all_hide_account", 0x04010402);
    EXPECT_EQ(4u, acc.remove_all_hide_user());
    EXPECT_EQ((std::vector<Line>{{3, "failed. retcode = [67175426]"}}), acct("remove_all_hide_user"));
    ASSERT_EQ(0u, acc.create_hide_user(hidden("a", "b")));
    ASSERT_EQ(0u, acc.create_hide_user(hidden("c", "d")));
    EXPECT_EQ(0u, acc.remove_all_hide_user());
    EXPECT_EQ(0u, acc.remove_all_hide_user());
    EXPECT_EQ(0u, tovr_sim::hidden_user_count());
}

TEST_F(HiddenUsers, UnterminatedFieldsAreStoredWithinTheirFields) {
    ESV_ZEL_HIDE_USERINFO_RECORD r = hidden("x", "y");
    std::memset(r.login_name, 'n', sizeof r.login_name);
    std::memset(r.dept_code, 'd', sizeof r.dept_code);
    EXPECT_EQ(0u, acc.create_hide_user(r));
    ESV_ZEL_HIDE_USERINFO_RECORD stored;
    ASSERT_TRUE(tovr_sim::hidden_user(std::string(128, 'n'), &stored));
    EXPECT_EQ(std::string(8, 'd'), stored.dept_code);
}

TEST(UserRecords, LayoutOnThisAbi) {
    EXPECT_EQ(660u, sizeof(ESV_ZEL_USERINFO_RECORD));
    EXPECT_EQ(0u, offsetof(ESV_ZEL_USERINFO_RECORD, id));
    EXPECT_EQ(4u, offsetof(ESV_ZEL_USERINFO_RECORD, login_name));
    EXPECT_EQ(133u, offsetof(ESV_ZEL_USERINFO_RECORD, user_name));
    EXPECT_EQ(326u, offsetof(ESV_ZEL_USERINFO_RECORD, email));
    EXPECT_EQ(456u, offsetof(ESV_ZEL_USERINFO_RECORD, rights));
    EXPECT_EQ(460u, offsetof(ESV_ZEL_USERINFO_RECORD, job_limit));
    EXPECT_EQ(464u, offsetof(ESV_ZEL_USERINFO_RECORD, dept_id));
    EXPECT_EQ(466u, offsetof(ESV_ZEL_USERINFO_RECORD, kana));
    EXPECT_EQ(4u, sizeof(ESV_ZEL_USER_RIGHTS));
    EXPECT_EQ(600u, sizeof(ESV_ZEL_HIDE_USERINFO_RECORD));
    EXPECT_EQ(0u, offsetof(ESV_ZEL_HIDE_USERINFO_RECORD, login_name));
    EXPECT_EQ(129u, offsetof(ESV_ZEL_HIDE_USERINFO_RECORD, login_passwd));
    EXPECT_EQ(258u, offsetof(ESV_ZEL_HIDE_USERINFO_RECORD, user_name));
    EXPECT_EQ(451u, offsetof(ESV_ZEL_HIDE_USERINFO_RECORD, email));
    EXPECT_EQ(580u, offsetof(ESV_ZEL_HIDE_USERINFO_RECORD, dept_code));
    EXPECT_EQ(592u, offsetof(ESV_ZEL_HIDE_USERINFO_RECORD, rights));
    EXPECT_EQ(596u, offsetof(ESV_ZEL_HIDE_USERINFO_RECORD, job_limit));
    EXPECT_EQ(480u, sizeof(ESV_ZEL_DEPT_DEPTINFO));
    EXPECT_EQ(0u, offsetof(ESV_ZEL_DEPT_DEPTINFO, name));
    EXPECT_EQ(193u, offsetof(ESV_ZEL_DEPT_DEPTINFO, note));
    EXPECT_EQ(386u, offsetof(ESV_ZEL_DEPT_DEPTINFO, id));
    EXPECT_EQ(396u, offsetof(ESV_ZEL_DEPT_DEPTINFO, restriction));
    EXPECT_EQ(436u, offsetof(ESV_ZEL_DEPT_DEPTINFO, reserved));
    EXPECT_EQ(440u, offsetof(ESV_ZEL_DEPT_DEPTINFO, limit));
}

}  // namespace
