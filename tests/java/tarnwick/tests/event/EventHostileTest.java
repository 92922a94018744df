package tarnwick.tests.event;

import static org.junit.jupiter.api.Assertions.assertArrayEquals;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static org.junit.jupiter.api.Assertions.assertTrue;

import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.extension.RegisterExtension;
import tarnwick.sim.SimDevice;
import tarnwick.tests.support.SimDeviceExtension;
import tarnwick.zel.wrapper.event.ZELFNDEventJNI;

/**
 * Hostile calls into the event module: panel proxy arguments out of every range, card records
 * with texts far longer than their fields and numbers wider than their members, managers
 * stopped that never started.
 *
 * Left out on purpose: member calls on the null handle and on a deleted (stale) handle. The
 * wrapper layer does not test the object pointer before a member call; such a call is the
 * caller's fault.
 */
class EventHostileTest {
    @RegisterExtension
    static final SimDeviceExtension device = new SimDeviceExtension(false);

    @Test
    void panelProxyArgumentsOutOfRange() {
        SimDevice.reset();
        long p = ZELFNDEventJNI.new_zel_fnd_panel_proxy();
        // Types outside their enumerations never reach the facade.
        for (int bad : new int[] {-1, 3, Integer.MIN_VALUE, Integer.MAX_VALUE}) {
            ZELFNDEventJNI.zel_fnd_panel_proxy_request_buzzer(p, null, 1, bad);
        }
        for (int bad : new int[] {-1, 2, Integer.MIN_VALUE, Integer.MAX_VALUE}) {
            ZELFNDEventJNI.zel_fnd_panel_proxy_request_start_led(p, null, 1, bad);
        }
        for (int bad : new int[] {-1, 6, Integer.MIN_VALUE, Integer.MAX_VALUE}) {
            ZELFNDEventJNI.zel_fnd_panel_proxy_view_update(p, null, 1, bad);
        }
        assertEquals(0, SimDevice.callCount("esv_zel_panel_request_buzzer"));
        assertEquals(0, SimDevice.callCount("esv_zel_panel_request_start_led"));
        assertEquals(0, SimDevice.callCount("esv_zel_panel_notify_view_update"));
        // Ids are unsigned 32-bit: the facade sees the low 32 bits of the Java long.
        ZELFNDEventJNI.zel_fnd_panel_proxy_request_event(p, null, -1L, (1L << 32) + 2);
        assertArrayEquals(new String[] {"4294967295, 2"}, SimDevice.calls("esv_zel_panel_notify_request_event"));
        ZELFNDEventJNI.delete_zel_fnd_panel_proxy(p);
        ZELFNDEventJNI.delete_zel_fnd_panel_proxy(0);
    }

    @Test
    void cardRecordTextsAreCutAndNumbersNarrowed() {
        long c = ZELFNDEventJNI.new_ESV_ZEL_ACC_ICCARD_INFO();
        ZELFNDEventJNI.ESV_ZEL_ACC_ICCARD_INFO_card_id_set(c, null, "c".repeat(1 << 20));
        assertEquals("c".repeat(255), ZELFNDEventJNI.ESV_ZEL_ACC_ICCARD_INFO_card_id_get(c, null));
        ZELFNDEventJNI.ESV_ZEL_ACC_ICCARD_INFO_card_id_set(c, null, null);
        assertEquals("", ZELFNDEventJNI.ESV_ZEL_ACC_ICCARD_INFO_card_id_get(c, null));
        ZELFNDEventJNI.ESV_ZEL_ACC_ICCARD_INFO_card_type_set(c, null, -1L);
        assertEquals(0xFFFFFFFFL, ZELFNDEventJNI.ESV_ZEL_ACC_ICCARD_INFO_card_type_get(c, null));
        ZELFNDEventJNI.ESV_ZEL_ACC_ICCARD_INFO_card_data_size_set(c, null, 70_000);
        assertEquals(70_000 & 0xFFFF, ZELFNDEventJNI.ESV_ZEL_ACC_ICCARD_INFO_card_data_size_get(c, null));
        ZELFNDEventJNI.ESV_ZEL_ACC_ICCARD_INFO_card_data_size_set(c, null, -1);
        assertEquals(0xFFFF, ZELFNDEventJNI.ESV_ZEL_ACC_ICCARD_INFO_card_data_size_get(c, null));
        ZELFNDEventJNI.delete_ESV_ZEL_ACC_ICCARD_INFO(c);

        long f = ZELFNDEventJNI.new_ESV_ZEL_ACC_FELICA_SETTING_INFO();
        String huge = "f".repeat(1 << 20);
        ZELFNDEventJNI.ESV_ZEL_ACC_FELICA_SETTING_INFO_system_code_set(f, null, huge);
        assertEquals(huge, ZELFNDEventJNI.ESV_ZEL_ACC_FELICA_SETTING_INFO_system_code_get(f, null));
        NullPointerException e = assertThrows(NullPointerException.class,
            () -> ZELFNDEventJNI.ESV_ZEL_ACC_FELICA_SETTING_INFO_service_code_1_set(f, null, null));
        assertEquals("null std::string", e.getMessage());
        ZELFNDEventJNI.ESV_ZEL_ACC_FELICA_SETTING_INFO_blk_num_1_set(f, null, (short) 300);
        assertEquals((short) 44, ZELFNDEventJNI.ESV_ZEL_ACC_FELICA_SETTING_INFO_blk_num_1_get(f, null));
        ZELFNDEventJNI.ESV_ZEL_ACC_FELICA_SETTING_INFO_blk_num_2_set(f, null, (short) -1);
        assertEquals((short) 255, ZELFNDEventJNI.ESV_ZEL_ACC_FELICA_SETTING_INFO_blk_num_2_get(f, null));
        ZELFNDEventJNI.delete_ESV_ZEL_ACC_FELICA_SETTING_INFO(f);
        ZELFNDEventJNI.delete_ESV_ZEL_ACC_FELICA_SETTING_INFO(0);
        ZELFNDEventJNI.delete_ESV_ZEL_ACC_ICCARD_INFO(0);
    }

    @Test
    void managersThatNeverStartedOrStopTwice() {
        SimDevice.reset();
        long m = ZELFNDEventJNI.new_zel_fnd_event_manager();
        assertTrue(ZELFNDEventJNI.zel_fnd_event_manager_terminate(m, null));
        assertTrue(ZELFNDEventJNI.zel_fnd_event_manager_terminate(m, null));
        assertEquals(0, SimDevice.allCalls().length, "a manager that never started calls no facade");
        ZELFNDEventJNI.delete_zel_fnd_event_manager(m);
        ZELFNDEventJNI.delete_zel_fnd_event_manager(0);
        // Started, stopped twice and deleted: each observer removed once.
        m = ZELFNDEventJNI.new_zel_fnd_event_manager();
        assertTrue(ZELFNDEventJNI.zel_fnd_event_manager_init(m, null));
        assertTrue(ZELFNDEventJNI.zel_fnd_event_manager_terminate(m, null));
        assertTrue(ZELFNDEventJNI.zel_fnd_event_manager_terminate(m, null));
        ZELFNDEventJNI.delete_zel_fnd_event_manager(m);
        assertEquals(1, SimDevice.callCount("esv_zel_common_remove_observer"));
        assertEquals(1, SimDevice.callCount("esv_zel_jobinfo_remove_observer"));
    }
}
