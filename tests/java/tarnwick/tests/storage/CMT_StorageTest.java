package tarnwick.tests.storage;

import static org.junit.jupiter.api.Assertions.assertArrayEquals;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertTrue;
import static tarnwick.zel.wrapper.storage.CMT_StorageJNI.*;

import java.io.IOException;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.ArrayList;
import java.util.Collections;
import java.util.List;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.extension.RegisterExtension;
import tarnwick.sim.SimDevice;
import tarnwick.sim.SimStorage;
import tarnwick.tests.support.SimDeviceExtension;
import tarnwick.zel.controller.event.proxy.CommonProxy;
import tarnwick.zel.wrapper.event.ZELFNDEventJNI;
import tarnwick.zel.wrapper.system.cmt_commonJNI;

/** The storage module on the simulated drives: translations, result folding, files and directories. */
class CMT_StorageTest {
    @RegisterExtension
    static final SimDeviceExtension device = new SimDeviceExtension(false);

    @RegisterExtension
    final StorageFixture f = new StorageFixture();

    static final int HDD = 0;       // drive 2
    static final int USB_B = 1;     // drive 1
    static final int USB_A = 2;     // drive 0

    static String lastArgs(String op) {
        String[] c = SimDevice.calls(op);
        return c.length == 0 ? null : c[c.length - 1];
    }

    // A file opened on `drive` with `mode`: its handle.
    private static long opened(int drive, String name, int mode) {
        long[] h = {0};
        assertEquals(0, CMT_StorageIO_open(drive, name, mode, h));
        return h[0];
    }

    @Test
    void constants() {
        assertEquals(0, CMTDIO_HDD_get());
        assertEquals(0, CMTDIO_READ_get());
        assertEquals(0, CMTDIO_SEEK_CUR_get());
        assertEquals(-1, CMTDIO_ERROR_get());
        assertEquals(0, CMTDIO_NOERROR_get());
        assertEquals(1, CMTDIO_EOF_get());
        assertEquals(1, CMT_StorageIO_CMTDIO_DIRECTORY_get());
        assertEquals(2, CMT_StorageIO_CMTDIO_ARCHIVE_get());
        assertEquals(4, CMT_StorageIO_CMTDIO_HIDDEN_get());
        assertEquals(8, CMT_StorageIO_CMTDIO_READONLY_get());
        long h = new_CMT_StorageIO();
        assertTrue(h != 0);
        delete_CMT_StorageIO(h);
        delete_CMT_StorageIO(0);
    }

    @Test
    void drivesDefaultToTheEnvironmentOrTheBuildTree() {
        SimStorage.reset();
        try {
            String[] vars = {"TOVR_SIM_USB0", "TOVR_SIM_USB1", "TOVR_SIM_HDD"};
            String[] names = {"usb0", "usb1", "hdd"};
            for (int d = 0; d < 3; d++) {
                String env = System.getenv(vars[d]);
                if (env != null && !env.isEmpty()) {
                    assertEquals(env, SimStorage.folder(d));
                } else {
                    assertTrue(SimStorage.folder(d).endsWith("/sim-storage/" + names[d]), SimStorage.folder(d));
                }
            }
            assertTrue(SimStorage.mounted(2));
            assertFalse(SimStorage.mounted(0));
            assertFalse(SimStorage.mounted(1));
        } finally {
            SimStorage.setFolder(0, f.usb0.toString());
            SimStorage.setFolder(1, f.usb1.toString());
            SimStorage.setFolder(2, f.hdd.toString());
        }
    }

    @Test
    void initAndSync() {
        assertEquals(0, CMT_StorageIO_init());
        SimDevice.forceResult("dvu_dio_api_init", 5, 1);
        assertEquals(-1, CMT_StorageIO_init());  // not folded: any failure is -1
        SimDevice.forceResult("dvu_dio_api_init", 24, 1);
        assertEquals(-1, CMT_StorageIO_init());
        assertEquals(0, CMT_StorageIO_sync());
    }

