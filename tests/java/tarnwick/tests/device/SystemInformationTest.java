package tarnwick.tests.device;

import static org.junit.jupiter.api.Assertions.assertArrayEquals;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static org.junit.jupiter.api.Assertions.assertTrue;
import static tarnwick.zel.wrapper.device.attribute.CMT_SystemInformationJNI.*;

import java.util.List;
import org.junit.jupiter.api.Test;
import tarnwick.sim.SimCommon;
import tarnwick.sim.SimDevice;
import tarnwick.sim.SimPanel;
import tarnwick.sim.SimSystem;
import tarnwick.tests.support.HandleFixture;
import tarnwick.tests.support.SimDeviceExtension;
import tarnwick.zel.wrapper.device.attribute.CMT_System_Info;
import tarnwick.zel.wrapper.device.attribute.CMT_SystemInformationJNI;

/** The system-information module in a real JVM on the simulated device. */
class SystemInformationTest extends HandleFixture {
    SystemInformationTest() {
        super(CMT_SystemInformationJNI::new_CMT_System_Info, CMT_SystemInformationJNI::delete_CMT_System_Info);
    }

    private static final long COMPETENCE = 0x04010501L, ERROR = 0x04010502L, UNSUPPORTED = 0x04010503L;

    private static List<String> trace() {
        return SimDeviceExtension.trace("cmt_system_info");
    }

    @Test
    void freshObjectReportsFalseAndTwo() {
        assertFalse(CMT_System_Info_get_result(h, null));
        assertEquals(2, CMT_System_Info_get_retcode(h, null));
        assertEquals(0, SimDevice.allCalls().length);
    }

    @Test
    void everyConversionRowWithItsTrace() {
        Object[][] rows = {
            {0L, 0, "ESV_ZEL_SYSINFO_OK"}, {COMPETENCE, 1, "ESV_ZEL_SYSINFO_ERROR_COMPETENCE"},
            {ERROR, 2, "ESV_ZEL_SYSINFO_ERROR"}, {UNSUPPORTED, 3, "ESV_ZEL_SYSINFO_UNSUPPORTED_ERROR"},
            {0x04010504L, 2, "default ZEL_FND_SYSINFO_ERROR"}, {-1L, 2, "default ZEL_FND_SYSINFO_ERROR"},
            {7L, 2, "default ZEL_FND_SYSINFO_ERROR"}};
        for (Object[] r : rows) {
            SimDevice.clearTrace();
            SimDevice.forceResult("esv_zel_systeminfo_get_screen_size", (Long) r[0], 1);
            assertEquals((int) (Integer) r[1], CMT_System_Info_get_screen_size(h, null, new long[1]));
            assertEquals(List.of("3 convert_retcode," + r[2]), trace());
        }
    }

    @Test
    void modelTypeAndScreenSizeAreZeroExtended() {
        SimSystem.setModelType(0xFFFFFFF0L);
        SimSystem.setScreenSize(12);
        long[] out = {5};
        assertEquals(0, CMT_System_Info_get_model_type(h, null, out));
        assertEquals(4294967280L, out[0]);
        assertEquals(0, CMT_System_Info_get_screen_size(h, null, out));
        assertEquals(12L, out[0]);
    }

    @Test
    void outputIsWrittenBackAlsoWhenTheCallFails() {
        SimSystem.forceUint("esv_zel_systeminfo_get_model_type", 0, 0x80000000L, UNSUPPORTED, 1);
        long[] out = {5, 6};
        assertEquals(3, CMT_System_Info_get_model_type(h, null, out));
        assertArrayEquals(new long[] {2147483648L, 6}, out);
        SimDevice.forceResult("esv_zel_systeminfo_get_model_type", ERROR, 1);
        out[0] = 99;
        assertEquals(2, CMT_System_Info_get_model_type(h, null, out));
        assertEquals(0L, out[0]);  // an output, not read in: the facade left 0
    }

