package tarnwick.tests.wrapper;

import static org.junit.jupiter.api.Assertions.assertArrayEquals;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertNotEquals;
import static org.junit.jupiter.api.Assertions.assertNull;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static org.junit.jupiter.api.Assertions.assertTrue;

import java.lang.reflect.Method;
import java.lang.reflect.Modifier;
import org.junit.jupiter.api.AfterEach;
import org.junit.jupiter.api.BeforeAll;
import org.junit.jupiter.api.BeforeEach;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.extension.RegisterExtension;
import org.junit.jupiter.api.function.Executable;
import tarnwick.tests.support.SimDeviceExtension;
import tarnwick.zel.wrapper.probe.tovr_probeJNI;

/** Every conversion kind of the wrapper layer, through the test-only probe module. */
class ConversionsTest {
    @RegisterExtension
    static final SimDeviceExtension device = new SimDeviceExtension(false);

    private long ops;

    @BeforeAll
    static void load() {
        System.loadLibrary("tovrprobe");
    }

    @BeforeEach
    void create() {
        ops = tovr_probeJNI.new_probe_ops();
    }

    @AfterEach
    void delete() {
        tovr_probeJNI.delete_probe_ops(ops);
    }

    private int calls() {
        return tovr_probeJNI.probe_ops_calls_get(ops, null);
    }

    /** The call throws exactly {@code type} with {@code message} and never reaches the native side. */
    private <T extends Throwable> void rejects(Class<T> type, String message, Executable call) {
        int before = calls();
        T thrown = assertThrows(type, call);
        assertEquals(type, thrown.getClass());
        assertEquals(message, thrown.getMessage());
        assertEquals(before, calls(), "the native operation must not run");
    }

    // ----- strings -----

    @Test
    void stringArgumentsAndResults() {
        assertEquals("<abc>", tovr_probeJNI.probe_ops_echo(ops, null, "abc"));
        assertEquals("xyxy", tovr_probeJNI.probe_ops_echo_copy(ops, null, "xy"));
        assertEquals("<\u00e9\u4e2d>", tovr_probeJNI.probe_ops_echo(ops, null, "\u00e9\u4e2d"));
        assertEquals("<>", tovr_probeJNI.probe_ops_echo(ops, null, ""));
    }

    @Test
    void nullStdStringThrows() {
        rejects(NullPointerException.class, "null std::string",
                () -> tovr_probeJNI.probe_ops_echo(ops, null, null));
        rejects(NullPointerException.class, "null std::string",
                () -> tovr_probeJNI.probe_ops_echo_copy(ops, null, null));
    }

    @Test
    void charPointers() {
        assertEquals("probe text", tovr_probeJNI.probe_ops_text(ops, null, false));
        assertNull(tovr_probeJNI.probe_ops_text(ops, null, true));
        assertEquals(5, tovr_probeJNI.probe_ops_length(ops, null, "12345"));
        assertEquals(-1, tovr_probeJNI.probe_ops_length(ops, null, null), "a null text arrives as a null pointer");
    }

    // ----- output and in/out scalars -----

    @Test
    void outputScalarsOfEveryType() {
        boolean[] z = {false};
        tovr_probeJNI.probe_ops_out_bool(ops, null, z);
        assertTrue(z[0]);
        byte[] b = {0};
        tovr_probeJNI.probe_ops_out_schar(ops, null, b);
        assertEquals(-100, b[0]);
        short[] s = {0, 77};
        tovr_probeJNI.probe_ops_out_uchar(ops, null, s);
        assertArrayEquals(new short[] {200, 77}, s, "zero-extended; other elements untouched");
        tovr_probeJNI.probe_ops_out_short(ops, null, s);
        assertEquals(-30000, s[0]);
        int[] i = {0};
        tovr_probeJNI.probe_ops_out_ushort(ops, null, i);
        assertEquals(60000, i[0]);
        tovr_probeJNI.probe_ops_out_int(ops, null, i);
        assertEquals(-2000000000, i[0]);
        tovr_probeJNI.probe_ops_out_long(ops, null, i);
        assertEquals(-5, i[0]);
        long[] l = {0};
        tovr_probeJNI.probe_ops_out_uint(ops, null, l);
        assertEquals(4000000000L, l[0]);
        tovr_probeJNI.probe_ops_out_ulong(ops, null, l);
        assertEquals(4000000001L, l[0]);
        tovr_probeJNI.probe_ops_out_longlong(ops, null, l);
        assertEquals(-9000000000L, l[0]);
        float[] f = {0};
        tovr_probeJNI.probe_ops_out_float(ops, null, f);
        assertEquals(1.5f, f[0]);
        double[] d = {0};
        tovr_probeJNI.probe_ops_out_double(ops, null, d);
        assertEquals(-2.25, d[0]);
    }

