// package tarnwick.zel.wrapper.system
// Library start-up and time values.
%module cmt_common

%include "tovr_conventions.i"

%{
#include "cmt_init.h"
#include "cmt_time.h"
%}

// Kept internal: the platform registration alone, and the refresh of the local-time fields
// (the default constructor makes it).
%ignore tarnwick::cmt_init::mixsInit;
%ignore tarnwick::cmt_time::getLocalTime;

TOVR_STATIC(tarnwick::cmt_init::init)
%include "cmt_init.h"
%include "cmt_time.h"
