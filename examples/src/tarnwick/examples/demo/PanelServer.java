package tarnwick.examples.demo;

import com.sun.net.httpserver.Headers;
import com.sun.net.httpserver.HttpExchange;
import com.sun.net.httpserver.HttpServer;
import java.io.IOException;
import java.io.InputStream;
import java.io.OutputStream;
import java.net.InetAddress;
import java.net.InetSocketAddress;
import java.net.URLDecoder;
import java.nio.charset.StandardCharsets;
import java.nio.file.Path;
import java.security.MessageDigest;
import java.security.SecureRandom;
import java.util.ArrayList;
import java.util.HashMap;
import java.util.LinkedHashMap;
import java.util.List;
import java.util.Locale;
import java.util.Map;
import java.util.concurrent.LinkedBlockingQueue;
import java.util.concurrent.ThreadPoolExecutor;
import java.util.concurrent.TimeUnit;
import java.util.function.Function;

/**
 * The virtual front panel: one page (kept in this jar) and a small JSON interface, served on
 * 127.0.0.1 only. GET /api/state reads the device and the application; POST /api/action acts.
 * Nothing else is served: no file of the host is reachable through it.
 *
 * <p>Who may use it: requests must name the panel itself as their Host (127.0.0.1:PORT or
 * localhost:PORT), which defeats DNS rebinding; both interfaces need the per-run token that only
 * the page carries; and an action must come from the panel's own origin as JSON, which a page of
 * another origin can send only after a preflight that the panel never grants. Everything else
 * gets 403 and a message.
 *
 * <p>Staying available: enough threads for many clients, each request given a few seconds to
 * arrive and be read; every answer is prompt, because long work (jobs, copies) runs on the
 * application's own threads and the panel only starts it.
 */
public final class PanelServer {
    static final int MAX_BODY = 4096;
    /** Requests served at once (more wait for a thread). */
    static final int THREADS = 64;
    /** Seconds a client has to send its request, and to read the answer. */
    static final int REQUEST_SECONDS = 10;
    /** How long an action waits for the application thread before it is withdrawn. */
    static final long APP_WAIT_MS = 5000;
    static final String TOKEN_HEADER = "X-Panel-Token";

    private final ScanToEmailApp app;
    private final DemoDevice device;
    private final Recorder recorder;
    private final Path recordings;
    private final String token;
    private HttpServer server;
    private int port;

    public PanelServer(ScanToEmailApp app, DemoDevice device, Path recordings) {
        this.app = app;
        this.device = device;
        this.recorder = new Recorder(app.log);
        this.recordings = recordings;
        byte[] b = new byte[24];
        new SecureRandom().nextBytes(b);
        StringBuilder t = new StringBuilder();
        for (byte x : b) t.append(String.format("%02x", x));
        this.token = t.toString();
    }

    /** Starts on {@code port} (0: a free one); returns the port. */
    public int start(int port) throws IOException {
        // Small answers go out at once rather than waiting for the browser's acknowledgement; a
        // client that does not send its request (or read its answer) in time is disconnected.
        System.setProperty("sun.net.httpserver.nodelay", "true");
        System.setProperty("sun.net.httpserver.maxReqTime", String.valueOf(REQUEST_SECONDS));
        System.setProperty("sun.net.httpserver.maxRspTime", String.valueOf(REQUEST_SECONDS));
        server = HttpServer.create(new InetSocketAddress(InetAddress.getLoopbackAddress(), port), 64);
        server.createContext("/", this::serve);
        ThreadPoolExecutor pool = new ThreadPoolExecutor(THREADS, THREADS, 30, TimeUnit.SECONDS,
                new LinkedBlockingQueue<>(), r -> {
                    Thread t = new Thread(r, "panel-http");
                    t.setDaemon(true);
                    return t;
                });
        pool.allowCoreThreadTimeOut(true);
        server.setExecutor(pool);
        server.start();
        this.port = server.getAddress().getPort();
        return this.port;
    }

    public void stop() {
        if (server != null) server.stop(0);
        try {
            recorder.stop();
        } catch (IOException e) {
            // the recording keeps what was written
        }
    }

    // ---- the gate ----

