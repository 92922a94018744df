package tarnwick.tests.wrapper;

import java.io.File;
import java.lang.reflect.Constructor;
import java.lang.reflect.InvocationTargetException;
import java.lang.reflect.Method;
import java.lang.reflect.Modifier;
import java.nio.file.Files;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.HashSet;
import java.util.List;
import java.util.Map;
import java.util.Set;
import java.util.TreeMap;
import tarnwick.address.SearchKey;
import tarnwick.sim.SimStorage;
import tarnwick.tests.support.SimDeviceExtension;

/**
 * Every public method of every proxy and module class of tovrCMT.jar (found by reflection)
 * called with fresh arguments, then with each argument in turn replaced by a hostile one: null,
 * a deleted object, 0, -1 and the extremes of its type, empty and huge strings and arrays, an
 * object of the wrong class. Run by HostileSweepTest in a VM of its own, which must survive.
 *
 * Prints "> i Class.method #n" before call i (the last one names a crash; a run given i as its
 * argument starts there), "! ..." for an
 * exception that is not an argument check (once per method), then "= ..." lines: the number of
 * calls, of each outcome, and "= done".
 */
public final class HostileSweep {
    private static final String HUGE = "x".repeat(1 << 20);
    private static File drives;

    private HostileSweep() {}

    /** A fresh device, its drives in this run's own folder. */
    static void reset() {
        SimDeviceExtension.reset();
        for (int d = 0; d < 3; d++) SimStorage.setFolder(d, new File(drives, "drive" + d).getPath());
    }

    static boolean isProxy(Class<?> t) {
        return ProxyClasses.handleField(t) != null;
    }

    /** A new object of a proxy class (through a constructor given ordinary values, or a factory), or null. */
    static Object fresh(Class<?> c) {
        if (Modifier.isAbstract(c.getModifiers())) return null;
        Constructor<?>[] ks = c.getConstructors();
        Arrays.sort(ks, (a, b) -> a.getParameterCount() - b.getParameterCount());
        for (Constructor<?> k : ks) {
            Class<?>[] types = k.getParameterTypes();
            if (Arrays.asList(types).contains(c)) continue;
            Object[] a = new Object[types.length];
            for (int i = 0; i < types.length; i++) a[i] = ordinary(types[i]);
            try {
                return k.newInstance(a);
            } catch (ReflectiveOperationException e) {
                // the next one
            }
        }
        for (Method m : c.getMethods()) {
            if (Modifier.isStatic(m.getModifiers()) && m.getReturnType() == c && m.getParameterCount() == 0) {
                try {
                    return m.invoke(null);
                } catch (ReflectiveOperationException e) {
                    return null;
                }
            }
        }
        return null;
    }

    static Object deleted(Class<?> c) throws ReflectiveOperationException {
        Object o = fresh(c);
        if (o != null) c.getMethod("delete").invoke(o);
        return o;
    }

    /** The ordinary value of a parameter type. */
    static Object ordinary(Class<?> t) {
        if (t == boolean.class) return true;
        if (t == byte.class) return (byte) 1;
        if (t == short.class) return (short) 1;
        if (t == char.class) return 'a';
        if (t == int.class) return 1;
        if (t == long.class) return 1L;
        if (t == float.class) return 1f;
        if (t == double.class) return 1d;
        if (t == String.class) return "x";
        if (t.isArray()) return java.lang.reflect.Array.newInstance(t.getComponentType(), 1);
        if (isProxy(t)) return fresh(t);
        if (t == Object.class) return new ArrayList<Object>();
        return null;
    }

