// Builder of the Java personal-address objects ("tarnwick/zel/address/PersonalAddressImpl")
// and of the array a search returns.
#ifndef TARNWICK_CMT_PERSONAL_ADDRESS_H
#define TARNWICK_CMT_PERSONAL_ADDRESS_H

#include <jni.h>

#include "cmt_address_builder.h"

namespace tarnwick {

class cmt_personal_address : public cmt_address_builder {
public:
    cmt_personal_address();

    // Each stores a sub-object (null included).
    void set_field_name(jobject obj, jobject value);
    void set_field_email(jobject obj, jobject value);
    void set_field_ftp(jobject obj, jobject value);
    void set_field_smb(jobject obj, jobject value);
    void set_field_fax(jobject obj, jobject value);
    void set_field_ifax(jobject obj, jobject value);

    // A Java array of `n` personal addresses, all null; null when the builder is unset, `n` is
    // negative or the VM has no room (its exception described and cleared).
    jobjectArray create_object_array(int n);
};

}  // namespace tarnwick

#endif