    /** Why a request's Host is not the panel's own, or null. */
    String hostRefusal(Headers h) {
        String host = h.getFirst("Host");
        if (host != null) {
            String lower = host.toLowerCase(Locale.ROOT);
            if (lower.equals("127.0.0.1:" + port) || lower.equals("localhost:" + port)) return null;
        }
        return "this panel answers only requests for 127.0.0.1:" + port + " or localhost:" + port
                + " (Host was " + (host == null ? "missing" : "\"" + clip(host) + "\"") + ")";
    }

    /** Why an action request is refused (origin, content type, token), or null. */
    String actionRefusal(Headers h) {
        String origin = h.getFirst("Origin");
        if (origin == null || !(origin.equals("http://127.0.0.1:" + port) || origin.equals("http://localhost:" + port))) {
            return "actions are taken only from the panel's own page (Origin was "
                    + (origin == null ? "missing" : "\"" + clip(origin) + "\"") + ")";
        }
        String type = h.getFirst("Content-Type");
        String media = type == null ? "" : type.split(";")[0].trim().toLowerCase(Locale.ROOT);
        if (!media.equals("application/json")) {
            return "actions are JSON (Content-Type was " + (type == null ? "missing" : "\"" + clip(type) + "\"") + ")";
        }
        return tokenRefusal(h);
    }

    String tokenRefusal(Headers h) {
        String given = h.getFirst(TOKEN_HEADER);
        if (given == null) return "the panel's token is missing (reload the page)";
        if (!MessageDigest.isEqual(given.getBytes(StandardCharsets.UTF_8), token.getBytes(StandardCharsets.UTF_8))) {
            return "the panel's token is wrong (the panel was restarted: reload the page)";
        }
        return null;
    }

    private static String clip(String s) {
        String c = s.length() > 80 ? s.substring(0, 80) + "..." : s;
        return c.replaceAll("[^\\x20-\\x7E]", "?");
    }

    private void serve(HttpExchange x) throws IOException {
        try {
            device.housekeeping();
            String path = x.getRequestURI().getRawPath();
            String why = hostRefusal(x.getRequestHeaders());
            if (why != null) {
                refuse(x, path, why);
                return;
            }
            switch (path) {
                case "/":
                case "/index.html":
                    if (!method(x, "GET")) return;
                    send(x, 200, "text/html; charset=utf-8",
                            PanelPage.HTML.replace("@PORT@", String.valueOf(port)).replace("@TOKEN@", token));
                    return;
                case "/api/state":
                    if (allowed(x, path, "GET", this::tokenRefusal)) json(x, 200, state(x));
                    return;
                case "/api/action":
                    if (allowed(x, path, "POST", this::actionRefusal)) action(x);
                    return;
                default:
                    send(x, 404, "text/plain; charset=utf-8", "not found\n");
            }
        } finally {
            x.close();
        }
    }

    /** True when the request has the method and passes the gate; otherwise it is answered. */
    private boolean allowed(HttpExchange x, String path, String wanted, Function<Headers, String> gate) throws IOException {
        if (!method(x, wanted)) return false;
        String why = gate.apply(x.getRequestHeaders());
        if (why == null) return true;
        refuse(x, path, why);
        return false;
    }

    private void refuse(HttpExchange x, String path, String why) throws IOException {
        if (path.startsWith("/api/")) {
            Map<String, Object> r = new LinkedHashMap<>();
            r.put("ok", false);
            r.put("error", why);
            json(x, 403, r);
        } else {
            send(x, 403, "text/plain; charset=utf-8", why + "\n");
        }
    }

    private static boolean method(HttpExchange x, String wanted) throws IOException {
        if (x.getRequestMethod().equals(wanted)) return true;
        x.getResponseHeaders().set("Allow", wanted);
        send(x, 405, "text/plain; charset=utf-8", "method not allowed\n");
        return false;
    }

    private static void send(HttpExchange x, int status, String type, String body) throws IOException {
        byte[] bytes = body.getBytes(StandardCharsets.UTF_8);
        Headers h = x.getResponseHeaders();
        h.set("Content-Type", type);
        h.set("Cache-Control", "no-store");
        h.set("X-Content-Type-Options", "nosniff");
        h.set("X-Frame-Options", "DENY");
        h.set("Referrer-Policy", "no-referrer");
        h.set("Content-Security-Policy", "default-src 'none'; script-src 'unsafe-inline'; style-src 'unsafe-inline'; "
                + "connect-src 'self'; img-src 'self' data:; base-uri 'none'; form-action 'none'; frame-ancestors 'none'");
        x.sendResponseHeaders(status, bytes.length);
        try (OutputStream o = x.getResponseBody()) {
            o.write(bytes);
        }
    }

