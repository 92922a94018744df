#include "cmt_personal_address.h"

#include "tovr_jni.h"

namespace tarnwick {

cmt_personal_address::cmt_personal_address() : cmt_address_builder("cmt_personal_address", Part::kPersonal) {}

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
