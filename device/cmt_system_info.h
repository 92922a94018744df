// Java applications' access to the machine's system values, machine information, trays and
// counters, model type and screen size, power states and the panel's reset timer. A thin layer
// over the system-information, common and panel facades that folds every facade result into a
// four-valued module code: 0 success, 1 no permission for the key, 2 error, 3 not supported.
#ifndef TARNWICK_CMT_SYSTEM_INFO_H
#define TARNWICK_CMT_SYSTEM_INFO_H

#include <cstdint>
#include <string>

#include "esv_zel_common_facade.h"
#include "esv_zel_panel_facade.h"
#include "esv_zel_systeminfo_facade.h"

namespace tarnwick {

/**
 * The machine's system values (settings and machine data addressed by a key), machine
 * information, paper trays and counters, model type and screen size, power states (energy
 * saving, deep sleep, wake-up time) and the panel's reset timer.
 * <p>Results of the {@code int} operations: 0 success, 1 the application may not use this key
 * (no competence), 2 error, 3 not supported by this model. Outputs come back in element 0 of the
 * array passed. The four value accessors ({@code get_long_value}, {@code set_long_value},
 * {@code get_string_value}, {@code set_string_value}) answer the value (or -1 / "") or a
 * boolean instead; {@link #get_result()} then tells whether the last of them succeeded and
 * {@link #get_retcode()} the result of the last get.
 */
class CMT_System_Info {
public:
    CMT_System_Info();
    virtual ~CMT_System_Info();

    int get_model_type(unsigned int& type);
    int get_screen_size(unsigned int& size);
    int get_paper_info(ESV_ZEL_ENTKEY key, ESV_ZEL_PAPER_INFO& info);
    int get_count(ESV_ZEL_COUNT_INFO& info, unsigned long& count);
    int get_machine_info(ESV_ZEL_ENTKEY key, unsigned long cid, unsigned int& value);
    int get_machine_info(ESV_ZEL_ENTKEY key, unsigned long cid, std::string& value);
    int set_machine_info(ESV_ZEL_ENTKEY key, unsigned long cid, unsigned int value);

    /**
     * The four value accessors are the only operations that keep an outcome: get_result()
     * tells whether the last of them succeeded, get_retcode() the module code of the last get.
     */
    long get_long_value(ESV_ZEL_ENTKEY key);
    bool set_long_value(ESV_ZEL_ENTKEY key, long value);
    std::string get_string_value(ESV_ZEL_ENTKEY key);
    bool set_string_value(ESV_ZEL_ENTKEY key, std::string value);

    int set_wakeup_date(unsigned int app_id, unsigned long date);
    int resume_deep_sleep(unsigned int app_id);
    int suspend_deep_sleep(unsigned int app_id);
    int set_energy_save_prohibition_mode(bool flag);
    bool request_energy_saving_mode(ESV_ZEL_STS_SLEEP state);
    bool check_eweb_cert_info(const char* path);
    /** 0 when the panel took the request, 2 when it did not. */
    int panel_reset_timer_ctrl(unsigned int context, ESV_ZEL_PNL_RST_TMR operation);

    /** Whether the last value access (get or set) succeeded. */
    bool get_result();
    /** The result (0 to 3, as in the class description) of the last value get. */
    int get_retcode();

    /**
     * The module result (0 to 3) of a device service code: 0, 1 no competence, 2 error, 3
     * unsupported.
     */
    int convert_retcode(long rc);

private:
    bool result;
    std::int32_t retcode;
};

}  // namespace tarnwick

#endif
