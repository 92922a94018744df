package tarnwick.tests.user;

import static org.junit.jupiter.api.Assertions.assertArrayEquals;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static tarnwick.tests.support.SimDeviceExtension.trace;

import java.util.List;
import org.junit.jupiter.api.BeforeEach;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.extension.RegisterExtension;
import tarnwick.sim.SimDevice;
import tarnwick.sim.SimUsers;
import tarnwick.tests.support.SimDeviceExtension;
import tarnwick.zel.wrapper.user.ESV_ZEL_USER_AUTHMODE;
import tarnwick.zel.wrapper.user.ESV_ZEL_USER_USERKIND;
import tarnwick.zel.wrapper.user.ZELFNDUserJNI;

/** Logins, logouts, modes and rights through the user module, on the simulated device. */
class AuthenticationTest {
    @RegisterExtension
    static final SimDeviceExtension device = new SimDeviceExtension();

    private static final String M = "zel_fnd_authentication";
    private long auth;
    private long cert;

    @BeforeEach
    void start() {
        SimUsers.addLocalUser("alice", "secret", "Alice Archer", "alice@example.com", 1, 25, 3, "arisu",
                "0123456789ABCDEF", "");
        SimUsers.addLocalUser("bob", "pw", "Bob", "bob@corp", 0, 0, 0, "", "", "corp");
        auth = device.make(ZELFNDUserJNI::new_zel_fnd_authentication, ZELFNDUserJNI::delete_zel_fnd_authentication);
        cert = device.make(ZELFNDUserJNI::new_ZEL_FND_CERTIFICATE_ID, ZELFNDUserJNI::delete_ZEL_FND_CERTIFICATE_ID);
    }

    private int login(String user, String pw) {
        return ZELFNDUserJNI.zel_fnd_authentication_login__SWIG_0(auth, null, user, pw, ESV_ZEL_USER_AUTHMODE.ESV_ZEL_USER_AUTHMODE_LOCAL, cert, null);
    }

    private int login(String user, String pw, String domain) {
        return ZELFNDUserJNI.zel_fnd_authentication_login__SWIG_1(auth, null, user, pw, ESV_ZEL_USER_AUTHMODE.ESV_ZEL_USER_AUTHMODE_NETWORK, domain, cert, null);
    }

    private long certId() {
        return ZELFNDUserJNI.ZEL_FND_CERTIFICATE_ID_id_get(cert, null);
    }

    @Test
    void holdersStartZeroed() {
        assertEquals(0L, certId());
        long mode = ZELFNDUserJNI.new_ZEL_FND_AUTH_MODE();
        long level = ZELFNDUserJNI.new_ZEL_FND_USER_ACCESS_LEVEL();
        assertEquals(0, ZELFNDUserJNI.ZEL_FND_AUTH_MODE_mode_get(mode, null));
        assertEquals(0, ZELFNDUserJNI.ZEL_FND_USER_ACCESS_LEVEL_level_get(level, null));
        ZELFNDUserJNI.ZEL_FND_AUTH_MODE_mode_set(mode, null, 2);
        ZELFNDUserJNI.ZEL_FND_USER_ACCESS_LEVEL_level_set(level, null, 1);
        ZELFNDUserJNI.ZEL_FND_CERTIFICATE_ID_id_set(cert, null, 0xFFFFFFFFL);
        assertEquals(2, ZELFNDUserJNI.ZEL_FND_AUTH_MODE_mode_get(mode, null));
        assertEquals(1, ZELFNDUserJNI.ZEL_FND_USER_ACCESS_LEVEL_level_get(level, null));
        assertEquals(0xFFFFFFFFL, certId());
        ZELFNDUserJNI.delete_ZEL_FND_AUTH_MODE(mode);
        ZELFNDUserJNI.delete_ZEL_FND_USER_ACCESS_LEVEL(level);
    }

