package tarnwick.examples.demo;

import java.util.ArrayList;
import java.util.LinkedHashMap;
import java.util.List;
import java.util.Map;
import java.util.concurrent.Callable;
import java.util.concurrent.ExecutionException;
import java.util.concurrent.ExecutorService;
import java.util.concurrent.Executors;
import java.util.concurrent.Future;
import java.util.concurrent.LinkedBlockingQueue;
import java.util.concurrent.ThreadPoolExecutor;
import java.util.concurrent.TimeUnit;
import java.util.concurrent.TimeoutException;
import java.util.concurrent.atomic.AtomicBoolean;
import tarnwick.address.SearchKey;
import tarnwick.zel.address.PersonalAddressImpl;
import tarnwick.zel.box.document.RemovableMemoryFileImpl;
import tarnwick.zel.controller.event.device.ICCardInfo;
import tarnwick.zel.controller.event.job.Job;
import tarnwick.zel.controller.event.job.JobLogInfo;
import tarnwick.zel.controller.event.job.ScanPageInfo;
import tarnwick.zel.controller.event.proxy.AccProxy;
import tarnwick.zel.controller.event.proxy.CommonProxy;
import tarnwick.zel.controller.event.proxy.JobInfoProxy;
import tarnwick.zel.controller.event.proxy.JobProxy;
import tarnwick.zel.controller.event.proxy.PanelProxy;
import tarnwick.zel.wrapper.address.cmt_address_book;
import tarnwick.zel.wrapper.box.zel_fnd_document_manager;
import tarnwick.zel.wrapper.device.attribute.CMT_System_Info;
import tarnwick.zel.wrapper.device.attribute.ESV_ZEL_COUNT_INFO;
import tarnwick.zel.wrapper.device.attribute.ESV_ZEL_PAPER_INFO;
import tarnwick.zel.wrapper.event.zel_fnd_event_manager;
import tarnwick.zel.wrapper.job.ESV_ZEL_JOB_ADDRESS_TYPE;
import tarnwick.zel.wrapper.job.ESV_ZEL_JOB_CATEGORY;
import tarnwick.zel.wrapper.job.ESV_ZEL_JOB_GET_SCAN_DATA;
import tarnwick.zel.wrapper.job.ESV_ZEL_JOB_PHB_CATEGORY;
import tarnwick.zel.wrapper.job.ESV_ZEL_JOB_SEND_INFO;
import tarnwick.zel.wrapper.job.ESV_ZEL_JOB_SETTING;
import tarnwick.zel.wrapper.job.zel_fnd_job_proxy;
import tarnwick.zel.wrapper.job.log.ESV_ZEL_JOBINFO_JOBLOG;
import tarnwick.zel.wrapper.job.log.ESV_ZEL_JOBINFO_JOBLOG_TYPE_VAL;
import tarnwick.zel.wrapper.job.log.ESV_ZEL_JOBINFO_SEND_INFO;
import tarnwick.zel.wrapper.job.log.zel_fnd_job_log_proxy;
import tarnwick.zel.wrapper.storage.CMT_StorageIO;
import tarnwick.zel.wrapper.system.cmt_init;
import tarnwick.zel.wrapper.user.ESV_ZEL_USERINFO_RECORD;
import tarnwick.zel.wrapper.user.ESV_ZEL_USER_AUTHMODE;
import tarnwick.zel.wrapper.user.ESV_ZEL_USER_USERKIND;
import tarnwick.zel.wrapper.user.ZEL_FND_CERTIFICATE_ID;
import tarnwick.zel.wrapper.user.zel_fnd_authentication;

/**
 * A device application: scan to e-mail. It uses the library's Java modules only, through their
 * proxy classes: it starts the library and its event manager, listens to the event proxies, logs
 * a user in (IC card or name and password), finds a destination in the address book, builds and
 * runs a send job, follows its states and pages, reads the job log and send history, shows the
 * machine's values and copies a document to removable memory.
 *
 * <p>Threads: short library calls run on the application thread ({@link #submit}); a scan job is
 * followed on the job thread and a copy runs on the copy thread, so neither holds up the rest.
 * Event listeners only record and hand over.
 */
public final class ScanToEmailApp {
    /** Pages a scan may have, wherever they are given (panel, scenario). */
    public static final int MAX_PAGES = 99;
    /** Largest document the copy makes, in MB. */
    public static final int MAX_DOCUMENT_MB = 256;
    /** Scans kept on the hard disk (older ones are removed). */
    static final int KEEP_SCANS = 10;
    /** Jobs, pages and log receipts remembered (the oldest go first). */
    static final int KEEP_JOBS = 50;
    /** Scans that may wait behind the one running. */
    static final int MAX_QUEUED_SCANS = 4;

    // Storage drives as the storage module numbers them, and its open modes.
    public static final int STORAGE_HDD = 0;
    static final int OPEN_READ = 0;
    static final int OPEN_WRITE = 1;
    /** The one large document the copy makes, reused while its size is the one asked for. */
    static final String DOCUMENT = "document.bin";

