#include "cmt_email_info.h"

namespace tarnwick {

cmt_email_info::cmt_email_info() : cmt_address_builder("cmt_email_info", Part::kEmail) {}

void cmt_email_info::set_field_mail_address(jobject obj, const char* value) { set_text(obj, 1, value); }

}  // namespace tarnwick
