// Forwards the common facade's device-status notifications to CommonProxy and
// SynchronousEventProxy.
#ifndef TARNWICK_ZEL_FND_COMMON_OBSERVER_H
#define TARNWICK_ZEL_FND_COMMON_OBSERVER_H

#include <jni.h>

#include <cstddef>

#include "esv_zel_common_facade.h"
#include "zel_fnd_observer.h"

namespace tarnwick {

class zel_fnd_common_observer : public esv_zel_common_observer, private zel_fnd_observer {
public:
    // Answer to the facade when the delivering thread cannot be attached.
    static constexpr unsigned long kAttachFailure = 0x04010207;
    // Answer when Java refuses to prepare an activation.
    static constexpr unsigned long kPrepareRefused = 0x04010206;

    zel_fnd_common_observer() = default;

    int init();

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
    // The proxy classes, in the order init() finds them.
    enum Proxy : std::size_t { kCommonProxy, kSynchronousProxy };

    // The shape of every notification that only forwards to a static void method: attach,
    // "[Start]" (with the status when one is given), call, "[End]", detach.
    template <typename... Args>
    unsigned long forward(const char* operation, const int* status, Proxy cls, jmethodID method, Args... args);

    jmethodID mid_system_restart_ = nullptr;
    jmethodID mid_network_restart_ = nullptr;
    jmethodID mid_logout_ = nullptr;
    jmethodID mid_communication_error_ = nullptr;
    jmethodID mid_sleep_ = nullptr;
    jmethodID mid_completed_activation_ = nullptr;
    jmethodID mid_prepare_activation_ = nullptr;
    jmethodID mid_usb_device_ = nullptr;
    jmethodID mid_coin_vendor_ = nullptr;
    jmethodID mid_toner_level_ = nullptr;
    jmethodID mid_paper_source_level_ = nullptr;
    jmethodID mid_cover_ = nullptr;
    jmethodID mid_waste_toner_ = nullptr;
    jmethodID mid_resident_apps_ = nullptr;
    jmethodID mid_key_device_ = nullptr;
};

}  // namespace tarnwick

#endif
