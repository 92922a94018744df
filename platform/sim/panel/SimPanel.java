package tarnwick.sim;

/**
 * Control of the simulated panel facade from Java tests and tools: its notifications (each call
 * waits for every registered observer's answer and returns them, in registration order), the
 * reset timer per panel context and the panel identities. Never part of the library's own jar.
 * See tovr_sim_panel.h.
 */
public final class SimPanel {
    static {
        System.loadLibrary("tovrsimctl");
    }

    private SimPanel() {}

    /** Failure code of the simulated panel facade. */
    public static final long ERROR = 0x04010402L;

    // notifications
    public static native long[] keyEvent(long id, int event);
    public static native long[] autoPanelReset();

    /** The last operation applied to the context's reset timer, -1 when none. */
    public static native int resetTimer(long context);
    public static native void setIdentity(String name, long id);
    /** The identity change_id switched to last; 0 at start. */
    public static native long currentId();
}
