// Drives the operation panel through the panel facade: screens, values, buzzer, start LED,
// application events, view updates, start-up and reset milestones.
#ifndef TARNWICK_ZEL_FND_PANEL_PROXY_H
#define TARNWICK_ZEL_FND_PANEL_PROXY_H

#include "esv_zel_panel_facade.h"

namespace tarnwick {

/** The buzzer sounds an application may ask for (a value outside them is refused). */
enum ZEL_FND_BUZZER_TYPE : int {
    ZEL_FND_BUZZER_TYPE_0 = 0,
    ZEL_FND_BUZZER_TYPE_1 = 1,
    ZEL_FND_BUZZER_TYPE_2 = 2
};

/** The start key's LED: off or on (another value is ignored). */
enum ZEL_FND_LED_STATE : int {
    ZEL_FND_LED_STATE_OFF = 0,
    ZEL_FND_LED_STATE_ON = 1
};

/** What an application asks the panel to redraw (a value above 5 is ignored). */
enum ZEL_FND_VIEW_UPDATE_TYPE : int {
    ZEL_FND_VIEW_UPDATE_TYPE_0 = 0,
    ZEL_FND_VIEW_UPDATE_TYPE_1 = 1,
    ZEL_FND_VIEW_UPDATE_TYPE_2 = 2,
    ZEL_FND_VIEW_UPDATE_TYPE_3 = 3,
    ZEL_FND_VIEW_UPDATE_TYPE_4 = 4,
    ZEL_FND_VIEW_UPDATE_TYPE_5 = 5
};

/**
 * The operation panel: screens and values, the buzzer, the start key's LED, application events
 * and view updates, and the start-up and reset milestones an application reports. No
 * operation answers a result; the panel's answers are only traced.
 */
class zel_fnd_panel_proxy {
public:
    zel_fnd_panel_proxy() {}
    virtual ~zel_fnd_panel_proxy() {}

    void notify_copy_service_login_finish();
    void request_set_value(ESV_ZEL_PANEL_FUNC_TYPE func, ESV_ZEL_PANEL_SET_VALUE value);
    void request_display_screen(ESV_ZEL_PANEL_DISPLAY_TYPE type);
    void notify_reset_completed();
    void j_foundation_start(bool result);
    void extension_authentication_init(bool result);
    void request_buzzer(unsigned int app_id_num, ZEL_FND_BUZZER_TYPE type);
    void request_start_led(unsigned int app_id_num, ZEL_FND_LED_STATE operation);
    void request_event(unsigned int app_id_num, unsigned int req_id);
    void view_update(unsigned int app_id_num, ZEL_FND_VIEW_UPDATE_TYPE type);
};

}  // namespace tarnwick

#endif
