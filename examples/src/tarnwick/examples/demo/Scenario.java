package tarnwick.examples.demo;

import java.io.IOException;
import java.io.PrintStream;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.List;
import java.util.Locale;
import java.util.Map;
import java.util.concurrent.ExecutionException;
import java.util.concurrent.TimeUnit;
import java.util.concurrent.TimeoutException;
import java.util.concurrent.atomic.AtomicReference;

/**
 * A scripted session at the machine: one step a line, '#' starts a comment. The steps are
 * checked before anything runs; then each runs in order and events are printed as they arrive.
 * An expectation looks at events after the one the previous expectation matched.
 */
public final class Scenario {
    public static final String STEPS = String.join("\n",
            "  wait <n> s|ms",
            "  hold card <hex id>",
            "  login <user> <password>            (waits for the answer)",
            "  logout",
            "  press key start|stop|reset|home",
            "  choose destination <name prefix>   (first address-book match with a mail address)",
            "  set pages <1-" + ScanToEmailApp.MAX_PAGES + ">",
            "  scan to email                      (starts it, like the start key)",
            "  fail next <operation> with <code> [times <n>]",
            "  inject job fault <code>",
            "  plug usb <0|1>   |   unplug usb <0|1>",
            "  open cover   |   close cover",
            "  toner ok|low|empty",
            "  paper tray <1|2> level <0-100>",
            "  sleep   |   wake",
            "  copy to usb <0|1> [size <1-" + ScanToEmailApp.MAX_DOCUMENT_MB + "> MB] [rate <1-1000> MB/s]   (the last scan, or a document of that size)",
            "  cancel copy",
            "  show machine   |   show box <folder>",
            "  expect event <Kind> [word ...] within <n> s",
            "  expect no event <Kind> [word ...] within <n> s",
            "  expect user <login>   |   expect no user",
            "kinds: " + String.join(" ", EventLog.KINDS));

    /** One parsed line. */
    static final class Step {
        final int line;
        final String text;
        final String[] w;

        Step(int line, String text) {
            this.line = line;
            this.text = text;
            this.w = text.trim().split("\\s+");
        }
    }

    private final String name;
    private final List<Step> steps;
    private final ScanToEmailApp app;
    private final DemoDevice device;
    private final PrintStream out;
    private int cursor;

    private Scenario(String name, List<Step> steps, ScanToEmailApp app, DemoDevice device, PrintStream out) {
        this.name = name;
        this.steps = steps;
        this.app = app;
        this.device = device;
        this.out = out;
    }

    /** Thrown for a line that is not a step; the message names file and line. */
    public static final class BadScenario extends Exception {
        BadScenario(String message) {
            super(message);
        }
    }

    /** The steps of a file; every line that is not a step is named in the exception. */
    public static List<Step> parse(String name, List<String> lines) throws BadScenario {
        List<Step> steps = new ArrayList<>();
        StringBuilder bad = new StringBuilder();
        for (int i = 0; i < lines.size(); ++i) {
            String text = lines.get(i);
            int hash = text.indexOf('#');
            if (hash >= 0) text = text.substring(0, hash);
            if (text.trim().isEmpty()) continue;
            Step s = new Step(i + 1, text.trim());
            String why = check(s.w);
            if (why != null) {
                bad.append(name).append(':').append(s.line).append(": ").append(why).append(": \"").append(s.text).append("\"\n");
            }
            steps.add(s);
        }
        if (bad.length() > 0) throw new BadScenario(bad + "steps:\n" + STEPS);
        if (steps.isEmpty()) throw new BadScenario(name + ": no steps");
        return steps;
    }

    private static boolean num(String s) {
        try {
            return Double.parseDouble(s) >= 0;
        } catch (NumberFormatException e) {
            return false;
        }
    }

    private static boolean code(String s) {
        try {
            long v = DemoDevice.parseCode(s);
            return v >= 0 && v <= 0xFFFFFFFFL;
        } catch (NumberFormatException e) {
            return false;
        }
    }

