// package tarnwick.zel.wrapper.device.attribute
// System information: machine values, machine information, trays and counters, power states
// and the panel's reset timer; the tray and counter records and the ESV_ZEL_MAX_* field sizes.
%module CMT_SystemInformation

%include "tovr_conventions.i"

%{
#include "cmt_system_info.h"
using namespace tarnwick;
%}

// Facade enumerations taken by the operations (known to SWIG, not wrapped).
%import "esv_zel_systeminfo_facade.h"
%import "esv_zel_common_facade.h"
%import "esv_zel_panel_facade.h"

%include "esv_zel_sysinfo_records.i"
%include "esv_zel_max_sizes.i"

// Outputs are one-element long[] arrays, written back (zero-extended) also when the call fails.
%apply unsigned int &OUTPUT { unsigned int &type, unsigned int &size, unsigned int &value };
%apply unsigned long &OUTPUT { unsigned long &count };

// The text get_machine_info fills travels in a String[]: element 0, when it holds a string, is
// the initial value, and is replaced by the result after the call.
%typemap(jni) std::string &value "jobjectArray"
%typemap(jtype) std::string &value "String[]"
%typemap(jstype) std::string &value "String[]"
%typemap(javain) std::string &value "$javainput"
%typemap(in) std::string &value ($*1_ltype temp) {
  if (!$input) {
    SWIG_JavaThrowException(jenv, SWIG_JavaNullPointerException, "array null");
    return $null;
  }
  if (jenv->GetArrayLength($input) == 0) {
    SWIG_JavaThrowException(jenv, SWIG_JavaIndexOutOfBoundsException, "Array must contain at least 1 element");
    return $null;
  }
  jstring initial = (jstring)jenv->GetObjectArrayElement($input, 0);
  if (jenv->ExceptionCheck()) return $null;
  if (initial) {
    const char *chars = jenv->GetStringUTFChars(initial, 0);
    if (!chars) {
      jenv->DeleteLocalRef(initial);
      return $null;
    }
    temp.assign(chars);
    jenv->ReleaseStringUTFChars(initial, chars);
    jenv->DeleteLocalRef(initial);
  }
  $1 = &temp;
}
%typemap(argout) std::string &value {
  jstring text = jenv->NewStringUTF(temp$argnum.c_str());
  if (!text) return $null;
  jenv->SetObjectArrayElement($input, 0, text);
  const bool store_failed = jenv->ExceptionCheck();
  jenv->DeleteLocalRef(text);
  if (store_failed) return $null;
}

%ignore tarnwick::CMT_System_Info::convert_retcode;
%include "cmt_system_info.h"
