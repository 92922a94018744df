package tarnwick.tests.user;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertNull;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static org.junit.jupiter.api.Assertions.assertTrue;
import static tarnwick.tests.support.SimDeviceExtension.repeat;

import java.util.ArrayList;
import java.util.List;
import org.junit.jupiter.api.AfterEach;
import org.junit.jupiter.api.BeforeEach;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.extension.RegisterExtension;
import tarnwick.sim.SimDevice;
import tarnwick.sim.SimUsers;
import tarnwick.tests.support.SimDeviceExtension;
import tarnwick.user.attribute.UserAttribute;
import tarnwick.zel.user.UserImpl;
import tarnwick.zel.wrapper.user.ZELFNDUserJNI;

/** The user module called the way a careless or hostile application would. */
class ZELFNDUserHostileTest {
    @RegisterExtension
    static final SimDeviceExtension device = new SimDeviceExtension();

    private long auth;
    private long cert;
    private long builder;

    @BeforeEach
    void start() {
        auth = device.make(ZELFNDUserJNI::new_zel_fnd_authentication, ZELFNDUserJNI::delete_zel_fnd_authentication);
        cert = device.make(ZELFNDUserJNI::new_ZEL_FND_CERTIFICATE_ID, ZELFNDUserJNI::delete_ZEL_FND_CERTIFICATE_ID);
        builder = ZELFNDUserJNI.new_zel_fnd_user_info();
    }

    @AfterEach
    void stop() {
        // The builder first: what it holds open is closed with it.
        ZELFNDUserJNI.delete_zel_fnd_user_info(builder);
        assertEquals(0, SimDevice.openResources(SimUsers.USER_LIST));
        assertEquals(0, SimDevice.openResources("platform block"));
    }

    @Test
    void hugeAndStrangeLoginArguments() {
        String huge = repeat('x', 100_000);
        assertEquals(2, ZELFNDUserJNI.zel_fnd_authentication_login__SWIG_0(auth, null, huge, huge, 1, cert, null));
        assertEquals(2, ZELFNDUserJNI.zel_fnd_authentication_login__SWIG_1(auth, null, huge, huge, 1, huge, cert, null));
        assertEquals(4, ZELFNDUserJNI.zel_fnd_authentication_login__SWIG_0(auth, null, "Admin", "admin", Integer.MIN_VALUE, cert, null));
        assertEquals(4, ZELFNDUserJNI.zel_fnd_authentication_login__SWIG_0(auth, null, "", "", 1, cert, null));
        assertEquals(2, ZELFNDUserJNI.zel_fnd_authentication_login__SWIG_0(auth, null, "Admin\u0000", "admin", 1, cert, null));
        assertEquals(2, ZELFNDUserJNI.zel_fnd_authentication_iccard_login(auth, null, huge, cert, null));
        assertEquals(4, ZELFNDUserJNI.zel_fnd_authentication_iccard_login(auth, null, "", cert, null));
        assertEquals(0L, ZELFNDUserJNI.ZEL_FND_CERTIFICATE_ID_id_get(cert, null));
        // The whole long text reached the device: nothing was cut on the way.
        String[] calls = SimDevice.calls("esv_zel_user_account_login");
        assertEquals(huge.length() * 2 + 2, calls[0].indexOf(", 1, "));
    }

    @Test
    void logoutOfCertificatesNobodyHolds() {
        for (long id : new long[] {0, -1, Long.MAX_VALUE, Long.MIN_VALUE, 0xFFFFFFFFL, 7001}) {
            assertEquals(4, ZELFNDUserJNI.zel_fnd_authentication_logout(auth, null, id));
        }
        // Java longs reach the device as 32-bit certificate numbers.
        String[] calls = SimDevice.calls("esv_zel_user_logout");
        assertEquals(List.of("0", "4294967295", "4294967295", "0", "4294967295", "7001"), List.of(calls));
    }

    @Test
    void modesOutsideTheEnumerations() {
        for (int mode : new int[] {-1, 3, Integer.MAX_VALUE, Integer.MIN_VALUE}) {
            assertEquals(4, ZELFNDUserJNI.zel_fnd_authentication_set_auth_mode(auth, null, mode));
            assertEquals(4, ZELFNDUserJNI.zel_fnd_authentication_set_func_login_mode(auth, null, mode));
        }
        assertEquals(0, SimUsers.authMode());
        long rec = ZELFNDUserJNI.new_ESV_ZEL_USERINFO_RECORD();
        assertEquals(4, ZELFNDUserJNI.zel_fnd_authentication_get_login_user_info(auth, null, -7, rec, null));
        ZELFNDUserJNI.delete_ESV_ZEL_USERINFO_RECORD(rec);
    }

