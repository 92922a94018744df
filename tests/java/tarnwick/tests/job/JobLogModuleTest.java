package tarnwick.tests.job;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static tarnwick.tests.job.RecordFields.f;

import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.extension.RegisterExtension;
import tarnwick.sim.SimDevice;
import tarnwick.tests.support.SimDeviceExtension;
import tarnwick.zel.wrapper.job.log.zel_fnd_job_log_moduleJNI;

/** The job log module's records and exception messages. */
class JobLogModuleTest {
    @RegisterExtension
    static final SimDeviceExtension device = new SimDeviceExtension(false);

    private final RecordFields r = new RecordFields(zel_fnd_job_log_moduleJNI.class);

    @Test
    void everyRecordFieldSetAndGet() {
        r.checkAll("ESV_ZEL_JOBINFO_JOBLOG", f("receipt_id", "u32"), f("result", "i32"), f("result_err", "i32"),
                   f("received_time", "u32"), f("end_time", "u32"), f("user_name", "s257"), f("job_log_type", "i32"),
                   f("job_name", "s257"), f("login_name", "s193"), f("input_attribute", "u8"), f("output_attribute", "u8"),
                   f("original_page_number", "u16"), f("copies", "u16"), f("completed_copies", "u16"),
                   f("print_completion_page_number", "u16"), f("scan_type", "i32"), f("start_time", "u32"),
                   f("dept_code", "s9"), f("total_time", "u32"), f("total_page_number", "u16"), f("receive_num", "u32"),
                   f("send_num", "u32"));
        r.checkAll("ESV_ZEL_JOBINFO_SEND_INFO_MAIL", f("mail_address", "s129"));
        r.checkAll("ESV_ZEL_JOBINFO_SEND_INFO_I_FAX", f("i_fax_address", "s129"));
        r.checkAll("ESV_ZEL_JOBINFO_SEND_INFO_FAX", f("fax_no", "s65"), f("port_no", "i32"), f("time", "u32"), f("page_number", "u16"));
        r.checkAll("ESV_ZEL_JOBINFO_SEND_INFO_PC", f("host_name", "s65"));
        r.checkAll("ESV_ZEL_JOBINFO_SEND_INFO_DETAIL", f("mail", "rec:ESV_ZEL_JOBINFO_SEND_INFO_MAIL"),
                   f("i_fax", "rec:ESV_ZEL_JOBINFO_SEND_INFO_I_FAX"), f("fax", "rec:ESV_ZEL_JOBINFO_SEND_INFO_FAX"),
                   f("pc", "rec:ESV_ZEL_JOBINFO_SEND_INFO_PC"));
        r.checkAll("ESV_ZEL_JOBINFO_SEND_INFO", f("category", "i32"), f("result", "i32"), f("result_err", "i32"),
                   f("destination_name", "s258"),
                   f("detail", "rec:ESV_ZEL_JOBINFO_SEND_INFO_DETAIL@fax:ESV_ZEL_JOBINFO_SEND_INFO_FAX"));
        r.checkAll("ESV_ZEL_JOBINFO_RECEIVE_INFO_MAIL", f("mail_address", "s129"));
        r.checkAll("ESV_ZEL_JOBINFO_RECEIVE_INFO_I_FAX", f("i_fax_address", "s129"));
        r.checkAll("ESV_ZEL_JOBINFO_RECEIVE_INFO_FAX", f("destination_name", "s194"), f("fax_no", "s65"), f("port_no", "i32"),
                   f("result", "i32"), f("result_err", "i32"), f("time", "u32"));
        r.checkAll("ESV_ZEL_JOBINFO_RECEIVE_INFO_PC", f("host_name", "s65"));
        r.checkAll("ESV_ZEL_JOBINFO_RECEIVE_INFO_DETAIL", f("mail", "rec:ESV_ZEL_JOBINFO_RECEIVE_INFO_MAIL"),
                   f("i_fax", "rec:ESV_ZEL_JOBINFO_RECEIVE_INFO_I_FAX"), f("fax", "rec:ESV_ZEL_JOBINFO_RECEIVE_INFO_FAX"),
                   f("pc", "rec:ESV_ZEL_JOBINFO_RECEIVE_INFO_PC"));
        r.checkAll("ESV_ZEL_JOBINFO_RECEIVE_INFO", f("category", "i32"),
                   f("detail", "rec:ESV_ZEL_JOBINFO_RECEIVE_INFO_DETAIL@pc:ESV_ZEL_JOBINFO_RECEIVE_INFO_PC"));
        r.checkAll("ESV_ZEL_JOB_STATE", f("state", "i32"), f("user_job_id", "u32"), f("result", "i32"), f("job_mode", "u16"),
                   f("user_name", "s257"), f("input_box_id", "u32"), f("output_box_id", "u32"), f("form_box_id", "u32"),
                   f("in_dev", "u8"), f("out_dev", "u8"), f("sys_info_user_job_id", "u32"));
    }

