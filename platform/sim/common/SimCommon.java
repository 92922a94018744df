package tarnwick.sim;

/**
 * Control of the simulated common facade from Java tests and tools: its notifications, raised on
 * the facade's own thread (each call waits until every registered observer has answered and
 * returns the answers in registration order, as unsigned 32-bit values), and the power and
 * certificate requests it answers. Never part of the library's own jar. See tovr_sim_common.h.
 */
public final class SimCommon {
    static {
        System.loadLibrary("tovrsimctl");
    }

    private SimCommon() {}

    // notifications
    public static native long[] keyCardStatus(int status);
    public static native long[] keyCounterStatus(long status);
    public static native long[] residentAppStateChanged(int state);
    public static native long[] wasteTonerBottleStatus(int status);
    public static native long[] coverStatus(long status);
    public static native long[] paperRestStatus(int source, int level);
    public static native long[] tonerStatus(int first, int second);
    public static native long[] coinVenderStatus(long status);
    public static native long[] usbMemoryStatus(long status);
    public static native long[] sleep(int state);
    public static native long[] pbpConnectionError(int error);
    public static native long[] logout(long reason);
    public static native long[] networkStateChanged(int type);
    public static native long[] serviceStateChanged(int type);
    public static native long[] requestActivate(int scenario, long value);

    // power and certificates
    public static native int powerState();
    /** Puts the device into a power state without a request (no notification). */
    public static native void setPowerState(int state);
    public static native boolean saveModeProhibited();
    public static native int deepSleepSuspends(long appId);
    /** The wake-up date the application set, or Long.MIN_VALUE when none. */
    public static native long wakeupDate(long appId);
    public static native void setCertAnswer(String path, long answer);
}
