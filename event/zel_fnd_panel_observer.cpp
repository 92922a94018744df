// Panel observer.
#include "zel_fnd_panel_observer.h"

#include "CJvm.h"
#include "cmt_trace.h"

#define CMT_TRACE_MODULE "zel_fnd_panel_observer"

namespace tarnwick {

zel_fnd_panel_observer::zel_fnd_panel_observer()
    : vm_(nullptr), jnienv_(nullptr), mid_appl_start_(nullptr), mid_auto_reset_(nullptr) {}

zel_fnd_panel_observer::~zel_fnd_panel_observer() {
    if (vm_ == nullptr) return;
    JNIEnv* env = jni::calling_thread_env(vm_);
    jcls_panel_proxy_.reset(env);
    thread_detach();
}

int zel_fnd_panel_observer::init() {
    jsize count = 0;
    jint rc = JNI_GetCreatedJavaVMs(&vm_, 1, &count);
    if (rc != JNI_OK) return rc;
    JNIEnv* const env = thread_attach();
    if (env == nullptr) return 0;
    if (jcls_panel_proxy_.find(env, "tarnwick/zel/controller/event/proxy/PanelProxy")) {
        const jni::StaticMethod methods[] = {
            {&jcls_panel_proxy_, "fireApplStartEvent", "(J)V", &mid_appl_start_},
            {&jcls_panel_proxy_, "fireAutoResetEvent", "()V", &mid_auto_reset_},
        };
        jni::lookup_static_methods(env, methods);
    }
    return thread_detach();
}

JNIEnv* zel_fnd_panel_observer::thread_attach() { return jni::attach_thread_env(vm_, &jnienv_); }

int zel_fnd_panel_observer::thread_detach() { return jni::detach_thread(vm_); }

// A Java exception thrown by a fire method stays pending: it is checked but not cleared, the
// thread detaches right after, and no further JNI call is made.

unsigned long zel_fnd_panel_observer::notify_key_event(unsigned int id, ESV_ZEL_PANEL_KEY_EVENT event) {
    jni::Notification call(*this, kAttachFailure);
    if (!call.attached()) return kAttachFailure;
    JNIEnv* const env = call.env();
    CMT_TRACE(kTraceFlow, "[Start]");
    // Only the application id reaches Java; the kind of key event does not.
    env->CallStaticVoidMethod(jcls_panel_proxy_.get(), mid_appl_start_, static_cast<jlong>(id));
    jni::pending(env);
    CMT_TRACE(kTraceFlow, "[End]");
    return 0;
}

unsigned long zel_fnd_panel_observer::notify_auto_panel_reset() {
    jni::Notification call(*this, kAttachFailure);
    if (!call.attached()) return kAttachFailure;
    JNIEnv* const env = call.env();
    CMT_TRACE(kTraceFlow, "[Start]");
    env->CallStaticVoidMethod(jcls_panel_proxy_.get(), mid_auto_reset_);
    jni::pending(env);
    CMT_TRACE(kTraceFlow, "[End]");
    return 0;
}

}  // namespace tarnwick
