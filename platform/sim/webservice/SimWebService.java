package tarnwick.sim;

/**
 * Control of the simulated web service facade from Java tests and tools: one holder per service
 * kind. Never part of the library's own jar. See tovr_sim_webservice.h.
 */
public final class SimWebService {
    static {
        System.loadLibrary("tovrsimctl");
    }

    private SimWebService() {}

    /** The host that holds the kind, "" when free. */
    public static native String holder(int kind);

    /** Sets the holder; "" frees the kind. */
    public static native void setHolder(int kind, String name);
}
