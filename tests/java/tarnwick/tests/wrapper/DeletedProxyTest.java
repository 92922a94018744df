package tarnwick.tests.wrapper;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertInstanceOf;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static org.junit.jupiter.api.Assertions.assertTrue;

import java.lang.reflect.InvocationTargetException;
import java.lang.reflect.Method;
import java.lang.reflect.Modifier;
import java.util.ArrayList;
import java.util.List;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.extension.RegisterExtension;
import tarnwick.sim.SimDevice;
import tarnwick.tests.support.SimDeviceExtension;
import tarnwick.zel.wrapper.device.attribute.CMT_System_Info;
import tarnwick.zel.wrapper.webservice.zel_fnd_webservice_proxy;

/**
 * A member call or field access on a deleted proxy throws IllegalStateException "<class> has been
 * deleted" before any native call, for every proxy class of every module in tovrCMT.jar; delete()
 * may be called again.
 */
class DeletedProxyTest {
    @RegisterExtension
    static final SimDeviceExtension device = new SimDeviceExtension();

    /** Every member of every proxy class, on a proxy whose handle went to 0 at delete(). */
    @Test
    void everyMemberOfEveryProxyClassRefusesADeletedObject() throws Exception {
        List<String> checked = new ArrayList<>();
        List<String> wrong = new ArrayList<>();
        for (Class<?> c : ProxyClasses.all()) {
            // A handle that no native call may see: if one were made with it the VM would go down.
            Object p = ProxyClasses.over(c, 0x7ff0_0000_0000_0000L);
            Method delete = c.getMethod("delete");
            delete.invoke(p);
            delete.invoke(p);  // idempotent
            assertEquals(0, ProxyClasses.handle(p), c.getName());
            for (Method m : ProxyClasses.members(c)) {
                String what = c.getSimpleName() + "." + m.getName();
                try {
                    m.invoke(p, ProxyClasses.defaults(m));
                    wrong.add(what + ": returned");
                } catch (InvocationTargetException e) {
                    Throwable t = e.getCause();
                    if (!(t instanceof IllegalStateException) || !(c.getSimpleName() + " has been deleted").equals(t.getMessage())) {
                        wrong.add(what + ": " + t);
                    }
                }
                checked.add(what);
            }
        }
        assertEquals(List.of(), wrong);
        assertTrue(checked.size() > 500, "members checked: " + checked.size());
        assertEquals(0, SimDevice.allCalls().length, "no facade was reached");
    }

    /** Objects made the ordinary way: new, delete(), then a call. */
    @Test
    void aDeletedObjectThrowsInsteadOfReachingTheDevice() {
        CMT_System_Info s = new CMT_System_Info();
        s.delete();
        IllegalStateException e = assertThrows(IllegalStateException.class, s::get_result);
        assertEquals("CMT_System_Info has been deleted", e.getMessage());
        s.delete();

        zel_fnd_webservice_proxy w = new zel_fnd_webservice_proxy();
        w.delete();
        e = assertThrows(IllegalStateException.class, () -> w.reserve(0, "host"));
        assertEquals("zel_fnd_webservice_proxy has been deleted", e.getMessage());
        assertEquals(0, SimDevice.allCalls().length, "the reservation did not reach the device");
    }

    /** Every proxy class with a public no-argument constructor: made, deleted twice, refused. */
    @Test
    void everyConstructibleProxyDeletesOnceAndThenRefuses() throws Exception {
        int made = 0;
        for (Class<?> c : ProxyClasses.all()) {
            java.lang.reflect.Constructor<?> k;
            try {
                k = c.getConstructor();
            } catch (NoSuchMethodException e) {
                continue;
            }
            if (Modifier.isAbstract(c.getModifiers())) continue;
            Object p = k.newInstance();
            assertTrue(ProxyClasses.handle(p) != 0, c.getName());
            c.getMethod("delete").invoke(p);
            c.getMethod("delete").invoke(p);
            for (Method m : ProxyClasses.members(c)) {
                InvocationTargetException e = assertThrows(InvocationTargetException.class,
                    () -> m.invoke(p, ProxyClasses.defaults(m)), c.getSimpleName() + "." + m.getName());
                assertInstanceOf(IllegalStateException.class, e.getCause());
            }
            made++;
        }
        assertTrue(made > 30, "constructible proxies: " + made);
    }
}