    @Test
    void storageTypesReachTheirDrives() {
        int[][] rows = {{0, 2}, {1, 1}, {2, 0}, {3, 1}, {7, 1}, {-1, 1}, {Integer.MIN_VALUE, 1}, {Integer.MAX_VALUE, 1}};
        for (int[] r : rows) {
            SimDevice.clearCalls();
            CMT_StorageIO_verifydiskmount(r[0]);
            assertEquals(r[1] + ", 34", lastArgs("dvu_dio_verifydiskmount"), "type " + r[0]);
        }
        assertEquals(0, CMT_StorageIO_verifydiskmount(HDD));
        assertEquals(4, CMT_StorageIO_verifydiskmount(USB_B));  // no medium
        assertEquals(4, CMT_StorageIO_verifydiskmount(7));      // type 7 is drive 1, as type 1
    }

    @Test
    void openModesReachTheLibraryTranslated() {
        int[][] rows = {{0, 0}, {1, 1}, {2, 3}, {3, 2}, {4, 4}, {5, 5}, {6, -1}, {-1, -1}, {100, -1}};
        for (int[] r : rows) {
            SimStorage.forceHandle("dvu_dio_fopen", 2, 0, 1);
            SimDevice.clearCalls();
            long[] h = {55};
            assertEquals(2, CMT_StorageIO_open(HDD, "f", r[0], h));
            assertEquals("2, 34, f, " + r[1] + ", ", lastArgs("dvu_dio_fopen").replaceAll("[0-9]+$", ""), "mode " + r[0]);
            assertEquals(55, h[0], "handle written only on success");
        }
    }

    @Test
    void seekModesReachTheLibraryTranslated() throws IOException {
        long h = opened(HDD, "s", 1);
        int[][] rows = {{0, 1}, {1, 0}, {2, 2}, {3, 0}, {9, 0}, {-4, 0}};
        for (int[] r : rows) {
            SimDevice.clearCalls();
            assertEquals(0, CMT_StorageIO_fseek(h, 0, r[0]));
            assertEquals(h + ", 0, " + r[1], lastArgs("dvu_dio_fseek"), "seek mode " + r[0]);
        }
        assertEquals(0, CMT_StorageIO_close(h));
    }

    static int expectedFold(int code) {
        if (code < -1 || code > 49) return -1;
        if (code <= 23) return code;
        if (code == 24) return -1;
        if (code <= 36) return code - 1;
        if (code <= 46) return -1;
        return code - 11;
    }

    @Test
    void everyLibraryCodeFolds() {
        int[][] fixed = {{-1, -1}, {0, 0}, {1, 1}, {23, 23}, {24, -1}, {25, 24}, {36, 35}, {37, -1}, {40, -1},
                         {46, -1}, {47, 36}, {48, 37}, {49, 38}, {50, -1}, {-2, -1}, {1000, -1}};
        for (int[] r : fixed) {
            SimDevice.forceResult("dvu_dio_sync", r[0], 1);
            assertEquals(r[1], CMT_StorageIO_sync(), "library code " + r[0]);
        }
        for (int code = -3; code <= 52; code++) {
            SimDevice.forceResult("dvu_dio_fflush", code, 1);
            assertEquals(expectedFold(code), CMT_StorageIO_fflush(1), "library code " + code);
        }
    }

    void roundTrip(int size) throws IOException {
        byte[] data = StorageFixture.pattern(size);
        String name = "rt-" + size + ".bin";
        long[] h = {0};
        assertEquals(0, CMT_StorageIO_open(HDD, name, 1, h));
        int off = 0;
        long[] done = {0};
        while (off < size || size == 0) {
            int n = Math.min(65536, size - off);
            byte[] piece = java.util.Arrays.copyOfRange(data, off, off + n);
            assertEquals(0, CMT_StorageIO_write(piece, n, h[0], done));
            assertEquals(n, done[0]);
            off += n;
            if (size == 0) break;
        }
        assertEquals(0, CMT_StorageIO_close(h[0]));
        long[] length = {-1};
        assertEquals(0, CMT_StorageIO_getfilesize(HDD, name, length));
        assertEquals(size, length[0]);
        assertArrayEquals(data, Files.readAllBytes(f.hdd.resolve(name)), "host file");

        assertEquals(0, CMT_StorageIO_open(HDD, name, 0, h));
        byte[] back = new byte[size];
        off = 0;
        byte[] buf = new byte[65536];
        for (;;) {
            int rc = CMT_StorageIO_read(buf, buf.length, h[0], done);
            if (rc == 1) break;
            assertEquals(0, rc);
            System.arraycopy(buf, 0, back, off, (int) done[0]);
            off += (int) done[0];
        }
        assertEquals(size, off);
        assertArrayEquals(data, back);
        assertEquals(0, CMT_StorageIO_close(h[0]));
    }

