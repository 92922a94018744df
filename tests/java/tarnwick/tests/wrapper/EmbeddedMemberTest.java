package tarnwick.tests.wrapper;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertSame;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static org.junit.jupiter.api.Assertions.assertTrue;

import java.lang.ref.WeakReference;
import java.lang.reflect.Constructor;
import java.lang.reflect.Method;
import java.lang.reflect.Modifier;
import java.util.ArrayList;
import java.util.List;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.extension.RegisterExtension;
import tarnwick.tests.support.SimDeviceExtension;
import tarnwick.zel.wrapper.box.ESV_ZEL_NAME_INFO;
import tarnwick.zel.wrapper.box.ESV_ZEL_PERSONAL_ADDRESS;

/**
 * A proxy returned by the getter of an embedded record keeps the record it came from alive: the
 * common idiom {@code owner().getMember().setX(...)} under forced garbage collection, for every
 * embedded record member of every module (found by reflection over tovrCMT.jar).
 */
class EmbeddedMemberTest {
    @RegisterExtension
    static final SimDeviceExtension device = new SimDeviceExtension();

    /** An embedded member: the getter on its owner's class, and the member's text and int fields. */
    private static final class Member {
        final Class<?> owner;
        final Method getter;
        final List<Method[]> texts = new ArrayList<>();  // {setter, getter}
        final List<Method[]> ints = new ArrayList<>();

        Member(Class<?> owner, Method getter) throws Exception {
            this.owner = owner;
            this.getter = getter;
            Class<?> type = getter.getReturnType();
            for (Method set : type.getDeclaredMethods()) {
                if (!set.getName().startsWith("set") || set.getParameterCount() != 1 || Modifier.isStatic(set.getModifiers())) continue;
                Method get;
                try {
                    get = type.getMethod("get" + set.getName().substring(3));
                } catch (NoSuchMethodException e) {
                    continue;
                }
                Class<?> p = set.getParameterTypes()[0];
                if (p == String.class && get.getReturnType() == String.class) texts.add(new Method[] {set, get});
                if (p == int.class && get.getReturnType() == int.class) ints.add(new Method[] {set, get});
            }
        }

        Object newOwner() throws Exception {
            return owner.getConstructor().newInstance();
        }

        String name() {
            return owner.getName() + "." + getter.getName();
        }
    }

    static List<Member> members() throws Exception {
        List<Member> out = new ArrayList<>();
        for (Class<?> c : ProxyClasses.all()) {
            Constructor<?> k;
            try {
                k = c.getConstructor();
            } catch (NoSuchMethodException e) {
                continue;
            }
            for (Method m : c.getDeclaredMethods()) {
                if (!Modifier.isPublic(m.getModifiers()) || Modifier.isStatic(m.getModifiers())) continue;
                if (m.getParameterCount() != 0 || !m.getName().startsWith("get")) continue;
                if (ProxyClasses.handleField(m.getReturnType()) == null) continue;
                out.add(new Member(c, m));
            }
        }
        return out;
    }

    static void collect() {
        for (int i = 0; i < 2; i++) {
            System.gc();
            System.runFinalization();
        }
    }

    /**
     * The member proxy outlives every reference to its owner; the owner is collected only after
     * the member, and the member's fields keep what was written into them while freed records
     * would have been handed out again.
     */
    @Test
    void everyEmbeddedMemberOutlivesTheLastReferenceToItsOwner() throws Exception {
        List<Member> all = members();
        assertTrue(all.size() >= 8, "embedded members found: " + all.size());
        List<String> found = new ArrayList<>();
        for (Member m : all) found.add(m.name());
        assertTrue(found.contains("tarnwick.zel.wrapper.box.ESV_ZEL_PERSONAL_ADDRESS.getName_info"), found.toString());

        for (int round = 0; round < 5; round++) {
            List<Object> members = new ArrayList<>();
            for (Member m : all) members.add(m.getter.invoke(m.newOwner()));  // the owner is dropped at once
            collect();
            // Records made now would take the memory of owners freed too early.
            List<Object> others = new ArrayList<>();
            for (Member m : all) {
                Object o = m.newOwner();
                others.add(o);
                Object other = m.getter.invoke(o);
                for (Method[] t : m.texts) t[0].invoke(other, "other");
                for (Method[] t : m.ints) t[0].invoke(other, -1);
            }
            for (int i = 0; i < all.size(); i++) {
                Member m = all.get(i);
                Object member = members.get(i);
                for (Method[] t : m.texts) t[0].invoke(member, "v" + round + i);
                for (Method[] t : m.ints) t[0].invoke(member, round * 1000 + i);
            }
            collect();
            for (int i = 0; i < all.size(); i++) {
                Member m = all.get(i);
                Object member = members.get(i);
                for (Method[] t : m.texts) assertEquals("v" + round + i, t[1].invoke(member), m.name() + " " + t[1].getName());
                for (Method[] t : m.ints) assertEquals(round * 1000 + i, t[1].invoke(member), m.name() + " " + t[1].getName());
            }
            others.clear();
        }
    }

