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

    /**
     * The whole device back to its initial state: every service reset, no forcings, output
     * refusals, process registrations or refused attaches armed, the default call limit, no
     * recorded calls, an empty trace.
     */
    public static void reset() {
        failAttach(0);
        reset0();
    }

    private static native void reset0();

    /** Drops recorded calls, forcings, output refusals and process registrations only; the services keep their state. */
    public static native void resetCalls();

    /**
     * The record keeps the most recent {@code limit} calls (default 100,000); older ones are
     * dropped and counted. {@link #reset()} restores the default.
     */
    public static native void setCallLimit(long limit);

    public static native long callLimit();

    /** Calls kept in the record now. */
    public static native long callCount();

    /** Calls dropped from the record since the last {@link #clearCalls()} or {@link #reset()}. */
    public static native long droppedCalls();

    /** The next {@code times} platform allocations (emwOSWSubAllocMem) fail. */
    public static native void failAlloc(int times);

    /** The next {@code times} attaches of any thread to the VM are refused (every one when negative, none when 0). */
    public static native void failAttach(int times);

    /** Attaches refused so far. */
    public static native int refusedAttaches();

    /** Observers registered with a facade: "common", "panel", "acc", "job" or "jobinfo"; -1 for another name. */
    public static native int observerCount(String facade);

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

    /**
     * One output that a forced call writes before it answers: argument {@code argIndex} (from 0),
     * {@code offset} bytes into the object it reaches (a field of a record; 0 for the object itself).
     * Kinds: "int8", "uint8", "int16", "uint16", "int32", "uint32", "int64", "uint64", "long",
     * "ulong" (the platform's C long) take a number (its low bits); "string" (a std::string
     * argument) and "char[N]" (a fixed character array of N bytes: at most N-1 bytes of the
     * text's UTF-8, the rest zero) take a text; "bytes[N]" (N raw bytes: the array cut at N, the
     * rest zero) takes bytes.
     */
    public static final class Output {
        final int argIndex;
        final int offset;
        final String kind;
        final long number;
        final String text;
        final byte[] bytes;

        private Output(int argIndex, int offset, String kind, long number, String text, byte[] bytes) {
            if (argIndex < 0) throw new IllegalArgumentException("argument index " + argIndex);
            if (offset < 0) throw new IllegalArgumentException("offset " + offset);
            if (kind == null) throw new IllegalArgumentException("no kind");
            this.argIndex = argIndex;
            this.offset = offset;
            this.kind = kind;
            this.number = number;
            this.text = text;
            this.bytes = bytes;
        }

        public static Output number(int argIndex, String kind, long value) {
            return new Output(argIndex, 0, kind, value, null, null);
        }

        public static Output text(int argIndex, String kind, String value) {
            if (value == null) throw new IllegalArgumentException("no text");
            return new Output(argIndex, 0, kind, 0, value, null);
        }

        public static Output bytes(int argIndex, String kind, byte[] value) {
            if (value == null) throw new IllegalArgumentException("no bytes");
            return new Output(argIndex, 0, kind, 0, null, value.clone());
        }

        /** The same output, {@code offset} bytes into the argument's object. */
        public Output at(int offset) {
            return new Output(argIndex, offset, kind, number, text, bytes);
        }
    }

    /**
     * The next {@code times} calls of {@code op} (every call when negative) write {@code value}
     * through argument {@code argIndex} as {@code kind} and answer {@code result}.
     *
     * @throws IllegalArgumentException for an unknown kind or a negative index
     */
    public static void forceOutput(String op, long result, int argIndex, String kind, long value, int times) {
        forceOutputs(op, result, times, Output.number(argIndex, kind, value));
    }

    public static void forceOutput(String op, long result, int argIndex, String kind, String value, int times) {
        forceOutputs(op, result, times, Output.text(argIndex, kind, value));
    }

    public static void forceOutput(String op, long result, int argIndex, String kind, byte[] value, int times) {
        forceOutputs(op, result, times, Output.bytes(argIndex, kind, value));
    }

    /** Several outputs of one call, written in order, then {@code result}. */
    public static void forceOutputs(String op, long result, int times, Output... outputs) {
        int n = outputs.length;
        int[] indexes = new int[n];
        int[] offsets = new int[n];
        String[] kinds = new String[n];
        long[] numbers = new long[n];
        String[] texts = new String[n];
        byte[][] bytes = new byte[n][];
        for (int i = 0; i < n; ++i) {
            indexes[i] = outputs[i].argIndex;
            offsets[i] = outputs[i].offset;
            kinds[i] = outputs[i].kind;
            numbers[i] = outputs[i].number;
            texts[i] = outputs[i].text;
            bytes[i] = outputs[i].bytes;
        }
        forceOutputs0(op, result, times, indexes, offsets, kinds, numbers, texts, bytes);
    }

    private static native void forceOutputs0(String op, long result, int times, int[] indexes, int[] offsets,
                                             String[] kinds, long[] numbers, String[] texts, byte[][] bytes);

    /** Forced outputs that could not be written since the last reset, each as "op: argument i: reason". */
    public static native String[] outputRefusals();

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
