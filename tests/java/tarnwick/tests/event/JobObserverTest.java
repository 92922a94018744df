package tarnwick.tests.event;

import static org.junit.jupiter.api.Assertions.assertArrayEquals;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertSame;

import java.util.List;
import org.junit.jupiter.api.AfterEach;
import org.junit.jupiter.api.BeforeEach;
import org.junit.jupiter.api.Test;
import tarnwick.sim.SimEvents;
import tarnwick.zel.controller.event.job.Job;
import tarnwick.zel.controller.event.job.JobState;

class JobObserverTest {
    private static final String M = "zel_fnd_job_observer";
    private static final long[] OK = {0L};
    private static final long[] FAILED = {0x04010001L};
    private EventFixture f;

    @BeforeEach
    void start() {
        f = new EventFixture();
    }

    @AfterEach
    void stop() {
        f.close();
    }

    @Test
    void stateChangeBuildsAJob() {
        assertArrayEquals(OK, SimEvents.jobStateChanged(0, 101, 0, 65535, "alice", 255, 2));
        assertEquals(List.of("jobStateChanged 101 START 65535 alice 255 2"), f.events);
        assertEquals(List.of("3 notify_job_state_changed,[Start]", "3 notify_job_state_changed,[End]"), EventFixture.trace(M));
    }

    @Test
    void endedJobsMapTheirResult() {
        assertArrayEquals(OK, SimEvents.jobStateChanged(1, 1, 0, 0, "", 0, 0));
        assertArrayEquals(OK, SimEvents.jobStateChanged(1, 2, 1, 0, "", 0, 0));
        assertArrayEquals(OK, SimEvents.jobStateChanged(1, 3, 2, 0, "", 0, 0));
        assertArrayEquals(OK, SimEvents.jobStateChanged(2, 4, 9, 0, "", 0, 0));
        assertEquals(List.of("jobStateChanged 1 COMPLETE 0  0 0", "jobStateChanged 2 CANCEL 0  0 0",
                "jobStateChanged 3 ERROR 0  0 0", "jobStateChanged 4 SCAN_COMPLETE 0  0 0"), f.events);
        assertSame(JobState.ERROR, ((Job) f.objects.get(2)).getState());
    }

    @Test
    void aReservationIsNotReported() {
        assertArrayEquals(OK, SimEvents.jobStateChanged(3, 1, 0, 0, "", 0, 0));
        assertEquals(List.of(), f.events);
        assertEquals(List.of("3 notify_job_state_changed,[Start]",
                "3 notify_job_state_changed,[End]. state = ESV_ZEL_EVENT_JOB_RSV."), EventFixture.trace(M));
    }

    @Test
    void unknownStateAndResultAreTracedAndHandled() {
        assertArrayEquals(OK, SimEvents.jobStateChanged(4, 1, 0, 0, "", 0, 0));
        assertArrayEquals(OK, SimEvents.jobStateChanged(1, 1, 3, 0, "", 0, 0));
        assertEquals(List.of(), f.events);
        assertEquals(List.of("3 notify_job_state_changed,[Start]",
                "3 notify_job_state_changed,[End]. unknown job state. state = [4]",
                "3 notify_job_state_changed,[Start]",
                "3 notify_job_state_changed,[End]. unknown job result. result = [3]"), EventFixture.trace(M));
    }

    @Test
    void scanCountIsNotSignExtended() {
        assertArrayEquals(OK, SimEvents.scanCount(5, 4000000000L));
        assertEquals(List.of("scanCount 5 4000000000"), f.events);
        assertEquals(List.of("3 notify_scan_count,[Start]", "3 notify_scan_count,[End]"), EventFixture.trace(M));
    }

    @Test
    void simpleNotificationsWidenWithoutSign() {
        assertArrayEquals(OK, SimEvents.startPhb(0xFFFFFFFFL));
        assertArrayEquals(OK, SimEvents.disableInfo(2));
        assertArrayEquals(OK, SimEvents.mainMessage(3));
        assertEquals(List.of("startProhibition 4294967295", "combConstraint 2", "panelMessageUpdate 3"), f.events);
    }

    @Test
    void phbAndMessageInfoAreIgnored() {
        assertArrayEquals(OK, SimEvents.phbInfo(1));
        assertArrayEquals(OK, SimEvents.messageInfo(1));
        assertEquals(List.of(), f.events);
        assertEquals(List.of(), EventFixture.trace(M));
    }

    @Test
    void attachFailureAnswers0x04010001() {
        SimEvents.failAttach(1);
        assertArrayEquals(FAILED, SimEvents.jobStateChanged(0, 1, 0, 0, "", 0, 0));
        SimEvents.failAttach(1);
        assertArrayEquals(FAILED, SimEvents.scanCount(1, 1));
        assertEquals(List.of(), f.events);
        assertEquals(List.of(), EventFixture.trace(M));
    }

    @Test
    void aThrowingListenerFailsTheNotification() {
        f.throwFromListeners = new IllegalStateException("listener failed");
        assertArrayEquals(FAILED, SimEvents.scanCount(1, 2));
        assertArrayEquals(FAILED, SimEvents.jobStateChanged(0, 7, 0, 0, "", 0, 0));
        f.throwFromListeners = null;
        assertArrayEquals(OK, SimEvents.scanCount(3, 4));
        assertEquals(List.of("scanCount 1 2", "jobStateChanged 7 START 0  0 0", "scanCount 3 4"), f.events);
    }
}
