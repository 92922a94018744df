package tarnwick.tests.system;

import static org.junit.jupiter.api.Assertions.assertArrayEquals;
import static org.junit.jupiter.api.Assertions.assertEquals;

import org.junit.jupiter.api.AfterEach;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.extension.RegisterExtension;
import tarnwick.sim.SimDevice;
import tarnwick.tests.support.SimDeviceExtension;
import tarnwick.zel.wrapper.system.cmt_commonJNI;

class CmtCommonTest {
    @RegisterExtension
    static final SimDeviceExtension device = new SimDeviceExtension(false);

    @AfterEach
    void utc() {
        SimDevice.setTimeZone("UTC");
    }

    private static int[] fields(long handle) {
        return new int[] {
            cmt_commonJNI.cmt_time_getYear(handle, null),
            cmt_commonJNI.cmt_time_getMonth(handle, null),
            cmt_commonJNI.cmt_time_getDate(handle, null),
            cmt_commonJNI.cmt_time_getHour(handle, null),
            cmt_commonJNI.cmt_time_getMinute(handle, null),
            cmt_commonJNI.cmt_time_getSecond(handle, null),
        };
    }

    private static int[] fieldsOf(long seconds) {
        long h = cmt_commonJNI.new_cmt_time__SWIG_1(seconds);
        try {
            return fields(h);
        } finally {
            cmt_commonJNI.delete_cmt_time(h);
        }
    }

    @Test
    void zeroIsTheEpoch() {
        assertArrayEquals(new int[] {1970, 1, 1, 0, 0, 0}, fieldsOf(0));
    }

    @Test
    void twoToThe31KeepsTheDefaults() {
        assertArrayEquals(new int[] {1970, 1, 1, 0, 0, 0}, fieldsOf(2147483648L));
    }

    @Test
    void onlyTheLow32BitsArePassed() {
        assertArrayEquals(new int[] {1970, 1, 2, 0, 0, 0}, fieldsOf(4294967296L + 86400));
    }

    @Test
    void newYear2009WhateverTheZone() {
        SimDevice.setTimeZone("JST-9");
        assertArrayEquals(new int[] {2009, 1, 1, 0, 0, 0}, fieldsOf(1230768000L));
        SimDevice.setTimeZone("EST5EDT");
        assertArrayEquals(new int[] {2009, 1, 1, 0, 0, 0}, fieldsOf(1230768000L));
    }

    @Test
    void aTimeWithEveryField() {
        assertArrayEquals(new int[] {2001, 9, 9, 1, 46, 40}, fieldsOf(1000000000L));
    }

    @Test
    void defaultObjectAtUtcPlusOne() {
        SimDevice.setTimeZone("CET-1");
        long h = cmt_commonJNI.new_cmt_time__SWIG_0();
        assertEquals(0, cmt_commonJNI.cmt_time_getDaylightTime(h, null));
        assertEquals(3600, cmt_commonJNI.cmt_time_getGMToffset(h, null));
        cmt_commonJNI.delete_cmt_time(h);
    }

    @Test
    void defaultObjectWestOfGreenwich() {
        SimDevice.setTimeZone("HST10");
        long h = cmt_commonJNI.new_cmt_time__SWIG_0();
        assertEquals(0, cmt_commonJNI.cmt_time_getDaylightTime(h, null));
        assertEquals(-36000, cmt_commonJNI.cmt_time_getGMToffset(h, null));
        cmt_commonJNI.delete_cmt_time(h);
    }

    @Test
    void deleteOfTheNullHandleDoesNothing() {
        cmt_commonJNI.delete_cmt_time(0);
        cmt_commonJNI.delete_cmt_init(0);
    }

    @Test
    void initRegistersTheProcessOnce() {
        assertEquals(0, cmt_commonJNI.cmt_init_init());
        assertArrayEquals(new String[] {"1:smfstart.sh"}, SimDevice.processRegistrations());
        assertArrayEquals(new String[] {"1, smfstart.sh"}, SimDevice.calls("sys_prcm_lib_process_init"));
    }

    @Test
    void initReturnsTheRegistrationResultUnchanged() {
        SimDevice.forceResult("sys_prcm_lib_process_init", -7, 1);
        assertEquals(-7, cmt_commonJNI.cmt_init_init());
        SimDevice.forceResult("sys_prcm_lib_process_init", 0x04010001L, 1);
        assertEquals(0x04010001, cmt_commonJNI.cmt_init_init());
        assertEquals(0, cmt_commonJNI.cmt_init_init());
        assertEquals(3, SimDevice.processRegistrations().length);
    }

    @Test
    void initTracesNothing() {
        SimDevice.clearTrace();
        cmt_commonJNI.cmt_init_init();
        assertEquals(0, SimDevice.traceLines().length);
    }

    @Test
    void proxyClassesUseTheSameNatives() {
        tarnwick.zel.wrapper.system.cmt_time t = new tarnwick.zel.wrapper.system.cmt_time(1230768000L);
        assertEquals(2009, t.getYear());
        t.delete();
        t.delete();  // a second delete does nothing
        tarnwick.zel.wrapper.system.cmt_init i = new tarnwick.zel.wrapper.system.cmt_init();
        i.delete();
    }
}
