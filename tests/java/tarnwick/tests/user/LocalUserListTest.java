package tarnwick.tests.user;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertNull;
import static org.junit.jupiter.api.Assertions.assertTrue;
import static tarnwick.tests.support.SimDeviceExtension.trace;

import java.io.ByteArrayOutputStream;
import java.io.File;
import java.io.InputStream;
import java.util.ArrayList;
import java.util.LinkedList;
import java.util.List;
import java.util.concurrent.TimeUnit;
import org.junit.jupiter.api.AfterEach;
import org.junit.jupiter.api.BeforeEach;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.extension.RegisterExtension;
import tarnwick.account.attribute.AccountID;
import tarnwick.sim.SimDevice;
import tarnwick.sim.SimUsers;
import tarnwick.tests.support.SimDeviceExtension;
import tarnwick.user.attribute.AccessLevel;
import tarnwick.user.attribute.LoginName;
import tarnwick.user.attribute.MailAddress;
import tarnwick.user.attribute.UserName;
import tarnwick.zel.user.UserImpl;
import tarnwick.zel.wrapper.system.cmt_commonJNI;
import tarnwick.zel.wrapper.user.ZELFNDUserJNI;

/** The local user list as UserImpl objects: the batched fetch, its failures and its traces. */
class LocalUserListTest {
    @RegisterExtension
    static final SimDeviceExtension device = new SimDeviceExtension();

    private static final String M = "zel_fnd_authentication";
    private static final String PREPARE = "esv_zel_user_get_local_user_list_prepare";
    private static final String FETCH = "esv_zel_user_get_local_user_list";
    private static final String FINISH = "esv_zel_user_get_local_user_list_finish";
    private long auth;

    @BeforeEach
    void start() {
        auth = ZELFNDUserJNI.new_zel_fnd_authentication();
    }

    @AfterEach
    void stop() {
        ZELFNDUserJNI.delete_zel_fnd_authentication(auth);
        SimUsers.reset();
        assertEquals(0, SimDevice.openResources(SimUsers.USER_LIST));
        assertEquals(0, SimDevice.openResources("platform block"));
    }

    private int fetch(Object list) {
        return ZELFNDUserJNI.zel_fnd_authentication_get_local_user_list(auth, null, list);
    }

    private static UserImpl user(String login, String name, String mail, AccessLevel level) {
        UserImpl u = new UserImpl();
        u.setAttribute(new LoginName(login));
        u.setAttribute(new UserName(name));
        u.setAttribute(new MailAddress(mail));
        if (level != null) u.setAttribute(level);
        return u;
    }

    @Test
    void everyLocalUserBecomesAUserImplInListOrder() {
        SimUsers.addLocalUser("alice", "pw", "Alice", "alice@example.com", 1, 30, 4, "arisu", "", "");
        SimUsers.addLocalUser("bob", "pw", "Bob", "bob@example.com", 0);
        ArrayList<Object> list = new ArrayList<>();
        list.add("kept");
        SimDevice.clearTrace();
        assertEquals(0, fetch(list));
        assertEquals(List.of("kept", user("Admin", "Administrator", "", AccessLevel.ADMIN),
                user("alice", "Alice", "alice@example.com", AccessLevel.USER),
                user("bob", "Bob", "bob@example.com", AccessLevel.ADMIN)), list);
        UserImpl alice = (UserImpl) list.get(2);
        assertEquals("alice", alice.getLoginName().getValue());
        assertEquals(AccessLevel.USER, alice.getAccessLevel());
        assertNull(alice.getAccountID(), "department, job limit, id and reading are not carried over");
        assertEquals(4, alice.getAttributes().size());
        assertEquals(List.of("3 get_local_user_list,[Start]",
                "3 get_local_user_list,total_get_num=(0), total_num=(3), get_num=(0)",
                "3 get_local_user_list,total_get_num=(1), total_num=(3), get_num=(1)",
                "3 get_local_user_list,total_get_num=(2), total_num=(3), get_num=(1)"), trace(M));
        String[] prepare = SimDevice.calls(PREPARE);
        assertEquals(1, prepare.length);
        assertTrue(prepare[0].startsWith("1, "), prepare[0]);
        assertEquals(3, SimDevice.calls(FETCH).length);
        assertEquals(1, SimDevice.calls(FINISH).length);
    }

