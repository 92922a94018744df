package tarnwick.sim;

/**
 * Control of the simulated system-information facade from Java tests and tools, and forced
 * answers that also write a facade member's outputs (through {@link SimDevice#forceOutputs}, so
 * a value that does not fit its argument is refused and listed by
 * {@link SimDevice#outputRefusals()}). Never part of the library's own jar. See
 * tovr_sim_system.h. The other device services have their own classes: {@link SimCommon}
 * (power, certificates), {@link SimPanel}, {@link SimAcc} (IC card reader) and
 * {@link SimWebService}.
 */
public final class SimSystem {
    static {
        System.loadLibrary("tovrsimctl");
    }

    private SimSystem() {}

    /** Counter kinds the simulated device keeps. */
    public static final int COUNT_TOTAL = 0, COUNT_PRINT = 1, COUNT_COPY = 2, COUNT_SCAN = 3;

    /** Back to a freshly started device: system information, power, panel, reader and web service. */
    public static native void reset();

    // system information
    public static native void setModelType(long type);
    public static native void setScreenSize(long size);
    public static native void setTray(int key, int remain, int size, int direction, int kind);
    public static native void removeTray(int key);
    /** {remain, size, direction, kind}, or null when the tray does not exist. */
    public static native int[] tray(int key);
    public static native void setCount(int kind, int paperSize, int color, long count);
    public static native long count(int kind, int paperSize, int color);
    public static native void setMachineInfo(int key, long cid, long value);
    public static native void setMachineText(int key, long cid, String value);
    /** The number stored for key and cid, or -1 when none. */
    public static native long machineInfo(int key, long cid);
    public static native void setValue(int key, long value);
    public static native void setText(int key, String value);
    /** The number stored for the key, or -1 when none. */
    public static native long value(int key);
    /** The text stored for the key, or null when none. */
    public static native String text(int key);
    /** Every operation on the key answers {@code code}; 0 clears. */
    public static native void setKeyAnswer(int key, long code);

    // forced answers that write outputs: the next {@code times} calls of {@code op} (every call
    // when negative) write into argument {@code index} and answer {@code result}. A negative
    // index or an unknown kind throws IllegalArgumentException; a write that does not fit the
    // argument is not made and is listed by SimDevice.outputRefusals().

    /** An unsigned int ("uint32"). */
    public static void forceUint(String op, int index, long value, long result, int times) {
        SimDevice.forceOutput(op, result, index, "uint32", value, times);
    }

    /** An unsigned long of the platform ("ulong"). */
    public static void forceUlong(String op, int index, long value, long result, int times) {
        SimDevice.forceOutput(op, result, index, "ulong", value, times);
    }

    /** A std::string ("string"); null writes "". */
    public static void forceString(String op, int index, String value, long result, int times) {
        SimDevice.forceOutput(op, result, index, "string", value == null ? "" : value, times);
    }

    /** A tray record (ESV_ZEL_PAPER_INFO: remain, size, direction, kind, one byte each). */
    public static void forcePaperInfo(String op, int index, int remain, int size, int direction, int kind, long result,
                                      int times) {
        SimDevice.forceOutput(op, result, index, "bytes[4]",
                              new byte[] {(byte) remain, (byte) size, (byte) direction, (byte) kind}, times);
    }
}