    /** Panel keys (the application id a key event carries). */
    public static final Map<String, Integer> KEYS = new LinkedHashMap<>();
    static {
        KEYS.put("start", 1);
        KEYS.put("stop", 2);
        KEYS.put("reset", 3);
        KEYS.put("home", 4);
    }

    /** The storage module's drive for removable memory 0 or 1. */
    public static int removableDrive(int removable) {
        return removable == 0 ? 2 : 1;
    }

    public final EventLog log = new EventLog();
    private final ExecutorService worker = Executors.newSingleThreadExecutor(daemon("scan-to-email"));
    private final ThreadPoolExecutor jobs = new ThreadPoolExecutor(1, 1, 0, TimeUnit.SECONDS,
            new LinkedBlockingQueue<>(MAX_QUEUED_SCANS), daemon("scan-job"));
    private final ExecutorService copier = Executors.newSingleThreadExecutor(daemon("copy"));

    // State, guarded by this.
    private String user = "";
    private String userName = "";
    private long cert;
    private String destination = "";
    private final Map<Long, String> jobStates = bounded();
    private final Map<Long, String> jobPages = bounded();
    private final Map<Long, Long> receipts = bounded();
    private final List<String> keptScans = new ArrayList<>();
    private String lastScanFile = "";
    private String lastJobLog = "";
    private String lastSendHistory = "";
    private String copyState = "";
    private boolean copying;
    private int sleepState = 0;
    private long coverStatus = 0;
    private String toner = "ok";
    private String paper = "";
    private String usb = "";
    private String reader = "";
    private Map<String, String> machine = new LinkedHashMap<>();
    private int scanPages = 3;
    private final AtomicBoolean cancelCopy = new AtomicBoolean();
    private volatile long keySentNanos;
    private volatile long lastKeyLatencyNanos = -1;
    private volatile long lastKeyEpochMicros;

    private zel_fnd_event_manager manager;
    private zel_fnd_authentication auth;
    private zel_fnd_job_proxy jobProxy;
    private CMT_System_Info sysInfo;

    private static java.util.concurrent.ThreadFactory daemon(String name) {
        return r -> {
            Thread t = new Thread(r, name);
            t.setDaemon(true);
            return t;
        };
    }

    private static <K, V> Map<K, V> bounded() {
        return new LinkedHashMap<K, V>() {
            @Override
            protected boolean removeEldestEntry(Map.Entry<K, V> eldest) {
                return size() > KEEP_JOBS;
            }
        };
    }

    private final JobProxy.Listener jobListener = new JobProxy.Listener() {
        @Override public void jobStateChanged(Job job) {
            synchronized (ScanToEmailApp.this) {
                jobStates.put((long) job.getJobid(), String.valueOf(job.getState()));
            }
            log.add("JobState", job.getJobid() + " " + job.getState() + " " + job.getUserName());
        }

        @Override public void scanCount(long first, long second) {
            log.add("ScanCount", first + "/" + second);
        }
    };
    private final JobInfoProxy.Listener infoListener = new JobInfoProxy.Listener() {
        @Override public void page(Object info) {
            if (info instanceof ScanPageInfo) {
                ScanPageInfo s = (ScanPageInfo) info;
                synchronized (ScanToEmailApp.this) {
                    jobPages.put(s.getUserJobId(), String.valueOf(s.getPageNum()));
                }
                log.add("ScanPage", s.getUserJobId() + " " + s.getPageNum() + " " + s.getResolution() + "dpi");
            }
        }

        @Override public void jobLog(JobLogInfo info) {
            synchronized (ScanToEmailApp.this) {
                receipts.put(info.getUserJobId(), info.getReceiptId());
            }
            log.add("JobLog", info.getUserJobId() + " " + info.getReceiptId());
        }
    };
    private final AccProxy.Listener accListener = new AccProxy.Listener() {
        @Override public void icCard(ICCardInfo info) {
            String id = info.getCardId();
            log.add("ICCard", id);
            submit(() -> loginCard(id));
        }

        @Override public void icCardError(int code) {
            log.add("ICCardError", String.valueOf(code));
        }

        @Override public void icCardDevice(int vendorId, int productId, boolean connected, byte cardTypes) {
            synchronized (ScanToEmailApp.this) {
                reader = connected ? "connected" : "unplugged";
            }
            log.add("Reader", Integer.toHexString(vendorId) + ":" + Integer.toHexString(productId) + " "
                    + (connected ? "connected" : "unplugged"));
        }
    };
    private final CommonProxy.Listener commonListener = new CommonProxy.Listener() {
        @Override public void sleep(int state) {
            synchronized (ScanToEmailApp.this) {
                sleepState = state;
            }
            log.add("Sleep", state == 0 ? "awake" : "asleep " + state);
            refreshMachine();
        }

        @Override public void usbDevice(int status) {
            String text = "drive " + (status >> 8) + ((status & 1) != 0 ? " plugged" : " removed");
            synchronized (ScanToEmailApp.this) {
                usb = text;
            }
            log.add("USB", text);
        }

        // The event hands the level first, then the colour (the device's order reversed).
        @Override public void tonerLevel(short level, short colour) {
            String text = "colour " + colour + " " + (level == 0 ? "ok" : level == 1 ? "low" : "empty");
            synchronized (ScanToEmailApp.this) {
                toner = text;
            }
            log.add("Toner", text);
        }

        @Override public void paperSourceLevel(int source, short level) {
            String text = "tray " + source + " level " + level;
            synchronized (ScanToEmailApp.this) {
                paper = text;
            }
            log.add("Paper", text);
            refreshMachine();
        }

        @Override public void cover(long status) {
            synchronized (ScanToEmailApp.this) {
                coverStatus = status;
            }
            log.add("Cover", status == 0 ? "closed" : "open " + status);
        }

        @Override public void logout() {
            log.add("DeviceLogout", "");
        }
    };
    private final PanelProxy.Listener panelListener = new PanelProxy.Listener() {
        @Override public void applStart(long id) {
            long sent = keySentNanos;
            if (sent != 0) lastKeyLatencyNanos = System.nanoTime() - sent;
            java.time.Instant now = java.time.Instant.now();
            lastKeyEpochMicros = now.getEpochSecond() * 1_000_000L + now.getNano() / 1000;
            String key = keyName(id);
            log.add("Key", key + (sent != 0 ? String.format(" %.0fus", lastKeyLatencyNanos / 1000.0) : ""));
            switch (key) {
                // Stop must reach a job the job thread is busy following.
                case "stop": new Thread(ScanToEmailApp.this::cancelRunning, "stop-key").start(); break;
                case "start": startScan(); break;
                case "reset": submit(ScanToEmailApp.this::logout); break;
                default: break;
            }
        }

        @Override public void autoReset() {
            log.add("AutoReset", "");
            submit(ScanToEmailApp.this::logout);
        }
    };

