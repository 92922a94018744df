#include "cmt_ftp_info.h"

namespace tarnwick {

cmt_ftp_info::cmt_ftp_info() : cmt_server_info("cmt_ftp_info", java_class()) {}

jni::JavaClass& cmt_ftp_info::java_class() {
    static jni::JavaClass holder("tarnwick/zel/address/attribute/FtpInfoImpl", kMembers);
    return holder;
}

}  // namespace tarnwick
