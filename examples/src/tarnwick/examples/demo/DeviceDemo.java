package tarnwick.examples.demo;

import java.io.File;
import java.io.IOException;
import java.net.BindException;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.Map;
import java.util.concurrent.CountDownLatch;
import java.util.concurrent.TimeUnit;
import java.util.concurrent.atomic.AtomicReference;

/**
 * The device on the desk: the simulated device with sample data, the scan-to-e-mail application,
 * and either a short walk through the application followed by the front panel, or a scenario.
 * {@code scripts/main.sh} runs it (and names itself in the messages through the system property
 * {@code tovr.command}).
 */
public final class DeviceDemo {
    static final String COMMAND = System.getProperty("tovr.command", "DeviceDemo");
    static final String HELP = String.join("\n",
            "usage: " + COMMAND + " [option ...]",
            "  (no option)          walk through scan to e-mail, then serve the front panel (Ctrl-C ends)",
            "  --port N             the panel on port N (0, the default: a free one; the port is printed)",
            "  --no-panel           the walk through only",
            "  --no-walk            the panel only",
            "  --scenario FILE      play a scenario; exit 0 when every expectation held, 1 when one did",
            "                       not, 2 for a file with lines that are not steps",
            "  --pace MS            the simulated device's pause between two steps of a job (0-10000, default 150)",
            "  --root DIR           where the drives' folders and the panel's recordings go",
            "  --port-file FILE     write the panel's port into FILE once it listens",
            "  --help               this text");

    /** A bad argument: one line on standard error, exit 2. */
    private static void usage(String why) {
        System.err.println(COMMAND + ": " + why + " (" + COMMAND + " --help lists the options)");
        System.exit(2);
    }

    private static int number(String option, String value, int min, int max) {
        try {
            int n = Integer.parseInt(value);
            if (n >= min && n <= max) return n;
        } catch (NumberFormatException e) {
            // said below
        }
        usage(option + " takes a number from " + min + " to " + max + ", not \"" + value + "\"");
        return 0;
    }

    public static void main(String[] args) throws Exception {
        String scenario = null, portFile = null;
        File root = new File("demo-device");
        int port = 0, pace = 150;
        boolean panel = true, walk = true;
        for (int i = 0; i < args.length; ++i) {
            String a = args[i];
            boolean takesValue = a.equals("--scenario") || a.equals("--root") || a.equals("--port") || a.equals("--pace")
                    || a.equals("--port-file");
            if (takesValue && i + 1 >= args.length) usage(a + " needs a value");
            switch (a) {
                case "--help": case "-h":
                    System.out.println(HELP);
                    return;
                case "--scenario": scenario = args[++i]; break;
                case "--root": root = new File(args[++i]); break;
                case "--port": port = number(a, args[++i], 0, 65535); break;
                case "--pace": pace = number(a, args[++i], 0, 10000); break;
                case "--port-file": portFile = args[++i]; break;
                case "--no-panel": panel = false; break;
                case "--no-walk": walk = false; break;
                default: usage("unknown option \"" + a + "\"");
            }
        }
        if (scenario != null && !Files.isRegularFile(Path.of(scenario))) usage("there is no scenario file " + scenario);

        ScanToEmailApp app = new ScanToEmailApp();
        DemoDevice device = new DemoDevice(app);
        device.setUp(root, pace);
        app.start();
        device.plugInitialStick();
        System.out.println("device: sample data loaded (users alice/secret with card " + DemoDevice.CARD_ALICE
                + ", bob/bobpw, carol/carolpw; departments " + String.join(", ", tarnwick.sim.SimUsers.deptIds())
                + "; " + tarnwick.sim.SimAddressBook.size() + " addresses; drives under " + root.getAbsolutePath() + ")");

        if (scenario != null) {
            int rc = Scenario.play(Path.of(scenario), app, device, System.out);
            app.stop();
            System.exit(rc);
        }
        PanelServer server = null;
        if (panel) {
            // The port is taken before the walk, so a port in use is said at once.
            server = new PanelServer(app, device, root.toPath().toAbsolutePath().resolve("recordings"));
            try {
                port = server.start(port);
            } catch (BindException e) {
                app.stop();
                usage("port " + port + " is in use (choose another with --port, or --port 0 for a free one)");
            } catch (IOException e) {
                app.stop();
                usage("the panel cannot listen on port " + port + ": " + e.getMessage());
            }
        }
        if (walk) walk(app, device);
        if (!panel) {
            app.stop();
            System.exit(0);
        }
        System.out.println("panel: http://127.0.0.1:" + port + "/   (Ctrl-C ends)");
        if (portFile != null) Files.writeString(Path.of(portFile), port + "\n", StandardCharsets.UTF_8);
        if (!walk) app.log.watch(e -> System.out.println("  event " + e));
        CountDownLatch end = new CountDownLatch(1);
        PanelServer running = server;
        Runtime.getRuntime().addShutdownHook(new Thread(() -> {
            running.stop();
            end.countDown();
        }));
        end.await();
    }

    /** What a user does at the machine, printed as it happens. */
    private static void walk(ScanToEmailApp app, DemoDevice device) throws Exception {
        app.log.watch(e -> System.out.println("  event " + e));
        System.out.println("walk: machine values");
        AtomicReference<Map<String, String>> values = new AtomicReference<>();
        app.submit(() -> values.set(app.machineValues())).get();
        values.get().forEach((k, v) -> System.out.printf("    %-14s %s%n", k, v));
        System.out.println("walk: alice holds her card to the reader");
        device.holdCard(DemoDevice.CARD_ALICE);
        waitFor(app, "Login", 5000);
        System.out.println("walk: address book search \"Dana\", choose it");
        app.submit(() -> app.chooseDestination("Dana")).get();
        System.out.println("walk: start key: scan to e-mail, 3 pages");
        device.pressKey("start");
        waitFor(app, "JobEnded", 30000);
        waitFor(app, "SendHistory", 5000);
        System.out.println("walk: copy the scan to USB memory 0");
        int seq = app.log.lastSeq();
        app.startCopy(0, 0, 0);
        if (app.log.await(seq, "CopyDone", java.util.List.of(), 30000) == null) System.out.println("walk: no CopyDone event");
        System.out.println("walk: log out");
        app.submit(app::logout).get(10, TimeUnit.SECONDS);
        app.submit(() -> values.set(app.machineValues())).get();
        values.get().forEach((k, v) -> System.out.printf("    %-14s %s%n", k, v));
    }

    private static void waitFor(ScanToEmailApp app, String kind, long ms) throws InterruptedException {
        if (app.log.await(0, kind, java.util.List.of(), ms) == null) System.out.println("walk: no " + kind + " event");
    }
}
