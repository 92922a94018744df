#include "cmt_fax_info.h"

namespace tarnwick {

cmt_fax_info::cmt_fax_info() : cmt_address_builder("cmt_fax_info", "tarnwick/zel/address/attribute/FaxInfoImpl") {
    fax_num_ = field("faxNum", "Ljava/lang/String;");
    bitrate_type_ = field("bitrateType", "B");
    ecm_ = field("ecm", "B");
    fax_address_ = field("faxAddress", "Ljava/lang/String;");
    encode_ = field("encode", "B");
    encode_id_ = field("encodeID", "B");
    encode_box_ = field("encodeBox", "B");
    encode_box_num_ = field("encodeBoxNum", "B");
    name_ = field("name", "Ljava/lang/String;");
    department_ = field("department", "Ljava/lang/String;");
    company_ = field("company", "Ljava/lang/String;");
    honorific_title_type_ = field("honorificTitleType", "B");
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
