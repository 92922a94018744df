package tarnwick.examples.demo;

import java.util.ArrayList;
import java.util.LinkedHashMap;
import java.util.List;
import java.util.Map;
import java.util.concurrent.ExecutorService;
import java.util.concurrent.Executors;
import java.util.concurrent.Future;
import tarnwick.address.SearchKey;
import tarnwick.zel.address.PersonalAddressImpl;
import tarnwick.zel.controller.event.device.ICCardInfo;
import tarnwick.zel.controller.event.job.Job;
import tarnwick.zel.controller.event.job.JobLogInfo;
import tarnwick.zel.controller.event.job.ScanPageInfo;
import tarnwick.zel.controller.event.proxy.AccProxy;
import tarnwick.zel.controller.event.proxy.CommonProxy;
import tarnwick.zel.controller.event.proxy.JobInfoProxy;
import tarnwick.zel.controller.event.proxy.JobProxy;
import tarnwick.zel.controller.event.proxy.PanelProxy;
import tarnwick.zel.box.document.RemovableMemoryFileImpl;
import tarnwick.zel.wrapper.address.CMT_ADDRESSBOOKJNI;
import tarnwick.zel.wrapper.box.zel_fnd_document_box_moduleJNI;
import tarnwick.zel.wrapper.device.attribute.CMT_SystemInformationJNI;
import tarnwick.zel.wrapper.event.ZELFNDEventJNI;
import tarnwick.zel.wrapper.job.log.zel_fnd_job_log_moduleJNI;
import tarnwick.zel.wrapper.job.zel_fnd_job_moduleJNI;
import tarnwick.zel.wrapper.storage.CMT_StorageJNI;
import tarnwick.zel.wrapper.system.cmt_init;
import tarnwick.zel.wrapper.user.ZELFNDUserJNI;

/**
 * A device application: scan to e-mail. It uses the library's Java modules only: it starts the
 * library and its event manager, listens to the event proxies, logs a user in (IC card or name
 * and password), finds a destination in the address book, builds and runs a send job, follows
 * its states and pages, reads the job log and send history, shows the machine's values and
 * copies a scanned document to removable memory. Work runs on one application thread; event
 * listeners only record and hand over.
 */
public final class ScanToEmailApp {
    // Job settings and kinds of the job service.
    private static final int PHB_SEND = 1;
    private static final int CATEGORY_SCAN_SEND = 1;
    private static final int SETTING_ORIGINAL_PAGES = 9;
    private static final int SETTING_USER_NAME = 104;
    private static final int ADDRESS_MAIL = 2;
    private static final int LOG_SEND = 1;
    private static final int AUTH_LOCAL = 1;
    private static final int USERKIND_LOGIN = 0;
    // Storage drives as the storage module numbers them.
    public static final int STORAGE_HDD = 0;

    /** Panel keys (the application id a key event carries). */
    public static final Map<String, Integer> KEYS = new LinkedHashMap<>();
    static {
        KEYS.put("start", 1);
        KEYS.put("stop", 2);
        KEYS.put("reset", 3);
        KEYS.put("home", 4);
    }

    public final EventLog log = new EventLog();
    private final ExecutorService worker = Executors.newSingleThreadExecutor(r -> {
        Thread t = new Thread(r, "scan-to-email");
        t.setDaemon(true);
        return t;
    });

    // State, guarded by this.
    private String user = "";
    private String userName = "";
    private long cert;
    private String destination = "";
    private final Map<Long, String> jobStates = new LinkedHashMap<>();
    private final Map<Long, String> jobPages = new LinkedHashMap<>();
    private final Map<Long, Long> receipts = new LinkedHashMap<>();
    private String lastScanFile = "";
    private String lastJobLog = "";
    private String lastSendHistory = "";
    private String copyState = "";
    private int sleepState = 0;
    private long coverStatus = 0;
    private String toner = "ok";
    private String paper = "";
    private String usb = "";
    private String reader = "";
    private volatile long keySentNanos;
    private volatile long lastKeyLatencyNanos = -1;
    private volatile long lastKeyEpochMicros;
    private int scanPages = 3;
    private long copyRateBytesPerSecond;

