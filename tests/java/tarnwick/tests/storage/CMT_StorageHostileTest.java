package tarnwick.tests.storage;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertNull;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static org.junit.jupiter.api.Assertions.assertTrue;
import static tarnwick.zel.wrapper.storage.CMT_StorageJNI.*;

import java.io.IOException;
import java.nio.file.Files;
import java.util.ArrayList;
import java.util.List;
import java.util.concurrent.ExecutorService;
import java.util.concurrent.Executors;
import java.util.concurrent.Future;
import java.util.concurrent.TimeUnit;
import java.util.stream.Stream;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.extension.RegisterExtension;
import org.junit.jupiter.api.function.Executable;
import tarnwick.sim.SimDevice;
import tarnwick.sim.SimStorage;
import tarnwick.tests.support.SimDeviceExtension;

/** Calls an application should not make: the storage module answers each without harm. */
class CMT_StorageHostileTest {
    @RegisterExtension
    static final SimDeviceExtension device = new SimDeviceExtension(false);

    @RegisterExtension
    final StorageFixture f = new StorageFixture();

    static void throwsWith(Class<? extends Throwable> type, String message, Executable call) {
        Throwable t = assertThrows(type, call);
        assertEquals(message, t.getMessage());
    }

    @Test
    void nullAndEmptyOutputsThrowAndTheLibraryIsNotCalled() {
        SimDevice.clearCalls();
        throwsWith(NullPointerException.class, "array null", () -> CMT_StorageIO_opendir(0, "", null));
        throwsWith(IndexOutOfBoundsException.class, "Array must contain at least 1 element",
                   () -> CMT_StorageIO_opendir(0, "", new long[0]));
        throwsWith(NullPointerException.class, "array null", () -> CMT_StorageIO_open(0, "x", 1, null));
        throwsWith(IndexOutOfBoundsException.class, "Array must contain at least 1 element",
                   () -> CMT_StorageIO_open(0, "x", 1, new long[0]));
        throwsWith(NullPointerException.class, "array null", () -> CMT_StorageIO_read(new byte[1], 1, 1, null));
        throwsWith(IndexOutOfBoundsException.class, "Array must contain at least 1 element",
                   () -> CMT_StorageIO_write(new byte[1], 1, 1, new long[0]));
        throwsWith(NullPointerException.class, "array null", () -> CMT_StorageIO_ftell(1, null));
        throwsWith(IndexOutOfBoundsException.class, "Array must contain at least 1 element", () -> CMT_StorageIO_ftell(1, new int[0]));
        throwsWith(NullPointerException.class, "array null", () -> CMT_StorageIO_is_directory(0, "", null));
        throwsWith(IndexOutOfBoundsException.class, "Array must contain at least 1 element",
                   () -> CMT_StorageIO_is_file(0, "", new boolean[0]));
        throwsWith(NullPointerException.class, "array null", () -> CMT_StorageIO_getfilesize(0, "", null));
        throwsWith(IndexOutOfBoundsException.class, "Array must contain at least 1 element",
                   () -> CMT_StorageIO_getlastmodified(0, "", new long[0]));
        throwsWith(NullPointerException.class, "array null", () -> CMT_StorageIO_getfileattribute(0, "", null));
        throwsWith(NullPointerException.class, "array null", () -> CMT_StorageIO_readdir(1, null));
        throwsWith(IndexOutOfBoundsException.class, "Array must contain at least 1 element",
                   () -> CMT_StorageIO_readdir(1, new int[0]));
        assertEquals(0, SimDevice.allCalls().length, String.join("; ", SimDevice.allCalls()));
    }

    @Test
    void nullPathsAndBuffers() {
        SimDevice.clearCalls();
        for (Executable e : new Executable[] {
                () -> CMT_StorageIO_chdir(0, null), () -> CMT_StorageIO_mkdir(0, null), () -> CMT_StorageIO_existfile(0, null),
                () -> CMT_StorageIO_remove(0, null), () -> CMT_StorageIO_rename(0, null, "b"),
                () -> CMT_StorageIO_rename(0, "a", null), () -> CMT_StorageIO_move(0, null, 0, "b"),
                () -> CMT_StorageIO_move(0, "a", 0, null), () -> CMT_StorageIO_opendir(0, null, new long[1]),
                () -> CMT_StorageIO_open(0, null, 0, new long[1]), () -> CMT_StorageIO_is_directory(0, null, new boolean[1]),
                () -> CMT_StorageIO_is_file(0, null, new boolean[1]), () -> CMT_StorageIO_getfilesize(0, null, new long[1]),
                () -> CMT_StorageIO_getlastmodified(0, null, new long[1]), () -> CMT_StorageIO_setfileattribute(0, null, 1),
                () -> CMT_StorageIO_getfileattribute(0, null, new int[1])}) {
            throwsWith(NullPointerException.class, "null std::string", e);
        }
        throwsWith(NullPointerException.class, "null array", () -> CMT_StorageIO_read(null, 0, 1, new long[1]));
        throwsWith(NullPointerException.class, "null array", () -> CMT_StorageIO_write(null, 0, 1, new long[1]));
        // The buffer is checked first: a null buffer with a null count array names the buffer.
        throwsWith(NullPointerException.class, "null array", () -> CMT_StorageIO_read(null, 0, 1, null));
        assertEquals(0, SimDevice.allCalls().length);
    }

