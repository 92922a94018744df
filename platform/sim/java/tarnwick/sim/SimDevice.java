package tarnwick.sim;

/**
 * Control of the simulated device from Java tests and tools: what the library asked of the
 * device, forced answers, and the platform trace. Never part of the library's own jar.
 */
public final class SimDevice {
    static {
        System.loadLibrary("tovrsimctl");
    }

    private SimDevice() {}

    /** Drops recorded calls, forcings and process registrations. */
    public static native void reset();

    /** The next {@code times} calls of {@code op} answer {@code result} (every call when negative). */
    public static native void forceResult(String op, long result, int times);

    /** The arguments of each recorded call of {@code op}, oldest first, joined by ", ". */
    public static native String[] calls(String op);

    /** Every recorded call as "op(arg, arg)", oldest first. */
    public static native String[] allCalls();

    public static native void clearCalls();

    /** The trace lines, oldest first, each as "level text". */
    public static native String[] traceLines();

    public static native void clearTrace();

    /** Each process registration as "count:first argument". */
    public static native String[] processRegistrations();

    /** Sets the process's TZ, as a device whose time zone setting changed. */
    public static native void setTimeZone(String tz);

    /**
     * Resources of the simulated device that are open now, by kind: "platform block" (memory
     * blocks handed out and not freed), or a kind a facade counts (list handles, file handles).
     */
    public static native int openResources(String kind);

    public static int callCount(String op) {
        return calls(op).length;
    }

    /** Trace texts without the level, for lines whose text contains {@code part}. */
    public static java.util.List<String> traceContaining(String part) {
        java.util.List<String> out = new java.util.ArrayList<>();
        for (String line : traceLines()) {
            if (line.contains(part)) out.add(line);
        }
        return out;
    }
}
