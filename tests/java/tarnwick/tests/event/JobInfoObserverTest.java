package tarnwick.tests.event;

import static org.junit.jupiter.api.Assertions.assertArrayEquals;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertTrue;
import static tarnwick.tests.event.EventFixture.OK;

import java.util.List;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.extension.RegisterExtension;
import tarnwick.sim.SimDevice;
import tarnwick.sim.SimJobs;
import tarnwick.tests.support.SimDeviceExtension;
import tarnwick.zel.controller.event.job.FaxSendPageInfo;
import tarnwick.zel.controller.event.job.InterpreterInfo;
import tarnwick.zel.controller.event.job.JobLogInfo;
import tarnwick.zel.controller.event.job.PrintPageInfo;
import tarnwick.zel.controller.event.job.ScanPageInfo;

class JobInfoObserverTest {
    @RegisterExtension
    static final SimDeviceExtension device = new SimDeviceExtension(false);

    private static final String M = "zel_fnd_jobinfo_observer";
    private static final long[] FAILED = {0x04010001L};

    @RegisterExtension
    final EventFixture f = new EventFixture();

    @Test
    void printPageNumberIsNotSignExtended() {
        assertArrayEquals(OK, SimJobs.printPage(new long[] {0xFFFFFFFFL, 3000000000L, 1, 2, 65535, 4, 5, 6, 7, 8, 9, 10, 11, -12}));
        PrintPageInfo p = (PrintPageInfo) f.objects.get(0);
        assertEquals(4294967295L, p.getUserJobId());
        assertEquals(3000000000L, p.getPageNum());
        assertArrayEquals(new int[] {1, 2, 65535, 4, 5, 6, 7, 8, 9, 10, 11, -12},
                new int[] {p.getOutputDev(), p.getInputDev(), p.getCustomX(), p.getCustomY(), p.getPaperSize(),
                    p.getPaperType(), p.getPaperDir(), p.getPaperWeight(), p.getDuplex(), p.getStaple(), p.getPunch(),
                    p.getColorMode()});
        assertEquals(List.of("3 notify_print_page_info,[Start]", "3 notify_print_page_info,user_job_id = [-1]",
                "3 notify_print_page_info,[End]"), SimDeviceExtension.trace(M));
    }

    @Test
    void scanPageCarriesEveryField() {
        assertArrayEquals(OK, SimJobs.scanPage(new long[] {7, 2, 100, 65535, 3, 4, 5, 6, 600}));
        ScanPageInfo s = (ScanPageInfo) f.objects.get(0);
        assertArrayEquals(new long[] {7, 2, 100, 65535, 3, 4, 5, 6, 600},
                new long[] {s.getUserJobId(), s.getPageNum(), s.getCustomX(), s.getCustomY(), s.getPaperSize(),
                    s.getPaperDir(), s.getDuplex(), s.getColorMode(), s.getResolution()});
    }

    @Test
    void faxPageAndJobLog() {
        assertArrayEquals(OK, SimJobs.faxSendPage(8, 4000000000L));
        assertArrayEquals(OK, SimJobs.jobUpdateLog(9, 5001));
        FaxSendPageInfo fax = (FaxSendPageInfo) f.objects.get(0);
        assertEquals(8, fax.getUserJobId());
        assertEquals(4000000000L, fax.getPageNum());
        JobLogInfo log = (JobLogInfo) f.objects.get(1);
        assertEquals(9, log.getUserJobId());
        assertEquals(5001, log.getReceiptId());
        assertTrue(f.events.get(1).startsWith("jobLog "));
        assertEquals(List.of("3 notify_fax_send_page_info,[Start]", "3 notify_fax_send_page_info,user_job_id = [8]",
                "3 notify_fax_send_page_info,[End]", "3 notify_job_update_log,[Start]",
                "3 notify_job_update_log,user_job_id = [9]", "3 notify_job_update_log,receipt_id = [5001]",
                "3 notify_job_update_log,[End]"), SimDeviceExtension.trace(M));
    }

    @Test
    void interpreterStart() {
        assertArrayEquals(OK, SimJobs.renintStart(11, 255, 0x80000000L, "report.pdf"));
        InterpreterInfo i = (InterpreterInfo) f.objects.get(0);
        assertEquals(11, i.getUserJobId());
        assertEquals(255, i.getNameSetting());
        assertEquals(0x80000000L, i.getInterfaceInfo());
        assertEquals("report.pdf", i.getJobName());
    }

    @Test
    void anUnconvertibleJobNameFailsWithoutAnEvent() {
        assertArrayEquals(FAILED, SimJobs.renintStart(11, 1, 2, null));
        assertEquals(List.of(), f.events);
        List<String> t = SimDeviceExtension.trace(M);
        assertEquals("0 notify_renint_start_info,jnienv_->NewStringUTF(job_name) obj = NULL", t.get(t.size() - 1));
    }

    @Test
    void attachFailureAnswers0x04010001() {
        f.assertAttachFailures(FAILED, M, () -> SimJobs.faxSendPage(1, 1));
    }

    @Test
    void aThrowingListenerFailsTheNotification() {
        f.throwFromListeners = new IllegalStateException("listener failed");
        assertArrayEquals(FAILED, SimJobs.jobUpdateLog(1, 2));
        f.throwFromListeners = null;
        assertArrayEquals(OK, SimJobs.jobUpdateLog(3, 4));
        assertEquals(2, f.events.size());
    }
}
