package tarnwick.tests.device;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static tarnwick.zel.wrapper.appinfo.cmt_appinfoJNI.*;

import java.util.List;
import org.junit.jupiter.api.Test;
import tarnwick.sim.SimDevice;
import tarnwick.sim.SimPanel;
import tarnwick.sim.SimSystem;
import tarnwick.tests.support.HandleFixture;
import tarnwick.tests.support.SimDeviceExtension;
import tarnwick.zel.wrapper.appinfo.cmt_appinfo_proxy;
import tarnwick.zel.wrapper.appinfo.cmt_appinfoJNI;

/** The application-information module in a real JVM on the simulated device. */
class AppInfoTest extends HandleFixture {
    AppInfoTest() {
        super(cmt_appinfoJNI::new_cmt_appinfo_proxy, cmt_appinfoJNI::delete_cmt_appinfo_proxy);
    }

    @Test
    void setValueGivesTheFacadeCodeUnchanged() {
        assertEquals(0, cmt_appinfo_proxy_set_value(h, null, 17, -1));
        assertEquals(0xFFFFFFFFL, SimSystem.value(17));
        SimSystem.setKeyAnswer(17, 0x04010501L);
        assertEquals(0x04010501, cmt_appinfo_proxy_set_value(h, null, 17, 1));
        SimDevice.forceResult("esv_zel_systeminfo_set_value", 0x04010599L, 1);
        assertEquals(0x04010599, cmt_appinfo_proxy_set_value(h, null, 1, 1));
        assertEquals(List.of(), SimDeviceExtension.trace("cmt_appinfo_proxy"));
    }

    @Test
    void rejectedKeyReadsAsZeroLikeAZeroValue() {
        SimSystem.setValue(3, 0);
        assertEquals(0, cmt_appinfo_proxy_get_value(h, null, 3));
        assertEquals(0, cmt_appinfo_proxy_get_value(h, null, 4));
        SimSystem.setValue(3, 9);
        assertEquals(9, cmt_appinfo_proxy_get_value(h, null, 3));
        SimSystem.setKeyAnswer(3, 0x04010503L);
        assertEquals(0, cmt_appinfo_proxy_get_value(h, null, 3));
        assertEquals(0L, cmt_appinfo_proxy_get_long_value(h, null, 3));
    }

    @Test
    void allBitsAreMinusOneAsIntAndFourBillionAsLong() {
        SimSystem.setValue(17, 0xFFFFFFFFL);
        assertEquals(-1, cmt_appinfo_proxy_get_value(h, null, 17));
        assertEquals(4294967295L, cmt_appinfo_proxy_get_long_value(h, null, 17));
        SimSystem.setValue(17, 0x80000000L);
        assertEquals(Integer.MIN_VALUE, cmt_appinfo_proxy_get_value(h, null, 17));
        assertEquals(2147483648L, cmt_appinfo_proxy_get_long_value(h, null, 17));
    }

    @Test
    void getValueReturnsWhatAFailingFacadeWrote() {
        SimSystem.forceUint("esv_zel_systeminfo_get_value", 1, 55, 0x04010502L, 1);
        assertEquals(55, cmt_appinfo_proxy_get_value(h, null, 17));
    }

    @Test
    void stringValueIsEmptiedOnFailure() {
        SimSystem.setText(17, "abc");
        assertEquals("abc", cmt_appinfo_proxy_get_string_value(h, null, 17));
        assertEquals("", cmt_appinfo_proxy_get_string_value(h, null, 999));
        SimSystem.forceString("esv_zel_systeminfo_get_value", 1, "partial", 0x04010502L, 1);
        assertEquals("", cmt_appinfo_proxy_get_string_value(h, null, 17));
    }

    @Test
    void changeId() {
        SimPanel.setIdentity("copy-app", 0x80000001L);
        assertEquals(2147483649L, cmt_appinfo_proxy_change_id(h, null, "copy-app"));
        assertEquals(2147483649L, SimPanel.currentId());
        assertEquals(0L, cmt_appinfo_proxy_change_id(h, null, "nobody"));
        assertEquals(0L, cmt_appinfo_proxy_change_id(h, null, null));
        String[] calls = SimDevice.calls("esv_zel_panel_change_id");
        assertEquals("copy-app, 0", calls[0]);
        assertEquals("null, 0", calls[2]);
        SimSystem.forceUint("esv_zel_panel_change_id", 1, 77, SimPanel.ERROR, 1);
        assertEquals(0L, cmt_appinfo_proxy_change_id(h, null, "copy-app"));
    }

    @Test
    void recordsOfThisModule() {
        long p = new_ESV_ZEL_PAPER_INFO();
        assertEquals(0, ESV_ZEL_PAPER_INFO_paper_kind_get(p, null));
        ESV_ZEL_PAPER_INFO_paper_remain_set(p, null, (short) 300);
        ESV_ZEL_PAPER_INFO_paper_size_set(p, null, (short) 2);
        ESV_ZEL_PAPER_INFO_paper_direction_set(p, null, (short) -1);
        ESV_ZEL_PAPER_INFO_paper_kind_set(p, null, (short) 7);
        assertEquals(44, ESV_ZEL_PAPER_INFO_paper_remain_get(p, null));
        assertEquals(2, ESV_ZEL_PAPER_INFO_paper_size_get(p, null));
        assertEquals(255, ESV_ZEL_PAPER_INFO_paper_direction_get(p, null));
        assertEquals(7, ESV_ZEL_PAPER_INFO_paper_kind_get(p, null));
        delete_ESV_ZEL_PAPER_INFO(p);
        long c = new_ESV_ZEL_COUNT_INFO();
        ESV_ZEL_COUNT_INFO_count_kind_set(c, null, (short) 3);
        ESV_ZEL_COUNT_INFO_paper_size_set(c, null, (short) 256);
        ESV_ZEL_COUNT_INFO_color_info_set(c, null, (short) 1);
        assertEquals(3, ESV_ZEL_COUNT_INFO_count_kind_get(c, null));
        assertEquals(0, ESV_ZEL_COUNT_INFO_paper_size_get(c, null));
        assertEquals(1, ESV_ZEL_COUNT_INFO_color_info_get(c, null));
        delete_ESV_ZEL_COUNT_INFO(c);
    }

    @Test
    void theGeneratedProxyClass() {
        cmt_appinfo_proxy p = new cmt_appinfo_proxy();
        SimSystem.setText(5, "five");
        assertEquals("five", p.get_string_value(5));
        assertEquals(0, p.set_value(5, 6));
        assertEquals(6, p.get_value(5));
        p.delete();
    }
}
