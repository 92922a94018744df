package tarnwick.tests.device;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertTrue;

import java.util.ArrayList;
import java.util.Collections;
import java.util.List;
import org.junit.jupiter.api.AfterEach;
import org.junit.jupiter.api.BeforeEach;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.extension.RegisterExtension;
import tarnwick.sim.SimAcc;
import tarnwick.sim.SimJobs;
import tarnwick.sim.SimSystem;
import tarnwick.tests.support.SimDeviceExtension;
import tarnwick.zel.controller.event.proxy.AccProxy;
import tarnwick.zel.controller.event.proxy.CommonProxy;
import tarnwick.zel.wrapper.device.attribute.CMT_ICCardJNI;
import tarnwick.zel.wrapper.device.attribute.CMT_SystemInformationJNI;
import tarnwick.zel.wrapper.event.ZELFNDEventJNI;
import tarnwick.zel.wrapper.job.zel_fnd_job_moduleJNI;

/**
 * The device services together with the event bridge: power requests reach the applications'
 * sleep listeners, unplugging the reader reaches the reader listeners, and pages a job prints
 * show in the counters.
 */
class DeviceRoadTest {
    @RegisterExtension
    static final SimDeviceExtension device = new SimDeviceExtension(false);

    private final List<String> events = Collections.synchronizedList(new ArrayList<>());
    private final CommonProxy.Listener common = new CommonProxy.Listener() {
        @Override public void sleep(int state) { events.add("sleep " + state); }
    };
    private final AccProxy.Listener acc = new AccProxy.Listener() {
        @Override public void icCardDevice(int vendorId, int productId, boolean connected, byte cardTypes) {
            events.add("reader " + Integer.toHexString(vendorId) + " " + Integer.toHexString(productId) + " " + connected + " "
                       + cardTypes);
        }
    };
    private long info;

    @BeforeEach
    void start() {
        device.listen(CommonProxy.listeners, common);
        device.listen(AccProxy.listeners, acc);
        device.startEventManager();
        info = device.make(CMT_SystemInformationJNI::new_CMT_System_Info, CMT_SystemInformationJNI::delete_CMT_System_Info);
    }

    @Test
    void energySavingAndWakingReachTheSleepListeners() {
        assertTrue(CMT_SystemInformationJNI.CMT_System_Info_request_energy_saving_mode(info, null, 1));
        assertTrue(CMT_SystemInformationJNI.CMT_System_Info_request_energy_saving_mode(info, null, 2));
        assertTrue(CMT_SystemInformationJNI.CMT_System_Info_request_energy_saving_mode(info, null, 0));
        assertEquals(List.of("sleep 0", "sleep 1"), events);
    }

    @Test
    void unpluggingTheReaderReachesTheReaderListeners() {
        SimAcc.setReader(0x0590, 0x0102, 7);
        long card = CMT_ICCardJNI.new_CMT_Device_ICCard();
        assertEquals(1, SimAcc.plugReader(false));
        assertEquals(0, CMT_ICCardJNI.CMT_Device_ICCard_getReaderStatus(card, null));
        assertEquals(1, SimAcc.plugReader(true));
        assertEquals(1, CMT_ICCardJNI.CMT_Device_ICCard_getReaderStatus(card, null));
        CMT_ICCardJNI.delete_CMT_Device_ICCard(card);
        assertEquals(List.of("reader 590 102 false 7", "reader 590 102 true 7"), events);
    }

    @Test
    void printedPagesShowInTheCounters() {
        final int copies = 0, colorMode = 1, originalSize = 4, originalPages = 9;
        long proxy = zel_fnd_job_moduleJNI.new_zel_fnd_job_proxy();
        long[] id = {0};
        assertEquals(0, zel_fnd_job_moduleJNI.zel_fnd_job_proxy_generate_jobinfo(proxy, null, 0, id));
        assertEquals(0, zel_fnd_job_moduleJNI.zel_fnd_job_proxy_set_value__SWIG_0(proxy, null, id[0], copies, 2));
        assertEquals(0, zel_fnd_job_moduleJNI.zel_fnd_job_proxy_set_value__SWIG_0(proxy, null, id[0], originalPages, 3));
        assertEquals(0, zel_fnd_job_moduleJNI.zel_fnd_job_proxy_set_value__SWIG_0(proxy, null, id[0], originalSize, 4));
        assertEquals(0, zel_fnd_job_moduleJNI.zel_fnd_job_proxy_set_value__SWIG_0(proxy, null, id[0], colorMode, 1));
        assertEquals(0, zel_fnd_job_moduleJNI.zel_fnd_job_proxy_commit_jobinfo(proxy, null, id[0]));
        long[] uid = {0};
        assertEquals(0, zel_fnd_job_moduleJNI.zel_fnd_job_proxy_create_job(proxy, null, 0, id[0], uid));
        assertEquals(0, zel_fnd_job_moduleJNI.zel_fnd_job_proxy_start(proxy, null, uid[0]));
        assertTrue(SimJobs.waitJobDone(uid[0], 10000));
        zel_fnd_job_moduleJNI.delete_zel_fnd_job_proxy(proxy);

        long c = CMT_SystemInformationJNI.new_ESV_ZEL_COUNT_INFO();
        CMT_SystemInformationJNI.ESV_ZEL_COUNT_INFO_count_kind_set(c, null, (short) SimSystem.COUNT_PRINT);
        CMT_SystemInformationJNI.ESV_ZEL_COUNT_INFO_paper_size_set(c, null, (short) 4);
        CMT_SystemInformationJNI.ESV_ZEL_COUNT_INFO_color_info_set(c, null, (short) 1);
        long[] count = {0};
        assertEquals(0, CMT_SystemInformationJNI.CMT_System_Info_get_count(info, null, c, null, count));
        assertEquals(6L, count[0]);
        CMT_SystemInformationJNI.delete_ESV_ZEL_COUNT_INFO(c);
    }
}
