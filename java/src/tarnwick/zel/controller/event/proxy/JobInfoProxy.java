package tarnwick.zel.controller.event.proxy;

import tarnwick.zel.controller.event.job.InterpreterInfo;
import tarnwick.zel.controller.event.job.JobLogInfo;

/**
 * Per-page and per-job information: printed, scanned and faxed pages, job-log entries, interpreter
 * starts.
 *
 * <p>Listeners run on the job-information service's thread, one event at a time. An exception of a
 * listener (the first, the others suppressed on it) is printed and cleared, and the device is told
 * the event failed; the listeners after it are called all the same. See the package description for
 * what a listener may do.
 */
public final class JobInfoProxy {
    /** Receives these events; every method has a do-nothing default. */
    public interface Listener {
        /** A PrintPageInfo, ScanPageInfo or FaxSendPageInfo; tell them apart by class. */
        default void page(Object info) {}

        default void jobLog(JobLogInfo info) {}

        default void interpreter(InterpreterInfo info) {}
    }

    /**
     * The listeners of these events: {@code listeners.add(l)} (one added twice is called twice),
     * {@code listeners.remove(l)} (whether it was registered) and {@code listeners.clear()}.
     */
    public static final Listeners<Listener> listeners = new Listeners<>();

    private JobInfoProxy() {}

    public static void firePageEvent(Object info) {
        listeners.each(l -> l.page(info));
    }

    public static void fireJobLogEvent(JobLogInfo info) {
        listeners.each(l -> l.jobLog(info));
    }

    public static void fireInterpreterEvent(InterpreterInfo info) {
        listeners.each(l -> l.interpreter(info));
    }
}
