// Builder of the Java e-mail info objects of an address ("tarnwick/zel/address/attribute/EmailInfoImpl").
#ifndef TARNWICK_CMT_EMAIL_INFO_H
#define TARNWICK_CMT_EMAIL_INFO_H

#include <jni.h>

#include "cmt_address_builder.h"

namespace tarnwick {

class cmt_email_info : public cmt_address_builder {
public:
    cmt_email_info();

    void set_field_mail_address(jobject obj, const char* value);
};

}  // namespace tarnwick

#endif