    @Test
    void noLocalUsersAddsNothingAndFinishesOnce() {
        SimUsers.forceListPrepareOutput(0, 12, 0, 1);
        ArrayList<Object> list = new ArrayList<>();
        assertEquals(0, fetch(list));
        assertTrue(list.isEmpty());
        assertEquals(List.of("12"), List.of(SimDevice.calls(FINISH)));
        assertEquals(0, SimDevice.calls(FETCH).length);
        assertEquals(List.of("3 get_local_user_list,[Start]", "3 get_local_user_list,total_num == 0."), trace(M));
        // A null list is not touched either when there is nothing to add.
        SimUsers.forceListPrepareOutput(0, 13, 0, 1);
        assertEquals(0, fetch(null));
    }

    @Test
    void failedPrepareReturnsFourWithoutFinish() {
        SimDevice.forceResult(PREPARE, UserFixture.USER_ERROR, 1);
        assertEquals(4, fetch(new ArrayList<>()));
        assertEquals(0, SimDevice.calls(FINISH).length);
        assertEquals(List.of("3 get_local_user_list,[Start]", "0 get_local_user_list,failed. result(67175424)"), trace(M));
    }

    @Test
    void failureOfTheThirdFetchKeepsTheFirstTwo() {
        SimUsers.addLocalUsers(4);
        SimUsers.forceListFetchOutput(0, 1, "u1", "User One", "one@x", 1, 1);
        SimUsers.forceListFetchOutput(0, 1, "u2", "User Two", "two@x", 0, 1);
        SimDevice.forceResult(FETCH, UserFixture.USER_ERROR, 1);
        ArrayList<Object> list = new ArrayList<>();
        assertEquals(4, fetch(list));
        assertEquals(List.of(user("u1", "User One", "one@x", AccessLevel.USER), user("u2", "User Two", "two@x", AccessLevel.ADMIN)), list);
        assertEquals(1, SimDevice.calls(FINISH).length);
        List<String> t = trace(M);
        assertEquals("0 get_local_user_list,failed. ret(67175424)", t.get(t.size() - 1));
        assertEquals("3 get_local_user_list,total_get_num=(2), total_num=(5), get_num=(1)", t.get(t.size() - 2));
    }

    @Test
    void failingFinishAfterACompleteFetchStillReturnsZero() {
        SimDevice.forceResult(FINISH, UserFixture.USER_ERROR, 1);
        ArrayList<Object> list = new ArrayList<>();
        assertEquals(0, fetch(list));
        assertEquals(1, list.size());
        List<String> t = trace(M);
        assertEquals("3 get_local_user_list,failed. result(67175424)", t.get(t.size() - 1));
        assertEquals(1, SimDevice.openResources(SimUsers.USER_LIST), "the device kept the handle it was not given back");
    }

    @Test
    void aListThatIsNotAnArrayListIsALocalFailure() {
        for (Object wrong : new Object[] {null, new LinkedList<Object>(), "text", new Object()}) {
            SimDevice.clearTrace();
            SimDevice.clearCalls();
            assertEquals(4, fetch(wrong));
            assertEquals(1, SimDevice.calls(FINISH).length);
            assertEquals(0, SimDevice.calls(FETCH).length);
            assertEquals(List.of("3 get_local_user_list,[Start]", "0 get_local_user_list,list is not a java.util.ArrayList."),
                    trace(M));
        }
        // A subclass of ArrayList is one.
        ArrayList<Object> sub = new ArrayList<Object>() {};
        assertEquals(0, fetch(sub));
        assertEquals(1, sub.size());
    }

    @Test
    void allocationFailureFinishesAndReturnsFour() {
        SimUsers.failPlatformAlloc(1);
        assertEquals(4, fetch(new ArrayList<>()));
        assertEquals(1, SimDevice.calls(FINISH).length);
        assertEquals(0, SimDevice.calls(FETCH).length);
        List<String> t = trace(M);
        assertEquals("0 get_local_user_list,user_info == NULL.", t.get(t.size() - 1));
    }