    @Test
    void inOutScalarsReadElementZeroAndWriteItBack() {
        short[] uc = {511, 5};
        tovr_probeJNI.probe_ops_inout_uchar(ops, null, uc);
        assertArrayEquals(new short[] {0, 5}, uc, "only the low 8 bits are read in");
        uc[0] = 41;
        tovr_probeJNI.probe_ops_inout_uchar(ops, null, uc);
        assertEquals(42, uc[0]);
        int[] us = {65535};
        tovr_probeJNI.probe_ops_inout_ushort(ops, null, us);
        assertEquals(0, us[0]);
        us[0] = 65534;
        tovr_probeJNI.probe_ops_inout_ushort(ops, null, us);
        assertEquals(65535, us[0]);
        long[] ui = {0x1FFFFFFFEL};
        tovr_probeJNI.probe_ops_inout_uint(ops, null, ui);
        assertEquals(4294967295L, ui[0]);
        long[] ul = {4294967295L};
        tovr_probeJNI.probe_ops_inout_ulong(ops, null, ul);
        assertEquals(0L, ul[0], "unsigned long is 32 bits on the device");
        ul[0] = 0x100000007L;
        tovr_probeJNI.probe_ops_inout_ulong(ops, null, ul);
        assertEquals(8L, ul[0]);
        int[] l = {-1};
        tovr_probeJNI.probe_ops_inout_long(ops, null, l);
        assertEquals(0, l[0]);
        int[] i = {Integer.MAX_VALUE};
        tovr_probeJNI.probe_ops_inout_int(ops, null, i);
        assertEquals(Integer.MIN_VALUE, i[0]);
        boolean[] z = {false};
        tovr_probeJNI.probe_ops_inout_bool(ops, null, z);
        assertTrue(z[0]);
        byte[] b = {127};
        tovr_probeJNI.probe_ops_inout_schar(ops, null, b);
        assertEquals(-128, b[0]);
        short[] s = {-2};
        tovr_probeJNI.probe_ops_inout_short(ops, null, s);
        assertEquals(-1, s[0]);
        long[] ll = {-1L};
        tovr_probeJNI.probe_ops_inout_longlong(ops, null, ll);
        assertEquals(0L, ll[0]);
        float[] f = {0.5f};
        tovr_probeJNI.probe_ops_inout_float(ops, null, f);
        assertEquals(1.5f, f[0]);
        double[] d = {-1.25};
        tovr_probeJNI.probe_ops_inout_double(ops, null, d);
        assertEquals(-0.25, d[0]);
    }

    @Test
    void outputArraysMustExistAndHoldAnElement() {
        rejects(NullPointerException.class, "array null", () -> tovr_probeJNI.probe_ops_out_uint(ops, null, null));
        rejects(NullPointerException.class, "array null", () -> tovr_probeJNI.probe_ops_inout_uint(ops, null, null));
        rejects(IndexOutOfBoundsException.class, "Array must contain at least 1 element",
                () -> tovr_probeJNI.probe_ops_out_uint(ops, null, new long[0]));
        rejects(IndexOutOfBoundsException.class, "Array must contain at least 1 element",
                () -> tovr_probeJNI.probe_ops_inout_uchar(ops, null, new short[0]));
        rejects(IndexOutOfBoundsException.class, "Array must contain at least 1 element",
                () -> tovr_probeJNI.probe_ops_out_bool(ops, null, new boolean[0]));
        rejects(IndexOutOfBoundsException.class, "Array must contain at least 1 element",
                () -> tovr_probeJNI.probe_ops_inout_double(ops, null, new double[0]));
    }

    // ----- scalars by value -----

