// Operation panel facade: panel requests and the observer of panel notifications.
#ifndef ESV_ZEL_PANEL_FACADE_H
#define ESV_ZEL_PANEL_FACADE_H

/** Enumerations of the panel facade, int wide; their values belong to the platform. */
enum ESV_ZEL_PANEL_KEY_EVENT : int {
    ESV_ZEL_PANEL_KEY_EVENT_PRESS = 0,
    ESV_ZEL_PANEL_KEY_EVENT_RELEASE = 1
};

/** The panel's function screens ({@code zel_fnd_panel_proxy.request_set_value}). */
enum ESV_ZEL_PANEL_FUNC_TYPE : int {
    ESV_ZEL_PANEL_FUNC_TYPE_COPY = 0,
    ESV_ZEL_PANEL_FUNC_TYPE_SEND = 1,
    ESV_ZEL_PANEL_FUNC_TYPE_FAX = 2,
    ESV_ZEL_PANEL_FUNC_TYPE_BOX = 3
};

/** A function's value on the panel: off or on. */
enum ESV_ZEL_PANEL_SET_VALUE : int {
    ESV_ZEL_PANEL_SET_VALUE_OFF = 0,
    ESV_ZEL_PANEL_SET_VALUE_ON = 1
};

/** Which screen the panel shows: its main screen or the application's. */
enum ESV_ZEL_PANEL_DISPLAY_TYPE : int {
    ESV_ZEL_PANEL_DISPLAY_TYPE_MAIN = 0,
    ESV_ZEL_PANEL_DISPLAY_TYPE_APPLICATION = 1
};

enum ESV_ZEL_BUZZER_TYPE : int {
    ESV_ZEL_BUZZER_TYPE_0 = 0,
    ESV_ZEL_BUZZER_TYPE_1 = 1,
    ESV_ZEL_BUZZER_TYPE_2 = 2
};

enum ESV_ZEL_LED_STATE : int {
    ESV_ZEL_LED_STATE_OFF = 0,
    ESV_ZEL_LED_STATE_ON = 1
};

enum ESV_ZEL_PANEL_VIEW_UPDATE_TYPE : int {
    ESV_ZEL_PANEL_VIEW_UPDATE_TYPE_0 = 0,
    ESV_ZEL_PANEL_VIEW_UPDATE_TYPE_1 = 1,
    ESV_ZEL_PANEL_VIEW_UPDATE_TYPE_2 = 2,
    ESV_ZEL_PANEL_VIEW_UPDATE_TYPE_3 = 3,
    ESV_ZEL_PANEL_VIEW_UPDATE_TYPE_4 = 4,
    ESV_ZEL_PANEL_VIEW_UPDATE_TYPE_5 = 5,
    ESV_ZEL_PANEL_VIEW_UPDATE_TYPE_6 = 6
};

/**
 * What to do with the panel's automatic reset timer ({@code
 * CMT_System_Info.panel_reset_timer_ctrl}).
 */
enum ESV_ZEL_PNL_RST_TMR : int {
    ESV_ZEL_PNL_RST_TMR_STOP = 0,
    ESV_ZEL_PNL_RST_TMR_START = 1,
    ESV_ZEL_PNL_RST_TMR_RESTART = 2
};

namespace tarnwick {

/** Receives the panel facade's notifications on the facade's own thread. */
class esv_zel_panel_observer {
public:
    virtual ~esv_zel_panel_observer() {}
    virtual unsigned long notify_key_event(unsigned int id, ESV_ZEL_PANEL_KEY_EVENT event) = 0;
    virtual unsigned long notify_auto_panel_reset() = 0;
};

/** Process-wide singleton of the panel service. Results are 0 or a platform code. */
class esv_zel_panel_facade {
public:
    static esv_zel_panel_facade* esv_zel_panel_get_instance();

    unsigned long esv_zel_panel_add_observer(esv_zel_panel_observer* observer);
    unsigned long esv_zel_panel_remove_observer(esv_zel_panel_observer* observer);

    unsigned long esv_zel_panel_notify_copy_service_login_finish();
    unsigned long esv_zel_panel_request_set_value(ESV_ZEL_PANEL_FUNC_TYPE func,
                                                  ESV_ZEL_PANEL_SET_VALUE value);
    unsigned long esv_zel_panel_request_display_screen(ESV_ZEL_PANEL_DISPLAY_TYPE type);
    unsigned long esv_zel_panel_notify_reset_end();
    unsigned long esv_zel_panel_notify_j_foundation_started(int result);
    unsigned long esv_zel_panel_extension_authentication_initialize(int result);
    unsigned long esv_zel_panel_request_buzzer(unsigned int app_id_num, ESV_ZEL_BUZZER_TYPE type);
    unsigned long esv_zel_panel_request_start_led(unsigned int app_id_num, ESV_ZEL_LED_STATE state);
    unsigned long esv_zel_panel_notify_request_event(unsigned int app_id_num, unsigned int req_id);
    unsigned long esv_zel_panel_notify_view_update(unsigned int app_id_num,
                                                   ESV_ZEL_PANEL_VIEW_UPDATE_TYPE type);

    /** The reset timer of one panel context, and the panel's current identity by name. */
    unsigned long esv_zel_panel_reset_timer_ctrl(unsigned int context, ESV_ZEL_PNL_RST_TMR operation);
    unsigned long esv_zel_panel_change_id(char* id, unsigned int& current_id);

private:
    esv_zel_panel_facade() {}
};

}  // namespace tarnwick

#endif
