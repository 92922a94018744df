#include "cmt_fax_info.h"

namespace tarnwick {

cmt_fax_info::cmt_fax_info() : cmt_address_builder("cmt_fax_info", Part::kFax) {}

void cmt_fax_info::set_field_fax_num(jobject obj, const char* value) { set_text(obj, 1, value); }

void cmt_fax_info::set_field_bitrate_type(jobject obj, signed char value) { set_byte(obj, 2, value); }

void cmt_fax_info::set_field_ecm(jobject obj, signed char value) { set_byte(obj, 3, value); }

void cmt_fax_info::set_field_fax_address(jobject obj, const char* value) { set_text(obj, 4, value); }

void cmt_fax_info::set_field_encode(jobject obj, signed char value) { set_byte(obj, 5, value); }

void cmt_fax_info::set_field_encode_id(jobject obj, signed char value) { set_byte(obj, 6, value); }

void cmt_fax_info::set_field_encode_box(jobject obj, signed char value) { set_byte(obj, 7, value); }

void cmt_fax_info::set_field_encode_box_num(jobject obj, signed char value) { set_byte(obj, 8, value); }

void cmt_fax_info::set_field_name(jobject obj, const char* value) { set_text(obj, 9, value); }

void cmt_fax_info::set_field_department(jobject obj, const char* value) { set_text(obj, 10, value); }

void cmt_fax_info::set_field_company(jobject obj, const char* value) { set_text(obj, 11, value); }

void cmt_fax_info::set_field_honorific_title_type(jobject obj, signed char value) { set_byte(obj, 12, value); }

}  // namespace tarnwick
