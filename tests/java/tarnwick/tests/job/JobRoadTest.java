package tarnwick.tests.job;

import static org.junit.jupiter.api.Assertions.assertArrayEquals;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertNotNull;
import static org.junit.jupiter.api.Assertions.assertTrue;
import static tarnwick.zel.wrapper.job.ESV_ZEL_JOB_ADDRESS_TYPE.ESV_ZEL_JOB_ADDRESS_TYPE_MAIL;
import static tarnwick.zel.wrapper.job.ESV_ZEL_JOB_CATEGORY.ESV_ZEL_JOB_CATEGORY_SCAN_SEND;
import static tarnwick.zel.wrapper.job.ESV_ZEL_JOB_PHB_CATEGORY.ESV_ZEL_JOB_PHB_CATEGORY_SEND;
import static tarnwick.zel.wrapper.job.ESV_ZEL_JOB_SETTING.ESV_ZEL_JOB_SETTING_ORIGINAL_PAGES;
import static tarnwick.zel.wrapper.job.ESV_ZEL_JOB_SETTING.ESV_ZEL_JOB_SETTING_USER_NAME;
import static tarnwick.zel.wrapper.job.log.ESV_ZEL_JOBINFO_JOBLOG_TYPE_VAL.ESV_ZEL_JOBINFO_JOBLOG_TYPE_SEND;

import java.io.ByteArrayOutputStream;
import java.util.ArrayList;
import java.util.Collections;
import java.util.List;
import org.junit.jupiter.api.BeforeEach;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.extension.RegisterExtension;
import tarnwick.sim.SimDevice;
import tarnwick.sim.SimJobs;
import tarnwick.tests.support.SimDeviceExtension;
import tarnwick.zel.controller.event.job.FaxSendPageInfo;
import tarnwick.zel.controller.event.job.Job;
import tarnwick.zel.controller.event.job.JobLogInfo;
import tarnwick.zel.controller.event.job.PrintPageInfo;
import tarnwick.zel.controller.event.job.ScanPageInfo;
import tarnwick.zel.controller.event.proxy.JobInfoProxy;
import tarnwick.zel.controller.event.proxy.JobProxy;
import tarnwick.zel.wrapper.job.log.zel_fnd_job_log_moduleJNI;
import tarnwick.zel.wrapper.job.zel_fnd_job_moduleJNI;

/**
 * The road of one job through the Java module classes, on the simulated device that runs it:
 * events arrive through the event bridge's Java proxies, scan data is read while the job runs,
 * and the job log holds the entry with its send list afterwards.
 */
class JobRoadTest {
    @RegisterExtension
    static final SimDeviceExtension device = new SimDeviceExtension();


    private final List<String> events = Collections.synchronizedList(new ArrayList<>());
    private final List<Long> receipts = Collections.synchronizedList(new ArrayList<>());
    private final JobProxy.Listener jobListener = new JobProxy.Listener() {
        @Override
        public void jobStateChanged(Job job) {
            events.add("job " + job.getJobid() + " " + job.getState() + " " + job.getUserName());
        }

        @Override
        public void scanCount(long first, long second) {
            events.add("scanCount " + first + "/" + second);
        }
    };
    private final JobInfoProxy.Listener infoListener = new JobInfoProxy.Listener() {
        @Override
        public void page(Object info) {
            if (info instanceof ScanPageInfo) {
                ScanPageInfo s = (ScanPageInfo) info;
                events.add("scanPage " + s.getUserJobId() + " " + s.getPageNum() + " " + s.getResolution());
            } else if (info instanceof PrintPageInfo) {
                events.add("printPage " + ((PrintPageInfo) info).getPageNum());
            } else if (info instanceof FaxSendPageInfo) {
                events.add("faxPage " + ((FaxSendPageInfo) info).getPageNum());
            }
        }

        @Override
        public void jobLog(JobLogInfo info) {
            events.add("jobLog " + info.getUserJobId());
            receipts.add(info.getReceiptId());
        }
    };
    private long proxy;

