package tarnwick.sim;

/**
 * Control of the simulated job service (job and job-information facades) from Java tests: pace
 * of the device thread, injected faults, holding jobs, waiting for a job to end, and the two
 * facades' notifications (each call waits for every registered observer's answer and returns
 * them, in registration order, as unsigned 32-bit values). Never part of the library's own jar.
 * See tovr_sim_job.h.
 */
public final class SimJobs {
    static {
        System.loadLibrary("tovrsimctl");
    }

    private SimJobs() {}

    /** Drops every set, job, log entry and list; ids start again (sets 1, jobs 101, receipts 5001). */
    public static native void reset();

    /** Pause of the device thread between two steps of a job. */
    public static native void setPace(int milliseconds);

    /** The next {@code times} kicked jobs end with ERROR, result_err {@code errorCode}. */
    public static native void injectFault(int times, int errorCode);

    /** While held, running jobs stop before their log entry; a cancel then ends them with CANCEL. */
    public static native void hold(boolean on);

    /** Waits until the job has ended; false on timeout. */
    public static native boolean waitJobDone(long userJobId, int timeoutMs);

    /** Waits until the job is held (or waits for continuous reading to end); false on timeout. */
    public static native boolean waitJobHeld(long userJobId, int timeoutMs);

    /** Receipt id of a finished job's log entry, 0 when none. */
    public static native long receiptOf(long userJobId);

    /** All scan data the job produced so far. */
    public static native byte[] scanDataOf(long userJobId);

    /** Bytes per scanned page. */
    public static native int scanPageBytes();

    // job facade notifications
    public static native long[] jobStateChanged(int state, long userJobId, int result, int jobMode, String userName,
                                                int inDev, int outDev);
    public static native long[] scanCount(long first, long second);
    public static native long[] startPhb(long id);
    public static native long[] disableInfo(long id);
    public static native long[] mainMessage(long id);
    public static native long[] phbInfo(long id);
    public static native long[] messageInfo(long id);

    // job-information facade notifications
    public static native long[] jobUpdateLog(long userJobId, long receiptId);
    public static native long[] faxSendPage(long userJobId, long pageNum);
    /** A null name reaches the observer as a null pointer. */
    public static native long[] renintStart(long userJobId, int nameSetting, long interfaceInfo, String jobName);
    /** Fields: user job id, page, output dev, input dev, custom x, custom y, paper size, type, direction, weight, duplex, staple, punch, colour mode. */
    public static native long[] printPage(long[] fields);
    /** Fields: user job id, page, custom x, custom y, paper size, direction, duplex, colour mode, resolution. */
    public static native long[] scanPage(long[] fields);
}
