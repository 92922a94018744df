// Records and result codes of the common facade's easy document box.
#ifndef ESV_ZEL_BOX_TYPES_H
#define ESV_ZEL_BOX_TYPES_H

#include <stdint.h>

#include "esv_zel_max_sizes.h"

// Result codes of the box operations of the common facade.
#define ESV_ZEL_COMMON_OK 0x00000000
#define ESV_ZEL_COMMON_ERROR 0x04010201        // unspecified failure
#define ESV_ZEL_COMMON_LIMIT_ERROR 0x04010208  // too many listings open
#define ESV_ZEL_COMMON_PARAM_ERROR 0x04010209  // argument out of range (count per fetch other than 1)
#define ESV_ZEL_COMMON_HANDLE_ERROR 0x0401020A // unknown or finished listing
#define ESV_ZEL_COMMON_PATH_ERROR 0x0401020B   // no such folder or document

// Entry type of a folder; any other value is a file.
#define ESV_ZEL_EASY_BOX_TYPE_FOLDER 1

// One entry of a box listing: 3080 bytes.
struct ESV_ZEL_EASY_BOX_INFO {
    uint32_t type;                          // 0
    uint32_t reserved;                      // 4
    char name[ESV_ZEL_MAX_NODE_NAME];            // 8: NUL-terminated
    unsigned char pad_name;                      // 1539
    int32_t date;                           // 1540: seconds of the platform clock
    uint32_t size;                          // 1544: bytes
    char path[ESV_ZEL_MAX_ACCESS_PATH_SIZE];     // 1548: NUL-terminated
    unsigned char pad_path;                      // 3079
};

#ifndef SWIG
#include "esv_zel_layout.h"

ESV_ZEL_LAYOUT(ESV_ZEL_EASY_BOX_INFO, type, 0);
ESV_ZEL_LAYOUT(ESV_ZEL_EASY_BOX_INFO, name, 8);
ESV_ZEL_LAYOUT(ESV_ZEL_EASY_BOX_INFO, date, 1540);
ESV_ZEL_LAYOUT(ESV_ZEL_EASY_BOX_INFO, size, 1544);
ESV_ZEL_LAYOUT(ESV_ZEL_EASY_BOX_INFO, path, 1548);
ESV_ZEL_SIZE(ESV_ZEL_EASY_BOX_INFO, 3080);
#endif

#endif
