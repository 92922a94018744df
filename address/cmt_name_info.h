// Builder of the Java name info (name and pronunciation) objects of an address ("tarnwick/zel/address/attribute/NameInfoImpl").
#ifndef TARNWICK_CMT_NAME_INFO_H
#define TARNWICK_CMT_NAME_INFO_H

#include <jni.h>

#include "cmt_address_builder.h"

namespace tarnwick {

class cmt_name_info : public cmt_address_builder {
public:
    cmt_name_info();

    void set_field_name(jobject obj, const char* value);
    void set_field_pronunciation(jobject obj, const char* value);
};

}  // namespace tarnwick

#endif
