package tarnwick.tests.device;

import static org.junit.jupiter.api.Assertions.assertArrayEquals;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static org.junit.jupiter.api.Assertions.assertTrue;
import static tarnwick.zel.wrapper.device.attribute.CMT_ICCardJNI.*;

import java.util.List;
import org.junit.jupiter.api.Test;
import tarnwick.sim.SimAcc;
import tarnwick.sim.SimDevice;
import tarnwick.tests.support.HostileHandleFixture;
import tarnwick.tests.support.SimDeviceExtension;
import tarnwick.zel.wrapper.device.attribute.CMT_ICCardJNI;

/** Hostile calls of the IC card module: out-of-range indexes and sites, huge texts, extreme chars. */
class CMT_ICCardHostileTest extends HostileHandleFixture {
    CMT_ICCardHostileTest() {
        super(CMT_ICCardJNI::new_CMT_Device_ICCard, CMT_ICCardJNI::delete_CMT_Device_ICCard);
    }

    @Test
    void indexesFarOutsideTheSlots() {
        for (int bad : new int[] {Integer.MIN_VALUE, -1, 2, 3, 1 << 20, Integer.MAX_VALUE}) {
            CMT_Device_ICCard_setServiceCode(h, null, "BAD", 99, bad);
            assertEquals(0, CMT_Device_ICCard_getTypeCBlockNum(h, null, 1, bad));
            RuntimeException e = assertThrows(RuntimeException.class, () -> CMT_Device_ICCard_getTypeCServiceCode(h, null, 1, bad));
            assertEquals("basic_string: construction from null is not valid", e.getMessage());
        }
        assertTrue(CMT_Device_ICCard_setTypeCInfo(h, null, 1));
        assertArrayEquals(new String[] {"1", "0", "0", "0", "1", "1"}, SimAcc.lastFelicaSent());
    }

    @Test
    void extremeSitesAndReadTypes() {
        for (int site : new int[] {Integer.MIN_VALUE, -1, 0, 3, Integer.MAX_VALUE}) {
            assertFalse(CMT_Device_ICCard_setTypeCInfo(h, null, site));
            assertFalse(CMT_Device_ICCard_getTypeCInfo(h, null, site));
            assertEquals(0, CMT_Device_ICCard_getTypeCBlockNum(h, null, site, 0));
            assertTrue(CMT_Device_ICCard_setTypeCReadType(h, null, site));  // becomes 0
        }
        for (String c : SimDevice.calls("esv_zel_acc_set_felica_info")) assertTrue(c.startsWith("0, "), c);
        for (String c : SimDevice.calls("esv_zel_acc_set_felica_read_type")) assertEquals("0", c);
    }

    @Test
    void extremeChars() {
        assertTrue(CMT_Device_ICCard_setReaderType(h, null, Character.MAX_VALUE));
        assertTrue(CMT_Device_ICCard_setReaderType(h, null, (char) 0));
        assertTrue(CMT_Device_ICCard_setReaderType(h, null, (char) 0x7F));
        assertTrue(CMT_Device_ICCard_setReaderType(h, null, (char) 0x80));
        assertArrayEquals(new String[] {"255", "0", "127", "128"}, SimDevice.calls("esv_zel_acc_set_iccard_read_type"));
        List<String> entries = SimDeviceExtension.trace("cmt_device_iccard");
        assertEquals("3 setReaderType,[Enter] card_device_type = -1", entries.get(0));
        assertEquals("3 setReaderType,[Enter] card_device_type = 0", entries.get(2));
        assertEquals("3 setReaderType,[Enter] card_device_type = 127", entries.get(4));
        assertEquals("3 setReaderType,[Enter] card_device_type = -128", entries.get(6));
    }

    @Test
    void hugeCodesAreStagedButRefusedByTheReader() {
        String big = SimDeviceExtension.repeat('F', 1 << 20);
        CMT_Device_ICCard_setSystemCode(h, null, big);
        CMT_Device_ICCard_setServiceCode(h, null, big, Integer.MIN_VALUE, 0);
        CMT_Device_ICCard_setServiceCode(h, null, "", Integer.MAX_VALUE, 1);
        assertFalse(CMT_Device_ICCard_setTypeCInfo(h, null, 1));
        String[] sent = SimAcc.lastFelicaSent();
        assertEquals(big, sent[1]);
        assertEquals("0", sent[4]);
        assertEquals("255", sent[5]);
        assertArrayEquals(new String[] {"0", "0", "0", "1", "1"}, SimAcc.felica(1));
        SimAcc.setFelica(2, big, "", "\u00e9", 0, 255);
        assertEquals(big, CMT_Device_ICCard_getTypeCSystemCode(h, null, 2));
        assertEquals("", CMT_Device_ICCard_getTypeCServiceCode(h, null, 2, 0));
        assertEquals("\u00e9", CMT_Device_ICCard_getTypeCServiceCode(h, null, 2, 1));
    }

    @Test
    void nullStrings() {
        assertThrows(NullPointerException.class, () -> CMT_Device_ICCard_setSystemCode(h, null, null));
        assertThrows(NullPointerException.class, () -> CMT_Device_ICCard_setServiceCode(h, null, null, 0, 5));
        assertEquals(0, SimDevice.allCalls().length);
    }

    @Test
    void manyObjects() {
        for (int i = 0; i < 10000; ++i) delete_CMT_Device_ICCard(new_CMT_Device_ICCard());
        assertTrue(CMT_Device_ICCard_setTypeCInfo(h, null, 2));
    }
}
