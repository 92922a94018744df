package tarnwick.tests.event;

import static org.junit.jupiter.api.Assertions.assertArrayEquals;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static tarnwick.tests.event.EventFixture.OK;
import static tarnwick.tests.event.EventFixture.notification;

import java.util.List;
import java.util.stream.Stream;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.params.provider.Arguments;
import tarnwick.sim.SimCommon;
import tarnwick.sim.SimDevice;
import tarnwick.tests.support.SimDeviceExtension;

class CommonObserverTest extends NotificationCases {
    private static final String M = "zel_fnd_common_observer";

    CommonObserverTest() {
        super(M);
    }

    static Stream<Arguments> oneNotification() {
        return Stream.of(
                notification("tonerLevelsArePassedInReverseOrder", () -> SimCommon.tonerStatus(1, 2),
                        List.of("tonerLevel 2 1"),
                        List.of("3 notify_toner_status,[Start]", "3 notify_toner_status,[End]")),
                notification("oddScenarioCompletesTheActivation", () -> SimCommon.requestActivate(13, 0xFFFFFFFFL),
                        List.of("completedActivation 13 4294967295"),
                        List.of("3 request_activate,[Start]", "3 request_activate,[FIN] end. success.")),
                notification("evenScenarioAsksForPreparation", () -> SimCommon.requestActivate(12, 5),
                        List.of("prepareActivation 12 5"),
                        List.of("3 request_activate,[Start]", "3 request_activate,success.")));
    }

    @Test
    void coverStatusIsZeroExtended() {
        assertArrayEquals(OK, SimCommon.coverStatus(0xFFFFFFFFL));
        assertEquals(List.of("cover 4294967295"), f.events);
    }

    @Test
    void keyCardAndKeyCounterReachTheSameMethod() {
        assertArrayEquals(OK, SimCommon.keyCardStatus(200));
        assertArrayEquals(OK, SimCommon.keyCounterStatus(7));
        f.assertSeen(List.of("keyDevice 200", "keyDevice 7"), M,
                List.of("3 notify_key_card_status,[Start]. status = [200]", "3 notify_key_card_status,[End]",
                "3 notify_key_counter_status,[Start]. status = [7]", "3 notify_key_counter_status,[End]"));
    }

    @Test
    void everyNotificationReachesItsMethod() {
        assertArrayEquals(OK, SimCommon.residentAppStateChanged(1));
        assertArrayEquals(OK, SimCommon.wasteTonerBottleStatus(255));
        assertArrayEquals(OK, SimCommon.paperRestStatus(65535, 250));
        assertArrayEquals(OK, SimCommon.coinVenderStatus(3));
        assertArrayEquals(OK, SimCommon.usbMemoryStatus(4));
        assertArrayEquals(OK, SimCommon.sleep(1));
        assertArrayEquals(OK, SimCommon.pbpConnectionError(1));
        assertArrayEquals(OK, SimCommon.logout(99));
        assertArrayEquals(OK, SimCommon.networkStateChanged(1));
        assertArrayEquals(OK, SimCommon.serviceStateChanged(1));
        assertEquals(List.of("residentAppsStateChanged 1", "wasteToner 255", "paperSourceLevel 65535 250", "coinVendor 3",
                "usbDevice 4", "sleep 1", "communicationError", "logout", "networkRestart 1", "systemRestart 1"), f.events);
        List<String> t = SimDeviceExtension.trace(M);
        assertEquals("3 notify_coin_vender_status,[Start]. status = [3]", t.get(6));
        assertEquals("3 notify_usb_memory_status,[Start]. status = [4]", t.get(8));
        assertEquals("3 notify_logout,[Start]", t.get(14));
        assertEquals(20, t.size());
    }

    @Test
    void refusedPreparationAnswers0x04010206() {
        f.prepareAnswer = false;
        assertArrayEquals(new long[] {0x04010206L}, SimCommon.requestActivate(0, 1));
        f.assertSeen(List.of("prepareActivation 0 1"), M,
                List.of("3 request_activate,[Start]", "0 request_activate,failed."));
    }

    @Test
    void scenarioAbove13FiresNothing() {
        assertArrayEquals(OK, SimCommon.requestActivate(14, 1));
        assertArrayEquals(OK, SimCommon.requestActivate(-1, 1));
        f.assertSeen(List.of(), M, List.of("3 request_activate,[Start]", "0 request_activate,[FIN] end. unknown scenario.",
                "3 request_activate,[Start]", "0 request_activate,[FIN] end. unknown scenario."));
    }

    @Test
    void attachFailureAnswers0x04010207AndCallsNoJava() {
        f.assertAttachFailures(new long[] {0x04010207L}, M,
                () -> SimCommon.coverStatus(1), () -> SimCommon.requestActivate(12, 1));
        assertArrayEquals(OK, SimCommon.coverStatus(2));
        assertEquals(List.of("cover 2"), f.events);
    }

    @Test
    void anExceptionFromJavaIsLeftToTheVmAndTheEventCountsAsHandled() {
        f.throwFromListeners = new IllegalStateException("listener failed");
        assertArrayEquals(OK, SimCommon.sleep(0));
        assertArrayEquals(new long[] {0x04010206L}, SimCommon.requestActivate(2, 0));
        f.throwFromListeners = null;
        assertArrayEquals(OK, SimCommon.sleep(1));
        assertEquals(List.of("sleep 0", "prepareActivation 2 0", "sleep 1"), f.events);
        assertEquals("3 notify_sleep,[End]", SimDeviceExtension.trace(M).get(1));
    }
}
