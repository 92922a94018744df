package tarnwick.sim;

/**
 * Control of the simulated disk I/O library from Java tests and tools (the easy document box is
 * {@link SimBox}).
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
    public static final int HARD_DISK = 2;

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
}
