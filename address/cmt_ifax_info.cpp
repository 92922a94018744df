#include "cmt_ifax_info.h"

namespace tarnwick {

cmt_ifax_info::cmt_ifax_info() : cmt_address_builder("cmt_ifax_info", "tarnwick/zel/address/attribute/IfaxInfoImpl") {
    ifax_address_ = field("ifaxAddress", "Ljava/lang/String;");
    mode_type_ = field("modeType", "B");
    size_type_ = field("sizeType", "B");
    resolution_type_ = field("resolutionType", "B");
    file_type_ = field("fileType", "B");
}

cmt_ifax_info::~cmt_ifax_info() {}

void cmt_ifax_info::set_field_ifax_address(jobject obj, const char* value) { set_text(obj, ifax_address_, value); }

void cmt_ifax_info::set_field_mode_type(jobject obj, signed char value) { set_byte(obj, mode_type_, value); }

void cmt_ifax_info::set_field_size_type(jobject obj, signed char value) { set_byte(obj, size_type_, value); }

void cmt_ifax_info::set_field_resolution_type(jobject obj, signed char value) { set_byte(obj, resolution_type_, value); }

void cmt_ifax_info::set_field_file_type(jobject obj, signed char value) { set_byte(obj, file_type_, value); }

}  // namespace tarnwick