    @Test
    void loginChecksThePasswordAndLogoutTakesTheCertificateBack() {
        assertEquals(1, login("alice", "wrong"));
        assertEquals(0L, certId());
        assertEquals(2, login("carol", "x"));
        assertEquals(0, login("alice", "secret"));
        assertEquals(7001L, certId());
        assertEquals("alice", SimUsers.sessionUser(7001L));
        assertEquals(List.of("3 login,[Start], cert_id=[0]", "3 login,invalid password. result = [67175425]",
                "3 login,[Start], cert_id=[0]", "3 login,not found. result = [67175426]",
                "3 login,[Start], cert_id=[7001]", "3 login,success. result = [0], cert_id = [7001]"), trace(M));
        SimDevice.clearTrace();
        assertEquals(0, ZELFNDUserJNI.zel_fnd_authentication_logout(auth, null, 7001L));
        assertEquals(4, ZELFNDUserJNI.zel_fnd_authentication_logout(auth, null, 7001L));
        assertEquals(List.of("3 logout,success. result = [0]", "3 logout,failed. result = [67175428]"), trace(M));
        assertArrayEquals(new long[0], SimUsers.sessions());
    }

    @Test
    void loginResultTableBothForms() {
        long[][] rows = {{0, 0}, {UserFixture.INVALID_PASSWORD, 1}, {UserFixture.NOT_FOUND, 2}, {UserFixture.PARAM_ERROR, 4},
                         {UserFixture.DUPLICATE, 4}, {1, 4}};
        for (long[] row : rows) {
            SimDevice.clearTrace();
            SimUsers.forceLoginOutput("esv_zel_user_account_login", row[0], 42, 1);
            assertEquals((int) row[1], login("alice", "secret"));
            assertEquals(42L, certId(), "the facade's output is copied whatever the result");
            SimUsers.forceLoginOutput("esv_zel_user_account_login", row[0], 43, 1);
            assertEquals((int) row[1], login("bob", "pw", "corp"));
            assertEquals(43L, certId());
        }
        SimDevice.clearTrace();
        SimUsers.forceLoginOutput("esv_zel_user_account_login", UserFixture.NOT_FOUND, 0, 1);
        login("bob", "pw", "corp");
        assertEquals(List.of("3 login,[Start]", "3 login,cert_id = [0]", "3 login,not found. retcode = [67175426]"), trace(M));
        SimDevice.clearTrace();
        SimUsers.forceLoginOutput("esv_zel_user_account_login", UserFixture.INVALID_PASSWORD, 0, 1);
        login("bob", "pw", "corp");
        SimUsers.forceLoginOutput("esv_zel_user_account_login", UserFixture.USER_ERROR, 0, 1);
        login("bob", "pw", "corp");
        assertEquals(0, login("bob", "pw", "corp"));
        assertEquals(List.of("3 login,[Start]", "3 login,cert_id = [0]", "3 login,invalid password. retcode = [67175425]",
                "3 login,[Start]", "3 login,cert_id = [0]", "3 login,failed. retcode = [67175424]",
                "3 login,[Start]", "3 login,cert_id = [7001]", "3 login,success. retcode = [0], cert_id = [7001]"), trace(M));
        String[] calls = SimDevice.calls("esv_zel_user_account_login");
        assertEquals(List.of("bob", "pw", "2", "corp"), List.of(calls[calls.length - 1].split(", ")).subList(0, 4));
    }

    @Test
    void failedLoginLeavesZeroWhenTheFacadeWroteNothing() {
        ZELFNDUserJNI.ZEL_FND_CERTIFICATE_ID_id_set(cert, null, 99);
        SimDevice.forceResult("esv_zel_user_account_login", UserFixture.NOT_FOUND, 1);
        assertEquals(2, login("alice", "secret"));
        assertEquals(0L, certId());
    }

