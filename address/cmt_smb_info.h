// Builder of the Java SMB info objects of an address ("tarnwick/zel/address/attribute/SmbInfoImpl").
#ifndef TARNWICK_CMT_SMB_INFO_H
#define TARNWICK_CMT_SMB_INFO_H

#include <jni.h>

#include "cmt_address_builder.h"

namespace tarnwick {

class cmt_smb_info : public cmt_address_builder {
public:
    cmt_smb_info();
    ~cmt_smb_info() override;

    void set_field_host(jobject obj, const char* value);
    void set_field_path(jobject obj, const char* value);
    void set_field_port(jobject obj, int value);
    void set_field_login_name(jobject obj, const char* value);
    void set_field_password(jobject obj, const char* value);

private:
    jfieldID host_ = nullptr;
    jfieldID path_ = nullptr;
    jfieldID port_ = nullptr;
    jfieldID login_name_ = nullptr;
    jfieldID password_ = nullptr;
};

}  // namespace tarnwick

#endif