    @Test
    void roundTripsAreByteExact() throws IOException {
        for (int size : new int[] {0, 1, 4096, 1_000_000}) roundTrip(size);
    }

    @Test
    void readCopiesIntoTheArrayAndWriteLeavesItsBuffer() throws IOException {
        Files.write(f.hdd.resolve("abc"), "abcdef".getBytes(StandardCharsets.US_ASCII));
        long h = opened(HDD, "abc", 0);
        byte[] buf = {9, 9, 9, 9, 9, 9, 9, 9};
        long[] done = {0};
        assertEquals(0, CMT_StorageIO_read(buf, 3, h, done));
        assertEquals(3, done[0]);
        assertArrayEquals(new byte[] {'a', 'b', 'c', 9, 9, 9, 9, 9}, buf);
        assertEquals(0, CMT_StorageIO_read(buf, 8, h, done));
        assertEquals(3, done[0]);
        done[0] = 77;
        assertEquals(1, CMT_StorageIO_read(buf, 8, h, done));  // end of file
        assertEquals(77, done[0], "count written only on success");
        assertEquals(0, CMT_StorageIO_read(buf, 0, h, done));
        assertEquals(0, done[0]);
        assertEquals(0, CMT_StorageIO_close(h));
    }

    @Test
    void readBeyondTheArrayIsRefusedWithoutCallingTheLibrary() {
        long h = opened(HDD, "x", 4);
        byte[] buf = new byte[4];
        long[] done = {5};
        SimDevice.clearCalls();
        assertEquals(-1, CMT_StorageIO_read(buf, 5, h, done));
        assertEquals(-1, CMT_StorageIO_read(buf, -1, h, done));
        assertEquals(-1, CMT_StorageIO_read(new byte[0], 1, h, done));
        assertEquals(-1, CMT_StorageIO_write(buf, 5, h, done));
        assertEquals(-1, CMT_StorageIO_write(buf, -1, h, done));
        assertEquals(0, SimDevice.callCount("dvu_dio_fread"));
        assertEquals(0, SimDevice.callCount("dvu_dio_fwrite"));
        assertEquals(5, done[0]);
        assertEquals(0, CMT_StorageIO_close(h));
    }

    @Test
    void seekAndTell() {
        long h = opened(HDD, "p", 4);
        long[] done = {0};
        assertEquals(0, CMT_StorageIO_write(new byte[100], 100, h, done));
        int[] pos = {-5};
        assertEquals(0, CMT_StorageIO_ftell(h, pos));
        assertEquals(100, pos[0]);
        assertEquals(0, CMT_StorageIO_fseek(h, 10, 1));   // from the start
        assertEquals(0, CMT_StorageIO_fseek(h, -4, 0));   // from here
        assertEquals(0, CMT_StorageIO_ftell(h, pos));
        assertEquals(6, pos[0]);
        assertEquals(0, CMT_StorageIO_fseek(h, -1, 2));   // from the end
        assertEquals(0, CMT_StorageIO_ftell(h, pos));
        assertEquals(99, pos[0]);
        assertEquals(18, CMT_StorageIO_fseek(h, -200, 0));  // before the start
        assertEquals(21, CMT_StorageIO_fseek(h, Integer.MAX_VALUE, 0));  // beyond 32 bits
        assertEquals(0, CMT_StorageIO_ftell(h, pos));
        assertEquals(99, pos[0]);
        assertEquals(0, CMT_StorageIO_fflush(h));
        assertEquals(0, CMT_StorageIO_close(h));
        assertEquals(12, CMT_StorageIO_ftell(h, pos), "closed handle");
        assertEquals(99, pos[0]);
    }

