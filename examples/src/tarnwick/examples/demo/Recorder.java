package tarnwick.examples.demo;

import java.io.BufferedWriter;
import java.io.IOException;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Path;
import java.time.LocalDateTime;
import java.time.format.DateTimeFormatter;
import java.util.ArrayList;
import java.util.List;
import java.util.function.Consumer;

/**
 * The panel's record switch: what a person does on the panel, written as a scenario that
 * {@code --scenario} plays back. Each action becomes its step; after it come expectations of
 * what the device and the application answered (the events that followed it, up to the next
 * step), so that playing the file checks that the same things happen again. Only answers and
 * outcomes are expected (a login, a key, a job's end, a copy's end, a status change), not
 * progress (pages, percentages, intermediate job states), whose count and timing vary; words
 * that differ from run to run (job, receipt and certificate numbers, times) are left out.
 */
final class Recorder {
    private final EventLog log;
    private final Consumer<EventLog.Event> watcher = this::seen;
    private BufferedWriter out;
    private Path file;
    private long stepMillis;
    private int steps;
    private final List<EventLog.Event> since = new ArrayList<>();

    Recorder(EventLog log) {
        this.log = log;
    }

    synchronized boolean on() {
        return out != null;
    }

    synchronized Path file() {
        return file;
    }

    synchronized int steps() {
        return steps;
    }

    /** Starts a new file in {@code folder}; its path. */
    synchronized Path start(Path folder, String startState) throws IOException {
        if (out != null) return file;
        Files.createDirectories(folder);
        String stamp = LocalDateTime.now().format(DateTimeFormatter.ofPattern("yyyyMMdd-HHmmss"));
        Path f = folder.resolve("panel-" + stamp + ".txt");
        for (int n = 2; Files.exists(f); ++n) f = folder.resolve("panel-" + stamp + "-" + n + ".txt");
        out = Files.newBufferedWriter(f, StandardCharsets.UTF_8);
        file = f;
        steps = 0;
        since.clear();
        stepMillis = System.currentTimeMillis();
        out.write("# Recorded on the front panel, " + LocalDateTime.now().withNano(0) + ".\n");
        out.write("# Play it back: scripts/main.sh --scenario " + f + "\n");
        if (!startState.isEmpty()) out.write("# When recording began: " + startState + "\n");
        out.flush();
        log.watch(watcher);
        return f;
    }

    /** Ends the file (with the expectations of the last step); its path, or null when it was off. */
    synchronized Path stop() throws IOException {
        if (out == null) return null;
        log.unwatch(watcher);
        try {
            flushExpectations();
            out.write("# " + steps + " steps recorded.\n");
        } finally {
            out.close();
            out = null;
        }
        return file;
    }

    /**
     * An action is about to be taken: what the previous step brought until now is written, and
     * what comes from here on belongs to this action's step.
     */
    synchronized void begin() {
        if (out == null) return;
        try {
            flushExpectations();
            stepMillis = System.currentTimeMillis();
        } catch (IOException e) {
            failed();
        }
    }

    /** The step of the action begun last (a scenario line); ignored while not recording. */
    synchronized void step(String line) {
        if (out == null) return;
        try {
            out.write(line + "\n");
            out.flush();
            ++steps;
        } catch (IOException e) {
            failed();
        }
    }

    /** The file cannot be written: recording ends, and the panel shows it stopped. */
    private void failed() {
        log.unwatch(watcher);
        try {
            out.close();
        } catch (IOException e) {
            // already failing
        }
        out = null;
    }

    private synchronized void seen(EventLog.Event e) {
        if (out != null) since.add(e);
    }

    private void flushExpectations() throws IOException {
        // What happened before the first step came from before the recording.
        for (EventLog.Event e : steps == 0 ? List.<EventLog.Event>of() : since) {
            String words = expectedWords(e);
            if (words == null) continue;
            long waited = Math.max(0, e.millis - stepMillis);
            long within = Math.min(120, 5 + 2 * ((waited + 999) / 1000));
            out.write("expect event " + e.kind + (words.isEmpty() ? "" : " " + words) + " within " + within + " s\n");
        }
        since.clear();
        out.flush();
    }

    /** The words of an event that a playback must see again; null for an event not worth expecting. */
    static String expectedWords(EventLog.Event e) {
        String[] w = e.text.isEmpty() ? new String[0] : e.text.split("\\s+");
        switch (e.kind) {
            case "Key": case "ICCard": case "Login": case "Logout": case "LoginFailed": case "Forced":
                return w.length > 0 ? w[0] : "";
            case "Destination":
                return w.length > 0 ? w[0] : "";
            case "JobState":   // job, state, user: how the job ended (the job number is left out)
                return w.length >= 3 && List.of("COMPLETE", "CANCEL", "ERROR").contains(w[1]) ? w[1] + " " + w[2] : null;
            case "JobFailed":  // "start result 5 job 101": what failed and its result
                return w.length >= 3 ? w[0] + " " + w[1] + " " + w[2] : String.join(" ", w);
            case "JobLogRead": // "101 receipt 9 result OK error 0x0 user alice"
                for (int i = 0; i + 1 < w.length; ++i) if (w[i].equals("result")) return "result " + w[i + 1];
                return null;
            case "SendHistory": // "101 dana@example.org OK"
                return w.length >= 3 ? w[1] + " " + w[2] : null;
            case "CopyStarted": case "CopyDone": case "CopyFailed": case "CopyCancelled":
                return w.length > 0 ? w[0] : "";
            case "Cancel":
                return w.length > 0 && !w[0].matches("[0-9]+") ? e.text : "";
            case "DestinationNotFound": case "BoxListing": case "USB": case "Cover": case "Toner": case "Paper":
            case "Sleep": case "Refused": case "DeviceLogout": case "AutoReset":
                return e.text;
            default:   // progress and intermediate states: how many arrive, and when, depends on timing
                return null;
        }
    }
}
