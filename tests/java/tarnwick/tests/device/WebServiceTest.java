package tarnwick.tests.device;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static tarnwick.zel.wrapper.webservice.zel_fnd_webservice_moduleJNI.*;

import java.util.List;
import org.junit.jupiter.api.Test;
import tarnwick.sim.SimDevice;
import tarnwick.sim.SimWebService;
import tarnwick.tests.support.HandleFixture;
import tarnwick.tests.support.SimDeviceExtension;
import tarnwick.zel.wrapper.webservice.zel_fnd_webservice_proxy;
import tarnwick.zel.wrapper.webservice.zel_fnd_webservice_moduleJNI;

/** Web service reservation in a real JVM on the simulated device. */
class WebServiceTest extends HandleFixture {
    WebServiceTest() {
        super(zel_fnd_webservice_moduleJNI::new_zel_fnd_webservice_proxy, zel_fnd_webservice_moduleJNI::delete_zel_fnd_webservice_proxy);
    }

    private static final int SCAN = 0, PRINT = 1, DEVICE = 2;

    private static List<String> trace() {
        return SimDeviceExtension.trace("zel_fnd_webservice_proxy");
    }

    @Test
    void everyConversionRowWithItsTrace() {
        Object[][] rows = {
            {0L, 0, "result = ESV_ZEL_WEBSERVICE_OK"}, {0x04010601L, 1, "result = ESV_ZEL_WEBSERVICE_ERROR_PARAMETER"},
            {0x04010602L, 2, "result = ESV_ZEL_WEBSERVICE_ERROR_INVALID_SERVICE"},
            {0x04010603L, 3, "result = ESV_ZEL_WEBSERVICE_ERROR_ALREADY_RESERVED"},
            {0x04010604L, 4, "result = ESV_ZEL_WEBSERVICE_ERROR_DIFFERENT_HOST"},
            {0x04010605L, 5, "result = ESV_ZEL_WEBSERVICE_ERROR_FAILED"}, {0x04010606L, 6, "result = ESV_ZEL_WEBSERVICE_ERROR_IPC"},
            {0x04010607L, 5, "result = ZEL_FND_WEBSERVICE_ERROR_FAILED"}, {-1L, 5, "result = ZEL_FND_WEBSERVICE_ERROR_FAILED"}};
        for (Object[] r : rows) {
            for (String op : new String[] {"reserve", "release"}) {
                SimDevice.clearTrace();
                SimDevice.forceResult("esv_zel_webservice_" + op, (Long) r[0], 1);
                int code = op.equals("reserve") ? zel_fnd_webservice_proxy_reserve(h, null, SCAN, "h")
                                                : zel_fnd_webservice_proxy_release(h, null, SCAN, "h");
                assertEquals((int) (Integer) r[1], code);
                assertEquals(List.of("3 " + op + ",[Start]", "3 " + op + ",[End]", "3 convert_retcode," + r[2]), trace());
            }
        }
    }

    @Test
    void reserveTwiceAnotherHostAndRelease() {
        assertEquals(0, zel_fnd_webservice_proxy_reserve(h, null, SCAN, "host-a"));
        assertEquals("host-a", SimWebService.holder(SCAN));
        assertEquals(3, zel_fnd_webservice_proxy_reserve(h, null, SCAN, "host-a"));
        assertEquals(4, zel_fnd_webservice_proxy_reserve(h, null, SCAN, "host-b"));
        assertEquals(0, zel_fnd_webservice_proxy_reserve(h, null, PRINT, "host-b"));
        assertEquals(4, zel_fnd_webservice_proxy_release(h, null, SCAN, "host-b"));
        assertEquals(0, zel_fnd_webservice_proxy_release(h, null, SCAN, "host-a"));
        assertEquals("", SimWebService.holder(SCAN));
        assertEquals(5, zel_fnd_webservice_proxy_release(h, null, SCAN, "host-a"));
        assertEquals("host-b", SimWebService.holder(PRINT));
    }

    @Test
    void unknownKindAndEmptyName() {
        assertEquals(2, zel_fnd_webservice_proxy_reserve(h, null, 3, "h"));
        assertEquals(2, zel_fnd_webservice_proxy_release(h, null, -1, "h"));
        assertEquals(1, zel_fnd_webservice_proxy_reserve(h, null, DEVICE, ""));
        assertEquals(1, zel_fnd_webservice_proxy_release(h, null, DEVICE, ""));
        assertEquals("3, h", SimDevice.calls("esv_zel_webservice_reserve")[0]);
    }

    @Test
    void nullNameThrowsAndNeverReachesTheFacade() {
        NullPointerException e = assertThrows(NullPointerException.class, () -> zel_fnd_webservice_proxy_reserve(h, null, SCAN, null));
        assertEquals("null std::string", e.getMessage());
        e = assertThrows(NullPointerException.class, () -> zel_fnd_webservice_proxy_release(h, null, SCAN, null));
        assertEquals("null std::string", e.getMessage());
        assertEquals(0, SimDevice.allCalls().length);
        assertEquals(List.of(), trace());
    }

    @Test
    void theGeneratedProxyClass() {
        zel_fnd_webservice_proxy p = new zel_fnd_webservice_proxy();
        assertEquals(0, p.reserve(DEVICE, "tool"));
        assertEquals(3, p.reserve(DEVICE, "tool"));
        assertEquals(0, p.release(DEVICE, "tool"));
        p.delete();
    }
}
