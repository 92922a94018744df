#include "cmt_ifax_info.h"

#include "tovr_jni_class.h"

namespace tarnwick {

namespace {

jni::JavaClass& java_class() {
    static const jni::Member members[] = {
        {jni::Member::kConstructor, "<init>", "()V"},
        {jni::Member::kField, "ifaxAddress", "Ljava/lang/String;"},
        {jni::Member::kField, "modeType", "B"},
        {jni::Member::kField, "sizeType", "B"},
        {jni::Member::kField, "resolutionType", "B"},
        {jni::Member::kField, "fileType", "B"},
    };
    static jni::JavaClass holder("tarnwick/zel/address/attribute/IfaxInfoImpl", members);
    return holder;
}

}  // namespace

cmt_ifax_info::cmt_ifax_info() : cmt_address_builder("cmt_ifax_info", java_class()) {
    ifax_address_ = field(1);
    mode_type_ = field(2);
    size_type_ = field(3);
    resolution_type_ = field(4);
    file_type_ = field(5);
}

cmt_ifax_info::~cmt_ifax_info() {}

void cmt_ifax_info::set_field_ifax_address(jobject obj, const char* value) { set_text(obj, ifax_address_, value); }

void cmt_ifax_info::set_field_mode_type(jobject obj, signed char value) { set_byte(obj, mode_type_, value); }

void cmt_ifax_info::set_field_size_type(jobject obj, signed char value) { set_byte(obj, size_type_, value); }

void cmt_ifax_info::set_field_resolution_type(jobject obj, signed char value) { set_byte(obj, resolution_type_, value); }

void cmt_ifax_info::set_field_file_type(jobject obj, signed char value) { set_byte(obj, file_type_, value); }

}  // namespace tarnwick