    private static void json(HttpExchange x, int status, Object v) throws IOException {
        send(x, status, "application/json; charset=utf-8", Json.of(v));
    }

    static Map<String, String> query(String raw) {
        Map<String, String> m = new HashMap<>();
        if (raw == null || raw.isEmpty()) return m;
        for (String pair : raw.split("&")) {
            int eq = pair.indexOf('=');
            String k = eq < 0 ? pair : pair.substring(0, eq);
            String v = eq < 0 ? "" : pair.substring(eq + 1);
            try {
                m.put(URLDecoder.decode(k, StandardCharsets.UTF_8), URLDecoder.decode(v, StandardCharsets.UTF_8));
            } catch (IllegalArgumentException e) {
                // a broken escape: the pair is dropped and its default used
            }
        }
        return m;
    }

    // ---- reading ----

    private Map<String, Object> state(HttpExchange x) {
        Map<String, String> q = query(x.getRequestURI().getRawQuery());
        int since;
        try {
            since = Integer.parseInt(q.getOrDefault("since", "0"));
        } catch (NumberFormatException e) {
            since = 0;
        }
        String filter = q.getOrDefault("trace", "");
        if (filter.length() > 100) filter = filter.substring(0, 100);
        Map<String, Object> s = new LinkedHashMap<>();
        s.put("port", port);
        s.put("app", app.state());
        s.put("machine", app.machine());
        s.put("powerState", DemoDevice.powerState());
        List<Map<String, Object>> events = new ArrayList<>();
        List<EventLog.Event> list = app.log.since(since);
        for (EventLog.Event e : list.subList(Math.max(0, list.size() - 100), list.size())) {
            Map<String, Object> m = new LinkedHashMap<>();
            m.put("seq", e.seq);
            m.put("time", e.millis);
            m.put("kind", e.kind);
            m.put("text", e.text);
            events.add(m);
        }
        s.put("events", events);
        s.put("lastSeq", app.log.lastSeq());
        s.put("trace", DemoDevice.trace(filter, 200));
        long lat = app.lastKeyLatencyNanos();
        s.put("keyLatencyMicros", lat < 0 ? -1 : lat / 1000.0);
        Map<String, Object> rec = new LinkedHashMap<>();
        rec.put("on", recorder.on());
        Path f = recorder.file();
        rec.put("file", f == null ? "" : f.toString());
        rec.put("steps", recorder.steps());
        s.put("recording", rec);
        return s;
    }

    // ---- acting ----

    private static String body(HttpExchange x) throws IOException {
        try (InputStream in = x.getRequestBody()) {
            byte[] b = in.readNBytes(MAX_BODY + 1);
            if (b.length > MAX_BODY) return null;
            return new String(b, StandardCharsets.UTF_8);
        }
    }

    /** A request that cannot be done as asked: 400 and its message; nothing was changed. */
    static final class Bad extends Exception {
        Bad(String message) {
            super(message);
        }
    }

    private static String need(Map<String, String> p, String name, int maxLength) throws Bad {
        String v = p.get(name);
        if (v == null || v.isEmpty()) throw new Bad("missing " + name);
        if (v.length() > maxLength) throw new Bad(name + " is longer than " + maxLength);
        return v;
    }

    private static int number(Map<String, String> p, String name, int min, int max) throws Bad {
        String v = need(p, name, 12);
        try {
            int n = Integer.parseInt(v);
            if (n < min || n > max) throw new NumberFormatException();
            return n;
        } catch (NumberFormatException e) {
            throw new Bad(name + " must be a number from " + min + " to " + max);
        }
    }

    private static long code(Map<String, String> p, String name) throws Bad {
        try {
            return DemoDevice.parseCode(need(p, name, 12));
        } catch (NumberFormatException e) {
            throw new Bad(name + " must be a number (decimal or 0x hexadecimal)");
        }
    }

    private static void check(String why) throws Bad {
        if (!why.isEmpty()) throw new Bad(why);
    }

