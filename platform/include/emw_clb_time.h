// Platform clock.
#ifndef EMW_CLB_TIME_H
#define EMW_CLB_TIME_H

#include <time.h>

#ifdef __cplusplus
extern "C" {
#endif

// Local broken-down time, with the interface of localtime_r.
struct tm* emwCLBLocalTime_r(const time_t* t, struct tm* result);

#ifdef __cplusplus
}
#endif

#endif