    /** Starts the library, its event manager, and listens to every proxy. */
    public void start() {
        int rc = cmt_init.init();
        log.add("Init", "cmt_init.init() = " + rc);
        JobProxy.listeners.add(jobListener);
        JobInfoProxy.listeners.add(infoListener);
        AccProxy.listeners.add(accListener);
        CommonProxy.listeners.add(commonListener);
        PanelProxy.listeners.add(panelListener);
        manager = new zel_fnd_event_manager();
        boolean ok = manager.init();
        log.add("EventManager", ok ? "started" : "failed");
        auth = new zel_fnd_authentication();
        jobProxy = new zel_fnd_job_proxy();
        sysInfo = new CMT_System_Info();
        refreshMachine();
    }

    public void stop() {
        cancelCopy.set(true);
        copier.shutdownNow();
        jobs.shutdownNow();
        worker.shutdownNow();
        JobProxy.listeners.remove(jobListener);
        JobInfoProxy.listeners.remove(infoListener);
        AccProxy.listeners.remove(accListener);
        CommonProxy.listeners.remove(commonListener);
        PanelProxy.listeners.remove(panelListener);
        sysInfo.delete();
        jobProxy.delete();
        auth.delete();
        manager.terminate();
        manager.delete();
    }

    public static String keyName(long id) {
        for (Map.Entry<String, Integer> e : KEYS.entrySet()) if (e.getValue() == id) return e.getKey();
        return "key" + id;
    }

    /** Called just before a key event is raised, so the listener can tell how long it took. */
    public void markKeySent() {
        keySentNanos = System.nanoTime();
    }

    /** Wall-clock time (microseconds since 1970) of the last key listener call. */
    public long lastKeyEpochMicros() {
        return lastKeyEpochMicros;
    }

    public long lastKeyLatencyNanos() {
        return lastKeyLatencyNanos;
    }

    /** Runs on the application thread; the caller may wait on the result. */
    public Future<?> submit(Runnable r) {
        return worker.submit(() -> {
            try {
                r.run();
            } catch (RuntimeException e) {
                log.add("Error", e.toString());
            }
        });
    }

    /** The application thread did not take a request in time; the request was dropped. */
    public static final class Busy extends Exception {
        Busy(String what) {
            super(what);
        }
    }

    /**
     * Runs {@code work} on the application thread and waits for its answer. When the thread has
     * not begun it within {@code timeoutMs}, the work is withdrawn (it will not run later) and
     * {@link Busy} is thrown.
     */
    public <T> T call(Callable<T> work, long timeoutMs) throws Busy, InterruptedException {
        // 0 waiting, 1 begun, 2 withdrawn: whichever of the two threads moves it from 0 decides.
        java.util.concurrent.atomic.AtomicInteger state = new java.util.concurrent.atomic.AtomicInteger();
        Future<T> f = worker.submit(() -> state.compareAndSet(0, 1) ? work.call() : null);
        try {
            return f.get(timeoutMs, TimeUnit.MILLISECONDS);
        } catch (TimeoutException e) {
            if (state.compareAndSet(0, 2)) throw new Busy("the application is busy; nothing was done");
            try {
                return f.get();  // it had begun: its answer is the one to give
            } catch (ExecutionException x) {
                throw unchecked(x);
            }
        } catch (ExecutionException e) {
            throw unchecked(e);
        }
    }

