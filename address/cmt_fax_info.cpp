#include "cmt_fax_info.h"

#include "tovr_jni_class.h"

namespace tarnwick {

namespace {

jni::JavaClass& java_class() {
    static const jni::Member members[] = {
        {jni::Member::kConstructor, "<init>", "()V"},
        {jni::Member::kField, "faxNum", "Ljava/lang/String;"},
        {jni::Member::kField, "bitrateType", "B"},
        {jni::Member::kField, "ecm", "B"},
        {jni::Member::kField, "faxAddress", "Ljava/lang/String;"},
        {jni::Member::kField, "encode", "B"},
        {jni::Member::kField, "encodeID", "B"},
        {jni::Member::kField, "encodeBox", "B"},
        {jni::Member::kField, "encodeBoxNum", "B"},
        {jni::Member::kField, "name", "Ljava/lang/String;"},
        {jni::Member::kField, "department", "Ljava/lang/String;"},
        {jni::Member::kField, "company", "Ljava/lang/String;"},
        {jni::Member::kField, "honorificTitleType", "B"},
    };
    static jni::JavaClass holder("tarnwick/zel/address/attribute/FaxInfoImpl", members);
    return holder;
}

}  // namespace

cmt_fax_info::cmt_fax_info() : cmt_address_builder("cmt_fax_info", java_class()) {
    fax_num_ = field(1);
    bitrate_type_ = field(2);
    ecm_ = field(3);
    fax_address_ = field(4);
    encode_ = field(5);
    encode_id_ = field(6);
    encode_box_ = field(7);
    encode_box_num_ = field(8);
    name_ = field(9);
    department_ = field(10);
    company_ = field(11);
    honorific_title_type_ = field(12);
}

cmt_fax_info::~cmt_fax_info() {}

void cmt_fax_info::set_field_fax_num(jobject obj, const char* value) { set_text(obj, fax_num_, value); }

void cmt_fax_info::set_field_bitrate_type(jobject obj, signed char value) { set_byte(obj, bitrate_type_, value); }

void cmt_fax_info::set_field_ecm(jobject obj, signed char value) { set_byte(obj, ecm_, value); }

void cmt_fax_info::set_field_fax_address(jobject obj, const char* value) { set_text(obj, fax_address_, value); }

void cmt_fax_info::set_field_encode(jobject obj, signed char value) { set_byte(obj, encode_, value); }

void cmt_fax_info::set_field_encode_id(jobject obj, signed char value) { set_byte(obj, encode_id_, value); }

void cmt_fax_info::set_field_encode_box(jobject obj, signed char value) { set_byte(obj, encode_box_, value); }

void cmt_fax_info::set_field_encode_box_num(jobject obj, signed char value) { set_byte(obj, encode_box_num_, value); }

void cmt_fax_info::set_field_name(jobject obj, const char* value) { set_text(obj, name_, value); }

void cmt_fax_info::set_field_department(jobject obj, const char* value) { set_text(obj, department_, value); }

void cmt_fax_info::set_field_company(jobject obj, const char* value) { set_text(obj, company_, value); }

void cmt_fax_info::set_field_honorific_title_type(jobject obj, signed char value) { set_byte(obj, honorific_title_type_, value); }

}  // namespace tarnwick
