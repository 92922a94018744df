package tarnwick.tests.support;

import java.util.ArrayDeque;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.Deque;
import java.util.List;
import java.util.function.LongConsumer;
import java.util.function.LongSupplier;
import java.util.regex.Matcher;
import java.util.regex.Pattern;
import org.junit.jupiter.api.extension.AfterEachCallback;
import org.junit.jupiter.api.extension.BeforeAllCallback;
import org.junit.jupiter.api.extension.BeforeEachCallback;
import org.junit.jupiter.api.extension.ExtensionContext;
import tarnwick.sim.SimDevice;
import tarnwick.zel.controller.event.proxy.Listeners;
import tarnwick.zel.wrapper.event.ZELFNDEventJNI;
import tarnwick.zel.wrapper.system.cmt_commonJNI;

/**
 * The set-up every test on the simulated device shares: the library loaded once per VM and
 * started as an application starts it ({@code cmt_init.init()}), and before each test a device in
 * its initial state (every service reset, no forcings, no calls, an empty trace). What a case
 * makes through {@link #make}, {@link #listen} and {@link #startEventManager} is deleted after it.
 *
 * <pre>
 * &#64;RegisterExtension
 * static final SimDeviceExtension device = new SimDeviceExtension();
 * ...
 * long auth = device.make(ZELFNDUserJNI::new_zel_fnd_authentication, ZELFNDUserJNI::delete_zel_fnd_authentication);
 * assertEquals(List.of("3 login,[Start], cert_id=[0]"), SimDeviceExtension.trace("zel_fnd_authentication"));
 * </pre>
 */
public final class SimDeviceExtension implements BeforeAllCallback, BeforeEachCallback, AfterEachCallback {
    private static final Pattern LINE = Pattern.compile("^(\\d+) (\\w+)\\[\\d{4,}\\]::(.*)$");
    private static boolean loaded;

    private final boolean init;
    private final Deque<Runnable> deletes = new ArrayDeque<>();

    /** A started library and a fresh device before each test. */
    public SimDeviceExtension() {
        this(true);
    }

    /** {@code init} false: the library is loaded but {@code cmt_init.init()} is not called. */
    public SimDeviceExtension(boolean init) {
        this.init = init;
    }

    /** A started library and a fresh device now, for set-up that does not run under JUnit. */
    public static void start() {
        load();
        cmt_commonJNI.cmt_init_init();
        reset();
    }

    /** Loads the library once per VM. */
    public static synchronized void load() {
        if (loaded) return;
        System.loadLibrary("tovrCMT");
        loaded = true;
    }

    /** Every simulated service back to its initial state; no forcings, calls or trace. */
    public static void reset() {
        SimDevice.reset();
    }

    @Override
    public void beforeAll(ExtensionContext context) {
        load();
        if (init) cmt_commonJNI.cmt_init_init();
    }

    @Override
    public void beforeEach(ExtensionContext context) {
        reset();
    }

    /**
     * A native object for the running case: made now with {@code make}, handed to {@code delete}
     * after the case (after its own {@code @AfterEach} methods), the last made first.
     */
    public long make(LongSupplier make, LongConsumer delete) {
        long handle = make.getAsLong();
        deletes.push(() -> delete.accept(handle));
        return handle;
    }

    /** {@code listener} among a proxy's {@code listeners} for the running case, removed after it. */
    public <L> void listen(Listeners<L> listeners, L listener) {
        listeners.add(listener);
        deletes.push(() -> listeners.remove(listener));
    }

    /**
     * An event manager started for the running case (its observers registered with the device),
     * deleted after the case.
     *
     * @throws AssertionError when the manager does not start
     */
    public long startEventManager() {
        long manager = make(ZELFNDEventJNI::new_zel_fnd_event_manager, ZELFNDEventJNI::delete_zel_fnd_event_manager);
        if (!ZELFNDEventJNI.zel_fnd_event_manager_init(manager, null)) throw new AssertionError("the event manager did not start");
        return manager;
    }

    @Override
    public void afterEach(ExtensionContext context) {
        while (!deletes.isEmpty()) deletes.pop().run();
    }

    /** The trace lines of one source module as "level operation,message" (module and source line left out). */
    public static List<String> trace(String module) {
        List<String> out = new ArrayList<>();
        for (String line : SimDevice.traceLines()) {
            Matcher m = LINE.matcher(line);
            if (m.matches() && m.group(2).equals(module)) out.add(m.group(1) + " " + m.group(3));
        }
        return out;
    }

    /** What the library asked of a facade operation since the last reset, one entry a call. */
    public static List<String> calls(String op) {
        return Arrays.asList(SimDevice.calls(op));
    }

    /** {@code n} times the character {@code c}. */
    public static String repeat(char c, int n) {
        return String.valueOf(c).repeat(n);
    }
}
