package tarnwick.examples.demo;

import java.io.File;
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
 *
 * usage: DeviceDemo [--root DIR] [--port N] [--pace MS] [--no-panel] [--no-walk] [--port-file F]
 *        DeviceDemo --scenario FILE [--root DIR] [--pace MS]
 */
public final class DeviceDemo {
    private static void usage(String why) {
        System.err.println("DeviceDemo: " + why);
        System.err.println("usage: DeviceDemo [--root DIR] [--port N] [--pace MS] [--no-panel] [--no-walk] [--port-file F]");
        System.err.println("       DeviceDemo --scenario FILE [--root DIR] [--pace MS]");
        System.exit(2);
    }

    public static void main(String[] args) throws Exception {
        String scenario = null, portFile = null;
        File root = new File("demo-device");
        int port = 0, pace = 150;
        boolean panel = true, walk = true;
        for (int i = 0; i < args.length; ++i) {
            String a = args[i];
            boolean hasValue = i + 1 < args.length;
            try {
                switch (a) {
                    case "--scenario": if (!hasValue) usage("--scenario needs a file"); scenario = args[++i]; break;
                    case "--root": if (!hasValue) usage("--root needs a folder"); root = new File(args[++i]); break;
                    case "--port": if (!hasValue) usage("--port needs a number"); port = Integer.parseInt(args[++i]); break;
                    case "--pace": if (!hasValue) usage("--pace needs a number"); pace = Integer.parseInt(args[++i]); break;
                    case "--port-file": if (!hasValue) usage("--port-file needs a file"); portFile = args[++i]; break;
                    case "--no-panel": panel = false; break;
                    case "--no-walk": walk = false; break;
                    default: usage("unknown argument " + a);
                }
            } catch (NumberFormatException e) {
                usage(a + " needs a number");
            }
        }
        if (port < 0 || port > 65535) usage("--port is 0 to 65535");
        if (pace < 0 || pace > 10000) usage("--pace is 0 to 10000 ms");
        if (scenario != null && !Files.isRegularFile(Path.of(scenario))) usage("no scenario file " + scenario);

        System.loadLibrary("tovrCMT");
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
        if (walk) walk(app, device);
        if (!panel) {
            app.stop();
            System.exit(0);
        }
        PanelServer server = new PanelServer(app, device);
        int bound = server.start(port);
        System.out.println("panel: http://127.0.0.1:" + bound + "/   (Ctrl-C ends)");
        if (portFile != null) Files.writeString(Path.of(portFile), bound + "\n", StandardCharsets.UTF_8);
        if (!walk) app.log.watch(e -> System.out.println("  event " + e));
        CountDownLatch end = new CountDownLatch(1);
        Runtime.getRuntime().addShutdownHook(new Thread(() -> {
            server.stop();
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
        app.submit(() -> app.copyToRemovable(2, "")).get(30, TimeUnit.SECONDS);
        System.out.println("walk: log out");
        app.submit(app::logout).get();
        app.submit(() -> values.set(app.machineValues())).get();
        values.get().forEach((k, v) -> System.out.printf("    %-14s %s%n", k, v));
    }

    private static void waitFor(ScanToEmailApp app, String kind, long ms) throws InterruptedException {
        if (app.log.await(0, kind, java.util.List.of(), ms) == null) System.out.println("walk: no " + kind + " event");
    }
}
