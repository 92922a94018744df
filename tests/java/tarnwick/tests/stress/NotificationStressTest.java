package tarnwick.tests.stress;

import static org.junit.jupiter.api.Assertions.assertArrayEquals;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertTrue;

import java.nio.file.Files;
import java.nio.file.Paths;
import java.util.ArrayList;
import java.util.List;
import java.util.concurrent.CopyOnWriteArrayList;
import java.util.concurrent.atomic.AtomicBoolean;
import java.util.concurrent.atomic.AtomicLongArray;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.extension.RegisterExtension;
import tarnwick.address.SearchKey;
import tarnwick.sim.SimAddressBook;
import tarnwick.sim.SimDevice;
import tarnwick.sim.SimFlood;
import tarnwick.sim.SimJobs;
import tarnwick.tests.support.EventProxies;
import tarnwick.tests.support.SimDeviceExtension;
import tarnwick.zel.controller.event.job.Job;
import tarnwick.zel.controller.event.job.PrintPageInfo;
import tarnwick.zel.controller.event.proxy.AccProxy;
import tarnwick.zel.controller.event.proxy.CommonProxy;
import tarnwick.zel.controller.event.proxy.JobInfoProxy;
import tarnwick.zel.controller.event.proxy.JobProxy;
import tarnwick.zel.controller.event.proxy.PanelProxy;
import tarnwick.zel.wrapper.address.CMT_ADDRESSBOOKJNI;
import tarnwick.zel.wrapper.appinfo.cmt_appinfoJNI;
import tarnwick.zel.wrapper.device.attribute.CMT_ICCardJNI;
import tarnwick.zel.wrapper.device.attribute.CMT_SystemInformationJNI;
import tarnwick.zel.wrapper.event.ZELFNDEventJNI;
import tarnwick.zel.wrapper.storage.CMT_StorageJNI;
import tarnwick.zel.wrapper.user.ZELFNDUserJNI;
import tarnwick.zel.wrapper.webservice.zel_fnd_webservice_moduleJNI;
import tarnwick.zel.wrapper.job.zel_fnd_job_moduleJNI;
import tarnwick.zel.wrapper.system.cmt_commonJNI;

/**
 * The five facades deliver on two threads each while four Java threads call module natives
 * (job proxy, vectorl, cmt_time, panel proxy, and every record of every module the library's
 * jar holds). Every delivered notification reaches its listener exactly once, and the process
 * holds no more resident memory after a full GC than it did after the warm-up, give or take 10 %.
 *
 * TOVR_STRESS_NOTIFICATIONS sets the number of notifications (default 200,000; under a sanitizer
 * 20,000, and the memory bound is reported but not asserted there: the sanitizer's quarantine
 * keeps freed memory on purpose).
 */
class NotificationStressTest {
    @RegisterExtension
    static final SimDeviceExtension device = new SimDeviceExtension(false);

    private static final int THREADS_PER_FACADE = 2;
    private static final int WORKERS = 4;

    private final AtomicLongArray received = new AtomicLongArray(SimFlood.FACADES);
    private final AtomicLongArray idSum = new AtomicLongArray(SimFlood.FACADES);
    private final List<Throwable> failures = new CopyOnWriteArrayList<>();

    private static final boolean SANITIZED = System.getenv("TOVR_SANITIZER") != null;

    private static long notifications() {
        String n = System.getenv("TOVR_STRESS_NOTIFICATIONS");
        if (n != null && !n.isEmpty()) return Long.parseLong(n);
        return SANITIZED ? 20_000 : 200_000;
    }

    private void count(int facade, long id) {
        received.incrementAndGet(facade);
        idSum.addAndGet(facade, id);
    }

    private void listen() {
        CommonProxy.listeners.add(new CommonProxy.Listener() {
            @Override public void cover(long status) { count(SimFlood.COMMON, status); }
        });
        JobProxy.listeners.add(new JobProxy.Listener() {
            @Override public void jobStateChanged(Job job) {
                if (!("user" + Integer.toUnsignedString(job.getJobid())).equals(job.getUserName())) {
                    failures.add(new AssertionError("job " + job.getJobid() + " came with user " + job.getUserName()));
                }
                count(SimFlood.JOB, Integer.toUnsignedLong(job.getJobid()));
            }
        });
        PanelProxy.listeners.add(new PanelProxy.Listener() {
            @Override public void applStart(long id) { count(SimFlood.PANEL, id); }
        });
        AccProxy.listeners.add(new AccProxy.Listener() {
            @Override public void icCardError(int code) { count(SimFlood.ACC, code); }
        });
        JobInfoProxy.listeners.add(new JobInfoProxy.Listener() {
            @Override public void page(Object info) { count(SimFlood.JOBINFO, ((PrintPageInfo) info).getUserJobId()); }
        });
    }

