package tarnwick.tests.user;

import static org.junit.jupiter.api.Assertions.assertArrayEquals;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertNull;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static tarnwick.tests.support.SimDeviceExtension.repeat;
import static tarnwick.tests.support.SimDeviceExtension.trace;

import java.util.List;
import org.junit.jupiter.api.BeforeEach;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.extension.RegisterExtension;
import tarnwick.sim.SimDevice;
import tarnwick.sim.SimUsers;
import tarnwick.tests.support.SimDeviceExtension;
import tarnwick.zel.wrapper.user.ZELFNDUserJNI;

/** Hidden user accounts through the user module: records, results, traces and exceptions. */
class UserAccountTest {
    @RegisterExtension
    static final SimDeviceExtension device = new SimDeviceExtension();

    private static final String M = "zel_fnd_user_account";
    private long acc;
    private long rec;

    @BeforeEach
    void start() {
        acc = device.make(ZELFNDUserJNI::new_zel_fnd_user_account, ZELFNDUserJNI::delete_zel_fnd_user_account);
        rec = device.make(ZELFNDUserJNI::new_ESV_ZEL_HIDE_USERINFO_RECORD, ZELFNDUserJNI::delete_ESV_ZEL_HIDE_USERINFO_RECORD);
    }

    private void fill(String login, String pw, String dept) {
        ZELFNDUserJNI.ESV_ZEL_HIDE_USERINFO_RECORD_login_name_set(rec, null, login);
        ZELFNDUserJNI.ESV_ZEL_HIDE_USERINFO_RECORD_login_passwd_set(rec, null, pw);
        ZELFNDUserJNI.ESV_ZEL_HIDE_USERINFO_RECORD_user_name_set(rec, null, "Service " + login);
        ZELFNDUserJNI.ESV_ZEL_HIDE_USERINFO_RECORD_email_set(rec, null, login + "@svc");
        ZELFNDUserJNI.ESV_ZEL_HIDE_USERINFO_RECORD_dept_code_set(rec, null, dept);
        ZELFNDUserJNI.ESV_ZEL_HIDE_USERINFO_RECORD_rights_set(rec, null, 1);
        ZELFNDUserJNI.ESV_ZEL_HIDE_USERINFO_RECORD_job_limit_set(rec, null, 3000000000L);
    }

    private int create() {
        return ZELFNDUserJNI.zel_fnd_user_account_create_hide_user(acc, null, rec, null);
    }

    private int update() {
        return ZELFNDUserJNI.zel_fnd_user_account_update_hide_user(acc, null, rec, null);
    }

