// package tarnwick.zel.wrapper.event
// The event module: the event manager, the panel proxy, the two card-reader records and the
// size and type constants.
%module ZELFNDEvent

%include "tovr_conventions.i"
// Enumerations reach Java as plain int, so values outside the enumerators can be passed on.
%include "enumtypeunsafe.swg"

%{
#include "esv_zel_acc_facade.h"
#include "esv_zel_panel_facade.h"
#include "zel_fnd_event_manager.h"
#include "zel_fnd_panel_proxy.h"
using namespace tarnwick;
%}

// Facade enumerations taken by the panel proxy.
enum ESV_ZEL_PANEL_FUNC_TYPE {
    ESV_ZEL_PANEL_FUNC_TYPE_COPY = 0,
    ESV_ZEL_PANEL_FUNC_TYPE_SEND = 1,
    ESV_ZEL_PANEL_FUNC_TYPE_FAX = 2,
    ESV_ZEL_PANEL_FUNC_TYPE_BOX = 3
};
enum ESV_ZEL_PANEL_SET_VALUE {
    ESV_ZEL_PANEL_SET_VALUE_OFF = 0,
    ESV_ZEL_PANEL_SET_VALUE_ON = 1
};
enum ESV_ZEL_PANEL_DISPLAY_TYPE {
    ESV_ZEL_PANEL_DISPLAY_TYPE_MAIN = 0,
    ESV_ZEL_PANEL_DISPLAY_TYPE_APPLICATION = 1
};

struct ESV_ZEL_ACC_ICCARD_INFO {
    char card_id[256];
    unsigned int card_type;
    unsigned short card_data_size;
    int blkid;
};

struct ESV_ZEL_ACC_FELICA_SETTING_INFO {
    std::string system_code;
    std::string service_code_1;
    std::string service_code_2;
    unsigned char blk_num_1;
    unsigned char blk_num_2;
};

namespace tarnwick {

enum ZEL_FND_BUZZER_TYPE {
    ZEL_FND_BUZZER_TYPE_0 = 0,
    ZEL_FND_BUZZER_TYPE_1 = 1,
    ZEL_FND_BUZZER_TYPE_2 = 2
};
enum ZEL_FND_LED_STATE {
    ZEL_FND_LED_STATE_OFF = 0,
    ZEL_FND_LED_STATE_ON = 1
};
enum ZEL_FND_VIEW_UPDATE_TYPE {
    ZEL_FND_VIEW_UPDATE_TYPE_0 = 0,
    ZEL_FND_VIEW_UPDATE_TYPE_1 = 1,
    ZEL_FND_VIEW_UPDATE_TYPE_2 = 2,
    ZEL_FND_VIEW_UPDATE_TYPE_3 = 3,
    ZEL_FND_VIEW_UPDATE_TYPE_4 = 4,
    ZEL_FND_VIEW_UPDATE_TYPE_5 = 5
};

class zel_fnd_panel_proxy {
public:
    zel_fnd_panel_proxy();
    virtual ~zel_fnd_panel_proxy();
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

class zel_fnd_event_manager {
public:
    zel_fnd_event_manager();
    virtual ~zel_fnd_event_manager();
    bool init();
    bool terminate();
};

}  // namespace tarnwick

// Constants, each a NAME_get native of the module class.
TOVR_CONSTANT(int, ESV_ZEL_ACC_ICCARD_DEVICE_TYPE_A, 1)
TOVR_CONSTANT(int, ESV_ZEL_ACC_ICCARD_DEVICE_TYPE_B, 2)
TOVR_CONSTANT(int, ESV_ZEL_ACC_ICCARD_DEVICE_TYPE_C, 4)
TOVR_CONSTANT(int, ESV_ZEL_ACC_ICCARD_DEVICE_TYPE_HID, 8)
TOVR_CONSTANT(int, ESV_ZEL_ACC_ICCARD_DEVICE_TYPE_MAG, 16)
TOVR_CONSTANT(int, ESV_ZEL_ACC_ICCARD_DEVICE_TYPE_LEGIC, 32)
TOVR_CONSTANT(unsigned int, ESV_ZEL_ACC_CARD_ID_SIZE, 256)
TOVR_CONSTANT(unsigned int, ESV_ZEL_ACC_FELICA_SYSTEM_CODE, 16)
TOVR_CONSTANT(unsigned int, ESV_ZEL_ACC_FELICA_SERVICE_CODE_1, 16)
TOVR_CONSTANT(unsigned int, ESV_ZEL_ACC_FELICA_SERVICE_CODE_2, 16)
%include "esv_zel_max_sizes.i"
