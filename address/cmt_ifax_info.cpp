#include "cmt_ifax_info.h"

namespace tarnwick {

cmt_ifax_info::cmt_ifax_info() : cmt_address_builder("cmt_ifax_info", Part::kIfax) {}

void cmt_ifax_info::set_field_ifax_address(jobject obj, const char* value) { set_text(obj, 1, value); }

void cmt_ifax_info::set_field_mode_type(jobject obj, signed char value) { set_byte(obj, 2, value); }

void cmt_ifax_info::set_field_size_type(jobject obj, signed char value) { set_byte(obj, 3, value); }

void cmt_ifax_info::set_field_resolution_type(jobject obj, signed char value) { set_byte(obj, 4, value); }

void cmt_ifax_info::set_field_file_type(jobject obj, signed char value) { set_byte(obj, 5, value); }

}  // namespace tarnwick
