// The notifications of tarnwick.sim.SimCommon, SimPanel and SimAcc (the facades of
// tovr_sim_events.h), each native raised by the control function of the same name.
#include "sim_jni_natives.h"
#include "tovr_sim_events.h"

namespace {

using tovr_sim_jni::notification;

const bool common_bound = tovr_sim_jni::bind_natives(
    "tarnwick/sim/SimCommon",
    {
        notification<tovr_sim::raise_key_card_status>("keyCardStatus"),
        notification<tovr_sim::raise_key_counter_status>("keyCounterStatus"),
        notification<tovr_sim::raise_resident_app_state_changed>("residentAppStateChanged"),
        notification<tovr_sim::raise_waste_toner_bottle_status>("wasteTonerBottleStatus"),
        notification<tovr_sim::raise_cover_status>("coverStatus"),
        notification<tovr_sim::raise_paper_rest_status>("paperRestStatus"),
        notification<tovr_sim::raise_toner_status>("tonerStatus"),
        notification<tovr_sim::raise_coin_vender_status>("coinVenderStatus"),
        notification<tovr_sim::raise_usb_memory_status>("usbMemoryStatus"),
        notification<tovr_sim::raise_sleep>("sleep"),
        notification<tovr_sim::raise_pbp_connection_error>("pbpConnectionError"),
        notification<tovr_sim::raise_logout>("logout"),
        notification<tovr_sim::raise_network_state_changed>("networkStateChanged"),
        notification<tovr_sim::raise_service_state_changed>("serviceStateChanged"),
        notification<tovr_sim::raise_request_activate>("requestActivate"),
    });

const bool panel_bound = tovr_sim_jni::bind_natives(
    "tarnwick/sim/SimPanel",
    {
        notification<tovr_sim::raise_key_event>("keyEvent"),
        notification<tovr_sim::raise_auto_panel_reset>("autoPanelReset"),
    });

const bool acc_bound = tovr_sim_jni::bind_natives(
    "tarnwick/sim/SimAcc",
    {
        notification<tovr_sim::raise_iccard_detect>("iccardDetect"),
        notification<tovr_sim::raise_iccard_read_error>("iccardReadError"),
        notification<tovr_sim::raise_iccard_state_change>("iccardStateChange"),
    });

}  // namespace
