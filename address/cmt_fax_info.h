// Builder of the Java fax info objects of an address ("tarnwick/zel/address/attribute/FaxInfoImpl").
#ifndef TARNWICK_CMT_FAX_INFO_H
#define TARNWICK_CMT_FAX_INFO_H

#include <jni.h>

#include "cmt_address_builder.h"

namespace tarnwick {

class cmt_fax_info : public cmt_address_builder {
public:
    cmt_fax_info();
    ~cmt_fax_info() override;

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

private:
    jfieldID fax_num_ = nullptr;
    jfieldID bitrate_type_ = nullptr;
    jfieldID ecm_ = nullptr;
    jfieldID fax_address_ = nullptr;
    jfieldID encode_ = nullptr;
    jfieldID encode_id_ = nullptr;
    jfieldID encode_box_ = nullptr;
    jfieldID encode_box_num_ = nullptr;
    jfieldID name_ = nullptr;
    jfieldID department_ = nullptr;
    jfieldID company_ = nullptr;
    jfieldID honorific_title_type_ = nullptr;
};

}  // namespace tarnwick

#endif
