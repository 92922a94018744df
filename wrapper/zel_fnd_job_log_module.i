// package tarnwick.zel.wrapper.job.log
// The job log: the log proxy, the log entry, its send and receive list records, and the job
// state record.
%module zel_fnd_job_log_module

%include "tovr_conventions.i"
%include <stdint.i>

%{
#include "esv_zel_jobinfo_types.h"
#include "zel_fnd_job_log_proxy.h"
%}

// The notification records belong to the event bridge, not to this module.
%ignore ESV_ZEL_EVENT_JOB_UPDATE_LOG;
%ignore ESV_ZEL_EVENT_SEND_PAGE;
%ignore ESV_ZEL_EVENT_RENINT_START;
%ignore ESV_ZEL_EVENT_PRINT_PAGE;
%ignore ESV_ZEL_EVENT_SCAN_PAGE;

// The records' embedded records.
TOVR_EMBEDDED(ESV_ZEL_JOBINFO_SEND_INFO_MAIL, mail)
TOVR_EMBEDDED(ESV_ZEL_JOBINFO_SEND_INFO_I_FAX, i_fax)
TOVR_EMBEDDED(ESV_ZEL_JOBINFO_SEND_INFO_FAX, fax)
TOVR_EMBEDDED(ESV_ZEL_JOBINFO_SEND_INFO_PC, pc)
TOVR_EMBEDDED(ESV_ZEL_JOBINFO_SEND_INFO_DETAIL, detail)
TOVR_EMBEDDED(ESV_ZEL_JOBINFO_RECEIVE_INFO_MAIL, mail)
TOVR_EMBEDDED(ESV_ZEL_JOBINFO_RECEIVE_INFO_I_FAX, i_fax)
TOVR_EMBEDDED(ESV_ZEL_JOBINFO_RECEIVE_INFO_FAX, fax)
TOVR_EMBEDDED(ESV_ZEL_JOBINFO_RECEIVE_INFO_PC, pc)
TOVR_EMBEDDED(ESV_ZEL_JOBINFO_RECEIVE_INFO_DETAIL, detail)
%include "esv_zel_job_state.i"
%include "esv_zel_jobinfo_types.h"

%ignore tarnwick::zel_fnd_job_log_proxy::convert_retcode;
%include "zel_fnd_job_log_proxy.h"
