package tarnwick.tests.job;

import static org.junit.jupiter.api.Assertions.assertArrayEquals;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static tarnwick.tests.job.RecordFields.f;

import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.extension.RegisterExtension;
import tarnwick.sim.SimDevice;
import tarnwick.sim.SimJobs;
import tarnwick.tests.support.SimDeviceExtension;
import tarnwick.zel.wrapper.job.zel_fnd_job_moduleJNI;

/** The job module's records, list type, constants and every exception message it raises. */
class JobModuleTest {
    @RegisterExtension
    static final SimDeviceExtension device = new SimDeviceExtension(false);

    private final RecordFields r = new RecordFields(zel_fnd_job_moduleJNI.class);

    @Test
    void everyRecordFieldSetAndGet() {
        r.checkAll("ESV_ZEL_JOB_STATE", f("state", "i32"), f("user_job_id", "u32"), f("result", "i32"), f("job_mode", "u16"),
                   f("user_name", "s257"), f("input_box_id", "u32"), f("output_box_id", "u32"), f("form_box_id", "u32"),
                   f("in_dev", "u8"), f("out_dev", "u8"), f("sys_info_user_job_id", "u32"));
        r.checkAll("ESV_ZEL_PHB_GET_MESSAGE", f("main_msg_1", "i32"), f("main_msg_2", "i32"), f("main_msg_3", "i32"),
                   f("msg_detail_info", "int[4]"), f("msg_detail_filename", "s257"));
        r.checkAll("ESV_ZEL_JOB_SEND_INFO_FTP", f("host_name", "s65"), f("port_num", "u16"), f("path_name", "s129"),
                   f("login_user_name", "s65"), f("login_password", "s65"));
        r.checkAll("ESV_ZEL_JOB_SEND_INFO_SMB", f("host_name", "s65"), f("port_num", "u16"), f("path_name", "s129"),
                   f("login_user_name", "s129"), f("login_password", "s129"));
        r.checkAll("ESV_ZEL_JOB_SEND_INFO_MAIL", f("address_type", "i32"), f("mail_address", "s129"));
        r.checkAll("ESV_ZEL_JOB_SEND_INFO_FAX", f("fax_number", "s65"), f("sub_address", "s21"), f("sub_address_password", "s21"),
                   f("comrate", "i32"), f("ecm", "i32"), f("cipher", "i32"), f("encryption_key_id", "u8"));
        r.checkAll("ESV_ZEL_JOB_SEND_INFO_DETAIL", f("ftp_info", "rec:ESV_ZEL_JOB_SEND_INFO_FTP"),
                   f("smb_info", "rec:ESV_ZEL_JOB_SEND_INFO_SMB"), f("mail_info", "rec:ESV_ZEL_JOB_SEND_INFO_MAIL"),
                   f("fax_info", "rec:ESV_ZEL_JOB_SEND_INFO_FAX"));
        r.checkAll("ESV_ZEL_JOB_SEND_INFO", f("address_type", "i32"),
                   f("detail", "rec:ESV_ZEL_JOB_SEND_INFO_DETAIL@ftp_info:ESV_ZEL_JOB_SEND_INFO_FTP"));
        r.checkAll("ESV_ZEL_BOX_JOB_INIT_SETTING", f("box_job_type", "i32"), f("box_id", "u32"), f("doc_id", "u32"),
                   f("box_pass", "s17"), f("access_path", "s1531"), f("doc_pass", "s5"));
        String[] disable = {"setting_id", "original_image", "original_dir", "original_mixed", "original_duplex", "color_mode",
                            "file_format", "scn_resolution", "original_size", "combine_setting", "paper_source_setting",
                            "zoom_mode", "pdf_a_level"};
        String[][] d = new String[disable.length][];
        for (int i = 0; i < disable.length; ++i) d[i] = f(disable[i], "u32");
        r.checkAll("ESV_ZEL_PHB_INFO_DISABLE", d);
        String[] afterward = {"setting_id", "original_image", "original_dir", "file_format", "scn_resolution", "feeder",
                              "zoom_mode", "pdf_a_level"};
        String[][] a = new String[afterward.length][];
        for (int i = 0; i < afterward.length; ++i) a[i] = f(afterward[i], "u32");
        r.checkAll("ESV_ZEL_PHB_INFO_AFTERWARD", a);
        r.checkAll("ESV_ZEL_PHB_INFO_DETAIL", f("disable_info", "rec:ESV_ZEL_PHB_INFO_DISABLE"),
                   f("afterward_info", "rec:ESV_ZEL_PHB_INFO_AFTERWARD"), f("start_info", "bool"));
        r.checkAll("ESV_ZEL_PHB_INFO", f("phb_type", "i32"), f("phb_info_detail", "rec:ESV_ZEL_PHB_INFO_DETAIL"));
        r.checkAll("ESV_ZEL_PHB_COMBINE_DOC_INFO", f("box_id", "u32"), f("box_pass", "s17"), f("in_doc_id_parent", "u32"),
                   f("in_doc_id_child", "u32"), f("out_doc_name", "s257"));
        r.checkAll("ESV_ZEL_JOB_GET_SCAN_DATA", f("scan_data", "s4096"), f("data_size", "u32"), f("doc_state", "i32"));
    }

