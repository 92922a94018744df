// The system-information facade's tray and counter records, each field one unsigned byte (a
// Java short): new_/delete_ and <RECORD>_<field>_set/_get in every module that includes this.
%{
#include "esv_zel_systeminfo_types.h"
%}
%include "esv_zel_systeminfo_types.h"
