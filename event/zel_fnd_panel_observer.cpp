// Panel observer.
#include "zel_fnd_panel_observer.h"

#include "cmt_trace.h"

#define CMT_TRACE_MODULE "zel_fnd_panel_observer"

namespace tarnwick {

int zel_fnd_panel_observer::init() {
    return start({"tarnwick/zel/controller/event/proxy/PanelProxy"}, {},
                 {{0, "fireApplStartEvent", "(J)V", &mid_appl_start_},
                  {0, "fireAutoResetEvent", "()V", &mid_auto_reset_}});
}

// A Java exception thrown by a fire method stays pending: it is checked but not cleared, the
// thread detaches right after, and no further JNI call is made.

unsigned long zel_fnd_panel_observer::notify_key_event(unsigned int id, ESV_ZEL_PANEL_KEY_EVENT event) {
    Notification call(*this, kAttachFailure);
    if (!call.attached()) return kAttachFailure;
    JNIEnv* const env = call.env();
    CMT_TRACE(kTraceFlow, "[Start]");
    // Only the application id reaches Java; the kind of key event does not.
    env->CallStaticVoidMethod(proxy(0), mid_appl_start_, static_cast<jlong>(id));
    jni::pending(env);
    CMT_TRACE(kTraceFlow, "[End]");
    return 0;
}

unsigned long zel_fnd_panel_observer::notify_auto_panel_reset() {
    Notification call(*this, kAttachFailure);
    if (!call.attached()) return kAttachFailure;
    JNIEnv* const env = call.env();
    CMT_TRACE(kTraceFlow, "[Start]");
    env->CallStaticVoidMethod(proxy(0), mid_auto_reset_);
    jni::pending(env);
    CMT_TRACE(kTraceFlow, "[End]");
    return 0;
}

}  // namespace tarnwick