    @Test
    void msgDetailInfoOfWrongLengthThrowsAndLeavesTheRecord() {
        long h = zel_fnd_job_moduleJNI.new_ESV_ZEL_PHB_GET_MESSAGE();
        zel_fnd_job_moduleJNI.ESV_ZEL_PHB_GET_MESSAGE_msg_detail_info_set(h, null, new int[] {5, 6, 7, 8});
        for (int[] wrong : new int[][] {{1, 2, 3}, {1, 2, 3, 4, 5}}) {
            IndexOutOfBoundsException e = assertThrows(IndexOutOfBoundsException.class,
                () -> zel_fnd_job_moduleJNI.ESV_ZEL_PHB_GET_MESSAGE_msg_detail_info_set(h, null, wrong));
            assertEquals("incorrect array size", e.getMessage());
        }
        assertArrayEquals(new int[] {5, 6, 7, 8}, zel_fnd_job_moduleJNI.ESV_ZEL_PHB_GET_MESSAGE_msg_detail_info_get(h, null));
        NullPointerException n = assertThrows(NullPointerException.class,
            () -> zel_fnd_job_moduleJNI.ESV_ZEL_PHB_GET_MESSAGE_msg_detail_info_set(h, null, null));
        assertEquals("null array", n.getMessage());
        zel_fnd_job_moduleJNI.delete_ESV_ZEL_PHB_GET_MESSAGE(h);
    }

    @Test
    void textFieldEdges() {
        long fax = zel_fnd_job_moduleJNI.new_ESV_ZEL_JOB_SEND_INFO_FAX();
        String thirty = "123456789012345678901234567890";
        zel_fnd_job_moduleJNI.ESV_ZEL_JOB_SEND_INFO_FAX_sub_address_set(fax, null, thirty);
        assertEquals(thirty.substring(0, 20), zel_fnd_job_moduleJNI.ESV_ZEL_JOB_SEND_INFO_FAX_sub_address_get(fax, null));
        zel_fnd_job_moduleJNI.delete_ESV_ZEL_JOB_SEND_INFO_FAX(fax);
        long box = zel_fnd_job_moduleJNI.new_ESV_ZEL_BOX_JOB_INIT_SETTING();
        zel_fnd_job_moduleJNI.ESV_ZEL_BOX_JOB_INIT_SETTING_access_path_set(box, null, RecordFields.text(2000));
        assertEquals(1530, zel_fnd_job_moduleJNI.ESV_ZEL_BOX_JOB_INIT_SETTING_access_path_get(box, null).length());
        zel_fnd_job_moduleJNI.delete_ESV_ZEL_BOX_JOB_INIT_SETTING(box);
    }

    @Test
    void startInfoTrueReadsAsOneThroughAfterward() {
        long d = zel_fnd_job_moduleJNI.new_ESV_ZEL_PHB_INFO_DETAIL();
        zel_fnd_job_moduleJNI.ESV_ZEL_PHB_INFO_DETAIL_start_info_set(d, null, true);
        assertEquals(true, zel_fnd_job_moduleJNI.ESV_ZEL_PHB_INFO_DETAIL_start_info_get(d, null));
        long after = zel_fnd_job_moduleJNI.ESV_ZEL_PHB_INFO_DETAIL_afterward_info_get(d, null);
        assertEquals(1L, zel_fnd_job_moduleJNI.ESV_ZEL_PHB_INFO_AFTERWARD_setting_id_get(after, null));
        zel_fnd_job_moduleJNI.delete_ESV_ZEL_PHB_INFO_DETAIL(d);
    }

