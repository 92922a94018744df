package tarnwick.tests.user;

import static org.junit.jupiter.api.Assertions.assertArrayEquals;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertNull;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static org.junit.jupiter.api.Assertions.assertTrue;
import static tarnwick.tests.support.SimDeviceExtension.repeat;
import static tarnwick.tests.support.SimDeviceExtension.trace;

import java.util.List;
import org.junit.jupiter.api.Test;
import tarnwick.sim.SimDevice;
import tarnwick.sim.SimUsers;
import tarnwick.zel.wrapper.account.CMT_Account_ModuleJNI;

/** Department accounting through the account module, on the simulated device. */
class AccountModuleTest extends AccountFixture {
    @Test
    void aNewDepartmentIsTraced() {
        long a = CMT_Account_ModuleJNI.new_cmt_account("D42");
        assertEquals("D42", CMT_Account_ModuleJNI.cmt_account_get_id(a, null));
        assertEquals("", CMT_Account_ModuleJNI.cmt_account_get_name(a, null));
        assertEquals(List.of("3 cmt_account,cmt_account is created. id = [D42]"), trace("cmt_account"));
        CMT_Account_ModuleJNI.delete_cmt_account(a);
    }

    @Test
    void limitsAndRestrictionsPerSlot() {
        long a = CMT_Account_ModuleJNI.new_cmt_account("D1");
        assertEquals(1, CMT_Account_ModuleJNI.cmt_account_set_limit(a, null, 50, 1, 1));
        assertEquals(1, CMT_Account_ModuleJNI.cmt_account_set_limit(a, null, 50, 1, 0));
        assertEquals(0, CMT_Account_ModuleJNI.cmt_account_set_limit(a, null, 50, 9, 0));
        assertEquals(0, CMT_Account_ModuleJNI.cmt_account_set_limit(a, null, 50, 0, 1));
        assertEquals(1, CMT_Account_ModuleJNI.cmt_account_set_limit(a, null, 7, 3, 1));
        assertEquals(1, CMT_Account_ModuleJNI.cmt_account_set_limit(a, null, 8, 3, 0));
        assertEquals(1, CMT_Account_ModuleJNI.cmt_account_set_limit(a, null, 11, 2, 5));
        assertEquals(1, CMT_Account_ModuleJNI.cmt_account_set_restriction(a, null, 1, 7, 1));
        assertEquals(1, CMT_Account_ModuleJNI.cmt_account_set_restriction(a, null, 2, 8, 1));
        assertEquals(1, CMT_Account_ModuleJNI.cmt_account_set_restriction(a, null, 3, 8, 0));
        assertEquals(-2, CMT_Account_ModuleJNI.cmt_account_get_limit(a, null, 3));
        assertEquals(-2, CMT_Account_ModuleJNI.cmt_account_get_restriction(a, null, 7));
        CMT_Account_ModuleJNI.cmt_account_set_name(a, null, "Sales");
        assertEquals(0, CMT_Account_ModuleJNI.cmt_account_manager_add(manager, null, a, null));
        // What reached the device: limit slot 3 = 50, slot 8 = 8 (both mix modes share it).
        assertArrayEquals(new int[] {0, 0, 0, 50, 0, 0, 0, 0, 8, 0}, SimUsers.deptLimits("D1"));
        assertArrayEquals(new int[] {0, 1, 2, 0, 0, 0, 0, 0, 0, 0}, SimUsers.deptRestrictions("D1"));
        assertEquals("Sales", SimUsers.deptName("D1"));
        List<String> t = trace("cmt_account");
        assertEquals("3 set_limit,page = [50], type = [1], mixmode = [1]", t.get(1));
        assertEquals("3 set_restriction,mode = [1], type = [7], mixmode = [1]", t.get(8));
        CMT_Account_ModuleJNI.delete_cmt_account(a);
    }

    @Test
    void idAndNameAreKeptWithinTheirFields() {
        long a = CMT_Account_ModuleJNI.new_cmt_account(repeat('i', 30));
        assertEquals(repeat('i', 9), CMT_Account_ModuleJNI.cmt_account_get_id(a, null));
        CMT_Account_ModuleJNI.cmt_account_set_name(a, null, repeat('n', 400));
        assertEquals(repeat('n', 192), CMT_Account_ModuleJNI.cmt_account_get_name(a, null));
        assertEquals(repeat('i', 9), CMT_Account_ModuleJNI.cmt_account_get_id(a, null));
        CMT_Account_ModuleJNI.delete_cmt_account(a);
    }

