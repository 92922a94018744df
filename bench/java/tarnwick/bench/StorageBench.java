package tarnwick.bench;

import java.io.File;
import java.io.FileOutputStream;
import java.io.IOException;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.Arrays;
import tarnwick.sim.SimDevice;
import tarnwick.sim.SimStorage;
import tarnwick.zel.wrapper.storage.CMT_StorageJNI;
import tarnwick.zel.wrapper.system.cmt_commonJNI;

/**
 * Copying a 100 MB file through the storage module's read/write in 64 KiB pieces against java.io
 * streams with the same pieces, in the same folder (the box listing is ListBench's).
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

    static double copyThroughLibrary(String from, String to) {
        long t0 = System.nanoTime();
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
        return (System.nanoTime() - t0) / 1e6;
    }

    /** The tool a Java developer would pick instead: java.io streams, the same 64 KiB pieces. */
    static double copyWithStreams(Path from, Path to) throws IOException {
        long t0 = System.nanoTime();
        try (java.io.FileInputStream in = new java.io.FileInputStream(from.toFile());
             FileOutputStream out = new FileOutputStream(to.toFile())) {
            byte[] piece = new byte[64 * 1024];
            for (int n; (n = in.read(piece)) > 0;) out.write(piece, 0, n);
        }
        return (System.nanoTime() - t0) / 1e6;
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
        int rounds = 5;
        double[] lib = new double[rounds];
        double[] cp = new double[rounds];
        for (int r = 0; r < rounds; r++) {
            Files.deleteIfExists(folder.resolve("lib.bin"));
            Files.deleteIfExists(folder.resolve("io.bin"));
            lib[r] = copyThroughLibrary("source.bin", "lib.bin");
            cp[r] = copyWithStreams(src, folder.resolve("io.bin"));
        }
        if (Files.mismatch(src, folder.resolve("lib.bin")) != -1) throw new AssertionError("copy differs");
        double l = median(lib);
        double c = median(cp);
        System.out.printf("copy 100 MB in 64 KiB pieces: library %.1f ms (%.0f MB/s), java.io streams %.1f ms (%.0f MB/s), ratio %.2f (median of %d)%n",
                          l, 100 / (l / 1000), c, 100 / (c / 1000), l / c, rounds);
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
