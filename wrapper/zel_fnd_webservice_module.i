// package tarnwick.zel.wrapper.webservice
// Web service reservation for a client host.
%module zel_fnd_webservice_module

%include "tovr_conventions.i"
// The service kind reaches Java as a plain int and passes through unchanged.
%include "enumtypeunsafe.swg"

%{
#include "zel_fnd_webservice_proxy.h"
using namespace tarnwick;
%}

%import "esv_zel_webservice_facade.h"

%ignore tarnwick::zel_fnd_webservice_proxy::convert_retcode;
%include "zel_fnd_webservice_proxy.h"
