#include "cmt_server_info.h"

namespace tarnwick {

void cmt_server_info::set_field_host(jobject obj, const char* value) { set_text(obj, 1, value); }

void cmt_server_info::set_field_path(jobject obj, const char* value) { set_text(obj, 2, value); }

void cmt_server_info::set_field_port(jobject obj, int value) { set_int(obj, 3, value); }

void cmt_server_info::set_field_login_name(jobject obj, const char* value) { set_text(obj, 4, value); }

void cmt_server_info::set_field_password(jobject obj, const char* value) { set_text(obj, 5, value); }

}  // namespace tarnwick
