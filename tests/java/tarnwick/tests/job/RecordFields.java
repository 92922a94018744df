package tarnwick.tests.job;

import static org.junit.jupiter.api.Assertions.assertArrayEquals;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertNotEquals;
import static org.junit.jupiter.api.Assertions.assertTrue;

import java.lang.reflect.InvocationTargetException;
import java.lang.reflect.Method;
import java.util.ArrayList;
import java.util.List;
import java.util.Map;

/**
 * Drives the field setters and getters of a module class by name: each field is described by
 * its kind as the record layout gives it, and every kind is checked for its conversions
 * (truncation at size-1, widening without sign, low bits kept on the way in).
 */
final class RecordFields {
    private final Class<?> jni;

    RecordFields(Class<?> jni) {
        this.jni = jni;
    }

    /** Kinds: "u32", "i32", "u16", "u8", "bool", "s<N>" (char[N]), "int[4]", "rec:<TYPE>". */
    static String[] f(String name, String kind) {
        return new String[] {name, kind};
    }

    Method method(String name) {
        for (Method m : jni.getMethods()) {
            if (m.getName().equals(name)) return m;
        }
        throw new AssertionError("no native " + name);
    }

    Object call(String name, Object... args) {
        try {
            return method(name).invoke(null, args);
        } catch (InvocationTargetException e) {
            if (e.getCause() instanceof RuntimeException) throw (RuntimeException) e.getCause();
            throw new AssertionError(e.getCause());
        } catch (IllegalAccessException e) {
            throw new AssertionError(e);
        }
    }

    long create(String record) {
        long h = (Long) call("new_" + record);
        assertNotEquals(0L, h);
        return h;
    }

    void delete(String record, long h) {
        call("delete_" + record, h);
    }

    static String text(int length) {
        StringBuilder b = new StringBuilder();
        for (int i = 0; i < length; ++i) b.append((char) ('a' + i % 26));
        return b.toString();
    }

    Object get(String record, String field, long h) {
        return call(record + "_" + field + "_get", h, null);
    }

    void set(String record, String field, long h, Object v) {
        call(record + "_" + field + "_set", h, null, v);
    }

    /** Checks one field; a fresh record reads zero first. Returns the checks made. */
    List<String> check(String record, String[] field) {
        List<String> done = new ArrayList<>();
        String name = field[0];
        String kind = field[1];
        long h = create(record);
        try {
            if (kind.equals("u32")) {
                assertEquals(0L, get(record, name, h));
                set(record, name, h, 4000000000L);
                assertEquals(4000000000L, get(record, name, h), record + "." + name);
                set(record, name, h, 0x1_0000_0005L);
                assertEquals(5L, get(record, name, h), record + "." + name + " low bits");
                set(0L, record, name, 7L);  // null record ignored
            } else if (kind.equals("i32")) {
                assertEquals(0, get(record, name, h));
                set(record, name, h, -123456);
                assertEquals(-123456, get(record, name, h), record + "." + name);
                set(record, name, h, Integer.MAX_VALUE);
                assertEquals(Integer.MAX_VALUE, get(record, name, h));
            } else if (kind.equals("u16")) {
                assertEquals(0, get(record, name, h));
                set(record, name, h, 65535);
                assertEquals(65535, get(record, name, h), record + "." + name);
                set(record, name, h, 70000);
                assertEquals(70000 & 0xFFFF, get(record, name, h));
                set(record, name, h, -1);
                assertEquals(65535, get(record, name, h));
            } else if (kind.equals("u8")) {
                assertEquals((short) 0, get(record, name, h));
                set(record, name, h, (short) 255);
                assertEquals((short) 255, get(record, name, h), record + "." + name);
                set(record, name, h, (short) 300);
                assertEquals((short) 44, get(record, name, h));
                set(record, name, h, (short) -1);
                assertEquals((short) 255, get(record, name, h));
            } else if (kind.equals("bool")) {
                assertEquals(false, get(record, name, h));
                set(record, name, h, true);
                assertEquals(true, get(record, name, h));
                set(record, name, h, false);
                assertEquals(false, get(record, name, h));
            } else if (kind.startsWith("s")) {
                int size = Integer.parseInt(kind.substring(1));
                assertEquals("", get(record, name, h));
                String exact = text(size - 1);
                set(record, name, h, exact);
                assertEquals(exact, get(record, name, h), record + "." + name);
                set(record, name, h, text(size + 40));
                assertEquals(exact, get(record, name, h), record + "." + name + " cut at size-1");
                set(record, name, h, "ab");
                assertEquals("ab", get(record, name, h));
                set(record, name, h, null);
                assertEquals("", get(record, name, h), record + "." + name + " from null");
            } else if (kind.equals("int[4]")) {
                assertArrayEquals(new int[4], (int[]) get(record, name, h));
                set(record, name, h, new int[] {1, -2, 3, Integer.MIN_VALUE});
                assertArrayEquals(new int[] {1, -2, 3, Integer.MIN_VALUE}, (int[]) get(record, name, h));
            } else if (kind.startsWith("rec:")) {
                // "rec:TYPE", or "rec:TYPE@member:MEMBERTYPE" for a union of records (probed
                // through its member).
                String target = kind.substring(4);
                String type = target.contains("@") ? target.substring(0, target.indexOf('@')) : target;
                long inner = (Long) get(record, name, h);
                assertNotEquals(0L, inner);
                assertEquals(inner, (long) (Long) get(record, name, h), "a handle into the record, not a copy");
                long src = create(type);
                String probeType = type;
                long srcProbe = src;
                long innerProbe = inner;
                if (target.contains("@")) {
                    String member = target.substring(target.indexOf('@') + 1, target.indexOf(':'));
                    probeType = target.substring(target.indexOf(':') + 1);
                    srcProbe = (Long) call(type + "_" + member + "_get", src, null);
                    innerProbe = (Long) call(type + "_" + member + "_get", inner, null);
                }
                String first = firstField(probeType);
                call(probeType + "_" + first + "_set", srcProbe, null, sample(probeType, first));
                call(record + "_" + name + "_set", h, null, src, null);
                assertEquals(call(probeType + "_" + first + "_get", srcProbe, null),
                             call(probeType + "_" + first + "_get", innerProbe, null), record + "." + name + " copied");
                call(probeType + "_" + first + "_set", srcProbe, null, zero(probeType, first));
                assertNotEquals(call(probeType + "_" + first + "_get", srcProbe, null),
                                call(probeType + "_" + first + "_get", innerProbe, null), "the member is a copy");
                delete(type, src);
            } else {
                throw new AssertionError("kind " + kind);
            }
            done.add(record + "." + name);
        } finally {
            delete(record, h);
        }
        return done;
    }

