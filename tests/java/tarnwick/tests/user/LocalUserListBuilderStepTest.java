package tarnwick.tests.user;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertNotNull;

import java.io.File;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.ArrayList;
import java.util.List;
import javax.tools.JavaCompiler;
import javax.tools.ToolProvider;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.io.TempDir;
import tarnwick.sim.SimDevice;
import tarnwick.sim.SimUsers;
import tarnwick.tests.support.ChildJvm;
import tarnwick.tests.support.SimDeviceExtension;
import tarnwick.zel.wrapper.user.ZELFNDUserJNI;

/**
 * The local user list when a builder step raises a Java exception: the user class's attribute
 * constructor throws for the second local user's mail address (a MailAddress of the test's own,
 * ahead of the framework's on the class path of a VM of its own). The fetch stops, the buffer is
 * freed, the list finished, 4 returned with the exception pending for the caller, no trace line
 * of its own; a list made afterwards is complete.
 */
class LocalUserListBuilderStepTest {
    private static final String REFUSING_MAIL_ADDRESS = String.join("\n",
        "package tarnwick.user.attribute;",
        "public final class MailAddress extends TextAttribute {",
        "    public MailAddress(String value) {",
        "        super(value);",
        "        if (\"user00002@example.com\".equals(value)) throw new IllegalStateException(\"refused \" + value);",
        "    }",
        "}");

    /** Run in the child VM: one list with the refusing attribute, then one more. */
    public static final class Child {
        public static void main(String[] args) {
            SimDeviceExtension.start();
            SimUsers.addLocalUsers(3);  // and the built-in administrator: four users
            long auth = ZELFNDUserJNI.new_zel_fnd_authentication();
            List<Object> list = new ArrayList<>();
            try {
                System.out.println("result " + ZELFNDUserJNI.zel_fnd_authentication_get_local_user_list(auth, null, list));
            } catch (IllegalStateException e) {
                System.out.println("threw " + e.getMessage());
            }
            System.out.println("added " + list.size());
            System.out.println("fetches " + SimDeviceExtension.calls("esv_zel_user_get_local_user_list").size());
            System.out.println("finishes " + SimDeviceExtension.calls("esv_zel_user_get_local_user_list_finish").size());
            System.out.println("blocks " + SimDevice.openResources("platform block"));
            System.out.println("handles " + SimDevice.openResources("list handle"));
            for (String l : SimDeviceExtension.trace("zel_fnd_authentication")) System.out.println("trace " + l);
            SimUsers.removeLocalUser("user00002");
            List<Object> again = new ArrayList<>();
            System.out.println("again " + ZELFNDUserJNI.zel_fnd_authentication_get_local_user_list(auth, null, again) + " "
                               + again.size());
            ZELFNDUserJNI.delete_zel_fnd_authentication(auth);
        }
    }

    @Test
    void aThrowingAttributeConstructorReachesTheCallerAfterTheListIsFinished(@TempDir Path dir) throws Exception {
        Path source = dir.resolve("src/tarnwick/user/attribute/MailAddress.java");
        Files.createDirectories(source.getParent());
        Files.writeString(source, REFUSING_MAIL_ADDRESS, StandardCharsets.UTF_8);
        File classes = dir.resolve("classes").toFile();
        classes.mkdirs();
        JavaCompiler javac = ToolProvider.getSystemJavaCompiler();
        assertNotNull(javac, "a JDK runs the tests");
        String framework = new File(ZELFNDUserJNI.class.getProtectionDomain().getCodeSource().getLocation().toURI()).getPath();
        assertEquals(0, javac.run(null, null, null, "-d", classes.getPath(), "-cp", framework, source.toString()));

        ChildJvm.Result r = ChildJvm.run(List.of(classes.getPath()), Child.class, 120);
        assertEquals(0, r.exitCode, r.output());
        assertFalse(r.reported(), r.output());
        List<String> expected = new ArrayList<>(List.of(
            "threw refused user00002@example.com", "added 2", "fetches 3", "finishes 1", "blocks 0", "handles 0",
            "trace 3 get_local_user_list,[Start]",
            "trace 3 get_local_user_list,total_get_num=(0), total_num=(4), get_num=(0)",
            "trace 3 get_local_user_list,total_get_num=(1), total_num=(4), get_num=(1)",
            "trace 3 get_local_user_list,total_get_num=(2), total_num=(4), get_num=(1)",
            "again 0 3"));
        List<String> got = new ArrayList<>();
        for (String l : r.lines) {
            for (String p : new String[] {"threw", "result", "added", "fetches", "finishes", "blocks", "handles", "trace", "again"}) {
                if (l.startsWith(p + " ")) got.add(l);
            }
        }
        assertEquals(expected, got, r.output());
    }
}
