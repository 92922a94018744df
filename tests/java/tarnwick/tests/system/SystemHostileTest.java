package tarnwick.tests.system;

import static org.junit.jupiter.api.Assertions.assertArrayEquals;
import static org.junit.jupiter.api.Assertions.assertEquals;

import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.extension.RegisterExtension;
import tarnwick.tests.support.SimDeviceExtension;
import tarnwick.zel.wrapper.system.cmt_commonJNI;

/**
 * Hostile calls into the system module: times far outside the 32-bit range, repeated start-up,
 * deletes of the null handle.
 *
 * Left out on purpose: getters on the null handle and on a deleted (stale) handle. The wrapper
 * layer does not test the object pointer before a member call; such a call is the caller's
 * fault.
 */
class SystemHostileTest {
    @RegisterExtension
    static final SimDeviceExtension device = new SimDeviceExtension(false);

    private static int[] fields(long t) {
        long h = cmt_commonJNI.new_cmt_time__SWIG_1(t);
        int[] f = {cmt_commonJNI.cmt_time_getYear(h, null), cmt_commonJNI.cmt_time_getMonth(h, null),
                   cmt_commonJNI.cmt_time_getDate(h, null), cmt_commonJNI.cmt_time_getHour(h, null),
                   cmt_commonJNI.cmt_time_getMinute(h, null), cmt_commonJNI.cmt_time_getSecond(h, null)};
        cmt_commonJNI.delete_cmt_time(h);
        return f;
    }

    @Test
    void timesOutsideTheDeviceRange() {
        int[] epoch = {1970, 1, 1, 0, 0, 0};
        // Low 32 bits with the top bit set read as negative: the defaults.
        for (long t : new long[] {-1L, Long.MIN_VALUE, Long.MAX_VALUE, 0x80000000L, 0xFFFFFFFFL, -86400L}) {
            assertArrayEquals(epoch, fields(t), "time " + t);
        }
        // Only the low 32 bits count.
        assertArrayEquals(new int[] {1970, 1, 2, 0, 0, 0}, fields((1L << 32) + 86400));
        assertArrayEquals(new int[] {2038, 1, 19, 3, 14, 7}, fields(0x7FFFFFFFL));
        assertArrayEquals(new int[] {2009, 1, 1, 0, 0, 0}, fields((0x12345L << 32) | 1230768000L));
    }

    @Test
    void manyTimeObjectsAndRepeatedStartUp() {
        long[] handles = new long[10_000];
        for (int i = 0; i < handles.length; ++i) handles[i] = cmt_commonJNI.new_cmt_time__SWIG_0();
        for (long h : handles) cmt_commonJNI.delete_cmt_time(h);
        for (int i = 0; i < 3; ++i) assertEquals(0, cmt_commonJNI.cmt_init_init());
    }

    @Test
    void deletingTheNullHandleDoesNothing() {
        cmt_commonJNI.delete_cmt_time(0);
        cmt_commonJNI.delete_cmt_init(0);
        long init = cmt_commonJNI.new_cmt_init();
        cmt_commonJNI.delete_cmt_init(init);
    }
}