    private static RuntimeException unchecked(ExecutionException e) {
        Throwable c = e.getCause();
        return c instanceof RuntimeException ? (RuntimeException) c : new IllegalStateException(c);
    }

    // ---- users ----

    private void loginCard(String cardId) {
        ZEL_FND_CERTIFICATE_ID c = new ZEL_FND_CERTIFICATE_ID();
        try {
            int rc = auth.iccard_login(cardId, c);
            if (rc != 0) {
                log.add("LoginFailed", "card " + cardId + " code " + rc);
                return;
            }
            loggedIn(c.getId());
        } finally {
            c.delete();
        }
    }

    /**
     * Logs a local user in by name and password; returns the module's result (0: logged in, 1
     * wrong password, 2 unknown user, 4 failure). A failed login leaves whoever was logged in.
     */
    public int login(String name, String password) {
        ZEL_FND_CERTIFICATE_ID c = new ZEL_FND_CERTIFICATE_ID();
        try {
            int rc = auth.login(name, password, ESV_ZEL_USER_AUTHMODE.ESV_ZEL_USER_AUTHMODE_LOCAL, c);
            if (rc != 0) {
                log.add("LoginFailed", name + " code " + rc);
                return rc;
            }
            loggedIn(c.getId());
            return 0;
        } finally {
            c.delete();
        }
    }

    private void loggedIn(long certId) {
        if (cert != 0) logout();
        ESV_ZEL_USERINFO_RECORD rec = new ESV_ZEL_USERINFO_RECORD();
        try {
            int rc = auth.get_login_user_info(ESV_ZEL_USER_USERKIND.ESV_ZEL_USER_USERKIND_LOGIN, rec);
            String login = rc == 0 ? rec.getLogin_name() : "?";
            String name = rc == 0 ? rec.getUser_name() : "?";
            String mail = rc == 0 ? rec.getEmail() : "";
            synchronized (this) {
                cert = certId;
                user = login;
                userName = name;
                if (destination.isEmpty() && mail != null) destination = mail;
            }
            log.add("Login", login + " \"" + name + "\" certificate " + certId);
        } finally {
            rec.delete();
        }
    }

    public void logout() {
        long c;
        String who;
        synchronized (this) {
            c = cert;
            who = user;
        }
        if (c == 0) {
            log.add("Logout", "nobody logged in");
            return;
        }
        int rc = auth.logout(c);
        synchronized (this) {
            cert = 0;
            user = "";
            userName = "";
            destination = "";
        }
        log.add("Logout", who + (rc == 0 ? "" : " code " + rc));
    }

    public synchronized String user() {
        return user;
    }

    // ---- address book ----

    /** Personal addresses whose name begins with {@code prefix}: "name <mail>" each. */
    public List<String> search(String prefix) {
        List<String> out = new ArrayList<>();
        cmt_address_book book = new cmt_address_book();
        try {
            Object[] found = book.search_address(1, new SearchKey(prefix));
            if (found == null) return out;
            for (Object o : found) {
                PersonalAddressImpl a = (PersonalAddressImpl) o;
                String mail = a.getEmail() == null ? "" : a.getEmail().getMailAddress();
                out.add(a.getName().getName() + " <" + mail + ">");
            }
        } finally {
            book.delete();
        }
        return out;
    }

    /** Chooses the first address-book entry whose name begins with {@code prefix} and that has a mail address. */
    public boolean chooseDestination(String prefix) {
        for (String entry : search(prefix)) {
            String mail = entry.substring(entry.lastIndexOf('<') + 1, entry.length() - 1);
            if (mail.isEmpty()) continue;
            synchronized (this) {
                destination = mail;
            }
            log.add("Destination", mail + " (" + entry.substring(0, entry.lastIndexOf('<')).trim() + ")");
            return true;
        }
        log.add("DestinationNotFound", prefix);
        return false;
    }

    /** Sets the pages of the next scans; false (and nothing changed) outside 1 to {@value #MAX_PAGES}. */
    public synchronized boolean setScanPages(int pages) {
        if (pages < 1 || pages > MAX_PAGES) return false;
        scanPages = pages;
        return true;
    }

    // ---- the job ----

    /** Why a scan to e-mail cannot start now ("" when it can). */
    public synchronized String scanRefusal() {
        if (user.isEmpty()) return "nobody logged in";
        if (destination.isEmpty()) return "no destination";
        return "";
    }

