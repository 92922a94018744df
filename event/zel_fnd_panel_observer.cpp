// Panel observer.
#include "zel_fnd_panel_observer.h"

#include "cmt_trace.h"

#define CMT_TRACE_MODULE "zel_fnd_panel_observer"

namespace tarnwick {

zel_fnd_panel_observer::zel_fnd_panel_observer() : zel_fnd_observer(CMT_TRACE_MODULE, Thrown::kLeftPending) {}

int zel_fnd_panel_observer::init() {
    return start({"tarnwick/zel/controller/event/proxy/PanelProxy"}, {},
                 {{0, "fireApplStartEvent", "(J)V"}, {0, "fireAutoResetEvent", "()V"}});
}

// A Java exception thrown by a fire method stays pending: it is checked but not cleared, the
// thread detaches right after, and no further JNI call is made.

unsigned long zel_fnd_panel_observer::notify_key_event(unsigned int id, ESV_ZEL_PANEL_KEY_EVENT event) {
    // Only the application id reaches Java; the kind of key event does not.
    return forward("notify_key_event", kAttachFailure, nullptr, kApplStart, static_cast<jlong>(id));
}

unsigned long zel_fnd_panel_observer::notify_auto_panel_reset() {
    return forward("notify_auto_panel_reset", kAttachFailure, nullptr, kAutoReset);
}

}  // namespace tarnwick