    @Test
    void directoriesAndEntries() throws IOException {
        assertEquals(0, CMT_StorageIO_mkdir(HDD, "d"));
        assertEquals(6, CMT_StorageIO_mkdir(HDD, "d"));
        assertEquals(5, CMT_StorageIO_mkdir(HDD, "missing/d"));
        Files.write(f.hdd.resolve("d/b.txt"), new byte[3]);
        Files.write(f.hdd.resolve("d/a.txt"), new byte[2]);
        Files.createDirectory(f.hdd.resolve("d/sub"));
        long[] dir = {0};
        assertEquals(0, CMT_StorageIO_opendir(HDD, "d", dir));
        List<String> names = new ArrayList<>();
        int[] rc = {-9};
        for (;;) {
            String n = CMT_StorageIO_readdir(dir[0], rc);
            if (rc[0] != 0) {
                assertEquals("", n);
                break;
            }
            names.add(n);
        }
        assertEquals(1, rc[0], "end of the directory");
        assertEquals(List.of("a.txt", "b.txt", "sub"), names);
        assertEquals("", CMT_StorageIO_readdir(dir[0], rc));
        assertEquals(1, rc[0]);
        assertEquals(0, CMT_StorageIO_closedir(dir[0]));
        assertEquals("", CMT_StorageIO_readdir(dir[0], rc));
        assertEquals(12, rc[0], "closed handle");
        assertEquals(12, CMT_StorageIO_closedir(dir[0]));

        boolean[] yes = {true};
        assertEquals(0, CMT_StorageIO_is_directory(HDD, "d/a.txt", yes));
        assertFalse(yes[0], "a regular file is no directory");
        assertEquals(0, CMT_StorageIO_is_directory(HDD, "d/sub", yes));
        assertTrue(yes[0]);
        assertEquals(0, CMT_StorageIO_is_file(HDD, "d/sub", yes));
        assertFalse(yes[0]);
        assertEquals(0, CMT_StorageIO_is_file(HDD, "d/a.txt", yes));
        assertTrue(yes[0]);
        assertEquals(5, CMT_StorageIO_is_file(HDD, "d/none", yes));
        assertTrue(yes[0], "left as it was on failure");
        yes[0] = false;
        assertEquals(5, CMT_StorageIO_is_directory(HDD, "d/none", yes));
        assertFalse(yes[0]);

        assertEquals(0, CMT_StorageIO_existfile(HDD, "d/a.txt"));
        assertEquals(5, CMT_StorageIO_existfile(HDD, "d/zz"));
        assertEquals(0, CMT_StorageIO_chdir(HDD, "d"));
        assertEquals(0, CMT_StorageIO_existfile(HDD, "a.txt"), "relative to the working directory");
        assertEquals(7, CMT_StorageIO_chdir(HDD, "a.txt"));
        assertEquals(0, CMT_StorageIO_chdir(HDD, ".."));
        assertEquals(9, CMT_StorageIO_remove(HDD, "d"));
        assertEquals(0, CMT_StorageIO_rename(HDD, "d/a.txt", "d/c.txt"));
        assertEquals(6, CMT_StorageIO_rename(HDD, "d/c.txt", "d/b.txt"));
        assertTrue(Files.exists(f.hdd.resolve("d/c.txt")));
        assertEquals(0, CMT_StorageIO_remove(HDD, "d/c.txt"));
        assertEquals(5, CMT_StorageIO_remove(HDD, "d/c.txt"));
        assertFalse(Files.exists(f.hdd.resolve("d/c.txt")));
    }

    @Test
    void sizesAndTimes() throws IOException {
        Files.write(f.hdd.resolve("t"), new byte[1234]);
        Files.setLastModifiedTime(f.hdd.resolve("t"), java.nio.file.attribute.FileTime.fromMillis(1_600_000_000_000L));
        long[] v = {-1};
        assertEquals(0, CMT_StorageIO_getfilesize(HDD, "t", v));
        assertEquals(1234, v[0]);
        assertEquals(0, CMT_StorageIO_getlastmodified(HDD, "t", v));
        assertEquals(1_600_000_000L, v[0]);
        v[0] = 42;
        assertEquals(5, CMT_StorageIO_getfilesize(HDD, "none", v));
        assertEquals(5, CMT_StorageIO_getlastmodified(HDD, "none", v));
        assertEquals(42, v[0]);
        SimStorage.forceStat(0, 0x8000, 0xFFFFFFF0L, 0xFFFFFFFFL, 2);
        assertEquals(0, CMT_StorageIO_getfilesize(HDD, "any", v));
        assertEquals(0xFFFFFFF0L, v[0], "32-bit sizes reach Java unsigned");
        assertEquals(0, CMT_StorageIO_getlastmodified(HDD, "any", v));
        assertEquals(0xFFFFFFFFL, v[0]);
    }

