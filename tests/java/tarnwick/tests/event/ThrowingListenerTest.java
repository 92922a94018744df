package tarnwick.tests.event;

import static org.junit.jupiter.api.Assertions.assertArrayEquals;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertSame;
import static org.junit.jupiter.api.Assertions.assertThrows;

import java.util.List;
import java.util.concurrent.atomic.AtomicInteger;
import java.util.concurrent.atomic.AtomicReference;
import org.junit.jupiter.api.AfterEach;
import org.junit.jupiter.api.BeforeEach;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.extension.RegisterExtension;
import org.junit.jupiter.params.ParameterizedTest;
import org.junit.jupiter.params.provider.EnumSource;
import tarnwick.sim.SimCommon;
import tarnwick.tests.support.SimDeviceExtension;
import tarnwick.zel.controller.event.proxy.CommonProxy;
import tarnwick.zel.controller.event.proxy.SynchronousEventProxy;
import tarnwick.zel.wrapper.device.attribute.CMT_System_Info;
import tarnwick.zel.wrapper.event.zel_fnd_event_manager;

/**
 * A listener that throws, followed by others, on every proxy: every listener gets every event,
 * and the first exception goes on (the later ones suppressed on it) as the observer of that proxy
 * takes it: job, job-information and card events answer the failure code, device-status and panel
 * events 0.
 */
class ThrowingListenerTest {
    @RegisterExtension
    static final SimDeviceExtension device = new SimDeviceExtension();

    private static final int EVENTS = 60;

    private final zel_fnd_event_manager manager = new zel_fnd_event_manager();

    @BeforeEach
    void start() {
        manager.init();
    }

    @AfterEach
    void clear() {
        manager.delete();
        ListenedProxy.clear();
    }

    @ParameterizedTest
    @EnumSource(ListenedProxy.class)
    void theListenerAfterAThrowingOneGetsEveryEvent(ListenedProxy p) {
        AtomicInteger thrown = new AtomicInteger();
        AtomicInteger counted = new AtomicInteger();
        p.listen(() -> {
            thrown.incrementAndGet();
            throw new IllegalStateException("listener failed");
        });
        p.listen(counted::incrementAndGet);
        for (int i = 1; i <= EVENTS; i++) assertArrayEquals(new long[] {p.thrownAnswer}, p.raise(i), "event " + i);
        assertEquals(EVENTS, thrown.get());
        assertEquals(EVENTS, counted.get());
    }

    @ParameterizedTest
    @EnumSource(ListenedProxy.class)
    void theFirstExceptionGoesOnWithTheLaterOnesSuppressed(ListenedProxy p) {
        IllegalStateException first = new IllegalStateException("first");
        AssertionError second = new AssertionError("second");
        UnsupportedOperationException third = new UnsupportedOperationException("third");
        AtomicInteger counted = new AtomicInteger();
        p.listen(() -> {
            throw first;
        });
        p.listen(counted::incrementAndGet);
        p.listen(() -> {
            throw second;
        });
        p.listen(() -> {
            throw third;
        });
        p.listen(counted::incrementAndGet);
        IllegalStateException e = assertThrows(IllegalStateException.class, () -> p.fire(1));
        assertSame(first, e);
        assertEquals(List.of(second, third), List.of(e.getSuppressed()));
        assertEquals(2, counted.get());
    }

    @Test
    void aThrowingListenerRefusesAnActivationAndTheOthersAreStillAsked() {
        AtomicInteger asked = new AtomicInteger();
        SynchronousEventProxy.listeners.add(new SynchronousEventProxy.Listener() {
            @Override public boolean prepareActivation(int scenario, long value) {
                throw new IllegalStateException("cannot prepare");
            }
        });
        SynchronousEventProxy.listeners.add(new SynchronousEventProxy.Listener() {
            @Override public boolean prepareActivation(int scenario, long value) {
                asked.incrementAndGet();
                return true;
            }
        });
        assertArrayEquals(new long[] {0x04010206L}, SimCommon.requestActivate(12, 5));
        assertEquals(1, asked.get());
        assertEquals(List.of("3 request_activate,[Start]", "0 request_activate,failed."),
                SimDeviceExtension.trace("zel_fnd_common_observer"));
    }

    @Test
    void aDeviceStatusListenersExceptionComesOutOfTheLibraryCallThatCausedTheEvent() {
        IllegalStateException fromSleep = new IllegalStateException("sleep listener");
        CommonProxy.listeners.add(new CommonProxy.Listener() {
            @Override public void sleep(int state) {
                throw fromSleep;
            }
        });
        AtomicReference<Throwable> caught = new AtomicReference<>();
        AtomicReference<Boolean> asleep = new AtomicReference<>();
        // A cover listener puts the device to sleep: the sleep event is delivered inside that call,
        // on the same thread, and its listener's exception comes out of the call.
        ListenedProxy.COMMON.listen(() -> {
            CMT_System_Info info = new CMT_System_Info();
            try {
                asleep.set(info.request_energy_saving_mode(1));
            } catch (Throwable t) {
                caught.set(t);
            } finally {
                info.delete();
            }
        });
        assertArrayEquals(new long[] {0L}, ListenedProxy.COMMON.raise(1));
        assertSame(fromSleep, caught.get());
        assertEquals(null, asleep.get());
        assertEquals(List.of("3 notify_cover_status,[Start]", "3 notify_sleep,[Start]", "3 notify_sleep,[End]",
                "3 notify_cover_status,[End]"), SimDeviceExtension.trace("zel_fnd_common_observer"));
    }
}