    /**
     * Queues a scan to e-mail on the job thread; "" when queued, otherwise why not (also logged
     * as Refused).
     */
    public String startScan() {
        String why = scanRefusal();
        if (why.isEmpty()) {
            try {
                jobs.execute(() -> {
                    try {
                        scanToEmail();
                    } catch (RuntimeException e) {
                        log.add("Error", e.toString());
                    }
                });
                return "";
            } catch (java.util.concurrent.RejectedExecutionException e) {
                why = "already " + MAX_QUEUED_SCANS + " scans waiting";
            }
        }
        log.add("Refused", "scan to e-mail: " + why);
        return why;
    }

    /** Scan to e-mail for the logged-in user to the chosen destination; returns the job id or 0. */
    public long scanToEmail() {
        String who, to;
        int pages;
        synchronized (this) {
            who = user;
            to = destination;
            pages = scanPages;
        }
        if (who.isEmpty()) {
            log.add("Refused", "scan to e-mail: nobody logged in");
            return 0;
        }
        if (to.isEmpty()) {
            log.add("Refused", "scan to e-mail: no destination");
            return 0;
        }
        long uid = createJob(who, to, pages);
        if (uid == 0) return 0;
        int rc = jobProxy.continuous_read(uid);
        if (rc != 0) log.add("Warning", "continuous read result " + rc);
        rc = jobProxy.start(uid);
        if (rc != 0) {
            log.add("JobFailed", "start result " + rc + " job " + uid);
            jobProxy.cancel(uid);
            return uid;
        }
        log.add("JobStarted", uid + " " + pages + " pages to " + to);
        readScan(uid);
        String end = awaitEnd(uid, 60000);
        log.add("JobEnded", uid + " " + end);
        refreshMachine();
        readJobLog(uid);
        return uid;
    }

    private long createJob(String who, String to, int pages) {
        long[] id = {0};
        int rc = jobProxy.generate_jobinfo(ESV_ZEL_JOB_PHB_CATEGORY.ESV_ZEL_JOB_PHB_CATEGORY_SEND, id);
        if (rc != 0) {
            log.add("JobFailed", "generate result " + rc);
            return 0;
        }
        jobProxy.set_value(id[0], ESV_ZEL_JOB_SETTING.ESV_ZEL_JOB_SETTING_ORIGINAL_PAGES, pages);
        jobProxy.set_value(id[0], ESV_ZEL_JOB_SETTING.ESV_ZEL_JOB_SETTING_USER_NAME, who);
        ESV_ZEL_JOB_SEND_INFO info = new ESV_ZEL_JOB_SEND_INFO();
        long[] addressId = {0};
        try {
            info.setAddress_type(ESV_ZEL_JOB_ADDRESS_TYPE.ESV_ZEL_JOB_ADDRESS_TYPE_MAIL);
            info.getDetail().getMail_info().setMail_address(to);
            rc = jobProxy.add_send_address(id[0], addressId, info);
        } finally {
            info.delete();
        }
        if (rc != 0) {
            log.add("JobFailed", "address result " + rc);
            jobProxy.delete_jobinfo(id[0]);
            return 0;
        }
        rc = jobProxy.commit_jobinfo(id[0]);
        if (rc != 0) {
            log.add("JobFailed", "commit result " + rc);
            jobProxy.delete_jobinfo(id[0]);
            return 0;
        }
        long[] uid = {0};
        rc = jobProxy.create_job(ESV_ZEL_JOB_CATEGORY.ESV_ZEL_JOB_CATEGORY_SCAN_SEND, id[0], uid);
        jobProxy.delete_jobinfo(id[0]);
        if (rc != 0) {
            log.add("JobFailed", "create result " + rc);
            return 0;
        }
        synchronized (this) {
            jobStates.put(uid[0], "CREATED");
        }
        log.add("JobCreated", uid[0] + " for " + who);
        return uid[0];
    }

    /** Reads the scan while the device scans it and keeps it on the hard disk. */
    private void readScan(long uid) {
        String name = "scan-" + uid + ".bin";
        long[] h = {0};
        int rc = CMT_StorageIO.open(STORAGE_HDD, name, OPEN_WRITE, h);
        if (rc != 0) log.add("Warning", "cannot keep the scan on the hard disk: " + rc);
        ESV_ZEL_JOB_GET_SCAN_DATA data = new ESV_ZEL_JOB_GET_SCAN_DATA();
        long total = 0;
        long deadline = System.currentTimeMillis() + 60000;
        try {
            while (System.currentTimeMillis() < deadline) {
                byte[] piece = jobProxy.get_scan_data(uid, data);
                if (piece == null) break;
                if (piece.length > 0 && h[0] != 0) {
                    long[] done = {0};
                    CMT_StorageIO.write(piece, piece.length, h[0], done);
                }
                total += piece.length;
                if (data.getDoc_state() != 0) break;
                if (piece.length == 0) {
                    if (ended(uid)) break;
                    Thread.sleep(20);
                }
            }
        } catch (InterruptedException e) {
            Thread.currentThread().interrupt();
        } finally {
            data.delete();
            if (h[0] != 0) CMT_StorageIO.close(h[0]);
            jobProxy.continuous_read_end(uid);
        }
        if (h[0] != 0) keepScan(name);
        log.add("ScanData", uid + " " + total + " bytes" + (h[0] != 0 ? " kept as " + name : ""));
    }