    @Test
    void vectorl() {
        long v = zel_fnd_job_moduleJNI.new_vectorl__SWIG_1(3);
        assertEquals(3L, zel_fnd_job_moduleJNI.vectorl_size(v, null));
        for (int i = 0; i < 3; ++i) assertEquals(0L, zel_fnd_job_moduleJNI.vectorl_get(v, null, i));
        zel_fnd_job_moduleJNI.vectorl_add(v, null, 4000000000L);
        assertEquals(4000000000L, zel_fnd_job_moduleJNI.vectorl_get(v, null, 3));
        zel_fnd_job_moduleJNI.vectorl_set(v, null, 0, 9);
        assertEquals(9L, zel_fnd_job_moduleJNI.vectorl_get(v, null, 0));
        for (int bad : new int[] {-1, 4}) {
            IndexOutOfBoundsException e = assertThrows(IndexOutOfBoundsException.class,
                () -> zel_fnd_job_moduleJNI.vectorl_get(v, null, bad));
            assertEquals("vector index out of range", e.getMessage());
            e = assertThrows(IndexOutOfBoundsException.class, () -> zel_fnd_job_moduleJNI.vectorl_set(v, null, bad, 1));
            assertEquals("vector index out of range", e.getMessage());
        }
        zel_fnd_job_moduleJNI.vectorl_reserve(v, null, 50);
        assertEquals(true, zel_fnd_job_moduleJNI.vectorl_capacity(v, null) >= 50);
        assertEquals(false, zel_fnd_job_moduleJNI.vectorl_isEmpty(v, null));
        zel_fnd_job_moduleJNI.vectorl_clear(v, null);
        assertEquals(true, zel_fnd_job_moduleJNI.vectorl_isEmpty(v, null));
        zel_fnd_job_moduleJNI.delete_vectorl(v);
        long e = zel_fnd_job_moduleJNI.new_vectorl__SWIG_0();
        assertEquals(0L, zel_fnd_job_moduleJNI.vectorl_size(e, null));
        zel_fnd_job_moduleJNI.delete_vectorl(e);
        zel_fnd_job_moduleJNI.delete_vectorl(0);
    }

    @Test
    void sizeConstants() {
        assertEquals(65L, zel_fnd_job_moduleJNI.ESV_ZEL_JOB_FTP_HOST_NAME_SIZE_get());
        assertEquals(129L, zel_fnd_job_moduleJNI.ESV_ZEL_JOB_FTP_PATH_NAME_SIZE_get());
        assertEquals(65L, zel_fnd_job_moduleJNI.ESV_ZEL_JOB_FTP_USER_NAME_SIZE_get());
        assertEquals(65L, zel_fnd_job_moduleJNI.ESV_ZEL_JOB_FTP_PASSWORD_SIZE_get());
        assertEquals(65L, zel_fnd_job_moduleJNI.ESV_ZEL_JOB_SMB_HOST_NAME_SIZE_get());
        assertEquals(129L, zel_fnd_job_moduleJNI.ESV_ZEL_JOB_SMB_PATH_NAME_SIZE_get());
        assertEquals(129L, zel_fnd_job_moduleJNI.ESV_ZEL_JOB_SMB_USER_NAME_SIZE_get());
        assertEquals(129L, zel_fnd_job_moduleJNI.ESV_ZEL_JOB_SMB_PASSWORD_SIZE_get());
        assertEquals(129L, zel_fnd_job_moduleJNI.ESV_ZEL_JOB_MAIL_ADDRESS_SIZE_get());
        assertEquals(100L, zel_fnd_job_moduleJNI.ESV_ZEL_JOB_ADDRESS_LIST_NUM_get());
        assertEquals(65L, zel_fnd_job_moduleJNI.ESV_ZEL_JOB_FAX_NUMBER_SIZE_get());
        assertEquals(21L, zel_fnd_job_moduleJNI.ESV_ZEL_JOB_SUB_ADDRESS_SIZE_get());
        assertEquals(21L, zel_fnd_job_moduleJNI.ESV_ZEL_JOB_SUB_ADDRESS_PASSWORD_SIZE_get());
        assertEquals(1531L, zel_fnd_job_moduleJNI.ESV_ZEL_JOB_ACCESS_PATH_SIZE_get());
        assertEquals(17L, zel_fnd_job_moduleJNI.ESV_ZEL_JOB_BOX_PASS_SIZE_get());
        assertEquals(257L, zel_fnd_job_moduleJNI.ESV_ZEL_JOB_DOC_NAME_SIZE_get());
        assertEquals(257L, zel_fnd_job_moduleJNI.ESV_ZEL_JOB_JOB_FILENAME_SIZE_get());
        assertEquals(4096L, zel_fnd_job_moduleJNI.ESV_ZEL_JOB_GET_SCAN_DATA_SIZE_get());
        assertEquals(5L, zel_fnd_job_moduleJNI.ESV_ZEL_JOB_DOC_PASS_SIZE_get());
    }

