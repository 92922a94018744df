// The state of one job as the job facade reports it (job notifications, job module and job
// log module share it).
#ifndef ESV_ZEL_JOB_STATE_H
#define ESV_ZEL_JOB_STATE_H

#include <stddef.h>
#include <stdint.h>

/** Job states as {@code ESV_ZEL_JOB_STATE} and the job events report them. */
enum ESV_ZEL_EVENT_JOB_STATE : int {
    /** The job started. */
    ESV_ZEL_EVENT_JOB_START = 0,
    /** The job ended (its result tells how). */
    ESV_ZEL_EVENT_JOB_END = 1,
    /** The job's scanning is complete. */
    ESV_ZEL_EVENT_JOB_SCAN_COMPLETE = 2,
    /** The job is reserved (waiting for its turn). */
    ESV_ZEL_EVENT_JOB_RSV = 3
};
/** How a job ended. */
enum ESV_ZEL_EVENT_JOB_RESULT : int {
    /** Done. */
    ESV_ZEL_EVENT_JOB_RESULT_COMPLETE = 0,
    /** Cancelled. */
    ESV_ZEL_EVENT_JOB_RESULT_CANCEL = 1,
    /** Ended by an error (the job log tells its code). */
    ESV_ZEL_EVENT_JOB_RESULT_ERROR = 2
};

#define ESV_ZEL_JOB_USER_NAME_SIZE 257

/** The state of one job as the facade reports it. */
struct ESV_ZEL_JOB_STATE {
    int state;                  ///< ESV_ZEL_EVENT_JOB_STATE
    uint32_t user_job_id;
    int result;                 ///< ESV_ZEL_EVENT_JOB_RESULT
    uint16_t job_mode;
    char user_name[ESV_ZEL_JOB_USER_NAME_SIZE];
    uint32_t input_box_id;
    uint32_t output_box_id;
    uint32_t form_box_id;
    uint8_t in_dev;
    uint8_t out_dev;
    uint32_t sys_info_user_job_id;
};

#ifndef SWIG
#include "esv_zel_layout.h"
ESV_ZEL_SIZE(ESV_ZEL_JOB_STATE, 292);
ESV_ZEL_LAYOUT(ESV_ZEL_JOB_STATE, state, 0);
ESV_ZEL_LAYOUT(ESV_ZEL_JOB_STATE, user_job_id, 4);
ESV_ZEL_LAYOUT(ESV_ZEL_JOB_STATE, result, 8);
ESV_ZEL_LAYOUT(ESV_ZEL_JOB_STATE, job_mode, 12);
ESV_ZEL_LAYOUT(ESV_ZEL_JOB_STATE, user_name, 14);
ESV_ZEL_LAYOUT(ESV_ZEL_JOB_STATE, input_box_id, 272);
ESV_ZEL_LAYOUT(ESV_ZEL_JOB_STATE, output_box_id, 276);
ESV_ZEL_LAYOUT(ESV_ZEL_JOB_STATE, form_box_id, 280);
ESV_ZEL_LAYOUT(ESV_ZEL_JOB_STATE, in_dev, 284);
ESV_ZEL_LAYOUT(ESV_ZEL_JOB_STATE, out_dev, 285);
ESV_ZEL_LAYOUT(ESV_ZEL_JOB_STATE, sys_info_user_job_id, 288);

#endif  // SWIG

#endif
