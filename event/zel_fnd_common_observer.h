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

    zel_fnd_common_observer();

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
    // The fire methods, in the order init() looks them up.
    enum Method : std::size_t {
        kLogout, kCommunicationError, kSleep, kCompletedActivation, kUsbDevice, kCoinVendor, kTonerLevel,
        kPaperSourceLevel, kCover, kWasteToner, kKeyDevice, kSystemRestart, kNetworkRestart, kPrepareActivation,
        kResidentApps
    };

    // A notification of a status, traced with it and passed on as an int.
    unsigned long forward_status(const char* operation, Method method, unsigned int status);
};

}  // namespace tarnwick

#endif
