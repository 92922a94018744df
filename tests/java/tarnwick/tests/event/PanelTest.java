package tarnwick.tests.event;

import static org.junit.jupiter.api.Assertions.assertArrayEquals;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static tarnwick.tests.event.EventFixture.OK;

import java.util.List;
import org.junit.jupiter.api.AfterEach;
import org.junit.jupiter.api.BeforeEach;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.extension.RegisterExtension;
import tarnwick.sim.SimDevice;
import tarnwick.sim.SimPanel;
import tarnwick.tests.support.SimDeviceExtension;
import tarnwick.zel.wrapper.event.ZELFNDEventJNI;

/** The panel observer and the panel proxy. */
class PanelTest {
    @RegisterExtension
    static final SimDeviceExtension device = new SimDeviceExtension(false);

    private static final String OBS = "zel_fnd_panel_observer";
    private static final String PROXY = "zel_fnd_panel_proxy";

    @RegisterExtension
    final EventFixture f = new EventFixture();

    private long proxy;

    @BeforeEach
    void start() {
        proxy = ZELFNDEventJNI.new_zel_fnd_panel_proxy();
    }

    @AfterEach
    void stop() {
        ZELFNDEventJNI.delete_zel_fnd_panel_proxy(proxy);
    }

    @Test
    void keyEventIdIsZeroExtendedAndTheKindIsDropped() {
        assertArrayEquals(OK, SimPanel.keyEvent(0xFFFFFFFFL, 0));
        assertArrayEquals(OK, SimPanel.keyEvent(0xFFFFFFFFL, 1));
        assertArrayEquals(OK, SimPanel.keyEvent(0xFFFFFFFFL, 77));
        assertEquals(List.of("applStart 4294967295", "applStart 4294967295", "applStart 4294967295"), f.events);
        assertEquals(List.of("3 notify_key_event,[Start]", "3 notify_key_event,[End]", "3 notify_key_event,[Start]",
                "3 notify_key_event,[End]", "3 notify_key_event,[Start]", "3 notify_key_event,[End]"), SimDeviceExtension.trace(OBS));
    }

    @Test
    void autoReset() {
        assertArrayEquals(OK, SimPanel.autoPanelReset());
        assertEquals(List.of("autoReset"), f.events);
    }

    @Test
    void attachFailureAnswers0x04010706() {
        f.assertAttachFailures(new long[] {0x04010706L}, OBS, () -> SimPanel.keyEvent(1, 0), SimPanel::autoPanelReset);
    }

    @Test
    void aThrowingListenerLeavesTheAnswerAt0() {
        f.throwFromListeners = new IllegalStateException("listener failed");
        assertArrayEquals(OK, SimPanel.autoPanelReset());
        f.throwFromListeners = null;
        assertEquals(List.of("3 notify_auto_panel_reset,[Start]", "3 notify_auto_panel_reset,[End]"), SimDeviceExtension.trace(OBS));
    }

    @Test
    void buzzerOutOfRangeIsATypeError() {
        ZELFNDEventJNI.zel_fnd_panel_proxy_request_buzzer(proxy, null, 4000000000L, 3);
        assertEquals(0, SimDevice.callCount("esv_zel_panel_request_buzzer"));
        assertEquals(List.of("3 request_buzzer,[Start]. app_id_num = [-294967296], buzzer_type = [3]",
                "0 request_buzzer,Type Error."), SimDeviceExtension.trace(PROXY));
        ZELFNDEventJNI.zel_fnd_panel_proxy_request_buzzer(proxy, null, 7, 2);
        assertArrayEquals(new String[] {"7, 2"}, SimDevice.calls("esv_zel_panel_request_buzzer"));
    }

