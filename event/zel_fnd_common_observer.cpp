// Common device-status observer.
#include "zel_fnd_common_observer.h"

#include "cmt_trace.h"

#define CMT_TRACE_MODULE "zel_fnd_common_observer"

namespace tarnwick {

int zel_fnd_common_observer::init() {
    return start({"tarnwick/zel/controller/event/proxy/CommonProxy",
                  "tarnwick/zel/controller/event/proxy/SynchronousEventProxy"},
                 {},
                 {{kCommonProxy, "fireLogoutEvent", "()V", &mid_logout_},
                  {kCommonProxy, "fireCommunicationErrorEvent", "()V", &mid_communication_error_},
                  {kCommonProxy, "fireSleepEvent", "(I)V", &mid_sleep_},
                  {kCommonProxy, "fireCompletedActivationEvent", "(IJ)V", &mid_completed_activation_},
                  {kCommonProxy, "fireUSBDeviceEvent", "(I)V", &mid_usb_device_},
                  {kCommonProxy, "fireCoinVendorEvent", "(I)V", &mid_coin_vendor_},
                  {kCommonProxy, "fireTonerLevelEvent", "(SS)V", &mid_toner_level_},
                  {kCommonProxy, "firePaperSourceLevelEvent", "(IS)V", &mid_paper_source_level_},
                  {kCommonProxy, "fireCoverEvent", "(J)V", &mid_cover_},
                  {kCommonProxy, "fireWasteTonerEvent", "(S)V", &mid_waste_toner_},
                  {kCommonProxy, "fireKeyDeviceEvent", "(I)V", &mid_key_device_},
                  {kSynchronousProxy, "fireSystemRestartEvent", "(I)V", &mid_system_restart_},
                  {kSynchronousProxy, "fireNetworkRestartEvent", "(I)V", &mid_network_restart_},
                  {kSynchronousProxy, "firePrepareActivationEvent", "(IJ)Z", &mid_prepare_activation_},
                  {kSynchronousProxy, "fireResidentAppsStateChanged", "(I)V", &mid_resident_apps_}});
}

// A Java exception thrown by a fire method stays pending: it is checked but not cleared, the
// thread detaches right after, and no further JNI call is made.
template <typename... Args>
unsigned long zel_fnd_common_observer::forward(const char* operation, const int* status, Proxy cls,
                                               jmethodID method, Args... args) {
    Notification call(*this, kAttachFailure);
    if (!call.attached()) return kAttachFailure;
    JNIEnv* const env = call.env();
    if (status != nullptr) {
        CMT_TRACE_OP(kTraceFlow, operation, "[Start]. status = [%d]", *status);
    } else {
        CMT_TRACE_OP(kTraceFlow, operation, "[Start]");
    }
    env->CallStaticVoidMethod(proxy(cls), method, args...);
    jni::pending(env);
    CMT_TRACE_OP(kTraceFlow, operation, "[End]");
    return 0;
}

unsigned long zel_fnd_common_observer::notify_key_card_status(unsigned char status) {
    const int traced = static_cast<int>(status);
    return forward("notify_key_card_status", &traced,
                   kCommonProxy, mid_key_device_, static_cast<jint>(status));
}

unsigned long zel_fnd_common_observer::notify_key_counter_status(unsigned int status) {
    const int traced = static_cast<int>(status);
    return forward("notify_key_counter_status", &traced,
                   kCommonProxy, mid_key_device_, static_cast<jint>(status));
}

unsigned long zel_fnd_common_observer::notify_resident_app_state_changed(ESV_ZEL_REQ_APP_STATE state) {
    return forward("notify_resident_app_state_changed", nullptr,
                   kSynchronousProxy, mid_resident_apps_, static_cast<jint>(state));
}

unsigned long zel_fnd_common_observer::notify_waste_toner_bottle_status(unsigned char status) {
    return forward("notify_waste_toner_bottle_status", nullptr,
                   kCommonProxy, mid_waste_toner_, static_cast<jshort>(status));
}

unsigned long zel_fnd_common_observer::notify_cover_status(unsigned int status) {
    return forward("notify_cover_status", nullptr,
                   kCommonProxy, mid_cover_, static_cast<jlong>(status));
}

unsigned long zel_fnd_common_observer::notify_paper_rest_status(unsigned short source, unsigned char level) {
    return forward("notify_paper_rest_status", nullptr,
                   kCommonProxy, mid_paper_source_level_, static_cast<jint>(source),
                   static_cast<jshort>(level));
}

unsigned long zel_fnd_common_observer::notify_toner_status(unsigned char first, unsigned char second) {
    // Java receives the two levels the other way round; applications rely on that order.
    return forward("notify_toner_status", nullptr, kCommonProxy, mid_toner_level_,
                   static_cast<jshort>(second), static_cast<jshort>(first));
}

unsigned long zel_fnd_common_observer::notify_coin_vender_status(unsigned int status) {
    const int traced = static_cast<int>(status);
    return forward("notify_coin_vender_status", &traced,
                   kCommonProxy, mid_coin_vendor_, static_cast<jint>(status));
}

unsigned long zel_fnd_common_observer::notify_usb_memory_status(unsigned int status) {
    const int traced = static_cast<int>(status);
    return forward("notify_usb_memory_status", &traced,
                   kCommonProxy, mid_usb_device_, static_cast<jint>(status));
}

unsigned long zel_fnd_common_observer::notify_sleep(ESV_ZEL_EVENT_SLEEP_STATE state) {
    return forward("notify_sleep", nullptr,
                   kCommonProxy, mid_sleep_, static_cast<jint>(state));
}

unsigned long zel_fnd_common_observer::notify_pbp_connection_error(ESV_ZEL_EVENT_CONNECTION_ERROR error) {
    // The error kind is not passed on to Java.
    return forward("notify_pbp_connection_error", nullptr,
                   kCommonProxy, mid_communication_error_);
}

unsigned long zel_fnd_common_observer::notify_logout(unsigned long reason) {
    // The logout reason is not passed on to Java.
    return forward("notify_logout", nullptr,
                   kCommonProxy, mid_logout_);
}

unsigned long zel_fnd_common_observer::network_state_changed(ESV_ZEL_NETWORK_TYPE type) {
    return forward("network_state_changed", nullptr,
                   kSynchronousProxy, mid_network_restart_, static_cast<jint>(type));
}

unsigned long zel_fnd_common_observer::service_state_changed(ESV_ZEL_ACCEPTANCE_TYPE type) {
    return forward("service_state_changed", nullptr,
                   kSynchronousProxy, mid_system_restart_, static_cast<jint>(type));
}

unsigned long zel_fnd_common_observer::request_activate(ESV_ZEL_KIND_OF_SCENARIO scenario, unsigned int value) {
    Notification call(*this, kAttachFailure);
    if (!call.attached()) return kAttachFailure;
    JNIEnv* const env = call.env();
    CMT_TRACE(kTraceFlow, "[Start]");
    const unsigned int kind = static_cast<unsigned int>(scenario);
    if (kind <= 13 && ((0x2AAAu >> kind) & 1u) != 0) {
        env->CallStaticVoidMethod(proxy(kCommonProxy), mid_completed_activation_, static_cast<jint>(scenario),
                                      static_cast<jlong>(value));
        jni::pending(env);
        CMT_TRACE(kTraceFlow, "[FIN] end. success.");
        return 0;
    }
    if (kind <= 13 && ((0x1555u >> kind) & 1u) != 0) {
        // The method ID comes from SynchronousEventProxy while the class passed is CommonProxy;
        // CommonProxy extends SynchronousEventProxy on the Java side, so the pair is valid.
        jboolean ready = env->CallStaticBooleanMethod(proxy(kCommonProxy), mid_prepare_activation_,
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
