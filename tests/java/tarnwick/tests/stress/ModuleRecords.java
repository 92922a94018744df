package tarnwick.tests.stress;

import java.io.File;
import java.io.IOException;
import java.lang.reflect.Method;
import java.lang.reflect.Modifier;
import java.util.ArrayList;
import java.util.Enumeration;
import java.util.HashMap;
import java.util.List;
import java.util.Map;
import java.util.jar.JarEntry;
import java.util.jar.JarFile;

/**
 * Every record of every Java module the library's jar holds, found by its natives: a record X
 * has {@code new_X()}, {@code delete_X(long)} and at least one field pair {@code X_m_set} /
 * {@code X_m_get}. A round creates each record, sets and reads back every field and deletes it,
 * so the records of a module that lands later are exercised without a line written here.
 */
final class ModuleRecords {
    private static final class Field {
        Method set;
        Method get;
    }

    private static final class Record {
        String name;
        Method create;
        Method delete;
        final List<Field> fields = new ArrayList<>();
    }

    private final List<Record> records = new ArrayList<>();
    private final Map<Class<?>, Record> byProxyClass = new HashMap<>();
    final List<String> moduleClasses = new ArrayList<>();

    ModuleRecords() throws IOException, ReflectiveOperationException, java.net.URISyntaxException {
        // The jar that holds the library's module classes (the test runner loads it through a
        // class loader of its own, so the class path property does not name it).
        File library = new File(tarnwick.zel.wrapper.system.cmt_commonJNI.class.getProtectionDomain()
                .getCodeSource().getLocation().toURI());
        {
            try (JarFile jar = new JarFile(library)) {
                for (Enumeration<JarEntry> e = jar.entries(); e.hasMoreElements();) {
                    String n = e.nextElement().getName();
                    if (n.startsWith("tarnwick/zel/wrapper/") && n.endsWith("JNI.class")) {
                        moduleClasses.add(n.substring(0, n.length() - ".class".length()).replace('/', '.'));
                    }
                }
            }
        }
        ClassLoader loader = tarnwick.zel.wrapper.system.cmt_commonJNI.class.getClassLoader();
        for (String name : moduleClasses) scan(Class.forName(name, true, loader));
    }

    int recordCount() {
        return records.size();
    }

    private void scan(Class<?> module) {
        Map<String, Method> methods = new HashMap<>();
        for (Method m : module.getDeclaredMethods()) {
            if (Modifier.isStatic(m.getModifiers()) && Modifier.isNative(m.getModifiers())) methods.put(m.getName(), m);
        }
        for (Method create : methods.values()) {
            if (!create.getName().startsWith("new_") || create.getParameterCount() != 0) continue;
            String x = create.getName().substring(4);
            Method delete = methods.get("delete_" + x);
            if (delete == null) continue;
            Record r = new Record();
            r.name = module.getSimpleName() + "." + x;
            r.create = create;
            r.delete = delete;
            for (Method set : methods.values()) {
                String n = set.getName();
                if (!n.startsWith(x + "_") || !n.endsWith("_set")) continue;
                Method get = methods.get(n.substring(0, n.length() - 4) + "_get");
                Class<?>[] p = set.getParameterTypes();
                if (get == null || get.getParameterCount() != 2 || p.length < 3 || p[0] != long.class) continue;
                Field f = new Field();
                f.set = set;
                f.get = get;
                r.fields.add(f);
            }
            if (!r.fields.isEmpty()) {
                records.add(r);
                byProxyClass.put(r.fields.get(0).set.getParameterTypes()[1], r);
            }
        }
    }

    /** One round over every record; `i` varies the values. */
    void round(int i) throws ReflectiveOperationException {
        for (Record r : records) {
            long h = (Long) r.create.invoke(null);
            try {
                for (Field f : r.fields) exercise(h, f, i);
            } finally {
                r.delete.invoke(null, h);
            }
        }
    }

    private void exercise(long h, Field f, int i) throws ReflectiveOperationException {
        Class<?>[] p = f.set.getParameterTypes();
        if (p.length == 4 && p[2] == long.class) {
            // An embedded record: copied from a record of its own type.
            Record source = byProxyClass.get(p[3]);
            if (source == null) return;
            long s = (Long) source.create.invoke(null);
            try {
                f.set.invoke(null, h, null, s, null);
                f.get.invoke(null, h, null);
            } finally {
                source.delete.invoke(null, s);
            }
            return;
        }
        if (p.length != 3) return;
        Class<?> t = p[2];
        Object value;
        if (t == int.class) value = i;
        else if (t == long.class) value = (long) i * 65537L;
        else if (t == short.class) value = (short) i;
        else if (t == byte.class) value = (byte) i;
        else if (t == boolean.class) value = (i & 1) != 0;
        else if (t == String.class) value = "x".repeat(300 + (i % 50));  // longer than most fields
        else if (t.isArray()) value = f.get.invoke(null, h, null);         // the member's own size
        else return;
        f.set.invoke(null, h, null, value);
        f.get.invoke(null, h, null);
    }
}
