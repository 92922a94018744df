package tarnwick.tests.sim;

import static org.junit.jupiter.api.Assertions.assertArrayEquals;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static org.junit.jupiter.api.Assertions.assertTrue;
import static tarnwick.zel.wrapper.job.ESV_ZEL_JOB_SETTING.ESV_ZEL_JOB_SETTING_COPIES;
import static tarnwick.zel.wrapper.job.ESV_ZEL_JOB_SETTING.ESV_ZEL_JOB_SETTING_JOB_NAME;
import static tarnwick.zel.wrapper.job.ESV_ZEL_PHB_DISABLE_ITEM.ESV_ZEL_PHB_DISABLE_ITEM_DUPLEX;

import java.util.Arrays;
import org.junit.jupiter.api.BeforeEach;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.extension.RegisterExtension;
import tarnwick.sim.SimDevice;
import tarnwick.sim.SimDevice.Output;
import tarnwick.sim.SimJobs;
import tarnwick.tests.support.SimDeviceExtension;
import tarnwick.zel.wrapper.job.log.zel_fnd_job_log_moduleJNI;
import tarnwick.zel.wrapper.job.zel_fnd_job_moduleJNI;

/**
 * The simulated device's controls from Java: outputs forced together with a result code, the
 * refusals of outputs that do not fit, and open-resource counts, seen through the library's own
 * job and job log modules.
 */
class SimDeviceTest {
    @RegisterExtension
    static final SimDeviceExtension device = new SimDeviceExtension();

    private static final int FILENAME_OFFSET = 28;  // msg_detail_filename in ESV_ZEL_PHB_GET_MESSAGE
    private static final int DATA_SIZE_OFFSET = 4096;  // data_size in ESV_ZEL_JOB_GET_SCAN_DATA
    private static final int DOC_STATE_OFFSET = 4100;
    private static final int PARAM_ERROR = 8;  // the job proxy's result for ESV_ZEL_JOB_PARAM_ERROR

    private long proxy;

    @BeforeEach
    void start() {
        proxy = device.make(zel_fnd_job_moduleJNI::new_zel_fnd_job_proxy, zel_fnd_job_moduleJNI::delete_zel_fnd_job_proxy);
    }

    @Test
    void anUnsigned32BitOutputAndItsCode() {
        SimDevice.forceOutput("esv_zel_job_get_value", 0, 2, "uint32", 4000000000L, 1);
        long[] val = {0};
        // Set 5 does not exist: the device itself would answer ESV_ZEL_JOB_PARAM_ERROR.
        assertEquals(0, zel_fnd_job_moduleJNI.zel_fnd_job_proxy_get_value__SWIG_0(proxy, null, 5, ESV_ZEL_JOB_SETTING_COPIES, val));
        assertEquals(4000000000L, val[0]);
        assertEquals(0, SimDevice.outputRefusals().length);
        // Once only.
        val[0] = 0;
        assertEquals(PARAM_ERROR, zel_fnd_job_moduleJNI.zel_fnd_job_proxy_get_value__SWIG_0(proxy, null, 5, ESV_ZEL_JOB_SETTING_COPIES, val));
        assertEquals(0L, val[0]);
    }

    @Test
    void anOutputTogetherWithAFailureCode() {
        // ESV_ZEL_JOB_LIMIT: the proxy's result 6, the value written all the same.
        SimDevice.forceOutput("esv_zel_job_get_disable_info", 0x04010006L, 2, "uint16", 0xFFFF, 1);
        int[] val = {0};
        assertEquals(6, zel_fnd_job_moduleJNI.zel_fnd_job_proxy_get_disable_info(proxy, null, 1, ESV_ZEL_PHB_DISABLE_ITEM_DUPLEX, val));
        assertEquals(0xFFFF, val[0]);
    }

    @Test
    void aStdStringOutput() {
        SimDevice.forceOutput("esv_zel_job_get_value", 0, 2, "string", "quarterly report", 1);
        assertEquals("quarterly report", zel_fnd_job_moduleJNI.zel_fnd_job_proxy_get_value__SWIG_1(proxy, null, 1, ESV_ZEL_JOB_SETTING_JOB_NAME));
    }