    @Test
    void iccardLogin() {
        ZELFNDUserJNI.ZEL_FND_CERTIFICATE_ID_id_set(cert, null, 5);
        SimUsers.forceLoginOutput("esv_zel_user_idm_login", UserFixture.INVALID_PASSWORD, 77, 1);
        assertEquals(4, ZELFNDUserJNI.zel_fnd_authentication_iccard_login(auth, null, "0123456789ABCDEF", cert, null));
        assertEquals(5L, certId(), "written on success only");
        SimUsers.forceLoginOutput("esv_zel_user_idm_login", UserFixture.NOT_FOUND, 77, 1);
        assertEquals(2, ZELFNDUserJNI.zel_fnd_authentication_iccard_login(auth, null, "0123456789ABCDEF", cert, null));
        assertEquals(5L, certId());
        assertEquals(2, ZELFNDUserJNI.zel_fnd_authentication_iccard_login(auth, null, "FEDCBA9876543210", cert, null));
        assertEquals(0, ZELFNDUserJNI.zel_fnd_authentication_iccard_login(auth, null, "0123456789ABCDEF", cert, null));
        assertEquals(7001L, certId());
        assertEquals("alice", SimUsers.sessionUser(7001L));
        // A null IDm reaches the facade as a null pointer, no exception.
        assertEquals(4, ZELFNDUserJNI.zel_fnd_authentication_iccard_login(auth, null, null, cert, null));
        String[] calls = SimDevice.calls("esv_zel_user_idm_login");
        assertEquals("null", calls[calls.length - 1].split(", ")[0]);
        assertEquals(List.of("3 iccard_login,failed. result = [67175425]", "3 iccard_login,not found. result = [67175426]",
                "3 iccard_login,not found. result = [67175426]", "3 iccard_login,success. result = [0], cert_id = [7001]",
                "3 iccard_login,failed. result = [67175427]"), trace(M));
    }

    @Test
    void loginUserInfo() {
        long rec = ZELFNDUserJNI.new_ESV_ZEL_USERINFO_RECORD();
        assertEquals(4, ZELFNDUserJNI.zel_fnd_authentication_get_login_user_info(auth, null, ESV_ZEL_USER_USERKIND.ESV_ZEL_USER_USERKIND_LOGIN, rec, null));
        assertEquals(0, login("alice", "secret"));
        assertEquals(0, ZELFNDUserJNI.zel_fnd_authentication_get_login_user_info(auth, null, ESV_ZEL_USER_USERKIND.ESV_ZEL_USER_USERKIND_LOGIN, rec, null));
        assertEquals("alice", ZELFNDUserJNI.ESV_ZEL_USERINFO_RECORD_login_name_get(rec, null));
        assertEquals("Alice Archer", ZELFNDUserJNI.ESV_ZEL_USERINFO_RECORD_user_name_get(rec, null));
        assertEquals("alice@example.com", ZELFNDUserJNI.ESV_ZEL_USERINFO_RECORD_email_get(rec, null));
        assertEquals("arisu", ZELFNDUserJNI.ESV_ZEL_USERINFO_RECORD_kana_get(rec, null));
        assertEquals(1, ZELFNDUserJNI.ESV_ZEL_USERINFO_RECORD_rights_get(rec, null));
        assertEquals(25L, ZELFNDUserJNI.ESV_ZEL_USERINFO_RECORD_job_limit_get(rec, null));
        assertEquals(3, ZELFNDUserJNI.ESV_ZEL_USERINFO_RECORD_dept_id_get(rec, null));
        assertEquals(2L, ZELFNDUserJNI.ESV_ZEL_USERINFO_RECORD_id_get(rec, null));
        SimUsers.forceUserInfoOutput(0, 0xFFFFFFFEL, "x", "y", "z", 0, 0xFFFFFFFFL, 0xFFFF, "k", 1);
        assertEquals(0, ZELFNDUserJNI.zel_fnd_authentication_get_login_user_info(auth, null, 9, rec, null));
        assertEquals(0xFFFFFFFEL, ZELFNDUserJNI.ESV_ZEL_USERINFO_RECORD_id_get(rec, null));
        assertEquals(0xFFFFFFFFL, ZELFNDUserJNI.ESV_ZEL_USERINFO_RECORD_job_limit_get(rec, null));
        assertEquals(0xFFFF, ZELFNDUserJNI.ESV_ZEL_USERINFO_RECORD_dept_id_get(rec, null));
        assertEquals(List.of("3 get_login_user_info,failed. result = [67175428]", "3 get_login_user_info,success. result = [0]",
                "3 get_login_user_info,success. result = [0]"),
                trace(M).stream().filter(l -> l.contains("get_login_user_info")).collect(java.util.stream.Collectors.toList()));
        ZELFNDUserJNI.delete_ESV_ZEL_USERINFO_RECORD(rec);
    }

