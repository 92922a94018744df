// Department service facade: device-wide department accounting settings and hidden
// departments with their page limits, restrictions and counters.
//
// A process-wide singleton; every member answers a result code of ESV_ZEL_DEPT_RET. The record
// is exchanged with the closed facade library by address, so its layout is fixed and checked
// below on the host and on the device.
#ifndef ESV_ZEL_DEPT_FACADE_H
#define ESV_ZEL_DEPT_FACADE_H

#include <stdint.h>

#include <string>

// ---------------------------------------------------------------------------------------------
// Result codes of the department facade.
enum ESV_ZEL_DEPT_RET : int {
    ESV_ZEL_DEPT_OK = 0x00000000,
    ESV_ZEL_DEPT_ERROR = 0x04010801,            // general failure
    ESV_ZEL_DEPT_PARAM_ERROR = 0x04010802,
    ESV_ZEL_DEPT_NOT_FOUND_ERROR = 0x04010803,
    ESV_ZEL_DEPT_DUPL_DEPT_ERROR = 0x04010804,
    ESV_ZEL_DEPT_FULL_ERROR = 0x04010805        // no room for another department
};

// ---------------------------------------------------------------------------------------------
// Enumerations (int width; the library passes their values through).

// What the device does when a department reaches a limit.
enum ESV_ZEL_DEPT_LIMIT_ACTION : int {
    ESV_ZEL_DEPT_LIMIT_ACTION_STOP_JOB = 0,    // stops at once
    ESV_ZEL_DEPT_LIMIT_ACTION_AFTER_JOB = 1,   // lets the running job end
    ESV_ZEL_DEPT_LIMIT_ACTION_WARN_ONLY = 2
};

// Whether jobs without a department are accepted.
enum ESV_ZEL_DEPT_INVALID_DEPT_MODE : int {
    ESV_ZEL_DEPT_INVALID_DEPT_MODE_PROHIBIT = 0,
    ESV_ZEL_DEPT_INVALID_DEPT_MODE_PERMIT = 1
};

// Copy and print pages counted separately (0) or together (1).
enum ESV_ZEL_DEPT_MIX_MODE : int {
    ESV_ZEL_DEPT_MIX_MODE_SEPARATE = 0,
    ESV_ZEL_DEPT_MIX_MODE_MIXED = 1
};

// Department accounting off (0) or on (1).
enum ESV_ZEL_DEPT_DEPT_MODE : int {
    ESV_ZEL_DEPT_DEPT_MODE_OFF = 0,
    ESV_ZEL_DEPT_DEPT_MODE_ON = 1
};

// Number of counter slots of a department.
#define ESV_ZEL_DEPT_SLOT_NUM 10

// ---------------------------------------------------------------------------------------------
// A department (480 bytes); `id` is its key.
struct ESV_ZEL_DEPT_DEPTINFO {
    char name[193];
    char note[193];                               // a further text, not used by the library
    char id[10];
    int32_t restriction[ESV_ZEL_DEPT_SLOT_NUM];   // per counter slot
    int32_t reserved;
    int32_t limit[ESV_ZEL_DEPT_SLOT_NUM];         // page limit per counter slot
};

#ifndef SWIG
#include "esv_zel_layout.h"

ESV_ZEL_SIZE(ESV_ZEL_DEPT_DEPTINFO, 480);
ESV_ZEL_LAYOUT(ESV_ZEL_DEPT_DEPTINFO, name, 0);
ESV_ZEL_LAYOUT(ESV_ZEL_DEPT_DEPTINFO, note, 193);
ESV_ZEL_LAYOUT(ESV_ZEL_DEPT_DEPTINFO, id, 386);
ESV_ZEL_LAYOUT(ESV_ZEL_DEPT_DEPTINFO, restriction, 396);
ESV_ZEL_LAYOUT(ESV_ZEL_DEPT_DEPTINFO, reserved, 436);
ESV_ZEL_LAYOUT(ESV_ZEL_DEPT_DEPTINFO, limit, 440);
#endif

namespace tarnwick {

class esv_zel_dept_facade {
public:
    static esv_zel_dept_facade* esv_zel_dept_get_instance();

    long esv_zel_dept_get_limit_action_mode(ESV_ZEL_DEPT_LIMIT_ACTION& mode);
    long esv_zel_dept_set_limit_action_mode(ESV_ZEL_DEPT_LIMIT_ACTION mode);
    long esv_zel_dept_get_invalid_dept_mode(ESV_ZEL_DEPT_INVALID_DEPT_MODE& mode);
    long esv_zel_dept_set_invalid_dept_mode(ESV_ZEL_DEPT_INVALID_DEPT_MODE mode);
    long esv_zel_dept_get_mix_mode(ESV_ZEL_DEPT_MIX_MODE& mode);
    long esv_zel_dept_set_mix_mode(ESV_ZEL_DEPT_MIX_MODE mode);
    long esv_zel_dept_get_dept_mode(ESV_ZEL_DEPT_DEPT_MODE& mode);
    long esv_zel_dept_set_dept_mode(ESV_ZEL_DEPT_DEPT_MODE mode);

    long esv_zel_dept_add_hide_dept(const ESV_ZEL_DEPT_DEPTINFO& info);
    long esv_zel_dept_update_hide_dept(const ESV_ZEL_DEPT_DEPTINFO& info);
    long esv_zel_dept_retrieve_hide_dept(const std::string& id, ESV_ZEL_DEPT_DEPTINFO& info);
    long esv_zel_dept_delete_hide_dept(const std::string& id);
    long esv_zel_dept_delete_all_hide_dept();
    long esv_zel_dept_reset_hide_dept_counter(const std::string& id);

private:
    esv_zel_dept_facade();
    esv_zel_dept_facade(const esv_zel_dept_facade&) = delete;
    esv_zel_dept_facade& operator=(const esv_zel_dept_facade&) = delete;
};

}  // namespace tarnwick

#endif
