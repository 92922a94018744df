package tarnwick.tests.user;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertNotEquals;
import static org.junit.jupiter.api.Assertions.assertNull;
import static org.junit.jupiter.api.Assertions.assertSame;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static org.junit.jupiter.api.Assertions.assertTrue;

import java.util.List;
import java.util.concurrent.atomic.AtomicReference;
import org.junit.jupiter.api.AfterEach;
import org.junit.jupiter.api.BeforeEach;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.extension.RegisterExtension;
import tarnwick.account.attribute.AccountID;
import tarnwick.sim.SimDevice;
import tarnwick.tests.support.SimDeviceExtension;
import tarnwick.user.attribute.AccessLevel;
import tarnwick.user.attribute.LoginName;
import tarnwick.user.attribute.MailAddress;
import tarnwick.user.attribute.UserAttribute;
import tarnwick.user.attribute.UserName;
import tarnwick.zel.user.UserImpl;
import tarnwick.zel.wrapper.user.ZELFNDUserJNI;

/** The user-object builder through the module, and the host framework's user classes. */
class UserInfoTest {
    @RegisterExtension
    static final SimDeviceExtension device = new SimDeviceExtension();

    private long builder;

    @BeforeEach
    void start() {
        builder = ZELFNDUserJNI.new_zel_fnd_user_info();
    }

    @AfterEach
    void stop() {
        ZELFNDUserJNI.delete_zel_fnd_user_info(builder);
    }

    private UserImpl create() {
        return (UserImpl) ZELFNDUserJNI.zel_fnd_user_info_create_user_info(builder, null);
    }

    @Test
    void createsUsersAndSetsEachAttribute() {
        UserImpl u = create();
        assertTrue(u.getAttributes().isEmpty());
        ZELFNDUserJNI.zel_fnd_user_info_set_field_login_name(builder, null, u, "alice");
        ZELFNDUserJNI.zel_fnd_user_info_set_field_user_name(builder, null, u, "Alice Archer");
        ZELFNDUserJNI.zel_fnd_user_info_set_field_mail_address(builder, null, u, "alice@example.com");
        ZELFNDUserJNI.zel_fnd_user_info_set_field_account_id(builder, null, u, 42);
        ZELFNDUserJNI.zel_fnd_user_info_set_field_access_level(builder, null, u, 0);
        assertEquals(new LoginName("alice"), u.getLoginName());
        assertEquals(new UserName("Alice Archer"), u.getUserName());
        assertEquals(new MailAddress("alice@example.com"), u.getMailAddress());
        assertEquals(new AccountID("42"), u.getAccountID());
        assertSame(AccessLevel.ADMIN, u.getAccessLevel());
        ZELFNDUserJNI.zel_fnd_user_info_set_field_access_level(builder, null, u, 1);
        assertSame(AccessLevel.USER, u.getAccessLevel(), "a second level replaces the first");
        assertEquals(5, u.getAttributes().size());
        assertNotEquals(u, create(), "a new user each time");
        assertEquals(0, SimDevice.allCalls().length, "the builder never reaches the device");
    }

    @Test
    void accountIdIsTheDecimalText() {
        UserImpl u = create();
        for (int id : new int[] {-5, 0, Integer.MAX_VALUE, Integer.MIN_VALUE}) {
            ZELFNDUserJNI.zel_fnd_user_info_set_field_account_id(builder, null, u, id);
            assertEquals(new AccountID(Integer.toString(id)), u.getAccountID());
        }
        ZELFNDUserJNI.zel_fnd_user_info_set_field_account_id(builder, null, u, -5);
        assertEquals("-5", u.getAccountID().getValue());
    }

    @Test
    void levelsOtherThanZeroAndOneSetNothing() {
        UserImpl u = create();
        for (int level : new int[] {2, -1, 1000}) {
            ZELFNDUserJNI.zel_fnd_user_info_set_field_access_level(builder, null, u, level);
            assertNull(u.getAccessLevel());
        }
        assertTrue(u.getAttributes().isEmpty());
    }

    @Test
    void aNullTextMakesAnAttributeHoldingNull() {
        UserImpl u = create();
        ZELFNDUserJNI.zel_fnd_user_info_set_field_login_name(builder, null, u, null);
        assertEquals(new LoginName(null), u.getLoginName());
        assertNull(u.getLoginName().getValue());
    }

    @Test
    void theBuilderWorksAcrossCallsAndThreads() throws Exception {
        // The class is kept as a global reference: later calls, even from another thread, find it.
        for (int i = 0; i < 50; i++) {
            UserImpl u = create();
            ZELFNDUserJNI.zel_fnd_user_info_set_field_login_name(builder, null, u, "n" + i);
            assertEquals("n" + i, u.getLoginName().getValue());
        }
        AtomicReference<Object> seen = new AtomicReference<>();
        Thread t = new Thread(() -> {
            UserImpl u = create();
            ZELFNDUserJNI.zel_fnd_user_info_set_field_mail_address(builder, null, u, "t@x");
            seen.set(u);
        });
        t.start();
        t.join();
        assertEquals(new MailAddress("t@x"), ((UserImpl) seen.get()).getMailAddress());
        System.gc();
        assertEquals("after", setAndRead("after"));
    }

    private String setAndRead(String text) {
        UserImpl u = create();
        ZELFNDUserJNI.zel_fnd_user_info_set_field_user_name(builder, null, u, text);
        return u.getUserName().getValue();
    }

    @Test
    void frameworkClassesAreUsableByApplications() {
        UserImpl a = new UserImpl();
        a.setAttribute(new LoginName("x"));
        a.setAttribute(AccessLevel.USER);
        UserImpl b = new UserImpl();
        b.setAttribute(AccessLevel.USER);
        b.setAttribute(new LoginName("x"));
        assertEquals(a, b);
        assertEquals(a.hashCode(), b.hashCode());
        assertEquals("UserImpl[LoginName[x], USER]", a.toString());
        assertEquals(List.<UserAttribute>of(new LoginName("x"), AccessLevel.USER), a.getAttributes());
        assertNotEquals(new LoginName("x"), new UserName("x"));
        assertNotEquals(new AccountID("1"), new AccountID("2"));
        assertEquals("ADMIN", AccessLevel.ADMIN.toString());
        assertEquals(0, AccessLevel.ADMIN.getLevel());
        assertSame(AccessLevel.USER, AccessLevel.valueOf(1));
        assertNull(AccessLevel.valueOf(2));
        assertThrows(NullPointerException.class, () -> a.setAttribute(null));
        assertThrows(UnsupportedOperationException.class, () -> a.getAttributes().clear());
    }
}
