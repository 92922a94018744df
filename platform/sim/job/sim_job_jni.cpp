// JNI side of tarnwick.sim.SimJobs: converts the arguments and calls the job service's control
// interface (tovr_sim_job.h).
#include <jni.h>

#include <string>
#include <vector>

#include "sim_jni.h"
#include "sim_jni_natives.h"
#include "tovr_sim_job.h"

using tovr_sim::Answers;
using tovr_sim_jni::answers;
using tovr_sim_jni::notification;

namespace {

// The forms of overloaded control functions, and of those with more parameters than Java gives,
// that the natives raise.
constexpr Answers (*job_state_changed)(int, unsigned int, int, int, const std::string&, int, int) =
    tovr_sim::raise_job_state_changed;
constexpr Answers (*job_update_log)(unsigned int, unsigned int) = tovr_sim::raise_job_update_log;
constexpr Answers (*fax_send_page)(unsigned int, unsigned int) = tovr_sim::raise_fax_send_page_info;
constexpr Answers (*renint_start)(unsigned int, int, unsigned int, const char*) = tovr_sim::raise_renint_start_info;
Answers phb_info(unsigned int current_id) { return tovr_sim::raise_phb_info(current_id); }
Answers message_info(unsigned int current_id) { return tovr_sim::raise_message_info(current_id); }

// The job and job-information facades' notifications; the field-array ones (printPage,
// scanPage) are below.
const bool bound = tovr_sim_jni::bind_natives(
    "tarnwick/sim/SimJobs",
    {
        notification<job_state_changed>("jobStateChanged"),
        notification<tovr_sim::raise_scan_count>("scanCount"),
        notification<tovr_sim::raise_start_phb>("startPhb"),
        notification<tovr_sim::raise_disable_info>("disableInfo"),
        notification<tovr_sim::raise_main_message>("mainMessage"),
        notification<phb_info>("phbInfo"),
        notification<message_info>("messageInfo"),
        notification<job_update_log>("jobUpdateLog"),
        notification<fax_send_page>("faxSendPage"),
        notification<renint_start>("renintStart"),
    });

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
