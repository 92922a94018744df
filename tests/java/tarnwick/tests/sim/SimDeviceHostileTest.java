package tarnwick.tests.sim;

import static org.junit.jupiter.api.Assertions.assertArrayEquals;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static tarnwick.zel.wrapper.device.attribute.CMT_SystemInformationJNI.*;

import org.junit.jupiter.api.AfterEach;
import org.junit.jupiter.api.BeforeEach;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.extension.RegisterExtension;
import tarnwick.sim.SimAcc;
import tarnwick.sim.SimDevice;
import tarnwick.sim.SimSystem;
import tarnwick.tests.support.SimDeviceExtension;
import tarnwick.zel.wrapper.device.attribute.CMT_ICCardJNI;

/**
 * Forced outputs from Java with any index, kind and input: every write that does not fit its
 * argument is refused with its reason and the caller's memory keeps its value; the call is
 * answered all the same. And the call record's limit, seen from Java.
 */
class SimDeviceHostileTest {
    @RegisterExtension
    static final SimDeviceExtension device = new SimDeviceExtension();

    private static final long ERROR = 0x04010502L;
    private long info;

    @BeforeEach
    void start() {
        info = new_CMT_System_Info();
    }

    @AfterEach
    void stop() {
        delete_CMT_System_Info(info);
    }

    /** esv_zel_systeminfo_get_model_type(unsigned int& type) through the library: its output. */
    private long modelType(int expectedResult) {
        long[] out = {5};
        assertEquals(expectedResult, CMT_System_Info_get_model_type(info, null, out));
        return out[0];
    }

    @Test
    void indexesPastTheArgumentsAreRefusedWhateverTheirSize() {
        for (int index : new int[] {1, 2, 255, 65536, Integer.MAX_VALUE}) {
            SimDevice.forceOutput("esv_zel_systeminfo_get_model_type", 0, index, "uint32", 7, 1);
            SimSystem.forceUint("esv_zel_systeminfo_get_model_type", index, 7, 0, 1);
        }
        for (int i = 0; i < 10; ++i) assertEquals(0, modelType(0));  // the facade left 0 untouched
        String[] refusals = SimDevice.outputRefusals();
        assertEquals(10, refusals.length);
        assertEquals("esv_zel_systeminfo_get_model_type: argument 1: the call has 1 arguments", refusals[0]);
        assertEquals("esv_zel_systeminfo_get_model_type: argument 2147483647: the call has 1 arguments", refusals[9]);
    }

    @Test
    void negativeIndexesAndOffsetsAreRejectedBeforeAnythingIsArmed() {
        IllegalArgumentException e = assertThrows(IllegalArgumentException.class,
            () -> SimSystem.forceUint("esv_zel_systeminfo_get_model_type", -1, 7, 0, 1));
        assertEquals("argument index -1", e.getMessage());
        e = assertThrows(IllegalArgumentException.class,
            () -> SimAcc.forceFelica("esv_zel_acc_get_felica_info", -2, "1", "2", "3", 1, 1, 0, 1));
        assertEquals("argument index -2", e.getMessage());
        e = assertThrows(IllegalArgumentException.class,
            () -> SimDevice.Output.number(0, "uint32", 1).at(-4));
        assertEquals("offset -4", e.getMessage());
        SimSystem.setModelType(9);
        assertEquals(9, modelType(0));  // nothing was armed
        assertEquals(0, SimDevice.outputRefusals().length);
    }

    @Test
    void kindsThatDoNotFitTheArgumentAreRefusedWithTheirReason() {
        SimSystem.setModelType(9);
        SimDevice.forceOutput("esv_zel_systeminfo_get_model_type", ERROR, 0, "uint64", 0x7FFFFFFFFFFFFFFFL, 1);
        SimDevice.forceOutput("esv_zel_systeminfo_get_model_type", ERROR, 0, "uint8", 1, 1);
        SimSystem.forceString("esv_zel_systeminfo_get_model_type", 0, "text into a number", ERROR, 1);
        SimSystem.forcePaperInfo("esv_zel_systeminfo_get_model_type", 0, 1, 2, 3, 4, ERROR, 1);
        SimDevice.forceOutput("esv_zel_systeminfo_get_model_type", ERROR, 0, "bytes[16777216]", new byte[] {1}, 1);
        SimDevice.forceOutputs("esv_zel_systeminfo_get_model_type", ERROR, 1, SimDevice.Output.number(0, "uint32", 1).at(4));
        for (int i = 0; i < 6; ++i) assertEquals(0, modelType(2));  // ERROR, the facade left 0 untouched
        assertArrayEquals(new String[] {
            "esv_zel_systeminfo_get_model_type: argument 0: the argument has 4 bytes, the kind 8",
            "esv_zel_systeminfo_get_model_type: argument 0: the argument has 4 bytes, the kind 1",
            "esv_zel_systeminfo_get_model_type: argument 0: the argument is a number",
            "esv_zel_systeminfo_get_model_type: argument 0: the argument is a number",
            "esv_zel_systeminfo_get_model_type: argument 0: the argument is a number",
            "esv_zel_systeminfo_get_model_type: argument 0: an offset into a number"}, SimDevice.outputRefusals());
    }

