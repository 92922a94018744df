package tarnwick.sim;

/**
 * Control of the simulated system-information facade from Java tests and tools, and forced
 * answers that also write a facade member's outputs (through {@link SimDevice#forceOutputs}, so
 * a value that does not fit its argument is refused and listed by
 * {@link SimDevice#outputRefusals()}). Never part of the library's own jar. See
 * tovr_sim_system.h. The other device services have their own classes: {@link SimCommon}
 * (power, certificates), {@link SimPanel}, {@link SimAcc} (IC card reader) and
 * {@link SimWebService}; their methods here forward to them.
 */
public final class SimSystem {
    static {
        System.loadLibrary("tovrsimctl");
    }

    private SimSystem() {}

    /** Failure code of the simulated panel facade. @deprecated use {@link SimPanel#ERROR} */
    @Deprecated
    public static final long PANEL_ERROR = SimPanel.ERROR;
    /** Failure code of the simulated access-control facade. @deprecated use {@link SimAcc#ERROR} */
    @Deprecated
    public static final long ACC_ERROR = SimAcc.ERROR;
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

    /** @deprecated use {@link SimAcc#forceDeviceInfo} */
    @Deprecated
    public static void forceDeviceInfo(String op, int index, int productId, int vendorId, int cardTypes, long result,
                                       int times) {
        SimAcc.forceDeviceInfo(op, index, productId, vendorId, cardTypes, result, times);
    }

    /** @deprecated use {@link SimAcc#forceFelica} */
    @Deprecated
    public static void forceFelica(String op, int index, String systemCode, String service1, String service2,
                                   int blocks1, int blocks2, long result, int times) {
        SimAcc.forceFelica(op, index, systemCode, service1, service2, blocks1, blocks2, result, times);
    }

    // ----- forwarding to the classes of the other services (kept for one round) -----

    /** @deprecated use {@link SimCommon#powerState()} */
    @Deprecated
    public static int powerState() { return SimCommon.powerState(); }

    /** @deprecated use {@link SimCommon#setPowerState(int)} */
    @Deprecated
    public static void setPowerState(int state) { SimCommon.setPowerState(state); }

    /** @deprecated use {@link SimCommon#saveModeProhibited()} */
    @Deprecated
    public static boolean saveModeProhibited() { return SimCommon.saveModeProhibited(); }

    /** @deprecated use {@link SimCommon#deepSleepSuspends(long)} */
    @Deprecated
    public static int deepSleepSuspends(long appId) { return SimCommon.deepSleepSuspends(appId); }

    /** @deprecated use {@link SimCommon#wakeupDate(long)} */
    @Deprecated
    public static long wakeupDate(long appId) { return SimCommon.wakeupDate(appId); }

    /** @deprecated use {@link SimCommon#setCertAnswer(String, long)} */
    @Deprecated
    public static void setCertAnswer(String path, long answer) { SimCommon.setCertAnswer(path, answer); }

    /** @deprecated use {@link SimPanel#resetTimer(long)} */
    @Deprecated
    public static int resetTimer(long context) { return SimPanel.resetTimer(context); }

    /** @deprecated use {@link SimPanel#setIdentity(String, long)} */
    @Deprecated
    public static void setPanelIdentity(String name, long id) { SimPanel.setIdentity(name, id); }

    /** @deprecated use {@link SimPanel#currentId()} */
    @Deprecated
    public static long currentPanelId() { return SimPanel.currentId(); }

    /** @deprecated use {@link SimAcc#plugReader(boolean)} */
    @Deprecated
    public static int plugReader(boolean present) { return SimAcc.plugReader(present); }

    /** @deprecated use {@link SimAcc#readerPresent()} */
    @Deprecated
    public static boolean readerPresent() { return SimAcc.readerPresent(); }

    /** @deprecated use {@link SimAcc#setReader(int, int, int)} */
    @Deprecated
    public static void setReader(int vendorId, int productId, int cardTypes) { SimAcc.setReader(vendorId, productId, cardTypes); }

    /** @deprecated use {@link SimAcc#readType()} */
    @Deprecated
    public static int readType() { return SimAcc.readType(); }

    /** @deprecated use {@link SimAcc#felicaReadType()} */
    @Deprecated
    public static int felicaReadType() { return SimAcc.felicaReadType(); }

    /** @deprecated use {@link SimAcc#setFelica} */
    @Deprecated
    public static void setFelica(int site, String systemCode, String service1, String service2, int blocks1, int blocks2) {
        SimAcc.setFelica(site, systemCode, service1, service2, blocks1, blocks2);
    }

    /** @deprecated use {@link SimAcc#felica(int)} */
    @Deprecated
    public static String[] felica(int site) { return SimAcc.felica(site); }

    /** @deprecated use {@link SimAcc#lastFelicaSent()} */
    @Deprecated
    public static String[] lastFelicaSent() { return SimAcc.lastFelicaSent(); }

    /** @deprecated use {@link SimWebService#holder(int)} */
    @Deprecated
    public static String webServiceHolder(int kind) { return SimWebService.holder(kind); }

    /** @deprecated use {@link SimWebService#setHolder(int, String)} */
    @Deprecated
    public static void setWebServiceHolder(int kind, String name) { SimWebService.setHolder(kind, name); }
}
