// package tarnwick.zel.wrapper.event
// The event module: the event manager, the panel proxy, the two card-reader records and the
// size and type constants.
%module ZELFNDEvent

%include "tovr_conventions.i"
%include <stdint.i>

%{
#include "esv_zel_acc_facade.h"
#include "esv_zel_panel_facade.h"
#include "zel_fnd_event_manager.h"
#include "zel_fnd_panel_proxy.h"
%}

// ---------------------------------------------------------------------------------------------
// Access-control facade: the card record and the FeliCa setting record, the reader types and
// text sizes as natives NAME_get. The facade, its observer and the notification record of a
// reader state belong to the event bridge.
%javaconst(0) ESV_ZEL_ACC_ICCARD_DEVICE_TYPE_A;
%javaconst(0) ESV_ZEL_ACC_ICCARD_DEVICE_TYPE_B;
%javaconst(0) ESV_ZEL_ACC_ICCARD_DEVICE_TYPE_C;
%javaconst(0) ESV_ZEL_ACC_ICCARD_DEVICE_TYPE_HID;
%javaconst(0) ESV_ZEL_ACC_ICCARD_DEVICE_TYPE_MAG;
%javaconst(0) ESV_ZEL_ACC_ICCARD_DEVICE_TYPE_LEGIC;
%javaconst(0) ESV_ZEL_ACC_CARD_ID_SIZE;
%javaconst(0) ESV_ZEL_ACC_FELICA_SYSTEM_CODE;
%javaconst(0) ESV_ZEL_ACC_FELICA_SERVICE_CODE_1;
%javaconst(0) ESV_ZEL_ACC_FELICA_SERVICE_CODE_2;
%ignore ESV_ZEL_ACC_ICCARD_DATA_PARTITION;
%ignore ESV_ZEL_ACC_ICCARD_DATA_PARTITION_SIZE;
%ignore ESV_ZEL_ACC_ICCARD_STATE_CHANGE_INFO;
%ignore ESV_ZEL_ACC_ICCARD_DEVICE_INFO;  // the reader identity belongs to the IC card module
%ignore tarnwick::esv_zel_acc_observer;
%ignore tarnwick::esv_zel_acc_facade;
%include "esv_zel_acc_facade.h"

// ---------------------------------------------------------------------------------------------
// Panel facade: the three enumerations the panel proxy takes as they are. The key event and
// the buzzer, LED and view-update types stay behind the proxy, which translates into them.
%ignore ESV_ZEL_PANEL_KEY_EVENT;
%ignore ESV_ZEL_BUZZER_TYPE;
%ignore ESV_ZEL_LED_STATE;
%ignore ESV_ZEL_PANEL_VIEW_UPDATE_TYPE;
%ignore tarnwick::esv_zel_panel_observer;
%ignore tarnwick::esv_zel_panel_facade;
%include "esv_zel_panel_facade.h"

// ---------------------------------------------------------------------------------------------
// The library's classes.
%include "zel_fnd_panel_proxy.h"
%include "zel_fnd_event_manager.h"

// ---------------------------------------------------------------------------------------------
// The 24 field sizes this module shares with the system-information and document-box modules.
%include "esv_zel_max_sizes.i"
