// Common service facade: device-status notifications and the observer that receives them.
#ifndef ESV_ZEL_COMMON_FACADE_H
#define ESV_ZEL_COMMON_FACADE_H

#include "esv_zel_address_types.h"
#include "esv_zel_box_types.h"

// Enumerations of the common notifications. Their values belong to the platform; the library
// passes them on unchanged, so every one is int wide and any int value may arrive.
enum ESV_ZEL_REQ_APP_STATE : int {
    ESV_ZEL_REQ_APP_STATE_STOP = 0,
    ESV_ZEL_REQ_APP_STATE_START = 1
};

enum ESV_ZEL_EVENT_SLEEP_STATE : int {
    ESV_ZEL_EVENT_SLEEP_ENTER = 0,
    ESV_ZEL_EVENT_SLEEP_LEAVE = 1
};

enum ESV_ZEL_EVENT_CONNECTION_ERROR : int {
    ESV_ZEL_EVENT_CONNECTION_ERROR_TIMEOUT = 0,
    ESV_ZEL_EVENT_CONNECTION_ERROR_DISCONNECT = 1
};

enum ESV_ZEL_NETWORK_TYPE : int {
    ESV_ZEL_NETWORK_TYPE_LAN = 0,
    ESV_ZEL_NETWORK_TYPE_WLAN = 1
};

enum ESV_ZEL_ACCEPTANCE_TYPE : int {
    ESV_ZEL_ACCEPTANCE_TYPE_STOP = 0,
    ESV_ZEL_ACCEPTANCE_TYPE_RESTART = 1
};

// Activation scenarios: odd values report a completed activation, even values up to 12 ask
// whether one may start.
enum ESV_ZEL_KIND_OF_SCENARIO : int {
    ESV_ZEL_KIND_OF_SCENARIO_MIN = 0,
    ESV_ZEL_KIND_OF_SCENARIO_MAX = 13
};

// Power state asked for by request_energy_saving_mode; the values belong to the platform.
enum ESV_ZEL_STS_SLEEP : int {
    ESV_ZEL_STS_SLEEP_STANDBY = 0,
    ESV_ZEL_STS_SLEEP_ENERGY_SAVING = 1,
    ESV_ZEL_STS_SLEEP_DEEP = 2
};

namespace tarnwick {

// Receives the common facade's notifications on the facade's own threads. Each answer is 0 or
// the observer's failure code.
class esv_zel_common_observer {
public:
    virtual ~esv_zel_common_observer() {}
    virtual unsigned long notify_key_card_status(unsigned char status) = 0;
    virtual unsigned long notify_key_counter_status(unsigned int status) = 0;
    virtual unsigned long notify_resident_app_state_changed(ESV_ZEL_REQ_APP_STATE state) = 0;
    virtual unsigned long notify_waste_toner_bottle_status(unsigned char status) = 0;
    virtual unsigned long notify_cover_status(unsigned int status) = 0;
    virtual unsigned long notify_paper_rest_status(unsigned short source, unsigned char level) = 0;
    virtual unsigned long notify_toner_status(unsigned char first, unsigned char second) = 0;
    virtual unsigned long notify_coin_vender_status(unsigned int status) = 0;
    virtual unsigned long notify_usb_memory_status(unsigned int status) = 0;
    virtual unsigned long notify_sleep(ESV_ZEL_EVENT_SLEEP_STATE state) = 0;
    virtual unsigned long notify_pbp_connection_error(ESV_ZEL_EVENT_CONNECTION_ERROR error) = 0;
    virtual unsigned long notify_logout(unsigned long reason) = 0;
    virtual unsigned long network_state_changed(ESV_ZEL_NETWORK_TYPE type) = 0;
    virtual unsigned long service_state_changed(ESV_ZEL_ACCEPTANCE_TYPE type) = 0;
    virtual unsigned long request_activate(ESV_ZEL_KIND_OF_SCENARIO scenario, unsigned int value) = 0;
};

// Process-wide singleton of the common service.
class esv_zel_common_facade {
public:
    static esv_zel_common_facade* esv_zel_common_get_instance();

    // The observer is kept until it is removed; a remove returns only when no notification
    // to that observer is under way.
    unsigned long esv_zel_common_add_observer(esv_zel_common_observer* observer);
    unsigned long esv_zel_common_remove_observer(esv_zel_common_observer* observer);

    // Search of the personal addresses whose name matches `name`: prepare opens a search that
    // hands out at most `per_fetch` records per fetch; each fetch fills `buffer` with the next
    // records and says how many in `ret_num` (0 at the end); finish closes the search.
    unsigned long esv_zel_search_personal_address_list_prepare(unsigned int per_fetch, unsigned int& handle,
                                                               unsigned int& second);
    unsigned long esv_zel_search_personal_address_list(unsigned int handle, const char* name,
                                                       unsigned int& ret_num, ESV_ZEL_PERSONAL_ADDRESS* buffer);
    unsigned long esv_zel_search_personal_address_list_finish(unsigned int handle);

    // Power and certificates. Results share the system-information codes (0 success);
    // check_eweb_cert_info answers 1 for yes, 0 for no and 2 when it cannot tell.
    unsigned long esv_zel_set_wakeup_date(unsigned int app_id, long date);
    unsigned long esv_zel_resume_deep_sleep(unsigned int app_id);
    unsigned long esv_zel_suspend_deep_sleep(unsigned int app_id);
    unsigned long esv_zel_request_save_mode_prohibition(int flag);
    unsigned long esv_zel_request_energy_saving_mode(ESV_ZEL_STS_SLEEP state);
    unsigned long esv_zel_check_eweb_cert_info(const char* path);

    // Easy document box: deletion of a document, and listings of a folder one entry per fetch
    // (prepare / fetch / finish; finish after every successful prepare).
    unsigned long esv_zel_delete_easy_document(const char* path);
    unsigned long esv_zel_get_easy_box_info_prepare(const char* path, unsigned int per_fetch,
                                                    unsigned int& handle, unsigned int& total_num);
    unsigned long esv_zel_get_easy_box_info(unsigned int handle, unsigned int& get_num,
                                            ESV_ZEL_EASY_BOX_INFO* buffer);
    unsigned long esv_zel_get_easy_box_info_finish(unsigned int handle);

private:
    esv_zel_common_facade() {}
};

}  // namespace tarnwick

#endif
