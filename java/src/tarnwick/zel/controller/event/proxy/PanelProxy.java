package tarnwick.zel.controller.event.proxy;

/** Operation panel events: a key that starts an application, an automatic panel reset. */
public final class PanelProxy {
    /** Receives these events; every method has a do-nothing default. */
    public interface Listener {
        default void applStart(long id) {}

        default void autoReset() {}
    }

    private static final Listeners<Listener> LISTENERS = new Listeners<>();

    private PanelProxy() {}

    public static void addListener(Listener listener) {
        LISTENERS.add(listener);
    }

    public static boolean removeListener(Listener listener) {
        return LISTENERS.remove(listener);
    }

    public static void removeAllListeners() {
        LISTENERS.clear();
    }

    public static void fireApplStartEvent(long id) {
        LISTENERS.each(l -> l.applStart(id));
    }

    public static void fireAutoResetEvent() {
        LISTENERS.each(Listener::autoReset);
    }
}
