package tarnwick.zel.controller.event.proxy;

import tarnwick.zel.controller.event.job.Job;

/**
 * Job events: state changes, scan progress, start prohibition, combination constraints, panel
 * messages.
 *
 * <p>Listeners run on the job service's thread, one event at a time. An exception of a listener (the
 * first, the others suppressed on it) is printed and cleared, and the device is told the event
 * failed; the listeners after it are called all the same. See the package description for what a
 * listener may do.
 */
public final class JobProxy {
    /** Receives these events; every method has a do-nothing default. */
    public interface Listener {
        default void jobStateChanged(Job job) {}

        default void scanCount(long first, long second) {}

        default void startProhibition(long id) {}

        default void combConstraint(long id) {}

        default void panelMessageUpdate(long id) {}
    }

    /**
     * The listeners of these events: {@code listeners.add(l)} (one added twice is called twice),
     * {@code listeners.remove(l)} (whether it was registered) and {@code listeners.clear()}.
     */
    public static final Listeners<Listener> listeners = new Listeners<>();

    private JobProxy() {}

    public static void fireJobStateChangedEvent(Job job) {
        listeners.each(l -> l.jobStateChanged(job));
    }

    public static void fireScanCountEvent(long first, long second) {
        listeners.each(l -> l.scanCount(first, second));
    }

    public static void fireStartProhibitionEvent(long id) {
        listeners.each(l -> l.startProhibition(id));
    }

    public static void fireCombConstraintEvent(long id) {
        listeners.each(l -> l.combConstraint(id));
    }

    public static void firePanelMessageUpdateEvent(long id) {
        listeners.each(l -> l.panelMessageUpdate(id));
    }
}
