// System-information facade: machine values by key, machine information, trays, counters,
// model type and screen size.
#ifndef ESV_ZEL_SYSTEMINFO_FACADE_H
#define ESV_ZEL_SYSTEMINFO_FACADE_H

#include <string>

#include "esv_zel_systeminfo_types.h"

// Key of a system value, tray or piece of machine information. The values belong to the
// platform and pass through the library unchanged, so any int may arrive.
enum ESV_ZEL_ENTKEY : int {
    ESV_ZEL_ENTKEY_MIN = 0,
    ESV_ZEL_ENTKEY_MAX = 0x7FFFFFFF
};

// Results of the system-information facade. The common facade answers its power and
// certificate requests in the same code space.
#define ESV_ZEL_SYSINFO_OK 0
#define ESV_ZEL_SYSINFO_ERROR_COMPETENCE 0x04010501
#define ESV_ZEL_SYSINFO_ERROR 0x04010502
#define ESV_ZEL_SYSINFO_UNSUPPORTED_ERROR 0x04010503

namespace tarnwick {

// Process-wide singleton of the system-information service.
class esv_zel_systeminfo_facade {
public:
    static esv_zel_systeminfo_facade* esv_zel_systeminfo_get_instance();

    long esv_zel_systeminfo_get_model_type(unsigned int& type);
    long esv_zel_systeminfo_get_screen_size(unsigned int& size);
    long esv_zel_systeminfo_get_paper_info(ESV_ZEL_ENTKEY key, ESV_ZEL_PAPER_INFO& info);
    long esv_zel_systeminfo_get_count(ESV_ZEL_COUNT_INFO& info, unsigned long& count);
    long esv_zel_systeminfo_get_machine_info(ESV_ZEL_ENTKEY key, unsigned long cid, unsigned int& value);
    long esv_zel_systeminfo_get_machine_info(ESV_ZEL_ENTKEY key, unsigned long cid, std::string& value);
    long esv_zel_systeminfo_set_machine_info(ESV_ZEL_ENTKEY key, unsigned long cid, unsigned int value);
    long esv_zel_systeminfo_get_value(ESV_ZEL_ENTKEY key, unsigned int& value);
    long esv_zel_systeminfo_get_value(ESV_ZEL_ENTKEY key, std::string& value);
    long esv_zel_systeminfo_set_value(ESV_ZEL_ENTKEY key, unsigned int value);
    long esv_zel_systeminfo_set_value(ESV_ZEL_ENTKEY key, std::string value);

private:
    esv_zel_systeminfo_facade() {}
};

}  // namespace tarnwick

#endif