    @Test
    void attributes() throws IOException {
        Files.write(f.hdd.resolve("ro"), new byte[1]);
        SimDevice.clearCalls();
        assertEquals(0, CMT_StorageIO_setfileattribute(HDD, "ro", 0x1F));
        assertEquals("2, 34, ro, 15", lastArgs("dvu_dio_setfileattribute"));
        assertEquals(0, CMT_StorageIO_setfileattribute(HDD, "ro", -1));
        assertEquals("2, 34, ro, 15", lastArgs("dvu_dio_setfileattribute"));
        int[] a = {0};
        assertEquals(0, CMT_StorageIO_getfileattribute(HDD, "ro", a));
        assertEquals(2 | 4 | 8, a[0]);
        long[] h = {0};
        assertEquals(10, CMT_StorageIO_open(HDD, "ro", 1, h), "read-only refuses writing");
        assertEquals(10, CMT_StorageIO_remove(HDD, "ro"));
        assertEquals(0, CMT_StorageIO_open(HDD, "ro", 0, h));
        assertEquals(0, CMT_StorageIO_close(h[0]));
        assertEquals(0, CMT_StorageIO_setfileattribute(HDD, "ro", 0));
        assertEquals(0, CMT_StorageIO_remove(HDD, "ro"));
        assertEquals(0, CMT_StorageIO_mkdir(HDD, "dir"));
        assertEquals(0, CMT_StorageIO_getfileattribute(HDD, "dir", a));
        assertEquals(1, a[0]);
        SimStorage.forceAttribute(0, 0x7F3, 1);
        assertEquals(0, CMT_StorageIO_getfileattribute(HDD, "dir", a));
        assertEquals(3, a[0], "only the four attribute bits");
        a[0] = 99;
        assertEquals(5, CMT_StorageIO_getfileattribute(HDD, "nothing", a));
        assertEquals(99, a[0]);
    }

    @Test
    void readdirConvertsNamesThatAreNotModifiedUtf8() {
        long[] dir = {0};
        assertEquals(0, CMT_StorageIO_opendir(HDD, "", dir));
        int[] rc = {9};
        SimStorage.forceReaddirName(0, new byte[] {'a', (byte) 0xFF, 'b'}, 1);
        assertEquals("a\uDCFFb", CMT_StorageIO_readdir(dir[0], rc));
        assertEquals(0, rc[0]);
        SimStorage.forceReaddirName(0, "x\uD83D\uDE00y".getBytes(StandardCharsets.UTF_8), 1);
        assertEquals("x\uD83D\uDE00y", CMT_StorageIO_readdir(dir[0], rc));
        SimStorage.forceReaddirName(0, "Grüße".getBytes(StandardCharsets.UTF_8), 1);
        assertEquals("Grüße", CMT_StorageIO_readdir(dir[0], rc));
        byte[] full = new byte[256];  // fills the name field, no terminator
        java.util.Arrays.fill(full, (byte) 'n');
        SimStorage.forceReaddirName(0, full, 1);
        assertEquals(256, CMT_StorageIO_readdir(dir[0], rc).length());
        SimStorage.forceReaddirName(47, new byte[] {'z'}, 1);
        assertEquals("", CMT_StorageIO_readdir(dir[0], rc));
        assertEquals(36, rc[0]);
        assertEquals(0, CMT_StorageIO_closedir(dir[0]));
    }

