package tarnwick.bench;

import java.util.Arrays;
import tarnwick.address.SearchKey;
import tarnwick.sim.SimAddressBook;
import tarnwick.sim.SimDevice;
import tarnwick.zel.wrapper.address.CMT_ADDRESSBOOKJNI;
import tarnwick.zel.wrapper.system.cmt_commonJNI;

/**
 * Nanoseconds per address of personal-address searches returning 1,000 to 10,000 addresses,
 * against an empty static native measured in the same JVM, split into the facade's two passes
 * (measured natively, without Java), the trace lines of the search, and the rest (JNI: the
 * Java objects and strings of each address).
 */
public final class AddressBench {
    static {
        System.loadLibrary("tovrCMT");
        System.loadLibrary("addressbench");
    }

    static native void empty();

    static native int facadePasses(String key);

    static native void traceLines(int n);

    interface Body {
        long run();
    }

    static long sink;

    /** Median ns of one run of `body` over `rounds` runs, the device's record cleared before each. */
    static double median(Body body, int rounds) {
        double[] ns = new double[rounds];
        for (int r = 0; r < rounds; ++r) {
            SimDevice.clearCalls();
            SimDevice.clearTrace();
            long t0 = System.nanoTime();
            sink += body.run();
            ns[r] = System.nanoTime() - t0;
        }
        Arrays.sort(ns);
        return ns[rounds / 2];
    }

    public static void main(String[] args) {
        int rounds = args.length > 0 ? Integer.parseInt(args[0]) : 15;
        cmt_commonJNI.cmt_init_init();
        SimDevice.reset();
        long book = CMT_ADDRESSBOOKJNI.new_cmt_address_book();
        SearchKey key = new SearchKey("Person");

        int calls = 2_000_000;
        for (int w = 0; w < 3; ++w) median(() -> { for (int i = 0; i < calls; ++i) empty(); return calls; }, 3);
        double floor = median(() -> { for (int i = 0; i < calls; ++i) empty(); return calls; }, rounds) / calls;
        int lines = 20_000;
        double perLine = median(() -> { traceLines(lines); return lines; }, rounds) / lines;

        System.out.printf("empty static native: %.1f ns/call; one trace line: %.0f ns%n", floor, perLine);
        System.out.printf("%8s %12s %12s %10s %10s %10s %12s%n", "matches", "ns/address", "x empty", "facade", "trace",
                          "JNI+rest", "vs 1000");
        double first = 0;
        for (int n : new int[] {1_000, 2_000, 4_000, 10_000}) {
            SimAddressBook.reset();
            SimAddressBook.generate(n, 1);
            for (int w = 0; w < 3; ++w) {
                Object[] found = CMT_ADDRESSBOOKJNI.cmt_address_book_search_address(book, null, 1, key);
                if (found == null || found.length != n) throw new AssertionError("search of " + n + " gave " + (found == null ? "null" : found.length));
                facadePasses("Person");
            }
            double search = median(() -> CMT_ADDRESSBOOKJNI.cmt_address_book_search_address(book, null, 1, key).length, rounds) / n;
            double facade = median(() -> facadePasses("Person"), rounds) / n;
            int traced = n / 20 + 3;  // ret_num per count fetch, entry and plen
            double trace = traced * perLine / n;
            if (first == 0) first = search;
            System.out.printf("%8d %12.0f %12.0f %10.0f %10.1f %10.0f %11.2fx%n", n, search, search / floor, facade, trace,
                              search - facade - trace, search / first);
        }
        CMT_ADDRESSBOOKJNI.delete_cmt_address_book(book);
        System.out.printf("open searches: %d, platform blocks: %d%n", SimDevice.openResources(SimAddressBook.SEARCH),
                          SimDevice.openResources("platform block"));
    }
}
