package tarnwick.tests.device;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static tarnwick.zel.wrapper.appinfo.cmt_appinfoJNI.*;

import org.junit.jupiter.api.Test;
import tarnwick.sim.SimDevice;
import tarnwick.sim.SimPanel;
import tarnwick.sim.SimSystem;
import tarnwick.tests.support.HostileHandleFixture;
import tarnwick.tests.support.SimDeviceExtension;
import tarnwick.zel.wrapper.appinfo.cmt_appinfoJNI;

/** Hostile calls of the application-information module: null handles and names, huge texts, extreme keys. */
class cmt_appinfoHostileTest extends HostileHandleFixture {
    cmt_appinfoHostileTest() {
        super(cmt_appinfoJNI::new_cmt_appinfo_proxy, cmt_appinfoJNI::delete_cmt_appinfo_proxy,
                cmt_appinfoJNI::delete_ESV_ZEL_PAPER_INFO, cmt_appinfoJNI::delete_ESV_ZEL_COUNT_INFO);
    }

    @Test
    void recordSettersIgnoreANullHandle() {
        ESV_ZEL_PAPER_INFO_paper_remain_set(0, null, (short) 1);
        ESV_ZEL_PAPER_INFO_paper_kind_set(0, null, (short) 1);
        ESV_ZEL_COUNT_INFO_count_kind_set(0, null, (short) 1);
        ESV_ZEL_COUNT_INFO_color_info_set(0, null, (short) 1);
        assertEquals(0, SimDevice.allCalls().length);
    }

    @Test
    void changeIdWithNullEmptyAndHugeNames() {
        assertEquals(0L, cmt_appinfo_proxy_change_id(h, null, null));
        assertEquals(0L, cmt_appinfo_proxy_change_id(h, null, ""));
        String big = SimDeviceExtension.repeat('p', 1 << 20);
        assertEquals(0L, cmt_appinfo_proxy_change_id(h, null, big));
        SimPanel.setIdentity(big, 0xFFFFFFFFL);
        assertEquals(4294967295L, cmt_appinfo_proxy_change_id(h, null, big));
        SimPanel.setIdentity("", 3);
        assertEquals(3L, cmt_appinfo_proxy_change_id(h, null, ""));
        assertEquals(5, SimDevice.callCount("esv_zel_panel_change_id"));
    }

    @Test
    void extremeKeysAndValues() {
        for (int key : new int[] {Integer.MIN_VALUE, -1, Integer.MAX_VALUE}) {
            assertEquals(0, cmt_appinfo_proxy_get_value(h, null, key));
            assertEquals(0L, cmt_appinfo_proxy_get_long_value(h, null, key));
            assertEquals("", cmt_appinfo_proxy_get_string_value(h, null, key));
            assertEquals(0, cmt_appinfo_proxy_set_value(h, null, key, Integer.MIN_VALUE));
            assertEquals(Integer.MIN_VALUE, cmt_appinfo_proxy_get_value(h, null, key));
            assertEquals(2147483648L, cmt_appinfo_proxy_get_long_value(h, null, key));
        }
        String big = SimDeviceExtension.repeat('t', 1 << 20);
        SimSystem.setText(1, big);
        assertEquals(big, cmt_appinfo_proxy_get_string_value(h, null, 1));
    }

    @Test
    void manyObjects() {
        for (int i = 0; i < 10000; ++i) {
            delete_cmt_appinfo_proxy(new_cmt_appinfo_proxy());
            delete_ESV_ZEL_PAPER_INFO(new_ESV_ZEL_PAPER_INFO());
            delete_ESV_ZEL_COUNT_INFO(new_ESV_ZEL_COUNT_INFO());
        }
        assertEquals(0, cmt_appinfo_proxy_get_value(h, null, 1));
    }
}
