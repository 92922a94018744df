package tarnwick.sim;

/**
 * Control of the simulated device services from Java tests: system information, power and
 * certificate answers, the panel's reset timer and identities, the IC card reader and the web
 * service holders, plus forced answers that also write a facade member's outputs. Never part of
 * the library's own jar. See tovr_sim_device.h for the behaviour of the simulated facades.
 */
public final class SimSystem {
    static {
        System.loadLibrary("tovrsimctl");
    }

    private SimSystem() {}

    /** Failure code of the simulated panel facade. */
    public static final long PANEL_ERROR = 0x04010402L;
    /** Failure code of the simulated access-control facade. */
    public static final long ACC_ERROR = 0x04010702L;
    /** Counter kinds the simulated device keeps. */
    public static final int COUNT_TOTAL = 0, COUNT_PRINT = 1, COUNT_COPY = 2, COUNT_SCAN = 3;

    /** Back to a freshly started device (every section). */
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

    // power and certificates
    public static native int powerState();
    public static native void setPowerState(int state);
    public static native boolean saveModeProhibited();
    public static native int deepSleepSuspends(long appId);
    /** The wake-up date the application set, or Long.MIN_VALUE when none. */
    public static native long wakeupDate(long appId);
    public static native void setCertAnswer(String path, long answer);

    // panel
    /** The last operation applied to the context's reset timer, -1 when none. */
    public static native int resetTimer(long context);
    public static native void setPanelIdentity(String name, long id);
    public static native long currentPanelId();

    // IC card reader
    /** Plugs the reader in or out; returns the number of observers notified (0 when nothing changed). */
    public static native int plugReader(boolean present);
    public static native boolean readerPresent();
    public static native void setReader(int vendorId, int productId, int cardTypes);
    public static native int readType();
    public static native int felicaReadType();
    public static native void setFelica(int site, String systemCode, String service1, String service2, int blocks1, int blocks2);
    /** {system code, service code 1, service code 2, block count 1, block count 2}, null for a site other than 1 or 2. */
    public static native String[] felica(int site);
    /** {site, system code, service code 1, service code 2, block count 1, block count 2} of the last set, null when none. */
    public static native String[] lastFelicaSent();

    // web service
    /** The host that holds the kind, "" when free. */
    public static native String webServiceHolder(int kind);
    /** Sets the holder; "" frees the kind. */
    public static native void setWebServiceHolder(int kind, String name);

    // forced answers that write outputs: the next {@code times} calls of {@code op} (every call
    // when negative) write into argument {@code index} and answer {@code result}.
    public static native void forceUint(String op, int index, long value, long result, int times);
    public static native void forceUlong(String op, int index, long value, long result, int times);
    public static native void forceString(String op, int index, String value, long result, int times);
    public static native void forcePaperInfo(String op, int index, int remain, int size, int direction, int kind,
                                             long result, int times);
    public static native void forceDeviceInfo(String op, int index, int productId, int vendorId, int cardTypes,
                                              long result, int times);
    public static native void forceFelica(String op, int index, String systemCode, String service1, String service2,
                                          int blocks1, int blocks2, long result, int times);
}
