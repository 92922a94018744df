package tarnwick.tests.wrapper;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertNull;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static org.junit.jupiter.api.Assertions.assertTrue;

import java.lang.reflect.Method;
import java.lang.reflect.Modifier;
import org.junit.jupiter.api.AfterEach;
import org.junit.jupiter.api.BeforeAll;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.extension.RegisterExtension;
import tarnwick.tests.support.SimDeviceExtension;
import tarnwick.zel.wrapper.probe.tovr_probeJNI;
import tarnwick.zel.wrapper.system.cmt_commonJNI;

/** The process's VM and the Java object services, seen from Java. */
class RuntimeFrameTest {
    @RegisterExtension
    static final SimDeviceExtension device = new SimDeviceExtension(false);

    @BeforeAll
    static void load() {
        System.loadLibrary("tovrprobe");
    }

    @AfterEach
    void keepTheVm() {
        tovr_probeJNI.probe_runtime_create_jvm();
    }

    @Test
    void noEnvironmentUntilTheVmIsFound() {
        tovr_probeJNI.probe_runtime_forget_jvm();
        assertFalse(tovr_probeJNI.probe_runtime_has_vm());
        assertFalse(tovr_probeJNI.probe_runtime_has_env(), "GetJNIEnv does not look the VM up itself");
        assertNull(tovr_probeJNI.probe_runtime_create_java_object("tovrtest/Plain"));
        tovr_probeJNI.probe_runtime_create_jvm();
        assertTrue(tovr_probeJNI.probe_runtime_has_env());
    }

    @Test
    void initFindsTheVm() {
        tovr_probeJNI.probe_runtime_forget_jvm();
        cmt_commonJNI.cmt_init_init();
        assertTrue(tovr_probeJNI.probe_runtime_has_vm());
    }

    @Test
    void destroyWithoutAVmReturnsZero() {
        assertEquals(0, tovr_probeJNI.probe_runtime_destroy_jvm_without_vm());
    }

    @Test
    void createJavaObjectByClassName() {
        tovr_probeJNI.probe_runtime_create_jvm();
        Object o = tovr_probeJNI.probe_runtime_create_java_object("tovrtest/Plain");
        assertEquals("tovrtest.Plain", o.getClass().getName());
        o = tovr_probeJNI.probe_runtime_create_java_object("java/util/ArrayList");
        assertTrue(o instanceof java.util.ArrayList);
    }

    @Test
    void createJavaObjectOfAnUnknownClassReturnsNullWithNothingPending() {
        tovr_probeJNI.probe_runtime_create_jvm();
        // A pending exception would be thrown here when the native method returns.
        assertNull(tovr_probeJNI.probe_runtime_create_java_object("tovrtest/NoSuchClass"));
        assertNull(tovr_probeJNI.probe_runtime_create_java_object("tovrtest/NoDefaultConstructor"));
    }

    @Test
    void releaseCallsRelease() throws Exception {
        tovr_probeJNI.probe_runtime_create_jvm();
        Class<?> cls = Class.forName("tovrtest.Releasable");
        Object o = cls.getConstructor().newInstance();
        int before = cls.getField("released").getInt(null);
        tovr_probeJNI.probe_runtime_release_java_object(o);
        assertEquals(before + 1, cls.getField("released").getInt(null));
    }

    @Test
    void releaseOfAnObjectWithoutReleaseLeavesNothingPending() {
        tovr_probeJNI.probe_runtime_create_jvm();
        tovr_probeJNI.probe_runtime_release_java_object(new Object());
    }

    @Test
    void anExceptionOfReleaseReachesTheCaller() throws Exception {
        tovr_probeJNI.probe_runtime_create_jvm();
        Object o = Class.forName("tovrtest.ThrowingRelease").getConstructor().newInstance();
        IllegalStateException e = assertThrows(IllegalStateException.class,
                () -> tovr_probeJNI.probe_runtime_release_java_object(o));
        assertEquals("release failed", e.getMessage());
    }

    @Test
    void theSystemModuleHasItsFourteenNatives() {
        int natives = 0;
        for (Method m : cmt_commonJNI.class.getDeclaredMethods()) {
            if (Modifier.isNative(m.getModifiers()) && Modifier.isStatic(m.getModifiers())) natives++;
        }
        assertEquals(14, natives);
    }
}
