package tarnwick.tests.job;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertTrue;

import java.nio.charset.StandardCharsets;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.List;
import java.util.concurrent.CopyOnWriteArrayList;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.extension.RegisterExtension;
import tarnwick.sim.SimDevice;
import tarnwick.sim.SimJobs;
import tarnwick.tests.support.SimDeviceExtension;
import tarnwick.zel.wrapper.job.zel_fnd_job_moduleJNI;

/**
 * Four Java threads call get_scan_data at once, under -Xcheck:jni (an environment used on the
 * wrong thread ends the VM). Each thread has its own record and checks every array it gets.
 * TOVR_SCAN_THREADS_SECONDS sets the duration (default 10 s; scripts/stress.sh runs it longer).
 */
class ScanDataThreadsTest {
    @RegisterExtension
    static final SimDeviceExtension device = new SimDeviceExtension(false);

    private static final int THREADS = 4;

    private static long seconds() {
        String s = System.getenv("TOVR_SCAN_THREADS_SECONDS");
        return s != null && !s.isEmpty() ? Long.parseLong(s) : 10;
    }

    @Test
    void fourThreadsEachGetTheirOwnRecordsBytes() throws Exception {
        SimDevice.reset();
        SimJobs.reset();
        // Every call answers OK and leaves the record as the caller filled it.
        // As an application does before using any module: the library finds its VM.
        assertEquals(0, tarnwick.zel.wrapper.system.cmt_commonJNI.cmt_init_init());
        SimDevice.forceResult("esv_zel_job_get_scan_data", 0, -1);
        final long end = System.nanoTime() + seconds() * 1_000_000_000L;
        List<Throwable> failures = new CopyOnWriteArrayList<>();
        long[] calls = new long[THREADS];
        List<Thread> threads = new ArrayList<>();
        for (int t = 0; t < THREADS; ++t) {
            final int me = t;
            threads.add(new Thread(() -> {
                long proxy = zel_fnd_job_moduleJNI.new_zel_fnd_job_proxy();
                long data = zel_fnd_job_moduleJNI.new_ESV_ZEL_JOB_GET_SCAN_DATA();
                try {
                    String text = ("thread " + me + " ").repeat(1 + me * 40);
                    byte[] expected = text.getBytes(StandardCharsets.US_ASCII);
                    zel_fnd_job_moduleJNI.ESV_ZEL_JOB_GET_SCAN_DATA_scan_data_set(data, null, text);
                    zel_fnd_job_moduleJNI.ESV_ZEL_JOB_GET_SCAN_DATA_data_size_set(data, null, expected.length);
                    while (System.nanoTime() < end) {
                        for (int i = 0; i < 100; ++i) {
                            byte[] got = zel_fnd_job_moduleJNI.zel_fnd_job_proxy_get_scan_data(proxy, null, 100 + me, data, null);
                            if (!Arrays.equals(expected, got)) {
                                throw new AssertionError("thread " + me + " got " + (got == null ? "null" : got.length + " bytes"));
                            }
                            calls[me]++;
                        }
                        // The simulated device records every call; keep that record short.
                        if (me == 0) SimDevice.clearCalls();
                    }
                } catch (Throwable e) {
                    failures.add(e);
                } finally {
                    zel_fnd_job_moduleJNI.delete_ESV_ZEL_JOB_GET_SCAN_DATA(data);
                    zel_fnd_job_moduleJNI.delete_zel_fnd_job_proxy(proxy);
                }
            }, "scan-data-" + t));
        }
        for (Thread t : threads) t.start();
        for (Thread t : threads) {
            t.join(seconds() * 1000 + 120_000);
            assertTrue(!t.isAlive(), t.getName() + " still running");
        }
        SimDevice.reset();
        System.out.printf("scan data: %d threads for %d s, calls per thread %s%n", THREADS, seconds(), Arrays.toString(calls));
        assertEquals(List.of(), failures);
        for (long c : calls) assertTrue(c > 0);
    }
}
