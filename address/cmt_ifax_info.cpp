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

cmt_ifax_info::cmt_ifax_info() : cmt_address_builder("cmt_ifax_info", java_class()) {}

void cmt_ifax_info::set_field_ifax_address(jobject obj, const char* value) { set_text(obj, 1, value); }

void cmt_ifax_info::set_field_mode_type(jobject obj, signed char value) { set_byte(obj, 2, value); }

void cmt_ifax_info::set_field_size_type(jobject obj, signed char value) { set_byte(obj, 3, value); }

void cmt_ifax_info::set_field_resolution_type(jobject obj, signed char value) { set_byte(obj, 4, value); }

void cmt_ifax_info::set_field_file_type(jobject obj, signed char value) { set_byte(obj, 5, value); }

}  // namespace tarnwick
