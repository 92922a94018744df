package tarnwick.tests.device;

import static org.junit.jupiter.api.Assertions.assertArrayEquals;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static org.junit.jupiter.api.Assertions.assertTrue;
import static tarnwick.zel.wrapper.device.attribute.CMT_ICCardJNI.*;

import java.util.ArrayList;
import java.util.List;
import org.junit.jupiter.api.Test;
import tarnwick.sim.SimAcc;
import tarnwick.sim.SimDevice;
import tarnwick.sim.SimSystem;
import tarnwick.tests.support.HandleFixture;
import tarnwick.tests.support.SimDeviceExtension;
import tarnwick.zel.wrapper.device.attribute.CMT_Device_ICCard;
import tarnwick.zel.wrapper.device.attribute.CMT_ICCardJNI;

/** The IC card module in a real JVM on the simulated reader. */
class ICCardTest extends HandleFixture {
    ICCardTest() {
        super(CMT_ICCardJNI::new_CMT_Device_ICCard, CMT_ICCardJNI::delete_CMT_Device_ICCard);
    }

    private static final String NO_TEXT = "basic_string: construction from null is not valid";

    private static List<String> trace() {
        return SimDeviceExtension.trace("cmt_device_iccard");
    }

    @Test
    void constantsAreNatives() {
        assertEquals(-1, CMT_Device_ICCard_READER_UNKNOWN_get());
        assertEquals(0, CMT_Device_ICCard_READER_NOT_EXIST_get());
        assertEquals(1, CMT_Device_ICCard_READER_EXIST_get());
        assertEquals(1, CMT_Device_ICCard_SETTING_SITE_1_get());
        assertEquals(2, CMT_Device_ICCard_SETTING_SITE_2_get());
        assertEquals(1, CMT_Device_ICCard_READ_IDM_get());
        assertEquals(2, CMT_Device_ICCard_READ_FELICA_get());
        assertEquals(-1, CMT_Device_ICCard.READER_UNKNOWN);
        assertEquals(2, CMT_Device_ICCard.READ_FELICA);
    }

    @Test
    void readerInformation() {
        SimAcc.setReader(0xFFFF, 0x8001, 0xFF);
        assertTrue(CMT_Device_ICCard_getReaderInfo(h, null));
        assertEquals(0xFFFF, CMT_Device_ICCard_getVendorID(h, null));
        assertEquals(0x8001, CMT_Device_ICCard_getProductID(h, null));
        assertEquals(0xFF, CMT_Device_ICCard_getCardTypes(h, null));
        assertEquals(4, SimDevice.callCount("esv_zel_acc_get_iccard_device_info"));
        SimAcc.plugReader(false);
        assertFalse(CMT_Device_ICCard_getReaderInfo(h, null));
        assertEquals(-1, CMT_Device_ICCard_getVendorID(h, null));
        assertEquals(-1, CMT_Device_ICCard_getProductID(h, null));
        assertEquals(-1, CMT_Device_ICCard_getCardTypes(h, null));
        SimAcc.forceDeviceInfo("esv_zel_acc_get_iccard_device_info", 0, 1, 2, 3, 0, 1);
        assertEquals(2, CMT_Device_ICCard_getVendorID(h, null));
        SimAcc.forceDeviceInfo("esv_zel_acc_get_iccard_device_info", 0, 7, 8, 9, 1, 1);
        assertEquals(-1, CMT_Device_ICCard_getProductID(h, null));
        assertEquals(List.of(), trace());
    }

    @Test
    void readerStatus() {
        assertEquals(1, CMT_Device_ICCard_getReaderStatus(h, null));
        SimAcc.plugReader(false);
        assertEquals(0, CMT_Device_ICCard_getReaderStatus(h, null));
        SimSystem.forceUint("esv_zel_acc_get_rw_status", 0, 2, 0, 1);
        assertEquals(-1, CMT_Device_ICCard_getReaderStatus(h, null));
        SimSystem.forceUint("esv_zel_acc_get_rw_status", 0, 1, SimAcc.ERROR, 1);
        assertEquals(-1, CMT_Device_ICCard_getReaderStatus(h, null));
    }

    @Test
    void readerTypeIsASignedByte() {
        assertTrue(CMT_Device_ICCard_setReaderType(h, null, (char) 200));
        assertEquals(200, SimAcc.readType());
        assertEquals(List.of("3 setReaderType,[Enter] card_device_type = -56", "3 setReaderType,true!!"), trace());
        SimDevice.clearTrace();
        assertTrue(CMT_Device_ICCard_setReaderType(h, null, (char) 0x1C8));  // the low byte travels
        assertEquals(0xC8, SimAcc.readType());
        assertEquals("200", SimDevice.calls("esv_zel_acc_set_iccard_read_type")[1]);
        SimDevice.clearTrace();
        SimDevice.forceResult("esv_zel_acc_set_iccard_read_type", 1, 1);
        assertFalse(CMT_Device_ICCard_setReaderType(h, null, (char) 3));
        assertEquals(List.of("3 setReaderType,[Enter] card_device_type = 3", "0 setReaderType,false!!"), trace());
    }