    @Test
    void nullAndEmptyOutputArraysThrowWithoutACall() {
        NullPointerException n = assertThrows(NullPointerException.class, () -> CMT_System_Info_get_model_type(h, null, null));
        assertEquals("array null", n.getMessage());
        IndexOutOfBoundsException e =
            assertThrows(IndexOutOfBoundsException.class, () -> CMT_System_Info_get_screen_size(h, null, new long[0]));
        assertEquals("Array must contain at least 1 element", e.getMessage());
        long count = new_ESV_ZEL_COUNT_INFO();
        e = assertThrows(IndexOutOfBoundsException.class, () -> CMT_System_Info_get_count(h, null, count, null, new long[0]));
        assertEquals("Array must contain at least 1 element", e.getMessage());
        e = assertThrows(IndexOutOfBoundsException.class,
            () -> CMT_System_Info_get_machine_info__SWIG_0(h, null, 1, 1, new long[0]));
        assertEquals("Array must contain at least 1 element", e.getMessage());
        delete_ESV_ZEL_COUNT_INFO(count);
        assertEquals(0, SimDevice.allCalls().length);
        assertEquals(List.of(), trace());
    }

    @Test
    void paperInfoByKey() {
        SimSystem.setTray(9, 50, 3, 1, 2);
        long p = new_ESV_ZEL_PAPER_INFO();
        assertEquals(0, CMT_System_Info_get_paper_info(h, null, 9, p, null));
        assertEquals(50, ESV_ZEL_PAPER_INFO_paper_remain_get(p, null));
        assertEquals(3, ESV_ZEL_PAPER_INFO_paper_size_get(p, null));
        assertEquals(1, ESV_ZEL_PAPER_INFO_paper_direction_get(p, null));
        assertEquals(2, ESV_ZEL_PAPER_INFO_paper_kind_get(p, null));
        assertEquals(2, CMT_System_Info_get_paper_info(h, null, 99, p, null));
        SimSystem.setKeyAnswer(9, COMPETENCE);
        assertEquals(1, CMT_System_Info_get_paper_info(h, null, 9, p, null));
        SimSystem.forcePaperInfo("esv_zel_systeminfo_get_paper_info", 1, 255, 254, 253, 252, UNSUPPORTED, 1);
        assertEquals(3, CMT_System_Info_get_paper_info(h, null, 9, p, null));
        assertEquals(255, ESV_ZEL_PAPER_INFO_paper_remain_get(p, null));  // left as the facade left it
        assertEquals(252, ESV_ZEL_PAPER_INFO_paper_kind_get(p, null));
        delete_ESV_ZEL_PAPER_INFO(p);
    }

    @Test
    void nullRecordHandlesThrowNamedMessages() {
        NullPointerException e =
            assertThrows(NullPointerException.class, () -> CMT_System_Info_get_paper_info(h, null, 1, 0, null));
        assertEquals("ESV_ZEL_PAPER_INFO & reference is null", e.getMessage());
        e = assertThrows(NullPointerException.class, () -> CMT_System_Info_get_count(h, null, 0, null, new long[1]));
        assertEquals("ESV_ZEL_COUNT_INFO & reference is null", e.getMessage());
        assertEquals(0, SimDevice.allCalls().length);
    }

    @Test
    void countByKindSizeAndColour() {
        SimSystem.setCount(SimSystem.COUNT_COPY, 4, 1, 0xFFFFFFFFL);
        long c = new_ESV_ZEL_COUNT_INFO();
        ESV_ZEL_COUNT_INFO_count_kind_set(c, null, (short) SimSystem.COUNT_COPY);
        ESV_ZEL_COUNT_INFO_paper_size_set(c, null, (short) 4);
        ESV_ZEL_COUNT_INFO_color_info_set(c, null, (short) 1);
        long[] out = {0};
        assertEquals(0, CMT_System_Info_get_count(h, null, c, null, out));
        assertEquals(4294967295L, out[0]);
        ESV_ZEL_COUNT_INFO_count_kind_set(c, null, (short) 9);
        assertEquals(2, CMT_System_Info_get_count(h, null, c, null, out));
        assertEquals(0L, out[0]);
        SimSystem.forceUlong("esv_zel_systeminfo_get_count", 1, 0x1FFFFFFFFL, ERROR, 1);
        assertEquals(2, CMT_System_Info_get_count(h, null, c, null, out));
        assertEquals(0xFFFFFFFFL, out[0]);  // 32 bits, as on the device
        delete_ESV_ZEL_COUNT_INFO(c);
    }