    @Test
    void userRecordFields() {
        long rec = ZELFNDUserJNI.new_ESV_ZEL_USERINFO_RECORD();
        assertEquals("", ZELFNDUserJNI.ESV_ZEL_USERINFO_RECORD_login_name_get(rec, null));
        assertEquals(0L, ZELFNDUserJNI.ESV_ZEL_USERINFO_RECORD_id_get(rec, null));
        String[] names = {"login_name", "user_name", "email", "kana"};
        int[] sizes = {129, 193, 129, 193};
        for (int i = 0; i < names.length; i++) {
            String text = SimDeviceExtension.repeat('q', sizes[i] + 20);
            call("ESV_ZEL_USERINFO_RECORD_" + names[i] + "_set", rec, text);
            assertEquals(SimDeviceExtension.repeat('q', sizes[i] - 1), call("ESV_ZEL_USERINFO_RECORD_" + names[i] + "_get", rec, null));
            call("ESV_ZEL_USERINFO_RECORD_" + names[i] + "_set", rec, null);
            assertEquals("", call("ESV_ZEL_USERINFO_RECORD_" + names[i] + "_get", rec, null));
        }
        ZELFNDUserJNI.ESV_ZEL_USERINFO_RECORD_id_set(rec, null, 0x1_0000_0005L);
        assertEquals(5L, ZELFNDUserJNI.ESV_ZEL_USERINFO_RECORD_id_get(rec, null));
        ZELFNDUserJNI.ESV_ZEL_USERINFO_RECORD_dept_id_set(rec, null, 0x1_0007);
        assertEquals(7, ZELFNDUserJNI.ESV_ZEL_USERINFO_RECORD_dept_id_get(rec, null));
        ZELFNDUserJNI.ESV_ZEL_USERINFO_RECORD_rights_set(rec, null, 1);
        assertEquals(1, ZELFNDUserJNI.ESV_ZEL_USERINFO_RECORD_rights_get(rec, null));
        ZELFNDUserJNI.ESV_ZEL_USERINFO_RECORD_job_limit_set(rec, null, 4000000000L);
        assertEquals(4000000000L, ZELFNDUserJNI.ESV_ZEL_USERINFO_RECORD_job_limit_get(rec, null));
        ZELFNDUserJNI.delete_ESV_ZEL_USERINFO_RECORD(rec);
        ZELFNDUserJNI.delete_ESV_ZEL_USERINFO_RECORD(0);
    }

    private static Object call(String name, long rec, String value) {
        try {
            if (name.endsWith("_set")) {
                return ZELFNDUserJNI.class.getMethod(name, long.class, tarnwick.zel.wrapper.user.ESV_ZEL_USERINFO_RECORD.class, String.class)
                        .invoke(null, rec, null, value);
            }
            return ZELFNDUserJNI.class.getMethod(name, long.class, tarnwick.zel.wrapper.user.ESV_ZEL_USERINFO_RECORD.class)
                    .invoke(null, rec, null);
        } catch (ReflectiveOperationException e) {
            throw new AssertionError(e);
        }
    }