    @Test
    void managerOnTheDevice() {
        long a = CMT_Account_ModuleJNI.new_cmt_account("D1");
        CMT_Account_ModuleJNI.cmt_account_set_name(a, null, "Sales");
        assertEquals(0, CMT_Account_ModuleJNI.cmt_account_manager_add(manager, null, a, null));
        assertEquals(1, CMT_Account_ModuleJNI.cmt_account_manager_add(manager, null, a, null));
        CMT_Account_ModuleJNI.cmt_account_set_name(a, null, "Sales East");
        assertEquals(0, CMT_Account_ModuleJNI.cmt_account_manager_update(manager, null, a, null));
        long b = CMT_Account_ModuleJNI.new_cmt_account("D1");
        assertEquals(0, CMT_Account_ModuleJNI.cmt_account_manager_retrieve_account(manager, null, b, null));
        assertEquals("Sales East", CMT_Account_ModuleJNI.cmt_account_get_name(b, null));
        long ghost = CMT_Account_ModuleJNI.new_cmt_account("ZZ");
        assertEquals(2, CMT_Account_ModuleJNI.cmt_account_manager_update(manager, null, ghost, null));
        assertEquals(2, CMT_Account_ModuleJNI.cmt_account_manager_retrieve_account(manager, null, ghost, null));
        assertEquals(2, CMT_Account_ModuleJNI.cmt_account_manager_remove(manager, null, "ZZ"));
        assertEquals(0, CMT_Account_ModuleJNI.cmt_account_manager_reset_counter(manager, null, "ZZ"));
        assertEquals(1, CMT_Account_ModuleJNI.cmt_account_manager_reset_counter(manager, null, "D1"));
        assertEquals(0, CMT_Account_ModuleJNI.cmt_account_manager_remove(manager, null, "D1"));
        assertEquals(1, CMT_Account_ModuleJNI.cmt_account_manager_remove_all(manager, null));
        assertEquals(0, SimUsers.deptIds().length);
        assertEquals(List.of("0 add,result = ESV_ZEL_DEPT_DUPL_DEPT_ERROR", "0 update,result = ESV_ZEL_DEPT_NOT_FOUND_ERROR",
                "0 retrieve_account,result = ESV_ZEL_DEPT_NOT_FOUND_ERROR", "0 remove,result = ESV_ZEL_DEPT_NOT_FOUND_ERROR",
                "0 reset_counter,result = ESV_ZEL_DEPT_NOT_FOUND_ERROR"), trace("cmt_account_manager"));
        SimDevice.forceResult("esv_zel_dept_delete_all_hide_dept", UserFixture.DEPT_ERROR, 1);
        assertEquals(0, CMT_Account_ModuleJNI.cmt_account_manager_remove_all(manager, null));
        SimDevice.forceResult("esv_zel_dept_add_hide_dept", UserFixture.DEPT_ERROR, 1);
        assertEquals(3, CMT_Account_ModuleJNI.cmt_account_manager_add(manager, null, a, null));
        assertTrue(trace("cmt_account_manager").contains("0 add,result = [67176449]"));
        for (long h : new long[] {a, b, ghost}) CMT_Account_ModuleJNI.delete_cmt_account(h);
    }

    @Test
    void configuration() {
        assertEquals(0, CMT_Account_ModuleJNI.cmt_account_config_get_limit_over(config, null));
        assertEquals(1, CMT_Account_ModuleJNI.cmt_account_config_set_limit_over(config, null, 2));
        assertEquals(2, CMT_Account_ModuleJNI.cmt_account_config_get_limit_over(config, null));
        assertEquals(1, CMT_Account_ModuleJNI.cmt_account_config_set_permit_anonymous(config, null, 1));
        assertEquals(1, CMT_Account_ModuleJNI.cmt_account_config_get_permit_anonymous(config, null));
        assertEquals(1, CMT_Account_ModuleJNI.cmt_account_config_set_copy_print_count(config, null, 1));
        assertEquals(1, CMT_Account_ModuleJNI.cmt_account_config_get_copy_print_count(config, null));
        assertFalse(CMT_Account_ModuleJNI.cmt_account_config_get_mode(config, null));
        assertEquals(1, CMT_Account_ModuleJNI.cmt_account_config_set_mode(config, null, true));
        assertTrue(CMT_Account_ModuleJNI.cmt_account_config_get_mode(config, null));
        assertEquals(1, SimUsers.deptMode());
        assertEquals(2, SimUsers.deptLimitAction());
        assertEquals(0, CMT_Account_ModuleJNI.cmt_account_config_set_limit_over(config, null, 9));
        assertEquals(List.of("3 get_limit_over,[Enter]", "3 set_limit_over,[Enter], mode = [2]", "3 get_limit_over,[Enter]",
                "3 set_permit_anonymous,[Enter], permit = [1]", "3 get_permit_anonymous,[Enter]",
                "3 set_copy_print_count,[Enter] mode = [1]", "3 get_copy_print_count,[Enter]", "3 get_mode,[Enter]",
                "3 set_mode,[Enter] mode = [1]", "3 get_mode,[Enter]", "3 set_limit_over,[Enter], mode = [9]",
                "0 set_limit_over,result = [67176450]"), trace("cmt_account_config"));
    }

