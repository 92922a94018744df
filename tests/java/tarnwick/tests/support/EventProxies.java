package tarnwick.tests.support;

import tarnwick.zel.controller.event.proxy.AccProxy;
import tarnwick.zel.controller.event.proxy.CommonProxy;
import tarnwick.zel.controller.event.proxy.JobInfoProxy;
import tarnwick.zel.controller.event.proxy.JobProxy;
import tarnwick.zel.controller.event.proxy.PanelProxy;
import tarnwick.zel.controller.event.proxy.SynchronousEventProxy;

/** The library's event proxies, as tests leave them between cases. */
public final class EventProxies {
    private EventProxies() {}

    /** No listener left on any proxy. */
    public static void removeAllListeners() {
        CommonProxy.listeners.clear();
        SynchronousEventProxy.listeners.clear();
        JobProxy.listeners.clear();
        JobInfoProxy.listeners.clear();
        AccProxy.listeners.clear();
        PanelProxy.listeners.clear();
    }
}
