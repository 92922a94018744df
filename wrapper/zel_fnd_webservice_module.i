// package tarnwick.zel.wrapper.webservice
// Web service reservation for a client host.
%module zel_fnd_webservice_module

%include "tovr_conventions.i"

%{
#include "zel_fnd_webservice_proxy.h"
using namespace tarnwick;
%}

%import "esv_zel_webservice_facade.h"

%ignore tarnwick::zel_fnd_webservice_proxy::convert_retcode;
%include "zel_fnd_webservice_proxy.h"
