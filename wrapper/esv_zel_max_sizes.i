// The 24 ESV_ZEL_MAX_* field sizes, each an int NAME_get native of the including module.
%{
#include "esv_zel_max_sizes.h"
%}
%javaconst(0);
%include "esv_zel_max_sizes.h"
%javaconst(1);
