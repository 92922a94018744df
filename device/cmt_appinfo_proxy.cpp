#include "cmt_appinfo_proxy.h"

#include "esv_zel_panel_facade.h"

namespace tarnwick {

namespace {

esv_zel_systeminfo_facade* sysinfo() { return esv_zel_systeminfo_facade::esv_zel_systeminfo_get_instance(); }

}  // namespace

cmt_appinfo_proxy::cmt_appinfo_proxy() {}

cmt_appinfo_proxy::~cmt_appinfo_proxy() {}

// An identifier the facade wrote before failing is not handed on.
unsigned int cmt_appinfo_proxy::change_id(char* id) {
    unsigned int current = 0;
    if (esv_zel_panel_facade::esv_zel_panel_get_instance()->esv_zel_panel_change_id(id, current) != 0) return 0;
    return current;
}

int cmt_appinfo_proxy::set_value(ESV_ZEL_ENTKEY key, int value) {
    return static_cast<int>(sysinfo()->esv_zel_systeminfo_set_value(key, static_cast<unsigned int>(value)));
}

// A rejected key and a value of 0 look alike: the output is preset to 0 and returned as is.
int cmt_appinfo_proxy::get_value(ESV_ZEL_ENTKEY key) {
    unsigned int value = 0;
    sysinfo()->esv_zel_systeminfo_get_value(key, value);
    return static_cast<int>(value);
}

unsigned long cmt_appinfo_proxy::get_long_value(ESV_ZEL_ENTKEY key) {
    unsigned int value = 0;
    sysinfo()->esv_zel_systeminfo_get_value(key, value);
    return value;
}

std::string cmt_appinfo_proxy::get_string_value(ESV_ZEL_ENTKEY key) {
    std::string value;
    if (sysinfo()->esv_zel_systeminfo_get_value(key, value) != 0) value.clear();
    return value;
}

}  // namespace tarnwick