    /**
     * An action that turns something of the device on or off: the 0-or-1 parameter {@code name}
     * says which, {@code set} does it (an empty answer when it could), the step and the answer
     * are the texts of the side taken.
     */
    private String onOff(Map<String, String> p, String name, Function<Boolean, String> set, String stepOn,
                         String stepOff, String doneOn, String doneOff) throws Bad {
        boolean on = number(p, name, 0, 1) == 1;
        check(set.apply(on));
        recorder.step(on ? stepOn : stepOff);
        return on ? doneOn : doneOff;
    }

    private void action(HttpExchange x) throws IOException {
        String raw = body(x);
        Map<String, Object> r = new LinkedHashMap<>();
        int status;
        if (raw == null) {
            status = 413;
            r.put("error", "request too large");
        } else {
            try {
                String done = act(Json.object(raw), r);
                status = 200;
                r.put("message", done);
            } catch (IllegalArgumentException | Bad e) {
                status = 400;
                r.put("error", e.getMessage());
            } catch (ScanToEmailApp.Busy e) {
                status = 503;
                r.put("error", e.getMessage());
            } catch (InterruptedException e) {
                Thread.currentThread().interrupt();
                status = 503;
                r.put("error", "the panel is stopping");
            }
        }
        Map<String, Object> answer = new LinkedHashMap<>();
        answer.put("ok", status == 200);
        answer.putAll(r);
        json(x, status, answer);
    }

    private <T> T onApp(java.util.concurrent.Callable<T> work) throws ScanToEmailApp.Busy, InterruptedException {
        return app.call(work, APP_WAIT_MS);
    }