    /** The newest scans stay on the hard disk; older ones are removed. */
    private void keepScan(String name) {
        List<String> gone = new ArrayList<>();
        synchronized (this) {
            lastScanFile = name;
            keptScans.remove(name);
            keptScans.add(name);
            while (keptScans.size() > KEEP_SCANS) gone.add(keptScans.remove(0));
        }
        for (String old : gone) CMT_StorageIO.remove(STORAGE_HDD, old);
    }

    private synchronized boolean ended(long uid) {
        String s = jobStates.get(uid);
        return "COMPLETE".equals(s) || "CANCEL".equals(s) || "ERROR".equals(s);
    }

    private String awaitEnd(long uid, long timeoutMs) {
        long end = System.currentTimeMillis() + timeoutMs;
        try {
            while (!ended(uid) && System.currentTimeMillis() < end) Thread.sleep(20);
        } catch (InterruptedException e) {
            Thread.currentThread().interrupt();
        }
        synchronized (this) {
            return jobStates.getOrDefault(uid, "?");
        }
    }

    public void cancelRunning() {
        List<Long> running = new ArrayList<>();
        synchronized (this) {
            for (Map.Entry<Long, String> e : jobStates.entrySet()) {
                if (!ended(e.getKey())) running.add(e.getKey());
            }
        }
        if (running.isEmpty()) log.add("Cancel", "no job running");
        for (long uid : running) {
            int rc = jobProxy.cancel(uid);
            log.add("Cancel", uid + (rc == 0 ? "" : " code " + hex(rc)));
        }
    }

    /** The job log entry and send history of a finished job. */
    private void readJobLog(long uid) {
        Long receipt;
        long end = System.currentTimeMillis() + 5000;
        for (;;) {
            synchronized (this) {
                receipt = receipts.get(uid);
            }
            if (receipt != null || System.currentTimeMillis() > end) break;
            try {
                Thread.sleep(20);
            } catch (InterruptedException e) {
                return;
            }
        }
        if (receipt == null) {
            log.add("JobLogRead", uid + " no log entry");
            return;
        }
        final int sendLog = ESV_ZEL_JOBINFO_JOBLOG_TYPE_VAL.ESV_ZEL_JOBINFO_JOBLOG_TYPE_SEND;
        zel_fnd_job_log_proxy logProxy = new zel_fnd_job_log_proxy();
        ESV_ZEL_JOBINFO_JOBLOG entry = new ESV_ZEL_JOBINFO_JOBLOG();
        try {
            int rc = logProxy.retrieve_joblog(receipt, sendLog, entry);
            if (rc != 0) {
                log.add("JobLogRead", uid + " code " + hex(rc));
                return;
            }
            String text = "receipt " + receipt + " result " + resultName(entry.getResult()) + " error "
                    + hex(entry.getResult_err()) + " user " + entry.getUser_name();
            synchronized (this) {
                lastJobLog = text;
            }
            log.add("JobLogRead", uid + " " + text);
            StringBuilder history = new StringBuilder();
            if (logProxy.create_send_info_list(receipt, sendLog) == 0) {
                ESV_ZEL_JOBINFO_SEND_INFO send = new ESV_ZEL_JOBINFO_SEND_INFO();
                try {
                    for (long i = 0; i < entry.getSend_num(); ++i) {
                        if (logProxy.get_send_info(send) != 0) break;
                        String line = send.getDetail().getMail().getMail_address() + " " + resultName(send.getResult());
                        history.append(history.length() == 0 ? "" : "; ").append(line);
                        log.add("SendHistory", uid + " " + line);
                    }
                } finally {
                    send.delete();
                    logProxy.delete_send_info_list();
                }
            }
            synchronized (this) {
                lastSendHistory = history.toString();
            }
        } finally {
            entry.delete();
            logProxy.delete();
        }
    }

    static String resultName(int r) {
        switch (r) {
            case 0: return "OK";
            case 1: return "CANCEL";
            case 2: return "ERROR";
            default: return String.valueOf(r);
        }
    }

    static String hex(long v) {
        return String.format("0x%08X", v & 0xFFFFFFFFL);
    }

    // ---- machine values ----

    /** Reads the machine values again on the application thread (after something changed them). */
    public Future<?> refreshMachine() {
        return submit(this::readMachine);
    }

    /** Reads the machine values now (on the application thread) and keeps them for {@link #machine()}. */
    public Map<String, String> readMachine() {
        Map<String, String> m = machineValues();
        synchronized (this) {
            machine = m;
        }
        return m;
    }

