package tarnwick.sim;

/**
 * Control of the simulated user and department facades from Java tests: local and hidden
 * users, login sessions, authentication modes, departments with their counters, and forced
 * answers that write the operations' outputs. Never part of the library's own jar.
 */
public final class SimUsers {
    static {
        System.loadLibrary("tovrsimctl");
    }

    private SimUsers() {}

    /** Kind of {@link SimDevice#openResources} counting open local-user list handles. */
    public static final String USER_LIST = "user list";

    /**
     * Drops every user (but the built-in administrator "Admin"/"admin", id 1), session, list
     * handle and department; modes and settings back to 0, certificates from 7001 again.
     */
    public static native void reset();

    /** Adds a local user; returns its id, 0 when the login name is empty or taken. */
    public static native long addLocalUser(String loginName, String password, String userName, String email,
                                           int rights, long jobLimit, int deptId, String kana, String idm,
                                           String domain);

    public static long addLocalUser(String loginName, String password, String userName, String email, int rights) {
        return addLocalUser(loginName, password, userName, email, rights, 0, 0, "", "", "");
    }

    /** Adds users "user00001" ... ({@code "pw<n>"}, {@code "User <n>"}, {@code "user<n>@example.com"}, every tenth an administrator). */
    public static native void addLocalUsers(int count);

    public static native boolean removeLocalUser(String loginName);

    public static native int localUserCount();

    /** login_name, login_passwd, user_name, email, dept_code, rights, job_limit; null when unknown. */
    public static native String[] hiddenUser(String loginName);

    public static native int hiddenUserCount();

    /** Certificates now valid, oldest login first. */
    public static native long[] sessions();

    /** Login name of a session, "" when the certificate is not valid. */
    public static native String sessionUser(long certId);

    public static native int authMode();

    public static native int funcAuthMode();

    /** The next calls of {@code op} (a login) answer {@code result} and write {@code certId}. */
    public static native void forceLoginOutput(String op, long result, long certId, int times);

    public static native void forceRightsOutput(long result, int rights, int times);

    public static native void forceAuthModeOutput(long result, int mode, int times);

    public static native void forceUserInfoOutput(long result, long id, String loginName, String userName,
                                                  String email, int rights, long jobLimit, int deptId, String kana,
                                                  int times);

    public static native void forceListPrepareOutput(long result, long handle, long totalNum, int times);

    /** Writes {@code getNum} and, unless {@code loginName} is null, one record into the buffer. */
    public static native void forceListFetchOutput(long result, long getNum, String loginName, String userName,
                                                   String email, int rights, int times);

    /** A fetch answering one record whose text fields are filled to their last byte, unterminated. */
    public static native void forceListFetchFullFields(long result, int rights, int times);

    /** The next {@code times} platform allocations (emwOSWSubAllocMem) fail. */
    public static native void failPlatformAlloc(int times);

    // ---- departments ----

    public static native String[] deptIds();

    /** Name of a department, null when unknown. */
    public static native String deptName(String id);

    public static native int[] deptLimits(String id);

    public static native int[] deptRestrictions(String id);

    public static native long deptCounter(String id, int slot);

    /** Counts printed pages to a department as the device does (only while accounting is on). */
    public static native void countPages(String id, boolean copy, int pages);

    public static native int deptLimitAction();

    public static native int deptInvalidMode();

    public static native int deptMixMode();

    public static native int deptMode();

    /** The next calls of {@code op} (a get_* setting) answer {@code result} and write {@code value}. */
    public static native void forceDeptValueOutput(String op, long result, int value, int times);

    /** The next retrieves answer {@code result} and write a record with this id and name. */
    public static native void forceDeptRecordOutput(long result, String id, String name, int times);

    /** The next retrieves write a record whose id and name fill their fields, unterminated. */
    public static native void forceDeptRecordFullFields(long result, int times);
}
