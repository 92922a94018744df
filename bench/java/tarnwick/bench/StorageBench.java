package tarnwick.bench;

import java.io.File;
import java.io.FileOutputStream;
import java.io.IOException;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.ArrayList;
import java.util.Arrays;
import tarnwick.sim.SimDevice;
import tarnwick.sim.SimStorage;
import tarnwick.zel.wrapper.box.zel_fnd_document_box_moduleJNI;
import tarnwick.zel.wrapper.storage.CMT_StorageJNI;
import tarnwick.zel.wrapper.system.cmt_commonJNI;

/**
 * Listing a box folder of N documents into Java records (N = 100, 1,000, 10,000), and copying a
 * 100 MB file through the storage module's read/write in 64 KiB pieces against cp of the same
 * file in the same folder.
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

    static void listing() {
        long manager = zel_fnd_document_box_moduleJNI.zel_fnd_document_manager_zel_fnd_get_instance();
        for (int n : new int[] {100, 1_000, 10_000}) {
            SimStorage.boxReset();
            for (int i = 0; i < n; i++) SimStorage.boxAddDocument("/bench", String.format("doc-%05d.pdf", i), i, i * 60, 0);
            int rounds = n >= 10_000 ? 7 : 21;
            for (int w = 0; w < 3; w++) list(manager, n);
            double[] ms = new double[rounds];
            for (int r = 0; r < rounds; r++) {
                long t0 = System.nanoTime();
                list(manager, n);
                ms[r] = (System.nanoTime() - t0) / 1e6;
            }
            double m = median(ms);
            SimDevice.clearTrace();
            System.out.printf("box listing  N=%6d: %9.2f ms  (%.2f us per document, median of %d)%n", n, m, m * 1000 / n, rounds);
        }
        SimStorage.boxReset();
    }

    static void list(long manager, int n) {
        ArrayList<Object> out = new ArrayList<>();
        int rc = zel_fnd_document_box_moduleJNI.zel_fnd_document_manager_zel_fnd_get_easy_box_list(manager, null, "/bench", out);
        if (rc != 0 || out.size() != n) throw new AssertionError("listing failed: " + rc + ", " + out.size());
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

    static double copyWithCp(Path from, Path to) throws IOException, InterruptedException {
        long t0 = System.nanoTime();
        Process p = new ProcessBuilder("cp", from.toString(), to.toString()).inheritIO().start();
        if (p.waitFor() != 0) throw new AssertionError("cp failed");
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
            Files.deleteIfExists(folder.resolve("cp.bin"));
            lib[r] = copyThroughLibrary("source.bin", "lib.bin");
            cp[r] = copyWithCp(src, folder.resolve("cp.bin"));
        }
        if (Files.mismatch(src, folder.resolve("lib.bin")) != -1) throw new AssertionError("copy differs");
        double l = median(lib);
        double c = median(cp);
        System.out.printf("copy 100 MB in 64 KiB pieces: library %.1f ms (%.0f MB/s), cp %.1f ms (%.0f MB/s), ratio %.2f (median of %d)%n",
                          l, 100 / (l / 1000), c, 100 / (c / 1000), l / c, rounds);
        for (String n : new String[] {"source.bin", "lib.bin", "cp.bin"}) Files.deleteIfExists(folder.resolve(n));
    }

    public static void main(String[] args) throws Exception {
        cmt_commonJNI.cmt_init_init();
        SimDevice.reset();
        SimStorage.reset();
        listing();
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