    // ----- what the Java threads call -----

    private static void jobProxyRound(long proxy, long data, int i) {
        long[] id = {0};
        assertEquals(0, zel_fnd_job_moduleJNI.zel_fnd_job_proxy_generate_jobinfo(proxy, null, 3, id));
        assertEquals(0, zel_fnd_job_moduleJNI.zel_fnd_job_proxy_set_value__SWIG_0(proxy, null, id[0], 1, i & 0xFFFF));
        long[] val = {0};
        zel_fnd_job_moduleJNI.zel_fnd_job_proxy_get_value__SWIG_0(proxy, null, id[0], 1, val);
        assertEquals(i & 0xFFFF, val[0]);
        assertEquals(0, zel_fnd_job_moduleJNI.zel_fnd_job_proxy_delete_jobinfo(proxy, null, id[0]));
        // No such job: the facade refuses and the answer is null, whatever the record holds.
        zel_fnd_job_moduleJNI.ESV_ZEL_JOB_GET_SCAN_DATA_data_size_set(data, null, (i & 1) == 0 ? 16 : 5000);
        assertEquals(null, zel_fnd_job_moduleJNI.zel_fnd_job_proxy_get_scan_data(proxy, null, 999_999, data, null));
        assertEquals(128L, zel_fnd_job_moduleJNI.zel_fnd_job_proxy_get_char_array_size(proxy, null, 1));
    }

    private static void vectorlRound(int i) {
        long v = zel_fnd_job_moduleJNI.new_vectorl__SWIG_1(i % 64);
        zel_fnd_job_moduleJNI.vectorl_reserve(v, null, 128);
        zel_fnd_job_moduleJNI.vectorl_add(v, null, 0xFFFFFFFFL);
        long size = zel_fnd_job_moduleJNI.vectorl_size(v, null);
        assertEquals(0xFFFFFFFFL, zel_fnd_job_moduleJNI.vectorl_get(v, null, (int) size - 1));
        zel_fnd_job_moduleJNI.vectorl_set(v, null, 0, i);
        try {
            zel_fnd_job_moduleJNI.vectorl_get(v, null, (int) size);
            throw new AssertionError("index " + size + " was accepted");
        } catch (IndexOutOfBoundsException expected) {
            // the list's own range check
        }
        try {
            zel_fnd_job_moduleJNI.vectorl_reserve(v, null, -1);
            throw new AssertionError("reserve(-1) was accepted");
        } catch (IllegalArgumentException expected) {
            // the size check
        }
        zel_fnd_job_moduleJNI.delete_vectorl(v);
    }

    private static void timeRound(int i) {
        long t = cmt_commonJNI.new_cmt_time__SWIG_1(1230768000L + 86400L * (i % 1000));
        assertTrue(cmt_commonJNI.cmt_time_getYear(t, null) >= 2009);
        cmt_commonJNI.cmt_time_getSecond(t, null);
        cmt_commonJNI.delete_cmt_time(t);
        long now = cmt_commonJNI.new_cmt_time__SWIG_0();
        cmt_commonJNI.cmt_time_getGMToffset(now, null);
        cmt_commonJNI.delete_cmt_time(now);
    }

    private static void panelRound(long panel, int i) {
        ZELFNDEventJNI.zel_fnd_panel_proxy_request_event(panel, null, i, i);
        ZELFNDEventJNI.zel_fnd_panel_proxy_view_update(panel, null, i, i % 7);
        ZELFNDEventJNI.zel_fnd_panel_proxy_request_buzzer(panel, null, i, i % 3);
        ZELFNDEventJNI.zel_fnd_panel_proxy_request_set_value(panel, null, i, -i);
    }

