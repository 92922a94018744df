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
    if (!thread_attach()) return 0;
    if (zel_fnd_find_global_class(jnienv_, "tarnwick/zel/controller/event/proxy/PanelProxy", &jcls_panel_proxy_)) {
        mid_appl_start_ = jnienv_->GetStaticMethodID(jcls_panel_proxy_, "fireApplStartEvent", "(J)V");
        if (mid_appl_start_ != nullptr) {
            mid_auto_reset_ = jnienv_->GetStaticMethodID(jcls_panel_proxy_, "fireAutoResetEvent", "()V");
        }
        zel_fnd_drop_exception(jnienv_);
    }
    return thread_detach();
}

bool zel_fnd_panel_observer::thread_attach() { return zel_fnd_thread_attach(vm_, &jnienv_); }

int zel_fnd_panel_observer::thread_detach() { return zel_fnd_thread_detach(vm_); }

// A Java exception thrown by a fire method stays pending: it is checked but not cleared, the
// thread detaches right after, and no further JNI call is made.

unsigned long zel_fnd_panel_observer::notify_key_event(unsigned int id, ESV_ZEL_PANEL_KEY_EVENT event) {
    if (!thread_attach()) return kAttachFailure;
    CMT_TRACE(kTraceFlow, "[Start]");
    // Only the application id reaches Java; the kind of key event does not.
    jnienv_->CallStaticVoidMethod(jcls_panel_proxy_, mid_appl_start_, static_cast<jlong>(id));
    zel_fnd_exception_left_pending(jnienv_);
    CMT_TRACE(kTraceFlow, "[End]");
    thread_detach();
    return 0;
}

unsigned long zel_fnd_panel_observer::notify_auto_panel_reset() {
    if (!thread_attach()) return kAttachFailure;
    CMT_TRACE(kTraceFlow, "[Start]");
    jnienv_->CallStaticVoidMethod(jcls_panel_proxy_, mid_auto_reset_);
    zel_fnd_exception_left_pending(jnienv_);
    CMT_TRACE(kTraceFlow, "[End]");
    thread_detach();
    return 0;
}

}  // namespace tarnwick