    @Test
    void numericMachineInfoWithItsTrace() {
        SimSystem.setMachineInfo(7, 4000000000L, 0xFFFFFFFFL);
        long[] out = {0};
        assertEquals(0, CMT_System_Info_get_machine_info__SWIG_0(h, null, 7, 4000000000L, out));
        assertEquals(4294967295L, out[0]);
        assertEquals(List.of("3 get_machine_info,(key = [7], cid = [4000000000], value = [-1])", "3 convert_retcode,ESV_ZEL_SYSINFO_OK"),
                     trace());
        // The cid is 32 bits: the high half of the Java long is dropped.
        SimSystem.setMachineInfo(7, 3, 11);
        assertEquals(0, CMT_System_Info_get_machine_info__SWIG_0(h, null, 7, 0x100000003L, out));
        assertEquals(11L, out[0]);
        assertArrayEquals(new String[] {"7, 4000000000, 0", "7, 3, 0"}, SimDevice.calls("esv_zel_systeminfo_get_machine_info"));
    }

    @Test
    void textMachineInfoThroughAStringArray() {
        SimSystem.setMachineText(7, 3, "serial-XYZ");
        String[] value = {"initial", "second"};
        assertEquals(0, CMT_System_Info_get_machine_info__SWIG_1(h, null, 7, 3, value));
        assertArrayEquals(new String[] {"serial-XYZ", "second"}, value);
        assertEquals("7, 3, initial", SimDevice.calls("esv_zel_systeminfo_get_machine_info")[0]);
        assertEquals(List.of("3 get_machine_info,(key = [7], cid = [3], value = [serial-XYZ])", "3 convert_retcode,ESV_ZEL_SYSINFO_OK"),
                     trace());
        // A null element starts from "", a failure gives back what the facade left.
        String[] empty = {null};
        assertEquals(2, CMT_System_Info_get_machine_info__SWIG_1(h, null, 8, 3, empty));
        assertEquals("", empty[0]);
        String[] kept = {"kept"};
        assertEquals(2, CMT_System_Info_get_machine_info__SWIG_1(h, null, 8, 3, kept));
        assertEquals("kept", kept[0]);
        SimSystem.forceString("esv_zel_systeminfo_get_machine_info", 2, "forced", COMPETENCE, 1);
        assertEquals(1, CMT_System_Info_get_machine_info__SWIG_1(h, null, 8, 3, kept));
        assertEquals("forced", kept[0]);
        NullPointerException n =
            assertThrows(NullPointerException.class, () -> CMT_System_Info_get_machine_info__SWIG_1(h, null, 7, 3, null));
        assertEquals("array null", n.getMessage());
        IndexOutOfBoundsException e = assertThrows(IndexOutOfBoundsException.class,
            () -> CMT_System_Info_get_machine_info__SWIG_1(h, null, 7, 3, new String[0]));
        assertEquals("Array must contain at least 1 element", e.getMessage());
        assertEquals(4, SimDevice.callCount("esv_zel_systeminfo_get_machine_info"));
    }

    @Test
    void setMachineInfo() {
        assertEquals(0, CMT_System_Info_set_machine_info(h, null, 5, 2, 4000000000L));
        assertEquals(4000000000L, SimSystem.machineInfo(5, 2));
        SimSystem.setKeyAnswer(5, UNSUPPORTED);
        assertEquals(3, CMT_System_Info_set_machine_info(h, null, 5, 2, 1));
        assertEquals(4000000000L, SimSystem.machineInfo(5, 2));
    }

