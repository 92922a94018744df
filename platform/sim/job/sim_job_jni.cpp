// JNI side of tarnwick.sim.SimJobs: converts the arguments and calls the job service's control
// interface (tovr_sim_job.h).
#include <jni.h>

#include <string>
#include <vector>

#include "sim_jni.h"
#include "tovr_sim_job.h"

using tovr_sim_jni::answers;
using tovr_sim_jni::text;

namespace {

// The first `n` elements of a long[]; false with the VM's exception pending when it has fewer.
bool fields_of(JNIEnv* env, jlongArray a, std::size_t n, std::vector<long long>* out) {
    std::vector<jlong> f(n);
    env->GetLongArrayRegion(a, 0, static_cast<jsize>(n), f.data());
    if (env->ExceptionCheck()) return false;
    out->assign(f.begin(), f.end());
    return true;
}

}  // namespace

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

// ----- job facade notifications -----

JNIEXPORT jlongArray JNICALL Java_tarnwick_sim_SimJobs_jobStateChanged(JNIEnv* env, jclass, jint state, jlong user_job_id,
                                                                       jint result, jint job_mode, jstring user_name,
                                                                       jint in_dev, jint out_dev) {
    return answers(env, tovr_sim::raise_job_state_changed(state, static_cast<unsigned int>(user_job_id), result, job_mode,
                                                          text(env, user_name), in_dev, out_dev));
}

JNIEXPORT jlongArray JNICALL Java_tarnwick_sim_SimJobs_scanCount(JNIEnv* env, jclass, jlong a, jlong b) {
    return answers(env, tovr_sim::raise_scan_count(static_cast<unsigned int>(a), static_cast<unsigned int>(b)));
}

JNIEXPORT jlongArray JNICALL Java_tarnwick_sim_SimJobs_startPhb(JNIEnv* env, jclass, jlong id) {
    return answers(env, tovr_sim::raise_start_phb(static_cast<unsigned int>(id)));
}

JNIEXPORT jlongArray JNICALL Java_tarnwick_sim_SimJobs_disableInfo(JNIEnv* env, jclass, jlong id) {
    return answers(env, tovr_sim::raise_disable_info(static_cast<unsigned int>(id)));
}

JNIEXPORT jlongArray JNICALL Java_tarnwick_sim_SimJobs_mainMessage(JNIEnv* env, jclass, jlong id) {
    return answers(env, tovr_sim::raise_main_message(static_cast<unsigned int>(id)));
}

JNIEXPORT jlongArray JNICALL Java_tarnwick_sim_SimJobs_phbInfo(JNIEnv* env, jclass, jlong id) {
    return answers(env, tovr_sim::raise_phb_info(static_cast<unsigned int>(id)));
}

JNIEXPORT jlongArray JNICALL Java_tarnwick_sim_SimJobs_messageInfo(JNIEnv* env, jclass, jlong id) {
    return answers(env, tovr_sim::raise_message_info(static_cast<unsigned int>(id)));
}

// ----- job-information facade notifications -----

JNIEXPORT jlongArray JNICALL Java_tarnwick_sim_SimJobs_jobUpdateLog(JNIEnv* env, jclass, jlong user_job_id, jlong receipt_id) {
    return answers(env, tovr_sim::raise_job_update_log(static_cast<unsigned int>(user_job_id),
                                                       static_cast<unsigned int>(receipt_id)));
}

JNIEXPORT jlongArray JNICALL Java_tarnwick_sim_SimJobs_faxSendPage(JNIEnv* env, jclass, jlong user_job_id, jlong page_num) {
    return answers(env, tovr_sim::raise_fax_send_page_info(static_cast<unsigned int>(user_job_id),
                                                           static_cast<unsigned int>(page_num)));
}

JNIEXPORT jlongArray JNICALL Java_tarnwick_sim_SimJobs_renintStart(JNIEnv* env, jclass, jlong user_job_id, jint name_setting,
                                                                   jlong interface_info, jstring job_name) {
    const std::string name = text(env, job_name);
    return answers(env, tovr_sim::raise_renint_start_info(static_cast<unsigned int>(user_job_id), name_setting,
                                                          static_cast<unsigned int>(interface_info),
                                                          job_name == nullptr ? nullptr : name.c_str()));
}

JNIEXPORT jlongArray JNICALL Java_tarnwick_sim_SimJobs_printPage(JNIEnv* env, jclass, jlongArray fields) {
    std::vector<long long> f;
    if (!fields_of(env, fields, tovr_sim::kPrintPageFields, &f)) return nullptr;
    return answers(env, tovr_sim::raise_print_page_fields(f));
}

JNIEXPORT jlongArray JNICALL Java_tarnwick_sim_SimJobs_scanPage(JNIEnv* env, jclass, jlongArray fields) {
    std::vector<long long> f;
    if (!fields_of(env, fields, tovr_sim::kScanPageFields, &f)) return nullptr;
    return answers(env, tovr_sim::raise_scan_page_fields(f));
}

}  // extern "C"
