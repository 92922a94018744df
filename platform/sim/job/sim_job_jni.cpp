// JNI side of tarnwick.sim.SimJobs: control of the simulated job service for Java tests.
#include <jni.h>

#include <vector>

#include "tovr_sim_job.h"

extern "C" {

JNIEXPORT void JNICALL Java_tarnwick_sim_SimJobs_reset(JNIEnv*, jclass) { tovr_sim::reset_jobs(); }

JNIEXPORT void JNICALL Java_tarnwick_sim_SimJobs_setPace(JNIEnv*, jclass, jint ms) { tovr_sim::set_job_pace(ms); }

JNIEXPORT void JNICALL Java_tarnwick_sim_SimJobs_injectFault(JNIEnv*, jclass, jint times, jint code) {
    tovr_sim::inject_job_fault(times, code);
}

JNIEXPORT void JNICALL Java_tarnwick_sim_SimJobs_hold(JNIEnv*, jclass, jboolean on) { tovr_sim::hold_jobs(on != JNI_FALSE); }

JNIEXPORT jboolean JNICALL Java_tarnwick_sim_SimJobs_waitJobDone(JNIEnv*, jclass, jlong uid, jint ms) {
    return tovr_sim::wait_job_done(static_cast<unsigned int>(uid), ms) ? JNI_TRUE : JNI_FALSE;
}

JNIEXPORT jboolean JNICALL Java_tarnwick_sim_SimJobs_waitJobHeld(JNIEnv*, jclass, jlong uid, jint ms) {
    return tovr_sim::wait_job_held(static_cast<unsigned int>(uid), ms) ? JNI_TRUE : JNI_FALSE;
}

JNIEXPORT jlong JNICALL Java_tarnwick_sim_SimJobs_receiptOf(JNIEnv*, jclass, jlong uid) {
    return static_cast<jlong>(tovr_sim::receipt_of(static_cast<unsigned int>(uid)));
}

JNIEXPORT jbyteArray JNICALL Java_tarnwick_sim_SimJobs_scanDataOf(JNIEnv* env, jclass, jlong uid) {
    std::vector<unsigned char> bytes = tovr_sim::scan_data_of(static_cast<unsigned int>(uid));
    jbyteArray out = env->NewByteArray(static_cast<jsize>(bytes.size()));
    if (out == nullptr) return nullptr;
    env->SetByteArrayRegion(out, 0, static_cast<jsize>(bytes.size()), reinterpret_cast<const jbyte*>(bytes.data()));
    return out;
}

JNIEXPORT jint JNICALL Java_tarnwick_sim_SimJobs_scanPageBytes(JNIEnv*, jclass) {
    return static_cast<jint>(tovr_sim::kScanPageBytes);
}

}  // extern "C"