    @Test
    void scalarsByValueFollowTheDeviceWidths() {
        assertEquals(5L, tovr_probeJNI.probe_ops_ulong_value(ops, null, 0x100000005L));
        assertEquals(4294967295L, tovr_probeJNI.probe_ops_ulong_value(ops, null, -1L));
        assertEquals(-3, tovr_probeJNI.probe_ops_long_value(ops, null, -3));
        assertEquals(255, tovr_probeJNI.probe_ops_uchar_value(ops, null, (short) 255));
        assertEquals(44, tovr_probeJNI.probe_ops_uchar_value(ops, null, (short) 300));
        assertEquals(65535, tovr_probeJNI.probe_ops_ushort_value(ops, null, -1));
        assertEquals(4294967295L, tovr_probeJNI.probe_ops_uint_value(ops, null, -1L));
    }

    // ----- references and pointers -----

    @Test
    void nullReferencesNameTheirType() {
        rejects(NullPointerException.class, "PROBE_RECORD & reference is null",
                () -> tovr_probeJNI.probe_ops_ref_record(ops, null, 0, null));
        rejects(NullPointerException.class, "PROBE_RECORD const & reference is null",
                () -> tovr_probeJNI.probe_ops_cref_record(ops, null, 0, null));
        rejects(NullPointerException.class, "tarnwick::PROBE_NS_RECORD & reference is null",
                () -> tovr_probeJNI.probe_ops_ref_ns(ops, null, 0, null));
        rejects(NullPointerException.class, "std::vector< unsigned int > & reference is null",
                () -> tovr_probeJNI.probe_ops_vec_sum(ops, null, 0, null));
    }

    @Test
    void referencesAndPointersReachTheObject() {
        long rec = tovr_probeJNI.new_PROBE_RECORD();
        tovr_probeJNI.PROBE_RECORD_i_set(rec, null, 1234);
        assertEquals(1234, tovr_probeJNI.probe_ops_ref_record(ops, null, rec, null));
        assertEquals(1234, tovr_probeJNI.probe_ops_cref_record(ops, null, rec, null));
        assertEquals(1234, tovr_probeJNI.probe_ops_ptr_record(ops, null, rec, null));
        assertEquals(-1, tovr_probeJNI.probe_ops_ptr_record(ops, null, 0, null), "a null pointer passes as null");
        long ns = tovr_probeJNI.new_PROBE_NS_RECORD();
        tovr_probeJNI.PROBE_NS_RECORD_value_set(ns, null, -9);
        assertEquals(-9, tovr_probeJNI.probe_ops_ref_ns(ops, null, ns, null));
        tovr_probeJNI.delete_PROBE_NS_RECORD(ns);
        tovr_probeJNI.delete_PROBE_RECORD(rec);
    }

    // ----- record fields -----

    @Test
    void characterArrayMembersCutAtSizeMinusOne() {
        long rec = tovr_probeJNI.new_PROBE_RECORD();
        tovr_probeJNI.PROBE_RECORD_text_set(rec, null, "1234567");
        assertEquals("1234567", tovr_probeJNI.PROBE_RECORD_text_get(rec, null));
        tovr_probeJNI.PROBE_RECORD_text_set(rec, null, "12345678");
        assertEquals("1234567", tovr_probeJNI.PROBE_RECORD_text_get(rec, null));
        tovr_probeJNI.PROBE_RECORD_text_set(rec, null, "abcdefghijklmnop");
        assertEquals("abcdefg", tovr_probeJNI.PROBE_RECORD_text_get(rec, null));
        tovr_probeJNI.PROBE_RECORD_text_set(rec, null, null);
        assertEquals("", tovr_probeJNI.PROBE_RECORD_text_get(rec, null));
        tovr_probeJNI.delete_PROBE_RECORD(rec);
    }

