package tarnwick.bench;

import java.lang.management.ManagementFactory;
import java.lang.management.ThreadMXBean;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.function.Consumer;
import tarnwick.address.SearchKey;
import tarnwick.sim.SimAddressBook;
import tarnwick.sim.SimBox;
import tarnwick.sim.SimDevice;
import tarnwick.sim.SimUsers;
import tarnwick.zel.wrapper.address.CMT_ADDRESSBOOKJNI;
import tarnwick.zel.wrapper.box.zel_fnd_document_box_moduleJNI;
import tarnwick.zel.wrapper.system.cmt_commonJNI;
import tarnwick.zel.wrapper.user.ZELFNDUserJNI;

/**
 * One list of the library (users, box, address) at 1,000 and 10,000 entries, in processor time
 * of the calling thread per entry: the library's call; the bare list, a native written for the
 * benchmark that makes the same facade calls (and, once more, the same trace lines) and the same
 * Java objects by the fewest JNI calls, with IDs looked up once; and the floor, those objects
 * alone. Printed: the call, the facade's and the trace's parts (bare less floor, traced bare less
 * bare), the floor, the library's own cost (the call less the traced bare list's facade and
 * trace parts) and its ratio to the floor, and the same with the trace counted as the library's.
 * Each size is warmed up first (3 s by default: the JIT compiles the Java side), then measured
 * in rounds that run the four one after the other; medians, with the spread (interquartile range
 * over median) of the call and of the floor. Ends with "ratio to floor: R", the largest ratio.
 * Arguments: list (users, box, address), rounds, warm-up seconds.
 */
public final class ListBench {
    static {
        System.loadLibrary("tovrCMT");
        System.loadLibrary("listbench");
    }

    static native void usersFloor(Object list, int n);

    static native void boxFloor(Object list, int n);

    static native Object[] addressFloor(int n);

    static native void usersBare(Object list, boolean traced);

    static native void boxBare(Object list, String path, boolean traced);

    static native Object[] addressBare(String key, boolean traced);

    interface Body {
        long run();
    }

    /** A body that fills a new list (room for n entries) with {@code fill} and answers its size. */
    static Body filling(int n, Consumer<ArrayList<Object>> fill) {
        return () -> {
            ArrayList<Object> l = new ArrayList<>(n);
            fill.accept(l);
            return l.size();
        };
    }

    static long sink;

    // The calling thread's processor time: what other processes of a loaded machine take is not
    // counted in.
    static final ThreadMXBean CPU = ManagementFactory.getThreadMXBean();

    /** Runs each body until `seconds` have passed and each ran at least `times` times (the JIT's warm-up). */
    static void warmUp(Body[] bodies, double seconds, int times) {
        long end = System.nanoTime() + (long) (seconds * 1e9);
        for (int i = 0; i < times || System.nanoTime() < end; i++) {
            for (Body b : bodies) {
                SimDevice.clearCalls();
                SimDevice.clearTrace();
                sink += b.run();
            }
        }
    }

    /**
     * Processor nanoseconds of each body in `rounds` rounds, the bodies one after the other in every round
     * (so a load that comes and goes falls on all of them alike): [body][round], each row sorted.
     */
    static double[][] measure(Body[] bodies, int rounds) {
        double[][] ns = new double[bodies.length][rounds];
        for (int r = 0; r < rounds; ++r) {
            for (int b = 0; b < bodies.length; b++) {
                SimDevice.clearCalls();
                SimDevice.clearTrace();
                long t0 = CPU.getCurrentThreadCpuTime();
                sink += bodies[b].run();
                ns[b][r] = CPU.getCurrentThreadCpuTime() - t0;
            }
        }
        for (double[] row : ns) Arrays.sort(row);
        return ns;
    }

    static double median(double[] sorted) {
        return sorted[sorted.length / 2];
    }

    /** The interquartile range relative to the median: how steady a measurement was. */
    static double spread(double[] sorted) {
        int n = sorted.length;
        return (sorted[(3 * n) / 4] - sorted[n / 4]) / median(sorted);
    }