    @Test
    void garbageHandles() {
        long[] done = {3};
        int[] rc = {3};
        int[] pos = {3};
        for (long h : new long[] {0, -1, Long.MAX_VALUE, Long.MIN_VALUE, 0xFFFFFFFFL, 12345}) {
            assertEquals(12, CMT_StorageIO_read(new byte[4], 4, h, done), "handle " + h);
            assertEquals(12, CMT_StorageIO_write(new byte[4], 4, h, done));
            assertEquals(12, CMT_StorageIO_fseek(h, 0, 0));
            assertEquals(12, CMT_StorageIO_ftell(h, pos));
            assertEquals(12, CMT_StorageIO_fflush(h));
            assertEquals(12, CMT_StorageIO_close(h));
            assertEquals("", CMT_StorageIO_readdir(h, rc));
            assertEquals(12, rc[0]);
            assertEquals(12, CMT_StorageIO_closedir(h));
        }
        assertEquals(3, done[0]);
        assertEquals(3, pos[0]);
    }

    @Test
    void handlesAreNarrowedTo32Bits() {
        long[] h = {0};
        assertEquals(0, CMT_StorageIO_open(0, "n", 1, h));
        long[] done = {0};
        assertEquals(0, CMT_StorageIO_write(new byte[2], 2, h[0] | 0x7_0000_0000L, done), "the device's handles are 32-bit");
        assertEquals(2, done[0]);
        assertEquals(0, CMT_StorageIO_close(h[0] + 0x1_0000_0000L));
    }

    @Test
    void outOfRangeEnumerationsTakeTheDefaults() {
        long[] h = {0};
        for (int type : new int[] {Integer.MIN_VALUE, -3, 3, 99, Integer.MAX_VALUE}) {
            SimDevice.clearCalls();
            assertEquals(4, CMT_StorageIO_open(type, "x", 0, h), "type " + type + " is drive 1 (no medium)");
            assertTrue(SimDevice.calls("dvu_dio_fopen")[0].startsWith("1, 34, x, 0"));
        }
        for (int mode : new int[] {Integer.MIN_VALUE, -1, 6, Integer.MAX_VALUE}) {
            assertEquals(2, CMT_StorageIO_open(0, "x", mode, h), "mode " + mode);
        }
        assertEquals(0, CMT_StorageIO_open(0, "x", 1, h));
        for (int mode : new int[] {Integer.MIN_VALUE, -1, 3, Integer.MAX_VALUE}) {
            assertEquals(0, CMT_StorageIO_fseek(h[0], 0, mode), "seek mode " + mode + " is from the start");
        }
        assertEquals(18, CMT_StorageIO_fseek(h[0], Integer.MIN_VALUE, 1));
        assertEquals(0, CMT_StorageIO_fseek(h[0], Integer.MAX_VALUE, 1));
        assertEquals(21, CMT_StorageIO_fseek(h[0], Integer.MAX_VALUE, 0), "past the 32-bit position");
        assertEquals(0, CMT_StorageIO_close(h[0]));
    }

    @Test
    void sizesBeyondTheArray() {
        long[] h = {0};
        assertEquals(0, CMT_StorageIO_open(0, "s", 4, h));
        long[] done = {9};
        SimDevice.clearCalls();
        for (long size : new long[] {2, -1, Long.MIN_VALUE, -0x1_0000_0000L, 0xFFFFFFFFL, 0x80000000L}) {
            assertEquals(-1, CMT_StorageIO_read(new byte[1], size, h[0], done), "size " + size);
            assertEquals(-1, CMT_StorageIO_write(new byte[1], size, h[0], done), "size " + size);
        }
        assertEquals(0, SimDevice.callCount("dvu_dio_fread") + SimDevice.callCount("dvu_dio_fwrite"));
        assertEquals(9, done[0]);
        // 2^32 + 1 is 1 on the 32-bit device.
        assertEquals(0, CMT_StorageIO_write(new byte[] {7}, 0x1_0000_0001L, h[0], done));
        assertEquals(1, done[0]);
        assertEquals(0, CMT_StorageIO_read(new byte[0], 0, h[0], done));
        assertEquals(0, CMT_StorageIO_close(h[0]));
    }

