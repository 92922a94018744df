// package tarnwick.zel.wrapper.device.attribute
// The IC card reader: presence, identity and card types, read type and the FeliCa setting.
%module CMT_ICCard

%include "tovr_conventions.i"

%{
#include "cmt_device_iccard.h"
using namespace tarnwick;
%}

// A FeliCa setting that could not be read leaves the string getters without a value: their
// logic_error becomes a Java RuntimeException with its message.
%catches(std::logic_error) tarnwick::CMT_Device_ICCard::getTypeCSystemCode;
%catches(std::logic_error) tarnwick::CMT_Device_ICCard::getTypeCServiceCode;

// The class constants stay natives (CMT_Device_ICCard_<NAME>_get).
%javaconst(0);
%include "cmt_device_iccard.h"
%javaconst(1);