    /**
     * Does one action; returns what was done (shown on the page) or throws {@link Bad} with
     * what was wrong with the request. Every parameter is checked before anything changes.
     */
    private String act(Map<String, String> p, Map<String, Object> r)
            throws Bad, ScanToEmailApp.Busy, InterruptedException, IOException {
        String what = need(p, "action", 20);
        if (!what.equals("record") && !what.equals("search")) recorder.begin();
        switch (what) {
            case "key": {
                String key = need(p, "key", 20);
                check(DemoDevice.checkKey(key));
                // The start key scans the pages shown beside it (when a scan can start at all).
                int pages = p.containsKey("pages") ? number(p, "pages", 1, ScanToEmailApp.MAX_PAGES) : 0;
                if (pages > 0 && key.equals("start") && app.scanRefusal().isEmpty()) {
                    app.setScanPages(pages);
                    recorder.step("set pages " + pages);
                }
                check(device.pressKey(key));
                recorder.step("press key " + key);
                r.put("keyLatencyMicros", app.lastKeyLatencyNanos() / 1000.0);
                r.put("listenerEpochMs", app.lastKeyEpochMicros() / 1000.0);
                return "key " + key + " pressed";
            }
            case "card": {
                String id = need(p, "id", 32);
                check(device.holdCard(id));
                recorder.step("hold card " + id.toUpperCase(Locale.ROOT));
                return "card " + id + " held to the reader";
            }
            case "usb": {
                int drive = number(p, "drive", 0, 1);
                boolean plug = number(p, "plug", 0, 1) == 1;
                check(device.usb(drive, plug));
                recorder.step((plug ? "plug" : "unplug") + " usb " + drive);
                return "USB memory " + drive + (plug ? " plugged in" : " pulled out");
            }
            case "cover":
                return onOff(p, "open", device::cover, "open cover", "close cover", "cover opened", "cover closed");
            case "toner": {
                String level = need(p, "level", 10);
                int n = List.of("ok", "low", "empty").indexOf(level);
                if (n < 0) throw new Bad("toner level is ok, low or empty");
                check(device.toner(n));
                recorder.step("toner " + level);
                return "toner " + level;
            }
            case "paper": {
                int tray = number(p, "tray", 1, 2), level = number(p, "level", 0, 100);
                check(device.paper(tray, level));
                recorder.step("paper tray " + tray + " level " + level);
                return "tray " + tray + " at " + level + "%";
            }
            case "sleep":
                return onOff(p, "on", device::sleep, "sleep", "wake", "device asleep", "device awake");
            case "fail": {
                String op = need(p, "op", 80);
                long code = code(p, "code");
                int times = p.containsKey("times") ? number(p, "times", 1, 99) : 1;
                check(device.failNext(op, code, times));
                recorder.step("fail next " + op + " with " + ScanToEmailApp.hex(code) + (times > 1 ? " times " + times : ""));
                return "the next " + (times > 1 ? times + " calls" : "call") + " of " + op + " will answer " + ScanToEmailApp.hex(code);
            }
            case "fault": {
                long code = code(p, "code");
                check(device.jobFault(code));
                recorder.step("inject job fault " + ScanToEmailApp.hex(code));
                return "the next job will end with error " + ScanToEmailApp.hex(code);
            }
            case "login": {
                String user = need(p, "user", 32), pw = need(p, "pw", 32);
                if (pw.matches(".*\\s.*") || user.matches(".*\\s.*")) throw new Bad("names and passwords have no spaces");
                int rc = onApp(() -> app.login(user, pw));
                recorder.step("login " + user + " " + pw);
                if (rc != 0) throw new Bad("login refused for " + user + ": " + loginResult(rc));
                return user + " logged in";
            }
            case "logout": {
                String who = onApp(() -> {
                    String u = app.user();
                    app.logout();
                    return u;
                });
                recorder.step("logout");
                return who.isEmpty() ? "nobody was logged in" : who + " logged out";
            }
            case "search": {
                String prefix = p.getOrDefault("prefix", "");
                if (prefix.length() > 64) throw new Bad("prefix is longer than 64");
                List<String> found = onApp(() -> app.search(prefix));
                r.put("found", found.subList(0, Math.min(50, found.size())));
                r.put("total", found.size());
                return found.size() + " found" + (found.size() > 50 ? " (the first 50 shown)" : "");
            }
            case "box": {
                String folder = need(p, "folder", 64);
                if (!folder.startsWith("/") || folder.matches(".*\\s.*")) throw new Bad("a document-box folder begins with / and has no spaces");
                List<String> docs = onApp(() -> app.boxListing(folder));
                r.put("documents", docs);
                recorder.step("show box " + folder);
                return folder + ": " + docs.size() + " entries";
            }
            case "destination": {
                String prefix = need(p, "prefix", 64);
                boolean ok = onApp(() -> app.chooseDestination(prefix));
                recorder.step("choose destination " + prefix);
                if (!ok) throw new Bad("no address-book entry with a mail address begins with \"" + prefix + "\"");
                return "destination chosen";
            }
            case "scan": {
                int pages = p.containsKey("pages") ? number(p, "pages", 1, ScanToEmailApp.MAX_PAGES) : 0;
                String refusal = app.scanRefusal();
                if (refusal.equals("nobody logged in")) throw new Bad("log in first");
                if (!refusal.isEmpty()) throw new Bad("choose a destination first");
                if (pages > 0) {
                    app.setScanPages(pages);
                    recorder.step("set pages " + pages);
                }
                String why = app.startScan();
                recorder.step("scan to email");
                if (!why.isEmpty()) throw new Bad("scan to e-mail refused: " + why);
                return "scan to e-mail started";
            }
            case "copy": {
                int drive = number(p, "drive", 0, 1);
                int mb = p.containsKey("mb") ? number(p, "mb", 1, ScanToEmailApp.MAX_DOCUMENT_MB) : 0;
                int rate = p.containsKey("rate") ? number(p, "rate", 1, 1000) : 0;
                check(app.startCopy(drive, mb, rate * 1024L * 1024L));
                recorder.step("copy to usb " + drive + (mb > 0 ? " size " + mb + " MB" : "") + (rate > 0 ? " rate " + rate + " MB/s" : ""));
                return "copy to USB memory " + drive + " started";
            }
            case "cancelCopy": {
                if (!app.cancelCopy()) throw new Bad("no copy is running");
                recorder.step("cancel copy");
                return "copy cancelled";
            }
            case "machine": {
                onApp(app::readMachine);
                recorder.step("show machine");
                return "machine values read";
            }
            case "record": {
                boolean on = number(p, "on", 0, 1) == 1;
                if (on) {
                    String user = app.user();
                    Path f = recorder.start(recordings, user.isEmpty() ? "" : user + " was logged in");
                    r.put("file", f.toString());
                    return "recording to " + f;
                }
                Path f = recorder.stop();
                if (f == null) throw new Bad("not recording");
                r.put("file", f.toString());
                return "recorded " + f + " (play it back with scripts/main.sh --scenario " + f + ")";
            }
            default:
                throw new Bad("unknown action \"" + what + "\"");
        }
    }

    static String loginResult(int rc) {
        switch (rc) {
            case 1: return "wrong password (result 1)";
            case 2: return "no such user (result 2)";
            default: return "result " + rc;
        }
    }
}