    @Test
    void authModes() {
        long mode = ZELFNDUserJNI.new_ZEL_FND_AUTH_MODE();
        assertEquals(0, ZELFNDUserJNI.zel_fnd_authentication_set_auth_mode(auth, null, 2));
        assertEquals(2, SimUsers.authMode());
        assertEquals(0, ZELFNDUserJNI.zel_fnd_authentication_get_auth_mode(auth, null, mode, null));
        assertEquals(2, ZELFNDUserJNI.ZEL_FND_AUTH_MODE_mode_get(mode, null));
        assertEquals(4, ZELFNDUserJNI.zel_fnd_authentication_set_auth_mode(auth, null, 3));
        SimUsers.forceAuthModeOutput(UserFixture.USER_ERROR, 1, 1);
        assertEquals(4, ZELFNDUserJNI.zel_fnd_authentication_get_auth_mode(auth, null, mode, null));
        assertEquals(2, ZELFNDUserJNI.ZEL_FND_AUTH_MODE_mode_get(mode, null), "written on success only");
        assertEquals(List.of("3 set_auth_mode,success. result = [0]", "3 get_auth_mode,success. result = [0], mode = [2]",
                "3 set_auth_mode,failed. result = [67175427]", "3 get_auth_mode,failed. result = [67175424]"), trace(M));
        ZELFNDUserJNI.delete_ZEL_FND_AUTH_MODE(mode);
    }

    @Test
    void rightsBothForms() {
        long level = ZELFNDUserJNI.new_ZEL_FND_USER_ACCESS_LEVEL();
        ZELFNDUserJNI.ZEL_FND_USER_ACCESS_LEVEL_level_set(level, null, 9);
        assertEquals(0, ZELFNDUserJNI.zel_fnd_authentication_get_rights__SWIG_0(auth, null, "alice", "secret", level, null));
        assertEquals(1, ZELFNDUserJNI.ZEL_FND_USER_ACCESS_LEVEL_level_get(level, null));
        assertEquals(0, ZELFNDUserJNI.zel_fnd_authentication_get_rights__SWIG_1(auth, null, "bob", "pw", "corp", level, null));
        assertEquals(0, ZELFNDUserJNI.ZEL_FND_USER_ACCESS_LEVEL_level_get(level, null));
        ZELFNDUserJNI.ZEL_FND_USER_ACCESS_LEVEL_level_set(level, null, 9);
        assertEquals(1, ZELFNDUserJNI.zel_fnd_authentication_get_rights__SWIG_0(auth, null, "alice", "bad", level, null));
        assertEquals(2, ZELFNDUserJNI.zel_fnd_authentication_get_rights__SWIG_1(auth, null, "alice", "secret", "corp", level, null));
        SimUsers.forceRightsOutput(UserFixture.USER_ERROR, 0, 1);
        assertEquals(4, ZELFNDUserJNI.zel_fnd_authentication_get_rights__SWIG_0(auth, null, "alice", "secret", level, null));
        assertEquals(9, ZELFNDUserJNI.ZEL_FND_USER_ACCESS_LEVEL_level_get(level, null), "written on success only");
        assertEquals(List.of("3 get_rights,success. result = [0], level = [1]", "3 get_rights,[Start]",
                "3 get_rights,success. retcode = [0], level = [0]", "3 get_rights,failed. result = 67175425",
                "3 get_rights,[Start]", "3 get_rights,failed. result = 67175426", "3 get_rights,failed. result = 67175424"),
                trace(M));
        ZELFNDUserJNI.delete_ZEL_FND_USER_ACCESS_LEVEL(level);
    }