    /** Model, counters, paper and power state as the application reads them. */
    public Map<String, String> machineValues() {
        Map<String, String> out = new LinkedHashMap<>();
        long[] model = {0};
        int rc = sysInfo.get_model_type(model);
        out.put("model", rc == 0 ? String.valueOf(model[0]) : "code " + rc);
        String[] kinds = {"total", "print", "copy", "scan"};
        ESV_ZEL_COUNT_INFO c = new ESV_ZEL_COUNT_INFO();
        try {
            for (int k = 0; k < kinds.length; ++k) {
                c.setCount_kind((short) k);
                c.setPaper_size((short) 4);
                c.setColor_info((short) 1);
                long[] count = {0};
                rc = sysInfo.get_count(c, count);
                out.put("counter " + kinds[k], rc == 0 ? String.valueOf(count[0]) : "code " + rc);
            }
        } finally {
            c.delete();
        }
        ESV_ZEL_PAPER_INFO p = new ESV_ZEL_PAPER_INFO();
        try {
            for (int tray = 1; tray <= 2; ++tray) {
                rc = sysInfo.get_paper_info(tray, p);
                out.put("tray " + tray, rc == 0 ? p.getPaper_remain() + "% paper" : "code " + rc);
            }
        } finally {
            p.delete();
        }
        synchronized (this) {
            out.put("power", sleepState == 0 ? "awake" : "asleep (" + sleepState + ")");
        }
        return out;
    }

    /** The machine values as last read. */
    public synchronized Map<String, String> machine() {
        return new LinkedHashMap<>(machine);
    }

    // ---- document box ----

    /** The documents of a document-box folder: "name size" each, or why there are none. */
    public List<String> boxListing(String folder) {
        List<String> out = new ArrayList<>();
        ArrayList<Object> found = new ArrayList<>();
        int rc = zel_fnd_document_manager.zel_fnd_get_instance().zel_fnd_get_easy_box_list(folder, found);
        if (rc != 0) {
            log.add("BoxListing", folder + " result " + rc);
            return out;
        }
        for (Object o : found) {
            RemovableMemoryFileImpl f = (RemovableMemoryFileImpl) o;
            out.add(f.getInfo().getName() + " " + f.getInfo().getDataSize() + (f.isFile() ? "" : " (folder)"));
        }
        log.add("BoxListing", folder + " " + out.size() + " entries");
        return out;
    }

    // ---- copy to removable memory ----

    /**
     * Starts a copy to removable memory 0 or 1 on the copy thread: the last scan ({@code mb} 0)
     * or a document of {@code mb} MB, at {@code bytesPerSecond} (0: full speed). Returns "" when
     * it started, otherwise why not (nothing is changed then).
     */
    public String startCopy(int removable, int mb, long bytesPerSecond) {
        if (removable != 0 && removable != 1) return "removable memory is 0 or 1";
        if (mb < 0 || mb > MAX_DOCUMENT_MB) return "a document is 1 to " + MAX_DOCUMENT_MB + " MB";
        if (bytesPerSecond < 0) return "a rate is a positive number";
        String source;
        synchronized (this) {
            if (copying) {
                log.add("Refused", "copy: a copy is running");
                return "a copy is running (cancel it first)";
            }
            source = mb > 0 ? DOCUMENT : lastScanFile;
            if (source.isEmpty()) {
                log.add("CopyFailed", "nothing scanned yet");
                return "nothing scanned yet";
            }
            copying = true;
            copyState = "starting";
        }
        int drive = removableDrive(removable);
        long[] out = {0};
        int rc = CMT_StorageIO.open(drive, source, OPEN_WRITE, out);
        if (rc != 0) {
            String why = "removable memory " + removable + " is not plugged in or not writable (result " + rc + ")";
            synchronized (this) {
                copying = false;
                copyState = "failed: " + why;
            }
            log.add("CopyFailed", source + " " + why);
            return why;
        }
        cancelCopy.set(false);
        long bytes = mb * 1024L * 1024L;
        copier.execute(() -> {
            try {
                copy(source, bytes, drive, out[0], bytesPerSecond);
            } catch (RuntimeException e) {
                log.add("Error", e.toString());
            } finally {
                synchronized (this) {
                    copying = false;
                }
            }
        });
        return "";
    }

    /** Asks the running copy to stop; false when none runs. */
    public boolean cancelCopy() {
        synchronized (this) {
            if (!copying) return false;
        }
        cancelCopy.set(true);
        return true;
    }

    public synchronized boolean copying() {
        return copying;
    }

