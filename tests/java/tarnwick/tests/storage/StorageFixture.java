package tarnwick.tests.storage;

import static org.junit.jupiter.api.Assertions.assertEquals;

import java.io.IOException;
import java.nio.file.Files;
import java.nio.file.Path;
import org.junit.jupiter.api.extension.AfterEachCallback;
import org.junit.jupiter.api.extension.BeforeEachCallback;
import org.junit.jupiter.api.extension.ExtensionContext;
import tarnwick.sim.SimBox;
import tarnwick.sim.SimDevice;
import tarnwick.sim.SimStorage;

/**
 * Drives of each test in temporary folders of its own; after each test nothing may be left open.
 * A JUnit extension of the test instance, after SimDeviceExtension has made the device fresh:
 * {@code @RegisterExtension final StorageFixture f = new StorageFixture();}
 */
final class StorageFixture implements BeforeEachCallback, AfterEachCallback {
    Path root;
    Path hdd;
    Path usb0;
    Path usb1;

    @Override
    public void beforeEach(ExtensionContext context) throws IOException {
        root = Files.createTempDirectory("tovr-storage-");
        usb0 = Files.createDirectories(root.resolve("usb0"));
        usb1 = Files.createDirectories(root.resolve("usb1"));
        hdd = Files.createDirectories(root.resolve("hdd"));
        SimStorage.setFolder(0, usb0.toString());
        SimStorage.setFolder(1, usb1.toString());
        SimStorage.setFolder(2, hdd.toString());
        SimDevice.clearCalls();
    }

    /** Asserts that no handle, listing or platform block is open, then resets and deletes the folders. */
    @Override
    public void afterEach(ExtensionContext context) throws IOException {
        try {
            assertEquals(0, SimDevice.openResources(SimStorage.FILE_HANDLE), "file handles left open");
            assertEquals(0, SimDevice.openResources(SimStorage.DIRECTORY_HANDLE), "directory handles left open");
            assertEquals(0, SimDevice.openResources(SimBox.LISTING), "box listings left open");
            assertEquals(0, SimDevice.openResources("platform block"), "platform blocks left");
        } finally {
            SimDevice.reset();
            deleteTree(root);
        }
    }

    /** Deletes the folder with everything in it, entries whose names are no valid text included. */
    static void deleteTree(Path p) throws IOException {
        try {
            Process rm = new ProcessBuilder("rm", "-rf", p.toString()).inheritIO().start();
            if (rm.waitFor() != 0) throw new IOException("rm -rf " + p + " failed");
        } catch (InterruptedException e) {
            Thread.currentThread().interrupt();
            throw new IOException(e);
        }
    }

    static byte[] pattern(int n) {
        byte[] b = new byte[n];
        long x = 0x9E3779B97F4A7C15L ^ n;
        for (int i = 0; i < n; i++) {
            x ^= x << 13;
            x ^= x >>> 7;
            x ^= x << 17;
            b[i] = (byte) x;
        }
        return b;
    }
}
