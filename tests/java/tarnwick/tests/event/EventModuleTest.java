package tarnwick.tests.event;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertThrows;

import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.extension.RegisterExtension;
import tarnwick.tests.support.SimDeviceExtension;
import tarnwick.zel.wrapper.event.ZELFNDEventJNI;

class EventModuleTest {
    @RegisterExtension
    static final SimDeviceExtension device = new SimDeviceExtension(false);

    @Test
    void constantsHaveTheirValuesAndJavaTypes() {
        int[] ints = {ZELFNDEventJNI.ESV_ZEL_ACC_ICCARD_DEVICE_TYPE_A_get(), ZELFNDEventJNI.ESV_ZEL_ACC_ICCARD_DEVICE_TYPE_B_get(),
            ZELFNDEventJNI.ESV_ZEL_ACC_ICCARD_DEVICE_TYPE_C_get(), ZELFNDEventJNI.ESV_ZEL_ACC_ICCARD_DEVICE_TYPE_HID_get(),
            ZELFNDEventJNI.ESV_ZEL_ACC_ICCARD_DEVICE_TYPE_MAG_get(), ZELFNDEventJNI.ESV_ZEL_ACC_ICCARD_DEVICE_TYPE_LEGIC_get()};
        assertEquals("[1, 2, 4, 8, 16, 32]", java.util.Arrays.toString(ints));
        long[] longs = {ZELFNDEventJNI.ESV_ZEL_ACC_CARD_ID_SIZE_get(), ZELFNDEventJNI.ESV_ZEL_ACC_FELICA_SYSTEM_CODE_get(),
            ZELFNDEventJNI.ESV_ZEL_ACC_FELICA_SERVICE_CODE_1_get(), ZELFNDEventJNI.ESV_ZEL_ACC_FELICA_SERVICE_CODE_2_get()};
        assertEquals("[256, 16, 16, 16]", java.util.Arrays.toString(longs));
        int[] sizes = {ZELFNDEventJNI.ESV_ZEL_MAX_ADDRESS_NAME_SIZE_get(), ZELFNDEventJNI.ESV_ZEL_MAX_ADDRESS_KANA_SIZE_get(),
            ZELFNDEventJNI.ESV_ZEL_MAX_FTP_HOST_SIZE_get(), ZELFNDEventJNI.ESV_ZEL_MAX_FTP_PATH_SIZE_get(),
            ZELFNDEventJNI.ESV_ZEL_MAX_FTP_LOGIN_NAME_SIZE_get(), ZELFNDEventJNI.ESV_ZEL_MAX_FTP_LOGIN_PW_SIZE_get(),
            ZELFNDEventJNI.ESV_ZEL_MAX_SMB_HOST_SIZE_get(), ZELFNDEventJNI.ESV_ZEL_MAX_SMB_PATH_SIZE_get(),
            ZELFNDEventJNI.ESV_ZEL_MAX_SMB_LOGIN_NAME_SIZE_get(), ZELFNDEventJNI.ESV_ZEL_MAX_SMB_LOGIN_PW_SIZE_get(),
            ZELFNDEventJNI.ESV_ZEL_MAX_FAX_SIZE_get(), ZELFNDEventJNI.ESV_ZEL_MAX_FAX_COOD_SIZE_get(),
            ZELFNDEventJNI.ESV_ZEL_MAX_FAX_COOD_PW_SIZE_get(), ZELFNDEventJNI.ESV_ZEL_MAX_SEND_SHEET_NAME_SIZE_get(),
            ZELFNDEventJNI.ESV_ZEL_MAX_SEND_SHEET_CNP_SIZE_get(), ZELFNDEventJNI.ESV_ZEL_MAX_SEND_SHEET_POST_SIZE_get(),
            ZELFNDEventJNI.ESV_ZEL_MAX_I_FAX_SIZE_get(), ZELFNDEventJNI.ESV_ZEL_MAX_E_MAIL_SIZE_get(),
            ZELFNDEventJNI.ESV_ZEL_MAX_BOX_NAME_get(), ZELFNDEventJNI.ESV_ZEL_MAX_BOX_OWNER_NAME_get(),
            ZELFNDEventJNI.ESV_ZEL_MAX_DOC_NAME_get(), ZELFNDEventJNI.ESV_ZEL_MAX_BOX_PASSWORD_get(),
            ZELFNDEventJNI.ESV_ZEL_MAX_NODE_NAME_get(), ZELFNDEventJNI.ESV_ZEL_MAX_ACCESS_PATH_SIZE_get()};
        assertEquals("[193, 193, 65, 129, 65, 65, 65, 129, 129, 129, 33, 21, 21, 193, 193, 193, 129, 129, 193, 129, 256, 17, 1531, 1531]",
                java.util.Arrays.toString(sizes));
    }

