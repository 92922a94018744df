// Job-information observer.
#include "zel_fnd_jobinfo_observer.h"

#include "CJvm.h"
#include "cmt_trace.h"

#define CMT_TRACE_MODULE "zel_fnd_jobinfo_observer"

namespace tarnwick {

zel_fnd_jobinfo_observer::zel_fnd_jobinfo_observer()
    : vm_(nullptr), jnienv_(nullptr), mid_page_(nullptr), mid_job_log_(nullptr), mid_interpreter_(nullptr) {}

zel_fnd_jobinfo_observer::~zel_fnd_jobinfo_observer() {
    if (vm_ == nullptr) return;
    JNIEnv* env = jni::calling_thread_env(vm_);
    jcls_jobinfo_proxy_.reset(env);
    jcls_print_page_info_.reset(env);
    jcls_scan_page_info_.reset(env);
    jcls_fax_send_page_info_.reset(env);
    jcls_joblog_info_.reset(env);
    jcls_interpreter_info_.reset(env);
    thread_detach();
}

int zel_fnd_jobinfo_observer::init() {
    jsize count = 0;
    jint rc = JNI_GetCreatedJavaVMs(&vm_, 1, &count);
    if (rc != JNI_OK) return rc;
    JNIEnv* const env = thread_attach();
    if (env == nullptr) return 0;
    if (jcls_jobinfo_proxy_.find(env, "tarnwick/zel/controller/event/proxy/JobInfoProxy") &&
        jcls_print_page_info_.find(env, "tarnwick/zel/controller/event/job/PrintPageInfo") &&
        jcls_scan_page_info_.find(env, "tarnwick/zel/controller/event/job/ScanPageInfo") &&
        jcls_fax_send_page_info_.find(env, "tarnwick/zel/controller/event/job/FaxSendPageInfo") &&
        jcls_joblog_info_.find(env, "tarnwick/zel/controller/event/job/JobLogInfo") &&
        jcls_interpreter_info_.find(env, "tarnwick/zel/controller/event/job/InterpreterInfo")) {
        const jni::StaticMethod methods[] = {
            {&jcls_jobinfo_proxy_, "firePageEvent", "(Ljava/lang/Object;)V", &mid_page_},
            {&jcls_jobinfo_proxy_, "fireJobLogEvent", "(Ltarnwick/zel/controller/event/job/JobLogInfo;)V", &mid_job_log_},
            {&jcls_jobinfo_proxy_, "fireInterpreterEvent", "(Ltarnwick/zel/controller/event/job/InterpreterInfo;)V", &mid_interpreter_},
        };
        jni::lookup_static_methods(env, methods);
    }
    return thread_detach();
}

JNIEnv* zel_fnd_jobinfo_observer::thread_attach() { return jni::attach_thread_env(vm_, &jnienv_); }

int zel_fnd_jobinfo_observer::thread_detach() { return jni::detach_thread(vm_); }

bool zel_fnd_jobinfo_observer::call_setter(JNIEnv* env, jobject obj, jclass cls, const char* name, const char* signature,
                                           jvalue value) {
    jmethodID mid = env->GetMethodID(cls, name, signature);
    if (mid == nullptr) return false;
    env->CallVoidMethodA(obj, mid, &value);
    return !jni::pending(env);
}

bool zel_fnd_jobinfo_observer::set_long(JNIEnv* env, jobject obj, jclass cls, const char* name, jlong value) {
    jvalue v;
    v.j = value;
    return call_setter(env, obj, cls, name, "(J)V", v);
}

bool zel_fnd_jobinfo_observer::set_int(JNIEnv* env, jobject obj, jclass cls, const char* name, jint value) {
    jvalue v;
    v.i = value;
    return call_setter(env, obj, cls, name, "(I)V", v);
}

jobject zel_fnd_jobinfo_observer::new_info(JNIEnv* env, const jni::GlobalClass& cls, const char* operation, const char* message) {
    jmethodID ctor = env->GetMethodID(cls.get(), "<init>", "()V");
    if (ctor == nullptr) return nullptr;
    jobject obj = env->NewObject(cls.get(), ctor);
    if (obj == nullptr) CMT_TRACE_OP(kTraceError, operation, "%s", message);
    return obj;
}

long zel_fnd_jobinfo_observer::fire(const Notification& call, jmethodID method, jobject info, const char* operation) {
    JNIEnv* const env = call.env();
    env->CallStaticVoidMethod(jcls_jobinfo_proxy_.get(), method, info);
    if (jni::pending(env)) return call.fail();
    CMT_TRACE_OP(kTraceFlow, operation, "[End]");
    return 0;
}

// A failed step (a missing method, a setter or fire method that threw, an object or string
// not made) ends the notification with call.fail(); the info object's local reference goes
// and the thread detaches as the scope ends.

long zel_fnd_jobinfo_observer::notify_job_update_log(const ESV_ZEL_EVENT_JOB_UPDATE_LOG& log) {
    Notification call(*this, kFailure);
    if (!call.attached()) return kFailure;
    JNIEnv* const env = call.env();
    CMT_TRACE(kTraceFlow, "[Start]");
    jni::LocalRef<jobject> info(
        env, new_info(env, jcls_joblog_info_, __func__, "jnienv_->NewObject(jcls_joblog_info_, mid) obj = NULL"));
    if (!info) return call.fail();
    const jclass cls = jcls_joblog_info_.get();
    CMT_TRACE(kTraceFlow, "user_job_id = [%d]", static_cast<int>(log.user_job_id));
    if (!set_long(env, info.get(), cls, "setUserJobId", static_cast<jlong>(log.user_job_id))) return call.fail();
    CMT_TRACE(kTraceFlow, "receipt_id = [%d]", static_cast<int>(log.receipt_id));
    if (!set_long(env, info.get(), cls, "setReceiptId", static_cast<jlong>(log.receipt_id))) return call.fail();
    return fire(call, mid_job_log_, info.get(), __func__);
}

long zel_fnd_jobinfo_observer::notify_fax_send_page_info(const ESV_ZEL_EVENT_SEND_PAGE& page) {
    Notification call(*this, kFailure);
    if (!call.attached()) return kFailure;
    JNIEnv* const env = call.env();
    CMT_TRACE(kTraceFlow, "[Start]");
    jni::LocalRef<jobject> info(env, new_info(env, jcls_fax_send_page_info_, __func__,
                                                  "jnienv_->NewObject(jcls_fax_send_page_info_, mid) obj = NULL"));
    if (!info) return call.fail();
    const jclass cls = jcls_fax_send_page_info_.get();
    CMT_TRACE(kTraceFlow, "user_job_id = [%d]", static_cast<int>(page.user_job_id));
    if (!set_long(env, info.get(), cls, "setUserJobId", static_cast<jlong>(page.user_job_id)) ||
        !set_long(env, info.get(), cls, "setPageNum", static_cast<jlong>(page.page_num))) {
        return call.fail();
    }
    return fire(call, mid_page_, info.get(), __func__);
}

long zel_fnd_jobinfo_observer::notify_renint_start_info(const ESV_ZEL_EVENT_RENINT_START& start,
                                                        const char* job_name) {
    Notification call(*this, kFailure);
    if (!call.attached()) return kFailure;
    JNIEnv* const env = call.env();
    CMT_TRACE(kTraceFlow, "[Start]");
    jni::LocalRef<jobject> info(env, new_info(env, jcls_interpreter_info_, __func__,
                                                  "jnienv_->NewObject(jcls_interpreter_info_, mid) obj = NULL"));
    if (!info) return call.fail();
    const jclass cls = jcls_interpreter_info_.get();
    CMT_TRACE(kTraceFlow, "user_job_id = [%d]", static_cast<int>(start.user_job_id));
    if (!set_long(env, info.get(), cls, "setUserJobId", static_cast<jlong>(start.user_job_id)) ||
        !set_int(env, info.get(), cls, "setNameSetting", static_cast<jint>(start.name_setting)) ||
        !set_long(env, info.get(), cls, "setInterfaceInfo", static_cast<jlong>(start.interface_info))) {
        return call.fail();
    }
    jmethodID mid = env->GetMethodID(cls, "setJobName", "(Ljava/lang/String;)V");
    if (mid == nullptr) return call.fail();
    // A missing name cannot be converted: it fails like a refused conversion.
    jni::LocalRef<jstring> name(env, job_name != nullptr ? env->NewStringUTF(job_name) : nullptr);
    if (!name) {
        CMT_TRACE(kTraceError, "jnienv_->NewStringUTF(job_name) obj = NULL");
        return call.fail();
    }
    env->CallVoidMethod(info.get(), mid, name.get());
    if (jni::pending(env)) return call.fail();
    name.reset();
    return fire(call, mid_interpreter_, info.get(), __func__);
}

long zel_fnd_jobinfo_observer::notify_print_page_info(const ESV_ZEL_EVENT_PRINT_PAGE& page) {
    Notification call(*this, kFailure);
    if (!call.attached()) return kFailure;
    JNIEnv* const env = call.env();
    CMT_TRACE(kTraceFlow, "[Start]");
    jni::LocalRef<jobject> info(env, new_info(env, jcls_print_page_info_, __func__,
                                                  "jnienv_->NewObject(jcls_print_page_info_, mid) obj = NULL"));
    if (!info) return call.fail();
    const jobject obj = info.get();
    const jclass cls = jcls_print_page_info_.get();
    CMT_TRACE(kTraceFlow, "user_job_id = [%d]", static_cast<int>(page.user_job_id));
    if (!set_long(env, obj, cls, "setUserJobId", static_cast<jlong>(page.user_job_id)) ||
        !set_long(env, obj, cls, "setPageNum", static_cast<jlong>(page.page_num)) ||
        !set_int(env, obj, cls, "setOutputDev", page.output_dev) ||
        !set_int(env, obj, cls, "setInputDev", page.input_dev) ||
        !set_int(env, obj, cls, "setCustomX", static_cast<jint>(page.custom_x)) ||
        !set_int(env, obj, cls, "setCustomY", static_cast<jint>(page.custom_y)) ||
        !set_int(env, obj, cls, "setPaperSize", page.paper_size) ||
        !set_int(env, obj, cls, "setPaperType", page.paper_type) ||
        !set_int(env, obj, cls, "setPaperDir", page.paper_dir) ||
        !set_int(env, obj, cls, "setPaperWeight", page.paper_weight) ||
        !set_int(env, obj, cls, "setDuplex", page.duplex) ||
        !set_int(env, obj, cls, "setStaple", page.staple) ||
        !set_int(env, obj, cls, "setPunch", page.punch) ||
        !set_int(env, obj, cls, "setColorMode", page.color_mode)) {
        return call.fail();
    }
    return fire(call, mid_page_, obj, __func__);
}

long zel_fnd_jobinfo_observer::notify_scan_page_info(const ESV_ZEL_EVENT_SCAN_PAGE& page) {
    Notification call(*this, kFailure);
    if (!call.attached()) return kFailure;
    JNIEnv* const env = call.env();
    CMT_TRACE(kTraceFlow, "[Start]");
    jni::LocalRef<jobject> info(env, new_info(env, jcls_scan_page_info_, __func__,
                                                  "jnienv_->NewObject(jcls_scan_page_info_, mid) obj = NULL"));
    if (!info) return call.fail();
    const jobject obj = info.get();
    const jclass cls = jcls_scan_page_info_.get();
    CMT_TRACE(kTraceFlow, "user_job_id = [%d]", static_cast<int>(page.user_job_id));
    if (!set_long(env, obj, cls, "setUserJobId", static_cast<jlong>(page.user_job_id)) ||
        !set_long(env, obj, cls, "setPageNum", static_cast<jlong>(page.page_num)) ||
        !set_int(env, obj, cls, "setCustomX", static_cast<jint>(page.custom_x)) ||
        !set_int(env, obj, cls, "setCustomY", static_cast<jint>(page.custom_y)) ||
        !set_int(env, obj, cls, "setPaperSize", page.paper_size) ||
        !set_int(env, obj, cls, "setPaperDir", page.paper_dir) ||
        !set_int(env, obj, cls, "setDuplex", page.duplex) ||
        !set_int(env, obj, cls, "setColorMode", page.color_mode) ||
        !set_int(env, obj, cls, "setResolution", page.resolution)) {
        return call.fail();
    }
    return fire(call, mid_page_, obj, __func__);
}

}  // namespace tarnwick
