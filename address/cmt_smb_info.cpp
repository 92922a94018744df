#include "cmt_smb_info.h"

namespace tarnwick {

cmt_smb_info::cmt_smb_info() : cmt_address_builder("cmt_smb_info", "tarnwick/zel/address/attribute/SmbInfoImpl") {
    host_ = field("host", "Ljava/lang/String;");
    path_ = field("path", "Ljava/lang/String;");
    port_ = field("port", "I");
    login_name_ = field("loginName", "Ljava/lang/String;");
    password_ = field("password", "Ljava/lang/String;");
}

cmt_smb_info::~cmt_smb_info() {}

void cmt_smb_info::set_field_host(jobject obj, const char* value) { set_text(obj, host_, value); }

void cmt_smb_info::set_field_path(jobject obj, const char* value) { set_text(obj, path_, value); }

void cmt_smb_info::set_field_port(jobject obj, int value) { set_int(obj, port_, value); }

void cmt_smb_info::set_field_login_name(jobject obj, const char* value) { set_text(obj, login_name_, value); }

void cmt_smb_info::set_field_password(jobject obj, const char* value) { set_text(obj, password_, value); }

}  // namespace tarnwick
