package tarnwick.tests.job;

import static org.junit.jupiter.api.Assertions.assertArrayEquals;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertNull;
import static org.junit.jupiter.api.Assertions.assertThrows;

import java.util.List;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.extension.RegisterExtension;
import tarnwick.sim.SimDevice;
import tarnwick.sim.SimJobs;
import tarnwick.tests.support.SimDeviceExtension;
import tarnwick.zel.wrapper.job.zel_fnd_job_moduleJNI;

/**
 * Hostile calls into the job module: sizes, counts, indexes, texts and arrays no well-behaved
 * caller would pass. Each gives the module's result or Java exception; none may end the VM or
 * read past a buffer (the AddressSanitizer run of the suite checks the latter).
 *
 * Left out on purpose: member calls on the null handle and on a deleted (stale) handle. The
 * wrapper layer does not test the object pointer before a member call; such a call is the
 * caller's fault and its outcome is undefined.
 */
class JobHostileTest {
    @RegisterExtension
    static final SimDeviceExtension device = new SimDeviceExtension(false);

    private static final long[] BAD_SIZES = {-1L, Long.MIN_VALUE, Long.MAX_VALUE, 1L << 40, (1L << 32) + 5, 0x20000000L};

    @Test
    void vectorlSizesOutOfRangeAreIllegalArguments() {
        for (long n : BAD_SIZES) {
            IllegalArgumentException e = assertThrows(IllegalArgumentException.class,
                () -> zel_fnd_job_moduleJNI.new_vectorl__SWIG_1(n), "new_vectorl(" + n + ")");
            assertEquals("vector size out of range", e.getMessage());
        }
        long v = zel_fnd_job_moduleJNI.new_vectorl__SWIG_1(2);
        zel_fnd_job_moduleJNI.vectorl_reserve(v, null, 10);
        long capacity = zel_fnd_job_moduleJNI.vectorl_capacity(v, null);
        for (long n : BAD_SIZES) {
            IllegalArgumentException e = assertThrows(IllegalArgumentException.class,
                () -> zel_fnd_job_moduleJNI.vectorl_reserve(v, null, n), "reserve(" + n + ")");
            assertEquals("vector size out of range", e.getMessage());
        }
        // A refused size leaves the list as it was.
        assertEquals(2L, zel_fnd_job_moduleJNI.vectorl_size(v, null));
        assertEquals(capacity, zel_fnd_job_moduleJNI.vectorl_capacity(v, null));
        // 0 is a size like any other.
        zel_fnd_job_moduleJNI.vectorl_reserve(v, null, 0);
        assertEquals(capacity, zel_fnd_job_moduleJNI.vectorl_capacity(v, null));
        zel_fnd_job_moduleJNI.delete_vectorl(v);
    }

    @Test
    void vectorlIndexesOutOfRange() {
        long v = zel_fnd_job_moduleJNI.new_vectorl__SWIG_1(0);
        for (int i : new int[] {0, -1, 1, Integer.MIN_VALUE, Integer.MAX_VALUE}) {
            IndexOutOfBoundsException e = assertThrows(IndexOutOfBoundsException.class,
                () -> zel_fnd_job_moduleJNI.vectorl_get(v, null, i));
            assertEquals("vector index out of range", e.getMessage());
            e = assertThrows(IndexOutOfBoundsException.class, () -> zel_fnd_job_moduleJNI.vectorl_set(v, null, i, 7));
            assertEquals("vector index out of range", e.getMessage());
        }
        // Elements are unsigned 32-bit: only the low 32 bits of a Java long are kept.
        zel_fnd_job_moduleJNI.vectorl_add(v, null, -1L);
        zel_fnd_job_moduleJNI.vectorl_add(v, null, (1L << 32) + 9);
        assertEquals(0xFFFFFFFFL, zel_fnd_job_moduleJNI.vectorl_get(v, null, 0));
        assertEquals(9L, zel_fnd_job_moduleJNI.vectorl_get(v, null, 1));
        zel_fnd_job_moduleJNI.delete_vectorl(v);
        zel_fnd_job_moduleJNI.delete_vectorl(0);
    }

    @Test
    void scanDataCountBeyondTheBufferGivesNullAndAnErrorTrace() {
        SimDevice.reset();
        SimJobs.reset();
        // As an application does before using any module: the library finds its VM.
        assertEquals(0, tarnwick.zel.wrapper.system.cmt_commonJNI.cmt_init_init());
        long p = zel_fnd_job_moduleJNI.new_zel_fnd_job_proxy();
        long data = zel_fnd_job_moduleJNI.new_ESV_ZEL_JOB_GET_SCAN_DATA();
        zel_fnd_job_moduleJNI.ESV_ZEL_JOB_GET_SCAN_DATA_scan_data_set(data, null, "abc");
        for (long count : new long[] {4097, 5000, 100_000, 0xFFFFFFFFL}) {
            SimDevice.forceResult("esv_zel_job_get_scan_data", 0, 1);  // OK, record left as it is
            zel_fnd_job_moduleJNI.ESV_ZEL_JOB_GET_SCAN_DATA_data_size_set(data, null, count);
            SimDevice.clearTrace();
            assertNull(zel_fnd_job_moduleJNI.zel_fnd_job_proxy_get_scan_data(p, null, 7, data, null), "count " + count);
            assertEquals(List.of("0 zel_fnd_job_proxy get_scan_data,data_size = [" + count
                    + "] exceeds the scan data buffer of [4096] bytes."),
                traceAtLevel0());
        }
        // The buffer's full size is still good.
        SimDevice.forceResult("esv_zel_job_get_scan_data", 0, 1);
        zel_fnd_job_moduleJNI.ESV_ZEL_JOB_GET_SCAN_DATA_data_size_set(data, null, 4096);
        byte[] all = zel_fnd_job_moduleJNI.zel_fnd_job_proxy_get_scan_data(p, null, 7, data, null);
        assertEquals(4096, all.length);
        assertArrayEquals(new byte[] {'a', 'b', 'c', 0}, java.util.Arrays.copyOf(all, 4));
        zel_fnd_job_moduleJNI.delete_ESV_ZEL_JOB_GET_SCAN_DATA(data);
        zel_fnd_job_moduleJNI.delete_zel_fnd_job_proxy(p);
        SimDevice.reset();
    }

