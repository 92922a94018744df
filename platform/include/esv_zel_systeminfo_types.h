// Records of the system-information facade that Java applications build and read: tray paper
// data and the description of a counter. One unsigned byte per field; the facade reads and
// writes them by address, so their layout is fixed on the host and on the device.
#ifndef ESV_ZEL_SYSTEMINFO_TYPES_H
#define ESV_ZEL_SYSTEMINFO_TYPES_H

/**
 * The paper in one tray ({@code get_paper_info}): how much is left in percent, its size, direction
 * and kind.
 */
struct ESV_ZEL_PAPER_INFO {
    unsigned char paper_remain;
    unsigned char paper_size;
    unsigned char paper_direction;
    unsigned char paper_kind;
};

/**
 * Which counter {@code get_count} reads: its kind (0 total, 1 print, 2 copy, 3 scan), the paper
 * size and the colour it counts.
 */
struct ESV_ZEL_COUNT_INFO {
    unsigned char count_kind;
    unsigned char paper_size;
    unsigned char color_info;
};

#ifndef SWIG
#include "esv_zel_layout.h"
ESV_ZEL_SIZE(ESV_ZEL_PAPER_INFO, 4);
ESV_ZEL_LAYOUT(ESV_ZEL_PAPER_INFO, paper_remain, 0);
ESV_ZEL_LAYOUT(ESV_ZEL_PAPER_INFO, paper_size, 1);
ESV_ZEL_LAYOUT(ESV_ZEL_PAPER_INFO, paper_direction, 2);
ESV_ZEL_LAYOUT(ESV_ZEL_PAPER_INFO, paper_kind, 3);

ESV_ZEL_SIZE(ESV_ZEL_COUNT_INFO, 3);
ESV_ZEL_LAYOUT(ESV_ZEL_COUNT_INFO, count_kind, 0);
ESV_ZEL_LAYOUT(ESV_ZEL_COUNT_INFO, paper_size, 1);
ESV_ZEL_LAYOUT(ESV_ZEL_COUNT_INFO, color_info, 2);
#endif

#endif
