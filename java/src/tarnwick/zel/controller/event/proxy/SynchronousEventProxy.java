package tarnwick.zel.controller.event.proxy;

/**
 * Device events that wait for the application's answer or must be handled before the device goes
 * on: system and network restarts, preparing an activation, resident application state.
 *
 * <p>{@link CommonProxy} extends this class: the library asks {@code firePrepareActivationEvent}
 * through the CommonProxy class with the method of this class.
 *
 * <p>Listeners run on the common service's thread, one event at a time, as those of
 * {@link CommonProxy} do, and their exceptions go the same way. A listener that throws while an
 * activation is being prepared counts as a refusal. See the package description for what a listener
 * may do.
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

    /**
     * The listeners of these events: {@code listeners.add(l)} (one added twice is called twice),
     * {@code listeners.remove(l)} (whether it was registered) and {@code listeners.clear()}.
     */
    public static final Listeners<Listener> listeners = new Listeners<>();

    protected SynchronousEventProxy() {}

    public static void fireSystemRestartEvent(int type) {
        listeners.each(l -> l.systemRestart(type));
    }

    public static void fireNetworkRestartEvent(int type) {
        listeners.each(l -> l.networkRestart(type));
    }

    /** True when no listener refuses; with no listener at all nobody refuses. Every listener is asked. */
    public static boolean firePrepareActivationEvent(int scenario, long value) {
        boolean[] ready = {true};
        listeners.each(l -> ready[0] &= l.prepareActivation(scenario, value));
        return ready[0];
    }

    public static void fireResidentAppsStateChanged(int state) {
        listeners.each(l -> l.residentAppsStateChanged(state));
    }
}