    @Test
    void configurationFailuresAndForeignValues() {
        SimUsers.forceDeptValueOutput("esv_zel_dept_get_dept_mode", 0, 2, 1);
        assertFalse(CMT_Account_ModuleJNI.cmt_account_config_get_mode(config, null), "a mode of 2 is not on");
        SimDevice.forceResult("esv_zel_dept_get_dept_mode", UserFixture.DEPT_ERROR, 1);
        assertFalse(CMT_Account_ModuleJNI.cmt_account_config_get_mode(config, null));
        for (String op : new String[] {"esv_zel_dept_get_limit_action_mode", "esv_zel_dept_get_invalid_dept_mode",
                                       "esv_zel_dept_get_mix_mode"}) {
            SimDevice.forceResult(op, UserFixture.DEPT_ERROR, 1);
        }
        assertEquals(-1, CMT_Account_ModuleJNI.cmt_account_config_get_limit_over(config, null));
        assertEquals(-1, CMT_Account_ModuleJNI.cmt_account_config_get_permit_anonymous(config, null));
        assertEquals(-1, CMT_Account_ModuleJNI.cmt_account_config_get_copy_print_count(config, null));
        SimUsers.forceDeptValueOutput("esv_zel_dept_get_mix_mode", 0, 33, 1);
        assertEquals(33, CMT_Account_ModuleJNI.cmt_account_config_get_copy_print_count(config, null));
        SimDevice.forceResult("esv_zel_dept_set_dept_mode", UserFixture.DEPT_ERROR, 1);
        assertEquals(0, CMT_Account_ModuleJNI.cmt_account_config_set_mode(config, null, false));
        assertTrue(trace("cmt_account_config").contains("0 get_limit_over,result = [67176449]"));
        String[] modes = SimDevice.calls("esv_zel_dept_set_dept_mode");
        assertEquals("0", modes[modes.length - 1]);
    }

    @Test
    void nullStringsThrow() {
        NullPointerException e = assertThrows(NullPointerException.class, () -> CMT_Account_ModuleJNI.new_cmt_account(null));
        assertEquals("null std::string", e.getMessage());
        long a = CMT_Account_ModuleJNI.new_cmt_account("D");
        e = assertThrows(NullPointerException.class, () -> CMT_Account_ModuleJNI.cmt_account_set_name(a, null, null));
        assertEquals("null std::string", e.getMessage());
        e = assertThrows(NullPointerException.class, () -> CMT_Account_ModuleJNI.cmt_account_manager_remove(manager, null, null));
        assertEquals("null std::string", e.getMessage());
        e = assertThrows(NullPointerException.class, () -> CMT_Account_ModuleJNI.cmt_account_manager_reset_counter(manager, null, null));
        assertEquals("null std::string", e.getMessage());
        assertEquals(0, SimDevice.allCalls().length);
        CMT_Account_ModuleJNI.delete_cmt_account(a);
        CMT_Account_ModuleJNI.delete_cmt_account(0);
        CMT_Account_ModuleJNI.delete_cmt_account_manager(0);
        CMT_Account_ModuleJNI.delete_cmt_account_config(0);
    }

    @Test
    void retrieveOfAnUnterminatedRecordStaysWithinTheFields() {
        SimUsers.forceDeptRecordFullFields(0, 1);
        long a = CMT_Account_ModuleJNI.new_cmt_account("D");
        assertEquals(0, CMT_Account_ModuleJNI.cmt_account_manager_retrieve_account(manager, null, a, null));
        assertEquals(repeat('N', 193), CMT_Account_ModuleJNI.cmt_account_get_name(a, null));
        assertEquals(repeat('I', 10), CMT_Account_ModuleJNI.cmt_account_get_id(a, null));
        CMT_Account_ModuleJNI.delete_cmt_account(a);
        assertNull(SimUsers.deptName("D"));
    }
}
