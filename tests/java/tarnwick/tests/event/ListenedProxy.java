package tarnwick.tests.event;

import tarnwick.sim.SimAcc;
import tarnwick.sim.SimCommon;
import tarnwick.sim.SimJobs;
import tarnwick.sim.SimPanel;
import tarnwick.tests.support.EventProxies;
import tarnwick.zel.controller.event.device.ICCardInfo;
import tarnwick.zel.controller.event.job.Job;
import tarnwick.zel.controller.event.proxy.AccProxy;
import tarnwick.zel.controller.event.proxy.CommonProxy;
import tarnwick.zel.controller.event.proxy.JobInfoProxy;
import tarnwick.zel.controller.event.proxy.JobProxy;
import tarnwick.zel.controller.event.proxy.PanelProxy;
import tarnwick.zel.controller.event.proxy.SynchronousEventProxy;
import tarnwick.zel.wrapper.event.zel_fnd_event_manager;

/**
 * Each event proxy with one event the device raises for it (on the facade's own thread, as a
 * device does) and a listener of that event: what the tests of listener habits need of every
 * proxy alike.
 */
enum ListenedProxy {
    COMMON("zel_fnd_common_observer", 0) {
        @Override long[] raise(int n) { return SimCommon.coverStatus(n); }
        @Override void listen(Runnable action) {
            CommonProxy.listeners.add(new CommonProxy.Listener() {
                @Override public void cover(long status) { action.run(); }
            });
        }
        @Override void fire(int n) { CommonProxy.fireCoverEvent(n); }
    },
    SYNCHRONOUS("zel_fnd_common_observer", 0) {
        @Override long[] raise(int n) { return SimCommon.serviceStateChanged(n); }
        @Override void listen(Runnable action) {
            SynchronousEventProxy.listeners.add(new SynchronousEventProxy.Listener() {
                @Override public void systemRestart(int type) { action.run(); }
            });
        }
        @Override void fire(int n) { SynchronousEventProxy.fireSystemRestartEvent(n); }
    },
    JOB("zel_fnd_job_observer", 0x04010001L) {
        @Override long[] raise(int n) { return SimJobs.jobStateChanged(1, n, 0, 1, "alice", 0, 0); }
        @Override void listen(Runnable action) {
            JobProxy.listeners.add(new JobProxy.Listener() {
                @Override public void jobStateChanged(Job job) { action.run(); }
            });
        }
        @Override void fire(int n) { JobProxy.fireJobStateChangedEvent(new Job()); }
    },
    JOBINFO("zel_fnd_jobinfo_observer", 0x04010001L) {
        @Override long[] raise(int n) { return SimJobs.printPage(new long[] {n, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}); }
        @Override void listen(Runnable action) {
            JobInfoProxy.listeners.add(new JobInfoProxy.Listener() {
                @Override public void page(Object info) { action.run(); }
            });
        }
        @Override void fire(int n) { JobInfoProxy.firePageEvent(Integer.valueOf(n)); }
    },
    ACC("zel_fnd_acc_observer", 0x04010A05L) {
        @Override long[] raise(int n) { return SimAcc.iccardDetect("card" + n, 1, 0, 0); }
        @Override void listen(Runnable action) {
            AccProxy.listeners.add(new AccProxy.Listener() {
                @Override public void icCard(ICCardInfo info) { action.run(); }
            });
        }
        @Override void fire(int n) { AccProxy.fireICCardEvent(new ICCardInfo()); }
    },
    PANEL("zel_fnd_panel_observer", 0) {
        @Override long[] raise(int n) { return SimPanel.keyEvent(n, 0); }
        @Override void listen(Runnable action) {
            PanelProxy.listeners.add(new PanelProxy.Listener() {
                @Override public void applStart(long id) { action.run(); }
            });
        }
        @Override void fire(int n) { PanelProxy.fireApplStartEvent(n); }
    };

    static final String[] FACADES = {"common", "job", "panel", "acc", "jobinfo"};

    /** The trace module of the observer that delivers this proxy's events. */
    final String observer;
    /** What that observer answers the device when a listener throws. */
    final long thrownAnswer;

    ListenedProxy(String observer, long thrownAnswer) {
        this.observer = observer;
        this.thrownAnswer = thrownAnswer;
    }

    /** Raises event number {@code n} on the device; the answers of the registered observers. */
    abstract long[] raise(int n);

    /** Adds a listener of that event that runs {@code action}. */
    abstract void listen(Runnable action);

    /** Calls the proxy's fire method directly, as the library would. */
    abstract void fire(int n);

    /** No listener on any proxy, no manager started. */
    static void clear() {
        EventProxies.removeAllListeners();
        for (zel_fnd_event_manager m : zel_fnd_event_manager.started()) m.delete();
    }
}
