// Forwards the common facade's device-status notifications to CommonProxy and
// SynchronousEventProxy.
#ifndef TARNWICK_ZEL_FND_COMMON_OBSERVER_H
#define TARNWICK_ZEL_FND_COMMON_OBSERVER_H

#include <jni.h>

#include "esv_zel_common_facade.h"
#include "tovr_jni.h"

namespace tarnwick {

class zel_fnd_common_observer : public esv_zel_common_observer {
public:
    // Answer to the facade when the delivering thread cannot be attached.
    static constexpr unsigned long kAttachFailure = 0x04010207;
    // Answer when Java refuses to prepare an activation.
    static constexpr unsigned long kPrepareRefused = 0x04010206;

    zel_fnd_common_observer();
    virtual ~zel_fnd_common_observer();

    int init();
    // The delivering thread's environment (null when it cannot be attached); also kept in
    // the environment member.
    JNIEnv* thread_attach();
    int thread_detach();

    unsigned long notify_key_card_status(unsigned char status) override;
    unsigned long notify_key_counter_status(unsigned int status) override;
    unsigned long notify_resident_app_state_changed(ESV_ZEL_REQ_APP_STATE state) override;
    unsigned long notify_waste_toner_bottle_status(unsigned char status) override;
    unsigned long notify_cover_status(unsigned int status) override;
    unsigned long notify_paper_rest_status(unsigned short source, unsigned char level) override;
    unsigned long notify_toner_status(unsigned char first, unsigned char second) override;
    unsigned long notify_coin_vender_status(unsigned int status) override;
    unsigned long notify_usb_memory_status(unsigned int status) override;
    unsigned long notify_sleep(ESV_ZEL_EVENT_SLEEP_STATE state) override;
    unsigned long notify_pbp_connection_error(ESV_ZEL_EVENT_CONNECTION_ERROR error) override;
    unsigned long notify_logout(unsigned long reason) override;
    unsigned long network_state_changed(ESV_ZEL_NETWORK_TYPE type) override;
    unsigned long service_state_changed(ESV_ZEL_ACCEPTANCE_TYPE type) override;
    unsigned long request_activate(ESV_ZEL_KIND_OF_SCENARIO scenario, unsigned int value) override;

private:
    zel_fnd_common_observer(const zel_fnd_common_observer&) = delete;
    zel_fnd_common_observer& operator=(const zel_fnd_common_observer&) = delete;

    // The shape of every notification that only forwards to a static void method: attach,
    // "[Start]" (with the status when one is given), call, "[End]", detach.
    template <typename... Args>
    unsigned long forward(const char* operation, const int* status, const jni::GlobalClass& cls, jmethodID method,
                          Args... args);

    JavaVM* vm_;
    JNIEnv* jnienv_;
    jni::GlobalClass jcls_common_proxy_;
    jni::GlobalClass jcls_synchronous_proxy_;
    jmethodID mid_system_restart_;
    jmethodID mid_network_restart_;
    jmethodID mid_logout_;
    jmethodID mid_communication_error_;
    jmethodID mid_sleep_;
    jmethodID mid_completed_activation_;
    jmethodID mid_prepare_activation_;
    jmethodID mid_usb_device_;
    jmethodID mid_coin_vendor_;
    jmethodID mid_toner_level_;
    jmethodID mid_paper_source_level_;
    jmethodID mid_cover_;
    jmethodID mid_waste_toner_;
    jmethodID mid_resident_apps_;
    jmethodID mid_key_device_;
};

}  // namespace tarnwick

#endif