    private static boolean is(String[] w, String... words) {
        if (w.length < words.length) return false;
        for (int i = 0; i < words.length; ++i) if (!w[i].equalsIgnoreCase(words[i])) return false;
        return true;
    }

    /** Why the words are not a step, or null. */
    static String check(String[] w) {
        String first = w[0].toLowerCase(Locale.ROOT);
        switch (first) {
            case "wait":
                return w.length == 3 && num(w[1]) && (w[2].equals("s") || w[2].equals("ms")) ? null : "wait <n> s|ms";
            case "hold":
                return is(w, "hold", "card") && w.length == 3 && w[2].matches("[0-9A-Fa-f]{1,32}") ? null
                        : "hold card <1 to 32 hex digits>";
            case "login":
                return w.length == 3 ? null : "login <user> <password>";
            case "logout":
            case "sleep":
            case "wake":
                return w.length == 1 ? null : first + " takes nothing more";
            case "press":
                return is(w, "press", "key") && w.length == 3 && ScanToEmailApp.KEYS.containsKey(w[2].toLowerCase(Locale.ROOT))
                        ? null : "press key " + String.join("|", ScanToEmailApp.KEYS.keySet());
            case "choose":
                return is(w, "choose", "destination") && w.length >= 3 ? null : "choose destination <name prefix>";
            case "set":
                return is(w, "set", "pages") && w.length == 3 && w[2].matches("[1-9][0-9]?")
                        && Integer.parseInt(w[2]) <= ScanToEmailApp.MAX_PAGES ? null : "set pages <1-" + ScanToEmailApp.MAX_PAGES + ">";
            case "scan":
                return is(w, "scan", "to", "email") && w.length == 3 ? null : "scan to email";
            case "fail":
                if (!is(w, "fail", "next") || w.length < 5 || !w[3].equalsIgnoreCase("with") || !code(w[4]))
                    return "fail next <operation> with <code> [times <n>]";
                if (w.length != 5 && !(w.length == 7 && w[5].equalsIgnoreCase("times") && w[6].matches("[1-9][0-9]?"))) {
                    return "fail next <operation> with <code> [times <1-99>]";
                }
                String why = DemoDevice.checkForcing(w[2], DemoDevice.parseCode(w[4]), w.length == 7 ? Integer.parseInt(w[6]) : 1);
                return why.isEmpty() ? null : why;
            case "inject":
                return is(w, "inject", "job", "fault") && w.length == 4 && code(w[3]) && DemoDevice.checkFault(DemoDevice.parseCode(w[3])).isEmpty()
                        ? null : "inject job fault <code up to 0x7FFFFFFF>";
            case "plug":
            case "unplug":
                return is(w, first, "usb") && w.length == 3 && (w[2].equals("0") || w[2].equals("1")) ? null
                        : first + " usb 0|1";
            case "open":
            case "close":
                return is(w, first, "cover") && w.length == 2 ? null : first + " cover";
            case "toner":
                return w.length == 2 && Arrays.asList("ok", "low", "empty").contains(w[1].toLowerCase(Locale.ROOT)) ? null
                        : "toner ok|low|empty";
            case "paper":
                return is(w, "paper", "tray") && w.length == 5 && w[2].matches("[12]") && w[3].equalsIgnoreCase("level")
                        && w[4].matches("[0-9]{1,3}") && Integer.parseInt(w[4]) <= 100 ? null : "paper tray <1|2> level <0-100>";
            case "copy": {
                String form = "copy to usb <0|1> [size <1-" + ScanToEmailApp.MAX_DOCUMENT_MB + "> MB] [rate <1-1000> MB/s]";
                if (!is(w, "copy", "to", "usb") || w.length < 4 || !w[3].matches("[01]")) return form;
                for (int i = 4; i < w.length; i += 3) {
                    if (i + 2 >= w.length || !w[i + 1].matches("[1-9][0-9]{0,3}")) return form;
                    int n = Integer.parseInt(w[i + 1]);
                    if (w[i].equalsIgnoreCase("size") && w[i + 2].equals("MB") && n <= ScanToEmailApp.MAX_DOCUMENT_MB) continue;
                    if (w[i].equalsIgnoreCase("rate") && w[i + 2].equals("MB/s") && n <= 1000) continue;
                    return form;
                }
                return null;
            }
            case "cancel":
                return is(w, "cancel", "copy") && w.length == 2 ? null : "cancel copy";
            case "show":
                if (is(w, "show", "box")) return w.length == 3 && w[2].startsWith("/") ? null : "show box </folder>";
                return is(w, "show", "machine") && w.length == 2 ? null : "show machine | show box </folder>";
            case "expect":
                if (is(w, "expect", "user")) return w.length == 3 ? null : "expect user <login>";
                if (is(w, "expect", "no", "user")) return w.length == 3 ? null : "expect no user";
                int k = is(w, "expect", "no", "event") ? 3 : is(w, "expect", "event") ? 2 : -1;
                if (k < 0 || w.length < k + 4) return "expect [no] event <Kind> [word ...] within <n> s";
                if (EventLog.kind(w[k]) == null) return "no event is of kind \"" + w[k] + "\" (kinds are listed below)";
                return w[w.length - 3].equalsIgnoreCase("within") && num(w[w.length - 2]) && w[w.length - 1].equals("s")
                        ? null : "expect [no] event <Kind> [word ...] within <n> s";
            default:
                return "unknown step";
        }
    }