    @Test
    void listArgumentsOfEveryWrongKind() {
        SimUsers.addLocalUsers(3);
        Object[] wrong = {null, "text", new Object(), new ArrayList<?>[0], new java.util.LinkedList<>(), List.of(),
                          new java.util.Vector<>(), new UserImpl()};
        for (Object w : wrong) {
            assertEquals(4, ZELFNDUserJNI.zel_fnd_authentication_get_local_user_list(auth, null, w));
        }
        assertEquals(wrong.length, SimDevice.calls("esv_zel_user_get_local_user_list_finish").length);
    }

    @Test
    void repeatedFetchesLeaveNothingOpen() {
        SimUsers.addLocalUsers(20);
        for (int i = 0; i < 50; i++) {
            ArrayList<Object> list = new ArrayList<>();
            assertEquals(0, ZELFNDUserJNI.zel_fnd_authentication_get_local_user_list(auth, null, list));
            assertEquals(21, list.size());
        }
        assertEquals(0, SimDevice.openResources(SimUsers.USER_LIST));
    }

    @Test
    void fetchesAndLoginsFromSeveralThreadsAtOnce() throws Exception {
        SimUsers.addLocalUsers(50);
        java.util.concurrent.atomic.AtomicInteger bad = new java.util.concurrent.atomic.AtomicInteger();
        Thread[] threads = new Thread[4];
        for (int t = 0; t < threads.length; t++) {
            final int me = t;
            threads[t] = new Thread(() -> {
                long c = ZELFNDUserJNI.new_ZEL_FND_CERTIFICATE_ID();
                for (int i = 0; i < 20; i++) {
                    ArrayList<Object> list = new ArrayList<>();
                    if (ZELFNDUserJNI.zel_fnd_authentication_get_local_user_list(auth, null, list) != 0 || list.size() != 51) {
                        bad.incrementAndGet();
                    }
                    int n = (me * 20 + i) % 50 + 1;
                    String login = String.format("user%05d", n);
                    if (ZELFNDUserJNI.zel_fnd_authentication_login__SWIG_0(auth, null, login, "pw" + n, 1, c, null) != 0) {
                        bad.incrementAndGet();
                    }
                    if (ZELFNDUserJNI.zel_fnd_authentication_logout(auth, null, ZELFNDUserJNI.ZEL_FND_CERTIFICATE_ID_id_get(c, null)) != 0) {
                        bad.incrementAndGet();
                    }
                }
                ZELFNDUserJNI.delete_ZEL_FND_CERTIFICATE_ID(c);
            });
            threads[t].start();
        }
        for (Thread t : threads) t.join();
        assertEquals(0, bad.get());
        assertEquals(0, SimUsers.sessions().length);
    }

    @Test
    void tooManyOpenListsOnTheDeviceIsAFailure() {
        SimDevice.forceResult("esv_zel_user_get_local_user_list_prepare", 0x04010406L, 1);
        assertEquals(4, ZELFNDUserJNI.zel_fnd_authentication_get_local_user_list(auth, null, new ArrayList<>()));
    }

    @Test
    void nonAsciiNamesComeBackWhole() {
        SimUsers.addLocalUser("\u30e6\u30fc\u30b6\u30fc", "pw", "\u5c71\u7530 \u592a\u90ce", "t@\u4f8b.jp", 1);
        ArrayList<Object> list = new ArrayList<>();
        assertEquals(0, ZELFNDUserJNI.zel_fnd_authentication_get_local_user_list(auth, null, list));
        UserImpl u = (UserImpl) list.get(1);
        assertEquals("\u30e6\u30fc\u30b6\u30fc", u.getLoginName().getValue());
        assertEquals("\u5c71\u7530 \u592a\u90ce", u.getUserName().getValue());
        assertEquals("t@\u4f8b.jp", u.getMailAddress().getValue());
    }

    @Test
    void aTextCutInsideACharacterStillMakesAString() {
        StringBuilder name = new StringBuilder("a");
        for (int i = 0; i < 70; i++) name.append('\u3042');  // 3 bytes each: the field's end falls inside one
        SimUsers.addLocalUser("cut", "pw", name.toString(), "m", 1);
        ArrayList<Object> list = new ArrayList<>();
        assertEquals(0, ZELFNDUserJNI.zel_fnd_authentication_get_local_user_list(auth, null, list));
        String got = ((UserImpl) list.get(1)).getUserName().getValue();
        assertEquals(name.substring(0, 64), got);
    }

    @Test
    void builderGivenNullOrForeignObjects() {
        ZELFNDUserJNI.zel_fnd_user_info_set_field_login_name(builder, null, null, "x");
        ZELFNDUserJNI.zel_fnd_user_info_set_field_user_name(builder, null, "not a user", "x");
        ZELFNDUserJNI.zel_fnd_user_info_set_field_mail_address(builder, null, new Object(), null);
        ZELFNDUserJNI.zel_fnd_user_info_set_field_account_id(builder, null, new ArrayList<>(), 5);
        ZELFNDUserJNI.zel_fnd_user_info_set_field_access_level(builder, null, 42, 1);
        ZELFNDUserJNI.zel_fnd_user_info_set_field_access_level(builder, null, null, 0);
        UserImpl u = (UserImpl) ZELFNDUserJNI.zel_fnd_user_info_create_user_info(builder, null);
        ZELFNDUserJNI.zel_fnd_user_info_set_field_login_name(builder, null, u, repeat('z', 50_000));
        assertEquals(50_000, u.getLoginName().getValue().length());
    }

