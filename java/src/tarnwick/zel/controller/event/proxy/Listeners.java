package tarnwick.zel.controller.event.proxy;

import java.util.List;
import java.util.concurrent.CopyOnWriteArrayList;
import java.util.function.Consumer;

/**
 * The listeners of one proxy. Events arrive on device threads while applications add and remove
 * listeners on their own threads; each event goes to the listeners registered when it arrives.
 */
final class Listeners<L> {
    private final List<L> list = new CopyOnWriteArrayList<>();

    void add(L listener) {
        if (listener == null) throw new NullPointerException("listener");
        list.add(listener);
    }

    boolean remove(L listener) {
        return list.remove(listener);
    }

    void clear() {
        list.clear();
    }

    int size() {
        return list.size();
    }

    /** Hands the event to every listener in registration order; a listener that throws ends the delivery. */
    void each(Consumer<L> call) {
        for (L l : list) call.accept(l);
    }

    Iterable<L> snapshot() {
        return list;
    }
}
