// Builder of the Java Internet-fax info objects of an address ("tarnwick/zel/address/attribute/IfaxInfoImpl").
#ifndef TARNWICK_CMT_IFAX_INFO_H
#define TARNWICK_CMT_IFAX_INFO_H

#include <jni.h>

#include "cmt_address_builder.h"

namespace tarnwick {

class cmt_ifax_info : public cmt_address_builder {
public:
    cmt_ifax_info();

    void set_field_ifax_address(jobject obj, const char* value);
    void set_field_mode_type(jobject obj, signed char value);
    void set_field_size_type(jobject obj, signed char value);
    void set_field_resolution_type(jobject obj, signed char value);
    void set_field_file_type(jobject obj, signed char value);
};

}  // namespace tarnwick

#endif
