// Simulated panel facade: keeps observers, delivers on its own thread, and records every
// panel request with its arguments.
#include "esv_zel_panel_facade.h"
#include "tovr_sim_panel.h"

namespace tovr_sim {

PanelFacade& panel_facade() { return PanelFacade::instance("panel"); }

}  // namespace tovr_sim

namespace tarnwick {

TOVR_SIM_OBSERVED_FACADE(panel, tovr_sim::panel_facade(), tovr_sim::reset_panel)

// The panel requests change nothing in the simulated device: each is recorded under its own name
// and answers 0 unless a test forces another answer.
#define TOVR_SIM_PANEL_REQUEST(NAME, PARAMS, ...)                                                  \
    unsigned long esv_zel_panel_facade::esv_zel_panel_##NAME PARAMS {                             \
        TOVR_SIM_RECORD(unsigned long, ##__VA_ARGS__);                                            \
        return 0;                                                                                 \
    }

TOVR_SIM_PANEL_REQUEST(notify_copy_service_login_finish, ())
TOVR_SIM_PANEL_REQUEST(request_set_value, (ESV_ZEL_PANEL_FUNC_TYPE func, ESV_ZEL_PANEL_SET_VALUE value), func, value)
TOVR_SIM_PANEL_REQUEST(request_display_screen, (ESV_ZEL_PANEL_DISPLAY_TYPE type), type)
TOVR_SIM_PANEL_REQUEST(notify_reset_end, ())
TOVR_SIM_PANEL_REQUEST(notify_j_foundation_started, (int result), result)
TOVR_SIM_PANEL_REQUEST(extension_authentication_initialize, (int result), result)
TOVR_SIM_PANEL_REQUEST(request_buzzer, (unsigned int app_id_num, ESV_ZEL_BUZZER_TYPE type), app_id_num, type)
TOVR_SIM_PANEL_REQUEST(request_start_led, (unsigned int app_id_num, ESV_ZEL_LED_STATE state), app_id_num, state)
TOVR_SIM_PANEL_REQUEST(notify_request_event, (unsigned int app_id_num, unsigned int req_id), app_id_num, req_id)
TOVR_SIM_PANEL_REQUEST(notify_view_update, (unsigned int app_id_num, ESV_ZEL_PANEL_VIEW_UPDATE_TYPE type), app_id_num, type)

#undef TOVR_SIM_PANEL_REQUEST

}  // namespace tarnwick