    @Test
    void longValueFailureThenAFailingSetChangesResultOnly() {
        SimSystem.setValue(41, 42);
        assertEquals(42, CMT_System_Info_get_long_value(h, null, 41));
        assertTrue(CMT_System_Info_get_result(h, null));
        assertEquals(0, CMT_System_Info_get_retcode(h, null));
        SimSystem.setKeyAnswer(41, COMPETENCE);
        assertEquals(-1, CMT_System_Info_get_long_value(h, null, 41));
        assertFalse(CMT_System_Info_get_result(h, null));
        assertEquals(1, CMT_System_Info_get_retcode(h, null));
        SimSystem.setKeyAnswer(41, 0);
        assertTrue(CMT_System_Info_set_long_value(h, null, 41, 7));
        assertTrue(CMT_System_Info_get_result(h, null));
        assertEquals(1, CMT_System_Info_get_retcode(h, null));
        SimDevice.forceResult("esv_zel_systeminfo_set_value", UNSUPPORTED, 1);
        assertFalse(CMT_System_Info_set_long_value(h, null, 41, 8));
        assertFalse(CMT_System_Info_get_result(h, null));
        assertEquals(1, CMT_System_Info_get_retcode(h, null));
        assertEquals(7L, SimSystem.value(41));
        SimSystem.setValue(41, 0xFFFFFFFFL);
        assertEquals(-1, CMT_System_Info_get_long_value(h, null, 41));
        assertTrue(CMT_System_Info_get_result(h, null));  // a real -1, told apart only by the result
        assertTrue(CMT_System_Info_set_long_value(h, null, 41, Integer.MIN_VALUE));
        assertEquals(2147483648L, SimSystem.value(41));
    }

    @Test
    void stringValues() {
        assertTrue(CMT_System_Info_set_string_value(h, null, 41, "hello"));
        assertEquals("hello", SimSystem.text(41));
        assertEquals("hello", CMT_System_Info_get_string_value(h, null, 41));
        assertEquals(0, CMT_System_Info_get_retcode(h, null));
        assertEquals("", CMT_System_Info_get_string_value(h, null, 1234));
        assertFalse(CMT_System_Info_get_result(h, null));
        assertEquals(2, CMT_System_Info_get_retcode(h, null));
        SimSystem.setKeyAnswer(41, UNSUPPORTED);
        assertFalse(CMT_System_Info_set_string_value(h, null, 41, "x"));
        assertEquals("", CMT_System_Info_get_string_value(h, null, 41));
        assertEquals(3, CMT_System_Info_get_retcode(h, null));
        SimDevice.clearCalls();
        NullPointerException e =
            assertThrows(NullPointerException.class, () -> CMT_System_Info_set_string_value(h, null, 41, null));
        assertEquals("null std::string", e.getMessage());
        assertEquals(0, SimDevice.allCalls().length);
        assertEquals("hello", SimSystem.text(41));
    }

    @Test
    void wakeupDateNarrowsToThirtyTwoBitsAsOnTheDevice() {
        assertEquals(0, CMT_System_Info_set_wakeup_date(h, null, 5, 1700000000L));
        assertEquals(1700000000L, SimCommon.wakeupDate(5));
        assertEquals(2, CMT_System_Info_set_wakeup_date(h, null, 6, 2147483649L));
        assertEquals("6, -2147483647", SimDevice.calls("esv_zel_set_wakeup_date")[1]);
        assertEquals(0, CMT_System_Info_set_wakeup_date(h, null, 0x100000007L, 0x100000005L));
        assertEquals("7, 5", SimDevice.calls("esv_zel_set_wakeup_date")[2]);
        assertEquals(List.of("3 convert_retcode,ESV_ZEL_SYSINFO_OK", "3 convert_retcode,ESV_ZEL_SYSINFO_ERROR",
                             "3 convert_retcode,ESV_ZEL_SYSINFO_OK"), trace());
    }

    @Test
    void deepSleepSuspendResumeAndEnergySaving() {
        assertEquals(2, CMT_System_Info_resume_deep_sleep(h, null, 3));
        assertEquals(0, CMT_System_Info_suspend_deep_sleep(h, null, 3));
        assertEquals(1, SimCommon.deepSleepSuspends(3));
        assertFalse(CMT_System_Info_request_energy_saving_mode(h, null, 2));
        assertEquals(0, CMT_System_Info_resume_deep_sleep(h, null, 3));
        assertTrue(CMT_System_Info_request_energy_saving_mode(h, null, 2));
        assertEquals(2, SimCommon.powerState());
        assertTrue(CMT_System_Info_request_energy_saving_mode(h, null, 0));
        assertFalse(CMT_System_Info_request_energy_saving_mode(h, null, 7));
        SimDevice.forceResult("esv_zel_request_energy_saving_mode", COMPETENCE, 1);
        assertFalse(CMT_System_Info_request_energy_saving_mode(h, null, 1));
        SimDevice.forceResult("esv_zel_suspend_deep_sleep", COMPETENCE, 1);
        assertEquals(1, CMT_System_Info_suspend_deep_sleep(h, null, 3));
        SimDevice.forceResult("esv_zel_resume_deep_sleep", 0x04010600L, 1);
        assertEquals(2, CMT_System_Info_resume_deep_sleep(h, null, 3));
    }

