package tarnwick.tests.event;

import static org.junit.jupiter.api.Assertions.assertArrayEquals;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertTrue;
import static tarnwick.tests.event.EventFixture.OK;

import java.util.List;
import java.util.concurrent.CopyOnWriteArrayList;
import java.util.concurrent.CountDownLatch;
import java.util.concurrent.CyclicBarrier;
import java.util.concurrent.TimeUnit;
import java.util.concurrent.atomic.AtomicReference;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.extension.RegisterExtension;
import tarnwick.sim.SimCommon;
import tarnwick.sim.SimJobs;
import tarnwick.tests.support.SimDeviceExtension;
import tarnwick.zel.controller.event.proxy.CommonProxy;
import tarnwick.zel.controller.event.proxy.JobProxy;
import tarnwick.zel.wrapper.device.attribute.CMT_System_Info;
import tarnwick.zel.wrapper.event.zel_fnd_event_manager;
import tarnwick.zel.wrapper.job.zel_fnd_job_proxy;

/**
 * Two listeners, each on its own service's thread, call into the other's service at the same
 * moment (held together by a barrier): a job listener puts the device to sleep while a cover
 * listener prohibits job starts. Neither waits for the other; the events their calls caused
 * follow, and both services go on delivering.
 */
class CrossFacadeListenerTest {
    @RegisterExtension
    static final SimDeviceExtension device = new SimDeviceExtension();


    @Test
    void listenersCallingIntoEachOthersServiceAtOnceBothReturn() throws Exception {
        zel_fnd_event_manager manager = new zel_fnd_event_manager();
        manager.init();
        zel_fnd_job_proxy jobs = new zel_fnd_job_proxy();
        long[] set = new long[1];
        assertEquals(0, jobs.generate_jobinfo(0, set));  // a set that a prohibition reaches
        CyclicBarrier bothInside = new CyclicBarrier(2);
        List<Throwable> failures = new CopyOnWriteArrayList<>();
        AtomicReference<Object> sleepAnswer = new AtomicReference<>();
        AtomicReference<Object> prohibitAnswer = new AtomicReference<>();
        CountDownLatch sleepSeen = new CountDownLatch(1);
        CountDownLatch prohibitionSeen = new CountDownLatch(1);
        JobProxy.listeners.add(new JobProxy.Listener() {
            @Override public void scanCount(long first, long second) {
                if (first != 1) return;
                try {
                    bothInside.await(10, TimeUnit.SECONDS);
                    CMT_System_Info info = new CMT_System_Info();
                    sleepAnswer.set(info.request_energy_saving_mode(1));
                    info.delete();
                } catch (Throwable t) {
                    failures.add(t);
                }
            }
            @Override public void startProhibition(long id) {
                if (id == set[0]) prohibitionSeen.countDown();
            }
        });
        CommonProxy.listeners.add(new CommonProxy.Listener() {
            @Override public void cover(long status) {
                if (status != 1) return;
                try {
                    bothInside.await(10, TimeUnit.SECONDS);
                    prohibitAnswer.set(jobs.set_state_of_prohibition(1));
                } catch (Throwable t) {
                    failures.add(t);
                }
            }
            @Override public void sleep(int state) {
                if (state == 0) sleepSeen.countDown();
            }
        });
        AtomicReference<long[]> jobAnswers = new AtomicReference<>();
        AtomicReference<long[]> coverAnswers = new AtomicReference<>();
        Thread job = new Thread(() -> jobAnswers.set(SimJobs.scanCount(1, 2)), "scan-count");
        Thread cover = new Thread(() -> coverAnswers.set(SimCommon.coverStatus(1)), "cover");
        job.start();
        cover.start();
        job.join(15_000);
        cover.join(15_000);
        // Stuck facades would stay stuck: nothing below would end, so stop here.
        assertFalse(job.isAlive() || cover.isAlive(), "the two services wait for each other");

        assertEquals(List.of(), failures);
        assertArrayEquals(OK, jobAnswers.get());
        assertArrayEquals(OK, coverAnswers.get());
        assertEquals(Boolean.TRUE, sleepAnswer.get());
        assertEquals(0, prohibitAnswer.get());
        assertTrue(sleepSeen.await(10, TimeUnit.SECONDS), "the sleep event follows");
        assertTrue(prohibitionSeen.await(10, TimeUnit.SECONDS), "the start prohibition follows");
        assertArrayEquals(OK, SimJobs.scanCount(3, 4));
        assertArrayEquals(OK, SimCommon.coverStatus(2));

        jobs.delete();
        manager.delete();
        JobProxy.listeners.clear();
        CommonProxy.listeners.clear();
    }
}