    @Test
    void aCharArrayFieldOfARecordIsCutAndTerminated() {
        char[] longName = new char[300];
        Arrays.fill(longName, 'n');
        SimDevice.forceOutputs("esv_zel_job_get_main_message", 0, 1,
            Output.number(1, "int32", -3),
            Output.text(1, "char[257]", new String(longName)).at(FILENAME_OFFSET));
        long message = zel_fnd_job_moduleJNI.new_ESV_ZEL_PHB_GET_MESSAGE();
        assertEquals(0, zel_fnd_job_moduleJNI.zel_fnd_job_proxy_get_main_message(proxy, null, 1, message, null));
        assertEquals(-3, zel_fnd_job_moduleJNI.ESV_ZEL_PHB_GET_MESSAGE_main_msg_1_get(message, null));
        assertEquals(new String(longName, 0, 256),
                     zel_fnd_job_moduleJNI.ESV_ZEL_PHB_GET_MESSAGE_msg_detail_filename_get(message, null));
        zel_fnd_job_moduleJNI.delete_ESV_ZEL_PHB_GET_MESSAGE(message);
        assertEquals(0, SimDevice.outputRefusals().length);
    }

    @Test
    void rawBytesWithTheirCount() {
        byte[] bytes = {0, 1, 2, (byte) 0xFF, (byte) 0x80};
        SimDevice.forceOutputs("esv_zel_job_get_scan_data", 0, 1,
            Output.bytes(1, "bytes[4096]", bytes),
            Output.number(1, "uint32", bytes.length).at(DATA_SIZE_OFFSET),
            Output.number(1, "int32", 1).at(DOC_STATE_OFFSET));
        long data = zel_fnd_job_moduleJNI.new_ESV_ZEL_JOB_GET_SCAN_DATA();
        assertArrayEquals(bytes, zel_fnd_job_moduleJNI.zel_fnd_job_proxy_get_scan_data(proxy, null, 999, data, null));
        assertEquals(1, zel_fnd_job_moduleJNI.ESV_ZEL_JOB_GET_SCAN_DATA_doc_state_get(data, null));
        zel_fnd_job_moduleJNI.delete_ESV_ZEL_JOB_GET_SCAN_DATA(data);
    }

    @Test
    void forcedOutputsLastTheirNumberOfCallsOrForEver() {
        SimDevice.forceOutput("esv_zel_job_get_value", 0, 2, "uint32", 7, 2);
        long[] val = {0};
        for (int i = 0; i < 2; ++i) {
            val[0] = 0;
            assertEquals(0, zel_fnd_job_moduleJNI.zel_fnd_job_proxy_get_value__SWIG_0(proxy, null, 5, ESV_ZEL_JOB_SETTING_COPIES, val));
            assertEquals(7L, val[0]);
        }
        val[0] = 0;
        assertEquals(PARAM_ERROR, zel_fnd_job_moduleJNI.zel_fnd_job_proxy_get_value__SWIG_0(proxy, null, 5, ESV_ZEL_JOB_SETTING_COPIES, val));
        SimDevice.forceOutput("esv_zel_job_get_value", 0, 2, "uint32", 8, -1);
        for (int i = 0; i < 4; ++i) {
            val[0] = 0;
            assertEquals(0, zel_fnd_job_moduleJNI.zel_fnd_job_proxy_get_value__SWIG_0(proxy, null, 5, ESV_ZEL_JOB_SETTING_COPIES, val));
            assertEquals(8L, val[0]);
        }
        assertEquals(7, SimDevice.callCount("esv_zel_job_get_value"));
    }

