#include "cmt_ftp_info.h"

namespace tarnwick {

namespace {

jni::JavaClass& java_class() {
    static jni::JavaClass holder("tarnwick/zel/address/attribute/FtpInfoImpl", kServerInfoMembers);
    return holder;
}

}  // namespace

cmt_ftp_info::cmt_ftp_info() : cmt_address_builder("cmt_ftp_info", java_class()) {
    host_ = field(1);
    path_ = field(2);
    port_ = field(3);
    login_name_ = field(4);
    password_ = field(5);
}

cmt_ftp_info::~cmt_ftp_info() {}

void cmt_ftp_info::set_field_host(jobject obj, const char* value) { set_text(obj, host_, value); }

void cmt_ftp_info::set_field_path(jobject obj, const char* value) { set_text(obj, path_, value); }

void cmt_ftp_info::set_field_port(jobject obj, int value) { set_int(obj, port_, value); }

void cmt_ftp_info::set_field_login_name(jobject obj, const char* value) { set_text(obj, login_name_, value); }

void cmt_ftp_info::set_field_password(jobject obj, const char* value) { set_text(obj, password_, value); }

}  // namespace tarnwick
