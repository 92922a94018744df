package tarnwick.tests.device;

import static org.junit.jupiter.api.Assertions.assertArrayEquals;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static org.junit.jupiter.api.Assertions.assertTrue;
import static tarnwick.zel.wrapper.device.attribute.CMT_SystemInformationJNI.*;

import org.junit.jupiter.api.Test;
import tarnwick.sim.SimCommon;
import tarnwick.sim.SimDevice;
import tarnwick.sim.SimSystem;
import tarnwick.tests.support.HostileHandleFixture;
import tarnwick.tests.support.SimDeviceExtension;
import tarnwick.zel.wrapper.device.attribute.CMT_SystemInformationJNI;

/** Hostile calls of the system-information module: null handles, huge texts and numbers, odd arrays. */
class CMT_SystemInformationHostileTest extends HostileHandleFixture {
    CMT_SystemInformationHostileTest() {
        super(CMT_SystemInformationJNI::new_CMT_System_Info, CMT_SystemInformationJNI::delete_CMT_System_Info,
                CMT_SystemInformationJNI::delete_ESV_ZEL_PAPER_INFO, CMT_SystemInformationJNI::delete_ESV_ZEL_COUNT_INFO);
    }

    @Test
    void recordSettersIgnoreANullHandle() {
        ESV_ZEL_PAPER_INFO_paper_remain_set(0, null, (short) 1);
        ESV_ZEL_PAPER_INFO_paper_size_set(0, null, (short) 1);
        ESV_ZEL_PAPER_INFO_paper_direction_set(0, null, (short) 1);
        ESV_ZEL_PAPER_INFO_paper_kind_set(0, null, (short) 1);
        ESV_ZEL_COUNT_INFO_count_kind_set(0, null, Short.MIN_VALUE);
        ESV_ZEL_COUNT_INFO_paper_size_set(0, null, Short.MAX_VALUE);
        ESV_ZEL_COUNT_INFO_color_info_set(0, null, (short) -1);
        long c = new_ESV_ZEL_COUNT_INFO();
        ESV_ZEL_COUNT_INFO_count_kind_set(c, null, Short.MIN_VALUE);
        ESV_ZEL_COUNT_INFO_paper_size_set(c, null, Short.MAX_VALUE);
        assertEquals(0, ESV_ZEL_COUNT_INFO_count_kind_get(c, null));
        assertEquals(255, ESV_ZEL_COUNT_INFO_paper_size_get(c, null));
        delete_ESV_ZEL_COUNT_INFO(c);
    }

    @Test
    void megabyteTextsTravelWhole() {
        String big = SimDeviceExtension.repeat('v', 1 << 20);
        assertTrue(CMT_System_Info_set_string_value(h, null, 1, big));
        assertEquals(big, CMT_System_Info_get_string_value(h, null, 1));
        SimSystem.setMachineText(2, 3, big);
        String[] value = {big};
        assertEquals(0, CMT_System_Info_get_machine_info__SWIG_1(h, null, 2, 3, value));
        assertEquals(big, value[0]);
        SimCommon.setCertAnswer(big, 1);
        assertTrue(CMT_System_Info_check_eweb_cert_info(h, null, big));
        // The trace line of a huge value is cut at 255 characters, never overrun.
        for (String line : SimDeviceExtension.trace("cmt_system_info")) assertTrue(line.length() < 300, line);
    }

    @Test
    void textsWithZeroCharactersAndNonAscii() {
        String odd = "a\u0000b\u00e9\u4e2d\ud83d\ude00";
        assertTrue(CMT_System_Info_set_string_value(h, null, 1, odd));
        assertEquals(odd, CMT_System_Info_get_string_value(h, null, 1));
        String[] value = {odd};
        assertEquals(2, CMT_System_Info_get_machine_info__SWIG_1(h, null, 9, 9, value));
        assertEquals(odd, value[0]);
    }