    @Test
    void recordStartsZeroedAndKeepsItsFieldsWithinTheirSizes() {
        assertEquals("", ZELFNDUserJNI.ESV_ZEL_HIDE_USERINFO_RECORD_login_name_get(rec, null));
        assertEquals(0, ZELFNDUserJNI.ESV_ZEL_HIDE_USERINFO_RECORD_rights_get(rec, null));
        assertEquals(0L, ZELFNDUserJNI.ESV_ZEL_HIDE_USERINFO_RECORD_job_limit_get(rec, null));
        ZELFNDUserJNI.ESV_ZEL_HIDE_USERINFO_RECORD_login_name_set(rec, null, repeat('a', 200));
        assertEquals(repeat('a', 128), ZELFNDUserJNI.ESV_ZEL_HIDE_USERINFO_RECORD_login_name_get(rec, null));
        ZELFNDUserJNI.ESV_ZEL_HIDE_USERINFO_RECORD_login_passwd_set(rec, null, repeat('p', 129));
        assertEquals(repeat('p', 128), ZELFNDUserJNI.ESV_ZEL_HIDE_USERINFO_RECORD_login_passwd_get(rec, null));
        ZELFNDUserJNI.ESV_ZEL_HIDE_USERINFO_RECORD_user_name_set(rec, null, repeat('u', 300));
        assertEquals(repeat('u', 192), ZELFNDUserJNI.ESV_ZEL_HIDE_USERINFO_RECORD_user_name_get(rec, null));
        ZELFNDUserJNI.ESV_ZEL_HIDE_USERINFO_RECORD_email_set(rec, null, repeat('e', 128));
        assertEquals(repeat('e', 128), ZELFNDUserJNI.ESV_ZEL_HIDE_USERINFO_RECORD_email_get(rec, null));
        ZELFNDUserJNI.ESV_ZEL_HIDE_USERINFO_RECORD_dept_code_set(rec, null, "123456789ABC");
        assertEquals("12345678", ZELFNDUserJNI.ESV_ZEL_HIDE_USERINFO_RECORD_dept_code_get(rec, null));
        // The neighbours were not touched by the cut texts.
        assertEquals(repeat('a', 128), ZELFNDUserJNI.ESV_ZEL_HIDE_USERINFO_RECORD_login_name_get(rec, null));
        assertEquals(repeat('e', 128), ZELFNDUserJNI.ESV_ZEL_HIDE_USERINFO_RECORD_email_get(rec, null));
        ZELFNDUserJNI.ESV_ZEL_HIDE_USERINFO_RECORD_dept_code_set(rec, null, null);
        assertEquals("", ZELFNDUserJNI.ESV_ZEL_HIDE_USERINFO_RECORD_dept_code_get(rec, null));
        ZELFNDUserJNI.ESV_ZEL_HIDE_USERINFO_RECORD_job_limit_set(rec, null, 0x1_0000_0009L);
        assertEquals(9L, ZELFNDUserJNI.ESV_ZEL_HIDE_USERINFO_RECORD_job_limit_get(rec, null));
        ZELFNDUserJNI.ESV_ZEL_HIDE_USERINFO_RECORD_rights_set(rec, null, 1);
        assertEquals(1, ZELFNDUserJNI.ESV_ZEL_HIDE_USERINFO_RECORD_rights_get(rec, null));
    }

    @Test
    void aLoginNameOfTwoHundredCharactersKeepsItsFirst128() {
        fill(repeat('n', 200), "pw", "D1");
        assertEquals(0, create());
        String[] stored = SimUsers.hiddenUser(repeat('n', 128));
        assertEquals(repeat('n', 128), stored[0]);
    }

    @Test
    void createUpdateRemoveOnTheDevice() {
        fill("svc", "pw1", "D01");
        assertEquals(0, create());
        assertArrayEquals(new String[] {"svc", "pw1", "Service svc", "svc@svc", "D01", "1", "3000000000"},
                SimUsers.hiddenUser("svc"));
        assertEquals(3, create());
        ZELFNDUserJNI.ESV_ZEL_HIDE_USERINFO_RECORD_user_name_set(rec, null, "Renamed");
        assertEquals(0, update());
        assertEquals("Renamed", SimUsers.hiddenUser("svc")[2]);
        fill("ghost", "x", "");
        assertEquals(2, update());
        assertEquals(2, ZELFNDUserJNI.zel_fnd_user_account_remove_hide_user(acc, null, "ghost"));
        assertEquals(0, ZELFNDUserJNI.zel_fnd_user_account_remove_hide_user(acc, null, "svc"));
        assertNull(SimUsers.hiddenUser("svc"));
        assertEquals(List.of("3 create_hide_user,success. retcode = [0]", "3 create_hide_user,duplicate id. retcode = [67175429]",
                "3 update_hide_user,success. retcode = [0]", "3 update_hide_user,not found. retcode = [67175426]",
                "3 remove_hide_user,not found. retcode = [67175426]", "3 remove_hide_user,success. retcode = [0]"), trace(M));
    }

    @Test
    void aHiddenUserLogsInButStaysOutOfTheList() {
        fill("svc", "pw1", "D01");
        assertEquals(0, create());
        long auth = ZELFNDUserJNI.new_zel_fnd_authentication();
        long cert = ZELFNDUserJNI.new_ZEL_FND_CERTIFICATE_ID();
        assertEquals(0, ZELFNDUserJNI.zel_fnd_authentication_login__SWIG_0(auth, null, "svc", "pw1", 1, cert, null));
        assertEquals("svc", SimUsers.sessionUser(ZELFNDUserJNI.ZEL_FND_CERTIFICATE_ID_id_get(cert, null)));
        java.util.ArrayList<Object> list = new java.util.ArrayList<>();
        assertEquals(0, ZELFNDUserJNI.zel_fnd_authentication_get_local_user_list(auth, null, list));
        assertEquals(1, list.size(), "the administrator only");
        ZELFNDUserJNI.delete_ZEL_FND_CERTIFICATE_ID(cert);
        ZELFNDUserJNI.delete_zel_fnd_authentication(auth);
    }

