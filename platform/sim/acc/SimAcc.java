package tarnwick.sim;

/**
 * Control of the simulated access-control facade from Java tests and tools: its notifications
 * (each call waits for every registered observer's answer and returns them, in registration
 * order, as unsigned 32-bit values), the card-data partition, and the IC card reader. Never part
 * of the library's own jar. See tovr_sim_acc.h.
 */
public final class SimAcc {
    static {
        System.loadLibrary("tovrsimctl");
    }

    private SimAcc() {}

    /** Failure code of the simulated access-control facade. */
    public static final long ERROR = 0x04010702L;

    // notifications
    /** Writes card data as block {@code blockId} at {@code offset} of the card-data partition. */
    public static native boolean writeCardData(long blockId, int offset, byte[] bytes);
    public static native long[] iccardDetect(String cardId, long cardType, int cardDataSize, int blkid);
    public static native long[] iccardReadError(int code);
    public static native long[] iccardStateChange(int productId, int vendorId, int cardTypes, int state);

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

    // forced answers that also write an output record (through SimDevice's checked outputs)
    /**
     * The next {@code times} calls of {@code op} write a reader identity record
     * (ESV_ZEL_ACC_ICCARD_DEVICE_INFO) through argument {@code index} and answer {@code result}.
     */
    public static void forceDeviceInfo(String op, int index, int productId, int vendorId, int cardTypes, long result,
                                       int times) {
        SimDevice.forceOutputs(op, result, times, SimDevice.Output.number(index, "uint16", productId),
                               SimDevice.Output.number(index, "uint16", vendorId).at(2),
                               SimDevice.Output.number(index, "uint8", cardTypes).at(4));
    }

    /**
     * The next {@code times} calls of {@code op} write a FeliCa setting record (its three codes and
     * two block counts) through argument {@code index} and answer {@code result}.
     *
     * @throws IllegalArgumentException for a negative index
     */
    public static native void forceFelica(String op, int index, String systemCode, String service1, String service2,
                                          int blocks1, int blocks2, long result, int times);
}