    @Test
    void saveModeProhibitionTracesAFailureAtLevelZero() {
        assertEquals(0, CMT_System_Info_set_energy_save_prohibition_mode(h, null, true));
        assertTrue(SimCommon.saveModeProhibited());
        assertEquals("1", SimDevice.calls("esv_zel_request_save_mode_prohibition")[0]);
        assertFalse(CMT_System_Info_request_energy_saving_mode(h, null, 1));
        SimDevice.clearTrace();
        SimDevice.forceResult("esv_zel_request_save_mode_prohibition", ERROR, 1);
        assertEquals(2, CMT_System_Info_set_energy_save_prohibition_mode(h, null, false));
        assertEquals(List.of("3 convert_retcode,ESV_ZEL_SYSINFO_ERROR",
                             "0 set_energy_save_prohibition_mode,flag = [0], result = [67175682]"), trace());
        assertEquals(0, CMT_System_Info_set_energy_save_prohibition_mode(h, null, false));
        assertFalse(SimCommon.saveModeProhibited());
        assertEquals("0", SimDevice.calls("esv_zel_request_save_mode_prohibition")[2]);
    }

    @Test
    void certificateCheckIsTrueOnlyForOne() {
        SimCommon.setCertAnswer("/certs/yes", 1);
        SimCommon.setCertAnswer("/certs/unsure", 2);
        assertTrue(CMT_System_Info_check_eweb_cert_info(h, null, "/certs/yes"));
        assertFalse(CMT_System_Info_check_eweb_cert_info(h, null, "/certs/unsure"));
        assertFalse(CMT_System_Info_check_eweb_cert_info(h, null, "/certs/none"));
        assertFalse(CMT_System_Info_check_eweb_cert_info(h, null, null));
        assertEquals("null", SimDevice.calls("esv_zel_check_eweb_cert_info")[3]);
        SimDevice.forceResult("esv_zel_check_eweb_cert_info", 1, 1);
        assertTrue(CMT_System_Info_check_eweb_cert_info(h, null, null));
        assertEquals(List.of(), trace());
    }

    @Test
    void panelResetTimerReturnsTwoForThePermissionCode() {
        assertEquals(0, CMT_System_Info_panel_reset_timer_ctrl(h, null, 4, 1));
        assertEquals(1, SimPanel.resetTimer(4));
        assertEquals(List.of(), trace());
        SimDevice.forceResult("esv_zel_panel_reset_timer_ctrl", COMPETENCE, 1);
        assertEquals(2, CMT_System_Info_panel_reset_timer_ctrl(h, null, 4, 0));
        assertEquals(List.of("0 panel_reset_timer_ctrl,panel_reset_timer_ctrl: ZEL_FND_SYSINFO_ERROR. rc = [67175681]"), trace());
        assertEquals(1, SimPanel.resetTimer(4));
        assertEquals(0, CMT_System_Info_panel_reset_timer_ctrl(h, null, 0xFFFFFFFFL, 2));
        assertEquals("4294967295, 2", SimDevice.calls("esv_zel_panel_reset_timer_ctrl")[2]);
    }

