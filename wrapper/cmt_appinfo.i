// package tarnwick.zel.wrapper.appinfo
// Application information: system values by key, the panel's current identity, and the tray
// and counter records.
%module cmt_appinfo

%include "tovr_conventions.i"

%{
#include "cmt_appinfo_proxy.h"
using namespace tarnwick;
%}

%import "esv_zel_systeminfo_facade.h"

%include "esv_zel_sysinfo_records.i"
%include "cmt_appinfo_proxy.h"
