package tarnwick.tests.wrapper;

import org.junit.jupiter.api.Test;
import tarnwick.zel.wrapper.job.zel_fnd_job_moduleJNI;

/** Proof that the AddressSanitizer gate is live: a double delete from Java must fail the run. */
class SanitizerGateLiveTest {
    static {
        System.loadLibrary("tovrCMT");
    }

    @Test
    void doubleDelete() {
        long v = zel_fnd_job_moduleJNI.new_vectorl__SWIG_1(4);
        zel_fnd_job_moduleJNI.delete_vectorl(v);
        zel_fnd_job_moduleJNI.delete_vectorl(v);
    }
}
