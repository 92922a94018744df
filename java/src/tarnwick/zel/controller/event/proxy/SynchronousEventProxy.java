package tarnwick.zel.controller.event.proxy;

/**
 * Device events that wait for the application's answer or must be handled before the device goes
 * on: system and network restarts, preparing an activation, resident application state.
 *
 * <p>{@link CommonProxy} extends this class: the library asks {@code firePrepareActivationEvent}
 * through the CommonProxy class with the method of this class.
 */
public class SynchronousEventProxy {
    /** Receives synchronous events; every method has a do-nothing default. */
    public interface Listener {
        default void systemRestart(int type) {}

        default void networkRestart(int type) {}

        /** Whether the activation may be prepared; every listener must agree. */
        default boolean prepareActivation(int scenario, long value) {
            return true;
        }

        default void residentAppsStateChanged(int state) {}
    }

    private static final Listeners<Listener> LISTENERS = new Listeners<>();

    protected SynchronousEventProxy() {}

    public static void addListener(Listener listener) {
        LISTENERS.add(listener);
    }

    public static boolean removeListener(Listener listener) {
        return LISTENERS.remove(listener);
    }

    public static void removeAllListeners() {
        LISTENERS.clear();
    }

    public static void fireSystemRestartEvent(int type) {
        LISTENERS.each(l -> l.systemRestart(type));
    }

    public static void fireNetworkRestartEvent(int type) {
        LISTENERS.each(l -> l.networkRestart(type));
    }

    /** True when no listener refuses; with no listener at all nobody refuses. */
    public static boolean firePrepareActivationEvent(int scenario, long value) {
        boolean ready = true;
        for (Listener l : LISTENERS.snapshot()) {
            ready &= l.prepareActivation(scenario, value);
        }
        return ready;
    }

    public static void fireResidentAppsStateChanged(int state) {
        LISTENERS.each(l -> l.residentAppsStateChanged(state));
    }
}