    @BeforeEach
    void start() {
        device.listen(JobProxy.listeners, jobListener);
        device.listen(JobInfoProxy.listeners, infoListener);
        device.startEventManager();
        proxy = device.make(zel_fnd_job_moduleJNI::new_zel_fnd_job_proxy, zel_fnd_job_moduleJNI::delete_zel_fnd_job_proxy);
    }

    /** generate, set, add an e-mail address, commit, create: the job's id. */
    private long createSendJob(long pages) {
        long[] id = {0};
        assertEquals(0, zel_fnd_job_moduleJNI.zel_fnd_job_proxy_generate_jobinfo(proxy, null, ESV_ZEL_JOB_PHB_CATEGORY_SEND, id));
        assertEquals(0, zel_fnd_job_moduleJNI.zel_fnd_job_proxy_set_value__SWIG_0(proxy, null, id[0], ESV_ZEL_JOB_SETTING_ORIGINAL_PAGES, pages));
        assertEquals(0, zel_fnd_job_moduleJNI.zel_fnd_job_proxy_set_value__SWIG_1(proxy, null, id[0], ESV_ZEL_JOB_SETTING_USER_NAME, "alice"));
        long info = zel_fnd_job_moduleJNI.new_ESV_ZEL_JOB_SEND_INFO();
        zel_fnd_job_moduleJNI.ESV_ZEL_JOB_SEND_INFO_address_type_set(info, null, ESV_ZEL_JOB_ADDRESS_TYPE_MAIL);
        long detail = zel_fnd_job_moduleJNI.ESV_ZEL_JOB_SEND_INFO_detail_get(info, null);
        long mail = zel_fnd_job_moduleJNI.ESV_ZEL_JOB_SEND_INFO_DETAIL_mail_info_get(detail, null);
        zel_fnd_job_moduleJNI.ESV_ZEL_JOB_SEND_INFO_MAIL_mail_address_set(mail, null, "alice@example.com");
        long[] addressId = {0};
        assertEquals(0, zel_fnd_job_moduleJNI.zel_fnd_job_proxy_add_send_address(proxy, null, id[0], addressId, info, null));
        assertEquals(1L, addressId[0]);
        zel_fnd_job_moduleJNI.delete_ESV_ZEL_JOB_SEND_INFO(info);
        long ids = zel_fnd_job_moduleJNI.new_vectorl__SWIG_0();
        assertEquals(0, zel_fnd_job_moduleJNI.zel_fnd_job_proxy_get_send_address_id(proxy, null, id[0], ids, null));
        assertEquals(1L, zel_fnd_job_moduleJNI.vectorl_size(ids, null));
        zel_fnd_job_moduleJNI.delete_vectorl(ids);
        assertEquals(0, zel_fnd_job_moduleJNI.zel_fnd_job_proxy_commit_jobinfo(proxy, null, id[0]));
        long[] uid = {0};
        assertEquals(0, zel_fnd_job_moduleJNI.zel_fnd_job_proxy_create_job(proxy, null, ESV_ZEL_JOB_CATEGORY_SCAN_SEND, id[0], uid));
        assertEquals(101L, uid[0]);
        events.clear();
        return uid[0];
    }

