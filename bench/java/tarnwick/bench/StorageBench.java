package tarnwick.bench;

import java.io.File;
import java.io.FileOutputStream;
import java.io.IOException;
import java.io.UncheckedIOException;
import java.lang.management.ManagementFactory;
import java.lang.management.ThreadMXBean;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.Arrays;
import tarnwick.sim.SimDevice;
import tarnwick.sim.SimStorage;
import tarnwick.zel.wrapper.storage.CMT_StorageJNI;
import tarnwick.zel.wrapper.system.cmt_commonJNI;

/**
 * Copying a 100 MB file through the storage module's read/write in 64 KiB pieces against java.io
 * streams with the same pieces, in the same folder, in processor time of the copying thread (the
 * box listing is ListBench's).
 */
public final class StorageBench {
    static {
        System.loadLibrary("tovrCMT");
    }

    static double median(double[] v) {
        double[] c = v.clone();
        Arrays.sort(c);
        return c[c.length / 2];
    }

    // The calling thread's processor time, the kernel's part included (the copies into and out of
    // the files): what other processes of a loaded machine take is not counted in.
    static final ThreadMXBean CPU = ManagementFactory.getThreadMXBean();

    /** Milliseconds of processor time of one run of `copy`. */
    static double timed(Runnable copy) {
        long t0 = CPU.getCurrentThreadCpuTime();
        copy.run();
        return (CPU.getCurrentThreadCpuTime() - t0) / 1e6;
    }

    static void copyThroughLibrary(String from, String to) {
        long[] in = {0}, out = {0};
        if (CMT_StorageJNI.CMT_StorageIO_open(0, from, 0, in) != 0) throw new AssertionError("open " + from);
        if (CMT_StorageJNI.CMT_StorageIO_open(0, to, 1, out) != 0) throw new AssertionError("open " + to);
        byte[] piece = new byte[64 * 1024];
        long[] done = {0};
        long[] written = {0};
        for (;;) {
            int rc = CMT_StorageJNI.CMT_StorageIO_read(piece, piece.length, in[0], done);
            if (rc == 1) break;
            if (rc != 0) throw new AssertionError("read " + rc);
            if (CMT_StorageJNI.CMT_StorageIO_write(piece, done[0], out[0], written) != 0 || written[0] != done[0]) {
                throw new AssertionError("write");
            }
        }
        CMT_StorageJNI.CMT_StorageIO_close(in[0]);
        CMT_StorageJNI.CMT_StorageIO_close(out[0]);
    }

    /** The tool a Java developer would pick instead: java.io streams, the same 64 KiB pieces. */
    static void copyWithStreams(Path from, Path to) {
        try (java.io.FileInputStream in = new java.io.FileInputStream(from.toFile());
             FileOutputStream out = new FileOutputStream(to.toFile())) {
            byte[] piece = new byte[64 * 1024];
            for (int n; (n = in.read(piece)) > 0;) out.write(piece, 0, n);
        } catch (IOException e) {
            throw new UncheckedIOException(e);
        }
    }

    static void copy(Path folder) throws IOException, InterruptedException {
        SimStorage.setFolder(2, folder.toString());
        Path src = folder.resolve("source.bin");
        byte[] block = new byte[1 << 20];
        long x = 88172645463325252L;
        try (FileOutputStream o = new FileOutputStream(src.toFile())) {
            for (int mb = 0; mb < 100; mb++) {
                for (int i = 0; i < block.length; i++) {
                    x ^= x << 13;
                    x ^= x >>> 7;
                    x ^= x << 17;
                    block[i] = (byte) x;
                }
                o.write(block);
            }
        }
        int rounds = 11;
        double[] lib = new double[rounds];
        double[] cp = new double[rounds];
        for (int r = -2; r < rounds; r++) {  // two rounds of warm-up
            Files.deleteIfExists(folder.resolve("lib.bin"));
            Files.deleteIfExists(folder.resolve("io.bin"));
            double l = timed(() -> copyThroughLibrary("source.bin", "lib.bin"));
            double c = timed(() -> copyWithStreams(src, folder.resolve("io.bin")));
            if (r >= 0) {
                lib[r] = l;
                cp[r] = c;
            }
        }
        if (Files.mismatch(src, folder.resolve("lib.bin")) != -1) throw new AssertionError("copy differs");
        double l = median(lib);
        double c = median(cp);
        System.out.printf("copy 100 MB in 64 KiB pieces, processor time: library %.1f ms, java.io streams %.1f ms, ratio %.2f (median of %d)%n",
                          l, c, l / c, rounds);
        for (String n : new String[] {"source.bin", "lib.bin", "io.bin"}) Files.deleteIfExists(folder.resolve(n));
    }

    public static void main(String[] args) throws Exception {
        cmt_commonJNI.cmt_init_init();
        SimDevice.reset();
        SimStorage.reset();
        Path folder = Files.createTempDirectory(new File(args.length > 0 ? args[0] : System.getProperty("java.io.tmpdir")).toPath(),
                                                "tovr-bench-");
        try {
            copy(folder);
        } finally {
            Files.deleteIfExists(folder);
            SimStorage.reset();
        }
    }
}