    @Test
    void escapedNamesOpenTheSameFileAgain() throws IOException {
        Path odd = f.hdd.resolve(new String(new byte[] {'q', (byte) 0xE9}, StandardCharsets.ISO_8859_1));
        // Create the file with raw bytes through the library itself: a name read back opens it.
        long h = opened(HDD, "q\uDCE9", 1);
        assertEquals(0, CMT_StorageIO_close(h));
        long[] dir = {0};
        assertEquals(0, CMT_StorageIO_opendir(HDD, "", dir));
        int[] rc = {0};
        String name = CMT_StorageIO_readdir(dir[0], rc);
        assertEquals(0, CMT_StorageIO_closedir(dir[0]));
        assertEquals("q\uDCE9", name);
        assertEquals(0, CMT_StorageIO_existfile(HDD, name));
        assertTrue(odd.toFile().getName().length() > 0);
    }

    @Test
    void traversalIsRefused() throws IOException {
        Path outside = Files.createDirectories(f.root.resolve("outside"));
        Files.write(outside.resolve("secret"), new byte[] {1, 2, 3});
        Files.createSymbolicLink(f.hdd.resolve("link"), outside);
        Files.createSymbolicLink(f.hdd.resolve("dangling"), f.root.resolve("nowhere"));
        Files.createDirectories(f.hdd.resolve("in"));
        Files.createSymbolicLink(f.hdd.resolve("inner"), f.hdd.resolve("in"));
        long[] h = {7};
        String[] refused = {"../outside/secret", "/etc/passwd", "a/../../outside/secret", "link/secret", "link",
                            "dangling", "dangling/x", "in/../../outside/secret", ".."};
        for (String p : refused) {
            assertEquals(-1, CMT_StorageIO_open(HDD, p, 0, h), p);
            assertEquals(-1, CMT_StorageIO_open(HDD, p, 1, h), p);
            assertEquals(-1, CMT_StorageIO_existfile(HDD, p), p);
            assertEquals(-1, CMT_StorageIO_mkdir(HDD, p + "/x"), p);
            assertEquals(-1, CMT_StorageIO_remove(HDD, p), p);
            assertEquals(-1, CMT_StorageIO_chdir(HDD, p), p);
        }
        assertEquals(7, h[0]);
        assertEquals(-1, CMT_StorageIO_rename(HDD, "in", "../moved"));
        assertEquals(-1, CMT_StorageIO_move(HDD, "../outside/secret", HDD, "stolen"));
        assertFalse(Files.exists(f.root.resolve("nowhere")));
        assertTrue(Files.exists(outside.resolve("secret")));
        assertFalse(Files.exists(f.root.resolve("moved")));
        assertEquals(0, CMT_StorageIO_existfile(HDD, "inner"), "a link that stays inside is followed");
        assertEquals(0, CMT_StorageIO_existfile(HDD, "in/../in"));
    }

    @Test
    void removableMediaMountAndMove() throws IOException {
        List<Integer> events = Collections.synchronizedList(new ArrayList<>());
        CommonProxy.Listener l = new CommonProxy.Listener() {
            @Override
            public void usbDevice(int status) {
                events.add(status);
            }
        };
        cmt_commonJNI.cmt_init_init();
        CommonProxy.listeners.add(l);
        long manager = ZELFNDEventJNI.new_zel_fnd_event_manager();
        try {
            ZELFNDEventJNI.zel_fnd_event_manager_init(manager, null);
            assertEquals(4, CMT_StorageIO_verifydiskmount(USB_A));
            assertTrue(SimStorage.plug(0));
            assertEquals(0, CMT_StorageIO_verifydiskmount(USB_A));
            Files.write(f.hdd.resolve("m"), new byte[] {1, 2});
            assertEquals(0, CMT_StorageIO_move(HDD, "m", USB_A, "m2"));
            assertTrue(Files.exists(f.usb0.resolve("m2")));
            assertFalse(Files.exists(f.hdd.resolve("m")));
            long[] h = {0};
            assertEquals(0, CMT_StorageIO_open(USB_A, "m2", 0, h));
            assertEquals(20, CMT_StorageIO_remove_disk(USB_A), "busy while a file is open");
            assertEquals(0, CMT_StorageIO_close(h[0]));
            assertEquals(23, CMT_StorageIO_remove_disk(HDD), "the hard disk is not removable");
            assertEquals(0, CMT_StorageIO_remove_disk(USB_A));
            assertEquals(4, CMT_StorageIO_verifydiskmount(USB_A));
            assertEquals(4, CMT_StorageIO_remove_disk(USB_A));
            assertTrue(SimStorage.plug(1));
            assertEquals(0, CMT_StorageIO_open(USB_B, "w", 1, h));
            assertTrue(SimStorage.unplug(1));
            long[] done = {0};
            assertEquals(36, CMT_StorageIO_write(new byte[1], 1, h[0], done), "medium removed (47 folded)");
            assertEquals(0, CMT_StorageIO_close(h[0]));
            assertEquals(List.of(0x001, 0x000, 0x101, 0x100), events);
        } finally {
            ZELFNDEventJNI.delete_zel_fnd_event_manager(manager);
            CommonProxy.listeners.remove(l);
        }
    }

