package tarnwick.tests.user;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static tarnwick.tests.support.SimDeviceExtension.repeat;
import static tarnwick.tests.support.SimDeviceExtension.trace;

import java.util.List;
import org.junit.jupiter.api.Test;
import tarnwick.sim.SimDevice;
import tarnwick.sim.SimUsers;
import tarnwick.zel.wrapper.account.CMT_Account_ModuleJNI;

/** The account module called the way a careless or hostile application would. */
class CMT_Account_ModuleHostileTest extends AccountFixture {
    @Test
    void aNullAccountIsRefusedWithoutReachingTheDevice() {
        assertEquals(3, CMT_Account_ModuleJNI.cmt_account_manager_add(manager, null, 0, null));
        assertEquals(3, CMT_Account_ModuleJNI.cmt_account_manager_update(manager, null, 0, null));
        assertEquals(3, CMT_Account_ModuleJNI.cmt_account_manager_retrieve_account(manager, null, 0, null));
        assertEquals(List.of("0 add,account == NULL.", "0 update,account == NULL.", "0 retrieve_account,account == NULL."),
                trace("cmt_account_manager"));
        assertEquals(0, SimDevice.allCalls().length);
    }

    @Test
    void hugeIdsAndNames() {
        long a = CMT_Account_ModuleJNI.new_cmt_account(repeat('9', 1_000_000));
        assertEquals(repeat('9', 9), CMT_Account_ModuleJNI.cmt_account_get_id(a, null));
        CMT_Account_ModuleJNI.cmt_account_set_name(a, null, repeat('n', 1_000_000));
        assertEquals(192, CMT_Account_ModuleJNI.cmt_account_get_name(a, null).length());
        assertEquals(0, CMT_Account_ModuleJNI.cmt_account_manager_add(manager, null, a, null));
        assertEquals(repeat('n', 192), SimUsers.deptName(repeat('9', 9)));
        assertEquals(2, CMT_Account_ModuleJNI.cmt_account_manager_remove(manager, null, repeat('9', 100_000)));
        assertEquals(2, CMT_Account_ModuleJNI.cmt_account_manager_remove(manager, null, ""));
        assertEquals(0, CMT_Account_ModuleJNI.cmt_account_manager_reset_counter(manager, null, ""));
        assertEquals(0, CMT_Account_ModuleJNI.cmt_account_manager_remove(manager, null, repeat('9', 9)));
        CMT_Account_ModuleJNI.delete_cmt_account(a);
        // A cut inside a character drops the broken rest.
        StringBuilder wide = new StringBuilder("a");
        for (int i = 0; i < 100; i++) wide.append('\u3042');
        long c = CMT_Account_ModuleJNI.new_cmt_account("W");
        CMT_Account_ModuleJNI.cmt_account_set_name(c, null, wide.toString());
        assertEquals(wide.substring(0, 64), CMT_Account_ModuleJNI.cmt_account_get_name(c, null));
        CMT_Account_ModuleJNI.delete_cmt_account(c);
        long b = CMT_Account_ModuleJNI.new_cmt_account("");
        assertEquals("", CMT_Account_ModuleJNI.cmt_account_get_id(b, null));
        assertEquals(3, CMT_Account_ModuleJNI.cmt_account_manager_add(manager, null, b, null), "the device wants an id");
        CMT_Account_ModuleJNI.delete_cmt_account(b);
    }

    @Test
    void extremeSlotArguments() {
        long a = CMT_Account_ModuleJNI.new_cmt_account("X");
        int[] values = {Integer.MIN_VALUE, -1, 0, Integer.MAX_VALUE};
        for (int v : values) {
            for (int type : new int[] {Integer.MIN_VALUE, -1, 0, 9, Integer.MAX_VALUE}) {
                assertEquals(0, CMT_Account_ModuleJNI.cmt_account_set_limit(a, null, v, type, 0));
                assertEquals(0, CMT_Account_ModuleJNI.cmt_account_set_restriction(a, null, v, type, 1));
            }
            for (int mix : new int[] {Integer.MIN_VALUE, -1, 2, Integer.MAX_VALUE}) {
                assertEquals(1, CMT_Account_ModuleJNI.cmt_account_set_limit(a, null, v, 2, mix));
            }
            assertEquals(-2, CMT_Account_ModuleJNI.cmt_account_get_limit(a, null, v));
            assertEquals(-2, CMT_Account_ModuleJNI.cmt_account_get_restriction(a, null, v));
        }
        assertEquals(1, CMT_Account_ModuleJNI.cmt_account_set_limit(a, null, Integer.MIN_VALUE, 4, 1));
        assertEquals(0, CMT_Account_ModuleJNI.cmt_account_manager_add(manager, null, a, null));
        int[] limits = SimUsers.deptLimits("X");
        assertEquals(Integer.MIN_VALUE, limits[9]);
        for (int i = 0; i < 9; i++) assertEquals(0, limits[i], "slot " + i);
        CMT_Account_ModuleJNI.delete_cmt_account(a);
    }

    @Test
    void settingsOutsideTheEnumerations() {
        for (int v : new int[] {Integer.MIN_VALUE, -1, 3, Integer.MAX_VALUE}) {
            assertEquals(0, CMT_Account_ModuleJNI.cmt_account_config_set_limit_over(config, null, v));
            assertEquals(0, CMT_Account_ModuleJNI.cmt_account_config_set_permit_anonymous(config, null, v));
            assertEquals(0, CMT_Account_ModuleJNI.cmt_account_config_set_copy_print_count(config, null, v));
        }
        assertEquals(0, SimUsers.deptLimitAction());
        assertEquals(0, SimUsers.deptInvalidMode());
        assertEquals(0, SimUsers.deptMixMode());
        assertFalse(CMT_Account_ModuleJNI.cmt_account_config_get_mode(config, null));
    }

    @Test
    void aFullDeviceRefusesFurtherDepartments() {
        for (int i = 0; i < 100; i++) {
            long a = CMT_Account_ModuleJNI.new_cmt_account("D" + i);
            assertEquals(0, CMT_Account_ModuleJNI.cmt_account_manager_add(manager, null, a, null));
            CMT_Account_ModuleJNI.delete_cmt_account(a);
        }
        long extra = CMT_Account_ModuleJNI.new_cmt_account("E");
        assertEquals(3, CMT_Account_ModuleJNI.cmt_account_manager_add(manager, null, extra, null));
        CMT_Account_ModuleJNI.delete_cmt_account(extra);
        assertEquals(1, CMT_Account_ModuleJNI.cmt_account_manager_remove_all(manager, null));
        assertEquals(1, CMT_Account_ModuleJNI.cmt_account_manager_remove_all(manager, null));
        assertEquals(0, SimUsers.deptIds().length);
    }

    @Test
    void manyObjectsComeAndGo() {
        for (int i = 0; i < 5000; i++) {
            long a = CMT_Account_ModuleJNI.new_cmt_account(Integer.toString(i));
            CMT_Account_ModuleJNI.cmt_account_set_name(a, null, "n" + i);
            CMT_Account_ModuleJNI.delete_cmt_account(a);
            long m = CMT_Account_ModuleJNI.new_cmt_account_manager();
            CMT_Account_ModuleJNI.delete_cmt_account_manager(m);
        }
    }
}
