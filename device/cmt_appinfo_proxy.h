// The lightest way from a Java application to the machine's system values and the panel's
// current identity: the same facade calls as CMT_System_Info, with no result conversion. Only
// set_value reports a facade code; the getters and change_id fold every failure into 0 or "".
#ifndef TARNWICK_CMT_APPINFO_PROXY_H
#define TARNWICK_CMT_APPINFO_PROXY_H

#include <string>

#include "esv_zel_systeminfo_facade.h"

namespace tarnwick {

/**
 * The machine's system values and the panel's identity, as light as it gets: the same device
 * calls as {@code CMT_System_Info} without its result codes. Only {@code set_value} answers the
 * device's code (0 success); the getters answer 0 or "" for any failure and {@code change_id}
 * 0 for failure.
 */
class cmt_appinfo_proxy {
public:
    cmt_appinfo_proxy();
    virtual ~cmt_appinfo_proxy();

    unsigned int change_id(char* id);
    int set_value(ESV_ZEL_ENTKEY key, int value);
    int get_value(ESV_ZEL_ENTKEY key);
    unsigned long get_long_value(ESV_ZEL_ENTKEY key);
    std::string get_string_value(ESV_ZEL_ENTKEY key);
};

}  // namespace tarnwick

#endif