    @Test
    void typeCReadType() {
        assertTrue(CMT_Device_ICCard_setTypeCReadType(h, null, 2));
        assertEquals(2, SimAcc.felicaReadType());
        assertTrue(CMT_Device_ICCard_setTypeCReadType(h, null, 1));
        assertTrue(CMT_Device_ICCard_setTypeCReadType(h, null, 3));
        assertEquals(0, SimAcc.felicaReadType());
        assertArrayEquals(new String[] {"2", "1", "0"}, SimDevice.calls("esv_zel_acc_set_felica_read_type"));
        assertEquals(List.of("3 setTypeCReadType,true!!", "3 setTypeCReadType,true!!", "3 setTypeCReadType,true!!"), trace());
        SimDevice.clearTrace();
        SimDevice.forceResult("esv_zel_acc_set_felica_read_type", SimAcc.ERROR, 1);
        assertFalse(CMT_Device_ICCard_setTypeCReadType(h, null, 1));
        assertEquals(List.of("0 setTypeCReadType,CMT_Device_ICCard::setTypeCReadType false!!"), trace());
    }

    @Test
    void initialSettingRightAfterConstruction() {
        assertTrue(CMT_Device_ICCard_setTypeCInfo(h, null, 1));
        assertArrayEquals(new String[] {"1", "0", "0", "0", "1", "1"}, SimAcc.lastFelicaSent());
    }

    @Test
    void stagedSettingReachesTheSiteAndEveryGetterReadsBack() {
        CMT_Device_ICCard_setSystemCode(h, null, "FE00");
        CMT_Device_ICCard_setServiceCode(h, null, "1A8B", 4, 0);
        CMT_Device_ICCard_setServiceCode(h, null, "0B00", 2, 1);
        assertTrue(CMT_Device_ICCard_setTypeCInfo(h, null, 2));
        assertArrayEquals(new String[] {"FE00", "1A8B", "0B00", "4", "2"}, SimAcc.felica(2));
        SimAcc.setFelica(1, "8000", "AAAA", "BBBB", 9, 250);
        assertEquals("8000", CMT_Device_ICCard_getTypeCSystemCode(h, null, 1));
        assertEquals("AAAA", CMT_Device_ICCard_getTypeCServiceCode(h, null, 1, 0));
        assertEquals("BBBB", CMT_Device_ICCard_getTypeCServiceCode(h, null, 1, 1));
        assertEquals(9, CMT_Device_ICCard_getTypeCBlockNum(h, null, 1, 0));
        assertEquals(250, CMT_Device_ICCard_getTypeCBlockNum(h, null, 1, 1));
        assertTrue(CMT_Device_ICCard_getTypeCInfo(h, null, 2));
        assertEquals(6, SimDevice.callCount("esv_zel_acc_get_felica_info"));
    }

    @Test
    void sitesOtherThanOneAndTwoSendZero() {
        assertFalse(CMT_Device_ICCard_setTypeCInfo(h, null, 0));
        assertFalse(CMT_Device_ICCard_setTypeCInfo(h, null, 5));
        assertArrayEquals(new String[] {"0", "0", "0", "0", "1", "1"}, SimAcc.lastFelicaSent());
        String[] calls = SimDevice.calls("esv_zel_acc_set_felica_info");
        assertEquals(2, calls.length);
        for (String c : calls) assertTrue(c.startsWith("0, "), c);
        assertFalse(CMT_Device_ICCard_getTypeCInfo(h, null, 3));
        assertTrue(SimDevice.calls("esv_zel_acc_get_felica_info")[0].startsWith("0, "));
    }

    @Test
    void blockCountStagesThreeHundredAndSendsFortyFour() {
        CMT_Device_ICCard_setServiceCode(h, null, "1234", 300, 0);
        assertTrue(CMT_Device_ICCard_setTypeCInfo(h, null, 1));
        assertEquals("44", SimAcc.lastFelicaSent()[4]);
        assertEquals(44, CMT_Device_ICCard_getTypeCBlockNum(h, null, 1, 0));
    }

