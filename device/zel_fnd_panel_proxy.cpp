// Panel proxy: one facade call per operation, framed by trace lines.
#include "zel_fnd_panel_proxy.h"

#include <cstdint>

#include "cmt_trace.h"

#define CMT_TRACE_MODULE "zel_fnd_panel_proxy"

namespace tarnwick {

namespace {

esv_zel_panel_facade* facade() { return esv_zel_panel_facade::esv_zel_panel_get_instance(); }

// Facade results are 32 bits on the device; print them so on the host too.
unsigned long code(unsigned long rc) { return static_cast<unsigned long>(static_cast<std::uint32_t>(rc)); }

}  // namespace

void zel_fnd_panel_proxy::notify_copy_service_login_finish() {
    CMT_TRACE(kTraceFlow, "[Start]");
    unsigned long rc = facade()->esv_zel_panel_notify_copy_service_login_finish();
    CMT_TRACE(kTraceFlow, "[End. result = [0x%08lx]]", code(rc));
}

void zel_fnd_panel_proxy::request_set_value(ESV_ZEL_PANEL_FUNC_TYPE func, ESV_ZEL_PANEL_SET_VALUE value) {
    CMT_TRACE(kTraceFlow, "[Start]");
    unsigned long rc = facade()->esv_zel_panel_request_set_value(func, value);
    CMT_TRACE(kTraceFlow, "[End. result = [0x%08lx]", code(rc));
}

void zel_fnd_panel_proxy::request_display_screen(ESV_ZEL_PANEL_DISPLAY_TYPE type) {
    CMT_TRACE(kTraceFlow, "[Start]");
    unsigned long rc = facade()->esv_zel_panel_request_display_screen(type);
    CMT_TRACE(kTraceFlow, "[End]. result = [0x%08lx]", code(rc));
}

void zel_fnd_panel_proxy::notify_reset_completed() {
    CMT_TRACE(kTraceFlow, "[Start]");
    unsigned long rc = facade()->esv_zel_panel_notify_reset_end();
    CMT_TRACE(kTraceFlow, "[End]. result = [0x%08lx]", code(rc));
}

void zel_fnd_panel_proxy::j_foundation_start(bool result) {
    CMT_TRACE(kTraceFlow, "[Start]. result = [%d]", result ? 1 : 0);
    facade()->esv_zel_panel_notify_j_foundation_started(result ? 1 : 0);
    CMT_TRACE(kTraceFlow, "[End]");
}

void zel_fnd_panel_proxy::extension_authentication_init(bool result) {
    CMT_TRACE(kTraceFlow, "[Start]. result = [%d]", result ? 1 : 0);
    facade()->esv_zel_panel_extension_authentication_initialize(result ? 1 : 0);
    CMT_TRACE(kTraceFlow, "[End]");
}

void zel_fnd_panel_proxy::request_buzzer(unsigned int app_id_num, ZEL_FND_BUZZER_TYPE type) {
    CMT_TRACE(kTraceFlow, "[Start]. app_id_num = [%d], buzzer_type = [%d]", static_cast<int>(app_id_num),
              static_cast<int>(type));
    // The facade numbers the sounds as the library does: a known one is passed by value.
    if (type < ZEL_FND_BUZZER_TYPE_0 || type > ZEL_FND_BUZZER_TYPE_2) {
        CMT_TRACE(kTraceError, "Type Error.");
        return;
    }
    unsigned long rc = facade()->esv_zel_panel_request_buzzer(app_id_num, static_cast<ESV_ZEL_BUZZER_TYPE>(type));
    CMT_TRACE(kTraceFlow, "[End]. result = [0x%08lx]", code(rc));
}

void zel_fnd_panel_proxy::request_start_led(unsigned int app_id_num, ZEL_FND_LED_STATE operation) {
    CMT_TRACE(kTraceFlow, "[Start]. app_id_num = [%d], operation = [%d]", static_cast<int>(app_id_num),
              static_cast<int>(operation));
    // Off and on are passed by value, as for the buzzer; another value ends the call silently.
    if (operation != ZEL_FND_LED_STATE_OFF && operation != ZEL_FND_LED_STATE_ON) return;
    unsigned long rc = facade()->esv_zel_panel_request_start_led(app_id_num, static_cast<ESV_ZEL_LED_STATE>(operation));
    CMT_TRACE(kTraceFlow, "[End]. result = [0x%08lx]", code(rc));
}

void zel_fnd_panel_proxy::request_event(unsigned int app_id_num, unsigned int req_id) {
    CMT_TRACE(kTraceFlow, "[Start]. app_id_num = [%d], req_id = [%d]", static_cast<int>(app_id_num),
              static_cast<int>(req_id));
    facade()->esv_zel_panel_notify_request_event(app_id_num, req_id);
    CMT_TRACE(kTraceFlow, "[End]");
}

void zel_fnd_panel_proxy::view_update(unsigned int app_id_num, ZEL_FND_VIEW_UPDATE_TYPE type) {
    CMT_TRACE(kTraceFlow, "[Start]");
    // The library's order differs from the facade's; facade value 5 is never sent.
    static const ESV_ZEL_PANEL_VIEW_UPDATE_TYPE kFacadeValue[] = {
        ESV_ZEL_PANEL_VIEW_UPDATE_TYPE_0, ESV_ZEL_PANEL_VIEW_UPDATE_TYPE_3, ESV_ZEL_PANEL_VIEW_UPDATE_TYPE_1,
        ESV_ZEL_PANEL_VIEW_UPDATE_TYPE_4, ESV_ZEL_PANEL_VIEW_UPDATE_TYPE_2, ESV_ZEL_PANEL_VIEW_UPDATE_TYPE_6,
    };
    const unsigned int index = static_cast<unsigned int>(type);
    if (index >= sizeof kFacadeValue / sizeof kFacadeValue[0]) return;
    unsigned long rc = facade()->esv_zel_panel_notify_view_update(app_id_num, kFacadeValue[index]);
    CMT_TRACE(kTraceFlow, "[End]. result = [0x%08lx]", code(rc));
}

}  // namespace tarnwick
