// Job observer.
#include "zel_fnd_job_observer.h"

#include "CJvm.h"
#include "cmt_trace.h"

#define CMT_TRACE_MODULE "zel_fnd_job_observer"

namespace tarnwick {

namespace {

const char kJobProxy[] = "tarnwick/zel/controller/event/proxy/JobProxy";
const char kJob[] = "tarnwick/zel/controller/event/job/Job";
const char kJobState[] = "tarnwick/zel/controller/event/job/JobState";
const char kJobStateSignature[] = "Ltarnwick/zel/controller/event/job/JobState;";

}  // namespace

zel_fnd_job_observer::zel_fnd_job_observer()
    : vm_(nullptr),
      jnienv_(nullptr),
      mid_job_state_changed_(nullptr),
      mid_scan_count_(nullptr),
      mid_start_prohibition_(nullptr),
      mid_comb_constraint_(nullptr),
      mid_panel_message_update_(nullptr) {}

zel_fnd_job_observer::~zel_fnd_job_observer() {
    if (vm_ == nullptr) return;
    JNIEnv* env = jni::calling_thread_env(vm_);
    jcls_job_proxy_.reset(env);
    jcls_job_.reset(env);
    jcls_job_state_.reset(env);
    thread_detach();
}

int zel_fnd_job_observer::init() {
    jsize count = 0;
    jint rc = JNI_GetCreatedJavaVMs(&vm_, 1, &count);
    if (rc != JNI_OK) return rc;
    // A failed attach is reported as success; the observer is registered all the same.
    JNIEnv* const env = thread_attach();
    if (env == nullptr) return 0;
    if (jcls_job_proxy_.find(env, kJobProxy) && jcls_job_.find(env, kJob) &&
        jcls_job_state_.find(env, kJobState)) {
        const jni::StaticMethod methods[] = {
            {&jcls_job_proxy_, "fireJobStateChangedEvent", "(Ltarnwick/zel/controller/event/job/Job;)V", &mid_job_state_changed_},
            {&jcls_job_proxy_, "fireScanCountEvent", "(JJ)V", &mid_scan_count_},
            {&jcls_job_proxy_, "fireStartProhibitionEvent", "(J)V", &mid_start_prohibition_},
            {&jcls_job_proxy_, "fireCombConstraintEvent", "(J)V", &mid_comb_constraint_},
            {&jcls_job_proxy_, "firePanelMessageUpdateEvent", "(J)V", &mid_panel_message_update_},
        };
        jni::lookup_static_methods(env, methods);
    }
    return thread_detach();
}

JNIEnv* zel_fnd_job_observer::thread_attach() { return jni::attach_thread_env(vm_, &jnienv_); }

int zel_fnd_job_observer::thread_detach() { return jni::detach_thread(vm_); }

// A failed Java step ends the notification with call.fail() (the exception, if any, described
// and cleared; the thread detaches as the scope ends). Failed lookups and conversions trace
// their step at the error level first; an exception thrown by a Java setter or the fire method
// has no trace of its own: the listener failed and the event was not handled.

long zel_fnd_job_observer::fire_simple(const char* operation, jmethodID method, jlong first, jlong second,
                                       int count) {
    jni::Notification call(*this, kFailure);
    if (!call.attached()) return kFailure;
    JNIEnv* const env = call.env();
    CMT_TRACE_OP(kTraceFlow, operation, "[Start]");
    if (count == 2) {
        env->CallStaticVoidMethod(jcls_job_proxy_.get(), method, first, second);
    } else {
        env->CallStaticVoidMethod(jcls_job_proxy_.get(), method, first);
    }
    if (jni::pending(env)) return call.fail();
    CMT_TRACE_OP(kTraceFlow, operation, "[End]");
    return 0;
}

long zel_fnd_job_observer::notify_scan_count(unsigned int count_1, unsigned int count_2) {
    return fire_simple("notify_scan_count", mid_scan_count_, static_cast<jlong>(count_1),
                       static_cast<jlong>(count_2), 2);
}

long zel_fnd_job_observer::notify_start_phb(unsigned int current_id) {
    return fire_simple("notify_start_phb", mid_start_prohibition_, static_cast<jlong>(current_id), 0, 1);
}

long zel_fnd_job_observer::notify_disable_info(unsigned int current_id) {
    return fire_simple("notify_disable_info", mid_comb_constraint_, static_cast<jlong>(current_id), 0, 1);
}

long zel_fnd_job_observer::notify_main_message(unsigned int current_id) {
    return fire_simple("notify_main_message", mid_panel_message_update_, static_cast<jlong>(current_id), 0, 1);
}

long zel_fnd_job_observer::notify_phb_info(unsigned int, ESV_ZEL_PHB_INFO&) { return 0; }

long zel_fnd_job_observer::notify_message_info(unsigned int, ESV_ZEL_PHB_GET_MESSAGE&) { return 0; }

long zel_fnd_job_observer::notify_job_state_changed(ESV_ZEL_JOB_STATE state) {
    jni::Notification call(*this, kFailure);
    if (!call.attached()) return kFailure;
    JNIEnv* const env = call.env();
    CMT_TRACE(kTraceFlow, "[Start]");

    const char* name = nullptr;
    switch (state.state) {
    case 0:
        name = "START";
        break;
    case 1:
        switch (state.result) {
        case 0:
            name = "COMPLETE";
            break;
        case 1:
            name = "CANCEL";
            break;
        case 2:
            name = "ERROR";
            break;
        default:
            CMT_TRACE(kTraceFlow, "[End]. unknown job result. result = [%d]", state.result);
            return 0;
        }
        break;
    case 2:
        name = "SCAN_COMPLETE";
        break;
    case 3:
        // Reservations are not reported to Java.
        CMT_TRACE(kTraceFlow, "[End]. state = ESV_ZEL_EVENT_JOB_RSV.");
        return 0;
    default:
        CMT_TRACE(kTraceFlow, "[End]. unknown job state. state = [%d]", state.state);
        return 0;
    }

    const jclass job_class = jcls_job_.get();
    const jclass job_state_class = jcls_job_state_.get();
    jfieldID field = env->GetStaticFieldID(job_state_class, name, kJobStateSignature);
    jni::LocalRef<jobject> jobstate(
        env, field != nullptr ? env->GetStaticObjectField(job_state_class, field) : nullptr);
    if (!jobstate) {
        CMT_TRACE(kTraceError, "[End]. jnienv_->GetStaticObjectField(jcls_job_state_, field) jobstate = NULL");
        return call.fail();
    }

    jmethodID mid = env->GetMethodID(job_class, "<init>", "()V");
    if (mid == nullptr) {
        CMT_TRACE(kTraceError, "jnienv_->GetMethodID(jcls_job_, <init>, ()V) mid = 0");
        return call.fail();
    }
    jni::LocalRef<jobject> job(env, env->NewObject(job_class, mid));
    if (!job) {
        CMT_TRACE(kTraceError, "jnienv_->NewObject(jcls_job_, mid) obj = NULL");
        return call.fail();
    }

    mid = env->GetMethodID(job_class, "setJobid", "(I)V");
    if (mid == nullptr) {
        CMT_TRACE(kTraceError, "jnienv_->GetMethodID(jcls_job_, setJobid, (I)V) mid = 0");
        return call.fail();
    }
    env->CallVoidMethod(job.get(), mid, static_cast<jint>(state.user_job_id));
    if (jni::pending(env)) return call.fail();

    mid = env->GetMethodID(job_class, "setState", "(Ltarnwick/zel/controller/event/job/JobState;)V");
    if (mid == nullptr) {
        CMT_TRACE(kTraceError,
                  "jnienv_->GetMethodID(jcls_job_, setState, (Ltarnwick/zel/controller/event/job/JobState;)V) mid = 0");
        return call.fail();
    }
    env->CallVoidMethod(job.get(), mid, jobstate.get());
    if (jni::pending(env)) return call.fail();

    mid = env->GetMethodID(job_class, "setJobMode", "(I)V");
    if (mid == nullptr) {
        CMT_TRACE(kTraceError, " jnienv_->GetMethodID(jcls_job_, setJobMode, (I)V) mid = 0");
        return call.fail();
    }
    env->CallVoidMethod(job.get(), mid, static_cast<jint>(state.job_mode));
    if (jni::pending(env)) return call.fail();

    mid = env->GetMethodID(job_class, "setUserName", "(Ljava/lang/String;)V");
    if (mid == nullptr) {
        CMT_TRACE(kTraceError, "jnienv_->GetMethodID(jcls_job_, setUserName, (Ljava/lang/String;)V) mid = 0");
        return call.fail();
    }
    jni::LocalRef<jstring> juser_name(env, jni::new_string_of_field(env, state.user_name));
    if (!juser_name) {
        CMT_TRACE(kTraceError, "jnienv_->NewStringUTF(state.user_name) obj = NULL");
        return call.fail();
    }
    env->CallVoidMethod(job.get(), mid, juser_name.get());
    if (jni::pending(env)) return call.fail();

    mid = env->GetMethodID(job_class, "setIndev", "(I)V");
    if (mid == nullptr) {
        CMT_TRACE(kTraceError, "jnienv_->GetMethodID(jcls_job_, setIndev, (I)V) mid = 0");
        return call.fail();
    }
    env->CallVoidMethod(job.get(), mid, static_cast<jint>(state.in_dev));
    if (jni::pending(env)) return call.fail();

    mid = env->GetMethodID(job_class, "setOutdev", "(I)V");
    if (mid == nullptr) {
        CMT_TRACE(kTraceError, "jnienv_->GetMethodID(jcls_job_, setOutdev, (I)V) mid = 0");
        return call.fail();
    }
    env->CallVoidMethod(job.get(), mid, static_cast<jint>(state.out_dev));
    if (jni::pending(env)) return call.fail();

    env->CallStaticVoidMethod(jcls_job_proxy_.get(), mid_job_state_changed_, job.get());
    if (jni::pending(env)) return call.fail();
    CMT_TRACE(kTraceFlow, "[End]");
    return 0;
}

}  // namespace tarnwick
