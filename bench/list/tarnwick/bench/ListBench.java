package tarnwick.bench;

import java.util.ArrayList;
import java.util.Arrays;
import tarnwick.address.SearchKey;
import tarnwick.sim.SimAddressBook;
import tarnwick.sim.SimDevice;
import tarnwick.sim.SimStorage;
import tarnwick.sim.SimUsers;
import tarnwick.zel.wrapper.address.CMT_ADDRESSBOOKJNI;
import tarnwick.zel.wrapper.box.zel_fnd_document_box_moduleJNI;
import tarnwick.zel.wrapper.system.cmt_commonJNI;
import tarnwick.zel.wrapper.user.ZELFNDUserJNI;

/**
 * One list of the library (users, box, address) at 1,000 and 10,000 entries, per entry: the
 * library's call; the simulated facade's part (the same prepare / fetch / finish natively,
 * without Java); the trace lines the design requires (the same number, natively); the library's
 * own cost (the call less both); and the floor, the same Java objects made by the fewest JNI calls
 * with IDs looked up once. Medians; ends with "ratio to floor: R", the largest own-cost ratio.
 */
public final class ListBench {
    static {
        System.loadLibrary("tovrCMT");
        System.loadLibrary("listbench");
    }

    static native void usersFloor(Object list, int n);

    static native void boxFloor(Object list, int n);

    static native Object[] addressFloor(int n);

    static native int usersFacade();

    static native int boxFacade(String path);

    static native int addressFacade(String key);

    static native void traceLines(int n);

    interface Body {
        long run();
    }

    static long sink;

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

    static void check(boolean ok, String what) {
        if (!ok) throw new AssertionError(what);
    }

    public static void main(String[] args) {
        String kind = args.length > 0 ? args[0] : "users";
        int rounds = args.length > 1 ? Integer.parseInt(args[1]) : 11;
        cmt_commonJNI.cmt_init_init();
        long auth = ZELFNDUserJNI.new_zel_fnd_authentication();
        long manager = zel_fnd_document_box_moduleJNI.zel_fnd_document_manager_zel_fnd_get_instance();
        long book = CMT_ADDRESSBOOKJNI.new_cmt_address_book();
        SearchKey key = new SearchKey("Person");
        System.out.printf("%s: ns per entry%n", kind);
        System.out.printf("%8s %10s %10s %10s %10s %10s %8s %10s%n", "entries", "call", "facade", "trace", "library", "floor",
                "ratio", "w/ trace");
        double worst = 0;
        for (int n : new int[] {1_000, 10_000}) {
            SimDevice.reset();
            Body call, facade, floor;
            int lines;
            switch (kind) {
            case "users":
                SimUsers.reset();
                SimUsers.addLocalUsers(n - 1);  // and the built-in administrator
                call = () -> {
                    ArrayList<Object> l = new ArrayList<>(n);
                    check(ZELFNDUserJNI.zel_fnd_authentication_get_local_user_list(auth, null, l) == 0 && l.size() == n, "users");
                    return l.size();
                };
                facade = () -> usersFacade();
                floor = () -> {
                    ArrayList<Object> l = new ArrayList<>(n);
                    usersFloor(l, n);
                    return l.size();
                };
                lines = n + 1;
                break;
            case "box":
                SimStorage.boxReset();
                for (int i = 0; i < n; i++) SimStorage.boxAddDocument("/bench", String.format("doc-%05d.pdf", i), i, i * 60, 0);
                call = () -> {
                    ArrayList<Object> l = new ArrayList<>(n);
                    check(zel_fnd_document_box_moduleJNI.zel_fnd_document_manager_zel_fnd_get_easy_box_list(manager, null, "/bench", l) == 0
                            && l.size() == n, "box");
                    return l.size();
                };
                facade = () -> boxFacade("/bench");
                floor = () -> {
                    ArrayList<Object> l = new ArrayList<>(n);
                    boxFloor(l, n);
                    return l.size();
                };
                lines = 1 + 7 * n;
                break;
            default:
                SimAddressBook.reset();
                SimAddressBook.generate(n, 1);
                call = () -> {
                    Object[] found = CMT_ADDRESSBOOKJNI.cmt_address_book_search_address(book, null, 1, key);
                    check(found != null && found.length == n, "address");
                    return found.length;
                };
                facade = () -> addressFacade("Person");
                floor = () -> addressFloor(n).length;
                lines = 3 + (n / 20 + 1);
                break;
            }
            for (int w = 0; w < 3; w++) {
                call.run();
                floor.run();
                facade.run();
            }
            final int traced = lines;
            double c = median(call, rounds) / n;
            double f = median(facade, rounds) / n;
            double t = median(() -> { traceLines(traced); return traced; }, rounds) / n;
            double fl = median(floor, rounds) / n;
            double own = c - f - t;
            double ratio = own / fl;
            worst = Math.max(worst, ratio);
            System.out.printf("%8d %10.0f %10.0f %10.0f %10.0f %10.0f %8.2f %10.2f%n", n, c, f, t, own, fl, ratio, (own + t) / fl);
        }
        ZELFNDUserJNI.delete_zel_fnd_authentication(auth);
        CMT_ADDRESSBOOKJNI.delete_cmt_address_book(book);
        System.out.printf("ratio to floor: %.2f%n", worst);
    }
}
