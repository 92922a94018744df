package tarnwick.zel.controller.event.proxy;

import java.util.List;
import java.util.concurrent.CopyOnWriteArrayList;
import java.util.function.Consumer;

/**
 * The listeners of one event proxy, the same for every proxy: {@code JobProxy.listeners.add(l)},
 * {@code .remove(l)}, {@code .clear()}. Events arrive on device threads while applications add and
 * remove listeners on their own threads, from any thread; each event goes to the listeners
 * registered when it arrives (a listener removed during a delivery may still receive that delivery).
 *
 * @param <L> the proxy's listener interface
 */
public final class Listeners<L> {
    private final List<L> list = new CopyOnWriteArrayList<>();

    Listeners() {}

    /**
     * Adds a listener; one added twice is called twice.
     *
     * @param listener the listener, not null
     * @throws NullPointerException when {@code listener} is null
     */
    public void add(L listener) {
        if (listener == null) throw new NullPointerException("listener");
        list.add(listener);
    }

    /**
     * Removes a listener (its first registration when added more than once).
     *
     * @param listener the listener
     * @return whether it was registered
     */
    public boolean remove(L listener) {
        return list.remove(listener);
    }

    /** Removes every listener. */
    public void clear() {
        list.clear();
    }

    int size() {
        return list.size();
    }

    /**
     * Hands the event to every listener in registration order, whatever any of them throws. When
     * the last one has run, the first exception thrown goes on to the caller (the library), the
     * later ones attached to it as suppressed.
     */
    void each(Consumer<L> call) {
        Throwable first = null;
        for (L l : list) {
            try {
                call.accept(l);
            } catch (Throwable t) {
                if (first == null) {
                    first = t;
                } else if (t != first) {
                    first.addSuppressed(t);
                }
            }
        }
        if (first != null) throw Listeners.<RuntimeException>rethrow(first);
    }

    // Throws `t` as it is, checked or not (a listener cannot declare one, but may throw one).
    @SuppressWarnings("unchecked")
    private static <T extends Throwable> T rethrow(Throwable t) throws T {
        throw (T) t;
    }
}
