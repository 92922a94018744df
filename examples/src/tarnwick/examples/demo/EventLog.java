package tarnwick.examples.demo;

import java.util.ArrayDeque;
import java.util.ArrayList;
import java.util.Collections;
import java.util.LinkedHashSet;
import java.util.List;
import java.util.Set;
import java.util.concurrent.CopyOnWriteArrayList;
import java.util.function.Consumer;

/**
 * What the application saw, in arrival order: each entry a kind ("JobState", "ScanPage", "Login"
 * ...) and its words. Scenarios wait on it, the panel shows its tail, the console prints it. It
 * keeps the last {@value #KEEP} events.
 */
public final class EventLog {
    /** One event: its number (from 1), arrival time, kind and text. */
    public static final class Event {
        public final int seq;
        public final long millis;
        public final String kind;
        public final String text;

        Event(int seq, long millis, String kind, String text) {
            this.seq = seq;
            this.millis = millis;
            this.kind = kind;
            this.text = text;
        }

        @Override
        public String toString() {
            return kind + (text.isEmpty() ? "" : " " + text);
        }
    }

    /** Every kind of event the application reports (what scenarios may expect). */
    public static final Set<String> KINDS = Collections.unmodifiableSet(new LinkedHashSet<>(List.of(
            "Init", "EventManager", "ICCard", "ICCardError", "Login", "LoginFailed", "Logout", "DeviceLogout", "Key",
            "AutoReset", "Destination", "DestinationNotFound", "JobCreated", "JobStarted", "JobFailed", "JobState",
            "ScanPage", "ScanCount", "ScanData", "JobLog", "JobEnded", "JobLogRead", "SendHistory", "BoxListing",
            "CopyStarted", "CopyProgress", "CopyDone", "CopyFailed", "CopyCancelled", "USB", "Cover", "Toner",
            "Paper", "Sleep", "Reader", "Forced", "Refused", "Cancel", "Warning", "Error")));

    /** The known kind spelled as given, ignoring case; null when there is none. */
    public static String kind(String name) {
        for (String k : KINDS) if (k.equalsIgnoreCase(name)) return k;
        return null;
    }

    static final int KEEP = 2000;
    private final ArrayDeque<Event> events = new ArrayDeque<>();
    private final List<Consumer<Event>> watchers = new CopyOnWriteArrayList<>();
    private int next = 1;

    public void add(String kind, String text) {
        if (!KINDS.contains(kind)) throw new IllegalArgumentException("unknown event kind " + kind);
        Event e;
        synchronized (this) {
            e = new Event(next++, System.currentTimeMillis(), kind, text == null ? "" : text);
            events.addLast(e);
            if (events.size() > KEEP) events.removeFirst();
            notifyAll();
        }
        for (Consumer<Event> c : watchers) c.accept(e);
    }

    public void watch(Consumer<Event> c) {
        watchers.add(c);
    }

    public void unwatch(Consumer<Event> c) {
        watchers.remove(c);
    }

    /** Events numbered above {@code afterSeq}, oldest first. */
    public synchronized List<Event> since(int afterSeq) {
        List<Event> out = new ArrayList<>();
        for (Event e : events) if (e.seq > afterSeq) out.add(e);
        return out;
    }

    public synchronized int lastSeq() {
        return next - 1;
    }

    /**
     * Waits for the first event after {@code afterSeq} of this kind whose text holds every word
     * given, in order; null on timeout.
     */
    public synchronized Event await(int afterSeq, String kind, List<String> words, long timeoutMs)
            throws InterruptedException {
        long end = System.currentTimeMillis() + timeoutMs;
        for (;;) {
            for (Event e : events) {
                if (e.seq > afterSeq && matches(e, kind, words)) return e;
            }
            long left = end - System.currentTimeMillis();
            if (left <= 0) return null;
            wait(left);
        }
    }

    static boolean matches(Event e, String kind, List<String> words) {
        if (!e.kind.equalsIgnoreCase(kind)) return false;
        String[] have = e.text.split("\\s+");
        int at = 0;
        for (String w : words) {
            boolean found = false;
            while (at < have.length) {
                if (have[at++].equalsIgnoreCase(w)) {
                    found = true;
                    break;
                }
            }
            if (!found) return false;
        }
        return true;
    }
}
