package tarnwick.tests.event;

import static org.junit.jupiter.api.Assertions.assertArrayEquals;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertTrue;
import static tarnwick.tests.event.EventFixture.OK;

import java.io.ByteArrayOutputStream;
import java.util.List;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.extension.RegisterExtension;
import tarnwick.sim.SimAcc;
import tarnwick.sim.SimDevice;
import tarnwick.tests.support.SimDeviceExtension;
import tarnwick.zel.controller.event.device.ICCardInfo;
import tarnwick.zel.controller.event.device.SystemData;

class AccObserverTest {
    @RegisterExtension
    static final SimDeviceExtension device = new SimDeviceExtension(false);

    private static final String M = "zel_fnd_acc_observer";
    private static final int PARTITION_SIZE = 16256;
    private static final long[] FAILED = {0x04010A05L};

    @RegisterExtension
    final EventFixture f = new EventFixture();

    /** Card data as the device writes it. */
    private static final class Card {
        final ByteArrayOutputStream out = new ByteArrayOutputStream();

        Card u8(int v) {
            out.write(v);
            return this;
        }

        Card u16(int v) {
            return u8(v >> 8).u8(v & 0xFF);
        }

        Card bytes(int n, int first) {
            for (int i = 0; i < n; i++) out.write(first + i);
            return this;
        }

        byte[] get() {
            return out.toByteArray();
        }
    }

    private ICCardInfo card() {
        return (ICCardInfo) f.objects.get(f.objects.size() - 1);
    }

    @Test
    void cardTypesMapToOneBitEach() {
        long[] types = {1, 2, 3, 4, 5, 6, 7, 0};
        byte[] bits = {0x01, 0x02, 0x04, 0x08, 0x10, 0x20, 0, 0};
        for (int i = 0; i < types.length; i++) {
            assertArrayEquals(OK, SimAcc.iccardDetect("card" + i, types[i], 0, 0));
            assertEquals(bits[i], card().getCardType(), "type " + types[i]);
            assertEquals("card" + i, card().getCardId());
        }
    }

    @Test
    void noCardDataGivesAnEmptyArrayWithoutTouchingThePartition() {
        assertArrayEquals(OK, SimAcc.iccardDetect("0123456789ABCDEF", 3, 0, 5));
        assertEquals(0, card().getSystemData().length);
        assertEquals(0, SimDevice.callCount("emwOSWIpcCreateMemPart"));
        f.assertSeen(List.of("icCard 0123456789ABCDEF"), M,
                List.of("3 notify_iccard_detect,[Start]", "3 notify_iccard_detect,card_info.card_data_size = 0",
                "3 notify_iccard_detect,[End]"));
    }

    @Test
    void zeroSystemsGiveAnEmptyArrayAfterThePartitionWasOpened() {
        assertTrue(SimAcc.writeCardData(21, 0, new Card().u8(0).get()));
        assertArrayEquals(OK, SimAcc.iccardDetect("c", 3, 1, 21));
        assertEquals(0, card().getSystemData().length);
        assertArrayEquals(new String[] {"DVC_ACC_ICCARD_DATA_PARTITION, 16256"}, SimDevice.calls("emwOSWIpcCreateMemPart"));
        assertEquals(1, SimDevice.callCount("emwOSWIpcGetBlockByIdMemPart"));
    }

    @Test
    void systemsServicesAndBlocksReachJava() {
        byte[] data = new Card()
                .u8(2)
                .u16(0x8008).bytes(8, 0xE0).u8(2)
                    .u16(0x1234).u8(2).bytes(32, 0)
                    .u16(0xFFFF).u8(0)
                .u16(0x0003).bytes(8, 0xF0).u8(0)
                .get();
        assertTrue(SimAcc.writeCardData(22, 100, data));
        assertArrayEquals(OK, SimAcc.iccardDetect("felica", 3, data.length, 22));
        SystemData[] systems = card().getSystemData();
        assertEquals(2, systems.length);
        assertEquals(32776, systems[0].getSystemCode());
        assertArrayEquals(new int[] {0x1234, 0xFFFF}, systems[0].getServiceCode());
        byte[][] blocks = systems[0].getBlockData();
        assertEquals(2, blocks.length);
        byte[] expected = new byte[32];
        for (int i = 0; i < 32; i++) expected[i] = (byte) i;
        assertArrayEquals(expected, blocks[0]);
        assertEquals(0, blocks[1].length);
        assertEquals(3, systems[1].getSystemCode());
        assertEquals(0, systems[1].getServiceCode().length);
        assertEquals(0, systems[1].getBlockData().length);
        // The reserved bytes after each system code (0xE0.., 0xF0..) appear nowhere.
        for (SystemData s : systems) {
            for (byte[] b : s.getBlockData()) {
                for (byte x : b) assertTrue((x & 0xFF) < 0xE0);
            }
        }
        assertEquals(List.of("3 notify_iccard_detect,[Start]", "3 notify_iccard_detect,[End]"), SimDeviceExtension.trace(M));
    }