    @Test
    void anOutputThatDoesNotFitIsRefusedAndListed() {
        SimDevice.forceOutputs("esv_zel_job_get_value", 0x04010008L, 1,
            Output.number(2, "int16", 7), Output.text(2, "string", "t"), Output.number(5, "uint32", 1));
        long[] val = {3};
        assertEquals(PARAM_ERROR, zel_fnd_job_moduleJNI.zel_fnd_job_proxy_get_value__SWIG_0(proxy, null, 1, ESV_ZEL_JOB_SETTING_COPIES, val));
        assertEquals(3L, val[0]);
        assertArrayEquals(new String[] {
            "esv_zel_job_get_value: argument 2: the argument has 4 bytes, the kind 2",
            "esv_zel_job_get_value: argument 2: the argument is a number",
            "esv_zel_job_get_value: argument 5: the call has 3 arguments"}, SimDevice.outputRefusals());
        SimDevice.forceOutputs("esv_zel_job_get_main_message", 0, 1, Output.text(1, "char[257]", "x").at(32));
        long message = zel_fnd_job_moduleJNI.new_ESV_ZEL_PHB_GET_MESSAGE();
        assertEquals(0, zel_fnd_job_moduleJNI.zel_fnd_job_proxy_get_main_message(proxy, null, 1, message, null));
        zel_fnd_job_moduleJNI.delete_ESV_ZEL_PHB_GET_MESSAGE(message);
        assertEquals("esv_zel_job_get_main_message: argument 1: past the end of the record (288 bytes)",
                     SimDevice.outputRefusals()[3]);
        SimDevice.reset();
        assertEquals(0, SimDevice.outputRefusals().length);
    }

    @Test
    void unknownKindsAndNegativeIndexesAreRejectedAndArmNothing() {
        IllegalArgumentException e = assertThrows(IllegalArgumentException.class,
            () -> SimDevice.forceOutput("esv_zel_job_get_value", 0, 2, "uint33", 1, 1));
        assertEquals("unknown output kind: uint33", e.getMessage());
        e = assertThrows(IllegalArgumentException.class,
            () -> SimDevice.forceOutput("esv_zel_job_get_value", 0, 2, "char[0]", "x", 1));
        assertEquals("unknown output kind: char[0]", e.getMessage());
        e = assertThrows(IllegalArgumentException.class,
            () -> SimDevice.forceOutput("esv_zel_job_get_value", 0, -1, "uint32", 1, 1));
        assertEquals("argument index -1", e.getMessage());
        e = assertThrows(IllegalArgumentException.class, () -> Output.number(0, "uint32", 1).at(-4));
        assertEquals("offset -4", e.getMessage());
        // The second output of a list is wrong: none is armed.
        assertThrows(IllegalArgumentException.class,
            () -> SimDevice.forceOutputs("esv_zel_job_get_value", 0, 1, Output.number(2, "uint32", 1),
                                         Output.bytes(2, "bytes", new byte[1])));
        long[] val = {0};
        assertEquals(PARAM_ERROR, zel_fnd_job_moduleJNI.zel_fnd_job_proxy_get_value__SWIG_0(proxy, null, 5, ESV_ZEL_JOB_SETTING_COPIES, val));
        assertEquals(0L, val[0]);
    }

    @Test
    void theJobLogsListsAreCountedAsOpenListHandles() {
        long[] id = {0};
        assertEquals(0, zel_fnd_job_moduleJNI.zel_fnd_job_proxy_generate_jobinfo(proxy, null, 0, id));
        assertEquals(0, zel_fnd_job_moduleJNI.zel_fnd_job_proxy_commit_jobinfo(proxy, null, id[0]));
        long[] uid = {0};
        assertEquals(0, zel_fnd_job_moduleJNI.zel_fnd_job_proxy_create_job(proxy, null, 0, id[0], uid));
        assertEquals(0, zel_fnd_job_moduleJNI.zel_fnd_job_proxy_start(proxy, null, uid[0]));
        assertTrue(SimJobs.waitJobDone(uid[0], 10000));
        long receipt = SimJobs.receiptOf(uid[0]);
        assertTrue(receipt != 0);

        long log = zel_fnd_job_log_moduleJNI.new_zel_fnd_job_log_proxy();
        assertEquals(0, SimDevice.openResources("list handle"));
        assertEquals(0, zel_fnd_job_log_moduleJNI.zel_fnd_job_log_proxy_create_send_info_list(log, null, receipt, 0));
        assertEquals(1, SimDevice.openResources("list handle"));
        assertEquals(0, zel_fnd_job_log_moduleJNI.zel_fnd_job_log_proxy_delete_send_info_list(log, null));
        assertEquals(0, SimDevice.openResources("list handle"));
        assertEquals(0, SimDevice.openResources("platform block"));
        assertEquals(0, SimDevice.openResources("file handle"));
        zel_fnd_job_log_moduleJNI.delete_zel_fnd_job_log_proxy(log);
    }
}