    @Test
    void scalarMembers() {
        long rec = tovr_probeJNI.new_PROBE_RECORD();
        tovr_probeJNI.PROBE_RECORD_uc_set(rec, null, (short) 300);
        assertEquals(44, tovr_probeJNI.PROBE_RECORD_uc_get(rec, null));
        tovr_probeJNI.PROBE_RECORD_uc_set(rec, null, (short) 255);
        assertEquals(255, tovr_probeJNI.PROBE_RECORD_uc_get(rec, null));
        tovr_probeJNI.PROBE_RECORD_us_set(rec, null, 70000);
        assertEquals(4464, tovr_probeJNI.PROBE_RECORD_us_get(rec, null));
        tovr_probeJNI.PROBE_RECORD_ui_set(rec, null, 0x1FFFFFFFFL);
        assertEquals(4294967295L, tovr_probeJNI.PROBE_RECORD_ui_get(rec, null));
        tovr_probeJNI.PROBE_RECORD_ul_set(rec, null, 0x100000002L);
        assertEquals(2L, tovr_probeJNI.PROBE_RECORD_ul_get(rec, null));
        tovr_probeJNI.PROBE_RECORD_l_set(rec, null, -1);
        assertEquals(-1, tovr_probeJNI.PROBE_RECORD_l_get(rec, null));
        tovr_probeJNI.PROBE_RECORD_ll_set(rec, null, Long.MIN_VALUE);
        assertEquals(Long.MIN_VALUE, tovr_probeJNI.PROBE_RECORD_ll_get(rec, null));
        tovr_probeJNI.PROBE_RECORD_sc_set(rec, null, (byte) -7);
        assertEquals(-7, tovr_probeJNI.PROBE_RECORD_sc_get(rec, null));
        tovr_probeJNI.PROBE_RECORD_flag_set(rec, null, true);
        assertTrue(tovr_probeJNI.PROBE_RECORD_flag_get(rec, null));
        tovr_probeJNI.PROBE_RECORD_d_set(rec, null, 0.125);
        assertEquals(0.125, tovr_probeJNI.PROBE_RECORD_d_get(rec, null));
        // A null record handle is ignored by scalar setters.
        tovr_probeJNI.PROBE_RECORD_i_set(0, null, 5);
        tovr_probeJNI.delete_PROBE_RECORD(rec);
    }

    @Test
    void embeddedRecords() {
        long rec = tovr_probeJNI.new_PROBE_RECORD();
        long inner = tovr_probeJNI.PROBE_RECORD_inner_get(rec, null);
        assertNotEquals(0L, inner);
        tovr_probeJNI.PROBE_INNER_a_set(inner, null, 17);
        assertEquals(17, tovr_probeJNI.PROBE_INNER_a_get(tovr_probeJNI.PROBE_RECORD_inner_get(rec, null), null),
                "the getter hands out the member itself");
        long source = tovr_probeJNI.new_PROBE_INNER();
        tovr_probeJNI.PROBE_INNER_a_set(source, null, -3);
        tovr_probeJNI.PROBE_INNER_b_set(source, null, 65535);
        tovr_probeJNI.PROBE_RECORD_inner_set(rec, null, source, null);
        tovr_probeJNI.delete_PROBE_INNER(source);
        assertEquals(-3, tovr_probeJNI.PROBE_INNER_a_get(inner, null), "the set copies the whole member");
        assertEquals(65535, tovr_probeJNI.PROBE_INNER_b_get(inner, null));
        tovr_probeJNI.delete_PROBE_RECORD(rec);
    }

