#include "cmt_personal_address.h"

#include "tovr_jni.h"
#include "tovr_jni_class.h"

namespace tarnwick {

namespace {

jni::JavaClass& java_class() {
    static const jni::Member members[] = {
        {jni::Member::kConstructor, "<init>", "()V"},
        {jni::Member::kField, "name", "Ltarnwick/zel/address/attribute/NameInfoImpl;"},
        {jni::Member::kField, "email", "Ltarnwick/zel/address/attribute/EmailInfoImpl;"},
        {jni::Member::kField, "ftp", "Ltarnwick/zel/address/attribute/FtpInfoImpl;"},
        {jni::Member::kField, "smb", "Ltarnwick/zel/address/attribute/SmbInfoImpl;"},
        {jni::Member::kField, "fax", "Ltarnwick/zel/address/attribute/FaxInfoImpl;"},
        {jni::Member::kField, "ifax", "Ltarnwick/zel/address/attribute/IfaxInfoImpl;"},
    };
    static jni::JavaClass holder("tarnwick/zel/address/PersonalAddressImpl", members);
    return holder;
}

}  // namespace

cmt_personal_address::cmt_personal_address() : cmt_address_builder("cmt_personal_address", java_class()) {}

void cmt_personal_address::set_field_name(jobject obj, jobject value) { set_object(obj, 1, value); }
void cmt_personal_address::set_field_email(jobject obj, jobject value) { set_object(obj, 2, value); }
void cmt_personal_address::set_field_ftp(jobject obj, jobject value) { set_object(obj, 3, value); }
void cmt_personal_address::set_field_smb(jobject obj, jobject value) { set_object(obj, 4, value); }
void cmt_personal_address::set_field_fax(jobject obj, jobject value) { set_object(obj, 5, value); }
void cmt_personal_address::set_field_ifax(jobject obj, jobject value) { set_object(obj, 6, value); }

jobjectArray cmt_personal_address::create_object_array(int n) {
    jclass cls = found_class();
    if (cls == nullptr || n < 0) return nullptr;
    jobjectArray array = env_->NewObjectArray(n, cls, nullptr);
    if (jni::failed(env_)) return nullptr;
    return array;
}

}  // namespace tarnwick
