// Job-information observer.
#include "zel_fnd_jobinfo_observer.h"

#include "CJvm.h"
#include "cmt_trace.h"
#include "zel_fnd_observer_env.h"

#define CMT_TRACE_MODULE "zel_fnd_jobinfo_observer"

namespace tarnwick {

zel_fnd_jobinfo_observer::zel_fnd_jobinfo_observer()
    : vm_(nullptr),
      jnienv_(nullptr),
      jcls_jobinfo_proxy_(nullptr),
      jcls_print_page_info_(nullptr),
      jcls_scan_page_info_(nullptr),
      jcls_fax_send_page_info_(nullptr),
      jcls_joblog_info_(nullptr),
      jcls_interpreter_info_(nullptr),
      mid_page_(nullptr),
      mid_job_log_(nullptr),
      mid_interpreter_(nullptr) {}

zel_fnd_jobinfo_observer::~zel_fnd_jobinfo_observer() {
    if (vm_ == nullptr) return;
    JNIEnv* env = zel_fnd_calling_thread_env(vm_);
    zel_fnd_delete_global(env, &jcls_jobinfo_proxy_);
    zel_fnd_delete_global(env, &jcls_print_page_info_);
    zel_fnd_delete_global(env, &jcls_scan_page_info_);
    zel_fnd_delete_global(env, &jcls_fax_send_page_info_);
    zel_fnd_delete_global(env, &jcls_joblog_info_);
    zel_fnd_delete_global(env, &jcls_interpreter_info_);
    thread_detach();
}

int zel_fnd_jobinfo_observer::init() {
    jsize count = 0;
    jint rc = JNI_GetCreatedJavaVMs(&vm_, 1, &count);
    if (rc != JNI_OK) return rc;
    JNIEnv* const env = thread_attach();
    if (env == nullptr) return 0;
    if (zel_fnd_find_global_class(env, "tarnwick/zel/controller/event/proxy/JobInfoProxy", &jcls_jobinfo_proxy_) &&
        zel_fnd_find_global_class(env, "tarnwick/zel/controller/event/job/PrintPageInfo", &jcls_print_page_info_) &&
        zel_fnd_find_global_class(env, "tarnwick/zel/controller/event/job/ScanPageInfo", &jcls_scan_page_info_) &&
        zel_fnd_find_global_class(env, "tarnwick/zel/controller/event/job/FaxSendPageInfo",
                                  &jcls_fax_send_page_info_) &&
        zel_fnd_find_global_class(env, "tarnwick/zel/controller/event/job/JobLogInfo", &jcls_joblog_info_) &&
        zel_fnd_find_global_class(env, "tarnwick/zel/controller/event/job/InterpreterInfo",
                                  &jcls_interpreter_info_)) {
        const zel_fnd_static_method methods[] = {
            {&jcls_jobinfo_proxy_, "firePageEvent", "(Ljava/lang/Object;)V", &mid_page_},
            {&jcls_jobinfo_proxy_, "fireJobLogEvent", "(Ltarnwick/zel/controller/event/job/JobLogInfo;)V", &mid_job_log_},
            {&jcls_jobinfo_proxy_, "fireInterpreterEvent", "(Ltarnwick/zel/controller/event/job/InterpreterInfo;)V", &mid_interpreter_},
        };
        zel_fnd_lookup_static_methods(env, methods);
    }
    return thread_detach();
}

// Attaches the delivering thread. The environment lands in a local first and is then stored in
// the member, which every notification overwrites; the notification itself works only with the
// value returned here, since a notification of the same observer on another facade thread may
// overwrite the member at any moment.
JNIEnv* zel_fnd_jobinfo_observer::thread_attach() {
    JNIEnv* env = nullptr;
    const bool attached = zel_fnd_thread_attach(vm_, &env);
    jnienv_ = env;
    return attached ? env : nullptr;
}

int zel_fnd_jobinfo_observer::thread_detach() { return zel_fnd_thread_detach(vm_); }

bool zel_fnd_jobinfo_observer::call_setter(JNIEnv* env, jobject obj, jclass cls, const char* name, const char* signature,
                                           jvalue value) {
    jmethodID mid = env->GetMethodID(cls, name, signature);
    if (mid == 0) {
        zel_fnd_drop_exception(env);
        return false;
    }
    env->CallVoidMethodA(obj, mid, &value);
    return !zel_fnd_drop_exception(env);
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

long zel_fnd_jobinfo_observer::fail(JNIEnv* env) {
    zel_fnd_drop_exception(env);
    thread_detach();
    return kFailure;
}

long zel_fnd_jobinfo_observer::fire(JNIEnv* env, jmethodID method, jobject object, const char* operation) {
    env->CallStaticVoidMethod(jcls_jobinfo_proxy_, method, object);
    if (zel_fnd_drop_exception(env)) {
        env->DeleteLocalRef(object);
        thread_detach();
        return kFailure;
    }
    CMT_TRACE_OP(kTraceFlow, operation, "[End]");
    env->DeleteLocalRef(object);
    thread_detach();
    return 0;
}

// Creates the info object; on failure traces `message` when the object itself could not be made
// (a missing constructor is not traced) and leaves the notification.
#define NEW_INFO(obj, cls, message)                              \
    jobject obj = nullptr;                                       \
    {                                                            \
        jmethodID ctor = env->GetMethodID(cls, "<init>", "()V"); \
        if (ctor == 0) return fail(env);                         \
        obj = env->NewObject(cls, ctor);                         \
        if (obj == nullptr) {                                    \
            zel_fnd_drop_exception(env);                         \
            CMT_TRACE(kTraceError, message);                     \
            return fail(env);                                    \
        }                                                        \
    }

long zel_fnd_jobinfo_observer::notify_job_update_log(const ESV_ZEL_EVENT_JOB_UPDATE_LOG& log) {
    JNIEnv* const env = thread_attach();
    if (env == nullptr) return kFailure;
    CMT_TRACE(kTraceFlow, "[Start]");
    NEW_INFO(info, jcls_joblog_info_, "jnienv_->NewObject(jcls_joblog_info_, mid) obj = NULL");
    CMT_TRACE(kTraceFlow, "user_job_id = [%d]", static_cast<int>(log.user_job_id));
    if (!set_long(env, info, jcls_joblog_info_, "setUserJobId", static_cast<jlong>(log.user_job_id))) return fail(env);
    CMT_TRACE(kTraceFlow, "receipt_id = [%d]", static_cast<int>(log.receipt_id));
    if (!set_long(env, info, jcls_joblog_info_, "setReceiptId", static_cast<jlong>(log.receipt_id))) return fail(env);
    return fire(env, mid_job_log_, info, __func__);
}

long zel_fnd_jobinfo_observer::notify_fax_send_page_info(const ESV_ZEL_EVENT_SEND_PAGE& page) {
    JNIEnv* const env = thread_attach();
    if (env == nullptr) return kFailure;
    CMT_TRACE(kTraceFlow, "[Start]");
    NEW_INFO(info, jcls_fax_send_page_info_, "jnienv_->NewObject(jcls_fax_send_page_info_, mid) obj = NULL");
    jclass cls = jcls_fax_send_page_info_;
    CMT_TRACE(kTraceFlow, "user_job_id = [%d]", static_cast<int>(page.user_job_id));
    if (!set_long(env, info, cls, "setUserJobId", static_cast<jlong>(page.user_job_id)) ||
        !set_long(env, info, cls, "setPageNum", static_cast<jlong>(page.page_num))) {
        return fail(env);
    }
    return fire(env, mid_page_, info, __func__);
}

long zel_fnd_jobinfo_observer::notify_renint_start_info(const ESV_ZEL_EVENT_RENINT_START& start,
                                                        const char* job_name) {
    JNIEnv* const env = thread_attach();
    if (env == nullptr) return kFailure;
    CMT_TRACE(kTraceFlow, "[Start]");
    NEW_INFO(info, jcls_interpreter_info_, "jnienv_->NewObject(jcls_interpreter_info_, mid) obj = NULL");
    jclass cls = jcls_interpreter_info_;
    CMT_TRACE(kTraceFlow, "user_job_id = [%d]", static_cast<int>(start.user_job_id));
    if (!set_long(env, info, cls, "setUserJobId", static_cast<jlong>(start.user_job_id)) ||
        !set_int(env, info, cls, "setNameSetting", static_cast<jint>(start.name_setting)) ||
        !set_long(env, info, cls, "setInterfaceInfo", static_cast<jlong>(start.interface_info))) {
        return fail(env);
    }
    jmethodID mid = env->GetMethodID(cls, "setJobName", "(Ljava/lang/String;)V");
    if (mid == 0) return fail(env);
    // A missing name cannot be converted: it fails like a refused conversion.
    jstring name = job_name != nullptr ? env->NewStringUTF(job_name) : nullptr;
    if (name == nullptr) {
        zel_fnd_drop_exception(env);
        CMT_TRACE(kTraceError, "jnienv_->NewStringUTF(job_name) obj = NULL");
        return fail(env);
    }
    env->CallVoidMethod(info, mid, name);
    if (zel_fnd_drop_exception(env)) return fail(env);
    env->DeleteLocalRef(name);
    return fire(env, mid_interpreter_, info, __func__);
}

long zel_fnd_jobinfo_observer::notify_print_page_info(const ESV_ZEL_EVENT_PRINT_PAGE& page) {
    JNIEnv* const env = thread_attach();
    if (env == nullptr) return kFailure;
    CMT_TRACE(kTraceFlow, "[Start]");
    NEW_INFO(info, jcls_print_page_info_, "jnienv_->NewObject(jcls_print_page_info_, mid) obj = NULL");
    jclass cls = jcls_print_page_info_;
    CMT_TRACE(kTraceFlow, "user_job_id = [%d]", static_cast<int>(page.user_job_id));
    if (!set_long(env, info, cls, "setUserJobId", static_cast<jlong>(page.user_job_id)) ||
        !set_long(env, info, cls, "setPageNum", static_cast<jlong>(page.page_num)) ||
        !set_int(env, info, cls, "setOutputDev", page.output_dev) ||
        !set_int(env, info, cls, "setInputDev", page.input_dev) ||
        !set_int(env, info, cls, "setCustomX", static_cast<jint>(page.custom_x)) ||
        !set_int(env, info, cls, "setCustomY", static_cast<jint>(page.custom_y)) ||
        !set_int(env, info, cls, "setPaperSize", page.paper_size) ||
        !set_int(env, info, cls, "setPaperType", page.paper_type) ||
        !set_int(env, info, cls, "setPaperDir", page.paper_dir) ||
        !set_int(env, info, cls, "setPaperWeight", page.paper_weight) ||
        !set_int(env, info, cls, "setDuplex", page.duplex) ||
        !set_int(env, info, cls, "setStaple", page.staple) ||
        !set_int(env, info, cls, "setPunch", page.punch) ||
        !set_int(env, info, cls, "setColorMode", page.color_mode)) {
        return fail(env);
    }
    return fire(env, mid_page_, info, __func__);
}

long zel_fnd_jobinfo_observer::notify_scan_page_info(const ESV_ZEL_EVENT_SCAN_PAGE& page) {
    JNIEnv* const env = thread_attach();
    if (env == nullptr) return kFailure;
    CMT_TRACE(kTraceFlow, "[Start]");
    NEW_INFO(info, jcls_scan_page_info_, "jnienv_->NewObject(jcls_scan_page_info_, mid) obj = NULL");
    jclass cls = jcls_scan_page_info_;
    CMT_TRACE(kTraceFlow, "user_job_id = [%d]", static_cast<int>(page.user_job_id));
    if (!set_long(env, info, cls, "setUserJobId", static_cast<jlong>(page.user_job_id)) ||
        !set_long(env, info, cls, "setPageNum", static_cast<jlong>(page.page_num)) ||
        !set_int(env, info, cls, "setCustomX", static_cast<jint>(page.custom_x)) ||
        !set_int(env, info, cls, "setCustomY", static_cast<jint>(page.custom_y)) ||
        !set_int(env, info, cls, "setPaperSize", page.paper_size) ||
        !set_int(env, info, cls, "setPaperDir", page.paper_dir) ||
        !set_int(env, info, cls, "setDuplex", page.duplex) ||
        !set_int(env, info, cls, "setColorMode", page.color_mode) ||
        !set_int(env, info, cls, "setResolution", page.resolution)) {
        return fail(env);
    }
    return fire(env, mid_page_, info, __func__);
}

}  // namespace tarnwick
