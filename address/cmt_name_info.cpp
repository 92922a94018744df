#include "cmt_name_info.h"

#include "tovr_jni_class.h"

namespace tarnwick {

namespace {

jni::JavaClass& java_class() {
    static const jni::Member members[] = {
        {jni::Member::kConstructor, "<init>", "()V"},
        {jni::Member::kField, "name", "Ljava/lang/String;"},
        {jni::Member::kField, "pronunciation", "Ljava/lang/String;"},
    };
    static jni::JavaClass holder("tarnwick/zel/address/attribute/NameInfoImpl", members);
    return holder;
}

}  // namespace

cmt_name_info::cmt_name_info() : cmt_address_builder("cmt_name_info", java_class()) {}

void cmt_name_info::set_field_name(jobject obj, const char* value) { set_text(obj, 1, value); }

void cmt_name_info::set_field_pronunciation(jobject obj, const char* value) { set_text(obj, 2, value); }

}  // namespace tarnwick
