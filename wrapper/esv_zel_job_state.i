// The job state record ESV_ZEL_JOB_STATE with its state and result enumerations, as the job
// and job log modules each expose it (each module gets its own natives for it).
%{
#include "esv_zel_job_state.h"
%}
%include <stdint.i>
%include "esv_zel_job_state.h"
