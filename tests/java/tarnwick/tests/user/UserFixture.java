package tarnwick.tests.user;

import java.util.ArrayList;
import java.util.List;
import java.util.regex.Matcher;
import java.util.regex.Pattern;
import tarnwick.sim.SimDevice;
import tarnwick.sim.SimUsers;
import tarnwick.zel.wrapper.system.cmt_commonJNI;

/** A clean simulated device for the user and department tests, and trace helpers. */
final class UserFixture {
    static {
        System.loadLibrary("tovrCMT");
    }

    static final long INVALID_PASSWORD = 0x04010401L;
    static final long NOT_FOUND = 0x04010402L;
    static final long PARAM_ERROR = 0x04010403L;
    static final long NOT_LOGGED_IN = 0x04010404L;
    static final long DUPLICATE = 0x04010405L;
    static final long USER_ERROR = 0x04010400L;
    static final long DEPT_ERROR = 0x04010801L;
    static final long DEPT_NOT_FOUND = 0x04010803L;
    static final long DEPT_DUPLICATE = 0x04010804L;

    private UserFixture() {}

    static void reset() {
        cmt_commonJNI.cmt_init_init();  // the library finds the VM, as an application starts it
        SimDevice.reset();
        SimUsers.reset();
        SimDevice.clearTrace();
        SimDevice.clearCalls();
    }

    private static final Pattern LINE = Pattern.compile("^(\\d+) (\\w+)\\[(\\d{4,})\\]::(\\w+),(.*)$");

    /** Trace lines of one source module as "level operation,message" (line numbers left out). */
    static List<String> trace(String module) {
        List<String> out = new ArrayList<>();
        for (String line : SimDevice.traceLines()) {
            Matcher m = LINE.matcher(line);
            if (m.matches() && m.group(2).equals(module)) out.add(m.group(1) + " " + m.group(4) + "," + m.group(5));
        }
        return out;
    }

    static String repeat(char c, int n) {
        StringBuilder b = new StringBuilder(n);
        for (int i = 0; i < n; i++) b.append(c);
        return b.toString();
    }
}