    @Test
    void fixedScalarArrayMembers() {
        long rec = tovr_probeJNI.new_PROBE_RECORD();
        tovr_probeJNI.PROBE_RECORD_ucs_set(rec, null, new short[] {1, 255, 256});
        assertArrayEquals(new short[] {1, 255, 0}, tovr_probeJNI.PROBE_RECORD_ucs_get(rec, null));
        tovr_probeJNI.PROBE_RECORD_uss_set(rec, null, new int[] {65535, 65536});
        assertArrayEquals(new int[] {65535, 0}, tovr_probeJNI.PROBE_RECORD_uss_get(rec, null));
        tovr_probeJNI.PROBE_RECORD_uis_set(rec, null, new long[] {4294967295L, 1});
        assertArrayEquals(new long[] {4294967295L, 1}, tovr_probeJNI.PROBE_RECORD_uis_get(rec, null));
        tovr_probeJNI.PROBE_RECORD_is_set(rec, null, new int[] {-1, 2});
        assertArrayEquals(new int[] {-1, 2}, tovr_probeJNI.PROBE_RECORD_is_get(rec, null));
        tovr_probeJNI.PROBE_RECORD_ls_set(rec, null, new int[] {-4, 4});
        assertArrayEquals(new int[] {-4, 4}, tovr_probeJNI.PROBE_RECORD_ls_get(rec, null));
        tovr_probeJNI.PROBE_RECORD_lls_set(rec, null, new long[] {Long.MAX_VALUE, -2});
        assertArrayEquals(new long[] {Long.MAX_VALUE, -2}, tovr_probeJNI.PROBE_RECORD_lls_get(rec, null));
        tovr_probeJNI.PROBE_RECORD_scs_set(rec, null, new byte[] {-128, 127});
        assertArrayEquals(new byte[] {-128, 127}, tovr_probeJNI.PROBE_RECORD_scs_get(rec, null));
        tovr_probeJNI.PROBE_RECORD_ss_set(rec, null, new short[] {-1, 3});
        assertArrayEquals(new short[] {-1, 3}, tovr_probeJNI.PROBE_RECORD_ss_get(rec, null));
        tovr_probeJNI.PROBE_RECORD_flags_set(rec, null, new boolean[] {true, false});
        assertArrayEquals(new boolean[] {true, false}, tovr_probeJNI.PROBE_RECORD_flags_get(rec, null));
        tovr_probeJNI.PROBE_RECORD_fs_set(rec, null, new float[] {0.5f, -1f});
        assertArrayEquals(new float[] {0.5f, -1f}, tovr_probeJNI.PROBE_RECORD_fs_get(rec, null));
        tovr_probeJNI.PROBE_RECORD_ds_set(rec, null, new double[] {0.25, 8});
        assertArrayEquals(new double[] {0.25, 8}, tovr_probeJNI.PROBE_RECORD_ds_get(rec, null));
        tovr_probeJNI.delete_PROBE_RECORD(rec);
    }

    @Test
    void fixedArrayOfTheWrongLengthIsRefusedAndLeavesTheMember() {
        long rec = tovr_probeJNI.new_PROBE_RECORD();
        tovr_probeJNI.PROBE_RECORD_ucs_set(rec, null, new short[] {9, 8, 7});
        IndexOutOfBoundsException e = assertThrows(IndexOutOfBoundsException.class,
                () -> tovr_probeJNI.PROBE_RECORD_ucs_set(rec, null, new short[] {1, 2}));
        assertEquals("incorrect array size", e.getMessage());
        e = assertThrows(IndexOutOfBoundsException.class,
                () -> tovr_probeJNI.PROBE_RECORD_ucs_set(rec, null, new short[] {1, 2, 3, 4}));
        assertEquals("incorrect array size", e.getMessage());
        assertArrayEquals(new short[] {9, 8, 7}, tovr_probeJNI.PROBE_RECORD_ucs_get(rec, null));
        NullPointerException n = assertThrows(NullPointerException.class,
                () -> tovr_probeJNI.PROBE_RECORD_uis_set(rec, null, null));
        assertEquals("null array", n.getMessage());
        tovr_probeJNI.delete_PROBE_RECORD(rec);
    }

    // ----- the list type -----

    @Test
    void vectorl() {
        long v = tovr_probeJNI.new_vectorl__SWIG_0();
        assertEquals(0, tovr_probeJNI.vectorl_size(v, null));
        assertTrue(tovr_probeJNI.vectorl_isEmpty(v, null));
        tovr_probeJNI.vectorl_add(v, null, 5);
        tovr_probeJNI.vectorl_add(v, null, 4294967295L);
        assertEquals(2, tovr_probeJNI.vectorl_size(v, null));
        assertFalse(tovr_probeJNI.vectorl_isEmpty(v, null));
        assertEquals(4294967295L, tovr_probeJNI.vectorl_get(v, null, 1));
        tovr_probeJNI.vectorl_set(v, null, 0, 9);
        assertEquals(9, tovr_probeJNI.vectorl_get(v, null, 0));
        assertEquals(8, tovr_probeJNI.probe_ops_vec_sum(ops, null, v, null), "sum wraps at 32 bits");
        tovr_probeJNI.vectorl_reserve(v, null, 100);
        assertTrue(tovr_probeJNI.vectorl_capacity(v, null) >= 100);
        tovr_probeJNI.vectorl_clear(v, null);
        assertTrue(tovr_probeJNI.vectorl_isEmpty(v, null));
        tovr_probeJNI.probe_ops_vec_fill(ops, null, v, null, 3);
        assertEquals(20, tovr_probeJNI.vectorl_get(v, null, 2));
        tovr_probeJNI.delete_vectorl(v);

        long zeros = tovr_probeJNI.new_vectorl__SWIG_1(3);
        assertEquals(3, tovr_probeJNI.vectorl_size(zeros, null));
        assertEquals(0, tovr_probeJNI.vectorl_get(zeros, null, 2));
        tovr_probeJNI.delete_vectorl(zeros);
        tovr_probeJNI.delete_vectorl(0);
    }

