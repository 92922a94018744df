// A department: its facade record and its per-job-type page limits and restrictions, set here
// and sent to the facade by cmt_account_manager.
#ifndef TARNWICK_CMT_ACCOUNT_H
#define TARNWICK_CMT_ACCOUNT_H

#include <string>

#include "esv_zel_dept_facade.h"

namespace tarnwick {

/**
 * A department (for department accounting): its id, name and, per job type, a page limit and
 * a restriction. Set them here, then register or change the department with
 * {@code cmt_account_manager}.
 */
class cmt_account {
public:
    /** The id is kept within its field (9 characters). */
    explicit cmt_account(const std::string& id);
    virtual ~cmt_account();

    /** Clears the texts and all limits and restrictions; the id stays. */
    void init();
    std::string get_name();
    /** The name is kept within its field (192 characters). */
    void set_name(const std::string& name);
    std::string get_id();
    ESV_ZEL_DEPT_DEPTINFO* get_deptinfo();

    /**
     * Store `value` in the counter slot of job type `type` (1 to 8) under mix mode `mixmode`
     * (0 separate, 1 mixed). 1 when stored or when the pair has no slot; 0 for an unknown type.
     */
    int set_limit(int value, int type, int mixmode);
    int set_restriction(int value, int type, int mixmode);
    /** Not read back from the record: always -2. */
    int get_limit(int type);
    int get_restriction(int type);

private:
    ESV_ZEL_DEPT_DEPTINFO m_deptinfo;
};

}  // namespace tarnwick

#endif