    @Test
    void recordsAreZeroFilledAndKeepTheLowByte() {
        long p = new_ESV_ZEL_PAPER_INFO();
        assertEquals(0, ESV_ZEL_PAPER_INFO_paper_remain_get(p, null));
        assertEquals(0, ESV_ZEL_PAPER_INFO_paper_size_get(p, null));
        assertEquals(0, ESV_ZEL_PAPER_INFO_paper_direction_get(p, null));
        assertEquals(0, ESV_ZEL_PAPER_INFO_paper_kind_get(p, null));
        ESV_ZEL_PAPER_INFO_paper_remain_set(p, null, (short) 300);
        ESV_ZEL_PAPER_INFO_paper_size_set(p, null, (short) -1);
        ESV_ZEL_PAPER_INFO_paper_direction_set(p, null, (short) 255);
        ESV_ZEL_PAPER_INFO_paper_kind_set(p, null, (short) 128);
        assertEquals(44, ESV_ZEL_PAPER_INFO_paper_remain_get(p, null));
        assertEquals(255, ESV_ZEL_PAPER_INFO_paper_size_get(p, null));
        assertEquals(255, ESV_ZEL_PAPER_INFO_paper_direction_get(p, null));
        assertEquals(128, ESV_ZEL_PAPER_INFO_paper_kind_get(p, null));
        delete_ESV_ZEL_PAPER_INFO(p);
        long c = new_ESV_ZEL_COUNT_INFO();
        assertEquals(0, ESV_ZEL_COUNT_INFO_count_kind_get(c, null));
        assertEquals(0, ESV_ZEL_COUNT_INFO_paper_size_get(c, null));
        assertEquals(0, ESV_ZEL_COUNT_INFO_color_info_get(c, null));
        ESV_ZEL_COUNT_INFO_count_kind_set(c, null, (short) 1);
        ESV_ZEL_COUNT_INFO_paper_size_set(c, null, (short) 2);
        ESV_ZEL_COUNT_INFO_color_info_set(c, null, (short) 0x1FF);
        assertEquals(1, ESV_ZEL_COUNT_INFO_count_kind_get(c, null));
        assertEquals(2, ESV_ZEL_COUNT_INFO_paper_size_get(c, null));
        assertEquals(255, ESV_ZEL_COUNT_INFO_color_info_get(c, null));
        delete_ESV_ZEL_COUNT_INFO(c);
    }

    @Test
    void sizeConstants() {
        int[] expected = {193, 193, 65, 129, 65, 65, 65, 129, 129, 129, 33, 21, 21, 193, 193, 193, 129, 129, 193, 129, 256, 17,
                          1531, 1531};
        int[] actual = {ESV_ZEL_MAX_ADDRESS_NAME_SIZE_get(), ESV_ZEL_MAX_ADDRESS_KANA_SIZE_get(), ESV_ZEL_MAX_FTP_HOST_SIZE_get(),
                        ESV_ZEL_MAX_FTP_PATH_SIZE_get(), ESV_ZEL_MAX_FTP_LOGIN_NAME_SIZE_get(),
                        ESV_ZEL_MAX_FTP_LOGIN_PW_SIZE_get(), ESV_ZEL_MAX_SMB_HOST_SIZE_get(), ESV_ZEL_MAX_SMB_PATH_SIZE_get(),
                        ESV_ZEL_MAX_SMB_LOGIN_NAME_SIZE_get(), ESV_ZEL_MAX_SMB_LOGIN_PW_SIZE_get(), ESV_ZEL_MAX_FAX_SIZE_get(),
                        ESV_ZEL_MAX_FAX_COOD_SIZE_get(), ESV_ZEL_MAX_FAX_COOD_PW_SIZE_get(),
                        ESV_ZEL_MAX_SEND_SHEET_NAME_SIZE_get(), ESV_ZEL_MAX_SEND_SHEET_CNP_SIZE_get(),
                        ESV_ZEL_MAX_SEND_SHEET_POST_SIZE_get(), ESV_ZEL_MAX_I_FAX_SIZE_get(), ESV_ZEL_MAX_E_MAIL_SIZE_get(),
                        ESV_ZEL_MAX_BOX_NAME_get(), ESV_ZEL_MAX_BOX_OWNER_NAME_get(), ESV_ZEL_MAX_DOC_NAME_get(),
                        ESV_ZEL_MAX_BOX_PASSWORD_get(), ESV_ZEL_MAX_NODE_NAME_get(), ESV_ZEL_MAX_ACCESS_PATH_SIZE_get()};
        assertArrayEquals(expected, actual);
    }

    @Test
    void theGeneratedProxyClassReachesTheSameObject() {
        CMT_System_Info info = new CMT_System_Info();
        assertFalse(info.get_result());
        assertEquals(2, info.get_retcode());
        SimSystem.setText(3, "via proxy");
        assertEquals("via proxy", info.get_string_value(3));
        assertTrue(info.get_result());
        info.delete();
    }
}
