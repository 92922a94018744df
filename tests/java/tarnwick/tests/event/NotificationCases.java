package tarnwick.tests.event;

import static org.junit.jupiter.api.Assertions.assertArrayEquals;
import static tarnwick.tests.event.EventFixture.OK;

import java.util.List;
import java.util.function.Supplier;
import org.junit.jupiter.api.extension.RegisterExtension;
import org.junit.jupiter.params.ParameterizedTest;
import org.junit.jupiter.params.provider.MethodSource;
import tarnwick.tests.support.SimDeviceExtension;

/**
 * The tests of an observer with simple notifications: a started event manager with recording
 * listeners ({@link EventFixture} {@code f}), and each case of the test class's static
 * {@code oneNotification()} ({@link EventFixture#notification}) raised once through the device:
 * answered OK, recorded by the listeners, traced by the observer.
 */
abstract class NotificationCases {
    @RegisterExtension
    static final SimDeviceExtension device = new SimDeviceExtension(false);

    @RegisterExtension
    final EventFixture f = new EventFixture();

    private final String module;

    /** {@code module}: the observer's source module, whose trace the cases read. */
    NotificationCases(String module) {
        this.module = module;
    }

    @ParameterizedTest(name = "{0}")
    @MethodSource("oneNotification")
    void oneNotificationReachesItsListener(String name, Supplier<long[]> raise, List<String> events, List<String> trace) {
        assertArrayEquals(OK, raise.get());
        f.assertSeen(events, module, trace);
    }
}
