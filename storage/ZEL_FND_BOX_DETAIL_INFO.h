// The library's record of one box's settings, filled and read by Java applications.
#ifndef TARNWICK_ZEL_FND_BOX_DETAIL_INFO_H
#define TARNWICK_ZEL_FND_BOX_DETAIL_INFO_H

#include <stdint.h>

#include "esv_zel_max_sizes.h"

namespace tarnwick {

/**
 * The settings of one document box: number, name, owner, sharing, capacity, how long documents are
 * kept, password.
 */
struct ZEL_FND_BOX_DETAIL_INFO {
    uint32_t box_number;
    char box_name[ESV_ZEL_MAX_BOX_NAME];
    int32_t box_owner_type;
    char box_owner_name[ESV_ZEL_MAX_BOX_OWNER_NAME];
    char box_owner_login_name[ESV_ZEL_MAX_BOX_OWNER_NAME];
    int32_t box_share;
    uint32_t box_capacity;
    unsigned char box_preservation_period;
    int32_t box_data_update;
    int32_t box_doc_delete_after_job;
    char box_pw[ESV_ZEL_MAX_BOX_PASSWORD];
};

}  // namespace tarnwick

#endif
