package tarnwick.tests.event;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertTrue;

import java.util.HashMap;
import java.util.List;
import java.util.Map;
import java.util.concurrent.ConcurrentHashMap;
import java.util.concurrent.CopyOnWriteArrayList;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.extension.RegisterExtension;
import tarnwick.sim.SimAcc;
import tarnwick.sim.SimCommon;
import tarnwick.sim.SimDevice;
import tarnwick.sim.SimJobs;
import tarnwick.sim.SimPanel;
import tarnwick.tests.support.SimDeviceExtension;
import tarnwick.zel.wrapper.event.ZELFNDEventJNI;

/**
 * All five facades deliver at once, each on its own thread, while Java threads drive the panel
 * proxy and a second manager is started and terminated over and over. Every delivery an
 * observer answered reaches the listeners exactly once.
 */
class ConcurrencyTest {
    @RegisterExtension
    static final SimDeviceExtension device = new SimDeviceExtension(false);

    private static final int EVENTS = 300;
    private static final int PANEL_CALLS = 300;

    @Test
    void everyDeliveredEventArrivesExactlyOnce() throws Exception {
        try (EventFixture f = EventFixture.started(true)) {
            Map<String, Integer> delivered = new ConcurrentHashMap<>();
            List<Throwable> failures = new CopyOnWriteArrayList<>();
            List<Thread> threads = new java.util.ArrayList<>();

            String[] names = {"cover", "scanCount", "page", "icCardError", "applStart"};
            for (int kind = 0; kind < names.length; kind++) {
                final int k = kind;
                threads.add(new Thread(() -> {
                    for (int i = 1; i <= EVENTS; i++) {
                        long[] answers;
                        String key;
                        switch (k) {
                            case 0: answers = SimCommon.coverStatus(i); key = "cover " + i; break;
                            case 1: answers = SimJobs.scanCount(i, i + 1); key = "scanCount " + i + " " + (i + 1); break;
                            case 2: answers = SimJobs.faxSendPage(i, i); key = "page FaxSendPageInfo[userJobId=" + i + ", pageNum=" + i + "]"; break;
                            case 3: answers = SimAcc.iccardReadError(i); key = "icCardError " + i; break;
                            default: answers = SimPanel.keyEvent(i, i & 1); key = "applStart " + i; break;
                        }
                        if (answers.length < 1) failures.add(new AssertionError("no observer for " + key));
                        for (long a : answers) {
                            if (a != 0) failures.add(new AssertionError(key + " answered " + Long.toHexString(a)));
                        }
                        delivered.merge(key, answers.length, Integer::sum);
                    }
                }, "raise-" + names[k]));
            }
            for (int t = 0; t < 2; t++) {
                threads.add(new Thread(() -> {
                    long proxy = ZELFNDEventJNI.new_zel_fnd_panel_proxy();
                    for (int i = 0; i < PANEL_CALLS; i++) {
                        ZELFNDEventJNI.zel_fnd_panel_proxy_request_event(proxy, null, i, i);
                        ZELFNDEventJNI.zel_fnd_panel_proxy_view_update(proxy, null, i, i % 7);
                    }
                    ZELFNDEventJNI.delete_zel_fnd_panel_proxy(proxy);
                }, "panel-proxy-" + t));
            }
            threads.add(new Thread(() -> {
                for (int i = 0; i < 15; i++) {
                    long m = ZELFNDEventJNI.new_zel_fnd_event_manager();
                    ZELFNDEventJNI.zel_fnd_event_manager_init(m, null);
                    Thread.yield();
                    ZELFNDEventJNI.zel_fnd_event_manager_terminate(m, null);
                    ZELFNDEventJNI.delete_zel_fnd_event_manager(m);
                }
            }, "manager"));
            for (Thread t : threads) t.setUncaughtExceptionHandler((th, e) -> failures.add(e));
            for (Thread t : threads) t.start();
            for (Thread t : threads) {
                t.join(120_000);
                assertTrue(!t.isAlive(), t.getName() + " still running");
            }
            assertEquals(List.of(), failures);

            Map<String, Integer> received = new HashMap<>();
            synchronized (f.events) {
                for (String e : f.events) received.merge(e, 1, Integer::sum);
            }
            assertEquals(5 * EVENTS, delivered.size());
            assertEquals(delivered, received);
            assertEquals(2 * PANEL_CALLS, SimDevice.callCount("esv_zel_panel_notify_request_event"));
            for (String facade : new String[] {"common", "job", "panel", "acc", "jobinfo"}) {
                assertEquals(1, SimDevice.observerCount(facade), facade);
            }
        }
    }
}
