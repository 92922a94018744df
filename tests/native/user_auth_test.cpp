// Authentication: result mapping of every operation with its trace lines, the outputs written
// on success and failure, and the real behaviour of the simulated user facade behind it.
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "CJvm.h"
#include "sim_fixture.h"
#include "tovr_sim_user.h"
#include "zel_fnd_authentication.h"

using tarnwick::ZEL_FND_AUTH_MODE;
using tarnwick::ZEL_FND_CERTIFICATE_ID;
using tarnwick::ZEL_FND_USER_ACCESS_LEVEL;
using tarnwick::zel_fnd_authentication;
using sim_test::Line;

namespace {

std::vector<Line> auth(const std::string& op) { return sim_test::op_lines("zel_fnd_authentication", op); }

class Auth : public sim_test::SimDeviceTest {
protected:
    void SetUp() override {
        SimDeviceTest::SetUp();
        tovr_sim::SimUser u;
        u.login_name = "alice";
        u.password = "secret";
        u.user_name = "Alice Archer";
        u.email = "alice@example.com";
        u.rights = 1;
        u.idm = "0123456789ABCDEF";
        u.domain = "";
        alice_id = tovr_sim::add_local_user(u);
        u.login_name = "bob";
        u.password = "pw";
        u.domain = "corp";
        u.idm = "";
        u.rights = 0;
        tovr_sim::add_local_user(u);
        tovr_sim::clear_trace();
    }
    zel_fnd_authentication a;
    std::uint32_t alice_id = 0;
};

struct Row {
    long code;
    unsigned int result;
    const char* line;
};

// A login operation under a table of forced facade answers.
struct LoginTable {
    const char* facade_op;  // the facade call whose answer is forced
    unsigned long forced;   // the certificate that answer writes
    unsigned long held;     // the caller's certificate before the call
    unsigned long kept;     // the caller's certificate after it, for every row
    const char* op;         // the operation whose trace is read
    std::vector<Line> lead; // its lines before the row's line
};

// Each row forced as the facade's answer, then `login` on the caller's certificate: the row's
// result, the certificate after it, and the trace of the operation.
template <class Login>
void expect_logins(const LoginTable& t, const std::vector<Row>& rows, Login login) {
    for (const Row& r : rows) {
        tovr_sim::clear_trace();
        tovr_sim::force_login_output(t.facade_op, r.code, t.forced);
        ZEL_FND_CERTIFICATE_ID cert;
        cert.id = t.held;
        EXPECT_EQ(r.result, login(cert)) << r.code;
        EXPECT_EQ(t.kept, cert.id) << r.code;
        std::vector<Line> expected = t.lead;
        expected.push_back({3, r.line});
        EXPECT_EQ(expected, auth(t.op)) << r.code;
    }
}

TEST_F(Auth, LoginFourArgumentsResultTable) {
    expect_logins({"esv_zel_user_account_login", 5, 0, 5, "login", {{3, "[Start], cert_id=[5]"}}},
                  {
                      {0, 0, "success. result = [0], cert_id = [5]"},
                      {0x04010401, 1, "invalid password. result = [67175425]"},
                      {0x04010402, 2, "not found. result = [67175426]"},
                      {0x04010403, 4, "failed. result = [67175427]"},
                      {0x04010405, 4, "failed. result = [67175429]"},
                      {-1, 4, "failed. result = [-1]"},
                  },
                  [&](ZEL_FND_CERTIFICATE_ID& cert) { return a.login("alice", "secret", ESV_ZEL_USER_AUTHMODE_LOCAL, cert); });
}

TEST_F(Auth, LoginFiveArgumentsResultTable) {
    expect_logins({"esv_zel_user_account_login", 9, 0, 9, "login", {{3, "[Start]"}, {3, "cert_id = [9]"}}},
                  {
                      {0, 0, "success. retcode = [0], cert_id = [9]"},
                      {0x04010401, 1, "invalid password. retcode = [67175425]"},
                      {0x04010402, 2, "not found. retcode = [67175426]"},
                      {0x04010400, 4, "failed. retcode = [67175424]"},
                  },
                  [&](ZEL_FND_CERTIFICATE_ID& cert) { return a.login("bob", "pw", ESV_ZEL_USER_AUTHMODE_NETWORK, "corp", cert); });
}

TEST_F(Auth, FailedLoginLeavesZeroWhenTheFacadeWroteNothing) {
    ZEL_FND_CERTIFICATE_ID cert;
    cert.id = 1234;
    tovr_sim::force_result("esv_zel_user_account_login", 0x04010402);
    EXPECT_EQ(2u, a.login("alice", "secret", ESV_ZEL_USER_AUTHMODE_LOCAL, cert));
    EXPECT_EQ(0u, cert.id);
    cert.id = 1234;
    tovr_sim::force_result("esv_zel_user_account_login", 0x04010401);
    EXPECT_EQ(1u, a.login("bob", "pw", ESV_ZEL_USER_AUTHMODE_LOCAL, "corp", cert));
    EXPECT_EQ(0u, cert.id);
}

TEST_F(Auth, RealLoginChecksThePasswordAndHandsOutCertificates) {
    ZEL_FND_CERTIFICATE_ID cert;
    EXPECT_EQ(1u, a.login("alice", "wrong", ESV_ZEL_USER_AUTHMODE_LOCAL, cert));
    EXPECT_EQ(0u, cert.id);
    EXPECT_EQ(2u, a.login("nobody", "x", ESV_ZEL_USER_AUTHMODE_LOCAL, cert));
    EXPECT_EQ(0u, a.login("alice", "secret", ESV_ZEL_USER_AUTHMODE_LOCAL, cert));
    EXPECT_EQ(tovr_sim::kFirstCertificate, cert.id);
    EXPECT_EQ("alice", tovr_sim::session_user(cert.id));
    // bob lives in a domain: only the longer form finds him there.
    ZEL_FND_CERTIFICATE_ID cert2;
    EXPECT_EQ(2u, a.login("bob", "pw", ESV_ZEL_USER_AUTHMODE_NETWORK, cert2));
    EXPECT_EQ(0u, a.login("bob", "pw", ESV_ZEL_USER_AUTHMODE_NETWORK, "corp", cert2));
    EXPECT_EQ(tovr_sim::kFirstCertificate + 1, cert2.id);
    std::vector<tovr_sim::Call> calls = tovr_sim::calls("esv_zel_user_account_login");
    ASSERT_EQ(5u, calls.size());
    EXPECT_EQ("bob", calls[4].args[0]);
    EXPECT_EQ("pw", calls[4].args[1]);
    EXPECT_EQ("2", calls[4].args[2]);
    EXPECT_EQ("corp", calls[4].args[3]);
    // An unknown mode is the facade's parameter error: a plain failure.
    EXPECT_EQ(4u, a.login("alice", "secret", static_cast<ESV_ZEL_USER_AUTHMODE>(9), cert));
}

TEST_F(Auth, LogoutTakesTheCertificateBack) {
    ZEL_FND_CERTIFICATE_ID cert;
    ASSERT_EQ(0u, a.login("alice", "secret", ESV_ZEL_USER_AUTHMODE_LOCAL, cert));
    tovr_sim::clear_trace();
    EXPECT_EQ(0u, a.logout(cert.id));
    EXPECT_EQ((std::vector<Line>{{3, "success. result = [0]"}}), auth("logout"));
    EXPECT_TRUE(tovr_sim::sessions().empty());
    tovr_sim::clear_trace();
    EXPECT_EQ(4u, a.logout(cert.id));
    EXPECT_EQ((std::vector<Line>{{3, "failed. result = [67175428]"}}), auth("logout"));
    EXPECT_EQ(std::to_string(cert.id), tovr_sim::calls("esv_zel_user_logout").back().args[0]);
}

TEST_F(Auth, IccardLoginResultTable) {
    // The certificate is written on success only.
    expect_logins({"esv_zel_user_idm_login", 55, 3, 3, "iccard_login", {}},
                  {
                      {0x04010401, 4, "failed. result = [67175425]"},
                      {0x04010402, 2, "not found. result = [67175426]"},
                      {0x04010403, 4, "failed. result = [67175427]"},
                  },
                  [&](ZEL_FND_CERTIFICATE_ID& cert) {
                      char idm[] = "0123456789ABCDEF";
                      return a.iccard_login(idm, cert);
                  });
}

TEST_F(Auth, IccardLoginFindsTheCardsOwner) {
    ZEL_FND_CERTIFICATE_ID cert;
    char idm[] = "0123456789ABCDEF";
    EXPECT_EQ(0u, a.iccard_login(idm, cert));
    EXPECT_EQ(tovr_sim::kFirstCertificate, cert.id);
    EXPECT_EQ("alice", tovr_sim::session_user(cert.id));
    EXPECT_EQ((std::vector<Line>{{3, "success. result = [0], cert_id = [7001]"}}), auth("iccard_login"));
    char other[] = "FFFFFFFFFFFFFFFF";
    EXPECT_EQ(2u, a.iccard_login(other, cert));
    EXPECT_EQ(4u, a.iccard_login(nullptr, cert));  // the facade refuses a missing IDm
    EXPECT_EQ("null", tovr_sim::calls("esv_zel_user_idm_login").back().args[0]);
}

TEST_F(Auth, LoginUserInfoFillsTheRecord) {
    ESV_ZEL_USERINFO_RECORD rec;
    std::memset(&rec, 0, sizeof rec);
    EXPECT_EQ(4u, a.get_login_user_info(ESV_ZEL_USER_USERKIND_LOGIN, rec));  // nobody logged in
    EXPECT_EQ((std::vector<Line>{{3, "failed. result = [67175428]"}}), auth("get_login_user_info"));
    ZEL_FND_CERTIFICATE_ID cert;
    ASSERT_EQ(0u, a.login("alice", "secret", ESV_ZEL_USER_AUTHMODE_LOCAL, cert));
    tovr_sim::clear_trace();
    EXPECT_EQ(0u, a.get_login_user_info(ESV_ZEL_USER_USERKIND_LOGIN, rec));
    EXPECT_EQ(alice_id, rec.id);
    EXPECT_STREQ("alice", rec.login_name);
    EXPECT_STREQ("Alice Archer", rec.user_name);
    EXPECT_STREQ("alice@example.com", rec.email);
    EXPECT_EQ(1, rec.rights);
    EXPECT_EQ((std::vector<Line>{{3, "success. result = [0]"}}), auth("get_login_user_info"));
    EXPECT_EQ(0u, a.get_login_user_info(ESV_ZEL_USER_USERKIND_ADMIN, rec));
    EXPECT_STREQ("Admin", rec.login_name);
    EXPECT_EQ(1u, rec.id);
}

TEST_F(Auth, AuthModeReadAndSet) {
    ZEL_FND_AUTH_MODE mode;
    EXPECT_EQ(0u, a.set_auth_mode(ESV_ZEL_USER_AUTHMODE_NETWORK));
    EXPECT_EQ((std::vector<Line>{{3, "success. result = [0]"}}), auth("set_auth_mode"));
    EXPECT_EQ(0u, a.get_auth_mode(mode));
    EXPECT_EQ(ESV_ZEL_USER_AUTHMODE_NETWORK, mode.mode);
    EXPECT_EQ((std::vector<Line>{{3, "success. result = [0], mode = [2]"}}), auth("get_auth_mode"));
    tovr_sim::clear_trace();
    EXPECT_EQ(4u, a.set_auth_mode(static_cast<ESV_ZEL_USER_AUTHMODE>(7)));
    EXPECT_EQ((std::vector<Line>{{3, "failed. result = [67175427]"}}), auth("set_auth_mode"));
    EXPECT_EQ(2, tovr_sim::auth_mode());
    // A failed read leaves the output alone, whatever the facade wrote.
    tovr_sim::force_auth_mode_output(0x04010400, 1);
    mode.mode = static_cast<ESV_ZEL_USER_AUTHMODE>(5);
    EXPECT_EQ(4u, a.get_auth_mode(mode));
    EXPECT_EQ(5, mode.mode);
    tovr_sim::force_auth_mode_output(0, 1);
    EXPECT_EQ(0u, a.get_auth_mode(mode));
    EXPECT_EQ(1, mode.mode);
}

TEST_F(Auth, RightsBothFormsAndEveryFailureText) {
    ZEL_FND_USER_ACCESS_LEVEL level;
    level.level = static_cast<ESV_ZEL_USER_RIGHTS>(9);
    EXPECT_EQ(0u, a.get_rights("alice", "secret", level));
    EXPECT_EQ(1, level.level);
    EXPECT_EQ((std::vector<Line>{{3, "success. result = [0], level = [1]"}}), auth("get_rights"));
    tovr_sim::clear_trace();
    EXPECT_EQ(0u, a.get_rights("bob", "pw", "corp", level));
    EXPECT_EQ(0, level.level);
    EXPECT_EQ((std::vector<Line>{{3, "[Start]"}, {3, "success. retcode = [0], level = [0]"}}), auth("get_rights"));

    const Row rows[] = {{0x04010401, 1, "failed. result = 67175425"},
                        {0x04010402, 2, "failed. result = 67175426"},
                        {0x04010400, 4, "failed. result = 67175424"}};
    for (const Row& r : rows) {
        for (int form = 2; form <= 3; ++form) {
            tovr_sim::clear_trace();
            tovr_sim::force_rights_output(r.code, 0);
            level.level = static_cast<ESV_ZEL_USER_RIGHTS>(9);
            unsigned int got = form == 2 ? a.get_rights("alice", "x", level) : a.get_rights("alice", "x", "d", level);
            EXPECT_EQ(r.result, got);
            EXPECT_EQ(9, level.level) << "written on success only";
            std::vector<Line> expected;
            if (form == 3) expected.push_back({3, "[Start]"});
            expected.push_back({3, r.line});
            EXPECT_EQ(expected, auth("get_rights"));
        }
    }
    // The real device: a wrong password and an unknown user.
    EXPECT_EQ(1u, a.get_rights("alice", "bad", level));
    EXPECT_EQ(2u, a.get_rights("carol", "x", level));
}

TEST_F(Auth, FuncLoginModeAnyNonZeroIsFailure) {
    EXPECT_EQ(0u, a.set_func_login_mode(ESV_ZEL_MODE_10_VAL_ON));
    EXPECT_EQ(1, tovr_sim::func_auth_mode());
    EXPECT_EQ((std::vector<Line>{{3, "[Start]"}, {3, "retcode = [0]"}}), auth("set_func_login_mode"));
    for (long code : {1L, 0x04010401L, 0x04010402L, -1L}) {
        tovr_sim::clear_trace();
        tovr_sim::force_result("esv_zel_user_set_func_auth_mode", code);
        EXPECT_EQ(4u, a.set_func_login_mode(ESV_ZEL_MODE_10_VAL_OFF));
        EXPECT_EQ((std::vector<Line>{{3, "[Start]"}, {3, "retcode = [" + std::to_string(static_cast<int>(code)) + "]"}}),
                  auth("set_func_login_mode"));
    }
}

TEST_F(Auth, LocalUserListWithoutEnvironmentFails) {
    JavaVM* saved = tarnwick::CJvm::ms_jvm;
    tarnwick::CJvm::ms_jvm = nullptr;
    EXPECT_EQ(4u, a.get_local_user_list(nullptr));
    tarnwick::CJvm::ms_jvm = saved;
    EXPECT_EQ((std::vector<Line>{{3, "[Start]"}, {0, "GetJNIEnv() failed."}}), auth("get_local_user_list"));
    EXPECT_TRUE(tovr_sim::calls("esv_zel_user_get_local_user_list_prepare").empty());
}

TEST_F(Auth, ListHandlesAreLimitedAndCounted) {
    tarnwick::esv_zel_user_facade* f = tarnwick::esv_zel_user_facade::esv_zel_user_get_instance();
    std::vector<unsigned int> handles;
    for (int i = 0; i < tovr_sim::kUserListLimit; ++i) {
        unsigned int h = 0, total = 0;
        ASSERT_EQ(0, f->esv_zel_user_get_local_user_list_prepare(1, h, total));
        EXPECT_EQ(3u, total);  // Admin, alice, bob
        handles.push_back(h);
    }
    EXPECT_EQ(tovr_sim::kUserListLimit, tovr_sim::open_resources(tovr_sim::kUserListResource));
    unsigned int h = 0, total = 0;
    EXPECT_EQ(ESV_ZEL_USER_LIST_LIMIT, f->esv_zel_user_get_local_user_list_prepare(1, h, total));
    ESV_ZEL_USERINFO_RECORD recs[2];
    unsigned int got = 0;
    EXPECT_EQ(0, f->esv_zel_user_get_local_user_list(handles[0], got, recs));
    EXPECT_EQ(1u, got);
    EXPECT_STREQ("Admin", recs[0].login_name);
    for (unsigned int x : handles) EXPECT_EQ(0, f->esv_zel_user_get_local_user_list_finish(x));
    EXPECT_EQ(ESV_ZEL_USER_INVALID_HANDLE, f->esv_zel_user_get_local_user_list_finish(handles[0]));
    EXPECT_EQ(0, tovr_sim::open_resources(tovr_sim::kUserListResource));
    // Several records per fetch, then nothing more.
    ASSERT_EQ(0, f->esv_zel_user_get_local_user_list_prepare(2, h, total));
    EXPECT_EQ(0, f->esv_zel_user_get_local_user_list(h, got, recs));
    EXPECT_EQ(2u, got);
    EXPECT_STREQ("alice", recs[1].login_name);
    EXPECT_EQ(0, f->esv_zel_user_get_local_user_list(h, got, recs));
    EXPECT_EQ(1u, got);
    EXPECT_EQ(ESV_ZEL_USER_NOT_FOUND, f->esv_zel_user_get_local_user_list(h, got, recs));
    EXPECT_EQ(0u, got);
    EXPECT_EQ(0, f->esv_zel_user_get_local_user_list_finish(h));
}

}  // namespace

#include "zel_fnd_user_info.h"

namespace {

TEST(UserInfoBuilder, MadeWithoutAnEnvironmentItCreatesNothing) {
    sim_test::reset_device();
    JavaVM* saved = tarnwick::CJvm::ms_jvm;
    tarnwick::CJvm::ms_jvm = nullptr;  // GetJNIEnv answers null, as on a thread the VM does not know
    tarnwick::zel_fnd_user_info builder;
    tarnwick::CJvm::ms_jvm = saved;
    EXPECT_EQ(nullptr, builder.create_user_info());
    // The setters of an empty builder make no JNI call either.
    char text[] = "x";
    builder.set_field_login_name(nullptr, text);
    builder.set_field_user_name(nullptr, text);
    builder.set_field_mail_address(nullptr, text);
    builder.set_field_account_id(nullptr, -5);
    builder.set_field_access_level(nullptr, ESV_ZEL_USER_RIGHTS_ADMIN);
    EXPECT_TRUE(tovr_sim::calls().empty());
}

}  // namespace