    /** The idiom in a loop, with collections forced while members are in use. */
    @Test
    void theNameInfoIdiomUnderGarbageCollection() {
        for (int i = 0; i < 20_000; i++) {
            ESV_ZEL_NAME_INFO n = new ESV_ZEL_PERSONAL_ADDRESS().getName_info();
            if (i % 2_000 == 0) collect();
            n.setName("x" + i);
            n.setFurigana("y");
            assertEquals("x" + i, n.getName());
        }
    }

    /** The owner goes only with its last member. */
    @Test
    void theOwnerIsCollectedOnceItsMemberIsUnreachable() {
        ESV_ZEL_PERSONAL_ADDRESS owner = new ESV_ZEL_PERSONAL_ADDRESS();
        WeakReference<ESV_ZEL_PERSONAL_ADDRESS> weak = new WeakReference<>(owner);
        ESV_ZEL_NAME_INFO n = owner.getName_info();
        owner = null;
        collect();
        assertTrue(weak.get() != null, "kept by its member");
        n.setName("kept");
        assertEquals("kept", n.getName());
        n = null;
        for (int i = 0; i < 10 && weak.get() != null; i++) collect();
        assertSame(null, weak.get());
    }

    /**
     * delete() of an owner whose member is still in use: the owner refuses its own calls at once,
     * its record stays for the member until both are collected.
     */
    @Test
    void deletingTheOwnerLeavesItsMemberUsable() {
        ESV_ZEL_PERSONAL_ADDRESS owner = new ESV_ZEL_PERSONAL_ADDRESS();
        ESV_ZEL_NAME_INFO n = owner.getName_info();
        n.setName("before");
        owner.delete();
        owner.delete();
        assertThrows(IllegalStateException.class, owner::getName_info);
        collect();
        n.setName("after");
        assertEquals("after", n.getName());
    }

    /** Members of members and the same member asked twice see one record. */
    @Test
    void aMemberWrittenThroughOneProxyReadsBackThroughAnother() {
        ESV_ZEL_PERSONAL_ADDRESS owner = new ESV_ZEL_PERSONAL_ADDRESS();
        owner.getName_info().setName("Alice");
        collect();
        assertEquals("Alice", owner.getName_info().getName());
        ESV_ZEL_PERSONAL_ADDRESS copy = new ESV_ZEL_PERSONAL_ADDRESS();
        copy.setName_info(owner.getName_info());
        owner.delete();
        collect();
        assertEquals("Alice", copy.getName_info().getName());
        copy.delete();
    }

    /** The setter of the member of `m`. */
    static Method setter(Member m) throws NoSuchMethodException {
        return m.owner.getMethod("s" + m.getter.getName().substring(1), m.getter.getReturnType());
    }

    /**
     * Every embedded member's setter refuses null with NullPointerException "null <record>" and a
     * deleted record with IllegalStateException "<record> has been deleted", before the native
     * call (which would copy from the handle untested): the member keeps what it held.
     */
    @Test
    void everyEmbeddedSetterRefusesNullAndDeletedRecords() throws Exception {
        List<String> wrong = new ArrayList<>();
        int checked = 0;
        for (Member m : members()) {
            Method set = setter(m);
            Class<?> type = m.getter.getReturnType();
            Object owner = m.newOwner();
            for (Method[] t : m.texts) t[0].invoke(m.getter.invoke(owner), "kept");
            Object deleted = type.getConstructor().newInstance();
            type.getMethod("delete").invoke(deleted);
            Object[][] cases = {{null, NullPointerException.class, "null " + type.getSimpleName()},
                                {deleted, IllegalStateException.class, type.getSimpleName() + " has been deleted"}};
            for (Object[] c : cases) {
                try {
                    set.invoke(owner, c[0]);
                    wrong.add(m.name() + "(" + c[0] + "): returned");
                } catch (java.lang.reflect.InvocationTargetException e) {
                    Throwable t = e.getCause();
                    if (t.getClass() != c[1] || !c[2].equals(t.getMessage())) wrong.add(m.name() + ": " + t);
                }
            }
            for (Method[] t : m.texts) {
                if (!"kept".equals(t[1].invoke(m.getter.invoke(owner)))) wrong.add(m.name() + " " + t[1].getName() + " changed");
            }
            checked++;
        }
        assertEquals(List.of(), wrong);
        assertTrue(checked >= 25, "embedded setters checked: " + checked);
    }
}
