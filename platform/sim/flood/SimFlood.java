package tarnwick.sim;

/**
 * Floods the observers with notifications from all five simulated facades at once, each facade
 * delivering on several device threads of its own. Never part of the library's own jar.
 */
public final class SimFlood {
    static {
        System.loadLibrary("tovrsimctl");
    }

    private SimFlood() {}

    /** Index of each facade in the arrays of {@link Counts}. */
    public static final int COMMON = 0, JOB = 1, PANEL = 2, ACC = 3, JOBINFO = 4, FACADES = 5;

    /** Names of the facades, by index. */
    public static final String[] NAMES = {"common", "job", "panel", "acc", "jobinfo"};

    /** What the facades saw, per facade. */
    public static final class Counts {
        /** Notifications every observer answered 0. */
        public final long[] delivered = new long[FACADES];
        /** Notifications some observer answered otherwise. */
        public final long[] refused = new long[FACADES];
        /** Sum of the ids of the delivered notifications. */
        public final long[] idSum = new long[FACADES];
        /** Notifications no observer was registered for. */
        public final long[] unanswered = new long[FACADES];

        public long totalDelivered() {
            long n = 0;
            for (long d : delivered) n += d;
            return n;
        }
    }

    /**
     * Each facade delivers {@code perThread} notifications on each of {@code threadsPerFacade}
     * threads; returns when all are answered. Ids run 1, 2, ... per facade:
     * common cover(id), job jobStateChanged(Job with jobid id, user name "user" + id),
     * panel applStart(id), acc icCardError(id), jobinfo page(PrintPageInfo with userJobId id).
     */
    public static Counts flood(int threadsPerFacade, long perThread) {
        long[] raw = run(threadsPerFacade, perThread);
        Counts c = new Counts();
        for (int f = 0; f < FACADES; ++f) {
            c.delivered[f] = raw[f];
            c.refused[f] = raw[FACADES + f];
            c.idSum[f] = raw[2 * FACADES + f];
            c.unanswered[f] = raw[3 * FACADES + f];
        }
        return c;
    }

    /**
     * Returns the C library's free heap memory to the system (malloc_trim), so that the resident
     * size counts memory in use rather than memory freed and kept for reuse.
     */
    public static native void releaseFreeMemory();

    private static native long[] run(int threadsPerFacade, long perThread);
}
