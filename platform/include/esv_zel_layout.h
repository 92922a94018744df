// Layout checks of the facades' records: the offsets and sizes are the device's, and a host
// build must lay the records out the same way (fixed-width members only).
#ifndef ESV_ZEL_LAYOUT_H
#define ESV_ZEL_LAYOUT_H

#include <cstddef>

#define ESV_ZEL_LAYOUT(T, M, OFF) static_assert(offsetof(T, M) == (OFF), #T "." #M)
#define ESV_ZEL_SIZE(T, N) static_assert(sizeof(T) == (N), "sizeof " #T)

#endif
