// Job observer.
#include "zel_fnd_job_observer.h"

#include <cstring>

#include "CJvm.h"
#include "cmt_trace.h"
#include "zel_fnd_observer_env.h"

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
      jcls_job_proxy_(nullptr),
      jcls_job_(nullptr),
      jcls_job_state_(nullptr),
      mid_job_state_changed_(nullptr),
      mid_scan_count_(nullptr),
      mid_start_prohibition_(nullptr),
      mid_comb_constraint_(nullptr),
      mid_panel_message_update_(nullptr) {}

zel_fnd_job_observer::~zel_fnd_job_observer() {
    if (vm_ == nullptr) return;
    JNIEnv* env = zel_fnd_calling_thread_env(vm_);
    zel_fnd_delete_global(env, &jcls_job_proxy_);
    zel_fnd_delete_global(env, &jcls_job_);
    zel_fnd_delete_global(env, &jcls_job_state_);
    thread_detach();
}

int zel_fnd_job_observer::init() {
    jsize count = 0;
    jint rc = JNI_GetCreatedJavaVMs(&vm_, 1, &count);
    if (rc != JNI_OK) return rc;
    // A failed attach is reported as success; the observer is registered all the same.
    JNIEnv* const env = thread_attach();
    if (env == nullptr) return 0;
    if (zel_fnd_find_global_class(env, kJobProxy, &jcls_job_proxy_) &&
        zel_fnd_find_global_class(env, kJob, &jcls_job_) &&
        zel_fnd_find_global_class(env, kJobState, &jcls_job_state_)) {
        const zel_fnd_static_method methods[] = {
            {&jcls_job_proxy_, "fireJobStateChangedEvent", "(Ltarnwick/zel/controller/event/job/Job;)V", &mid_job_state_changed_},
            {&jcls_job_proxy_, "fireScanCountEvent", "(JJ)V", &mid_scan_count_},
            {&jcls_job_proxy_, "fireStartProhibitionEvent", "(J)V", &mid_start_prohibition_},
            {&jcls_job_proxy_, "fireCombConstraintEvent", "(J)V", &mid_comb_constraint_},
            {&jcls_job_proxy_, "firePanelMessageUpdateEvent", "(J)V", &mid_panel_message_update_},
        };
        zel_fnd_lookup_static_methods(env, methods);
    }
    return thread_detach();
}

// Attaches the delivering thread. The environment lands in a local first and is then stored in
// the member, which every notification overwrites; the notification itself works only with the
// value returned here, since a notification of the same observer on another facade thread may
// overwrite the member at any moment.
JNIEnv* zel_fnd_job_observer::thread_attach() {
    JNIEnv* env = nullptr;
    const bool attached = zel_fnd_thread_attach(vm_, &env);
    jnienv_ = env;
    return attached ? env : nullptr;
}

int zel_fnd_job_observer::thread_detach() { return zel_fnd_thread_detach(vm_); }

