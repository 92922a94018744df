package tarnwick.zel.controller.event.proxy;

/**
 * Operation panel events: a key that starts an application, an automatic panel reset.
 *
 * <p>Listeners run on the panel service's thread, one event at a time. The panel is told an event
 * was handled whatever a listener throws; the first exception (the others suppressed on it) stays
 * with the thread and comes out of the library call that caused the event when a listener of this
 * service made it. A listener may end the application here, stopping or deleting the event
 * manager. See the package description for what a listener may do.
 */
public final class PanelProxy {
    /** Receives these events; every method has a do-nothing default. */
    public interface Listener {
        default void applStart(long id) {}

        default void autoReset() {}
    }

    /**
     * The listeners of these events: {@code listeners.add(l)} (one added twice is called twice),
     * {@code listeners.remove(l)} (whether it was registered) and {@code listeners.clear()}.
     */
    public static final Listeners<Listener> listeners = new Listeners<>();

    private PanelProxy() {}

    public static void fireApplStartEvent(long id) {
        listeners.each(l -> l.applStart(id));
    }

    public static void fireAutoResetEvent() {
        listeners.each(Listener::autoReset);
    }
}
