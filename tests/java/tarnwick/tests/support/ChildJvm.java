package tarnwick.tests.support;

import java.io.File;
import java.io.IOException;
import java.net.URISyntaxException;
import java.nio.charset.StandardCharsets;
import java.util.ArrayList;
import java.util.List;
import java.util.concurrent.TimeUnit;

/**
 * A main class of the test jar run in a VM of its own, for what may take a VM down (a crash is
 * then a result, not the end of the test run) or needs a class path of its own. The child gets
 * this VM's library path and environment (a sanitizer build's preloaded runtime included) and
 * -Xcheck:jni; its class path is the test jar, the library's jar, the simulator's and JUnit's,
 * after any folders given first.
 */
public final class ChildJvm {
    /** What the child printed (stdout and stderr, in order) and how it ended. */
    public static final class Result {
        public final int exitCode;
        public final List<String> lines;

        Result(int exitCode, List<String> lines) {
            this.exitCode = exitCode;
            this.lines = lines;
        }

        public String output() {
            return String.join("\n", lines);
        }

        /** The lines that begin with `prefix`, without it. */
        public List<String> tagged(String prefix) {
            List<String> out = new ArrayList<>();
            for (String l : lines) {
                if (l.startsWith(prefix)) out.add(l.substring(prefix.length()));
            }
            return out;
        }

        /** A JNI warning of -Xcheck:jni or a sanitizer report in the output. */
        public boolean reported() {
            for (String l : lines) {
                if (l.contains("WARNING in native method") || l.contains("ERROR: AddressSanitizer")
                        || l.contains("ERROR: LeakSanitizer") || l.contains("runtime error:")) {
                    return true;
                }
            }
            return false;
        }
    }

    private ChildJvm() {}

    static String jarOf(Class<?> c) {
        try {
            return new File(c.getProtectionDomain().getCodeSource().getLocation().toURI()).getPath();
        } catch (URISyntaxException e) {
            throw new IllegalStateException(e);
        }
    }

    /** Runs `mainClass` with `args`, `first` ahead on the class path; gives up after `timeoutSeconds`. */
    public static Result run(List<String> first, Class<?> mainClass, long timeoutSeconds, String... args)
            throws IOException, InterruptedException {
        List<String> path = new ArrayList<>(first);
        path.add(jarOf(ChildJvm.class));
        path.add(jarOf(tarnwick.zel.wrapper.system.cmt_commonJNI.class));
        path.add(jarOf(tarnwick.sim.SimDevice.class));
        path.add(jarOf(org.junit.jupiter.api.extension.Extension.class));  // SimDeviceExtension's interfaces
        List<String> command = new ArrayList<>();
        command.add(new File(System.getProperty("java.home"), "bin/java").getPath());
        command.add("-Xcheck:jni");
        command.add("-Djava.library.path=" + System.getProperty("java.library.path"));
        command.add("-cp");
        command.add(String.join(File.pathSeparator, path));
        command.add(mainClass.getName());
        command.addAll(List.of(args));
        File log = File.createTempFile("tovr-child-", ".log");
        try {
            Process p = new ProcessBuilder(command).redirectErrorStream(true)
                    .redirectOutput(ProcessBuilder.Redirect.to(log)).start();
            if (!p.waitFor(timeoutSeconds, TimeUnit.SECONDS)) {
                p.destroyForcibly().waitFor();
                List<String> lines = new ArrayList<>(java.nio.file.Files.readAllLines(log.toPath(), StandardCharsets.ISO_8859_1));
                lines.add("(killed after " + timeoutSeconds + " s)");
                return new Result(-1, lines);
            }
            return new Result(p.exitValue(), java.nio.file.Files.readAllLines(log.toPath(), StandardCharsets.ISO_8859_1));
        } finally {
            log.delete();
        }
    }
}
