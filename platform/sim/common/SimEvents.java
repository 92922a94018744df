package tarnwick.sim;

/**
 * Raises the simulated device's notifications from the facades' own threads. Each call waits
 * until every registered observer has answered and returns the answers, in registration order
 * (observer codes as unsigned 32-bit values). Never part of the library's own jar.
 */
public final class SimEvents {
    static {
        System.loadLibrary("tovrsimctl");
    }

    private SimEvents() {}

    /** The next {@code times} attaches of any thread to the VM are refused (every one when negative, none when 0). */
    public static native void failAttach(int times);

    /** Attaches refused so far. */
    public static native int refusedAttaches();

    /** Observers registered with a facade: "common", "panel", "acc", "job" or "jobinfo". */
    public static native int observerCount(String facade);

    // common facade
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

    // panel facade
    public static native long[] keyEvent(long id, int event);
    public static native long[] autoPanelReset();

    // access-control facade
    /** Writes card data as block {@code blockId} at {@code offset} of the card-data partition. */
    public static native boolean writeCardData(long blockId, int offset, byte[] bytes);
    public static native long[] iccardDetect(String cardId, long cardType, int cardDataSize, int blkid);
    public static native long[] iccardReadError(int code);
    public static native long[] iccardStateChange(int productId, int vendorId, int cardTypes, int state);

    // job facade
    public static native long[] jobStateChanged(int state, long userJobId, int result, int jobMode, String userName,
                                                int inDev, int outDev);
    public static native long[] scanCount(long first, long second);
    public static native long[] startPhb(long id);
    public static native long[] disableInfo(long id);
    public static native long[] mainMessage(long id);
    public static native long[] phbInfo(long id);
    public static native long[] messageInfo(long id);

    // job-information facade
    public static native long[] jobUpdateLog(long userJobId, long receiptId);
    public static native long[] faxSendPage(long userJobId, long pageNum);
    /** A null name reaches the observer as a null pointer. */
    public static native long[] renintStart(long userJobId, int nameSetting, long interfaceInfo, String jobName);
    /** Fields: user job id, page, output dev, input dev, custom x, custom y, paper size, type, direction, weight, duplex, staple, punch, colour mode. */
    public static native long[] printPage(long[] fields);
    /** Fields: user job id, page, custom x, custom y, paper size, direction, duplex, colour mode, resolution. */
    public static native long[] scanPage(long[] fields);
}