    @Test
    void funcLoginMode() {
        assertEquals(0, ZELFNDUserJNI.zel_fnd_authentication_set_func_login_mode(auth, null, 1));
        assertEquals(1, SimUsers.funcAuthMode());
        assertEquals(4, ZELFNDUserJNI.zel_fnd_authentication_set_func_login_mode(auth, null, 5));
        SimDevice.forceResult("esv_zel_user_set_func_auth_mode", 1, 1);
        assertEquals(4, ZELFNDUserJNI.zel_fnd_authentication_set_func_login_mode(auth, null, 0));
        assertEquals(List.of("3 set_func_login_mode,[Start]", "3 set_func_login_mode,retcode = [0]",
                "3 set_func_login_mode,[Start]", "3 set_func_login_mode,retcode = [67175427]",
                "3 set_func_login_mode,[Start]", "3 set_func_login_mode,retcode = [1]"), trace(M));
    }

    @Test
    void nullArgumentsThrowBeforeTheDevice() {
        NullPointerException e = assertThrows(NullPointerException.class, () -> login(null, "x"));
        assertEquals("null std::string", e.getMessage());
        e = assertThrows(NullPointerException.class, () -> login("x", null, "d"));
        assertEquals("null std::string", e.getMessage());
        e = assertThrows(NullPointerException.class, () -> login("x", "y", null));
        assertEquals("null std::string", e.getMessage());
        e = assertThrows(NullPointerException.class, () -> ZELFNDUserJNI.zel_fnd_authentication_login__SWIG_0(auth, null, "a", "b", 1, 0, null));
        assertEquals("tarnwick::ZEL_FND_CERTIFICATE_ID & reference is null", e.getMessage());
        e = assertThrows(NullPointerException.class, () -> ZELFNDUserJNI.zel_fnd_authentication_login__SWIG_1(auth, null, "a", "b", 1, "c", 0, null));
        assertEquals("tarnwick::ZEL_FND_CERTIFICATE_ID & reference is null", e.getMessage());
        e = assertThrows(NullPointerException.class, () -> ZELFNDUserJNI.zel_fnd_authentication_iccard_login(auth, null, "a", 0, null));
        assertEquals("tarnwick::ZEL_FND_CERTIFICATE_ID & reference is null", e.getMessage());
        e = assertThrows(NullPointerException.class, () -> ZELFNDUserJNI.zel_fnd_authentication_get_login_user_info(auth, null, 0, 0, null));
        assertEquals("ESV_ZEL_USERINFO_RECORD & reference is null", e.getMessage());
        e = assertThrows(NullPointerException.class, () -> ZELFNDUserJNI.zel_fnd_authentication_get_auth_mode(auth, null, 0, null));
        assertEquals("tarnwick::ZEL_FND_AUTH_MODE & reference is null", e.getMessage());
        e = assertThrows(NullPointerException.class, () -> ZELFNDUserJNI.zel_fnd_authentication_get_rights__SWIG_0(auth, null, "a", "b", 0, null));
        assertEquals("tarnwick::ZEL_FND_USER_ACCESS_LEVEL & reference is null", e.getMessage());
        e = assertThrows(NullPointerException.class, () -> ZELFNDUserJNI.zel_fnd_authentication_get_rights__SWIG_1(auth, null, "a", "b", "c", 0, null));
        assertEquals("tarnwick::ZEL_FND_USER_ACCESS_LEVEL & reference is null", e.getMessage());
        e = assertThrows(NullPointerException.class, () -> ZELFNDUserJNI.zel_fnd_authentication_get_rights__SWIG_0(auth, null, null, "b", cert, null));
        assertEquals("null std::string", e.getMessage());
        assertEquals(0, SimDevice.allCalls().length, "nothing reached the device");
    }

    @Test
    void deleteOfNullHandlesDoesNothing() {
        ZELFNDUserJNI.delete_zel_fnd_authentication(0);
        ZELFNDUserJNI.delete_ZEL_FND_CERTIFICATE_ID(0);
        ZELFNDUserJNI.delete_ZEL_FND_AUTH_MODE(0);
        ZELFNDUserJNI.delete_ZEL_FND_USER_ACCESS_LEVEL(0);
    }
}