    private static void npe(String message, org.junit.jupiter.api.function.Executable call) {
        NullPointerException e = assertThrows(NullPointerException.class, call);
        assertEquals(message, e.getMessage());
    }

    @Test
    void everyExceptionMessageAndTheProxyIsNotCalled() {
        SimDevice.reset();
        SimJobs.reset();
        long p = zel_fnd_job_moduleJNI.new_zel_fnd_job_proxy();
        long[] out = new long[1];
        npe("ESV_ZEL_PHB_GET_MESSAGE & reference is null", () -> zel_fnd_job_moduleJNI.zel_fnd_job_proxy_get_main_message(p, null, 1, 0, null));
        npe("ESV_ZEL_JOB_SEND_INFO & reference is null", () -> zel_fnd_job_moduleJNI.zel_fnd_job_proxy_get_send_address(p, null, 1, 1, 0, null));
        npe("ESV_ZEL_JOB_SEND_INFO const & reference is null", () -> zel_fnd_job_moduleJNI.zel_fnd_job_proxy_add_send_address(p, null, 1, out, 0, null));
        npe("ESV_ZEL_JOB_SEND_INFO const & reference is null", () -> zel_fnd_job_moduleJNI.zel_fnd_job_proxy_update_send_address(p, null, 1, 1, 0, null));
        npe("std::vector< unsigned int > & reference is null", () -> zel_fnd_job_moduleJNI.zel_fnd_job_proxy_get_send_address_id(p, null, 1, 0, null));
        npe("std::vector< unsigned int > & reference is null", () -> zel_fnd_job_moduleJNI.zel_fnd_job_proxy_get_job_list(p, null, 0, 0, null));
        npe("ESV_ZEL_BOX_JOB_INIT_SETTING & reference is null", () -> zel_fnd_job_moduleJNI.zel_fnd_job_proxy_box_job_prepare(p, null, 1, 0, null));
        npe("ESV_ZEL_PHB_COMBINE_DOC_INFO & reference is null", () -> zel_fnd_job_moduleJNI.zel_fnd_job_proxy_combine_document(p, null, 1, 0, null));
        npe("ESV_ZEL_JOB_GET_SCAN_DATA & reference is null", () -> zel_fnd_job_moduleJNI.zel_fnd_job_proxy_get_scan_data(p, null, 1, 0, null));
        npe("null std::string", () -> zel_fnd_job_moduleJNI.zel_fnd_job_proxy_set_value__SWIG_1(p, null, 1, 100, null));
        npe("array null", () -> zel_fnd_job_moduleJNI.zel_fnd_job_proxy_generate_jobinfo(p, null, 0, null));
        npe("array null", () -> zel_fnd_job_moduleJNI.zel_fnd_job_proxy_get_start_phb(p, null, 1, null));
        IndexOutOfBoundsException e = assertThrows(IndexOutOfBoundsException.class,
            () -> zel_fnd_job_moduleJNI.zel_fnd_job_proxy_create_job(p, null, 0, 1, new long[0]));
        assertEquals("Array must contain at least 1 element", e.getMessage());
        e = assertThrows(IndexOutOfBoundsException.class,
            () -> zel_fnd_job_moduleJNI.zel_fnd_job_proxy_get_disable_info(p, null, 1, 0, new int[0]));
        assertEquals("Array must contain at least 1 element", e.getMessage());
        e = assertThrows(IndexOutOfBoundsException.class,
            () -> zel_fnd_job_moduleJNI.zel_fnd_job_proxy_get_value__SWIG_2(p, null, 1, 0, new long[1], new long[0], new long[1]));
        assertEquals("Array must contain at least 1 element", e.getMessage());
        assertEquals(0, SimDevice.allCalls().length, "no facade call after a conversion failure");
        zel_fnd_job_moduleJNI.delete_zel_fnd_job_proxy(p);
        zel_fnd_job_moduleJNI.delete_zel_fnd_job_proxy(0);
    }

