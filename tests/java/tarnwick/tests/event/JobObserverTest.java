package tarnwick.tests.event;

import static org.junit.jupiter.api.Assertions.assertArrayEquals;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertSame;
import static tarnwick.tests.event.EventFixture.OK;
import static tarnwick.tests.event.EventFixture.notification;

import java.util.List;
import java.util.stream.Stream;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.params.provider.Arguments;
import tarnwick.sim.SimJobs;
import tarnwick.zel.controller.event.job.Job;
import tarnwick.zel.controller.event.job.JobState;

class JobObserverTest extends NotificationCases {
    private static final String M = "zel_fnd_job_observer";
    private static final long[] FAILED = {0x04010001L};

    JobObserverTest() {
        super(M);
    }

    static Stream<Arguments> oneNotification() {
        return Stream.of(
                notification("stateChangeBuildsAJob", () -> SimJobs.jobStateChanged(0, 101, 0, 65535, "alice", 255, 2),
                        List.of("jobStateChanged 101 START 65535 alice 255 2"),
                        List.of("3 notify_job_state_changed,[Start]", "3 notify_job_state_changed,[End]")),
                notification("aReservationIsNotReported", () -> SimJobs.jobStateChanged(3, 1, 0, 0, "", 0, 0),
                        List.of(),
                        List.of("3 notify_job_state_changed,[Start]", "3 notify_job_state_changed,[End]. state = ESV_ZEL_EVENT_JOB_RSV.")),
                notification("scanCountIsNotSignExtended", () -> SimJobs.scanCount(5, 4000000000L),
                        List.of("scanCount 5 4000000000"),
                        List.of("3 notify_scan_count,[Start]", "3 notify_scan_count,[End]")));
    }

    @Test
    void endedJobsMapTheirResult() {
        assertArrayEquals(OK, SimJobs.jobStateChanged(1, 1, 0, 0, "", 0, 0));
        assertArrayEquals(OK, SimJobs.jobStateChanged(1, 2, 1, 0, "", 0, 0));
        assertArrayEquals(OK, SimJobs.jobStateChanged(1, 3, 2, 0, "", 0, 0));
        assertArrayEquals(OK, SimJobs.jobStateChanged(2, 4, 9, 0, "", 0, 0));
        assertEquals(List.of("jobStateChanged 1 COMPLETE 0  0 0", "jobStateChanged 2 CANCEL 0  0 0",
                "jobStateChanged 3 ERROR 0  0 0", "jobStateChanged 4 SCAN_COMPLETE 0  0 0"), f.events);
        assertSame(JobState.ERROR, ((Job) f.objects.get(2)).getState());
    }

    @Test
    void unknownStateAndResultAreTracedAndHandled() {
        assertArrayEquals(OK, SimJobs.jobStateChanged(4, 1, 0, 0, "", 0, 0));
        assertArrayEquals(OK, SimJobs.jobStateChanged(1, 1, 3, 0, "", 0, 0));
        f.assertSeen(List.of(), M, List.of("3 notify_job_state_changed,[Start]",
                "3 notify_job_state_changed,[End]. unknown job state. state = [4]",
                "3 notify_job_state_changed,[Start]",
                "3 notify_job_state_changed,[End]. unknown job result. result = [3]"));
    }

    @Test
    void simpleNotificationsWidenWithoutSign() {
        assertArrayEquals(OK, SimJobs.startPhb(0xFFFFFFFFL));
        assertArrayEquals(OK, SimJobs.disableInfo(2));
        assertArrayEquals(OK, SimJobs.mainMessage(3));
        assertEquals(List.of("startProhibition 4294967295", "combConstraint 2", "panelMessageUpdate 3"), f.events);
    }

    @Test
    void phbAndMessageInfoAreIgnored() {
        assertArrayEquals(OK, SimJobs.phbInfo(1));
        assertArrayEquals(OK, SimJobs.messageInfo(1));
        f.assertSeen(List.of(), M, List.of());
    }

    @Test
    void attachFailureAnswers0x04010001() {
        f.assertAttachFailures(FAILED, M,
                () -> SimJobs.jobStateChanged(0, 1, 0, 0, "", 0, 0), () -> SimJobs.scanCount(1, 1));
    }

    @Test
    void aThrowingListenerFailsTheNotification() {
        f.throwFromListeners = new IllegalStateException("listener failed");
        assertArrayEquals(FAILED, SimJobs.scanCount(1, 2));
        assertArrayEquals(FAILED, SimJobs.jobStateChanged(0, 7, 0, 0, "", 0, 0));
        f.throwFromListeners = null;
        assertArrayEquals(OK, SimJobs.scanCount(3, 4));
        assertEquals(List.of("scanCount 1 2", "jobStateChanged 7 START 0  0 0", "scanCount 3 4"), f.events);
    }
}