    @Test
    void removeAllNeverReturnsTwo() {
        fill("a", "b", "");
        assertEquals(0, create());
        fill("c", "d", "");
        assertEquals(0, create());
        assertEquals(0, ZELFNDUserJNI.zel_fnd_user_account_remove_all_hide_user(acc, null));
        assertEquals(0, SimUsers.hiddenUserCount());
        assertEquals(0, ZELFNDUserJNI.zel_fnd_user_account_remove_all_hide_user(acc, null));
        SimDevice.forceResult("esv_zel_user_delete_all_hide_account", UserFixture.NOT_FOUND, 1);
        assertEquals(4, ZELFNDUserJNI.zel_fnd_user_account_remove_all_hide_user(acc, null));
    }

    @Test
    void resultTable() {
        Object[][] rows = {
            {"esv_zel_user_create_hide_account", UserFixture.DUPLICATE, 3, "3 create_hide_user,duplicate id. retcode = [67175429]"},
            {"esv_zel_user_create_hide_account", UserFixture.NOT_FOUND, 4, "3 create_hide_user,failed. retcode = [67175426]"},
            {"esv_zel_user_update_hide_account", UserFixture.DUPLICATE, 4, "3 update_hide_user,failed. retcode = [67175429]"},
            {"esv_zel_user_update_hide_account", UserFixture.NOT_FOUND, 2, "3 update_hide_user,not found. retcode = [67175426]"},
            {"esv_zel_user_delete_hide_account", UserFixture.NOT_FOUND, 2, "3 remove_hide_user,not found. retcode = [67175426]"},
            {"esv_zel_user_delete_hide_account", UserFixture.DUPLICATE, 4, "3 remove_hide_user,failed. retcode = [67175429]"},
            {"esv_zel_user_delete_all_hide_account", 1L, 4, "3 remove_all_hide_user,failed. retcode = [1]"},
        };
        for (Object[] row : rows) {
            SimDevice.clearTrace();
            String op = (String) row[0];
            SimDevice.forceResult(op, (Long) row[1], 1);
            int got;
            if (op.contains("create")) got = create();
            else if (op.contains("update")) got = update();
            else if (op.contains("delete_all")) got = ZELFNDUserJNI.zel_fnd_user_account_remove_all_hide_user(acc, null);
            else got = ZELFNDUserJNI.zel_fnd_user_account_remove_hide_user(acc, null, "x");
            assertEquals((int) row[2], got, op);
            assertEquals(List.of((String) row[3]), trace(M));
        }
    }

    @Test
    void nullArgumentsThrow() {
        NullPointerException e = assertThrows(NullPointerException.class,
            () -> ZELFNDUserJNI.zel_fnd_user_account_create_hide_user(acc, null, 0, null));
        assertEquals("ESV_ZEL_HIDE_USERINFO_RECORD const & reference is null", e.getMessage());
        e = assertThrows(NullPointerException.class, () -> ZELFNDUserJNI.zel_fnd_user_account_update_hide_user(acc, null, 0, null));
        assertEquals("ESV_ZEL_HIDE_USERINFO_RECORD const & reference is null", e.getMessage());
        e = assertThrows(NullPointerException.class, () -> ZELFNDUserJNI.zel_fnd_user_account_remove_hide_user(acc, null, null));
        assertEquals("null std::string", e.getMessage());
        assertEquals(0, SimDevice.allCalls().length);
        ZELFNDUserJNI.delete_zel_fnd_user_account(0);
        ZELFNDUserJNI.delete_ESV_ZEL_HIDE_USERINFO_RECORD(0);
    }
}