    /** A user whose setAttribute throws: the builder leaves the exception to the Java caller. */
    static final class Refusing extends UserImpl {
        @Override
        public synchronized void setAttribute(UserAttribute attribute) {
            throw new IllegalStateException("refused " + attribute);
        }
    }

    @Test
    void aThrowingSetAttributeReachesTheCaller() {
        Refusing r = new Refusing();
        IllegalStateException e = assertThrows(IllegalStateException.class,
            () -> ZELFNDUserJNI.zel_fnd_user_info_set_field_login_name(builder, null, r, "x"));
        assertEquals("refused LoginName[x]", e.getMessage());
        e = assertThrows(IllegalStateException.class,
            () -> ZELFNDUserJNI.zel_fnd_user_info_set_field_access_level(builder, null, r, 1));
        assertEquals("refused USER", e.getMessage());
        // The next call is clean.
        UserImpl u = (UserImpl) ZELFNDUserJNI.zel_fnd_user_info_create_user_info(builder, null);
        ZELFNDUserJNI.zel_fnd_user_info_set_field_account_id(builder, null, u, 3);
        assertEquals("3", u.getAccountID().getValue());
    }

    @Test
    void manyBuildersAndRecordsComeAndGo() {
        for (int i = 0; i < 2000; i++) {
            long b = ZELFNDUserJNI.new_zel_fnd_user_info();
            Object u = ZELFNDUserJNI.zel_fnd_user_info_create_user_info(b, null);
            ZELFNDUserJNI.zel_fnd_user_info_set_field_access_level(b, null, u, i & 1);
            ZELFNDUserJNI.delete_zel_fnd_user_info(b);
            long r = ZELFNDUserJNI.new_ESV_ZEL_HIDE_USERINFO_RECORD();
            ZELFNDUserJNI.ESV_ZEL_HIDE_USERINFO_RECORD_email_set(r, null, repeat('m', 1000));
            ZELFNDUserJNI.delete_ESV_ZEL_HIDE_USERINFO_RECORD(r);
        }
        ZELFNDUserJNI.delete_zel_fnd_user_info(0);
    }

    @Test
    void hiddenRecordsWithFieldsFilledToTheEdge() {
        long acc = ZELFNDUserJNI.new_zel_fnd_user_account();
        long rec = ZELFNDUserJNI.new_ESV_ZEL_HIDE_USERINFO_RECORD();
        ZELFNDUserJNI.ESV_ZEL_HIDE_USERINFO_RECORD_login_name_set(rec, null, repeat('l', 5000));
        ZELFNDUserJNI.ESV_ZEL_HIDE_USERINFO_RECORD_login_passwd_set(rec, null, repeat('p', 5000));
        ZELFNDUserJNI.ESV_ZEL_HIDE_USERINFO_RECORD_user_name_set(rec, null, repeat('u', 5000));
        ZELFNDUserJNI.ESV_ZEL_HIDE_USERINFO_RECORD_email_set(rec, null, repeat('e', 5000));
        ZELFNDUserJNI.ESV_ZEL_HIDE_USERINFO_RECORD_dept_code_set(rec, null, repeat('d', 5000));
        ZELFNDUserJNI.ESV_ZEL_HIDE_USERINFO_RECORD_rights_set(rec, null, 1);
        assertEquals(0, ZELFNDUserJNI.zel_fnd_user_account_create_hide_user(acc, null, rec, null));
        String[] stored = SimUsers.hiddenUser(repeat('l', 128));
        assertEquals(repeat('d', 8), stored[4]);
        assertEquals(repeat('u', 192), stored[2]);
        // Rights the device does not know are its parameter error: a plain failure.
        ZELFNDUserJNI.ESV_ZEL_HIDE_USERINFO_RECORD_login_name_set(rec, null, "other");
        ZELFNDUserJNI.ESV_ZEL_HIDE_USERINFO_RECORD_rights_set(rec, null, -3);
        assertEquals(4, ZELFNDUserJNI.zel_fnd_user_account_create_hide_user(acc, null, rec, null));
        assertNull(SimUsers.hiddenUser("other"));
        assertEquals(2, ZELFNDUserJNI.zel_fnd_user_account_remove_hide_user(acc, null, repeat('l', 5000)));
        assertEquals(0, ZELFNDUserJNI.zel_fnd_user_account_remove_hide_user(acc, null, repeat('l', 128)));
        ZELFNDUserJNI.delete_ESV_ZEL_HIDE_USERINFO_RECORD(rec);
        ZELFNDUserJNI.delete_zel_fnd_user_account(acc);
        assertTrue(SimUsers.hiddenUserCount() == 0);
    }
}
