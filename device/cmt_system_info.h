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

    // The four value accessors are the only operations that keep an outcome: get_result()
    // tells whether the last of them succeeded, get_retcode() the module code of the last get.
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
    int panel_reset_timer_ctrl(unsigned int context, ESV_ZEL_PNL_RST_TMR operation);

    bool get_result();
    int get_retcode();

    int convert_retcode(long rc);

private:
    bool result;
    std::int32_t retcode;
};

}  // namespace tarnwick

#endif
