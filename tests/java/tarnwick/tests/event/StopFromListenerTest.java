package tarnwick.tests.event;

import static org.junit.jupiter.api.Assertions.assertArrayEquals;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static org.junit.jupiter.api.Assertions.assertTrue;
import static tarnwick.tests.event.EventFixture.OK;

import java.util.List;
import java.util.concurrent.CountDownLatch;
import java.util.concurrent.TimeUnit;
import java.util.concurrent.atomic.AtomicBoolean;
import java.util.concurrent.atomic.AtomicInteger;
import java.util.concurrent.atomic.AtomicReference;
import org.junit.jupiter.api.AfterEach;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.extension.RegisterExtension;
import org.junit.jupiter.params.ParameterizedTest;
import org.junit.jupiter.params.provider.EnumSource;
import tarnwick.sim.SimDevice;
import tarnwick.tests.support.SimDeviceExtension;
import tarnwick.zel.wrapper.event.zel_fnd_event_manager;

/**
 * A listener that stops, deletes or restarts the event manager, for every observer: the
 * notification under way ends normally (nothing of the destroyed observer is used after Java
 * returns: the AddressSanitizer JVM runs this too), later events reach only a started manager.
 */
class StopFromListenerTest {
    @RegisterExtension
    static final SimDeviceExtension device = new SimDeviceExtension();

    private static final long[] NO_OBSERVER = {};

    @AfterEach
    void clear() {
        ListenedProxy.clear();
    }

    private static void assertObservers(int count) {
        for (String facade : ListenedProxy.FACADES) assertEquals(count, SimDevice.observerCount(facade), facade);
    }

    // The notification ran to its end: its last trace line is the end line.
    private static void assertNotificationEnded(ListenedProxy p) {
        List<String> trace = SimDeviceExtension.trace(p.observer);
        assertFalse(trace.isEmpty());
        assertTrue(trace.get(trace.size() - 1).endsWith(",[End]"), trace.toString());
    }

    private static zel_fnd_event_manager startedManager() {
        zel_fnd_event_manager manager = new zel_fnd_event_manager();
        manager.init();
        return manager;
    }

    // The first event through p: answered, its notification ran to its end, `observers` observers left.
    private static void raiseFirst(ListenedProxy p, int observers) {
        assertArrayEquals(OK, p.raise(1));
        assertNotificationEnded(p);
        assertObservers(observers);
    }

    // A listener on p that counts its calls, then runs `step`; its count.
    private static AtomicInteger countingListener(ListenedProxy p, Runnable step) {
        AtomicInteger calls = new AtomicInteger();
        p.listen(() -> {
            calls.incrementAndGet();
            step.run();
        });
        return calls;
    }

    @ParameterizedTest
    @EnumSource(ListenedProxy.class)
    void aListenerThatDeletesTheManager(ListenedProxy p) {
        zel_fnd_event_manager manager = startedManager();
        AtomicInteger calls = countingListener(p, manager::delete);
        raiseFirst(p, 0);
        assertEquals(1, calls.get());
        assertArrayEquals(NO_OBSERVER, p.raise(2));
        assertEquals(1, calls.get());
        IllegalStateException e = assertThrows(IllegalStateException.class, manager::init);
        assertEquals("zel_fnd_event_manager has been deleted", e.getMessage());
    }

    @ParameterizedTest
    @EnumSource(ListenedProxy.class)
    void aListenerThatTerminatesTheManager(ListenedProxy p) {
        zel_fnd_event_manager manager = startedManager();
        AtomicInteger calls = countingListener(p, () -> assertTrue(manager.terminate()));
        raiseFirst(p, 0);
        assertArrayEquals(NO_OBSERVER, p.raise(2));
        assertEquals(1, calls.get());
        assertEquals(List.of(), zel_fnd_event_manager.started());
        manager.delete();
    }

    @ParameterizedTest
    @EnumSource(ListenedProxy.class)
    void aListenerThatTerminatesAndStartsTheManagerAgain(ListenedProxy p) {
        zel_fnd_event_manager manager = startedManager();
        AtomicInteger calls = new AtomicInteger();
        p.listen(() -> {
            if (calls.incrementAndGet() == 1) {
                manager.terminate();
                manager.init();
            }
        });
        raiseFirst(p, 1);
        assertEquals(1, calls.get());
        // The new observers take the later events, each once.
        assertArrayEquals(OK, p.raise(2));
        assertArrayEquals(OK, p.raise(3));
        assertEquals(3, calls.get());
        assertEquals(List.of(manager), zel_fnd_event_manager.started());
        manager.delete();
        assertObservers(0);
    }

    @Test
    void theApplicationStopsTheManagerWhileAListenerDeletesIt() throws Exception {
        zel_fnd_event_manager manager = startedManager();
        CountDownLatch inListener = new CountDownLatch(1);
        AtomicBoolean deleted = new AtomicBoolean();
        AtomicReference<Throwable> failure = new AtomicReference<>();
        ListenedProxy.PANEL.listen(() -> {
            inListener.countDown();
            try {
                // The application's terminate() has reached the panel facade and waits for this
                // notification to end.
                long deadline = System.nanoTime() + TimeUnit.SECONDS.toNanos(10);
                while (SimDeviceExtension.calls("esv_zel_panel_remove_observer").isEmpty()) {
                    if (System.nanoTime() > deadline) throw new AssertionError("terminate() never reached the panel");
                    Thread.sleep(5);
                }
                manager.delete();  // "the reset key ends the application"
                deleted.set(true);
            } catch (Throwable t) {
                failure.set(t);
            }
        });
        AtomicReference<long[]> answers = new AtomicReference<>();
        Thread key = new Thread(() -> answers.set(ListenedProxy.PANEL.raise(7)), "panel-key");
        key.start();
        assertTrue(inListener.await(10, TimeUnit.SECONDS));
        assertTrue(manager.terminate());  // returns once the listener has returned
        key.join(10_000);
        assertFalse(key.isAlive());
        assertEquals(null, failure.get());
        assertTrue(deleted.get());
        assertArrayEquals(OK, answers.get());
        assertObservers(0);
        assertThrows(IllegalStateException.class, manager::terminate);
        assertEquals(List.of(), zel_fnd_event_manager.started());
    }
}
