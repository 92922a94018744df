package tarnwick.tests.event;

import static org.junit.jupiter.api.Assertions.assertArrayEquals;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static tarnwick.tests.event.EventFixture.OK;

import java.util.List;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.extension.RegisterExtension;
import tarnwick.sim.SimCommon;
import tarnwick.tests.support.SimDeviceExtension;

/**
 * The notification natives of the device's control classes share one conversion of their Java
 * arguments to the raising function's parameters: an unsigned parameter of 32 bits comes as a
 * long and keeps its low 32 bits, a narrower one or an enumeration comes as an int and keeps
 * what fits.
 */
class NotificationNativesTest {
    @RegisterExtension
    static final SimDeviceExtension device = new SimDeviceExtension(false);

    @RegisterExtension
    final EventFixture f = new EventFixture();

    @Test
    void aLongKeepsItsLow32Bits() {
        assertArrayEquals(OK, SimCommon.coverStatus(0x1_0000_0007L));
        assertArrayEquals(OK, SimCommon.logout(0x7_0000_0000L));
        assertEquals(List.of("cover 7", "logout"), f.events);
    }

    @Test
    void anIntKeepsTheBitsItsParameterHolds() {
        assertArrayEquals(OK, SimCommon.keyCardStatus(0x1C8));
        assertArrayEquals(OK, SimCommon.paperRestStatus(0x1_0002, 0x105));
        assertEquals(List.of("keyDevice 200", "paperSourceLevel 2 5"), f.events);
    }
}