    @Test
    void extremeKeysCidsAndIds() {
        for (int key : new int[] {Integer.MIN_VALUE, -1, Integer.MAX_VALUE}) {
            assertEquals(-1, CMT_System_Info_get_long_value(h, null, key));
            assertEquals(2, CMT_System_Info_get_retcode(h, null));
            assertEquals("", CMT_System_Info_get_string_value(h, null, key));
            long[] out = {1};
            assertEquals(2, CMT_System_Info_get_machine_info__SWIG_0(h, null, key, Long.MAX_VALUE, out));
            assertEquals(0L, out[0]);
            assertEquals(0, CMT_System_Info_set_machine_info(h, null, key, -1L, Long.MIN_VALUE));
        }
        assertEquals(0L, SimSystem.machineInfo(Integer.MAX_VALUE, 0xFFFFFFFFL));
        assertEquals(0, CMT_System_Info_suspend_deep_sleep(h, null, Long.MAX_VALUE));
        assertEquals(1, SimCommon.deepSleepSuspends(0xFFFFFFFFL));
        assertEquals(0, CMT_System_Info_resume_deep_sleep(h, null, -1L));
        assertEquals(2, CMT_System_Info_set_wakeup_date(h, null, 1, -1L));  // 0xFFFFFFFF: -1 on the device
        assertEquals("1, -1", SimDevice.calls("esv_zel_set_wakeup_date")[0]);
        assertFalse(CMT_System_Info_request_energy_saving_mode(h, null, Integer.MIN_VALUE));
        assertEquals(2, CMT_System_Info_panel_reset_timer_ctrl(h, null, Long.MIN_VALUE, -5));
    }

    @Test
    void longOutputArraysHaveOnlyElementZeroWritten() {
        long[] out = new long[1000];
        java.util.Arrays.fill(out, 7);
        SimSystem.setModelType(3);
        assertEquals(0, CMT_System_Info_get_model_type(h, null, out));
        assertEquals(3L, out[0]);
        for (int i = 1; i < out.length; ++i) assertEquals(7L, out[i]);
        String[] texts = {"x", "y", null};
        assertEquals(2, CMT_System_Info_get_machine_info__SWIG_1(h, null, 1, 1, texts));
        assertArrayEquals(new String[] {"x", "y", null}, texts);
    }

    @Test
    void nullArraysAndRecordsEverywhere() {
        assertThrows(NullPointerException.class, () -> CMT_System_Info_get_screen_size(h, null, null));
        long c = new_ESV_ZEL_COUNT_INFO();
        NullPointerException e = assertThrows(NullPointerException.class, () -> CMT_System_Info_get_count(h, null, c, null, null));
        assertEquals("array null", e.getMessage());
        e = assertThrows(NullPointerException.class, () -> CMT_System_Info_get_machine_info__SWIG_0(h, null, 1, 1, null));
        assertEquals("array null", e.getMessage());
        e = assertThrows(NullPointerException.class, () -> CMT_System_Info_get_count(h, null, 0, null, null));
        assertEquals("ESV_ZEL_COUNT_INFO & reference is null", e.getMessage());
        delete_ESV_ZEL_COUNT_INFO(c);
        assertEquals(0, SimDevice.allCalls().length);
        // The object still works after the refused calls.
        assertEquals(0, CMT_System_Info_get_screen_size(h, null, new long[1]));
    }

    @Test
    void manyObjectsAndRecords() {
        for (int i = 0; i < 10000; ++i) {
            long o = new_CMT_System_Info();
            long p = new_ESV_ZEL_PAPER_INFO();
            long c = new_ESV_ZEL_COUNT_INFO();
            delete_ESV_ZEL_COUNT_INFO(c);
            delete_ESV_ZEL_PAPER_INFO(p);
            delete_CMT_System_Info(o);
        }
        assertEquals(0, SimDevice.openResources("platform block"));
    }
}
