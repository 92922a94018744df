package tarnwick.tests.wrapper;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertTrue;

import java.util.ArrayList;
import java.util.List;
import org.junit.jupiter.api.Test;
import tarnwick.tests.support.ChildJvm;

/**
 * No misuse from Java kills the VM: HostileSweep calls every public method of every proxy and
 * module class with null, deleted, extreme and empty arguments in a VM of its own, which must
 * end normally, with no JNI warning and no sanitizer report (in the AddressSanitizer build).
 */
class HostileSweepTest {
    @Test
    void everyMethodSurvivesHostileArguments() throws Exception {
        // A call that takes the VM down is noted and the sweep goes on after it in a new VM, so
        // one run names every such call.
        List<String> crashes = new ArrayList<>();
        ChildJvm.Result r;
        int from = 0;
        for (;;) {
            r = ChildJvm.run(List.of(), HostileSweep.class, 1200, Integer.toString(from));
            List<String> calls = r.tagged("> ");
            String last = calls.isEmpty() ? null : calls.get(calls.size() - 1);
            boolean finished = r.tagged("= ").contains("done");
            if (r.exitCode == 0 && finished) break;
            crashes.add((last == null ? "before the first call" : last) + " (exit " + r.exitCode + "): " + tail(r.lines));
            if (last == null || crashes.size() >= 50) break;
            from = Integer.parseInt(last.substring(0, last.indexOf(' '))) + 1;
        }
        r.tagged("= ").forEach(l -> System.out.println("sweep: " + l));
        r.tagged("! ").forEach(l -> System.out.println("sweep: " + l));
        crashes.forEach(c -> System.out.println("sweep crash: " + c));
        assertEquals(List.of(), crashes);
        assertFalse(r.reported(), "JNI warning or sanitizer report:\n" + r.output());
        String calls = r.tagged("= calls ").get(0);
        assertTrue(Integer.parseInt(calls) > 2500, "calls made: " + calls);
    }

    private static String tail(List<String> lines) {
        List<String> out = new ArrayList<>();
        for (String l : lines.subList(Math.max(0, lines.size() - 60), lines.size())) {
            if (!l.startsWith("> ")) out.add(l);
        }
        return String.join("\n", out);
    }
}