    @Test
    void textFieldEdges() {
        long log = zel_fnd_job_log_moduleJNI.new_ESV_ZEL_JOBINFO_JOBLOG();
        zel_fnd_job_log_moduleJNI.ESV_ZEL_JOBINFO_JOBLOG_dept_code_set(log, null, "ABCDEFGHIJKL");
        assertEquals("ABCDEFGH", zel_fnd_job_log_moduleJNI.ESV_ZEL_JOBINFO_JOBLOG_dept_code_get(log, null));
        zel_fnd_job_log_moduleJNI.delete_ESV_ZEL_JOBINFO_JOBLOG(log);
        long send = zel_fnd_job_log_moduleJNI.new_ESV_ZEL_JOBINFO_SEND_INFO();
        zel_fnd_job_log_moduleJNI.ESV_ZEL_JOBINFO_SEND_INFO_destination_name_set(send, null, RecordFields.text(300));
        assertEquals(257, zel_fnd_job_log_moduleJNI.ESV_ZEL_JOBINFO_SEND_INFO_destination_name_get(send, null).length());
        zel_fnd_job_log_moduleJNI.delete_ESV_ZEL_JOBINFO_SEND_INFO(send);
        long fax = zel_fnd_job_log_moduleJNI.new_ESV_ZEL_JOBINFO_RECEIVE_INFO_FAX();
        zel_fnd_job_log_moduleJNI.ESV_ZEL_JOBINFO_RECEIVE_INFO_FAX_destination_name_set(fax, null, RecordFields.text(300));
        assertEquals(193, zel_fnd_job_log_moduleJNI.ESV_ZEL_JOBINFO_RECEIVE_INFO_FAX_destination_name_get(fax, null).length());
        zel_fnd_job_log_moduleJNI.delete_ESV_ZEL_JOBINFO_RECEIVE_INFO_FAX(fax);
    }

    /** Each record parameter given null: NullPointerException with the record's message, and no facade call. */
    static void assertNullRecordsThrow(long p, long id, int type) {
        NullPointerException e = assertThrows(NullPointerException.class,
            () -> zel_fnd_job_log_moduleJNI.zel_fnd_job_log_proxy_retrieve_joblog(p, null, id, type, 0, null));
        assertEquals("ESV_ZEL_JOBINFO_JOBLOG & reference is null", e.getMessage());
        e = assertThrows(NullPointerException.class, () -> zel_fnd_job_log_moduleJNI.zel_fnd_job_log_proxy_get_send_info(p, null, 0, null));
        assertEquals("ESV_ZEL_JOBINFO_SEND_INFO & reference is null", e.getMessage());
        e = assertThrows(NullPointerException.class, () -> zel_fnd_job_log_moduleJNI.zel_fnd_job_log_proxy_get_receive_info(p, null, 0, null));
        assertEquals("ESV_ZEL_JOBINFO_RECEIVE_INFO & reference is null", e.getMessage());
        assertEquals(0, SimDevice.allCalls().length);
    }

    @Test
    void nullRecordsThrowAndTheProxyIsNotCalled() {
        SimDevice.reset();
        long p = zel_fnd_job_log_moduleJNI.new_zel_fnd_job_log_proxy();
        assertNullRecordsThrow(p, 1, 0);
        SimDevice.forceResult("esv_zel_jobinfo_delete_send_info_list", 0x0401000AL, 1);
        assertEquals(1, zel_fnd_job_log_moduleJNI.zel_fnd_job_log_proxy_delete_send_info_list(p, null));
        SimDevice.forceResult("esv_zel_jobinfo_delete_receive_info_list", 0x04010004L, 1);
        assertEquals(4, zel_fnd_job_log_moduleJNI.zel_fnd_job_log_proxy_delete_receive_info_list(p, null));
        assertEquals(1, SimDevice.traceContaining("convert_retcode,rc = ESV_ZEL_JOBINFO_PARAM_ERROR.").size());
        zel_fnd_job_log_moduleJNI.delete_zel_fnd_job_log_proxy(p);
        zel_fnd_job_log_moduleJNI.delete_zel_fnd_job_log_proxy(0);
    }
}
