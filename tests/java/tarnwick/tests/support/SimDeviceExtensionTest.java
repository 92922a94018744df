package tarnwick.tests.support;

import static org.junit.jupiter.api.Assertions.assertEquals;

import java.util.List;
import org.junit.jupiter.api.MethodOrderer;
import org.junit.jupiter.api.Order;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.TestMethodOrder;
import org.junit.jupiter.api.extension.RegisterExtension;
import tarnwick.sim.SimDevice;
import tarnwick.zel.wrapper.webservice.zel_fnd_webservice_moduleJNI;

/** The shared set-up: what one test leaves on the device, the next one does not see. */
@TestMethodOrder(MethodOrderer.OrderAnnotation.class)
class SimDeviceExtensionTest {
    @RegisterExtension
    static final SimDeviceExtension device = new SimDeviceExtension();

    @Test
    @Order(1)
    void aTestLeavesAForcingCallsAndTrace() {
        SimDevice.forceResult("esv_zel_webservice_reserve", 0x04010B01L, 5);
        long ws = zel_fnd_webservice_moduleJNI.new_zel_fnd_webservice_proxy();
        try {
            zel_fnd_webservice_moduleJNI.zel_fnd_webservice_proxy_reserve(ws, null, 1, "host");
        } finally {
            zel_fnd_webservice_moduleJNI.delete_zel_fnd_webservice_proxy(ws);
        }
        assertEquals(1, SimDeviceExtension.calls("esv_zel_webservice_reserve").size());
        assertEquals(List.of("3 reserve,[Start]", "3 reserve,[End]", "3 convert_retcode,result = ZEL_FND_WEBSERVICE_ERROR_FAILED"),
                SimDeviceExtension.trace("zel_fnd_webservice_proxy"));
    }

    @Test
    @Order(2)
    void theNextStartsOnAFreshDevice() {
        assertEquals(List.of(), SimDeviceExtension.calls("esv_zel_webservice_reserve"));
        assertEquals(List.of(), SimDeviceExtension.trace("zel_fnd_webservice_proxy"));
        long ws = zel_fnd_webservice_moduleJNI.new_zel_fnd_webservice_proxy();
        try {
            assertEquals(0, zel_fnd_webservice_moduleJNI.zel_fnd_webservice_proxy_reserve(ws, null, 1, "host"));
        } finally {
            zel_fnd_webservice_moduleJNI.delete_zel_fnd_webservice_proxy(ws);
        }
    }
}
