// Builder of the Java objects of an address's server destinations (FTP and SMB): their classes
// have the same fields, host, path, port, loginName and password, set the same way.
#ifndef TARNWICK_CMT_SERVER_INFO_H
#define TARNWICK_CMT_SERVER_INFO_H

#include <jni.h>

#include "cmt_address_builder.h"

namespace tarnwick {

class cmt_server_info : public cmt_address_builder {
public:
    void set_field_host(jobject obj, const char* value);
    void set_field_path(jobject obj, const char* value);
    void set_field_port(jobject obj, int value);
    void set_field_login_name(jobject obj, const char* value);
    void set_field_password(jobject obj, const char* value);

protected:
    // `part` is kFtp or kSmb.
    cmt_server_info(const char* module, Part part) : cmt_address_builder(module, part) {}
};

}  // namespace tarnwick

#endif
