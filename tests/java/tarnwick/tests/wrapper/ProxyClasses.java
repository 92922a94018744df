package tarnwick.tests.wrapper;

import java.io.File;
import java.lang.reflect.Constructor;
import java.lang.reflect.Field;
import java.lang.reflect.Method;
import java.lang.reflect.Modifier;
import java.util.ArrayList;
import java.util.Enumeration;
import java.util.List;
import java.util.jar.JarEntry;
import java.util.jar.JarFile;

/** The proxy classes of every module in tovrCMT.jar, found by reflection (a new module is included as it lands). */
final class ProxyClasses {
    private ProxyClasses() {}

    /** Every class of the library's wrapper packages that holds a native handle. */
    static List<Class<?>> all() throws Exception {
        List<Class<?>> out = classes(true);
        if (out.size() < 40) throw new AssertionError("too few proxy classes found: " + out.size());
        return out;
    }

    /** The module classes (the static functions and constants of each module), JNI classes left out. */
    static List<Class<?>> modules() throws Exception {
        List<Class<?>> out = new ArrayList<>();
        for (Class<?> c : classes(false)) {
            if (!c.getSimpleName().endsWith("JNI") && !c.isInterface() && !c.isEnum()) out.add(c);
        }
        return out;
    }

    private static List<Class<?>> classes(boolean proxies) throws Exception {
        File jar = new File(tarnwick.zel.wrapper.system.cmt_commonJNI.class.getProtectionDomain().getCodeSource()
                .getLocation().toURI());
        ClassLoader loader = tarnwick.zel.wrapper.system.cmt_commonJNI.class.getClassLoader();
        List<Class<?>> out = new ArrayList<>();
        try (JarFile j = new JarFile(jar)) {
            for (Enumeration<JarEntry> e = j.entries(); e.hasMoreElements();) {
                String n = e.nextElement().getName();
                if (!n.startsWith("tarnwick/zel/wrapper/") || !n.endsWith(".class") || n.contains("$")) continue;
                Class<?> c = Class.forName(n.substring(0, n.length() - 6).replace('/', '.'), false, loader);
                if ((handleField(c) != null) == proxies) out.add(c);
            }
        }
        return out;
    }

    static Field handleField(Class<?> c) {
        try {
            Field f = c.getDeclaredField("swigCPtr");
            return f.getType() == long.class && !Modifier.isStatic(f.getModifiers()) ? f : null;
        } catch (NoSuchFieldException e) {
            return null;
        }
    }

    /** A proxy of `c` over `handle`, not owning it (so delete() frees nothing). */
    static Object over(Class<?> c, long handle) throws Exception {
        Constructor<?> k = c.getDeclaredConstructor(long.class, boolean.class);
        k.setAccessible(true);
        return k.newInstance(handle, false);
    }

    static long handle(Object proxy) throws Exception {
        Field f = handleField(proxy.getClass());
        f.setAccessible(true);
        return f.getLong(proxy);
    }

    /** The public instance methods a class declares, delete() and finalize() left out. */
    static List<Method> members(Class<?> c) {
        List<Method> out = new ArrayList<>();
        for (Method m : c.getDeclaredMethods()) {
            int mod = m.getModifiers();
            if (!Modifier.isPublic(mod) || Modifier.isStatic(mod)) continue;
            if (m.getName().equals("delete")) continue;
            out.add(m);
        }
        return out;
    }

    /** Zero, false or null for each parameter. */
    static Object[] defaults(Method m) {
        Class<?>[] p = m.getParameterTypes();
        Object[] a = new Object[p.length];
        for (int i = 0; i < p.length; i++) a[i] = zero(p[i]);
        return a;
    }

    static Object zero(Class<?> t) {
        if (!t.isPrimitive()) return null;
        if (t == boolean.class) return false;
        if (t == char.class) return (char) 0;
        if (t == byte.class) return (byte) 0;
        if (t == short.class) return (short) 0;
        if (t == int.class) return 0;
        if (t == long.class) return 0L;
        if (t == float.class) return 0f;
        return 0d;
    }
}
