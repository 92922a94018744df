package tarnwick.bench;

import java.util.Arrays;
import tarnwick.sim.SimDevice;
import tarnwick.sim.SimJobs;
import tarnwick.zel.wrapper.job.zel_fnd_job_moduleJNI;

/**
 * Nanoseconds per call of job module natives, each against an empty static native measured in
 * the same JVM and run: a wrapper that reaches no facade (get_char_array_size), a record field
 * getter, and a full proxy call through the simulated facade (get_value).
 */
public final class JobBench {
    static {
        System.loadLibrary("tovrCMT");
        System.loadLibrary("jobbench");
    }

    /** Does nothing: the floor of a static native call. */
    static native void empty();

    interface Body {
        long run(int n);
    }

    static long sink;

    /** Median ns per call over `rounds` timed batches of `n` calls. */
    static double measure(Body body, int n, int rounds, Runnable between) {
        double[] ns = new double[rounds];
        for (int r = 0; r < rounds; ++r) {
            between.run();
            long t0 = System.nanoTime();
            sink += body.run(n);
            ns[r] = (double) (System.nanoTime() - t0) / n;
        }
        Arrays.sort(ns);
        return ns[rounds / 2];
    }

    public static void main(String[] args) {
        int n = args.length > 0 ? Integer.parseInt(args[0]) : 200_000;
        int rounds = args.length > 1 ? Integer.parseInt(args[1]) : 21;
        SimDevice.reset();
        SimJobs.reset();
        long proxy = zel_fnd_job_moduleJNI.new_zel_fnd_job_proxy();
        long record = zel_fnd_job_moduleJNI.new_ESV_ZEL_JOB_STATE();
        zel_fnd_job_moduleJNI.ESV_ZEL_JOB_STATE_user_job_id_set(record, null, 4000000000L);
        long[] id = {0};
        zel_fnd_job_moduleJNI.zel_fnd_job_proxy_generate_jobinfo(proxy, null, 0, id);
        long[] val = {0};

        Body floor = k -> { for (int i = 0; i < k; ++i) empty(); return k; };
        Body size = k -> {
            long s = 0;
            for (int i = 0; i < k; ++i) s += zel_fnd_job_moduleJNI.zel_fnd_job_proxy_get_char_array_size(proxy, null, i & 7);
            return s;
        };
        Body getter = k -> {
            long s = 0;
            for (int i = 0; i < k; ++i) s += zel_fnd_job_moduleJNI.ESV_ZEL_JOB_STATE_user_job_id_get(record, null);
            return s;
        };
        Body full = k -> {
            long s = 0;
            for (int i = 0; i < k; ++i) s += zel_fnd_job_moduleJNI.zel_fnd_job_proxy_get_value__SWIG_0(proxy, null, id[0], 3, val);
            return s + val[0];
        };
        // The device records each facade call and the trace keeps lines: cleared outside the timing.
        Runnable nothing = () -> {};
        Runnable clear = () -> { SimDevice.clearCalls(); SimDevice.clearTrace(); };
        int fullN = Math.max(1, n / 20);
        for (int warm = 0; warm < 3; ++warm) {  // JIT and caches
            measure(floor, n, 3, nothing);
            measure(size, n, 3, nothing);
            measure(getter, n, 3, nothing);
            measure(full, fullN, 3, clear);
        }
        double f = measure(floor, n, rounds, nothing);
        double s = measure(size, n, rounds, nothing);
        double g = measure(getter, n, rounds, nothing);
        double p = measure(full, fullN, rounds, clear);
        double f2 = measure(floor, n, rounds, nothing);  // the floor again, to see drift
        double floorNs = Math.min(f, f2);
        System.out.printf("empty static native            %8.1f ns/call (again %.1f)%n", f, f2);
        System.out.printf("get_char_array_size (no facade) %8.1f ns/call  ratio %.2f%n", s, s / floorNs);
        System.out.printf("ESV_ZEL_JOB_STATE getter        %8.1f ns/call  ratio %.2f%n", g, g / floorNs);
        System.out.printf("get_value via simulated facade  %8.1f ns/call  ratio %.2f%n", p, p / floorNs);
        zel_fnd_job_moduleJNI.delete_ESV_ZEL_JOB_STATE(record);
        zel_fnd_job_moduleJNI.delete_zel_fnd_job_proxy(proxy);
        SimJobs.reset();
        if (sink == 42) System.out.println();
    }
}