    // The operations of the device, user, storage and address modules, each through its facade.
    // Only paths that release what they take: the address search matches the whole book (its
    // no-match path keeps the key's characters, as the library must).
    private static void modulesRound(int i) {
        long info = CMT_SystemInformationJNI.new_CMT_System_Info();
        CMT_SystemInformationJNI.CMT_System_Info_get_long_value(info, null, i & 0xFF);
        CMT_SystemInformationJNI.CMT_System_Info_get_retcode(info, null);
        CMT_SystemInformationJNI.delete_CMT_System_Info(info);
        long app = cmt_appinfoJNI.new_cmt_appinfo_proxy();
        cmt_appinfoJNI.cmt_appinfo_proxy_get_value(app, null, i & 0xFF);
        cmt_appinfoJNI.delete_cmt_appinfo_proxy(app);
        long web = zel_fnd_webservice_moduleJNI.new_zel_fnd_webservice_proxy();
        // No host name: refused, so nothing stays reserved.
        assertTrue(zel_fnd_webservice_moduleJNI.zel_fnd_webservice_proxy_reserve(web, null, 0, "") != 0);
        zel_fnd_webservice_moduleJNI.delete_zel_fnd_webservice_proxy(web);
        long card = CMT_ICCardJNI.new_CMT_Device_ICCard();
        CMT_ICCardJNI.CMT_Device_ICCard_getReaderStatus(card, null);
        CMT_ICCardJNI.delete_CMT_Device_ICCard(card);
        long auth = ZELFNDUserJNI.new_zel_fnd_authentication();
        long mode = ZELFNDUserJNI.new_ZEL_FND_AUTH_MODE();
        ZELFNDUserJNI.zel_fnd_authentication_get_auth_mode(auth, null, mode, null);
        ZELFNDUserJNI.delete_ZEL_FND_AUTH_MODE(mode);
        ZELFNDUserJNI.delete_zel_fnd_authentication(auth);
        CMT_StorageJNI.CMT_StorageIO_existfile(2, "stress-" + (i & 7));
        long book = CMT_ADDRESSBOOKJNI.new_cmt_address_book();
        Object[] found = CMT_ADDRESSBOOKJNI.cmt_address_book_search_address(book, null, 1, new SearchKey(""));
        assertEquals(ADDRESSES, found == null ? -1 : found.length);
        CMT_ADDRESSBOOKJNI.delete_cmt_address_book(book);
    }

    private static final int ADDRESSES = 3;

    /** Runs the four workers until `stop`; returns the rounds each made. */
    private List<Thread> startWorkers(AtomicBoolean stop, long[] rounds, ModuleRecords records) {
        List<Thread> workers = new ArrayList<>();
        for (int w = 0; w < WORKERS; ++w) {
            final int kind = w;
            Thread t = new Thread(() -> {
                long proxy = zel_fnd_job_moduleJNI.new_zel_fnd_job_proxy();
                long data = zel_fnd_job_moduleJNI.new_ESV_ZEL_JOB_GET_SCAN_DATA();
                long panel = ZELFNDEventJNI.new_zel_fnd_panel_proxy();
                try {
                    for (int i = 0; !stop.get(); ++i) {
                        switch (kind) {
                            case 0: jobProxyRound(proxy, data, i); break;
                            case 1: vectorlRound(i); break;
                            case 2: timeRound(i); break;
                            default: panelRound(panel, i); break;
                        }
                        if (i % 16 == kind) records.round(i);
                        if (i % 16 == kind + 4) modulesRound(i);
                        // The simulated device records every facade call; keep that record short.
                        if (kind == 3 && i % 512 == 0) SimDevice.clearCalls();
                        rounds[kind]++;
                    }
                } catch (Throwable e) {
                    failures.add(e);
                } finally {
                    ZELFNDEventJNI.delete_zel_fnd_panel_proxy(panel);
                    zel_fnd_job_moduleJNI.delete_ESV_ZEL_JOB_GET_SCAN_DATA(data);
                    zel_fnd_job_moduleJNI.delete_zel_fnd_job_proxy(proxy);
                }
            }, "stress-worker-" + w);
            workers.add(t);
            t.start();
        }
        return workers;
    }

    /** Floods while the workers run; returns the facades' counts. */
    private SimFlood.Counts phase(long perThread, long[] rounds, ModuleRecords records) throws InterruptedException {
        AtomicBoolean stop = new AtomicBoolean(false);
        List<Thread> workers = startWorkers(stop, rounds, records);
        SimFlood.Counts c = SimFlood.flood(THREADS_PER_FACADE, perThread);
        stop.set(true);
        for (Thread t : workers) {
            t.join(120_000);
            assertTrue(!t.isAlive(), t.getName() + " still running");
        }
        return c;
    }