    @Test
    void aCardReadsAsItsFieldsWithEachArrayOnce() {
        SystemData system = new SystemData();
        system.setSystemCode(3);
        system.setServiceCode(new int[] {0x1234, 0xFFFF});
        system.setBlockData(new byte[][] {{1, -2}, {}});
        ICCardInfo card = new ICCardInfo();
        card.setCardId("c");
        card.setCardType((byte) 4);
        card.setSystemData(new SystemData[] {system});
        assertEquals("ICCardInfo[cardId=c, cardType=4, systemData=[SystemData[systemCode=3, serviceCode=[4660, 65535], "
                + "blockData=[[1, -2], []]]]]", card.toString());
        card.setSystemData(null);
        assertEquals("ICCardInfo[cardId=c, cardType=4, systemData=null]", card.toString());
    }

    /** A block filling the partition from its start: 4 services, the last with {@code lastCount} blocks. */
    private static byte[] fullPartition(int lastCount) {
        Card c = new Card().u8(1).u16(0x0A0B).bytes(8, 0).u8(4);
        for (int i = 0; i < 3; i++) c.u16(i).u8(255).bytes(255 * 16, 0);
        c.u16(3).u8(lastCount);
        byte[] head = c.get();  // 12 + 3 * 4083 + 3 = 12264 bytes; 3992 bytes (249.5 blocks) remain
        byte[] data = new byte[PARTITION_SIZE];
        System.arraycopy(head, 0, data, 0, head.length);
        return data;
    }

    @Test
    void countsRunningPastThePartitionFailTheNotification() {
        // The last service's blocks end 8 bytes before the partition's end: fine.
        assertTrue(SimAcc.writeCardData(23, 0, fullPartition(249)));
        assertArrayEquals(OK, SimAcc.iccardDetect("fits", 3, 1, 23));
        assertEquals(249 * 16, card().getSystemData()[0].getBlockData()[3].length);
        // One block more runs 8 bytes past the end (which is an inaccessible page here).
        assertTrue(SimAcc.writeCardData(24, 0, fullPartition(250)));
        f.events.clear();
        SimDevice.clearTrace();
        assertArrayEquals(FAILED, SimAcc.iccardDetect("past", 3, 1, 24));
        f.assertSeen(List.of(), M, List.of("3 notify_iccard_detect,[Start]",
                "0 notify_iccard_detect,card data run past the end of DVC_ACC_ICCARD_DATA_PARTITION. blkid = [24]"));
        // Every count at its maximum: far past the end.
        byte[] big = new byte[PARTITION_SIZE];
        java.util.Arrays.fill(big, (byte) 0xFF);
        assertTrue(SimAcc.writeCardData(25, 0, big));
        assertArrayEquals(FAILED, SimAcc.iccardDetect("big", 3, 1, 25));
        assertEquals(List.of(), f.events);
        // The observer keeps working afterwards.
        assertArrayEquals(OK, SimAcc.iccardDetect("after", 3, 0, 0));
        assertEquals(List.of("icCard after"), f.events);
    }

    @Test
    void partitionFailuresAreTracedWithThePlatformCode() {
        SimDevice.forceResult("emwOSWIpcCreateMemPart", 0x8000000BL, 1);
        assertArrayEquals(FAILED, SimAcc.iccardDetect("x", 1, 4, 1));
        SimDevice.forceResult("emwOSWIpcGetBlockByIdMemPart", 0x3L, 1);
        assertArrayEquals(FAILED, SimAcc.iccardDetect("x", 1, 4, 1));
        f.assertSeen(List.of(), M, List.of("3 notify_iccard_detect,[Start]",
                "0 notify_iccard_detect,emwOSWIpcCreateMemPart() EMWRET = [0x8000000b]",
                "3 notify_iccard_detect,[Start]",
                "0 notify_iccard_detect,emwOSWIpcGetBlockByIdMemPart() EMWRET = [0x00000003]"));
    }

    @Test
    void readerStateAndReadErrors() {
        assertArrayEquals(OK, SimAcc.iccardStateChange(0x1234, 0xFFFF, 0xFF, 1));
        assertArrayEquals(OK, SimAcc.iccardStateChange(1, 2, 4, 2));
        assertArrayEquals(OK, SimAcc.iccardReadError(-5));
        f.assertSeen(List.of("icCardDevice 65535 4660 true -1", "icCardDevice 2 1 false 4", "icCardError -5"), M,
                List.of("3 notify_iccard_state_change_info,[Start]", "3 notify_iccard_state_change_info,[End]",
                "3 notify_iccard_state_change_info,[Start]", "3 notify_iccard_state_change_info,[End]",
                "3 notify_iccard_read_error,[Enter]", "3 notify_iccard_read_error,[Exit]"));
    }

    @Test
    void attachFailureAnswers0x04010A05WithoutJava() {
        f.assertAttachFailures(FAILED, M, () -> SimAcc.iccardDetect("x", 1, 0, 0), () -> SimAcc.iccardReadError(1),
                () -> SimAcc.iccardStateChange(1, 1, 1, 1));
    }
}
