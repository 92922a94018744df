package tarnwick.tests.event;

import static org.junit.jupiter.api.Assertions.assertArrayEquals;
import static org.junit.jupiter.api.Assertions.assertEquals;

import java.util.ArrayList;
import java.util.Collections;
import java.util.List;
import java.util.function.Supplier;
import org.junit.jupiter.api.extension.AfterEachCallback;
import org.junit.jupiter.api.extension.BeforeEachCallback;
import org.junit.jupiter.api.extension.ExtensionContext;
import org.junit.jupiter.params.provider.Arguments;
import tarnwick.sim.SimDevice;
import tarnwick.tests.support.EventProxies;
import tarnwick.tests.support.SimDeviceExtension;
import tarnwick.zel.controller.event.device.ICCardInfo;
import tarnwick.zel.controller.event.job.InterpreterInfo;
import tarnwick.zel.controller.event.job.Job;
import tarnwick.zel.controller.event.job.JobLogInfo;
import tarnwick.zel.controller.event.proxy.AccProxy;
import tarnwick.zel.controller.event.proxy.CommonProxy;
import tarnwick.zel.controller.event.proxy.JobInfoProxy;
import tarnwick.zel.controller.event.proxy.JobProxy;
import tarnwick.zel.controller.event.proxy.PanelProxy;
import tarnwick.zel.controller.event.proxy.SynchronousEventProxy;
import tarnwick.zel.wrapper.event.ZELFNDEventJNI;

/**
 * A started event manager, listeners that record every event as text, and trace helpers. Per test:
 * {@code @RegisterExtension final EventFixture f = new EventFixture();} (started before each test,
 * after the device's reset, and closed after it); within a test: {@code EventFixture.started(init)}.
 */
final class EventFixture implements AutoCloseable, BeforeEachCallback, AfterEachCallback {
    /** What an observer answers the device for an event it handled. */
    static final long[] OK = {0L};

    final List<String> events = Collections.synchronizedList(new ArrayList<>());
    final List<Object> objects = Collections.synchronizedList(new ArrayList<>());
    volatile boolean prepareAnswer = true;
    volatile RuntimeException throwFromListeners;
    long manager;

    /** A fixture started now; {@code init}: the event manager started too. */
    static EventFixture started(boolean init) {
        EventFixture f = new EventFixture();
        f.start(init);
        return f;
    }

    @Override
    public void beforeEach(ExtensionContext context) {
        start(true);
    }

    @Override
    public void afterEach(ExtensionContext context) {
        close();
    }

    private void start(boolean init) {
        SimDevice.reset();
        EventProxies.removeAllListeners();
        addListeners();
        manager = ZELFNDEventJNI.new_zel_fnd_event_manager();
        if (init) ZELFNDEventJNI.zel_fnd_event_manager_init(manager, null);
        SimDevice.clearTrace();
        SimDevice.clearCalls();
    }

    @Override
    public void close() {
        SimDevice.failAttach(0);
        ZELFNDEventJNI.delete_zel_fnd_event_manager(manager);
        manager = 0;
        EventProxies.removeAllListeners();
    }

    /**
     * A case of one notification: its name, the device raising it (answered {@link #OK}), what the
     * listeners record and what the observer traces.
     */
    static Arguments notification(String name, Supplier<long[]> raise, List<String> events, List<String> trace) {
        return Arguments.of(name, raise, events, trace);
    }

    /** The listeners recorded {@code expected}, and the observer {@code module} traced {@code trace}. */
    void assertSeen(List<String> expected, String module, List<String> trace) {
        assertEquals(expected, events);
        assertEquals(trace, SimDeviceExtension.trace(module));
    }

    /**
     * The device thread cannot attach for the next notifications: each of {@code raises} answers
     * {@code failed}, and nothing reaches the listeners or the trace of the observer {@code module}.
     */
    @SafeVarargs
    final void assertAttachFailures(long[] failed, String module, Supplier<long[]>... raises) {
        SimDevice.failAttach(raises.length);
        for (Supplier<long[]> raise : raises) assertArrayEquals(failed, raise.get());
        assertSeen(List.of(), module, List.of());
    }

    private void record(String event) {
        events.add(event);
        RuntimeException e = throwFromListeners;
        if (e != null) throw e;
    }

    private void addListeners() {
        CommonProxy.listeners.add(new CommonProxy.Listener() {
            @Override public void logout() { record("logout"); }
            @Override public void communicationError() { record("communicationError"); }
            @Override public void sleep(int state) { record("sleep " + state); }
            @Override public void completedActivation(int scenario, long value) { record("completedActivation " + scenario + " " + value); }
            @Override public void usbDevice(int status) { record("usbDevice " + status); }
            @Override public void coinVendor(int status) { record("coinVendor " + status); }
            @Override public void tonerLevel(short first, short second) { record("tonerLevel " + first + " " + second); }
            @Override public void paperSourceLevel(int source, short level) { record("paperSourceLevel " + source + " " + level); }
            @Override public void cover(long status) { record("cover " + status); }
            @Override public void wasteToner(short status) { record("wasteToner " + status); }
            @Override public void keyDevice(int status) { record("keyDevice " + status); }
        });
        SynchronousEventProxy.listeners.add(new SynchronousEventProxy.Listener() {
            @Override public void systemRestart(int type) { record("systemRestart " + type); }
            @Override public void networkRestart(int type) { record("networkRestart " + type); }
            @Override public boolean prepareActivation(int scenario, long value) {
                record("prepareActivation " + scenario + " " + value);
                return prepareAnswer;
            }
            @Override public void residentAppsStateChanged(int state) { record("residentAppsStateChanged " + state); }
        });
        JobProxy.listeners.add(new JobProxy.Listener() {
            @Override public void jobStateChanged(Job job) {
                objects.add(job);
                record("jobStateChanged " + job.getJobid() + " " + job.getState() + " " + job.getJobMode() + " "
                        + job.getUserName() + " " + job.getIndev() + " " + job.getOutdev());
            }
            @Override public void scanCount(long a, long b) { record("scanCount " + a + " " + b); }
            @Override public void startProhibition(long id) { record("startProhibition " + id); }
            @Override public void combConstraint(long id) { record("combConstraint " + id); }
            @Override public void panelMessageUpdate(long id) { record("panelMessageUpdate " + id); }
        });
        JobInfoProxy.listeners.add(new JobInfoProxy.Listener() {
            @Override public void page(Object info) { objects.add(info); record("page " + info); }
            @Override public void jobLog(JobLogInfo info) { objects.add(info); record("jobLog " + info); }
            @Override public void interpreter(InterpreterInfo info) { objects.add(info); record("interpreter " + info); }
        });
        AccProxy.listeners.add(new AccProxy.Listener() {
            @Override public void icCard(ICCardInfo info) { objects.add(info); record("icCard " + info.getCardId()); }
            @Override public void icCardError(int code) { record("icCardError " + code); }
            @Override public void icCardDevice(int vendor, int product, boolean connected, byte types) {
                record("icCardDevice " + vendor + " " + product + " " + connected + " " + types);
            }
        });
        PanelProxy.listeners.add(new PanelProxy.Listener() {
            @Override public void applStart(long id) { record("applStart " + id); }
            @Override public void autoReset() { record("autoReset"); }
        });
    }

    static List<String> list(String... items) {
        List<String> out = new ArrayList<>();
        Collections.addAll(out, items);
        return out;
    }
}
