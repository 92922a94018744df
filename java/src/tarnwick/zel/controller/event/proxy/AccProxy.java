package tarnwick.zel.controller.event.proxy;

import tarnwick.zel.controller.event.device.ICCardInfo;

/**
 * IC card reader events: a card was read, a card could not be read, the reader changed state.
 *
 * <p>Listeners run on the access-control service's thread, one event at a time. An exception of a
 * listener (the first, the others suppressed on it) is printed and cleared, and the reader is told
 * the event failed; the listeners after it are called all the same. See the package description for
 * what a listener may do.
 */
public final class AccProxy {
    /** Receives these events; every method has a do-nothing default. */
    public interface Listener {
        default void icCard(ICCardInfo info) {}

        default void icCardError(int code) {}

        default void icCardDevice(int vendorId, int productId, boolean connected, byte cardTypes) {}
    }

    /**
     * The listeners of these events: {@code listeners.add(l)} (one added twice is called twice),
     * {@code listeners.remove(l)} (whether it was registered) and {@code listeners.clear()}.
     */
    public static final Listeners<Listener> listeners = new Listeners<>();

    private AccProxy() {}

    public static void fireICCardEvent(ICCardInfo info) {
        listeners.each(l -> l.icCard(info));
    }

    public static void fireICCardErrorEvent(int code) {
        listeners.each(l -> l.icCardError(code));
    }

    public static void fireICCardDeviceEvent(int vendorId, int productId, boolean connected, byte cardTypes) {
        listeners.each(l -> l.icCardDevice(vendorId, productId, connected, cardTypes));
    }
}