    @Test
    void vectorlIndexOutOfRange() {
        long v = tovr_probeJNI.new_vectorl__SWIG_1(2);
        for (int bad : new int[] {-1, 2, Integer.MIN_VALUE}) {
            IndexOutOfBoundsException e = assertThrows(IndexOutOfBoundsException.class,
                    () -> tovr_probeJNI.vectorl_get(v, null, bad));
            assertEquals(IndexOutOfBoundsException.class, e.getClass());
            assertEquals("vector index out of range", e.getMessage());
            e = assertThrows(IndexOutOfBoundsException.class, () -> tovr_probeJNI.vectorl_set(v, null, bad, 1));
            assertEquals("vector index out of range", e.getMessage());
        }
        assertEquals(2, tovr_probeJNI.vectorl_size(v, null));
        tovr_probeJNI.delete_vectorl(v);
    }

    @Test
    void vectorlHasExactlyItsMethodSet() {
        java.util.Set<String> names = new java.util.TreeSet<>();
        for (Method m : tovr_probeJNI.class.getDeclaredMethods()) {
            if (m.getName().contains("vectorl")) names.add(m.getName());
        }
        assertEquals(new java.util.TreeSet<>(java.util.List.of("new_vectorl__SWIG_0", "new_vectorl__SWIG_1",
                "delete_vectorl", "vectorl_size", "vectorl_capacity", "vectorl_reserve", "vectorl_isEmpty",
                "vectorl_clear", "vectorl_add", "vectorl_get", "vectorl_set")), names);
    }

    // ----- the exception table -----

    @Test
    void exceptionTable() {
        Object[][] table = {
            {1, OutOfMemoryError.class}, {2, java.io.IOException.class}, {3, RuntimeException.class},
            {4, IndexOutOfBoundsException.class}, {5, ArithmeticException.class},
            {6, IllegalArgumentException.class}, {7, NullPointerException.class}, {8, RuntimeException.class},
            {9, UnknownError.class}, {0, UnknownError.class}, {10, UnknownError.class}, {-1, UnknownError.class},
        };
        for (Object[] row : table) {
            int code = (Integer) row[0];
            Throwable t = assertThrows(Throwable.class, () -> tovr_probeJNI.probe_throw(code, "m" + code));
            assertEquals(row[1], t.getClass(), "code " + code);
            assertEquals("m" + code, t.getMessage());
        }
    }

    // ----- constants, enumerations, handles -----

    @Test
    void constantsAreGetterNativesOfTheirJavaType() throws Exception {
        assertEquals(256L, tovr_probeJNI.PROBE_LONG_CONSTANT_get());
        assertEquals(193, tovr_probeJNI.PROBE_INT_CONSTANT_get());
        assertEquals(long.class, tovr_probeJNI.class.getMethod("PROBE_LONG_CONSTANT_get").getReturnType());
        assertEquals(int.class, tovr_probeJNI.class.getMethod("PROBE_INT_CONSTANT_get").getReturnType());
    }

    @Test
    void enumerationsAddNoNatives() {
        for (Method m : tovr_probeJNI.class.getDeclaredMethods()) {
            assertFalse(m.getName().contains("PROBE_ENUM"), m.getName());
        }
    }

    @Test
    void everyModuleMethodIsStaticNative() {
        for (Method m : tovr_probeJNI.class.getDeclaredMethods()) {
            if (m.isSynthetic()) continue;
            assertTrue(Modifier.isNative(m.getModifiers()) && Modifier.isStatic(m.getModifiers()), m.getName());
        }
    }

    @Test
    void deleteOfTheNullHandleDoesNothing() {
        tovr_probeJNI.delete_PROBE_RECORD(0);
        tovr_probeJNI.delete_probe_ops(0);
    }
}