long zel_fnd_job_observer::fire_simple(const char* operation, jmethodID method, jlong first, jlong second,
                                       int count) {
    JNIEnv* const env = thread_attach();
    if (env == nullptr) return kFailure;
    CMT_TRACE_OP(kTraceFlow, operation, "[Start]");
    if (count == 2) {
        env->CallStaticVoidMethod(jcls_job_proxy_, method, first, second);
    } else {
        env->CallStaticVoidMethod(jcls_job_proxy_, method, first);
    }
    if (zel_fnd_drop_exception(env)) {  // the listener failed: the event was not handled
        thread_detach();
        return kFailure;
    }
    CMT_TRACE_OP(kTraceFlow, operation, "[End]");
    thread_detach();
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

// A failed Java step: the trace names it at the error level, the exception (if any) is
// described and cleared, and the thread detaches. Local references made so far go with it.
#define JOB_FAIL(...)                        \
    do {                                     \
        zel_fnd_drop_exception(env);         \
        CMT_TRACE(kTraceError, __VA_ARGS__); \
        thread_detach();                     \
        return kFailure;                     \
    } while (0)

// An exception thrown by a Java setter or the fire method: no trace of its own.
#define JOB_CHECK_CALL()                   \
    do {                                   \
        if (zel_fnd_drop_exception(env)) { \
            thread_detach();               \
            return kFailure;               \
        }                                  \
    } while (0)

long zel_fnd_job_observer::notify_job_state_changed(ESV_ZEL_JOB_STATE state) {
    JNIEnv* const env = thread_attach();
    if (env == nullptr) return kFailure;
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
            thread_detach();
            return 0;
        }
        break;
    case 2:
        name = "SCAN_COMPLETE";
        break;
    case 3:
        // Reservations are not reported to Java.
        CMT_TRACE(kTraceFlow, "[End]. state = ESV_ZEL_EVENT_JOB_RSV.");
        thread_detach();
        return 0;
    default:
        CMT_TRACE(kTraceFlow, "[End]. unknown job state. state = [%d]", state.state);
        thread_detach();
        return 0;
    }

    jfieldID field = env->GetStaticFieldID(jcls_job_state_, name, kJobStateSignature);
    jobject jobstate = field != nullptr ? env->GetStaticObjectField(jcls_job_state_, field) : nullptr;
    if (jobstate == nullptr) JOB_FAIL("[End]. jnienv_->GetStaticObjectField(jcls_job_state_, field) jobstate = NULL");

    jmethodID mid = env->GetMethodID(jcls_job_, "<init>", "()V");
    if (mid == 0) JOB_FAIL("jnienv_->GetMethodID(jcls_job_, <init>, ()V) mid = 0");
    jobject job = env->NewObject(jcls_job_, mid);
    if (job == nullptr) JOB_FAIL("jnienv_->NewObject(jcls_job_, mid) obj = NULL");

    mid = env->GetMethodID(jcls_job_, "setJobid", "(I)V");
    if (mid == 0) JOB_FAIL("jnienv_->GetMethodID(jcls_job_, setJobid, (I)V) mid = 0");
    env->CallVoidMethod(job, mid, static_cast<jint>(state.user_job_id));
    JOB_CHECK_CALL();

    mid = env->GetMethodID(jcls_job_, "setState", "(Ltarnwick/zel/controller/event/job/JobState;)V");
    if (mid == 0) {
        JOB_FAIL("jnienv_->GetMethodID(jcls_job_, setState, (Ltarnwick/zel/controller/event/job/JobState;)V) mid = 0");
    }
    env->CallVoidMethod(job, mid, jobstate);
    JOB_CHECK_CALL();

    mid = env->GetMethodID(jcls_job_, "setJobMode", "(I)V");
    if (mid == 0) JOB_FAIL(" jnienv_->GetMethodID(jcls_job_, setJobMode, (I)V) mid = 0");
    env->CallVoidMethod(job, mid, static_cast<jint>(state.job_mode));
    JOB_CHECK_CALL();

    mid = env->GetMethodID(jcls_job_, "setUserName", "(Ljava/lang/String;)V");
    if (mid == 0) JOB_FAIL("jnienv_->GetMethodID(jcls_job_, setUserName, (Ljava/lang/String;)V) mid = 0");
    // The facade's text field need not be terminated: read it within its bounds.
    char user_name[sizeof state.user_name + 1];
    std::memcpy(user_name, state.user_name, sizeof state.user_name);
    user_name[sizeof state.user_name] = '\0';
    jstring juser_name = env->NewStringUTF(user_name);
    if (juser_name == nullptr) JOB_FAIL("jnienv_->NewStringUTF(state.user_name) obj = NULL");
    env->CallVoidMethod(job, mid, juser_name);
    JOB_CHECK_CALL();

    mid = env->GetMethodID(jcls_job_, "setIndev", "(I)V");
    if (mid == 0) JOB_FAIL("jnienv_->GetMethodID(jcls_job_, setIndev, (I)V) mid = 0");
    env->CallVoidMethod(job, mid, static_cast<jint>(state.in_dev));
    JOB_CHECK_CALL();

    mid = env->GetMethodID(jcls_job_, "setOutdev", "(I)V");
    if (mid == 0) JOB_FAIL("jnienv_->GetMethodID(jcls_job_, setOutdev, (I)V) mid = 0");
    env->CallVoidMethod(job, mid, static_cast<jint>(state.out_dev));
    JOB_CHECK_CALL();

    env->CallStaticVoidMethod(jcls_job_proxy_, mid_job_state_changed_, job);
    JOB_CHECK_CALL();
    CMT_TRACE(kTraceFlow, "[End]");

    env->DeleteLocalRef(jobstate);
    env->DeleteLocalRef(job);
    env->DeleteLocalRef(juser_name);
    thread_detach();
    return 0;
}

}  // namespace tarnwick