    @Test
    void failedReadGivesBlockZeroAndTheStringGettersThrow() {
        CMT_Device_ICCard_setServiceCode(h, null, "1234", 7, 0);
        SimDevice.forceResult("esv_zel_acc_get_felica_info", SimAcc.ERROR, -1);
        assertFalse(CMT_Device_ICCard_getTypeCInfo(h, null, 1));
        assertEquals(0, CMT_Device_ICCard_getTypeCBlockNum(h, null, 1, 0));
        RuntimeException e = assertThrows(RuntimeException.class, () -> CMT_Device_ICCard_getTypeCSystemCode(h, null, 1));
        assertEquals(RuntimeException.class, e.getClass());
        assertEquals(NO_TEXT, e.getMessage());
        e = assertThrows(RuntimeException.class, () -> CMT_Device_ICCard_getTypeCServiceCode(h, null, 2, 1));
        assertEquals(RuntimeException.class, e.getClass());
        assertEquals(NO_TEXT, e.getMessage());
        SimDevice.reset();
        assertTrue(CMT_Device_ICCard_setTypeCInfo(h, null, 1));
        assertArrayEquals(new String[] {"1", "0", "1234", "0", "7", "1"}, SimAcc.lastFelicaSent());
    }

    @Test
    void indexesOutsideTheTwoSlots() {
        CMT_Device_ICCard_setServiceCode(h, null, "A", 5, 0);
        CMT_Device_ICCard_setServiceCode(h, null, "B", 6, 1);
        CMT_Device_ICCard_setServiceCode(h, null, "X", 99, 2);
        CMT_Device_ICCard_setServiceCode(h, null, "X", 99, -1);
        assertTrue(CMT_Device_ICCard_setTypeCInfo(h, null, 1));
        assertArrayEquals(new String[] {"1", "0", "A", "B", "5", "6"}, SimAcc.lastFelicaSent());
        assertEquals(0, CMT_Device_ICCard_getTypeCBlockNum(h, null, 1, 2));
        RuntimeException e = assertThrows(RuntimeException.class, () -> CMT_Device_ICCard_getTypeCServiceCode(h, null, 1, 2));
        assertEquals(NO_TEXT, e.getMessage());
        assertEquals("B", CMT_Device_ICCard_getTypeCServiceCode(h, null, 1, 1));
    }

    @Test
    void secondObjectResetsTheStagedSettingOfTheFirst() {
        CMT_Device_ICCard_setSystemCode(h, null, "FE00");
        CMT_Device_ICCard_setServiceCode(h, null, "1111", 3, 0);
        long second = new_CMT_Device_ICCard();
        assertTrue(CMT_Device_ICCard_setTypeCInfo(h, null, 1));
        assertArrayEquals(new String[] {"1", "0", "0", "0", "1", "1"}, SimAcc.lastFelicaSent());
        delete_CMT_Device_ICCard(second);
    }

    @Test
    void nullStringsThrowAndStageNothing() {
        CMT_Device_ICCard_setSystemCode(h, null, "FE00");
        NullPointerException e = assertThrows(NullPointerException.class, () -> CMT_Device_ICCard_setSystemCode(h, null, null));
        assertEquals("null std::string", e.getMessage());
        e = assertThrows(NullPointerException.class, () -> CMT_Device_ICCard_setServiceCode(h, null, null, 1, 0));
        assertEquals("null std::string", e.getMessage());
        assertTrue(CMT_Device_ICCard_setTypeCInfo(h, null, 1));
        assertArrayEquals(new String[] {"1", "FE00", "0", "0", "1", "1"}, SimAcc.lastFelicaSent());
    }

    @Test
    void stagingFromManyJavaThreads() throws Exception {
        List<Thread> threads = new ArrayList<>();
        List<Throwable> failures = java.util.Collections.synchronizedList(new ArrayList<>());
        for (int t = 0; t < 4; ++t) {
            final String code = SimDeviceExtension.repeat((char) ('a' + t), 10 + t);
            threads.add(new Thread(() -> {
                try {
                    for (int i = 0; i < 200; ++i) {
                        CMT_Device_ICCard_setSystemCode(h, null, code);
                        CMT_Device_ICCard_setServiceCode(h, null, code, i, i & 1);
                        CMT_Device_ICCard_setTypeCInfo(h, null, 1);
                        CMT_Device_ICCard_getTypeCBlockNum(h, null, 1, i & 1);
                    }
                } catch (Throwable x) {
                    failures.add(x);
                }
            }));
        }
        for (Thread t : threads) t.start();
        for (Thread t : threads) t.join();
        assertEquals(List.of(), failures);
        String sys = SimAcc.felica(1)[0];
        assertTrue(sys.matches("a{10}|b{11}|c{12}|d{13}"), sys);
    }

    @Test
    void theGeneratedProxyClass() {
        CMT_Device_ICCard card = new CMT_Device_ICCard();
        assertEquals(1, card.getReaderStatus());
        card.setSystemCode("ABCD");
        assertTrue(card.setTypeCInfo(CMT_Device_ICCard.SETTING_SITE_2));
        assertEquals("ABCD", card.getTypeCSystemCode(2));
        card.delete();
    }
}
