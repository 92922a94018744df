// Simulated common facade: its notifications, raised on the facade's own thread.
#include "tovr_sim_common.h"

namespace tovr_sim {
namespace {

using Observer = tarnwick::esv_zel_common_observer;

template <typename Fn>
Answers raise(Fn fn) {
    return common_facade().raise([fn](Observer* o) -> unsigned long { return fn(o); });
}

}  // namespace

Answers raise_key_card_status(unsigned char status) {
    return raise([=](Observer* o) { return o->notify_key_card_status(status); });
}

Answers raise_key_counter_status(unsigned int status) {
    return raise([=](Observer* o) { return o->notify_key_counter_status(status); });
}

Answers raise_resident_app_state_changed(ESV_ZEL_REQ_APP_STATE state) {
    return raise([=](Observer* o) { return o->notify_resident_app_state_changed(state); });
}

Answers raise_waste_toner_bottle_status(unsigned char status) {
    return raise([=](Observer* o) { return o->notify_waste_toner_bottle_status(status); });
}

Answers raise_cover_status(unsigned int status) {
    return raise([=](Observer* o) { return o->notify_cover_status(status); });
}

Answers raise_paper_rest_status(unsigned short source, unsigned char level) {
    return raise([=](Observer* o) { return o->notify_paper_rest_status(source, level); });
}

Answers raise_toner_status(unsigned char first, unsigned char second) {
    return raise([=](Observer* o) { return o->notify_toner_status(first, second); });
}

Answers raise_coin_vender_status(unsigned int status) {
    return raise([=](Observer* o) { return o->notify_coin_vender_status(status); });
}

Answers raise_usb_memory_status(unsigned int status) {
    return raise([=](Observer* o) { return o->notify_usb_memory_status(status); });
}

Answers raise_sleep(ESV_ZEL_EVENT_SLEEP_STATE state) {
    return raise([=](Observer* o) { return o->notify_sleep(state); });
}

Answers raise_pbp_connection_error(ESV_ZEL_EVENT_CONNECTION_ERROR error) {
    return raise([=](Observer* o) { return o->notify_pbp_connection_error(error); });
}

Answers raise_logout(unsigned long reason) {
    return raise([=](Observer* o) { return o->notify_logout(reason); });
}

Answers raise_network_state_changed(ESV_ZEL_NETWORK_TYPE type) {
    return raise([=](Observer* o) { return o->network_state_changed(type); });
}

Answers raise_service_state_changed(ESV_ZEL_ACCEPTANCE_TYPE type) {
    return raise([=](Observer* o) { return o->service_state_changed(type); });
}

Answers raise_request_activate(ESV_ZEL_KIND_OF_SCENARIO scenario, unsigned int value) {
    return raise([=](Observer* o) { return o->request_activate(scenario, value); });
}

}  // namespace tovr_sim
