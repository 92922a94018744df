#include "cmt_email_info.h"

namespace tarnwick {

cmt_email_info::cmt_email_info() : cmt_address_builder("cmt_email_info", "tarnwick/zel/address/attribute/EmailInfoImpl") {
    mail_address_ = field("mailAddress", "Ljava/lang/String;");
}

cmt_email_info::~cmt_email_info() {}

void cmt_email_info::set_field_mail_address(jobject obj, const char* value) { set_text(obj, mail_address_, value); }

}  // namespace tarnwick
