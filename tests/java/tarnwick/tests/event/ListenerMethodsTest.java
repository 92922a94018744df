package tarnwick.tests.event;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static org.junit.jupiter.api.Assertions.assertTrue;

import java.util.ArrayList;
import java.util.List;
import org.junit.jupiter.api.AfterEach;
import org.junit.jupiter.api.Test;
import tarnwick.tests.support.EventProxies;
import tarnwick.zel.controller.event.proxy.AccProxy;
import tarnwick.zel.controller.event.proxy.CommonProxy;
import tarnwick.zel.controller.event.proxy.JobInfoProxy;
import tarnwick.zel.controller.event.proxy.JobProxy;
import tarnwick.zel.controller.event.proxy.PanelProxy;
import tarnwick.zel.controller.event.proxy.SynchronousEventProxy;

/**
 * Applications register with each proxy's registry, {@code listeners}: its add, remove and clear
 * act on what the proxy's fire methods deliver to.
 */
class ListenerMethodsTest {
    private final List<String> heard = new ArrayList<>();

    @AfterEach
    void clear() {
        EventProxies.removeAllListeners();
    }

    @Test
    void panelProxy() {
        PanelProxy.Listener l = new PanelProxy.Listener() {
            @Override
            public void applStart(long id) {
                heard.add("applStart " + id);
            }
        };
        PanelProxy.listeners.add(l);
        PanelProxy.listeners.add(l);
        PanelProxy.fireApplStartEvent(7);
        assertEquals(List.of("applStart 7", "applStart 7"), heard);
        assertTrue(PanelProxy.listeners.remove(l));
        PanelProxy.fireApplStartEvent(8);
        assertTrue(PanelProxy.listeners.remove(l));
        assertFalse(PanelProxy.listeners.remove(l));
        PanelProxy.fireApplStartEvent(9);
        assertEquals(List.of("applStart 7", "applStart 7", "applStart 8"), heard);
        assertThrows(NullPointerException.class, () -> PanelProxy.listeners.add(null));
    }

    @Test
    void clearOfEveryProxy() {
        CommonProxy.listeners.add(new CommonProxy.Listener() {
            @Override
            public void logout() {
                heard.add("logout");
            }
        });
        SynchronousEventProxy.listeners.add(new SynchronousEventProxy.Listener() {
            @Override
            public void systemRestart(int type) {
                heard.add("systemRestart " + type);
            }
        });
        JobProxy.listeners.add(new JobProxy.Listener() {
            @Override
            public void scanCount(long first, long second) {
                heard.add("scanCount " + first + " " + second);
            }
        });
        JobInfoProxy.listeners.add(new JobInfoProxy.Listener() {
            @Override
            public void page(Object info) {
                heard.add("page " + info);
            }
        });
        AccProxy.listeners.add(new AccProxy.Listener() {
            @Override
            public void icCardError(int code) {
                heard.add("icCardError " + code);
            }
        });
        CommonProxy.fireLogoutEvent();
        SynchronousEventProxy.fireSystemRestartEvent(2);
        JobProxy.fireScanCountEvent(1, 3);
        JobInfoProxy.firePageEvent("p");
        AccProxy.fireICCardErrorEvent(5);
        assertEquals(List.of("logout", "systemRestart 2", "scanCount 1 3", "page p", "icCardError 5"), heard);

        CommonProxy.listeners.clear();
        SynchronousEventProxy.listeners.clear();
        JobProxy.listeners.clear();
        JobInfoProxy.listeners.clear();
        AccProxy.listeners.clear();
        CommonProxy.fireLogoutEvent();
        SynchronousEventProxy.fireSystemRestartEvent(2);
        JobProxy.fireScanCountEvent(1, 3);
        JobInfoProxy.firePageEvent("p");
        AccProxy.fireICCardErrorEvent(5);
        assertEquals(5, heard.size());
    }
}