    @Test
    void startLedOutOfRangeWritesOnlyTheStartTrace() {
        ZELFNDEventJNI.zel_fnd_panel_proxy_request_start_led(proxy, null, 5, 2);
        assertEquals(0, SimDevice.callCount("esv_zel_panel_request_start_led"));
        assertEquals(List.of("3 request_start_led,[Start]. app_id_num = [5], operation = [2]"), SimDeviceExtension.trace(PROXY));
        ZELFNDEventJNI.zel_fnd_panel_proxy_request_start_led(proxy, null, 5, 1);
        ZELFNDEventJNI.zel_fnd_panel_proxy_request_start_led(proxy, null, 5, 0);
        assertArrayEquals(new String[] {"5, 1", "5, 0"}, SimDevice.calls("esv_zel_panel_request_start_led"));
    }

    @Test
    void viewUpdateTranslatesItsType() {
        int[] expected = {0, 3, 1, 4, 2, 6};
        for (int t = 0; t <= 6; t++) ZELFNDEventJNI.zel_fnd_panel_proxy_view_update(proxy, null, 9, t);
        String[] calls = SimDevice.calls("esv_zel_panel_notify_view_update");
        assertEquals(6, calls.length);
        for (int t = 0; t < 6; t++) assertEquals("9, " + expected[t], calls[t]);
        List<String> tr = SimDeviceExtension.trace(PROXY);
        assertEquals("3 view_update,[Start]", tr.get(tr.size() - 1));
    }

    @Test
    void facadeResultsAreTracedAsEightHexDigits() {
        SimDevice.forceResult("esv_zel_panel_notify_copy_service_login_finish", 0x04010701L, 1);
        SimDevice.forceResult("esv_zel_panel_request_set_value", 0xFFFFFFFFL, 1);
        SimDevice.forceResult("esv_zel_panel_request_display_screen", 1, 1);
        ZELFNDEventJNI.zel_fnd_panel_proxy_notify_copy_service_login_finish(proxy, null);
        ZELFNDEventJNI.zel_fnd_panel_proxy_request_set_value(proxy, null, 2, 1);
        ZELFNDEventJNI.zel_fnd_panel_proxy_request_display_screen(proxy, null, 1);
        ZELFNDEventJNI.zel_fnd_panel_proxy_notify_reset_completed(proxy, null);
        assertEquals(List.of("3 notify_copy_service_login_finish,[Start]",
                "3 notify_copy_service_login_finish,[End. result = [0x04010701]]",
                "3 request_set_value,[Start]", "3 request_set_value,[End. result = [0xffffffff]",
                "3 request_display_screen,[Start]", "3 request_display_screen,[End]. result = [0x00000001]",
                "3 notify_reset_completed,[Start]", "3 notify_reset_completed,[End]. result = [0x00000000]"),
                SimDeviceExtension.trace(PROXY));
        assertArrayEquals(new String[] {"2, 1"}, SimDevice.calls("esv_zel_panel_request_set_value"));
        assertEquals(1, SimDevice.callCount("esv_zel_panel_notify_reset_end"));
    }

    @Test
    void booleansAndRequestEvents() {
        ZELFNDEventJNI.zel_fnd_panel_proxy_j_foundation_start(proxy, null, true);
        ZELFNDEventJNI.zel_fnd_panel_proxy_extension_authentication_init(proxy, null, false);
        ZELFNDEventJNI.zel_fnd_panel_proxy_request_event(proxy, null, 3, 4000000000L);
        assertArrayEquals(new String[] {"1"}, SimDevice.calls("esv_zel_panel_notify_j_foundation_started"));
        assertArrayEquals(new String[] {"0"}, SimDevice.calls("esv_zel_panel_extension_authentication_initialize"));
        assertArrayEquals(new String[] {"3, 4000000000"}, SimDevice.calls("esv_zel_panel_notify_request_event"));
        assertEquals(List.of("3 j_foundation_start,[Start]. result = [1]", "3 j_foundation_start,[End]",
                "3 extension_authentication_init,[Start]. result = [0]", "3 extension_authentication_init,[End]",
                "3 request_event,[Start]. app_id_num = [3], req_id = [-294967296]", "3 request_event,[End]"),
                SimDeviceExtension.trace(PROXY));
    }
}
