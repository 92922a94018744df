package tarnwick.sim;

/**
 * Control of the simulated job service from Java tests: pace of the device thread, injected
 * faults, holding jobs, and waiting for a job to end. Never part of the library's own jar.
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
}
