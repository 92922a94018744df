package tarnwick.tests.device;

import java.util.ArrayList;
import java.util.List;
import java.util.regex.Matcher;
import java.util.regex.Pattern;
import tarnwick.sim.SimDevice;
import tarnwick.sim.SimSystem;

/** A fresh simulated device, and the trace lines of one source module as "level operation,message". */
final class DeviceTraces {
    private DeviceTraces() {}

    static void freshDevice() {
        SimDevice.reset();
        SimSystem.reset();
        SimDevice.clearTrace();
        SimDevice.clearCalls();
    }

    static List<String> of(String module) {
        Pattern p = Pattern.compile("^(\\d+) " + Pattern.quote(module) + "\\[\\d{4,}\\]::(.*)$");
        List<String> out = new ArrayList<>();
        for (String line : SimDevice.traceLines()) {
            Matcher m = p.matcher(line);
            if (m.matches()) out.add(m.group(1) + " " + m.group(2));
        }
        return out;
    }

    static String repeat(char c, int n) {
        return String.valueOf(c).repeat(n);
    }
}
