package tarnwick.sim;

/**
 * Control of the simulated disk I/O library from Java tests and tools (the easy document box is
 * {@link SimBox}; its methods here forward to it).
 * Drives: 2 the hard disk (always mounted), 0 and 1 removable media, each a host folder.
 * Plugging and unplugging raise the common facade's USB memory notification with the status
 * {@code (drive << 8) | 1} (plugged) or {@code (drive << 8) | 0} (removed).
 */
public final class SimStorage {
    static {
        System.loadLibrary("tovrsimctl");
    }

    /** Resource kinds for {@link SimDevice#openResources(String)}. */
    public static final String FILE_HANDLE = "file handle";
    public static final String DIRECTORY_HANDLE = "directory handle";
    /** @deprecated use {@link SimBox#LISTING} */
    @Deprecated
    public static final String BOX_LISTING = SimBox.LISTING;

    public static final int HARD_DISK = 2;
    /** @deprecated use {@link SimBox#FOLDER} */
    @Deprecated
    public static final int BOX_FOLDER = SimBox.FOLDER;

    private SimStorage() {}

    public static native String folder(int drive);

    /** Points a drive at a host folder (created when missing); handles open on it become stale. */
    public static native boolean setFolder(int drive, String folder);

    public static native boolean plug(int drive);

    public static native boolean unplug(int drive);

    public static native boolean mounted(int drive);

    public static native void setLimits(int maxFiles, int maxDirectories);

    /** Closes every handle, unmounts the removable drives silently, forgets attributes and working directories. */
    public static native void reset();

    /** Attribute bits of an entry (directory bit included), -1 when unknown. */
    public static native int attributes(int drive, String path);

    /** The next {@code times} dvu_dio_stat calls answer {@code result}; on 0 with this mode, size and time. */
    public static native void forceStat(int result, long mode, long size, long mtime, int times);

    /** The next readdir calls answer {@code result}; on 0 with these name bytes as they stand. */
    public static native void forceReaddirName(int result, byte[] name, int times);

    /** "dvu_dio_fopen" or "dvu_dio_opendir" answers {@code result}; on 0 with this handle. */
    public static native void forceHandle(String op, int result, long handle, int times);

    /** "dvu_dio_fread" or "dvu_dio_fwrite" answers {@code result}; on 0 with this count. */
    public static native void forceDone(String op, int result, long done, int times);

    public static native void forceFtell(int result, int position, int times);

    public static native void forceAttribute(int result, int raw, int times);

    /** @deprecated use {@link SimDevice#failAlloc(int)} */
    @Deprecated
    public static void failAlloc(int times) {
        SimDevice.failAlloc(times);
    }

    // ----- the easy document box, now SimBox (kept for one round) -----

    /** @deprecated use {@link SimBox#addFolder(String)} */
    @Deprecated
    public static boolean boxAddFolder(String path) {
        return SimBox.addFolder(path);
    }

    /** @deprecated use {@link SimBox#addDocument(String, String, long, int, int)} */
    @Deprecated
    public static boolean boxAddDocument(String folder, String name, long size, int date, int type) {
        return SimBox.addDocument(folder, name, size, date, type);
    }

    /** @deprecated use {@link SimBox#remove(String)} */
    @Deprecated
    public static boolean boxRemove(String path) {
        return SimBox.remove(path);
    }

    /** @deprecated use {@link SimBox#exists(String)} */
    @Deprecated
    public static boolean boxExists(String path) {
        return SimBox.exists(path);
    }

    /** @deprecated use {@link SimBox#names(String)} */
    @Deprecated
    public static String[] boxNames(String folder) {
        return SimBox.names(folder);
    }

    /** @deprecated use {@link SimBox#setListingLimit(int)} */
    @Deprecated
    public static void boxSetListingLimit(int maxListings) {
        SimBox.setListingLimit(maxListings);
    }

    /** @deprecated use {@link SimBox#reset()} */
    @Deprecated
    public static void boxReset() {
        SimBox.reset();
    }

    /** @deprecated use {@link SimBox#forcePrepare(long, long, long, int)} */
    @Deprecated
    public static void forceBoxPrepare(long result, long handle, long total, int times) {
        SimBox.forcePrepare(result, handle, total, times);
    }

    /** @deprecated use {@link SimBox#forceEntry(long, long, long, byte[], int, long, byte[], int)} */
    @Deprecated
    public static void forceBoxEntry(long result, long getNum, long type, byte[] name, int date, long size, byte[] path,
                                     int times) {
        SimBox.forceEntry(result, getNum, type, name, date, size, path, times);
    }
}
