package tarnwick.bench;

import java.lang.management.ManagementFactory;
import java.lang.management.ThreadMXBean;
import java.util.ArrayList;
import java.util.Arrays;
import tarnwick.sim.SimDevice;
import tarnwick.sim.SimUsers;
import tarnwick.zel.wrapper.system.cmt_commonJNI;
import tarnwick.zel.wrapper.user.ZELFNDUserJNI;

/**
 * Nanoseconds per user of fetching the local user list as Java UserImpl objects, for lists of
 * 100, 1,000 and 10,000 users on the simulated device (wall clock and the calling thread's CPU
 * time, medians). Each user is made in its own local frame, so the cost per user should not grow
 * with the list.
 */
public final class UserListBench {
    static {
        System.loadLibrary("tovrCMT");
    }

    static int sink;

    static final ThreadMXBean THREADS = ManagementFactory.getThreadMXBean();

    /**
     * ns per user over fetches of the whole list, at least `rounds` of them and about as many users
     * in all for every list size: {median wall clock, median CPU time of the calling thread,
     * minimum CPU time}. On a machine shared with other work a long fetch is preempted more
     * often, which the wall clock counts and the thread's CPU time does not.
     */
    static double[] measure(long auth, int users, int rounds) {
        rounds = Math.max(rounds, 200_000 / users);
        double[] ns = new double[rounds];
        double[] cpu = new double[rounds];
        for (int r = 0; r < rounds; ++r) {
            SimDevice.clearCalls();  // the device's call record is not the library's cost
            ArrayList<Object> list = new ArrayList<>(users);
            long c0 = THREADS.getCurrentThreadCpuTime();
            long t0 = System.nanoTime();
            int rc = ZELFNDUserJNI.zel_fnd_authentication_get_local_user_list(auth, null, list);
            ns[r] = (double) (System.nanoTime() - t0) / users;
            cpu[r] = (double) (THREADS.getCurrentThreadCpuTime() - c0) / users;
            if (rc != 0 || list.size() != users) throw new IllegalStateException("fetch failed: " + rc + ", " + list.size());
            sink += list.size();
        }
        Arrays.sort(ns);
        Arrays.sort(cpu);
        return new double[] {ns[rounds / 2], cpu[rounds / 2], cpu[0]};
    }

    public static void main(String[] args) {
        int rounds = args.length > 0 ? Integer.parseInt(args[0]) : 15;
        cmt_commonJNI.cmt_init_init();
        long auth = ZELFNDUserJNI.new_zel_fnd_authentication();
        int[] sizes = {100, 1_000, 10_000};
        if (args.length > 1) sizes = Arrays.stream(args).skip(1).mapToInt(Integer::parseInt).toArray();
        // Warm up on the largest list so that every size runs compiled code.
        SimDevice.reset();
        SimUsers.reset();
        SimUsers.addLocalUsers(sizes[sizes.length - 1] - 1);
        measure(auth, sizes[sizes.length - 1], 5);
        double first = 0;
        System.out.printf("%8s %8s %16s %16s %16s %10s%n", "users", "fetches", "wall ns/user", "cpu ns/user", "min cpu ns/user",
                "cpu vs first");
        for (int n : sizes) {
            SimDevice.reset();
            SimUsers.reset();
            SimUsers.addLocalUsers(n - 1);  // and the built-in administrator
            double[] ns = measure(auth, n, rounds);
            if (first == 0) first = ns[1];
            System.out.printf("%8d %8d %16.0f %16.0f %16.0f %10.2f%n", n, Math.max(rounds, 200_000 / n), ns[0], ns[1], ns[2],
                    ns[1] / first);
        }
        ZELFNDUserJNI.delete_zel_fnd_authentication(auth);
        SimUsers.reset();
    }
}
