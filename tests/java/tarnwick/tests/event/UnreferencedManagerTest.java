package tarnwick.tests.event;

import static org.junit.jupiter.api.Assertions.assertArrayEquals;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertNotNull;
import static org.junit.jupiter.api.Assertions.assertNull;

import java.lang.ref.WeakReference;
import java.util.List;
import java.util.concurrent.atomic.AtomicInteger;
import org.junit.jupiter.api.AfterEach;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.extension.RegisterExtension;
import tarnwick.sim.SimPanel;
import tarnwick.tests.support.SimDeviceExtension;
import tarnwick.zel.wrapper.event.zel_fnd_event_manager;

/** {@code new zel_fnd_event_manager().init();} and no reference kept: events keep coming. */
class UnreferencedManagerTest {
    @RegisterExtension
    static final SimDeviceExtension device = new SimDeviceExtension();

    @AfterEach
    void clear() {
        ListenedProxy.clear();
    }

    private static WeakReference<zel_fnd_event_manager> startWithoutKeepingIt() {
        zel_fnd_event_manager manager = new zel_fnd_event_manager();
        manager.init();
        return new WeakReference<>(manager);
    }

    private static void collect() throws InterruptedException {
        for (int i = 0; i < 3; i++) {
            System.gc();
            System.runFinalization();
            Thread.sleep(20);
        }
    }

    @Test
    void aStartedManagerNobodyKeepsStillDeliversAfterCollections() throws Exception {
        AtomicInteger keys = new AtomicInteger();
        ListenedProxy.PANEL.listen(keys::incrementAndGet);
        WeakReference<zel_fnd_event_manager> weak = startWithoutKeepingIt();
        collect();
        assertNotNull(weak.get());
        for (int i = 1; i <= 3; i++) {
            assertArrayEquals(new long[] {0L}, SimPanel.keyEvent(i, 0));
            collect();
        }
        assertEquals(3, keys.get());

        // It can still be stopped from anywhere, and is then an ordinary object again.
        List<zel_fnd_event_manager> started = zel_fnd_event_manager.started();
        assertEquals(1, started.size());
        started.get(0).terminate();
        started = null;
        assertArrayEquals(new long[0], SimPanel.keyEvent(4, 0));
        for (int i = 0; i < 20 && weak.get() != null; i++) collect();
        assertNull(weak.get());
        assertEquals(3, keys.get());
    }

    @Test
    void aDeletedOrTerminatedManagerIsNoLongerKept() {
        zel_fnd_event_manager a = new zel_fnd_event_manager();
        zel_fnd_event_manager b = new zel_fnd_event_manager();
        a.init();
        b.init();
        assertEquals(2, zel_fnd_event_manager.started().size());
        a.terminate();
        assertEquals(List.of(b), zel_fnd_event_manager.started());
        b.delete();
        assertEquals(List.of(), zel_fnd_event_manager.started());
        a.init();
        assertEquals(List.of(a), zel_fnd_event_manager.started());
        a.delete();
        a.delete();  // a second delete does nothing
        assertEquals(List.of(), zel_fnd_event_manager.started());
    }
}