    @Test
    void unterminatedFieldsAreReadWithinTheirFields() {
        SimUsers.forceListFetchFullFields(0, 1, 1);
        ArrayList<Object> list = new ArrayList<>();
        assertEquals(0, fetch(list));
        UserImpl u = (UserImpl) list.get(0);
        assertEquals(SimDeviceExtension.repeat('L', 129), u.getLoginName().getValue());
        assertEquals(SimDeviceExtension.repeat('U', 193), u.getUserName().getValue());
        assertEquals(SimDeviceExtension.repeat('M', 129), u.getMailAddress().getValue());
    }

    @Test
    void aLevelOtherThanZeroOrOneSetsNoAccessLevel() {
        SimUsers.forceListFetchOutput(0, 1, "odd", "Odd", "odd@x", 7, 1);
        ArrayList<Object> list = new ArrayList<>();
        assertEquals(0, fetch(list));
        assertEquals(user("odd", "Odd", "odd@x", null), list.get(0));
        assertNull(((UserImpl) list.get(0)).getAccessLevel());
    }

    @Test
    void aFetchCountOfZeroKeepsTheLoopGoingUntilTheFacadeAdvances() {
        // Bounded here: five empty answers, then one that covers the whole total.
        SimUsers.forceListPrepareOutput(0, 3, 2, 1);
        SimUsers.forceListFetchOutput(0, 0, "same", "Same", "s@x", 1, 5);
        SimUsers.forceListFetchOutput(0, 2, "last", "Last", "l@x", 1, 1);
        ArrayList<Object> list = new ArrayList<>();
        assertEquals(0, fetch(list));
        assertEquals(6, SimDevice.calls(FETCH).length);
        assertEquals(6, list.size());
        assertEquals(user("last", "Last", "l@x", AccessLevel.USER), list.get(5));
    }

    @Test
    void aThousandUsersUnderCheckJni() {
        SimUsers.addLocalUsers(999);
        ArrayList<Object> list = new ArrayList<>();
        assertEquals(0, fetch(list));
        assertEquals(1000, list.size());
        UserImpl last = (UserImpl) list.get(999);
        assertEquals("user00999", last.getLoginName().getValue());
        assertEquals("User 999", last.getUserName().getValue());
        assertEquals("user00999@example.com", last.getMailAddress().getValue());
        assertEquals(AccessLevel.USER, last.getAccessLevel());
        assertEquals(AccessLevel.ADMIN, ((UserImpl) list.get(990)).getAccessLevel());
    }

    /** Run in a child VM without JUnit: fetches a thousand users once and prints the count. */
    static final class ChildVm {
        public static void main(String[] args) {
            System.loadLibrary("tovrCMT");
            cmt_commonJNI.cmt_init_init();
            SimDevice.reset();
            SimUsers.addLocalUsers(999);
            long a = ZELFNDUserJNI.new_zel_fnd_authentication();
            ArrayList<Object> list = new ArrayList<>();
            int rc = ZELFNDUserJNI.zel_fnd_authentication_get_local_user_list(a, null, list);
            ZELFNDUserJNI.delete_zel_fnd_authentication(a);
            System.out.println("result " + rc + " users " + list.size());
        }
    }

    private static String pathOf(Class<?> c) throws Exception {
        return new File(c.getProtectionDomain().getCodeSource().getLocation().toURI()).getPath();
    }

    @Test
    void localReferencesStayFlatForAThousandUsers() throws Exception {
        String cp = String.join(File.pathSeparator, pathOf(LocalUserListTest.class), pathOf(UserImpl.class),
                pathOf(SimUsers.class));
        ProcessBuilder pb = new ProcessBuilder(System.getProperty("java.home") + "/bin/java", "-Xcheck:jni",
                "-Djava.library.path=" + System.getProperty("java.library.path"), "-cp", cp,
                ChildVm.class.getName());
        pb.redirectErrorStream(true);
        Process p = pb.start();
        ByteArrayOutputStream out = new ByteArrayOutputStream();
        try (InputStream in = p.getInputStream()) {
            in.transferTo(out);
        }
        assertTrue(p.waitFor(120, TimeUnit.SECONDS));
        String text = out.toString("UTF-8");
        assertEquals(0, p.exitValue(), text);
        assertTrue(text.contains("result 0 users 1000"), text);
        assertFalse(text.contains("WARNING"), text);
        assertFalse(text.contains("exceeds capacity"), text);
    }
}
