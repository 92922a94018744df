// Job-information observer.
#include "zel_fnd_jobinfo_observer.h"

#include <cstddef>

#include "cmt_trace.h"

#define CMT_TRACE_MODULE "zel_fnd_jobinfo_observer"

namespace tarnwick {

namespace {

// Each info class: its constructor, then its setters in the order a notification calls them.
constexpr jni::Member kInit{jni::Member::kConstructor, "<init>", "()V"};
constexpr jni::Member kSetUserJobId{jni::Member::kMethod, "setUserJobId", "(J)V"};
constexpr jni::Member kSetPageNum{jni::Member::kMethod, "setPageNum", "(J)V"};

constexpr jni::Member int_setter(const char* name) { return {jni::Member::kMethod, name, "(I)V"}; }

jni::JavaClass& joblog_info_class() {
    static const jni::Member members[] = {kInit, kSetUserJobId, {jni::Member::kMethod, "setReceiptId", "(J)V"}};
    static jni::JavaClass holder("tarnwick/zel/controller/event/job/JobLogInfo", members);
    return holder;
}

jni::JavaClass& fax_send_page_info_class() {
    static const jni::Member members[] = {kInit, kSetUserJobId, kSetPageNum};
    static jni::JavaClass holder("tarnwick/zel/controller/event/job/FaxSendPageInfo", members);
    return holder;
}

jni::JavaClass& interpreter_info_class() {
    static const jni::Member members[] = {
        kInit, kSetUserJobId, int_setter("setNameSetting"), {jni::Member::kMethod, "setInterfaceInfo", "(J)V"},
        {jni::Member::kMethod, "setJobName", "(Ljava/lang/String;)V"},
    };
    static jni::JavaClass holder("tarnwick/zel/controller/event/job/InterpreterInfo", members);
    return holder;
}

jni::JavaClass& print_page_info_class() {
    static const jni::Member members[] = {
        kInit, kSetUserJobId, kSetPageNum, int_setter("setOutputDev"), int_setter("setInputDev"),
        int_setter("setCustomX"), int_setter("setCustomY"), int_setter("setPaperSize"), int_setter("setPaperType"),
        int_setter("setPaperDir"), int_setter("setPaperWeight"), int_setter("setDuplex"), int_setter("setStaple"),
        int_setter("setPunch"), int_setter("setColorMode"),
    };
    static jni::JavaClass holder("tarnwick/zel/controller/event/job/PrintPageInfo", members);
    return holder;
}

jni::JavaClass& scan_page_info_class() {
    static const jni::Member members[] = {
        kInit, kSetUserJobId, kSetPageNum, int_setter("setCustomX"), int_setter("setCustomY"),
        int_setter("setPaperSize"), int_setter("setPaperDir"), int_setter("setDuplex"), int_setter("setColorMode"),
        int_setter("setResolution"),
    };
    static jni::JavaClass holder("tarnwick/zel/controller/event/job/ScanPageInfo", members);
    return holder;
}

// An info object of `cls` made with its no-argument constructor; null when that fails, after
// tracing `message` under `operation` when the object itself could not be made (a missing
// constructor is not traced).
jobject new_info(JNIEnv* env, jni::JavaClass& cls, const char* operation, const char* message) {
    const jclass c = cls.get(env);
    const jmethodID ctor = cls.method(0);
    if (ctor == nullptr) return nullptr;
    jobject obj = env->NewObject(c, ctor);
    if (obj == nullptr) CMT_TRACE_OP(kTraceError, operation, "%s", message);
    return obj;
}

// Calls the setters of `cls` from member `first` on, one value each, in order; false at the
// first that is missing or throws (failed lookups are not traced).
template <std::size_t N>
bool set_all(JNIEnv* env, jobject obj, const jni::JavaClass& cls, std::size_t first, const jvalue (&values)[N]) {
    for (std::size_t i = 0; i < N; ++i) {
        const jmethodID mid = cls.method(first + i);
        if (mid == nullptr || !call_setter(env, obj, mid, values[i])) return false;
    }
    return true;
}

// The steps every notification starts with: "[Start]", a new info object of `cls` in `info`,
// the user job id traced, then the setters from the first on called with `values`. False at
// the first step that fails; the notification then answers call.fail().
template <std::size_t N>
bool begin(JNIEnv* env, const char* operation, jni::JavaClass& cls, const char* not_made, unsigned int user_job_id,
           const jvalue (&values)[N], jni::LocalRef<jobject>& info) {
    CMT_TRACE_OP(kTraceFlow, operation, "[Start]");
    info.reset(env, new_info(env, cls, operation, not_made));
    if (!info) return false;
    CMT_TRACE_OP(kTraceFlow, operation, "user_job_id = [%d]", static_cast<int>(user_job_id));
    return set_all(env, info.get(), cls, 1, values);
}

}  // namespace

zel_fnd_jobinfo_observer::zel_fnd_jobinfo_observer() : zel_fnd_observer(CMT_TRACE_MODULE, Thrown::kFails) {}

int zel_fnd_jobinfo_observer::init() {
    return start({"tarnwick/zel/controller/event/proxy/JobInfoProxy"},
                 {&print_page_info_class(), &scan_page_info_class(), &fax_send_page_info_class(),
                  &joblog_info_class(), &interpreter_info_class()},
                 {{0, "firePageEvent", "(Ljava/lang/Object;)V"},
                  {0, "fireJobLogEvent", "(Ltarnwick/zel/controller/event/job/JobLogInfo;)V"},
                  {0, "fireInterpreterEvent",
                   "(Ltarnwick/zel/controller/event/job/InterpreterInfo;)V"}});
}

// A failed step (a missing method, a setter or fire method that threw, an object or string
// not made) ends the notification with call.fail(); the info object's local reference goes
// and the thread detaches as the scope ends.

long zel_fnd_jobinfo_observer::notify_job_update_log(const ESV_ZEL_EVENT_JOB_UPDATE_LOG& log) {
    Notification call(*this, kFailure, __func__);
    if (!call.attached()) return kFailure;
    JNIEnv* const env = call.env();
    jni::JavaClass& cls = joblog_info_class();
    jni::LocalRef<jobject> info;
    if (!begin(env, __func__, cls, "jnienv_->NewObject(jcls_joblog_info_, mid) obj = NULL", log.user_job_id,
               {java_value(static_cast<jlong>(log.user_job_id))}, info)) {
        return call.fail();
    }
    CMT_TRACE(kTraceFlow, "receipt_id = [%d]", static_cast<int>(log.receipt_id));
    if (!set_all(env, info.get(), cls, 2, {java_value(static_cast<jlong>(log.receipt_id))})) return call.fail();
    return call.fire(kJobLog, "[End]", nullptr, info.get());
}

long zel_fnd_jobinfo_observer::notify_fax_send_page_info(const ESV_ZEL_EVENT_SEND_PAGE& page) {
    Notification call(*this, kFailure, __func__);
    if (!call.attached()) return kFailure;
    jni::LocalRef<jobject> info;
    if (!begin(call.env(), __func__, fax_send_page_info_class(),
               "jnienv_->NewObject(jcls_fax_send_page_info_, mid) obj = NULL", page.user_job_id,
               {java_value(static_cast<jlong>(page.user_job_id)), java_value(static_cast<jlong>(page.page_num))},
               info)) {
        return call.fail();
    }
    return call.fire(kPage, "[End]", nullptr, info.get());
}

long zel_fnd_jobinfo_observer::notify_renint_start_info(const ESV_ZEL_EVENT_RENINT_START& start,
                                                        const char* job_name) {
    Notification call(*this, kFailure, __func__);
    if (!call.attached()) return kFailure;
    JNIEnv* const env = call.env();
    jni::JavaClass& cls = interpreter_info_class();
    jni::LocalRef<jobject> info;
    if (!begin(env, __func__, cls, "jnienv_->NewObject(jcls_interpreter_info_, mid) obj = NULL", start.user_job_id,
               {java_value(static_cast<jlong>(start.user_job_id)), java_value(static_cast<jint>(start.name_setting)),
                java_value(static_cast<jlong>(start.interface_info))},
               info)) {
        return call.fail();
    }
    const jmethodID set_job_name = cls.method(4);
    if (set_job_name == nullptr) return call.fail();
    // A missing name cannot be converted: it fails like a refused conversion.
    jni::LocalRef<jstring> name(env, job_name != nullptr ? env->NewStringUTF(job_name) : nullptr);
    if (!name) {
        CMT_TRACE(kTraceError, "jnienv_->NewStringUTF(job_name) obj = NULL");
        return call.fail();
    }
    if (!call_setter(env, info.get(), set_job_name, java_value(name.get()))) return call.fail();
    name.reset();
    return call.fire(kInterpreter, "[End]", nullptr, info.get());
}

long zel_fnd_jobinfo_observer::notify_print_page_info(const ESV_ZEL_EVENT_PRINT_PAGE& page) {
    Notification call(*this, kFailure, __func__);
    if (!call.attached()) return kFailure;
    jni::LocalRef<jobject> info;
    if (!begin(call.env(), __func__, print_page_info_class(),
               "jnienv_->NewObject(jcls_print_page_info_, mid) obj = NULL", page.user_job_id,
               {java_value(static_cast<jlong>(page.user_job_id)), java_value(static_cast<jlong>(page.page_num)),
                java_value(page.output_dev), java_value(page.input_dev),
                java_value(static_cast<jint>(page.custom_x)), java_value(static_cast<jint>(page.custom_y)),
                java_value(page.paper_size), java_value(page.paper_type), java_value(page.paper_dir),
                java_value(page.paper_weight), java_value(page.duplex), java_value(page.staple),
                java_value(page.punch), java_value(page.color_mode)},
               info)) {
        return call.fail();
    }
    return call.fire(kPage, "[End]", nullptr, info.get());
}

long zel_fnd_jobinfo_observer::notify_scan_page_info(const ESV_ZEL_EVENT_SCAN_PAGE& page) {
    Notification call(*this, kFailure, __func__);
    if (!call.attached()) return kFailure;
    jni::LocalRef<jobject> info;
    if (!begin(call.env(), __func__, scan_page_info_class(),
               "jnienv_->NewObject(jcls_scan_page_info_, mid) obj = NULL", page.user_job_id,
               {java_value(static_cast<jlong>(page.user_job_id)), java_value(static_cast<jlong>(page.page_num)),
                java_value(static_cast<jint>(page.custom_x)), java_value(static_cast<jint>(page.custom_y)),
                java_value(page.paper_size), java_value(page.paper_dir), java_value(page.duplex),
                java_value(page.color_mode), java_value(page.resolution)},
               info)) {
        return call.fail();
    }
    return call.fire(kPage, "[End]", nullptr, info.get());
}

}  // namespace tarnwick