    @Test
    void outArraysAndPrepareTexts() {
        SimDevice.reset();
        SimJobs.reset();
        long p = zel_fnd_job_moduleJNI.new_zel_fnd_job_proxy();
        long[] id = {0};
        assertEquals(0, zel_fnd_job_moduleJNI.zel_fnd_job_proxy_generate_jobinfo(p, null, 3, id));
        assertEquals(1L, id[0]);
        int[] mask = {-1};
        assertEquals(0, zel_fnd_job_moduleJNI.zel_fnd_job_proxy_get_disable_info(p, null, id[0], 0, mask));
        assertEquals(0, mask[0]);
        boolean[] phb = {true};
        assertEquals(0, zel_fnd_job_moduleJNI.zel_fnd_job_proxy_get_start_phb(p, null, id[0], phb));
        assertEquals(false, phb[0]);
        long[] v1 = {0}, v2 = {0}, v3 = {0};
        assertEquals(0, zel_fnd_job_moduleJNI.zel_fnd_job_proxy_set_value__SWIG_2(p, null, id[0], 1, 4000000000L, 2, 3));
        assertEquals(0, zel_fnd_job_moduleJNI.zel_fnd_job_proxy_get_value__SWIG_2(p, null, id[0], 1, v1, v2, v3));
        assertArrayEquals(new long[] {4000000000L, 2, 3}, new long[] {v1[0], v2[0], v3[0]});
        // Out arrays are written after the call whatever its result.
        long[] val = {55};
        assertEquals(8, zel_fnd_job_moduleJNI.zel_fnd_job_proxy_get_value__SWIG_0(p, null, 99, 0, val));
        assertEquals(55L, val[0]);
        assertEquals("", zel_fnd_job_moduleJNI.zel_fnd_job_proxy_get_value__SWIG_1(p, null, 99, 100));
        SimDevice.clearCalls();
        // Null texts of the two prepare operations reach the facade as null pointers.
        assertEquals(8, zel_fnd_job_moduleJNI.zel_fnd_job_proxy_direct_print_prepare(p, null, id[0], null, null));
        assertEquals(8, zel_fnd_job_moduleJNI.zel_fnd_job_proxy_retrieve_document_prepare(p, null, id[0], null, 4000000000L, 2, null));
        assertArrayEquals(new String[] {"1, null, null"}, SimDevice.calls("esv_zel_job_direct_print_prepare"));
        assertArrayEquals(new String[] {"1, null, 4000000000, 2, null"}, SimDevice.calls("esv_zel_job_retrieve_document_prepare"));
        assertEquals(0, zel_fnd_job_moduleJNI.zel_fnd_job_proxy_retrieve_document_prepare(p, null, id[0], "t", 1, 2, "/box/1"));
        assertEquals(64L, zel_fnd_job_moduleJNI.zel_fnd_job_proxy_get_char_array_size(p, null, 0));
        assertEquals(128L, zel_fnd_job_moduleJNI.zel_fnd_job_proxy_get_char_array_size(p, null, 8));
        assertEquals(0L, zel_fnd_job_moduleJNI.zel_fnd_job_proxy_get_char_array_size(p, null, 9));
        assertEquals(0L, zel_fnd_job_moduleJNI.zel_fnd_job_proxy_get_char_array_size(p, null, -1));
        zel_fnd_job_moduleJNI.delete_zel_fnd_job_proxy(p);
        SimJobs.reset();
    }
}
