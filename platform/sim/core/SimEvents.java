package tarnwick.sim;

/**
 * The notifications of every simulated facade in one class, as before the device was split by
 * service: each method forwards to the class of its facade ({@link SimCommon},
 * {@link SimPanel}, {@link SimAcc}, {@link SimJobs}) or to {@link SimDevice}. Kept for one
 * round; new code uses those classes. Never part of the library's own jar.
 *
 * @deprecated use the class of the notification's facade
 */
@Deprecated
public final class SimEvents {
    private SimEvents() {}

    /** @deprecated use {@link SimDevice#failAttach(int)} */
    @Deprecated
    public static void failAttach(int times) {
        SimDevice.failAttach(times);
    }

    /** @deprecated use {@link SimDevice#refusedAttaches()} */
    @Deprecated
    public static int refusedAttaches() {
        return SimDevice.refusedAttaches();
    }

    /** @deprecated use {@link SimDevice#observerCount(String)} */
    @Deprecated
    public static int observerCount(String facade) {
        return SimDevice.observerCount(facade);
    }

    /** @deprecated use {@link SimCommon#keyCardStatus(int)} */
    @Deprecated
    public static long[] keyCardStatus(int status) {
        return SimCommon.keyCardStatus(status);
    }

    /** @deprecated use {@link SimCommon#keyCounterStatus(long)} */
    @Deprecated
    public static long[] keyCounterStatus(long status) {
        return SimCommon.keyCounterStatus(status);
    }

    /** @deprecated use {@link SimCommon#residentAppStateChanged(int)} */
    @Deprecated
    public static long[] residentAppStateChanged(int state) {
        return SimCommon.residentAppStateChanged(state);
    }

    /** @deprecated use {@link SimCommon#wasteTonerBottleStatus(int)} */
    @Deprecated
    public static long[] wasteTonerBottleStatus(int status) {
        return SimCommon.wasteTonerBottleStatus(status);
    }

    /** @deprecated use {@link SimCommon#coverStatus(long)} */
    @Deprecated
    public static long[] coverStatus(long status) {
        return SimCommon.coverStatus(status);
    }

    /** @deprecated use {@link SimCommon#paperRestStatus(int, int)} */
    @Deprecated
    public static long[] paperRestStatus(int source, int level) {
        return SimCommon.paperRestStatus(source, level);
    }

    /** @deprecated use {@link SimCommon#tonerStatus(int, int)} */
    @Deprecated
    public static long[] tonerStatus(int first, int second) {
        return SimCommon.tonerStatus(first, second);
    }

    /** @deprecated use {@link SimCommon#coinVenderStatus(long)} */
    @Deprecated
    public static long[] coinVenderStatus(long status) {
        return SimCommon.coinVenderStatus(status);
    }

    /** @deprecated use {@link SimCommon#usbMemoryStatus(long)} */
    @Deprecated
    public static long[] usbMemoryStatus(long status) {
        return SimCommon.usbMemoryStatus(status);
    }

    /** @deprecated use {@link SimCommon#sleep(int)} */
    @Deprecated
    public static long[] sleep(int state) {
        return SimCommon.sleep(state);
    }

    /** @deprecated use {@link SimCommon#pbpConnectionError(int)} */
    @Deprecated
    public static long[] pbpConnectionError(int error) {
        return SimCommon.pbpConnectionError(error);
    }

    /** @deprecated use {@link SimCommon#logout(long)} */
    @Deprecated
    public static long[] logout(long reason) {
        return SimCommon.logout(reason);
    }

    /** @deprecated use {@link SimCommon#networkStateChanged(int)} */
    @Deprecated
    public static long[] networkStateChanged(int type) {
        return SimCommon.networkStateChanged(type);
    }

    /** @deprecated use {@link SimCommon#serviceStateChanged(int)} */
    @Deprecated
    public static long[] serviceStateChanged(int type) {
        return SimCommon.serviceStateChanged(type);
    }

    /** @deprecated use {@link SimCommon#requestActivate(int, long)} */
    @Deprecated
    public static long[] requestActivate(int scenario, long value) {
        return SimCommon.requestActivate(scenario, value);
    }

