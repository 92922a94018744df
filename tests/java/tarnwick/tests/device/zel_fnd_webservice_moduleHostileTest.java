package tarnwick.tests.device;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static tarnwick.zel.wrapper.webservice.zel_fnd_webservice_moduleJNI.*;

import org.junit.jupiter.api.Test;
import tarnwick.sim.SimDevice;
import tarnwick.sim.SimWebService;
import tarnwick.tests.support.HostileHandleFixture;
import tarnwick.tests.support.SimDeviceExtension;
import tarnwick.zel.wrapper.webservice.zel_fnd_webservice_moduleJNI;

/** Hostile calls of the web service module: null names, huge and odd names, extreme kinds. */
class zel_fnd_webservice_moduleHostileTest extends HostileHandleFixture {
    zel_fnd_webservice_moduleHostileTest() {
        super(zel_fnd_webservice_moduleJNI::new_zel_fnd_webservice_proxy, zel_fnd_webservice_moduleJNI::delete_zel_fnd_webservice_proxy);
    }

    @Test
    void extremeKinds() {
        for (int kind : new int[] {Integer.MIN_VALUE, -1, 3, Integer.MAX_VALUE}) {
            assertEquals(2, zel_fnd_webservice_proxy_reserve(h, null, kind, "h"));
            assertEquals(2, zel_fnd_webservice_proxy_release(h, null, kind, "h"));
        }
        assertEquals("-2147483648, h", SimDevice.calls("esv_zel_webservice_reserve")[0]);
    }

    @Test
    void hugeAndOddNames() {
        String big = SimDeviceExtension.repeat('n', 1 << 20);
        assertEquals(0, zel_fnd_webservice_proxy_reserve(h, null, 0, big));
        assertEquals(big, SimWebService.holder(0));
        assertEquals(4, zel_fnd_webservice_proxy_reserve(h, null, 0, big + "x"));
        assertEquals(0, zel_fnd_webservice_proxy_release(h, null, 0, big));
        String odd = "h\u0000st\u00e9\ud83d\ude00";
        assertEquals(0, zel_fnd_webservice_proxy_reserve(h, null, 1, odd));
        assertEquals(3, zel_fnd_webservice_proxy_reserve(h, null, 1, odd));
        assertEquals(4, zel_fnd_webservice_proxy_reserve(h, null, 1, "h"));
        assertEquals(odd, SimWebService.holder(1));
    }

    @Test
    void nullNamesNeverReachTheFacade() {
        for (int kind : new int[] {0, 1, 2, -1}) {
            assertThrows(NullPointerException.class, () -> zel_fnd_webservice_proxy_reserve(h, null, kind, null));
            assertThrows(NullPointerException.class, () -> zel_fnd_webservice_proxy_release(h, null, kind, null));
        }
        assertEquals(0, SimDevice.allCalls().length);
    }

    @Test
    void releaseBeforeReserveAndManyObjects() {
        assertEquals(5, zel_fnd_webservice_proxy_release(h, null, 2, "h"));
        for (int i = 0; i < 10000; ++i) delete_zel_fnd_webservice_proxy(new_zel_fnd_webservice_proxy());
        assertEquals(0, zel_fnd_webservice_proxy_reserve(h, null, 2, "h"));
    }
}