    /** Plays the file; 0 when every expectation held, 1 when one failed, 2 for a bad file. */
    public static int play(Path file, ScanToEmailApp app, DemoDevice device, PrintStream out) {
        List<Step> steps;
        try {
            steps = parse(file.toString(), Files.readAllLines(file, StandardCharsets.UTF_8));
        } catch (IOException e) {
            out.println("scenario: cannot read " + file + ": " + e.getMessage());
            return 2;
        } catch (BadScenario e) {
            out.println("scenario: " + e.getMessage());
            return 2;
        }
        return new Scenario(file.toString(), steps, app, device, out).run();
    }

    private int run() {
        long t0 = System.currentTimeMillis();
        int startSeq = app.log.lastSeq();
        cursor = startSeq;
        java.util.function.Consumer<EventLog.Event> print = e -> {
            if (e.seq > startSeq) out.printf("    %7.3f s  %s%n", (e.millis - t0) / 1000.0, e);
        };
        app.log.watch(print);
        try {
            return runSteps(t0);
        } finally {
            app.log.unwatch(print);
        }
    }

    private int runSteps(long t0) {
        for (Step s : steps) {
            out.printf("%s:%d  %s%n", name, s.line, s.text);
            String failure;
            try {
                failure = execute(s);
            } catch (Exception e) {
                failure = e.toString();
            }
            if (failure != null) {
                out.printf("FAILED %s:%d  %s%n  %s%n", name, s.line, s.text, failure);
                return 1;
            }
        }
        out.printf("PASSED %s (%d steps, %.1f s)%n", name, steps.size(), (System.currentTimeMillis() - t0) / 1000.0);
        return 0;
    }

    private static String rejected(String why) {
        return why.isEmpty() ? null : "the device refused: " + why;
    }

    private void onApp(Runnable r) throws InterruptedException, ExecutionException, TimeoutException {
        app.submit(r).get(60, TimeUnit.SECONDS);
    }