    /** Copies {@code source} (made first when {@code bytes} > 0) into the open file {@code out}. */
    private void copy(String source, long bytes, int drive, long out, long rate) {
        String failure = null;
        long[] in = {0};
        long[] size = {0};
        long copied = 0;
        try {
            if (bytes > 0) failure = makeDocument(bytes);
            if (failure == null && CMT_StorageIO.getfilesize(STORAGE_HDD, source, size) != 0) {
                failure = source + " not on the hard disk";
            }
            if (failure == null && CMT_StorageIO.open(STORAGE_HDD, source, OPEN_READ, in) != 0) {
                failure = "cannot read " + source;
            }
            if (failure == null) {
                log.add("CopyStarted", source + " " + size[0] + " bytes");
                byte[] buf = new byte[65536];
                int lastTenth = -1;
                long started = System.nanoTime();
                for (;;) {
                    if (cancelCopy.get()) {
                        failure = "cancelled";
                        break;
                    }
                    long[] got = {0};
                    int rc = CMT_StorageIO.read(buf, buf.length, in[0], got);
                    if (rc == 1 && got[0] == 0) break;
                    if (rc != 0 && rc != 1) {
                        failure = "read " + rc;
                        break;
                    }
                    if (got[0] > 0) {
                        long[] put = {0};
                        byte[] piece = got[0] == buf.length ? buf : java.util.Arrays.copyOf(buf, (int) got[0]);
                        int w = CMT_StorageIO.write(piece, got[0], out, put);
                        if (w != 0 || put[0] != got[0]) {
                            failure = "write " + w + " after " + copied + " bytes";
                            break;
                        }
                        copied += got[0];
                    }
                    int tenth = size[0] == 0 ? 10 : (int) (copied * 10 / size[0]);
                    if (tenth != lastTenth) {
                        lastTenth = tenth;
                        setCopy(source + " " + tenth * 10 + "%");
                        log.add("CopyProgress", source + " " + tenth * 10 + "%");
                    }
                    if (rate > 0) {
                        long wait = started + copied * 1_000_000_000L / rate - System.nanoTime();
                        if (wait > 0) Thread.sleep(wait / 1_000_000, (int) (wait % 1_000_000));
                    }
                    if (rc == 1) break;
                }
            }
        } catch (InterruptedException e) {
            Thread.currentThread().interrupt();
            failure = "interrupted";
        } finally {
            if (in[0] != 0) CMT_StorageIO.close(in[0]);
            CMT_StorageIO.close(out);
        }
        if ("cancelled".equals(failure)) {
            CMT_StorageIO.remove(drive, source);  // a half copy is no copy
            setCopy("cancelled after " + copied + " bytes");
            log.add("CopyCancelled", source + " after " + copied + " bytes");
        } else if (failure != null) {
            setCopy("failed: " + failure);
            log.add("CopyFailed", source + " " + failure);
        } else {
            setCopy(source + " done");
            log.add("CopyDone", source + " " + copied + " bytes");
        }
    }

    /**
     * Makes the document of {@code bytes} bytes on the hard disk, unless it is there with that
     * size already: one file, whatever sizes are asked for. Null, or why it could not be made.
     */
    private String makeDocument(long bytes) {
        long[] have = {0};
        if (CMT_StorageIO.getfilesize(STORAGE_HDD, DOCUMENT, have) == 0 && have[0] == bytes) return null;
        setCopy("making a " + bytes / (1024 * 1024) + " MB document");
        long[] h = {0};
        int rc = CMT_StorageIO.open(STORAGE_HDD, DOCUMENT, OPEN_WRITE, h);
        if (rc != 0) return "cannot write " + DOCUMENT + " on the hard disk (result " + rc + ")";
        byte[] buf = new byte[65536];
        for (int i = 0; i < buf.length; ++i) buf[i] = (byte) i;
        try {
            for (long left = bytes; left > 0; left -= buf.length) {
                if (cancelCopy.get()) return "cancelled";
                int n = (int) Math.min(buf.length, left);
                long[] done = {0};
                rc = CMT_StorageIO.write(n == buf.length ? buf : java.util.Arrays.copyOf(buf, n), n, h[0], done);
                if (rc != 0) return "writing " + DOCUMENT + " on the hard disk: result " + rc;
            }
        } finally {
            CMT_StorageIO.close(h[0]);
        }
        return null;
    }

    private synchronized void setCopy(String s) {
        copyState = s;
    }

    /** The application's state as name/value pairs (the panel shows them). */
    public synchronized Map<String, Object> state() {
        Map<String, Object> s = new LinkedHashMap<>();
        s.put("user", user);
        s.put("userName", userName);
        s.put("destination", destination);
        s.put("jobs", new LinkedHashMap<>(jobStates));
        s.put("pages", new LinkedHashMap<>(jobPages));
        s.put("jobLog", lastJobLog);
        s.put("sendHistory", lastSendHistory);
        s.put("copy", copyState);
        s.put("copying", copying);
        s.put("sleep", sleepState);
        s.put("cover", coverStatus == 0 ? "closed" : "open (" + coverStatus + ")");
        s.put("toner", toner);
        s.put("paper", paper);
        s.put("usb", usb);
        s.put("reader", reader);
        s.put("scanPages", scanPages);
        return s;
    }
}