    static void check(boolean ok, String what) {
        if (!ok) throw new AssertionError(what);
    }

    public static void main(String[] args) {
        String kind = args.length > 0 ? args[0] : "users";
        int rounds = args.length > 1 ? Integer.parseInt(args[1]) : 21;
        double warmSeconds = args.length > 2 ? Double.parseDouble(args[2]) : 3;
        cmt_commonJNI.cmt_init_init();
        long auth = ZELFNDUserJNI.new_zel_fnd_authentication();
        long manager = zel_fnd_document_box_moduleJNI.zel_fnd_document_manager_zel_fnd_get_instance();
        long book = CMT_ADDRESSBOOKJNI.new_cmt_address_book();
        SearchKey key = new SearchKey("Person");
        System.out.printf("%s: ns per entry (processor time of the calling thread)%n", kind);
        System.out.printf("%8s %10s %10s %10s %10s %10s %8s %10s %8s %8s%n", "entries", "call", "facade", "trace", "floor",
                "library", "ratio", "w/ trace", "spread", "(floor)");
        double worst = 0;
        for (int n : new int[] {1_000, 10_000}) {
            SimDevice.reset();
            Body call, bare, traced, floor;
            switch (kind) {
            case "users":
                SimUsers.reset();
                SimUsers.addLocalUsers(n - 1);  // and the built-in administrator
                call = filling(n, l -> check(ZELFNDUserJNI.zel_fnd_authentication_get_local_user_list(auth, null, l) == 0
                                             && l.size() == n, "users"));
                bare = filling(n, l -> usersBare(l, false));
                traced = filling(n, l -> usersBare(l, true));
                floor = filling(n, l -> usersFloor(l, n));
                break;
            case "box":
                SimBox.reset();
                for (int i = 0; i < n; i++) SimBox.addDocument("/bench", String.format("doc-%05d.pdf", i), i, i * 60, 0);
                call = filling(n, l -> check(zel_fnd_document_box_moduleJNI.zel_fnd_document_manager_zel_fnd_get_easy_box_list(
                                                     manager, null, "/bench", l) == 0 && l.size() == n, "box"));
                bare = filling(n, l -> boxBare(l, "/bench", false));
                traced = filling(n, l -> boxBare(l, "/bench", true));
                floor = filling(n, l -> boxFloor(l, n));
                break;
            default:
                SimAddressBook.reset();
                SimAddressBook.generate(n, 1);
                call = () -> {
                    Object[] found = CMT_ADDRESSBOOKJNI.cmt_address_book_search_address(book, null, 1, key);
                    check(found != null && found.length == n, "address");
                    return found.length;
                };
                bare = () -> addressBare("Person", false).length;
                traced = () -> addressBare("Person", true).length;
                floor = () -> addressFloor(n).length;
                break;
            }
            Body[] bodies = {call, traced, bare, floor};
            warmUp(bodies, warmSeconds, 10);
            double[][] ns = measure(bodies, rounds * (10_000 / n));  // as many entries at each size
            double c = median(ns[0]) / n;
            double bt = median(ns[1]) / n;
            double b = median(ns[2]) / n;
            double fl = median(ns[3]) / n;
            // The bare list less the floor is the facade's (and the trace's) part where the
            // library has it; the rest of the call is the library's own.
            double own = c - bt + fl;
            double ratio = own / fl;
            worst = Math.max(worst, ratio);
            System.out.printf("%8d %10.0f %10.0f %10.0f %10.0f %10.0f %8.2f %10.2f %8.2f %8.2f%n", n, c, b - fl, bt - b, fl, own,
                              ratio, (c - b + fl) / fl, spread(ns[0]), spread(ns[3]));
        }
        ZELFNDUserJNI.delete_zel_fnd_authentication(auth);
        CMT_ADDRESSBOOKJNI.delete_cmt_address_book(book);
        System.out.printf("ratio to floor: %.2f%n", worst);
    }
}
