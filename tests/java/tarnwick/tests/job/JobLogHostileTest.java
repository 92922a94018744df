package tarnwick.tests.job;

import static org.junit.jupiter.api.Assertions.assertArrayEquals;
import static org.junit.jupiter.api.Assertions.assertEquals;

import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.extension.RegisterExtension;
import tarnwick.sim.SimDevice;
import tarnwick.sim.SimJobs;
import tarnwick.tests.support.SimDeviceExtension;
import tarnwick.zel.wrapper.job.log.zel_fnd_job_log_moduleJNI;

/**
 * Hostile calls into the job log module: null records, huge and negative ids and types, texts
 * far longer than their fields.
 *
 * Left out on purpose: member calls on the null handle and on a deleted (stale) handle, which
 * the wrapper layer does not test; such a call is the caller's fault.
 */
class JobLogHostileTest {
    @RegisterExtension
    static final SimDeviceExtension device = new SimDeviceExtension(false);

    @Test
    void nullRecordsThrowAndTheFacadeIsNotCalled() {
        SimDevice.reset();
        SimJobs.reset();
        long p = zel_fnd_job_log_moduleJNI.new_zel_fnd_job_log_proxy();
        JobLogModuleTest.assertNullRecordsThrow(p, -1L, Integer.MIN_VALUE);
        zel_fnd_job_log_moduleJNI.delete_zel_fnd_job_log_proxy(p);
        zel_fnd_job_log_moduleJNI.delete_zel_fnd_job_log_proxy(0);
    }

    @Test
    void idsAndTypesReachTheFacadeAsTheDeviceTypesHoldThem() {
        SimDevice.reset();
        SimJobs.reset();
        long p = zel_fnd_job_log_moduleJNI.new_zel_fnd_job_log_proxy();
        long log = zel_fnd_job_log_moduleJNI.new_ESV_ZEL_JOBINFO_JOBLOG();
        zel_fnd_job_log_moduleJNI.zel_fnd_job_log_proxy_retrieve_joblog(p, null, -1L, Integer.MIN_VALUE, log, null);
        zel_fnd_job_log_moduleJNI.zel_fnd_job_log_proxy_create_send_info_list(p, null, (1L << 32) + 7, Integer.MAX_VALUE);
        zel_fnd_job_log_moduleJNI.zel_fnd_job_log_proxy_create_receive_info_list(p, null, Long.MIN_VALUE, -1);
        String[] retrieve = SimDevice.calls("esv_zel_jobinfo_retrieve_joblog");
        assertEquals(1, retrieve.length);
        assertEquals("4294967295, -2147483648", retrieve[0]);
        assertArrayEquals(new String[] {"7, 2147483647"}, SimDevice.calls("esv_zel_jobinfo_create_send_info_list"));
        assertArrayEquals(new String[] {"0, -1"}, SimDevice.calls("esv_zel_jobinfo_create_receive_info_list"));
        zel_fnd_job_log_moduleJNI.zel_fnd_job_log_proxy_delete_send_info_list(p, null);
        zel_fnd_job_log_moduleJNI.zel_fnd_job_log_proxy_delete_receive_info_list(p, null);
        zel_fnd_job_log_moduleJNI.delete_ESV_ZEL_JOBINFO_JOBLOG(log);
        zel_fnd_job_log_moduleJNI.delete_zel_fnd_job_log_proxy(p);
    }

    @Test
    void veryLongTextsAreCutToTheirFields() {
        String huge = "z".repeat(1 << 20);
        long log = zel_fnd_job_log_moduleJNI.new_ESV_ZEL_JOBINFO_JOBLOG();
        zel_fnd_job_log_moduleJNI.ESV_ZEL_JOBINFO_JOBLOG_dept_code_set(log, null, huge);
        assertEquals("zzzzzzzz", zel_fnd_job_log_moduleJNI.ESV_ZEL_JOBINFO_JOBLOG_dept_code_get(log, null));
        zel_fnd_job_log_moduleJNI.ESV_ZEL_JOBINFO_JOBLOG_dept_code_set(log, null, null);
        assertEquals("", zel_fnd_job_log_moduleJNI.ESV_ZEL_JOBINFO_JOBLOG_dept_code_get(log, null));
        zel_fnd_job_log_moduleJNI.delete_ESV_ZEL_JOBINFO_JOBLOG(log);

        long send = zel_fnd_job_log_moduleJNI.new_ESV_ZEL_JOBINFO_SEND_INFO();
        zel_fnd_job_log_moduleJNI.ESV_ZEL_JOBINFO_SEND_INFO_destination_name_set(send, null, huge);
        assertEquals(257, zel_fnd_job_log_moduleJNI.ESV_ZEL_JOBINFO_SEND_INFO_destination_name_get(send, null).length());
        zel_fnd_job_log_moduleJNI.delete_ESV_ZEL_JOBINFO_SEND_INFO(send);

        long fax = zel_fnd_job_log_moduleJNI.new_ESV_ZEL_JOBINFO_RECEIVE_INFO_FAX();
        zel_fnd_job_log_moduleJNI.ESV_ZEL_JOBINFO_RECEIVE_INFO_FAX_destination_name_set(fax, null, huge);
        assertEquals(193, zel_fnd_job_log_moduleJNI.ESV_ZEL_JOBINFO_RECEIVE_INFO_FAX_destination_name_get(fax, null).length());
        zel_fnd_job_log_moduleJNI.delete_ESV_ZEL_JOBINFO_RECEIVE_INFO_FAX(fax);
    }

    @Test
    void deletingTheNullHandleDoesNothing() {
        zel_fnd_job_log_moduleJNI.delete_ESV_ZEL_JOBINFO_JOBLOG(0);
        zel_fnd_job_log_moduleJNI.delete_ESV_ZEL_JOBINFO_SEND_INFO(0);
        zel_fnd_job_log_moduleJNI.delete_ESV_ZEL_JOBINFO_RECEIVE_INFO(0);
        zel_fnd_job_log_moduleJNI.delete_ESV_ZEL_JOB_STATE(0);
    }
}