    @Test
    void recordsTakeNothingPastTheirEndAndInputsNothingAtAll() {
        long paper = new_ESV_ZEL_PAPER_INFO();
        try {
            // esv_zel_systeminfo_get_paper_info(ESV_ZEL_ENTKEY key, ESV_ZEL_PAPER_INFO& info): 4 bytes
            SimDevice.forceOutput("esv_zel_systeminfo_get_paper_info", 0, 1, "bytes[5]", new byte[] {1, 2, 3, 4, 5}, 1);
            SimDevice.forceOutputs("esv_zel_systeminfo_get_paper_info", 0, 1, SimDevice.Output.number(1, "uint16", 1).at(3));
            SimDevice.forceOutput("esv_zel_systeminfo_get_paper_info", 0, 1, "int64", -1, 1);
            SimSystem.forceString("esv_zel_systeminfo_get_paper_info", 1, "x", 0, 1);
            for (int i = 0; i < 4; ++i) assertEquals(0, CMT_System_Info_get_paper_info(info, null, 1, paper, null));
            assertArrayEquals(new String[] {
                "esv_zel_systeminfo_get_paper_info: argument 1: past the end of the record (4 bytes)",
                "esv_zel_systeminfo_get_paper_info: argument 1: past the end of the record (4 bytes)",
                "esv_zel_systeminfo_get_paper_info: argument 1: past the end of the record (4 bytes)",
                "esv_zel_systeminfo_get_paper_info: argument 1: the argument is a record, not a std::string"},
                SimDevice.outputRefusals());
            // The record as the library made it: nothing was written into it.
            assertEquals(0, ESV_ZEL_PAPER_INFO_paper_remain_get(paper, null));
            assertEquals(0, ESV_ZEL_PAPER_INFO_paper_size_get(paper, null));
            assertEquals(0, ESV_ZEL_PAPER_INFO_paper_direction_get(paper, null));
            assertEquals(0, ESV_ZEL_PAPER_INFO_paper_kind_get(paper, null));
            assertEquals(0, CMT_System_Info_get_paper_info(info, null, 1, paper, null));
            assertEquals(100, ESV_ZEL_PAPER_INFO_paper_remain_get(paper, null));  // the device's own answer
        } finally {
            delete_ESV_ZEL_PAPER_INFO(paper);
        }
    }

    @Test
    void aFelicaRecordTakesItsCodesAndCountsButNothingOverItsTexts() {
        long ic = CMT_ICCardJNI.new_CMT_Device_ICCard();
        try {
            SimAcc.forceFelica("esv_zel_acc_get_felica_info", 1, "AB", "CD", "EF", 3, 4, 0, 1);
            assertEquals("AB", CMT_ICCardJNI.CMT_Device_ICCard_getTypeCSystemCode(ic, null, 1));
            SimAcc.forceFelica("esv_zel_acc_get_felica_info", 1, "AB", "CD", "EF", 3, 250, 0, 1);
            assertEquals(250, CMT_ICCardJNI.CMT_Device_ICCard_getTypeCBlockNum(ic, null, 1, 1));
            SimDevice.forceOutput("esv_zel_acc_get_felica_info", 0, 1, "uint64", -1, 1);  // over the first code
            CMT_ICCardJNI.CMT_Device_ICCard_getTypeCSystemCode(ic, null, 1);
            SimDevice.forceOutput("esv_zel_acc_get_felica_info", 0, 0, "string", "x", 1);  // the site, a number
            CMT_ICCardJNI.CMT_Device_ICCard_getTypeCSystemCode(ic, null, 1);
            assertEquals("0", CMT_ICCardJNI.CMT_Device_ICCard_getTypeCSystemCode(ic, null, 1));  // the reader's own
            assertArrayEquals(new String[] {
                "esv_zel_acc_get_felica_info: argument 1: over a std::string member of the record",
                "esv_zel_acc_get_felica_info: argument 0: the argument is a number"}, SimDevice.outputRefusals());
        } finally {
            CMT_ICCardJNI.delete_CMT_Device_ICCard(ic);
        }
    }

    @Test
    void theCallRecordKeepsItsLimitAndCountsWhatItDropped() {
        assertEquals(100_000, SimDevice.callLimit());
        SimDevice.setCallLimit(2);
        for (int i = 0; i < 5; ++i) modelType(0);
        assertEquals(2, SimDevice.callCount());
        assertEquals(3, SimDevice.droppedCalls());
        assertEquals(2, SimDevice.calls("esv_zel_systeminfo_get_model_type").length);
        assertThrows(IllegalArgumentException.class, () -> SimDevice.setCallLimit(-1));
        SimDevice.reset();
        assertEquals(100_000, SimDevice.callLimit());
        assertEquals(0, SimDevice.droppedCalls());
    }
}