    private String execute(Step s) throws Exception {
        String[] w = s.w;
        switch (w[0].toLowerCase(Locale.ROOT)) {
            case "wait": {
                double n = Double.parseDouble(w[1]);
                Thread.sleep((long) (w[2].equals("s") ? n * 1000 : n));
                return null;
            }
            case "hold": return rejected(device.holdCard(w[2]));
            case "login": onApp(() -> app.login(w[1], w[2])); return null;
            case "logout": onApp(app::logout); return null;
            case "press": return rejected(device.pressKey(w[2].toLowerCase(Locale.ROOT)));
            case "choose": {
                String prefix = String.join(" ", Arrays.copyOfRange(w, 2, w.length));
                boolean[] found = {false};
                onApp(() -> found[0] = app.chooseDestination(prefix));
                return found[0] ? null : "no address-book entry with a mail address begins with \"" + prefix + "\"";
            }
            case "set": app.setScanPages(Integer.parseInt(w[2])); return null;
            case "scan": app.startScan(); return null;  // a refusal is an event the file may expect
            case "fail":
                return rejected(device.failNext(w[2], DemoDevice.parseCode(w[4]), w.length == 7 ? Integer.parseInt(w[6]) : 1));
            case "inject": return rejected(device.jobFault(DemoDevice.parseCode(w[3])));
            case "plug": return rejected(device.usb(Integer.parseInt(w[2]), true));
            case "unplug": return rejected(device.usb(Integer.parseInt(w[2]), false));
            case "open": return rejected(device.cover(true));
            case "close": return rejected(device.cover(false));
            case "toner": return rejected(device.toner(Arrays.asList("ok", "low", "empty").indexOf(w[1].toLowerCase(Locale.ROOT))));
            case "paper": return rejected(device.paper(Integer.parseInt(w[2]), Integer.parseInt(w[4])));
            case "sleep": return rejected(device.sleep(true));
            case "wake": return rejected(device.sleep(false));
            case "copy": {
                int mb = 0, rate = 0;
                for (int i = 4; i + 2 < w.length; i += 3) {
                    if (w[i].equalsIgnoreCase("size")) mb = Integer.parseInt(w[i + 1]);
                    else rate = Integer.parseInt(w[i + 1]);
                }
                // What the device answered (not plugged in, a copy running ...) is an event to expect.
                app.startCopy(Integer.parseInt(w[3]), mb, rate * 1024L * 1024L);
                return null;
            }
            case "cancel":
                if (!app.cancelCopy()) app.log.add("Refused", "cancel copy: no copy is running");
                return null;
            case "show": {
                if (is(w, "show", "box")) {
                    AtomicReference<List<String>> docs = new AtomicReference<>();
                    onApp(() -> docs.set(app.boxListing(w[2])));
                    docs.get().forEach(d -> out.println("    " + d));
                    return null;
                }
                AtomicReference<Map<String, String>> values = new AtomicReference<>();
                onApp(() -> values.set(app.machineValues()));
                values.get().forEach((k, v) -> out.printf("    %-14s %s%n", k, v));
                return null;
            }
            case "expect": return expect(w);
            default: return "unknown step";
        }
    }

    private String expect(String[] w) throws Exception {
        if (is(w, "expect", "user") || is(w, "expect", "no", "user")) {
            app.submit(() -> {}).get(60, TimeUnit.SECONDS);  // what the application thread had queued is done
            String user = (String) app.state().get("user");
            String want = is(w, "expect", "user") ? w[2] : "";
            return user.equals(want) ? null : "logged-in user is \"" + user + "\", expected \"" + want + "\"";
        }
        boolean negative = is(w, "expect", "no");
        int k = negative ? 3 : 2;
        String kind = w[k];
        List<String> words = Arrays.asList(Arrays.copyOfRange(w, k + 1, w.length - 3));
        long ms = (long) (Double.parseDouble(w[w.length - 2]) * 1000);
        EventLog.Event e = app.log.await(cursor, kind, words, ms);
        if (negative) {
            return e == null ? null : "event seen: " + e;
        }
        if (e == null) {
            StringBuilder seen = new StringBuilder("no such event within " + ms / 1000.0 + " s; events since the last match:");
            for (EventLog.Event x : app.log.since(cursor)) seen.append("\n    ").append(x);
            return seen.toString();
        }
        cursor = e.seq;
        return null;
    }
}
