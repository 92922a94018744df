package tarnwick.tests.user;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertSame;
import static org.junit.jupiter.api.Assertions.assertThrows;

import java.util.ArrayList;
import java.util.List;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.extension.RegisterExtension;
import tarnwick.sim.SimDevice;
import tarnwick.sim.SimUsers;
import tarnwick.tests.support.SimDeviceExtension;
import tarnwick.zel.wrapper.user.ZELFNDUserJNI;

/**
 * The local user list when a Java step raises an exception: the fetch stops, the buffer is freed,
 * the list is finished, and the exception reaches the Java caller (the result, 4, goes with it),
 * with no trace line of its own.
 */
class LocalUserListPendingTest {
    @RegisterExtension
    static final SimDeviceExtension device = new SimDeviceExtension();

    private static final String M = "zel_fnd_authentication";

    /** An ArrayList whose add throws once it holds `limit` users. */
    static final class Full extends ArrayList<Object> {
        final int limit;
        final IllegalStateException thrown = new IllegalStateException("full");

        Full(int limit) {
            this.limit = limit;
        }

        @Override
        public boolean add(Object o) {
            if (size() == limit) throw thrown;
            return super.add(o);
        }
    }

    private static int fetch(Object list) {
        long auth = ZELFNDUserJNI.new_zel_fnd_authentication();
        try {
            return ZELFNDUserJNI.zel_fnd_authentication_get_local_user_list(auth, null, list);
        } finally {
            ZELFNDUserJNI.delete_zel_fnd_authentication(auth);
        }
    }

    @Test
    void aThrowingAddReachesTheCallerAfterTheListIsFinished() {
        SimUsers.addLocalUsers(3);  // and the built-in administrator: four users
        Full list = new Full(2);
        IllegalStateException e = assertThrows(IllegalStateException.class, () -> fetch(list));
        assertSame(list.thrown, e);
        assertEquals(2, list.size());
        assertEquals(3, SimDeviceExtension.calls("esv_zel_user_get_local_user_list").size());
        assertEquals(1, SimDeviceExtension.calls("esv_zel_user_get_local_user_list_finish").size());
        assertEquals(0, SimDevice.openResources("platform block"));
        assertEquals(0, SimDevice.openResources("list handle"));
        // The last line is the third fetch's own: nothing traced for the exception.
        assertEquals(List.of("3 get_local_user_list,[Start]",
                "3 get_local_user_list,total_get_num=(0), total_num=(4), get_num=(0)",
                "3 get_local_user_list,total_get_num=(1), total_num=(4), get_num=(1)",
                "3 get_local_user_list,total_get_num=(2), total_num=(4), get_num=(1)"), SimDeviceExtension.trace(M));
    }

    @Test
    void theFirstUsersAddThrowingLeavesTheListEmpty() {
        Full list = new Full(0);
        assertThrows(IllegalStateException.class, () -> fetch(list));
        assertEquals(0, list.size());
        assertEquals(1, SimDeviceExtension.calls("esv_zel_user_get_local_user_list_finish").size());
        assertEquals(0, SimDevice.openResources("platform block"));
        assertEquals(0, SimDevice.openResources("list handle"));
    }

    @Test
    void aFetchAfterTheExceptionWorksAsBefore() {
        SimUsers.addLocalUsers(1);
        assertThrows(IllegalStateException.class, () -> fetch(new Full(1)));
        ArrayList<Object> list = new ArrayList<>();
        assertEquals(0, fetch(list));
        assertEquals(2, list.size());
    }
}