    /** @deprecated use {@link SimPanel#keyEvent(long, int)} */
    @Deprecated
    public static long[] keyEvent(long id, int event) {
        return SimPanel.keyEvent(id, event);
    }

    /** @deprecated use {@link SimPanel#autoPanelReset()} */
    @Deprecated
    public static long[] autoPanelReset() {
        return SimPanel.autoPanelReset();
    }

    /** @deprecated use {@link SimAcc#writeCardData(long, int, byte[])} */
    @Deprecated
    public static boolean writeCardData(long blockId, int offset, byte[] bytes) {
        return SimAcc.writeCardData(blockId, offset, bytes);
    }

    /** @deprecated use {@link SimAcc#iccardDetect(String, long, int, int)} */
    @Deprecated
    public static long[] iccardDetect(String cardId, long cardType, int cardDataSize, int blkid) {
        return SimAcc.iccardDetect(cardId, cardType, cardDataSize, blkid);
    }

    /** @deprecated use {@link SimAcc#iccardReadError(int)} */
    @Deprecated
    public static long[] iccardReadError(int code) {
        return SimAcc.iccardReadError(code);
    }

    /** @deprecated use {@link SimAcc#iccardStateChange(int, int, int, int)} */
    @Deprecated
    public static long[] iccardStateChange(int productId, int vendorId, int cardTypes, int state) {
        return SimAcc.iccardStateChange(productId, vendorId, cardTypes, state);
    }

    /** @deprecated use {@link SimJobs#jobStateChanged(int, long, int, int, String, int, int)} */
    @Deprecated
    public static long[] jobStateChanged(int state, long userJobId, int result, int jobMode, String userName, int inDev, int outDev) {
        return SimJobs.jobStateChanged(state, userJobId, result, jobMode, userName, inDev, outDev);
    }

    /** @deprecated use {@link SimJobs#scanCount(long, long)} */
    @Deprecated
    public static long[] scanCount(long first, long second) {
        return SimJobs.scanCount(first, second);
    }

    /** @deprecated use {@link SimJobs#startPhb(long)} */
    @Deprecated
    public static long[] startPhb(long id) {
        return SimJobs.startPhb(id);
    }

    /** @deprecated use {@link SimJobs#disableInfo(long)} */
    @Deprecated
    public static long[] disableInfo(long id) {
        return SimJobs.disableInfo(id);
    }

    /** @deprecated use {@link SimJobs#mainMessage(long)} */
    @Deprecated
    public static long[] mainMessage(long id) {
        return SimJobs.mainMessage(id);
    }

    /** @deprecated use {@link SimJobs#phbInfo(long)} */
    @Deprecated
    public static long[] phbInfo(long id) {
        return SimJobs.phbInfo(id);
    }

    /** @deprecated use {@link SimJobs#messageInfo(long)} */
    @Deprecated
    public static long[] messageInfo(long id) {
        return SimJobs.messageInfo(id);
    }

    /** @deprecated use {@link SimJobs#jobUpdateLog(long, long)} */
    @Deprecated
    public static long[] jobUpdateLog(long userJobId, long receiptId) {
        return SimJobs.jobUpdateLog(userJobId, receiptId);
    }

    /** @deprecated use {@link SimJobs#faxSendPage(long, long)} */
    @Deprecated
    public static long[] faxSendPage(long userJobId, long pageNum) {
        return SimJobs.faxSendPage(userJobId, pageNum);
    }

    /** @deprecated use {@link SimJobs#renintStart(long, int, long, String)} */
    @Deprecated
    public static long[] renintStart(long userJobId, int nameSetting, long interfaceInfo, String jobName) {
        return SimJobs.renintStart(userJobId, nameSetting, interfaceInfo, jobName);
    }

    /** @deprecated use {@link SimJobs#printPage(long[])} */
    @Deprecated
    public static long[] printPage(long[] fields) {
        return SimJobs.printPage(fields);
    }

    /** @deprecated use {@link SimJobs#scanPage(long[])} */
    @Deprecated
    public static long[] scanPage(long[] fields) {
        return SimJobs.scanPage(fields);
    }
}