    /** The hostile values of a parameter type. */
    static List<Object> hostile(Class<?> t) throws ReflectiveOperationException {
        List<Object> v = new ArrayList<>();
        if (t == boolean.class) v.add(false);
        else if (t == byte.class) v.addAll(List.of((byte) 0, (byte) -1, Byte.MAX_VALUE, Byte.MIN_VALUE));
        else if (t == short.class) v.addAll(List.of((short) 0, (short) -1, Short.MAX_VALUE, Short.MIN_VALUE));
        else if (t == char.class) v.addAll(List.of((char) 0, Character.MAX_VALUE));
        else if (t == int.class) v.addAll(List.of(0, -1, Integer.MAX_VALUE, Integer.MIN_VALUE));
        else if (t == long.class) v.addAll(List.of(0L, -1L, (long) Integer.MAX_VALUE, 0xFFFF_FFFFL, Long.MAX_VALUE, Long.MIN_VALUE));
        else if (t == float.class || t == double.class) v.addAll(List.of(t == float.class ? (Object) Float.NaN : (Object) Double.NaN));
        else if (t == String.class) v.addAll(Arrays.asList(null, "", HUGE, "\u00e9\u0000\ud83d\ude00\ud800"));
        else if (t.isArray()) {
            v.add(null);
            v.add(java.lang.reflect.Array.newInstance(t.getComponentType(), 0));
            v.add(java.lang.reflect.Array.newInstance(t.getComponentType(), 1 << 20));
        } else if (isProxy(t)) {
            v.add(null);
            Object d = deleted(t);
            if (d != null) v.add(d);
        } else {
            v.addAll(Arrays.asList(null, new Object(), "x", new ArrayList<Object>(), new SearchKey(), new SearchKey("Person")));
        }
        return v;
    }

    /** Public methods of the class, static or not, that a sweep calls (delete last, on its own). */
    static List<Method> methods(Class<?> c) {
        List<Method> out = new ArrayList<>();
        for (Method m : c.getDeclaredMethods()) {
            if (!Modifier.isPublic(m.getModifiers()) || m.getName().equals("delete") || m.getName().equals("finalize")) continue;
            out.add(m);
        }
        out.sort((a, b) -> a.toString().compareTo(b.toString()));
        return out;
    }

    public static void main(String[] args) throws Exception {
        drives = Files.createTempDirectory("tovr-sweep-").toFile();
        SimDeviceExtension.start();
        reset();
        List<Class<?>> classes = new ArrayList<>(ProxyClasses.all());
        classes.addAll(ProxyClasses.modules());
        int from = args.length > 0 ? Integer.parseInt(args[0]) : 0;  // calls before this one are not made
        int classCount = 0, methodCount = 0;
        Map<String, Integer> outcomes = new TreeMap<>();
        Set<String> noted = new HashSet<>();
        int calls = 0;
        for (Class<?> c : classes) {
            classCount++;
            for (Method m : methods(c)) {
                methodCount++;
                boolean isStatic = Modifier.isStatic(m.getModifiers());
                Object receiver = isStatic ? null : fresh(c);
                if (!isStatic && receiver == null) {
                    outcomes.merge("skipped (no object of " + c.getSimpleName() + ")", 1, Integer::sum);
                    continue;
                }
                Class<?>[] types = m.getParameterTypes();
                Object[] base = new Object[types.length];
                for (int i = 0; i < types.length; i++) base[i] = ordinary(types[i]);
                List<Object[]> sets = new ArrayList<>();
                sets.add(base);
                for (int i = 0; i < types.length; i++) {
                    for (Object h : hostile(types[i])) {
                        Object[] a = base.clone();
                        a[i] = h;
                        sets.add(a);
                    }
                }
                for (int n = 0; n < sets.size(); n++, calls++) {
                    if (calls < from) continue;
                    System.out.println("> " + calls + " " + c.getSimpleName() + "." + m.getName() + " #" + n);
                    System.out.flush();
                    String outcome;
                    try {
                        m.invoke(receiver, sets.get(n));
                        outcome = "returned";
                    } catch (InvocationTargetException e) {
                        Throwable t = e.getCause();
                        outcome = "threw " + t.getClass().getName();
                        // What is not an argument check of the proxies or the wrapper layer, once per method.
                        if (!(t instanceof NullPointerException || t instanceof IllegalStateException
                              || t instanceof IndexOutOfBoundsException)
                            && noted.add(c.getSimpleName() + "." + m.getName() + " " + t.getClass().getName())) {
                            System.out.println("! " + c.getSimpleName() + "." + m.getName() + " #" + n + ": " + t);
                        }
                    }
                    outcomes.merge(outcome, 1, Integer::sum);
                }
                if (receiver != null) c.getMethod("delete").invoke(receiver);
                reset();
            }
        }
        System.out.println("= calls " + calls);
        System.out.println("= classes " + classCount + ", methods " + methodCount);
        for (Map.Entry<String, Integer> e : outcomes.entrySet()) System.out.println("= " + e.getKey() + ": " + e.getValue());
        System.out.println("= done");
        System.out.flush();
        SimDeviceExtension.reset();
    }
}
