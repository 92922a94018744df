// Job observer.
#include "zel_fnd_job_observer.h"

#include <cstddef>

#include "cmt_trace.h"
#include "tovr_jni_text.h"

#define CMT_TRACE_MODULE "zel_fnd_job_observer"

namespace tarnwick {

namespace {

const char kJobStateSignature[] = "Ltarnwick/zel/controller/event/job/JobState;";

// The JobState constants a state change reads.
enum JobStateConstant : std::size_t { kStart, kComplete, kCancel, kError, kScanComplete };

jni::JavaClass& job_state_class() {
    static const jni::Member members[] = {
        {jni::Member::kStaticField, "START", kJobStateSignature},
        {jni::Member::kStaticField, "COMPLETE", kJobStateSignature},
        {jni::Member::kStaticField, "CANCEL", kJobStateSignature},
        {jni::Member::kStaticField, "ERROR", kJobStateSignature},
        {jni::Member::kStaticField, "SCAN_COMPLETE", kJobStateSignature},
    };
    static jni::JavaClass holder("tarnwick/zel/controller/event/job/JobState", members);
    return holder;
}

// The Job members a state change calls, in the order it calls them.
enum JobMember : std::size_t { kJobInit, kSetJobid, kSetState, kSetJobMode, kSetUserName, kSetIndev, kSetOutdev };

jni::JavaClass& job_class() {
    static const jni::Member members[] = {
        {jni::Member::kConstructor, "<init>", "()V"},
        {jni::Member::kMethod, "setJobid", "(I)V"},
        {jni::Member::kMethod, "setState", "(Ltarnwick/zel/controller/event/job/JobState;)V"},
        {jni::Member::kMethod, "setJobMode", "(I)V"},
        {jni::Member::kMethod, "setUserName", "(Ljava/lang/String;)V"},
        {jni::Member::kMethod, "setIndev", "(I)V"},
        {jni::Member::kMethod, "setOutdev", "(I)V"},
    };
    static jni::JavaClass holder("tarnwick/zel/controller/event/job/Job", members);
    return holder;
}

// Job member `m`, as the step that would have looked it up: null, after tracing `missing`,
// when the class has none such.
jmethodID job_method(JobMember m, const char* missing) {
    const jmethodID mid = job_class().method(m);
    if (mid == nullptr) CMT_TRACE_OP(kTraceError, "notify_job_state_changed", "%s", missing);
    return mid;
}

// Job setter `m` called on `job` with `value`; false when it is missing or threw.
bool set_job(JNIEnv* env, jobject job, JobMember m, jvalue value, const char* missing) {
    const jmethodID mid = job_method(m, missing);
    return mid != nullptr && call_setter(env, job, mid, value);
}

}  // namespace

zel_fnd_job_observer::zel_fnd_job_observer() : zel_fnd_observer(CMT_TRACE_MODULE, Thrown::kFails) {}

int zel_fnd_job_observer::init() {
    return start({"tarnwick/zel/controller/event/proxy/JobProxy"}, {&job_class(), &job_state_class()},
                 {{0, "fireJobStateChangedEvent", "(Ltarnwick/zel/controller/event/job/Job;)V"},
                  {0, "fireScanCountEvent", "(JJ)V"},
                  {0, "fireStartProhibitionEvent", "(J)V"},
                  {0, "fireCombConstraintEvent", "(J)V"},
                  {0, "firePanelMessageUpdateEvent", "(J)V"}});
}

// A failed Java step ends the notification with call.fail() (the exception, if any, described
// and cleared; the thread detaches as the scope ends). Failed lookups and conversions trace
// their step at the error level first; an exception thrown by a Java setter or the fire method
// has no trace of its own: the listener failed and the event was not handled.

long zel_fnd_job_observer::notify_scan_count(unsigned int count_1, unsigned int count_2) {
    return forward("notify_scan_count", kFailure, nullptr, kScanCount, static_cast<jlong>(count_1),
                   static_cast<jlong>(count_2));
}

long zel_fnd_job_observer::notify_start_phb(unsigned int current_id) {
    return forward("notify_start_phb", kFailure, nullptr, kStartProhibition, static_cast<jlong>(current_id));
}

long zel_fnd_job_observer::notify_disable_info(unsigned int current_id) {
    return forward("notify_disable_info", kFailure, nullptr, kCombConstraint, static_cast<jlong>(current_id));
}

long zel_fnd_job_observer::notify_main_message(unsigned int current_id) {
    return forward("notify_main_message", kFailure, nullptr, kPanelMessageUpdate, static_cast<jlong>(current_id));
}

long zel_fnd_job_observer::notify_phb_info(unsigned int, ESV_ZEL_PHB_INFO&) { return 0; }

long zel_fnd_job_observer::notify_message_info(unsigned int, ESV_ZEL_PHB_GET_MESSAGE&) { return 0; }

long zel_fnd_job_observer::notify_job_state_changed(ESV_ZEL_JOB_STATE state) {
    Notification call(*this, kFailure, __func__);
    if (!call.attached()) return kFailure;
    JNIEnv* const env = call.env();
    CMT_TRACE(kTraceFlow, "[Start]");

    JobStateConstant constant;
    switch (state.state) {
    case 0:
        constant = kStart;
        break;
    case 1:
        switch (state.result) {
        case 0:
            constant = kComplete;
            break;
        case 1:
            constant = kCancel;
            break;
        case 2:
            constant = kError;
            break;
        default:
            CMT_TRACE(kTraceFlow, "[End]. unknown job result. result = [%d]", state.result);
            return 0;
        }
        break;
    case 2:
        constant = kScanComplete;
        break;
    case 3:
        // Reservations are not reported to Java.
        CMT_TRACE(kTraceFlow, "[End]. state = ESV_ZEL_EVENT_JOB_RSV.");
        return 0;
    default:
        CMT_TRACE(kTraceFlow, "[End]. unknown job state. state = [%d]", state.state);
        return 0;
    }

    const jclass job_state = job_state_class().get(env);
    const jfieldID field = job_state_class().field(constant);
    jni::LocalRef<jobject> jobstate(env, field != nullptr ? env->GetStaticObjectField(job_state, field) : nullptr);
    if (!jobstate) {
        CMT_TRACE(kTraceError, "[End]. jnienv_->GetStaticObjectField(jcls_job_state_, field) jobstate = NULL");
        return call.fail();
    }

    const jclass job_cls = job_class().get(env);
    const jmethodID init = job_method(kJobInit, "jnienv_->GetMethodID(jcls_job_, <init>, ()V) mid = 0");
    if (init == nullptr) return call.fail();
    jni::LocalRef<jobject> job(env, env->NewObject(job_cls, init));
    if (!job) {
        CMT_TRACE(kTraceError, "jnienv_->NewObject(jcls_job_, mid) obj = NULL");
        return call.fail();
    }

    if (!set_job(env, job.get(), kSetJobid, java_value(static_cast<jint>(state.user_job_id)),
                 "jnienv_->GetMethodID(jcls_job_, setJobid, (I)V) mid = 0") ||
        !set_job(env, job.get(), kSetState, java_value(jobstate.get()),
                 "jnienv_->GetMethodID(jcls_job_, setState, (Ltarnwick/zel/controller/event/job/JobState;)V) mid = 0") ||
        !set_job(env, job.get(), kSetJobMode, java_value(static_cast<jint>(state.job_mode)),
                 " jnienv_->GetMethodID(jcls_job_, setJobMode, (I)V) mid = 0")) {
        return call.fail();
    }

    const jmethodID set_user_name =
        job_method(kSetUserName, "jnienv_->GetMethodID(jcls_job_, setUserName, (Ljava/lang/String;)V) mid = 0");
    if (set_user_name == nullptr) return call.fail();
    jni::LocalRef<jstring> juser_name(env, jni::new_field_string(env, state.user_name));
    if (!juser_name) {
        CMT_TRACE(kTraceError, "jnienv_->NewStringUTF(state.user_name) obj = NULL");
        return call.fail();
    }
    if (!call_setter(env, job.get(), set_user_name, java_value(juser_name.get())) ||
        !set_job(env, job.get(), kSetIndev, java_value(static_cast<jint>(state.in_dev)),
                 "jnienv_->GetMethodID(jcls_job_, setIndev, (I)V) mid = 0") ||
        !set_job(env, job.get(), kSetOutdev, java_value(static_cast<jint>(state.out_dev)),
                 "jnienv_->GetMethodID(jcls_job_, setOutdev, (I)V) mid = 0")) {
        return call.fail();
    }

    return call.fire(kJobStateChanged, "[End]", nullptr, job.get());
}

}  // namespace tarnwick