    @Test
    void cardInfoRecordFields() {
        long h = ZELFNDEventJNI.new_ESV_ZEL_ACC_ICCARD_INFO();
        try {
            String longId = "x".repeat(300);
            ZELFNDEventJNI.ESV_ZEL_ACC_ICCARD_INFO_card_id_set(h, null, longId);
            assertEquals("x".repeat(255), ZELFNDEventJNI.ESV_ZEL_ACC_ICCARD_INFO_card_id_get(h, null));
            ZELFNDEventJNI.ESV_ZEL_ACC_ICCARD_INFO_card_id_set(h, null, null);
            assertEquals("", ZELFNDEventJNI.ESV_ZEL_ACC_ICCARD_INFO_card_id_get(h, null));
            ZELFNDEventJNI.ESV_ZEL_ACC_ICCARD_INFO_card_type_set(h, null, 0x1FFFFFFFFL);
            assertEquals(0xFFFFFFFFL, ZELFNDEventJNI.ESV_ZEL_ACC_ICCARD_INFO_card_type_get(h, null));
            ZELFNDEventJNI.ESV_ZEL_ACC_ICCARD_INFO_card_data_size_set(h, null, 0x18000);
            assertEquals(0x8000, ZELFNDEventJNI.ESV_ZEL_ACC_ICCARD_INFO_card_data_size_get(h, null));
            ZELFNDEventJNI.ESV_ZEL_ACC_ICCARD_INFO_blkid_set(h, null, -7);
            assertEquals(-7, ZELFNDEventJNI.ESV_ZEL_ACC_ICCARD_INFO_blkid_get(h, null));
        } finally {
            ZELFNDEventJNI.delete_ESV_ZEL_ACC_ICCARD_INFO(h);
        }
        ZELFNDEventJNI.delete_ESV_ZEL_ACC_ICCARD_INFO(0);
    }

    @Test
    void felicaSettingRecordFields() {
        long h = ZELFNDEventJNI.new_ESV_ZEL_ACC_FELICA_SETTING_INFO();
        try {
            ZELFNDEventJNI.ESV_ZEL_ACC_FELICA_SETTING_INFO_system_code_set(h, null, "FE00");
            ZELFNDEventJNI.ESV_ZEL_ACC_FELICA_SETTING_INFO_service_code_1_set(h, null, "1A8B");
            ZELFNDEventJNI.ESV_ZEL_ACC_FELICA_SETTING_INFO_service_code_2_set(h, null, "");
            ZELFNDEventJNI.ESV_ZEL_ACC_FELICA_SETTING_INFO_blk_num_1_set(h, null, (short) 300);
            ZELFNDEventJNI.ESV_ZEL_ACC_FELICA_SETTING_INFO_blk_num_2_set(h, null, (short) 255);
            assertEquals("FE00", ZELFNDEventJNI.ESV_ZEL_ACC_FELICA_SETTING_INFO_system_code_get(h, null));
            assertEquals("1A8B", ZELFNDEventJNI.ESV_ZEL_ACC_FELICA_SETTING_INFO_service_code_1_get(h, null));
            assertEquals("", ZELFNDEventJNI.ESV_ZEL_ACC_FELICA_SETTING_INFO_service_code_2_get(h, null));
            assertEquals(44, ZELFNDEventJNI.ESV_ZEL_ACC_FELICA_SETTING_INFO_blk_num_1_get(h, null));
            assertEquals(255, ZELFNDEventJNI.ESV_ZEL_ACC_FELICA_SETTING_INFO_blk_num_2_get(h, null));
            NullPointerException e = assertThrows(NullPointerException.class,
                    () -> ZELFNDEventJNI.ESV_ZEL_ACC_FELICA_SETTING_INFO_system_code_set(h, null, null));
            assertEquals("null std::string", e.getMessage());
            assertEquals("FE00", ZELFNDEventJNI.ESV_ZEL_ACC_FELICA_SETTING_INFO_system_code_get(h, null));
        } finally {
            ZELFNDEventJNI.delete_ESV_ZEL_ACC_FELICA_SETTING_INFO(h);
        }
    }

    @Test
    void managerHandles() {
        tarnwick.sim.SimDevice.clearCalls();
        long m = ZELFNDEventJNI.new_zel_fnd_event_manager();
        assertEquals(true, m != 0);
        ZELFNDEventJNI.delete_zel_fnd_event_manager(m);  // never started: no facade call
        ZELFNDEventJNI.delete_zel_fnd_event_manager(0);
        ZELFNDEventJNI.delete_zel_fnd_panel_proxy(0);
        assertEquals(0, tarnwick.sim.SimDevice.allCalls().length);
    }
}
