#include "cmt_email_info.h"

#include "tovr_jni_class.h"

namespace tarnwick {

namespace {

jni::JavaClass& java_class() {
    static const jni::Member members[] = {
        {jni::Member::kConstructor, "<init>", "()V"},
        {jni::Member::kField, "mailAddress", "Ljava/lang/String;"},
    };
    static jni::JavaClass holder("tarnwick/zel/address/attribute/EmailInfoImpl", members);
    return holder;
}

}  // namespace

cmt_email_info::cmt_email_info() : cmt_address_builder("cmt_email_info", java_class()) {}

void cmt_email_info::set_field_mail_address(jobject obj, const char* value) { set_text(obj, 1, value); }

}  // namespace tarnwick
