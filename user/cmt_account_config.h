// Device-wide department accounting settings: what happens at a limit, jobs without a
// department, copy/print mix counting, and accounting on or off. Values pass through.
#ifndef TARNWICK_CMT_ACCOUNT_CONFIG_H
#define TARNWICK_CMT_ACCOUNT_CONFIG_H

namespace tarnwick {

/**
 * The device's department accounting settings: what happens when a department reaches its
 * limit, whether jobs without a department are allowed, whether copies and prints are counted
 * together, and whether accounting is on. Getters answer the setting or -1 on failure; setters
 * 1 on success, 0 on failure.
 */
class cmt_account_config {
public:
    cmt_account_config();
    virtual ~cmt_account_config();

    /** Getters answer the facade's value, or -1 on failure; setters 1 on success, 0 on failure. */
    int get_limit_over();
    int set_limit_over(int mode);
    int get_permit_anonymous();
    int set_permit_anonymous(int permit);
    int get_copy_print_count();
    int set_copy_print_count(int mode);
    /** True only when the facade reports 1. */
    bool get_mode();
    int set_mode(bool on);
};

}  // namespace tarnwick

#endif
