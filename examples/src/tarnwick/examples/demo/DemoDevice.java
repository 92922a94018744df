package tarnwick.examples.demo;

import java.io.File;
import java.util.regex.Pattern;
import tarnwick.sim.SimAddressBook;
import tarnwick.sim.SimDevice;
import tarnwick.sim.SimEvents;
import tarnwick.sim.SimJobs;
import tarnwick.sim.SimStorage;
import tarnwick.sim.SimSystem;
import tarnwick.sim.SimUsers;
import tarnwick.zel.wrapper.account.CMT_Account_ModuleJNI;

/**
 * The simulated device on the desk: its sample data, and what a person at the machine does to
 * it (hold a card, press a key, plug a stick, open a cover ...). Only the simulated device's
 * control classes are used here, plus the account module to set up the departments.
 */
public final class DemoDevice {
    public static final String CARD_ALICE = "0123456789ABCDEF";
    private static final Pattern OPERATION = Pattern.compile("[A-Za-z_][A-Za-z0-9_]{0,79}");
    private static final Pattern CARD = Pattern.compile("[0-9A-Fa-f]{1,32}");
    private final ScanToEmailApp app;

    public DemoDevice(ScanToEmailApp app) {
        this.app = app;
    }

    /** A freshly started device with the sample data; drives in folders below {@code root}. */
    public void setUp(File root, int jobPaceMs) {
        SimSystem.reset();
        SimDevice.reset();
        SimJobs.reset();
        SimJobs.setPace(jobPaceMs);
        SimUsers.reset();
        SimAddressBook.reset();
        SimStorage.reset();
        SimStorage.boxReset();

        // Users (alice has an IC card), their departments.
        SimUsers.addLocalUser("alice", "secret", "Alice Archer", "alice@example.com", 1, 0, 1, "", CARD_ALICE, "");
        SimUsers.addLocalUser("bob", "bobpw", "Bob Baker", "bob@example.com", 1, 0, 2, "", "", "");
        SimUsers.addLocalUser("carol", "carolpw", "Carol Cole", "carol@example.com", 3, 0, 1, "", "", "");
        long accounts = CMT_Account_ModuleJNI.new_cmt_account_manager();
        String[][] depts = {{"1", "Sales"}, {"2", "Engineering"}, {"3", "Front office"}};
        for (String[] d : depts) {
            long a = CMT_Account_ModuleJNI.new_cmt_account(d[0]);
            CMT_Account_ModuleJNI.cmt_account_set_name(a, null, d[1]);
            CMT_Account_ModuleJNI.cmt_account_manager_add(accounts, null, a, null);
            CMT_Account_ModuleJNI.delete_cmt_account(a);
        }
        CMT_Account_ModuleJNI.delete_cmt_account_manager(accounts);

        // A personal address book of a few hundred entries.
        String[][] people = {{"Alice Archer", "alice@example.com"}, {"Bob Baker", "bob@example.com"},
                             {"Carol Cole", "carol@example.com"}, {"Dana Dunn", "dana@example.org"},
                             {"Erik Engel", "erik@example.net"}};
        for (String[] p : people) {
            SimAddressBook.Entry e = new SimAddressBook.Entry(p[0]);
            e.mailAddress = p[1];
            SimAddressBook.add(e);
        }
        SimAddressBook.generate(300, 1);

        // Drives: the hard disk and two removable-memory folders; stick 0 is plugged in.
        new File(root, "hdd").mkdirs();
        SimStorage.setFolder(2, new File(root, "hdd").getAbsolutePath());
        SimStorage.setFolder(0, new File(root, "usb0").getAbsolutePath());
        SimStorage.setFolder(1, new File(root, "usb1").getAbsolutePath());

        // A document box with documents.
        SimStorage.boxAddFolder("/Sales");
        SimStorage.boxAddDocument("/Sales", "price-list.pdf", 482_113, 0, 0);
        SimStorage.boxAddDocument("/Sales", "contract-draft.pdf", 1_204_551, 86400, 0);
        SimStorage.boxAddFolder("/Engineering");
        SimStorage.boxAddDocument("/Engineering", "schematic.tif", 8_388_608, 0, 2);

        // Machine values.
        SimSystem.setModelType(0x5A31);
        SimSystem.setTray(1, 80, 4, 0, 0);   // remaining paper, in percent
        SimSystem.setTray(2, 35, 5, 0, 0);
        SimSystem.setCount(0, 4, 1, 12873);
        SimSystem.setCount(1, 4, 1, 9012);
        SimSystem.setCount(2, 4, 1, 3861);
        SimSystem.setCount(3, 4, 1, 2250);
        SimSystem.setReader(0x0590, 0x0102, 7);
    }

