#include "cmt_personal_address.h"

#include "tovr_jni.h"

namespace tarnwick {

cmt_personal_address::cmt_personal_address()
    : cmt_address_builder("cmt_personal_address", "tarnwick/zel/address/PersonalAddressImpl") {
    name_ = field("name", "Ltarnwick/zel/address/attribute/NameInfoImpl;");
    email_ = field("email", "Ltarnwick/zel/address/attribute/EmailInfoImpl;");
    ftp_ = field("ftp", "Ltarnwick/zel/address/attribute/FtpInfoImpl;");
    smb_ = field("smb", "Ltarnwick/zel/address/attribute/SmbInfoImpl;");
    fax_ = field("fax", "Ltarnwick/zel/address/attribute/FaxInfoImpl;");
    ifax_ = field("ifax", "Ltarnwick/zel/address/attribute/IfaxInfoImpl;");
}

cmt_personal_address::~cmt_personal_address() {}

void cmt_personal_address::set_field_name(jobject obj, jobject value) { set_object(obj, name_, value); }
void cmt_personal_address::set_field_email(jobject obj, jobject value) { set_object(obj, email_, value); }
void cmt_personal_address::set_field_ftp(jobject obj, jobject value) { set_object(obj, ftp_, value); }
void cmt_personal_address::set_field_smb(jobject obj, jobject value) { set_object(obj, smb_, value); }
void cmt_personal_address::set_field_fax(jobject obj, jobject value) { set_object(obj, fax_, value); }
void cmt_personal_address::set_field_ifax(jobject obj, jobject value) { set_object(obj, ifax_, value); }

jobjectArray cmt_personal_address::create_object_array(int n) {
    if (env_ == nullptr || class_ == nullptr || n < 0) return nullptr;
    jobjectArray array = env_->NewObjectArray(n, class_, nullptr);
    if (jni::failed(env_)) return nullptr;
    return array;
}

}  // namespace tarnwick