    @Test
    void handlesAreLimitedAndStaleOnesRefused() {
        SimStorage.setLimits(2, 1);
        long[] a = {0}, b = {0}, c = {0};
        assertEquals(0, CMT_StorageIO_open(HDD, "1", 1, a));
        assertEquals(0, CMT_StorageIO_open(HDD, "2", 1, b));
        assertEquals(13, CMT_StorageIO_open(HDD, "3", 1, c));
        assertTrue(a[0] > 0 && a[0] <= 0xFFFFFFFFL && b[0] != a[0]);
        long[] d = {0}, e = {0};
        assertEquals(0, CMT_StorageIO_opendir(HDD, "", d));
        assertEquals(14, CMT_StorageIO_opendir(HDD, "", e));
        assertEquals(2, SimDevice.openResources(SimStorage.FILE_HANDLE));
        assertEquals(1, SimDevice.openResources(SimStorage.DIRECTORY_HANDLE));
        assertEquals(0, CMT_StorageIO_close(a[0]));
        assertEquals(12, CMT_StorageIO_close(a[0]), "closed twice");
        assertEquals(12, CMT_StorageIO_close(d[0]), "a directory handle is no file handle");
        assertEquals(12, CMT_StorageIO_closedir(b[0]), "a file handle is no directory handle");
        assertEquals(0, CMT_StorageIO_open(HDD, "3", 1, c));
        assertTrue(c[0] != a[0], "handles are not used twice");
        assertEquals(0, CMT_StorageIO_close(b[0]));
        assertEquals(0, CMT_StorageIO_close(c[0]));
        assertEquals(0, CMT_StorageIO_closedir(d[0]));
    }

    @Test
    void openModesBehave() throws IOException {
        Files.write(f.hdd.resolve("m"), "hello".getBytes(StandardCharsets.US_ASCII));
        long[] h = {0};
        long[] done = {0};
        assertEquals(5, CMT_StorageIO_open(HDD, "none", 0, h), "reading needs the file");
        assertEquals(5, CMT_StorageIO_open(HDD, "none", 2, h), "module 2 is the library's read-write: needs the file");
        assertEquals(0, CMT_StorageIO_open(HDD, "m", 3, h));  // library's append
        assertEquals(0, CMT_StorageIO_write("!".getBytes(StandardCharsets.US_ASCII), 1, h[0], done));
        assertEquals(19, CMT_StorageIO_read(new byte[1], 1, h[0], done), "append-only handle cannot read");
        assertEquals(0, CMT_StorageIO_close(h[0]));
        assertEquals("hello!", Files.readString(f.hdd.resolve("m")));
        assertEquals(0, CMT_StorageIO_open(HDD, "m", 0, h));
        assertEquals(19, CMT_StorageIO_write(new byte[1], 1, h[0], done), "read handle cannot write");
        assertEquals(0, CMT_StorageIO_close(h[0]));
        assertEquals(0, CMT_StorageIO_open(HDD, "m", 1, h));  // emptied
        assertEquals(0, CMT_StorageIO_close(h[0]));
        assertEquals(0, Files.size(f.hdd.resolve("m")));
        assertEquals(8, CMT_StorageIO_open(HDD, "", 0, h), "the root is a directory");
        Files.createDirectory(f.hdd.resolve("dd"));
        assertEquals(8, CMT_StorageIO_open(HDD, "dd", 0, h));
        assertEquals(2, CMT_StorageIO_open(HDD, "m", 6, h), "mode 6 reaches the library as -1");
    }
}