    /** Plugs the removable-memory stick into drive 0 (after the application listens). */
    public void plugInitialStick() {
        SimStorage.plug(0);
    }

    // ---- what a person does; each returns "" or why it could not be done ----

    public String pressKey(String key) {
        Integer id = ScanToEmailApp.KEYS.get(key);
        if (id == null) return "unknown key \"" + key + "\" (keys: " + String.join(", ", ScanToEmailApp.KEYS.keySet()) + ")";
        app.markKeySent();
        // Only the press reaches the application (the release carries the same id).
        SimEvents.keyEvent(id, 0);
        return "";
    }

    public String holdCard(String cardId) {
        if (!CARD.matcher(cardId).matches()) return "a card id is 1 to 32 hexadecimal digits";
        SimEvents.iccardDetect(cardId.toUpperCase(), 3, 0, 0);
        return "";
    }

    public String usb(int drive, boolean plug) {
        if (drive != 0 && drive != 1) return "removable drives are 0 and 1";
        boolean changed = plug ? SimStorage.plug(drive) : SimStorage.unplug(drive);
        return changed ? "" : "drive " + drive + " is already " + (plug ? "plugged in" : "out");
    }

    public String cover(boolean open) {
        SimEvents.coverStatus(open ? 1 : 0);
        return "";
    }

    /** level: 0 ok, 1 low, 2 empty. */
    public String toner(int level) {
        if (level < 0 || level > 2) return "toner level is ok, low or empty";
        SimEvents.tonerStatus(0, level);
        return "";
    }

    public String paper(int tray, int level) {
        if (tray < 1 || tray > 2 || level < 0 || level > 100) return "tray 1 or 2, level 0 to 100";
        SimEvents.paperRestStatus(tray, level);
        return "";
    }

    public String sleep(boolean asleep) {
        SimSystem.setPowerState(asleep ? 1 : 0);
        SimEvents.sleep(asleep ? 1 : 0);
        return "";
    }

    /** The next {@code times} calls of a facade operation answer {@code code}. */
    public String failNext(String operation, long code, int times) {
        if (!OPERATION.matcher(operation).matches()) return "an operation is a facade member name such as esv_zel_job_kick";
        if (code < 0 || code > 0xFFFFFFFFL) return "a code is a 32-bit number";
        if (times < 1 || times > 100) return "times is 1 to 100";
        SimDevice.forceResult(operation, code, times);
        app.log.add("Forced", operation + " answers " + ScanToEmailApp.hex(code) + (times > 1 ? " " + times + " times" : ""));
        return "";
    }

    public String jobFault(long code) {
        if (code < 0 || code > 0x7FFFFFFFL) return "a fault code is a positive 31-bit number";
        SimJobs.injectFault(1, (int) code);
        app.log.add("Forced", "next job ends with error " + ScanToEmailApp.hex(code));
        return "";
    }

    public static long parseCode(String s) {
        s = s.trim();
        if (s.startsWith("0x") || s.startsWith("0X")) return Long.parseLong(s.substring(2), 16);
        return Long.parseLong(s);
    }

    /** Trace lines containing {@code filter} (all when empty), at most the last {@code max}. */
    public static java.util.List<String> trace(String filter, int max) {
        String[] lines = SimDevice.traceLines();
        java.util.List<String> out = new java.util.ArrayList<>();
        for (int i = lines.length - 1; i >= 0 && out.size() < max; --i) {
            if (filter.isEmpty() || lines[i].contains(filter)) out.add(0, lines[i]);
        }
        return out;
    }

    public static int powerState() {
        return SimSystem.powerState();
    }
}