    private void set(long h, String record, String name, Object v) {
        call(record + "_" + name + "_set", h, null, v);
    }

    /** The first field setter the module declares for a record. */
    String firstField(String type) {
        for (Method m : jni.getDeclaredMethods()) {
            String n = m.getName();
            if (n.startsWith(type + "_") && n.endsWith("_set")) {
                String field = n.substring(type.length() + 1, n.length() - 4);
                if (Character.isUpperCase(field.charAt(0))) continue;  // a nested record type's own field
                if (m.getParameterCount() == 4) continue;                // a nested record member
                return field;
            }
        }
        throw new AssertionError("no scalar field in " + type);
    }

    /** Each Java type of a setter's value: its zero, then the sample value a test sets. */
    private static final Map<Class<?>, Object[]> VALUES = Map.of(
            String.class, new Object[] {"", "copied"},
            long.class, new Object[] {0L, 4000000001L},
            int.class, new Object[] {0, 77},
            short.class, new Object[] {(short) 0, (short) 200},
            boolean.class, new Object[] {false, true});

    private Object[] values(String type, String field) {
        Class<?> p = method(type + "_" + field + "_set").getParameterTypes()[2];
        Object[] v = VALUES.get(p);
        if (v == null) throw new AssertionError(p.toString());
        return v;
    }

    Object sample(String type, String field) {
        return values(type, field)[1];
    }

    Object zero(String type, String field) {
        return values(type, field)[0];
    }

    /** Setter and getter names of every field the module exports for a record. */
    List<String> declaredFields(String record) {
        List<String> out = new ArrayList<>();
        for (Method m : jni.getDeclaredMethods()) {
            String n = m.getName();
            if (n.startsWith(record + "_") && n.endsWith("_set")) {
                String field = n.substring(record.length() + 1, n.length() - 4);
                if (hasMethod(record + "_" + field + "_get")) out.add(field);
            }
        }
        return out;
    }

    private boolean hasMethod(String name) {
        for (Method m : jni.getDeclaredMethods()) {
            if (m.getName().equals(name)) return true;
        }
        return false;
    }

    /** Checks every listed field and that the module has no other field of the record. */
    void checkAll(String record, String[]... fields) {
        List<String> names = new ArrayList<>();
        for (String[] field : fields) {
            check(record, field);
            names.add(field[0]);
        }
        List<String> declared = declaredFields(record);
        // Nested record names share the prefix (ESV_ZEL_X_DETAIL_... under ESV_ZEL_X_...): keep own fields.
        declared.removeIf(d -> !names.contains(d) && d.matches("^[A-Z].*"));
        assertTrue(names.containsAll(declared), record + " declares " + declared + ", listed " + names);
    }
}