    private static long residentKb() throws Exception {
        for (String line : Files.readAllLines(Paths.get("/proc/self/status"))) {
            if (line.startsWith("VmRSS:")) return Long.parseLong(line.replaceAll("[^0-9]", ""));
        }
        throw new AssertionError("no VmRSS");
    }

    private static long settledResidentKb() throws Exception {
        SimDevice.clearCalls();
        SimDevice.clearTrace();
        // After a full GC the VM hands the heap regions it no longer needs back to the system
        // in the background: wait until the resident size has settled (at most 15 s). Memory
        // that the C library keeps after free() for reuse is handed back too, so that what is
        // measured is memory in use.
        long last = Long.MAX_VALUE;
        for (int i = 0; i < 30; ++i) {
            System.gc();
            Thread.sleep(500);
            SimFlood.releaseFreeMemory();
            long now = residentKb();
            if (Math.abs(last - now) < last / 200) break;
            last = now;
        }
        return residentKb();
    }

    @Test
    void everyNotificationArrivesOnceWhileModulesAreCalledAndMemoryStaysFlat() throws Exception {
        final long total = notifications();
        final long perThread = Math.max(1, total / (SimFlood.FACADES * THREADS_PER_FACADE));
        SimDevice.reset();
        SimJobs.reset();
        SimAddressBook.reset();
        SimAddressBook.generate(ADDRESSES, 1);
        EventProxies.removeAllListeners();
        listen();
        assertEquals(0, cmt_commonJNI.cmt_init_init());
        ModuleRecords records = new ModuleRecords();
        assertTrue(records.recordCount() > 0, "no module records found");
        long manager = ZELFNDEventJNI.new_zel_fnd_event_manager();
        assertTrue(ZELFNDEventJNI.zel_fnd_event_manager_init(manager, null));
        long[] rounds = new long[WORKERS];
        long startMs = System.currentTimeMillis();
        try {
            // Warm-up: a tenth of the run, so the VM's heap, the attach path and the device's
            // buffers reach their working size.
            SimFlood.Counts warm = phase(Math.max(1, perThread / 10), rounds, records);
            long warmKb = settledResidentKb();
            long[] warmRounds = rounds.clone();
            SimFlood.Counts run = phase(perThread, rounds, records);
            long afterKb = settledResidentKb();
            long seconds = (System.currentTimeMillis() - startMs) / 1000;

            long[] expectedCount = new long[SimFlood.FACADES];
            long[] expectedSum = new long[SimFlood.FACADES];
            long[] got = new long[SimFlood.FACADES];
            long[] gotSum = new long[SimFlood.FACADES];
            for (int f = 0; f < SimFlood.FACADES; ++f) {
                assertEquals(0, warm.refused[f] + run.refused[f], SimFlood.NAMES[f] + " refused");
                assertEquals(0, warm.unanswered[f] + run.unanswered[f], SimFlood.NAMES[f] + " had no observer");
                assertEquals(THREADS_PER_FACADE * perThread, run.delivered[f], SimFlood.NAMES[f] + " delivered");
                expectedCount[f] = warm.delivered[f] + run.delivered[f];
                expectedSum[f] = warm.idSum[f] + run.idSum[f];
                got[f] = received.get(f);
                gotSum[f] = idSum.get(f);
            }
            System.out.printf("stress: %d notifications (+%d warm-up) from %d facades x %d threads in %d s;"
                    + " worker rounds %s (warm-up %s); %d module records; resident %d kB after warm-up,"
                    + " %d kB after the run (%+.1f %%)%n",
                    run.totalDelivered(), warm.totalDelivered(), SimFlood.FACADES, THREADS_PER_FACADE, seconds,
                    java.util.Arrays.toString(rounds), java.util.Arrays.toString(warmRounds), records.recordCount(),
                    warmKb, afterKb, 100.0 * (afterKb - warmKb) / warmKb);
            assertEquals(List.of(), failures);
            assertArrayEquals(expectedCount, got, "notifications lost or doubled");
            assertArrayEquals(expectedSum, gotSum, "ids lost, doubled or mixed up");
            for (int w = 0; w < WORKERS; ++w) assertTrue(rounds[w] > warmRounds[w], "worker " + w + " made no round");
            if (!SANITIZED) {
                assertTrue(afterKb <= warmKb * 1.10, "resident memory grew from " + warmKb + " kB to " + afterKb + " kB");
            }
        } finally {
            ZELFNDEventJNI.delete_zel_fnd_event_manager(manager);
            EventProxies.removeAllListeners();
        }
    }
}