    private long readLog(long receipt, int expectedResult) {
        long logProxy = zel_fnd_job_log_moduleJNI.new_zel_fnd_job_log_proxy();
        long log = zel_fnd_job_log_moduleJNI.new_ESV_ZEL_JOBINFO_JOBLOG();
        assertEquals(0, zel_fnd_job_log_moduleJNI.zel_fnd_job_log_proxy_retrieve_joblog(logProxy, null, receipt, ESV_ZEL_JOBINFO_JOBLOG_TYPE_SEND, log, null));
        assertEquals(receipt, zel_fnd_job_log_moduleJNI.ESV_ZEL_JOBINFO_JOBLOG_receipt_id_get(log, null));
        assertEquals(expectedResult, zel_fnd_job_log_moduleJNI.ESV_ZEL_JOBINFO_JOBLOG_result_get(log, null));
        assertEquals("alice", zel_fnd_job_log_moduleJNI.ESV_ZEL_JOBINFO_JOBLOG_user_name_get(log, null));
        long sends = zel_fnd_job_log_moduleJNI.ESV_ZEL_JOBINFO_JOBLOG_send_num_get(log, null);
        assertEquals(1L, sends);
        assertEquals(0, zel_fnd_job_log_moduleJNI.zel_fnd_job_log_proxy_create_send_info_list(logProxy, null, receipt, ESV_ZEL_JOBINFO_JOBLOG_TYPE_SEND));
        long send = zel_fnd_job_log_moduleJNI.new_ESV_ZEL_JOBINFO_SEND_INFO();
        for (long i = 0; i < sends; ++i) {
            assertEquals(0, zel_fnd_job_log_moduleJNI.zel_fnd_job_log_proxy_get_send_info(logProxy, null, send, null));
        }
        assertEquals(0, zel_fnd_job_log_moduleJNI.ESV_ZEL_JOBINFO_SEND_INFO_category_get(send, null));
        assertEquals(expectedResult, zel_fnd_job_log_moduleJNI.ESV_ZEL_JOBINFO_SEND_INFO_result_get(send, null));
        long detail = zel_fnd_job_log_moduleJNI.ESV_ZEL_JOBINFO_SEND_INFO_detail_get(send, null);
        long mail = zel_fnd_job_log_moduleJNI.ESV_ZEL_JOBINFO_SEND_INFO_DETAIL_mail_get(detail, null);
        assertEquals("alice@example.com", zel_fnd_job_log_moduleJNI.ESV_ZEL_JOBINFO_SEND_INFO_MAIL_mail_address_get(mail, null));
        assertEquals(6, zel_fnd_job_log_moduleJNI.zel_fnd_job_log_proxy_get_send_info(logProxy, null, send, null));  // no more
        assertEquals(0, zel_fnd_job_log_moduleJNI.zel_fnd_job_log_proxy_delete_send_info_list(logProxy, null));
        zel_fnd_job_log_moduleJNI.delete_ESV_ZEL_JOBINFO_SEND_INFO(send);
        long errorCode = zel_fnd_job_log_moduleJNI.ESV_ZEL_JOBINFO_JOBLOG_result_err_get(log, null);
        zel_fnd_job_log_moduleJNI.delete_ESV_ZEL_JOBINFO_JOBLOG(log);
        zel_fnd_job_log_moduleJNI.delete_zel_fnd_job_log_proxy(logProxy);
        return errorCode;
    }

