#include "cmt_server_info.h"

namespace tarnwick {

const jni::Member cmt_server_info::kMembers[6] = {
    {jni::Member::kConstructor, "<init>", "()V"},
    {jni::Member::kField, "host", "Ljava/lang/String;"},
    {jni::Member::kField, "path", "Ljava/lang/String;"},
    {jni::Member::kField, "port", "I"},
    {jni::Member::kField, "loginName", "Ljava/lang/String;"},
    {jni::Member::kField, "password", "Ljava/lang/String;"},
};

void cmt_server_info::set_field_host(jobject obj, const char* value) { set_text(obj, 1, value); }

void cmt_server_info::set_field_path(jobject obj, const char* value) { set_text(obj, 2, value); }

void cmt_server_info::set_field_port(jobject obj, int value) { set_int(obj, 3, value); }

void cmt_server_info::set_field_login_name(jobject obj, const char* value) { set_text(obj, 4, value); }

void cmt_server_info::set_field_password(jobject obj, const char* value) { set_text(obj, 5, value); }

}  // namespace tarnwick
