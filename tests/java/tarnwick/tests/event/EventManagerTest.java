package tarnwick.tests.event;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertTrue;

import java.util.ArrayList;
import java.util.List;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.extension.RegisterExtension;
import tarnwick.sim.SimDevice;
import tarnwick.sim.SimJobs;
import tarnwick.sim.SimPanel;
import tarnwick.tests.support.SimDeviceExtension;
import tarnwick.zel.wrapper.event.ZELFNDEventJNI;

class EventManagerTest {
    @RegisterExtension
    static final SimDeviceExtension device = new SimDeviceExtension(false);

    private static final String[] FACADES = {"common", "job", "panel", "acc", "jobinfo"};

    private static List<String> observerCalls() {
        List<String> out = new ArrayList<>();
        for (String call : SimDevice.allCalls()) {
            if (call.matches("esv_zel_\\w+_(add|remove)_observer\\(.*")) out.add(call.substring(0, call.indexOf('(')));
        }
        return out;
    }

    private static void assertRegistered(int count) {
        for (String f : FACADES) assertEquals(count, SimDevice.observerCount(f), f);
    }

    @Test
    void terminateOnANeverStartedManagerCallsNoFacade() {
        try (EventFixture f = EventFixture.started(false)) {
            assertTrue(ZELFNDEventJNI.zel_fnd_event_manager_terminate(f.manager, null));
            assertEquals(List.of(), observerCalls());
            assertRegistered(0);
        }
    }

    @Test
    void initAndTerminateRegisterAndRemoveEachObserverOnceInOrder() {
        try (EventFixture f = EventFixture.started(false)) {
            assertTrue(ZELFNDEventJNI.zel_fnd_event_manager_init(f.manager, null));
            assertRegistered(1);
            assertEquals(List.of("esv_zel_common_add_observer", "esv_zel_job_add_observer", "esv_zel_panel_add_observer",
                    "esv_zel_acc_add_observer", "esv_zel_jobinfo_add_observer"), observerCalls());
            SimDevice.clearCalls();
            assertTrue(ZELFNDEventJNI.zel_fnd_event_manager_terminate(f.manager, null));
            assertEquals(List.of("esv_zel_common_remove_observer", "esv_zel_job_remove_observer",
                    "esv_zel_panel_remove_observer", "esv_zel_acc_remove_observer", "esv_zel_jobinfo_remove_observer"),
                    observerCalls());
            assertRegistered(0);
            SimDevice.clearCalls();
            assertTrue(ZELFNDEventJNI.zel_fnd_event_manager_terminate(f.manager, null));
            assertEquals(List.of(), observerCalls());
        }
    }

    @Test
    void deletingAStartedManagerRemovesAllFive() {
        EventFixture f = EventFixture.started(true);
        assertRegistered(1);
        SimDevice.clearCalls();
        ZELFNDEventJNI.delete_zel_fnd_event_manager(f.manager);
        f.manager = 0;
        assertEquals(List.of("esv_zel_common_remove_observer", "esv_zel_job_remove_observer",
                "esv_zel_panel_remove_observer", "esv_zel_acc_remove_observer", "esv_zel_jobinfo_remove_observer"),
                observerCalls());
        assertRegistered(0);
        f.close();
    }

    @Test
    void eventsReachJavaOnlyWhileStarted() {
        try (EventFixture f = EventFixture.started(false)) {
            assertEquals(0, SimPanel.keyEvent(1, 0).length);
            ZELFNDEventJNI.zel_fnd_event_manager_init(f.manager, null);
            assertEquals(1, SimPanel.keyEvent(2, 0).length);
            ZELFNDEventJNI.zel_fnd_event_manager_terminate(f.manager, null);
            assertEquals(0, SimPanel.keyEvent(3, 0).length);
            assertEquals(List.of("applStart 2"), f.events);
        }
    }

    @Test
    void aManagerCanBeStartedAgainAfterTerminate() {
        try (EventFixture f = EventFixture.started(true)) {
            ZELFNDEventJNI.zel_fnd_event_manager_terminate(f.manager, null);
            ZELFNDEventJNI.zel_fnd_event_manager_init(f.manager, null);
            assertEquals(0L, SimJobs.scanCount(1, 2)[0]);
            assertEquals(List.of("scanCount 1 2"), f.events);
        }
    }
}
