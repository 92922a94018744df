package tarnwick.zel.controller.event.proxy;

/**
 * Device-status events: key devices, covers, paper and toner, USB memory, sleep, logout, activations.
 *
 * <p>Listeners run on the common service's thread (shared with {@link SynchronousEventProxy}), one
 * event at a time. The device is told an event was handled whatever a listener throws; the first
 * exception (the others suppressed on it) stays with the thread and comes out of the library call
 * that caused the event when a listener of this service made it. See the package description for
 * what a listener may do.
 */
public class CommonProxy extends SynchronousEventProxy {
    /** Receives device-status events; every method has a do-nothing default. */
    public interface Listener {
        default void logout() {}

        default void communicationError() {}

        default void sleep(int state) {}

        default void completedActivation(int scenario, long value) {}

        default void usbDevice(int status) {}

        default void coinVendor(int status) {}

        default void tonerLevel(short first, short second) {}

        default void paperSourceLevel(int source, short level) {}

        default void cover(long status) {}

        default void wasteToner(short status) {}

        default void keyDevice(int status) {}
    }

    /**
     * The listeners of these events: {@code listeners.add(l)} (one added twice is called twice),
     * {@code listeners.remove(l)} (whether it was registered) and {@code listeners.clear()}.
     */
    public static final Listeners<Listener> listeners = new Listeners<>();

    protected CommonProxy() {}

    public static void fireLogoutEvent() {
        listeners.each(Listener::logout);
    }

    public static void fireCommunicationErrorEvent() {
        listeners.each(Listener::communicationError);
    }

    public static void fireSleepEvent(int state) {
        listeners.each(l -> l.sleep(state));
    }

    public static void fireCompletedActivationEvent(int scenario, long value) {
        listeners.each(l -> l.completedActivation(scenario, value));
    }

    public static void fireUSBDeviceEvent(int status) {
        listeners.each(l -> l.usbDevice(status));
    }

    public static void fireCoinVendorEvent(int status) {
        listeners.each(l -> l.coinVendor(status));
    }

    public static void fireTonerLevelEvent(short first, short second) {
        listeners.each(l -> l.tonerLevel(first, second));
    }

    public static void firePaperSourceLevelEvent(int source, short level) {
        listeners.each(l -> l.paperSourceLevel(source, level));
    }

    public static void fireCoverEvent(long status) {
        listeners.each(l -> l.cover(status));
    }

    public static void fireWasteTonerEvent(short status) {
        listeners.each(l -> l.wasteToner(status));
    }

    public static void fireKeyDeviceEvent(int status) {
        listeners.each(l -> l.keyDevice(status));
    }
}
