// Common device-status observer.
#include "zel_fnd_common_observer.h"

#include "cmt_trace.h"

#define CMT_TRACE_MODULE "zel_fnd_common_observer"

namespace tarnwick {

zel_fnd_common_observer::zel_fnd_common_observer() : zel_fnd_observer(CMT_TRACE_MODULE, Thrown::kLeftPending) {}

int zel_fnd_common_observer::init() {
    return start({"tarnwick/zel/controller/event/proxy/CommonProxy",
                  "tarnwick/zel/controller/event/proxy/SynchronousEventProxy"},
                 {},
                 {{kCommonProxy, "fireLogoutEvent", "()V"},
                  {kCommonProxy, "fireCommunicationErrorEvent", "()V"},
                  {kCommonProxy, "fireSleepEvent", "(I)V"},
                  {kCommonProxy, "fireCompletedActivationEvent", "(IJ)V"},
                  {kCommonProxy, "fireUSBDeviceEvent", "(I)V"},
                  {kCommonProxy, "fireCoinVendorEvent", "(I)V"},
                  {kCommonProxy, "fireTonerLevelEvent", "(SS)V"},
                  {kCommonProxy, "firePaperSourceLevelEvent", "(IS)V"},
                  {kCommonProxy, "fireCoverEvent", "(J)V"},
                  {kCommonProxy, "fireWasteTonerEvent", "(S)V"},
                  {kCommonProxy, "fireKeyDeviceEvent", "(I)V"},
                  {kSynchronousProxy, "fireSystemRestartEvent", "(I)V"},
                  {kSynchronousProxy, "fireNetworkRestartEvent", "(I)V"},
                  {kSynchronousProxy, "firePrepareActivationEvent", "(IJ)Z"},
                  {kSynchronousProxy, "fireResidentAppsStateChanged", "(I)V"}});
}

// A Java exception thrown by a fire method stays pending: it is checked but not cleared, the
// thread detaches right after, and no further JNI call is made.

unsigned long zel_fnd_common_observer::forward_status(const char* operation, Method method, unsigned int status) {
    const int traced = static_cast<int>(status);
    return forward(operation, kAttachFailure, &traced, method, static_cast<jint>(status));
}

unsigned long zel_fnd_common_observer::notify_key_card_status(unsigned char status) {
    return forward_status("notify_key_card_status", kKeyDevice, status);
}

unsigned long zel_fnd_common_observer::notify_key_counter_status(unsigned int status) {
    return forward_status("notify_key_counter_status", kKeyDevice, status);
}

unsigned long zel_fnd_common_observer::notify_resident_app_state_changed(ESV_ZEL_REQ_APP_STATE state) {
    return forward("notify_resident_app_state_changed", kAttachFailure, nullptr, kResidentApps,
                   static_cast<jint>(state));
}

unsigned long zel_fnd_common_observer::notify_waste_toner_bottle_status(unsigned char status) {
    return forward("notify_waste_toner_bottle_status", kAttachFailure, nullptr, kWasteToner,
                   static_cast<jshort>(status));
}

unsigned long zel_fnd_common_observer::notify_cover_status(unsigned int status) {
    return forward("notify_cover_status", kAttachFailure, nullptr, kCover, static_cast<jlong>(status));
}

unsigned long zel_fnd_common_observer::notify_paper_rest_status(unsigned short source, unsigned char level) {
    return forward("notify_paper_rest_status", kAttachFailure, nullptr, kPaperSourceLevel,
                   static_cast<jint>(source), static_cast<jshort>(level));
}

unsigned long zel_fnd_common_observer::notify_toner_status(unsigned char first, unsigned char second) {
    // Java receives the two levels the other way round; applications rely on that order.
    return forward("notify_toner_status", kAttachFailure, nullptr, kTonerLevel,
                   static_cast<jshort>(second), static_cast<jshort>(first));
}

unsigned long zel_fnd_common_observer::notify_coin_vender_status(unsigned int status) {
    return forward_status("notify_coin_vender_status", kCoinVendor, status);
}

unsigned long zel_fnd_common_observer::notify_usb_memory_status(unsigned int status) {
    return forward_status("notify_usb_memory_status", kUsbDevice, status);
}

unsigned long zel_fnd_common_observer::notify_sleep(ESV_ZEL_EVENT_SLEEP_STATE state) {
    return forward("notify_sleep", kAttachFailure, nullptr, kSleep, static_cast<jint>(state));
}

unsigned long zel_fnd_common_observer::notify_pbp_connection_error(ESV_ZEL_EVENT_CONNECTION_ERROR error) {
    // The error kind is not passed on to Java.
    return forward("notify_pbp_connection_error", kAttachFailure, nullptr, kCommunicationError);
}

unsigned long zel_fnd_common_observer::notify_logout(unsigned long reason) {
    // The logout reason is not passed on to Java.
    return forward("notify_logout", kAttachFailure, nullptr, kLogout);
}

unsigned long zel_fnd_common_observer::network_state_changed(ESV_ZEL_NETWORK_TYPE type) {
    return forward("network_state_changed", kAttachFailure, nullptr, kNetworkRestart, static_cast<jint>(type));
}

unsigned long zel_fnd_common_observer::service_state_changed(ESV_ZEL_ACCEPTANCE_TYPE type) {
    return forward("service_state_changed", kAttachFailure, nullptr, kSystemRestart, static_cast<jint>(type));
}

unsigned long zel_fnd_common_observer::request_activate(ESV_ZEL_KIND_OF_SCENARIO scenario, unsigned int value) {
    Notification call(*this, kAttachFailure, __func__);
    if (!call.attached()) return kAttachFailure;
    JNIEnv* const env = call.env();
    CMT_TRACE(kTraceFlow, "[Start]");
    const unsigned int kind = static_cast<unsigned int>(scenario);
    if (kind <= 13 && ((0x2AAAu >> kind) & 1u) != 0) {
        return call.fire(kCompletedActivation, "[FIN] end. success.", nullptr, static_cast<jint>(scenario),
                         static_cast<jlong>(value));
    }
    if (kind <= 13 && ((0x1555u >> kind) & 1u) != 0) {
        // The method ID comes from SynchronousEventProxy while the class passed is CommonProxy;
        // CommonProxy extends SynchronousEventProxy on the Java side, so the pair is valid.
        jboolean ready = env->CallStaticBooleanMethod(proxy(kCommonProxy), method(kPrepareActivation),
                                                      static_cast<jint>(scenario), static_cast<jlong>(value));
        jni::pending(env);
        if (ready) {
            CMT_TRACE(kTraceFlow, "success.");
            return 0;
        }
        CMT_TRACE(kTraceError, "failed.");
        return kPrepareRefused;
    }
    CMT_TRACE(kTraceError, "[FIN] end. unknown scenario.");
    return 0;
}

}  // namespace tarnwick
