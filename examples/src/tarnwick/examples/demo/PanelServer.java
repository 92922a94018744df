package tarnwick.examples.demo;

import com.sun.net.httpserver.HttpExchange;
import com.sun.net.httpserver.HttpServer;
import java.io.IOException;
import java.io.InputStream;
import java.io.OutputStream;
import java.net.InetAddress;
import java.net.InetSocketAddress;
import java.net.URLDecoder;
import java.nio.charset.StandardCharsets;
import java.util.ArrayList;
import java.util.HashMap;
import java.util.LinkedHashMap;
import java.util.List;
import java.util.Map;
import java.util.concurrent.Executors;
import java.util.concurrent.TimeUnit;
import java.util.concurrent.atomic.AtomicReference;

/**
 * The virtual front panel: one page (kept in this jar) and a small JSON interface, served on
 * 127.0.0.1 only. GET /api/state reads the device and the application; POST /api/action acts.
 * Nothing else is served: no file of the host is reachable through it.
 */
public final class PanelServer {
    private static final int MAX_BODY = 4096;
    private final ScanToEmailApp app;
    private final DemoDevice device;
    private HttpServer server;

    public PanelServer(ScanToEmailApp app, DemoDevice device) {
        this.app = app;
        this.device = device;
    }

    /** Starts on {@code port} (0: a free one); returns the port. */
    public int start(int port) throws IOException {
        // Small answers go out at once rather than waiting for the browser's acknowledgement.
        System.setProperty("sun.net.httpserver.nodelay", "true");
        server = HttpServer.create(new InetSocketAddress(InetAddress.getLoopbackAddress(), port), 16);
        server.createContext("/", this::page);
        server.createContext("/api/state", this::state);
        server.createContext("/api/action", this::action);
        server.setExecutor(Executors.newFixedThreadPool(4, r -> {
            Thread t = new Thread(r, "panel-http");
            t.setDaemon(true);
            return t;
        }));
        server.start();
        return server.getAddress().getPort();
    }

    public void stop() {
        if (server != null) server.stop(0);
    }

    private static void send(HttpExchange x, int status, String type, String body) throws IOException {
        byte[] bytes = body.getBytes(StandardCharsets.UTF_8);
        x.getResponseHeaders().set("Content-Type", type);
        x.getResponseHeaders().set("Cache-Control", "no-store");
        x.getResponseHeaders().set("X-Content-Type-Options", "nosniff");
        x.sendResponseHeaders(status, bytes.length);
        try (OutputStream o = x.getResponseBody()) {
            o.write(bytes);
        }
    }

    private static void json(HttpExchange x, int status, Object v) throws IOException {
        send(x, status, "application/json; charset=utf-8", Json.of(v));
    }

