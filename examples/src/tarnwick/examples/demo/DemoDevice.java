package tarnwick.examples.demo;

import java.io.File;
import java.util.List;
import java.util.regex.Pattern;
import tarnwick.sim.SimDevice;
import tarnwick.sim.SimAcc;
import tarnwick.sim.SimCommon;
import tarnwick.sim.SimJobs;
import tarnwick.sim.SimPanel;
import tarnwick.sim.SimSample;
import tarnwick.sim.SimStorage;
import tarnwick.sim.SimSystem;

/**
 * The simulated device on the desk: the sample device, and what a person at the machine does to
 * it (hold a card, press a key, plug a stick, open a cover ...). Only the simulated device's
 * control classes are used here.
 *
 * <p>Every operation that a person can do returns "" or why it could not be done; when it could
 * not, nothing was changed.
 */
public final class DemoDevice {
    public static final String CARD_ALICE = SimSample.CARD_ALICE;
    private static final Pattern CARD = Pattern.compile("[0-9A-Fa-f]{1,32}");
    /** The call record is emptied this often: nothing here reads it, and a panel runs for days. */
    private static final long CLEAR_CALLS_MS = 1_000;
    private final ScanToEmailApp app;
    private volatile long callsCleared;

    public DemoDevice(ScanToEmailApp app) {
        this.app = app;
    }

    /** The sample device, with its drives in folders below {@code root}. */
    public void setUp(File root, int jobPaceMs) {
        SimSample.load();
        SimJobs.setPace(jobPaceMs);
        new File(root, "hdd").mkdirs();
        SimStorage.setFolder(2, new File(root, "hdd").getAbsolutePath());
        SimStorage.setFolder(0, new File(root, "usb0").getAbsolutePath());
        SimStorage.setFolder(1, new File(root, "usb1").getAbsolutePath());
        // The simulator counts printed pages; the scanner's counter moves with the pages scanned.
        app.log.watch(e -> {
            if (e.kind.equals("ScanPage")) {
                long now = SimSystem.count(SimSystem.COUNT_SCAN, SimSample.PAPER_SIZE, SimSample.COLOR);
                SimSystem.setCount(SimSystem.COUNT_SCAN, SimSample.PAPER_SIZE, SimSample.COLOR, now + 1);
            }
        });
        callsCleared = System.currentTimeMillis();
    }

    /** Plugs the removable-memory stick into drive 0 (after the application listens). */
    public void plugInitialStick() {
        SimStorage.plug(0);
    }

    /** Empties the simulated device's call record now and then (called as the panel is used). */
    public void housekeeping() {
        long now = System.currentTimeMillis();
        if (now - callsCleared >= CLEAR_CALLS_MS) {
            callsCleared = now;
            SimDevice.clearCalls();
        }
    }

    // ---- what a person does ----

    public static String checkKey(String key) {
        return ScanToEmailApp.KEYS.containsKey(key) ? ""
                : "unknown key \"" + key + "\" (keys: " + String.join(", ", ScanToEmailApp.KEYS.keySet()) + ")";
    }

    public String pressKey(String key) {
        String why = checkKey(key);
        if (!why.isEmpty()) return why;
        Integer id = ScanToEmailApp.KEYS.get(key);
        app.markKeySent();
        // Only the press reaches the application (the release carries the same id).
        SimPanel.keyEvent(id, 0);
        return "";
    }

    public static String checkCard(String cardId) {
        return CARD.matcher(cardId).matches() ? "" : "a card id is 1 to 32 hexadecimal digits";
    }

    public String holdCard(String cardId) {
        String why = checkCard(cardId);
        if (!why.isEmpty()) return why;
        SimAcc.iccardDetect(cardId.toUpperCase(), 3, 0, 0);
        return "";
    }

    public String usb(int drive, boolean plug) {
        if (drive != 0 && drive != 1) return "removable drives are 0 and 1";
        boolean changed = plug ? SimStorage.plug(drive) : SimStorage.unplug(drive);
        return changed ? "" : "drive " + drive + " is already " + (plug ? "plugged in" : "out");
    }

    public String cover(boolean open) {
        SimCommon.coverStatus(open ? 1 : 0);
        return "";
    }

    /** level: 0 ok, 1 low, 2 empty. */
    public String toner(int level) {
        if (level < 0 || level > 2) return "toner level is ok, low or empty";
        SimCommon.tonerStatus(0, level);
        return "";
    }

    /** The tray's paper as the machine reports it, then the device's notification of it. */
    public String paper(int tray, int level) {
        if (tray < 1 || tray > 2 || level < 0 || level > 100) return "tray 1 or 2, level 0 to 100";
        int[] t = SimSystem.tray(tray);
        if (t == null || t.length < 4) return "tray " + tray + " is not fitted";
        SimSystem.setTray(tray, level, t[1], t[2], t[3]);
        SimCommon.paperRestStatus(tray, level);
        return "";
    }

    public String sleep(boolean asleep) {
        SimCommon.setPowerState(asleep ? 1 : 0);
        SimCommon.sleep(asleep ? 1 : 0);
        return "";
    }

    /** Why a forcing of {@code operation} with {@code code}, {@code times} times, is refused; "" when it is not. */
    public static String checkForcing(String operation, long code, int times) {
        if (!FacadeOperations.NAMES.contains(operation)) {
            return "no facade operation is named \"" + operation + "\" (for example esv_zel_job_kick, esv_zel_job_start)";
        }
        if (code < 0 || code > 0xFFFFFFFFL) return "a code is a 32-bit number";
        if (times < 1 || times > 99) return "times is 1 to 99";
        return "";
    }

    /** The next {@code times} calls of a facade operation answer {@code code}. */
    public String failNext(String operation, long code, int times) {
        String why = checkForcing(operation, code, times);
        if (!why.isEmpty()) return why;
        SimDevice.forceResult(operation, code, times);
        app.log.add("Forced", operation + " answers " + ScanToEmailApp.hex(code) + (times > 1 ? " " + times + " times" : ""));
        return "";
    }

    public static String checkFault(long code) {
        return code < 0 || code > 0x7FFFFFFFL ? "a fault code is a positive 31-bit number" : "";
    }

    public String jobFault(long code) {
        String why = checkFault(code);
        if (!why.isEmpty()) return why;
        SimJobs.injectFault(1, (int) code);
        app.log.add("Forced", "next job ends with error " + ScanToEmailApp.hex(code));
        return "";
    }

    /** A code in decimal or 0x hexadecimal. */
    public static long parseCode(String s) {
        s = s.trim();
        if (s.startsWith("0x") || s.startsWith("0X")) return Long.parseLong(s.substring(2), 16);
        return Long.parseLong(s);
    }

    /** Trace lines containing {@code filter} (all when empty), at most the last {@code max}. */
    public static List<String> trace(String filter, int max) {
        String[] lines = SimDevice.traceLines();
        java.util.LinkedList<String> out = new java.util.LinkedList<>();
        for (int i = lines.length - 1; i >= 0 && out.size() < max; --i) {
            if (filter.isEmpty() || lines[i].contains(filter)) out.addFirst(lines[i]);
        }
        return out;
    }

    public static int powerState() {
        return SimCommon.powerState();
    }
}
