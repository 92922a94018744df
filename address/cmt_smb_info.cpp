#include "cmt_smb_info.h"

namespace tarnwick {

cmt_smb_info::cmt_smb_info() : cmt_server_info("cmt_smb_info", java_class()) {}

jni::JavaClass& cmt_smb_info::java_class() {
    static jni::JavaClass holder("tarnwick/zel/address/attribute/SmbInfoImpl", kMembers);
    return holder;
}

}  // namespace tarnwick
