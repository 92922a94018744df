package tarnwick.sim;

/**
 * Control of the simulated easy document box from Java tests and tools: folders and documents
 * kept in memory, the limit of open listings, and forced answers of its listing. Paths are "/"
 * and names below it: "/scans/a.pdf". Never part of the library's own jar. See tovr_sim_box.h.
 */
public final class SimBox {
    static {
        System.loadLibrary("tovrsimctl");
    }

    private SimBox() {}

    /** Resource kind of open listings, for {@link SimDevice#openResources(String)}. */
    public static final String LISTING = "box listing";
    /** Entry type of a folder. */
    public static final int FOLDER = 1;

    /** Adds a folder (its parents too); false when a document of that path exists. */
    public static native boolean addFolder(String path);

    /** Adds a document to a folder (created when missing); a type other than 1 for a file. */
    public static native boolean addDocument(String folder, String name, long size, int date, int type);

    /** Removes a document or a folder with everything in it. */
    public static native boolean remove(String path);

    public static native boolean exists(String path);

    /** Names in a folder, in listing order; empty for an unknown folder. */
    public static native String[] names(String folder);

    public static native void setListingLimit(int maxListings);

    /** Empties the box and closes its listings. */
    public static native void reset();

    /** The next {@code times} prepares answer {@code result}; on 0 with this handle and total. */
    public static native void forcePrepare(long result, long handle, long total, int times);

    /** The next fetches answer {@code result}; on 0 with get_num and this entry (text bytes as they stand). */
    public static native void forceEntry(long result, long getNum, long type, byte[] name, int date, long size,
                                         byte[] path, int times);
}