    private long manager;
    private long auth;
    private long jobProxy;
    private long sysInfo;

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
            // Stop must reach a job the application thread is busy following.
            if (key.equals("stop")) {
                new Thread(ScanToEmailApp.this::cancelRunning, "stop-key").start();
            } else {
                submit(() -> onKey(key));
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
        JobProxy.addListener(jobListener);
        JobInfoProxy.addListener(infoListener);
        AccProxy.addListener(accListener);
        CommonProxy.addListener(commonListener);
        PanelProxy.addListener(panelListener);
        manager = ZELFNDEventJNI.new_zel_fnd_event_manager();
        boolean ok = ZELFNDEventJNI.zel_fnd_event_manager_init(manager, null);
        log.add("EventManager", ok ? "started" : "failed");
        auth = ZELFNDUserJNI.new_zel_fnd_authentication();
        jobProxy = zel_fnd_job_moduleJNI.new_zel_fnd_job_proxy();
        sysInfo = CMT_SystemInformationJNI.new_CMT_System_Info();
    }

    public void stop() {
        worker.shutdownNow();
        JobProxy.removeListener(jobListener);
        JobInfoProxy.removeListener(infoListener);
        AccProxy.removeListener(accListener);
        CommonProxy.removeListener(commonListener);
        PanelProxy.removeListener(panelListener);
        CMT_SystemInformationJNI.delete_CMT_System_Info(sysInfo);
        zel_fnd_job_moduleJNI.delete_zel_fnd_job_proxy(jobProxy);
        ZELFNDUserJNI.delete_zel_fnd_authentication(auth);
        ZELFNDEventJNI.zel_fnd_event_manager_terminate(manager, null);
        ZELFNDEventJNI.delete_zel_fnd_event_manager(manager);
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

    private void onKey(String key) {
        switch (key) {
            case "start": scanToEmail(); break;
            case "stop": break;  // handled at once, see applStart
            case "reset": logout(); break;
            default: break;
        }
    }

    // ---- users ----

    private void loginCard(String cardId) {
        long c = ZELFNDUserJNI.new_ZEL_FND_CERTIFICATE_ID();
        try {
            int rc = ZELFNDUserJNI.zel_fnd_authentication_iccard_login(auth, null, cardId, c, null);
            if (rc != 0) {
                log.add("LoginFailed", "card " + cardId + " code " + rc);
                return;
            }
            loggedIn(ZELFNDUserJNI.ZEL_FND_CERTIFICATE_ID_id_get(c, null));
        } finally {
            ZELFNDUserJNI.delete_ZEL_FND_CERTIFICATE_ID(c);
        }
    }

    public void login(String name, String password) {
        long c = ZELFNDUserJNI.new_ZEL_FND_CERTIFICATE_ID();
        try {
            int rc = ZELFNDUserJNI.zel_fnd_authentication_login__SWIG_0(auth, null, name, password, AUTH_LOCAL, c, null);
            if (rc != 0) {
                log.add("LoginFailed", name + " code " + rc);
                return;
            }
            loggedIn(ZELFNDUserJNI.ZEL_FND_CERTIFICATE_ID_id_get(c, null));
        } finally {
            ZELFNDUserJNI.delete_ZEL_FND_CERTIFICATE_ID(c);
        }
    }

    private void loggedIn(long certId) {
        if (cert != 0) logout();
        long rec = ZELFNDUserJNI.new_ESV_ZEL_USERINFO_RECORD();
        try {
            int rc = ZELFNDUserJNI.zel_fnd_authentication_get_login_user_info(auth, null, USERKIND_LOGIN, rec, null);
            String login = rc == 0 ? ZELFNDUserJNI.ESV_ZEL_USERINFO_RECORD_login_name_get(rec, null) : "?";
            String name = rc == 0 ? ZELFNDUserJNI.ESV_ZEL_USERINFO_RECORD_user_name_get(rec, null) : "?";
            String mail = rc == 0 ? ZELFNDUserJNI.ESV_ZEL_USERINFO_RECORD_email_get(rec, null) : "";
            synchronized (this) {
                cert = certId;
                user = login;
                userName = name;
                if (destination.isEmpty() && mail != null) destination = mail;
            }
            log.add("Login", login + " \"" + name + "\" certificate " + certId);
        } finally {
            ZELFNDUserJNI.delete_ESV_ZEL_USERINFO_RECORD(rec);
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
        int rc = ZELFNDUserJNI.zel_fnd_authentication_logout(auth, null, c);
        synchronized (this) {
            cert = 0;
            user = "";
            userName = "";
            destination = "";
        }
        log.add("Logout", who + (rc == 0 ? "" : " code " + rc));
    }

    // ---- address book ----

    /** Personal addresses whose name begins with {@code prefix}: "name <mail>" each. */
    public List<String> search(String prefix) {
        List<String> out = new ArrayList<>();
        long book = CMT_ADDRESSBOOKJNI.new_cmt_address_book();
        try {
            Object[] found = CMT_ADDRESSBOOKJNI.cmt_address_book_search_address(book, null, 1, new SearchKey(prefix));
            if (found == null) return out;
            for (Object o : found) {
                PersonalAddressImpl a = (PersonalAddressImpl) o;
                String mail = a.getEmail() == null ? "" : a.getEmail().getMailAddress();
                out.add(a.getName().getName() + " <" + mail + ">");
            }
        } finally {
            CMT_ADDRESSBOOKJNI.delete_cmt_address_book(book);
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

    public synchronized void setScanPages(int pages) {
        scanPages = pages;
    }

    public synchronized void setCopyRate(long bytesPerSecond) {
        copyRateBytesPerSecond = bytesPerSecond;
    }

    // ---- the job ----

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
        int rc = zel_fnd_job_moduleJNI.zel_fnd_job_proxy_continuous_read(jobProxy, null, uid);
        if (rc != 0) log.add("Warning", "continuous read result " + rc);
        rc = zel_fnd_job_moduleJNI.zel_fnd_job_proxy_start(jobProxy, null, uid);
        if (rc != 0) {
            log.add("JobFailed", "start result " + rc + " job " + uid);
            zel_fnd_job_moduleJNI.zel_fnd_job_proxy_cancel(jobProxy, null, uid);
            return uid;
        }
        log.add("JobStarted", uid + " " + pages + " pages to " + to);
        readScan(uid);
        String end = awaitEnd(uid, 60000);
        log.add("JobEnded", uid + " " + end);
        readJobLog(uid);
        return uid;
    }

    private long createJob(String who, String to, int pages) {
        long[] id = {0};
        int rc = zel_fnd_job_moduleJNI.zel_fnd_job_proxy_generate_jobinfo(jobProxy, null, PHB_SEND, id);
        if (rc != 0) {
            log.add("JobFailed", "generate result " + rc);
            return 0;
        }
        zel_fnd_job_moduleJNI.zel_fnd_job_proxy_set_value__SWIG_0(jobProxy, null, id[0], SETTING_ORIGINAL_PAGES, pages);
        zel_fnd_job_moduleJNI.zel_fnd_job_proxy_set_value__SWIG_1(jobProxy, null, id[0], SETTING_USER_NAME, who);
        long info = zel_fnd_job_moduleJNI.new_ESV_ZEL_JOB_SEND_INFO();
        long[] addressId = {0};
        try {
            zel_fnd_job_moduleJNI.ESV_ZEL_JOB_SEND_INFO_address_type_set(info, null, ADDRESS_MAIL);
            long detail = zel_fnd_job_moduleJNI.ESV_ZEL_JOB_SEND_INFO_detail_get(info, null);
            long mail = zel_fnd_job_moduleJNI.ESV_ZEL_JOB_SEND_INFO_DETAIL_mail_info_get(detail, null);
            zel_fnd_job_moduleJNI.ESV_ZEL_JOB_SEND_INFO_MAIL_mail_address_set(mail, null, to);
            rc = zel_fnd_job_moduleJNI.zel_fnd_job_proxy_add_send_address(jobProxy, null, id[0], addressId, info, null);
        } finally {
            zel_fnd_job_moduleJNI.delete_ESV_ZEL_JOB_SEND_INFO(info);
        }
        if (rc != 0) {
            log.add("JobFailed", "address result " + rc);
            zel_fnd_job_moduleJNI.zel_fnd_job_proxy_delete_jobinfo(jobProxy, null, id[0]);
            return 0;
        }
        rc = zel_fnd_job_moduleJNI.zel_fnd_job_proxy_commit_jobinfo(jobProxy, null, id[0]);
        if (rc != 0) {
            log.add("JobFailed", "commit result " + rc);
            zel_fnd_job_moduleJNI.zel_fnd_job_proxy_delete_jobinfo(jobProxy, null, id[0]);
            return 0;
        }
        long[] uid = {0};
        rc = zel_fnd_job_moduleJNI.zel_fnd_job_proxy_create_job(jobProxy, null, CATEGORY_SCAN_SEND, id[0], uid);
        zel_fnd_job_moduleJNI.zel_fnd_job_proxy_delete_jobinfo(jobProxy, null, id[0]);
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
        int rc = CMT_StorageJNI.CMT_StorageIO_open(STORAGE_HDD, name, 1, h);
        if (rc != 0) log.add("Warning", "cannot keep the scan on the hard disk: " + rc);
        long data = zel_fnd_job_moduleJNI.new_ESV_ZEL_JOB_GET_SCAN_DATA();
        long total = 0;
        long deadline = System.currentTimeMillis() + 60000;
        try {
            while (System.currentTimeMillis() < deadline) {
                byte[] piece = zel_fnd_job_moduleJNI.zel_fnd_job_proxy_get_scan_data(jobProxy, null, uid, data, null);
                if (piece == null) break;
                if (piece.length > 0 && h[0] != 0) {
                    long[] done = {0};
                    CMT_StorageJNI.CMT_StorageIO_write(piece, piece.length, h[0], done);
                }
                total += piece.length;
                if (zel_fnd_job_moduleJNI.ESV_ZEL_JOB_GET_SCAN_DATA_doc_state_get(data, null) != 0) break;
                if (piece.length == 0) {
                    if (ended(uid)) break;
                    Thread.sleep(20);
                }
            }
        } catch (InterruptedException e) {
            Thread.currentThread().interrupt();
        } finally {
            zel_fnd_job_moduleJNI.delete_ESV_ZEL_JOB_GET_SCAN_DATA(data);
            if (h[0] != 0) CMT_StorageJNI.CMT_StorageIO_close(h[0]);
            zel_fnd_job_moduleJNI.zel_fnd_job_proxy_continuous_read_end(jobProxy, null, uid);
        }
        synchronized (this) {
            if (h[0] != 0) lastScanFile = name;
        }
        log.add("ScanData", uid + " " + total + " bytes" + (h[0] != 0 ? " kept as " + name : ""));
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
            int rc = zel_fnd_job_moduleJNI.zel_fnd_job_proxy_cancel(jobProxy, null, uid);
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
        long logProxy = zel_fnd_job_log_moduleJNI.new_zel_fnd_job_log_proxy();
        long entry = zel_fnd_job_log_moduleJNI.new_ESV_ZEL_JOBINFO_JOBLOG();
        try {
            int rc = zel_fnd_job_log_moduleJNI.zel_fnd_job_log_proxy_retrieve_joblog(logProxy, null, receipt, LOG_SEND, entry, null);
            if (rc != 0) {
                log.add("JobLogRead", uid + " code " + hex(rc));
                return;
            }
            int result = zel_fnd_job_log_moduleJNI.ESV_ZEL_JOBINFO_JOBLOG_result_get(entry, null);
            int err = zel_fnd_job_log_moduleJNI.ESV_ZEL_JOBINFO_JOBLOG_result_err_get(entry, null);
            String who = zel_fnd_job_log_moduleJNI.ESV_ZEL_JOBINFO_JOBLOG_user_name_get(entry, null);
            long sends = zel_fnd_job_log_moduleJNI.ESV_ZEL_JOBINFO_JOBLOG_send_num_get(entry, null);
            String text = "receipt " + receipt + " result " + resultName(result) + " error " + hex(err) + " user " + who;
            synchronized (this) {
                lastJobLog = text;
            }
            log.add("JobLogRead", uid + " " + text);
            StringBuilder history = new StringBuilder();
            if (zel_fnd_job_log_moduleJNI.zel_fnd_job_log_proxy_create_send_info_list(logProxy, null, receipt, LOG_SEND) == 0) {
                long send = zel_fnd_job_log_moduleJNI.new_ESV_ZEL_JOBINFO_SEND_INFO();
                for (long i = 0; i < sends; ++i) {
                    if (zel_fnd_job_log_moduleJNI.zel_fnd_job_log_proxy_get_send_info(logProxy, null, send, null) != 0) break;
                    long detail = zel_fnd_job_log_moduleJNI.ESV_ZEL_JOBINFO_SEND_INFO_detail_get(send, null);
                    long mail = zel_fnd_job_log_moduleJNI.ESV_ZEL_JOBINFO_SEND_INFO_DETAIL_mail_get(detail, null);
                    String address = zel_fnd_job_log_moduleJNI.ESV_ZEL_JOBINFO_SEND_INFO_MAIL_mail_address_get(mail, null);
                    int r = zel_fnd_job_log_moduleJNI.ESV_ZEL_JOBINFO_SEND_INFO_result_get(send, null);
                    String line = address + " " + resultName(r);
                    history.append(history.length() == 0 ? "" : "; ").append(line);
                    log.add("SendHistory", uid + " " + line);
                }
                zel_fnd_job_log_moduleJNI.delete_ESV_ZEL_JOBINFO_SEND_INFO(send);
                zel_fnd_job_log_moduleJNI.zel_fnd_job_log_proxy_delete_send_info_list(logProxy, null);
            }
            synchronized (this) {
                lastSendHistory = history.toString();
            }
        } finally {
            zel_fnd_job_log_moduleJNI.delete_ESV_ZEL_JOBINFO_JOBLOG(entry);
            zel_fnd_job_log_moduleJNI.delete_zel_fnd_job_log_proxy(logProxy);
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

    /** Model, counters, paper and power state as the application reads them. */
    public Map<String, String> machineValues() {
        Map<String, String> out = new LinkedHashMap<>();
        long[] model = {0};
        int rc = CMT_SystemInformationJNI.CMT_System_Info_get_model_type(sysInfo, null, model);
        out.put("model", rc == 0 ? String.valueOf(model[0]) : "code " + rc);
        String[] kinds = {"total", "print", "copy", "scan"};
        long c = CMT_SystemInformationJNI.new_ESV_ZEL_COUNT_INFO();
        for (int k = 0; k < kinds.length; ++k) {
            CMT_SystemInformationJNI.ESV_ZEL_COUNT_INFO_count_kind_set(c, null, (short) k);
            CMT_SystemInformationJNI.ESV_ZEL_COUNT_INFO_paper_size_set(c, null, (short) 4);
            CMT_SystemInformationJNI.ESV_ZEL_COUNT_INFO_color_info_set(c, null, (short) 1);
            long[] count = {0};
            rc = CMT_SystemInformationJNI.CMT_System_Info_get_count(sysInfo, null, c, null, count);
            out.put("counter " + kinds[k], rc == 0 ? String.valueOf(count[0]) : "code " + rc);
        }
        CMT_SystemInformationJNI.delete_ESV_ZEL_COUNT_INFO(c);
        long p = CMT_SystemInformationJNI.new_ESV_ZEL_PAPER_INFO();
        for (int tray = 1; tray <= 2; ++tray) {
            rc = CMT_SystemInformationJNI.CMT_System_Info_get_paper_info(sysInfo, null, tray, p, null);
            out.put("tray " + tray, rc == 0 ? CMT_SystemInformationJNI.ESV_ZEL_PAPER_INFO_paper_remain_get(p, null) + "% paper"
                    : "code " + rc);
        }
        CMT_SystemInformationJNI.delete_ESV_ZEL_PAPER_INFO(p);
        synchronized (this) {
            out.put("power", sleepState == 0 ? "awake" : "asleep (" + sleepState + ")");
        }
        return out;
    }

    // ---- document box ----

    /** The documents of a document-box folder: "name size" each, or why there are none. */
    public List<String> boxListing(String folder) {
        List<String> out = new ArrayList<>();
        long manager = zel_fnd_document_box_moduleJNI.zel_fnd_document_manager_zel_fnd_get_instance();
        ArrayList<Object> found = new ArrayList<>();
        int rc = zel_fnd_document_box_moduleJNI.zel_fnd_document_manager_zel_fnd_get_easy_box_list(manager, null, folder, found);
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
     * Copies a file of the hard disk to a removable drive (storage module numbering) in pieces,
     * reporting progress every tenth; "" copies the last scan.
     */
    public boolean copyToRemovable(int storageDrive, String name) {
        String source = name;
        long rate;
        synchronized (this) {
            if (source.isEmpty()) source = lastScanFile;
            rate = copyRateBytesPerSecond;
        }
        if (source.isEmpty()) {
            log.add("CopyFailed", "nothing scanned yet");
            return false;
        }
        long[] size = {0};
        if (CMT_StorageJNI.CMT_StorageIO_getfilesize(STORAGE_HDD, source, size) != 0) {
            log.add("CopyFailed", source + " not on the hard disk");
            return false;
        }
        long[] in = {0}, out = {0};
        if (CMT_StorageJNI.CMT_StorageIO_open(STORAGE_HDD, source, 0, in) != 0) {
            log.add("CopyFailed", "cannot read " + source);
            return false;
        }
        if (CMT_StorageJNI.CMT_StorageIO_open(storageDrive, source, 1, out) != 0) {
            CMT_StorageJNI.CMT_StorageIO_close(in[0]);
            setCopy("failed: removable memory not writable");
            log.add("CopyFailed", source + " removable memory not writable");
            return false;
        }
        log.add("CopyStarted", source + " " + size[0] + " bytes");
        byte[] buf = new byte[65536];
        long copied = 0;
        int lastTenth = -1;
        long started = System.nanoTime();
        String failure = null;
        try {
            for (;;) {
                long[] got = {0};
                int rc = CMT_StorageJNI.CMT_StorageIO_read(buf, buf.length, in[0], got);
                if (rc == 1 && got[0] == 0) break;
                if (rc != 0 && rc != 1) {
                    failure = "read " + rc;
                    break;
                }
                if (got[0] > 0) {
                    long[] put = {0};
                    byte[] piece = got[0] == buf.length ? buf : java.util.Arrays.copyOf(buf, (int) got[0]);
                    int w = CMT_StorageJNI.CMT_StorageIO_write(piece, got[0], out[0], put);
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
                    long due = started + copied * 1_000_000_000L / rate;
                    long wait = due - System.nanoTime();
                    if (wait > 0) Thread.sleep(wait / 1_000_000, (int) (wait % 1_000_000));
                }
                if (rc == 1) break;
            }
        } catch (InterruptedException e) {
            Thread.currentThread().interrupt();
            failure = "interrupted";
        } finally {
            CMT_StorageJNI.CMT_StorageIO_close(in[0]);
            CMT_StorageJNI.CMT_StorageIO_close(out[0]);
        }
        if (failure != null) {
            setCopy("failed: " + failure);
            log.add("CopyFailed", source + " " + failure);
            return false;
        }
        setCopy(source + " done");
        log.add("CopyDone", source + " " + copied + " bytes");
        return true;
    }

    /** Writes a file of {@code bytes} bytes on the hard disk (a large document to copy). */
    public String makeHardDiskFile(long bytes) {
        String name = "document-" + bytes + ".bin";
        long[] h = {0};
        if (CMT_StorageJNI.CMT_StorageIO_open(STORAGE_HDD, name, 1, h) != 0) return "";
        byte[] buf = new byte[65536];
        for (int i = 0; i < buf.length; ++i) buf[i] = (byte) i;
        for (long left = bytes; left > 0; left -= buf.length) {
            int n = (int) Math.min(buf.length, left);
            long[] done = {0};
            CMT_StorageJNI.CMT_StorageIO_write(n == buf.length ? buf : java.util.Arrays.copyOf(buf, n), n, h[0], done);
        }
        CMT_StorageJNI.CMT_StorageIO_close(h[0]);
        return name;
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