    private void page(HttpExchange x) throws IOException {
        String path = x.getRequestURI().getPath();
        if (!x.getRequestMethod().equals("GET")) {
            send(x, 405, "text/plain; charset=utf-8", "method not allowed\n");
        } else if (path.equals("/") || path.equals("/index.html")) {
            send(x, 200, "text/html; charset=utf-8", PanelPage.HTML.replace("@PORT@", String.valueOf(server.getAddress().getPort())));
        } else {
            send(x, 404, "text/plain; charset=utf-8", "not found\n");
        }
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
                // a broken escape: the pair is dropped, the action then says what is missing
            }
        }
        return m;
    }

    private Map<String, String> machine;
    private long machineRead;

    /** Machine values, read again at most every two seconds (each read is traced). */
    private synchronized Map<String, String> machine() {
        long now = System.currentTimeMillis();
        if (machine == null || now - machineRead > 2000) {
            machine = app.machineValues();
            machineRead = now;
        }
        return machine;
    }

    private void state(HttpExchange x) throws IOException {
        if (!x.getRequestURI().getPath().equals("/api/state")) {
            send(x, 404, "text/plain; charset=utf-8", "not found\n");
            return;
        }
        if (!x.getRequestMethod().equals("GET")) {
            send(x, 405, "text/plain; charset=utf-8", "method not allowed\n");
            return;
        }
        Map<String, String> q = query(x.getRequestURI().getRawQuery());
        int since = 0;
        try {
            since = Integer.parseInt(q.getOrDefault("since", "0"));
        } catch (NumberFormatException e) {
            since = 0;
        }
        String filter = q.getOrDefault("trace", "");
        if (filter.length() > 100) filter = filter.substring(0, 100);
        Map<String, Object> s = new LinkedHashMap<>();
        s.put("port", server.getAddress().getPort());
        s.put("app", app.state());
        s.put("machine", machine());
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
        s.put("trace", DemoDevice.trace(filter, 200));
        long lat = app.lastKeyLatencyNanos();
        s.put("keyLatencyMicros", lat < 0 ? -1 : lat / 1000.0);
        json(x, 200, s);
    }

    private static String body(HttpExchange x) throws IOException {
        try (InputStream in = x.getRequestBody()) {
            byte[] b = in.readNBytes(MAX_BODY + 1);
            if (b.length > MAX_BODY) return null;
            return new String(b, StandardCharsets.UTF_8);
        }
    }

    private static String need(Map<String, String> p, String name, int maxLength) {
        String v = p.get(name);
        if (v == null || v.isEmpty()) throw new IllegalArgumentException("missing " + name);
        if (v.length() > maxLength) throw new IllegalArgumentException(name + " is longer than " + maxLength);
        return v;
    }

    private static int number(Map<String, String> p, String name, int min, int max) {
        String v = need(p, name, 12);
        try {
            int n = Integer.parseInt(v);
            if (n < min || n > max) throw new NumberFormatException();
            return n;
        } catch (NumberFormatException e) {
            throw new IllegalArgumentException(name + " must be a number from " + min + " to " + max);
        }
    }

    private void action(HttpExchange x) throws IOException {
        if (!x.getRequestURI().getPath().equals("/api/action")) {
            send(x, 404, "text/plain; charset=utf-8", "not found\n");
            return;
        }
        if (!x.getRequestMethod().equals("POST")) {
            send(x, 405, "text/plain; charset=utf-8", "method not allowed\n");
            return;
        }
        String raw = body(x);
        Map<String, Object> r = new LinkedHashMap<>();
        if (raw == null) {
            r.put("ok", false);
            r.put("error", "request too large");
            json(x, 413, r);
            return;
        }
        Map<String, String> p = query(raw);
        String error;
        try {
            error = act(p, r);
        } catch (IllegalArgumentException e) {
            error = e.getMessage();
        } catch (Exception e) {
            error = "failed: " + e;
        }
        r.put("ok", error.isEmpty());
        if (!error.isEmpty()) r.put("error", error);
        json(x, error.isEmpty() ? 200 : 400, r);
    }

    private void onApp(Runnable run) throws Exception {
        app.submit(run).get(30, TimeUnit.SECONDS);
    }

    /** Does one action; "" or what was wrong with the request. */
    private String act(Map<String, String> p, Map<String, Object> r) throws Exception {
        String what = need(p, "action", 20);
        switch (what) {
            case "key": {
                String e = device.pressKey(need(p, "key", 20));
                long lat = app.lastKeyLatencyNanos();
                r.put("keyLatencyMicros", lat / 1000.0);
                r.put("listenerEpochMs", app.lastKeyEpochMicros() / 1000.0);
                return e;
            }
            case "card": return device.holdCard(need(p, "id", 32));
            case "usb": return device.usb(number(p, "drive", 0, 1), number(p, "plug", 0, 1) == 1);
            case "cover": return device.cover(number(p, "open", 0, 1) == 1);
            case "toner": {
                int level = List.of("ok", "low", "empty").indexOf(need(p, "level", 10));
                if (level < 0) return "toner level is ok, low or empty";
                return device.toner(level);
            }
            case "paper": return device.paper(number(p, "tray", 1, 2), number(p, "level", 0, 100));
            case "sleep": return device.sleep(number(p, "on", 0, 1) == 1);
            case "fail": {
                long code;
                try {
                    code = DemoDevice.parseCode(need(p, "code", 12));
                } catch (NumberFormatException e) {
                    return "code must be a number (decimal or 0x hexadecimal)";
                }
                return device.failNext(need(p, "op", 80), code, p.containsKey("times") ? number(p, "times", 1, 100) : 1);
            }
            case "fault": {
                try {
                    return device.jobFault(DemoDevice.parseCode(need(p, "code", 12)));
                } catch (NumberFormatException e) {
                    return "code must be a number (decimal or 0x hexadecimal)";
                }
            }
            case "login": {
                String user = need(p, "user", 32), pw = p.getOrDefault("pw", "");
                if (pw.length() > 32) return "password is longer than 32";
                onApp(() -> app.login(user, pw));
                return app.state().get("user").equals("") ? "login refused for " + user : "";
            }
            case "logout": onApp(app::logout); return "";
            case "search": {
                String prefix = p.getOrDefault("prefix", "");
                if (prefix.length() > 64) return "prefix is longer than 64";
                AtomicReference<List<String>> found = new AtomicReference<>();
                onApp(() -> found.set(app.search(prefix)));
                r.put("found", found.get().subList(0, Math.min(50, found.get().size())));
                r.put("total", found.get().size());
                return "";
            }
            case "box": {
                String folder = need(p, "folder", 64);
                if (!folder.startsWith("/")) return "a document-box folder begins with /";
                AtomicReference<List<String>> docs = new AtomicReference<>();
                onApp(() -> docs.set(app.boxListing(folder)));
                r.put("documents", docs.get());
                return "";
            }
            case "destination": {
                String prefix = need(p, "prefix", 64);
                boolean[] ok = {false};
                onApp(() -> ok[0] = app.chooseDestination(prefix));
                return ok[0] ? "" : "no address-book entry with a mail address begins with \"" + prefix + "\"";
            }
            case "scan": {
                if (p.containsKey("pages")) app.setScanPages(number(p, "pages", 1, 99));
                if (app.state().get("user").equals("")) return "log in first";
                app.submit(app::scanToEmail);
                return "";
            }
            case "copy": {
                int drive = number(p, "drive", 0, 1);
                int mb = p.containsKey("mb") ? number(p, "mb", 0, 256) : 0;
                app.setCopyRate(p.containsKey("rate") ? number(p, "rate", 1, 1000) * 1024L * 1024L : 0);
                app.submit(() -> app.copyToRemovable(drive == 0 ? 2 : 1, mb > 0 ? app.makeHardDiskFile(mb * 1024L * 1024L) : ""));
                return "";
            }
            default:
                return "unknown action \"" + what + "\"";
        }
    }
}