    @Test
    void hostilePaths() throws IOException {
        long[] h = {0};
        StringBuilder longPath = new StringBuilder();
        for (int i = 0; i < 5000; i++) longPath.append('a');
        assertEquals(15, CMT_StorageIO_open(0, longPath.toString(), 1, h));
        assertEquals(15, CMT_StorageIO_mkdir(0, longPath.substring(0, 300)));
        // Escaped bytes never make a separator or a dot: no way out through them.
        assertEquals(5, CMT_StorageIO_open(0, "\uDC2E\uDC2E/\uDC2E\uDC2E/secret", 0, h));
        assertEquals(-1, CMT_StorageIO_open(0, "./../x", 1, h));
        assertEquals(-1, CMT_StorageIO_open(0, "a//..//..//x", 1, h));
        // An embedded NUL and lone surrogates make a name inside the folder, nothing else.
        assertEquals(0, CMT_StorageIO_open(0, "nul\u0000name", 1, h));
        assertEquals(0, CMT_StorageIO_close(h[0]));
        assertEquals(0, CMT_StorageIO_open(0, "lone\uD800", 1, h));
        assertEquals(0, CMT_StorageIO_close(h[0]));
        try (Stream<java.nio.file.Path> s = Files.list(f.root)) {
            assertEquals(3, s.count(), "nothing made beside the drive folders");
        }
        assertEquals(23, CMT_StorageIO_rename(0, "", "x"), "the root cannot be renamed");
    }

    @Test
    void renameIntoItself() {
        assertEquals(0, CMT_StorageIO_mkdir(0, "d"));
        assertEquals(2, CMT_StorageIO_rename(0, "d", "d/e"));
        assertEquals(2, CMT_StorageIO_move(0, "d", 0, "d/e/f"));
        assertEquals(0, CMT_StorageIO_remove(0, "d"));
    }

    @Test
    void staleHandlesAfterTheFolderChanged() throws IOException {
        long[] h = {0};
        long[] d = {0};
        assertEquals(0, CMT_StorageIO_open(0, "f", 1, h));
        assertEquals(0, CMT_StorageIO_opendir(0, "", d));
        SimStorage.setFolder(2, Files.createDirectories(f.root.resolve("other")).toString());
        long[] done = {0};
        int[] rc = {0};
        assertEquals(36, CMT_StorageIO_write(new byte[1], 1, h[0], done));
        assertEquals("", CMT_StorageIO_readdir(d[0], rc));
        assertEquals(36, rc[0]);
        assertEquals(0, CMT_StorageIO_close(h[0]));
        assertEquals(0, CMT_StorageIO_closedir(d[0]));
        SimStorage.setFolder(2, f.hdd.toString());
    }

    @Test
    void manyThreadsAtOnce() throws Exception {
        ExecutorService pool = Executors.newFixedThreadPool(8);
        List<Future<Integer>> results = new ArrayList<>();
        for (int t = 0; t < 8; t++) {
            final int id = t;
            results.add(pool.submit(() -> {
                int bad = 0;
                for (int i = 0; i < 50; i++) {
                    long[] h = {0};
                    String name = "t" + id + "-" + i;
                    if (CMT_StorageIO_open(0, name, 4, h) != 0) {
                        if (CMT_StorageIO_open(0, name, 4, h) != 0) continue;  // limit reached by others
                    }
                    byte[] data = StorageFixture.pattern(100 + i);
                    long[] done = {0};
                    if (CMT_StorageIO_write(data, data.length, h[0], done) != 0) bad++;
                    if (CMT_StorageIO_fseek(h[0], 0, 1) != 0) bad++;
                    byte[] back = new byte[data.length];
                    if (CMT_StorageIO_read(back, back.length, h[0], done) != 0) bad++;
                    if (!java.util.Arrays.equals(data, back)) bad++;
                    if (CMT_StorageIO_close(h[0]) != 0) bad++;
                    if (CMT_StorageIO_remove(0, name) != 0) bad++;
                }
                return bad;
            }));
        }
        for (Future<Integer> r : results) assertEquals(0, r.get());
        pool.shutdown();
        assertTrue(pool.awaitTermination(10, TimeUnit.SECONDS));
        assertFalse(SimStorage.mounted(0));
        assertNull(null);
    }
}
