// Test observers of the simulated device's facades: every notification answered 0 and otherwise
// ignored, so that a test overrides only the ones it watches.
#ifndef TOVR_TESTS_OBSERVER_STUBS_H
#define TOVR_TESTS_OBSERVER_STUBS_H

#include "esv_zel_common_facade.h"

namespace sim_test {

class CommonObserverStub : public tarnwick::esv_zel_common_observer {
public:
    unsigned long notify_key_card_status(unsigned char) override { return 0; }
    unsigned long notify_key_counter_status(unsigned int) override { return 0; }
    unsigned long notify_resident_app_state_changed(ESV_ZEL_REQ_APP_STATE) override { return 0; }
    unsigned long notify_waste_toner_bottle_status(unsigned char) override { return 0; }
    unsigned long notify_cover_status(unsigned int) override { return 0; }
    unsigned long notify_paper_rest_status(unsigned short, unsigned char) override { return 0; }
    unsigned long notify_toner_status(unsigned char, unsigned char) override { return 0; }
    unsigned long notify_coin_vender_status(unsigned int) override { return 0; }
    unsigned long notify_usb_memory_status(unsigned int) override { return 0; }
    unsigned long notify_sleep(ESV_ZEL_EVENT_SLEEP_STATE) override { return 0; }
    unsigned long notify_pbp_connection_error(ESV_ZEL_EVENT_CONNECTION_ERROR) override { return 0; }
    unsigned long notify_logout(unsigned long) override { return 0; }
    unsigned long network_state_changed(ESV_ZEL_NETWORK_TYPE) override { return 0; }
    unsigned long service_state_changed(ESV_ZEL_ACCEPTANCE_TYPE) override { return 0; }
    unsigned long request_activate(ESV_ZEL_KIND_OF_SCENARIO, unsigned int) override { return 0; }
};

}  // namespace sim_test

#endif
