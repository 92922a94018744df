// Builder of the Java fax info objects of an address ("tarnwick/zel/address/attribute/FaxInfoImpl").
#ifndef TARNWICK_CMT_FAX_INFO_H
#define TARNWICK_CMT_FAX_INFO_H

#include <jni.h>

#include "cmt_address_builder.h"

namespace tarnwick {

class cmt_fax_info : public cmt_address_builder {
public:
    cmt_fax_info();

    void set_field_fax_num(jobject obj, const char* value);
    void set_field_bitrate_type(jobject obj, signed char value);
    void set_field_ecm(jobject obj, signed char value);
    void set_field_fax_address(jobject obj, const char* value);
    void set_field_encode(jobject obj, signed char value);
    void set_field_encode_id(jobject obj, signed char value);
    void set_field_encode_box(jobject obj, signed char value);
    void set_field_encode_box_num(jobject obj, signed char value);
    void set_field_name(jobject obj, const char* value);
    void set_field_department(jobject obj, const char* value);
    void set_field_company(jobject obj, const char* value);
    void set_field_honorific_title_type(jobject obj, signed char value);
};

}  // namespace tarnwick

#endif