    private static List<String> traceAtLevel0() {
        List<String> out = new java.util.ArrayList<>();
        for (String line : SimDevice.traceLines()) {
            if (line.startsWith("0 ")) out.add(line.replaceFirst("\\[\\d{4,}\\]::", " "));
        }
        return out;
    }

    @Test
    void hugeAndNegativeIdsAndKeys() {
        SimDevice.reset();
        SimJobs.reset();
        long p = zel_fnd_job_moduleJNI.new_zel_fnd_job_proxy();
        for (int key : new int[] {9, -1, Integer.MIN_VALUE, Integer.MAX_VALUE}) {
            assertEquals(0L, zel_fnd_job_moduleJNI.zel_fnd_job_proxy_get_char_array_size(p, null, key));
        }
        // Ids are unsigned 32-bit: the facade sees the low 32 bits of the Java long.
        zel_fnd_job_moduleJNI.zel_fnd_job_proxy_start(p, null, -1L);
        zel_fnd_job_moduleJNI.zel_fnd_job_proxy_start(p, null, (1L << 32) + 3);
        assertArrayEquals(new String[] {"4294967295", "3"}, SimDevice.calls("esv_zel_job_kick"));
        zel_fnd_job_moduleJNI.delete_zel_fnd_job_proxy(p);
    }

    @Test
    void veryLongTextsAreCutToTheirFields() {
        String huge = "y".repeat(100_000);
        long s = zel_fnd_job_moduleJNI.new_ESV_ZEL_BOX_JOB_INIT_SETTING();
        zel_fnd_job_moduleJNI.ESV_ZEL_BOX_JOB_INIT_SETTING_access_path_set(s, null, huge);
        assertEquals(1530, zel_fnd_job_moduleJNI.ESV_ZEL_BOX_JOB_INIT_SETTING_access_path_get(s, null).length());
        zel_fnd_job_moduleJNI.ESV_ZEL_BOX_JOB_INIT_SETTING_doc_pass_set(s, null, huge);
        assertEquals("yyyy", zel_fnd_job_moduleJNI.ESV_ZEL_BOX_JOB_INIT_SETTING_doc_pass_get(s, null));
        zel_fnd_job_moduleJNI.ESV_ZEL_BOX_JOB_INIT_SETTING_doc_pass_set(s, null, null);
        assertEquals("", zel_fnd_job_moduleJNI.ESV_ZEL_BOX_JOB_INIT_SETTING_doc_pass_get(s, null));
        zel_fnd_job_moduleJNI.delete_ESV_ZEL_BOX_JOB_INIT_SETTING(s);

        long d = zel_fnd_job_moduleJNI.new_ESV_ZEL_JOB_GET_SCAN_DATA();
        zel_fnd_job_moduleJNI.ESV_ZEL_JOB_GET_SCAN_DATA_scan_data_set(d, null, huge);
        assertEquals(4095, zel_fnd_job_moduleJNI.ESV_ZEL_JOB_GET_SCAN_DATA_scan_data_get(d, null).length());
        zel_fnd_job_moduleJNI.delete_ESV_ZEL_JOB_GET_SCAN_DATA(d);
    }

    @Test
    void fixedArraysOfTheWrongSizeOrNull() {
        long m = zel_fnd_job_moduleJNI.new_ESV_ZEL_PHB_GET_MESSAGE();
        zel_fnd_job_moduleJNI.ESV_ZEL_PHB_GET_MESSAGE_msg_detail_info_set(m, null, new int[] {1, 2, 3, 4});
        for (int[] bad : new int[][] {new int[0], new int[3], new int[5], new int[100_000]}) {
            IndexOutOfBoundsException e = assertThrows(IndexOutOfBoundsException.class,
                () -> zel_fnd_job_moduleJNI.ESV_ZEL_PHB_GET_MESSAGE_msg_detail_info_set(m, null, bad));
            assertEquals("incorrect array size", e.getMessage());
        }
        NullPointerException e = assertThrows(NullPointerException.class,
            () -> zel_fnd_job_moduleJNI.ESV_ZEL_PHB_GET_MESSAGE_msg_detail_info_set(m, null, null));
        assertEquals("null array", e.getMessage());
        assertArrayEquals(new int[] {1, 2, 3, 4}, zel_fnd_job_moduleJNI.ESV_ZEL_PHB_GET_MESSAGE_msg_detail_info_get(m, null));
        zel_fnd_job_moduleJNI.delete_ESV_ZEL_PHB_GET_MESSAGE(m);
    }

    @Test
    void scalarFieldsOnTheNullHandleAreIgnored() {
        // Scalar setters test the record pointer; the rest is the caller's fault (see above).
        zel_fnd_job_moduleJNI.ESV_ZEL_JOB_GET_SCAN_DATA_data_size_set(0, null, 5000);
        zel_fnd_job_moduleJNI.ESV_ZEL_JOB_STATE_user_job_id_set(0, null, 1);
        zel_fnd_job_moduleJNI.delete_ESV_ZEL_JOB_STATE(0);
        zel_fnd_job_moduleJNI.delete_zel_fnd_job_proxy(0);
    }
}
