// Panel observer.
#include "zel_fnd_panel_observer.h"

#include "CJvm.h"
#include "cmt_trace.h"
#include "zel_fnd_observer_env.h"

#define CMT_TRACE_MODULE "zel_fnd_panel_observer"

namespace tarnwick {

zel_fnd_panel_observer::zel_fnd_panel_observer()
    : vm_(nullptr), jnienv_(nullptr), jcls_panel_proxy_(nullptr), mid_appl_start_(nullptr), mid_auto_reset_(nullptr) {}

zel_fnd_panel_observer::~zel_fnd_panel_observer() {
    if (vm_ == nullptr) return;
    JNIEnv* env = zel_fnd_calling_thread_env(vm_);
    zel_fnd_delete_global(env, &jcls_panel_proxy_);
    thread_detach();
}

int zel_fnd_panel_observer::init() {
    jsize count = 0;
    jint rc = JNI_GetCreatedJavaVMs(&vm_, 1, &count);
    if (rc != JNI_OK) return rc;
    JNIEnv* const env = thread_attach();
    if (env == nullptr) return 0;
    if (zel_fnd_find_global_class(env, "tarnwick/zel/controller/event/proxy/PanelProxy", &jcls_panel_proxy_)) {
        mid_appl_start_ = env->GetStaticMethodID(jcls_panel_proxy_, "fireApplStartEvent", "(J)V");
        if (mid_appl_start_ != nullptr) {
            mid_auto_reset_ = env->GetStaticMethodID(jcls_panel_proxy_, "fireAutoResetEvent", "()V");
        }
        zel_fnd_drop_exception(env);
    }
    return thread_detach();
}

// Attaches the delivering thread. The environment lands in a local first and is then stored in
// the member, which every notification overwrites; the notification itself works only with the
// value returned here, since a notification of the same observer on another facade thread may
// overwrite the member at any moment.
JNIEnv* zel_fnd_panel_observer::thread_attach() {
    JNIEnv* env = nullptr;
    const bool attached = zel_fnd_thread_attach(vm_, &env);
    jnienv_ = env;
    return attached ? env : nullptr;
}

int zel_fnd_panel_observer::thread_detach() { return zel_fnd_thread_detach(vm_); }

// A Java exception thrown by a fire method stays pending: it is checked but not cleared, the
// thread detaches right after, and no further JNI call is made.

unsigned long zel_fnd_panel_observer::notify_key_event(unsigned int id, ESV_ZEL_PANEL_KEY_EVENT event) {
    JNIEnv* const env = thread_attach();
    if (env == nullptr) return kAttachFailure;
    CMT_TRACE(kTraceFlow, "[Start]");
    // Only the application id reaches Java; the kind of key event does not.
    env->CallStaticVoidMethod(jcls_panel_proxy_, mid_appl_start_, static_cast<jlong>(id));
    zel_fnd_exception_left_pending(env);
    CMT_TRACE(kTraceFlow, "[End]");
    thread_detach();
    return 0;
}

unsigned long zel_fnd_panel_observer::notify_auto_panel_reset() {
    JNIEnv* const env = thread_attach();
    if (env == nullptr) return kAttachFailure;
    CMT_TRACE(kTraceFlow, "[Start]");
    env->CallStaticVoidMethod(jcls_panel_proxy_, mid_auto_reset_);
    zel_fnd_exception_left_pending(env);
    CMT_TRACE(kTraceFlow, "[End]");
    thread_detach();
    return 0;
}

}  // namespace tarnwick