    @Test
    void theRoadOfOneJob() {
        long uid = createSendJob(2);
        assertEquals(0, zel_fnd_job_moduleJNI.zel_fnd_job_proxy_continuous_read(proxy, null, uid));
        assertEquals(0, zel_fnd_job_moduleJNI.zel_fnd_job_proxy_start(proxy, null, uid));
        assertTrue(SimJobs.waitJobHeld(uid, 10000));

        // The scan data, in pieces of at most 4096 bytes, while the job waits for reading to end.
        long data = zel_fnd_job_moduleJNI.new_ESV_ZEL_JOB_GET_SCAN_DATA();
        ByteArrayOutputStream all = new ByteArrayOutputStream();
        List<Integer> pieces = new ArrayList<>();
        do {
            byte[] piece = zel_fnd_job_moduleJNI.zel_fnd_job_proxy_get_scan_data(proxy, null, uid, data, null);
            assertNotNull(piece);
            assertEquals(piece.length, zel_fnd_job_moduleJNI.ESV_ZEL_JOB_GET_SCAN_DATA_data_size_get(data, null));
            pieces.add(piece.length);
            all.write(piece, 0, piece.length);
        } while (zel_fnd_job_moduleJNI.ESV_ZEL_JOB_GET_SCAN_DATA_doc_state_get(data, null) == 0);
        zel_fnd_job_moduleJNI.delete_ESV_ZEL_JOB_GET_SCAN_DATA(data);
        int page = SimJobs.scanPageBytes();
        assertEquals(List.of(4096, 4096, 2 * page - 8192), pieces);
        assertArrayEquals(SimJobs.scanDataOf(uid), all.toByteArray());
        assertEquals((byte) 31, all.toByteArray()[0]);  // page 1, byte 0

        assertEquals(0, zel_fnd_job_moduleJNI.zel_fnd_job_proxy_continuous_read_end(proxy, null, uid));
        assertTrue(SimJobs.waitJobDone(uid, 10000));
        assertEquals(List.of("job 101 START alice",
                             "scanPage 101 1 300", "scanCount 1/2",
                             "scanPage 101 2 300", "scanCount 2/2",
                             "job 101 SCAN_COMPLETE alice",
                             "jobLog 101",
                             "job 101 COMPLETE alice"), new ArrayList<>(events));
        assertEquals(List.of(SimJobs.receiptOf(uid)), new ArrayList<>(receipts));
        assertEquals(0L, readLog(receipts.get(0), 0));
        // A finished job is unknown to scan-data reads once removed from the queue.
        assertEquals(0, zel_fnd_job_moduleJNI.zel_fnd_job_proxy_remove_job(proxy, null, uid, 0));
        long d2 = zel_fnd_job_moduleJNI.new_ESV_ZEL_JOB_GET_SCAN_DATA();
        assertEquals(null, zel_fnd_job_moduleJNI.zel_fnd_job_proxy_get_scan_data(proxy, null, uid, d2, null));
        zel_fnd_job_moduleJNI.delete_ESV_ZEL_JOB_GET_SCAN_DATA(d2);
    }

    @Test
    void theSameWithACancel() {
        long uid = createSendJob(1);
        SimJobs.hold(true);
        assertEquals(0, zel_fnd_job_moduleJNI.zel_fnd_job_proxy_start(proxy, null, uid));
        assertTrue(SimJobs.waitJobHeld(uid, 10000));
        assertEquals(0, zel_fnd_job_moduleJNI.zel_fnd_job_proxy_cancel(proxy, null, uid));
        assertOnePageJobEnded(uid, "CANCEL", 0L, 1);
    }

    @Test
    void theSameWithAnInjectedError() {
        long uid = createSendJob(1);
        SimJobs.injectFault(1, 0x55);
        assertEquals(0, zel_fnd_job_moduleJNI.zel_fnd_job_proxy_start(proxy, null, uid));
        assertOnePageJobEnded(uid, "ERROR", 0x55L, 2);
    }

    // The one-page send job uid ended in `state`, after the events of its scan; its log holds
    // the result `result` and the error code `error`.
    private void assertOnePageJobEnded(long uid, String state, long error, int result) {
        assertTrue(SimJobs.waitJobDone(uid, 10000));
        assertEquals(List.of("job 101 START alice", "scanPage 101 1 300", "scanCount 1/1", "job 101 SCAN_COMPLETE alice",
                             "jobLog 101", "job 101 " + state + " alice"), new ArrayList<>(events));
        assertEquals(error, readLog(receipts.get(0), result));
    }

    @Test
    void jobListAndTheCrossedNames() {
        long uid = createSendJob(1);
        long list = zel_fnd_job_moduleJNI.new_vectorl__SWIG_0();
        assertEquals(0, zel_fnd_job_moduleJNI.zel_fnd_job_proxy_get_job_list(proxy, null, 1, list, null));
        assertEquals(1L, zel_fnd_job_moduleJNI.vectorl_size(list, null));
        assertEquals(uid, zel_fnd_job_moduleJNI.vectorl_get(list, null, 0));
        zel_fnd_job_moduleJNI.delete_vectorl(list);
        SimDevice.clearCalls();
        assertEquals(0, zel_fnd_job_moduleJNI.zel_fnd_job_proxy_start(proxy, null, uid));
        assertArrayEquals(new String[] {"101"}, SimDevice.calls("esv_zel_job_kick"));
        assertTrue(SimJobs.waitJobDone(uid, 10000));
        assertEquals("job 101 COMPLETE alice", events.get(events.size() - 1));
    }
}
