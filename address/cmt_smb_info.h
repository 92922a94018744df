// Builder of the Java SMB (shared folder) info objects of an address ("tarnwick/zel/address/attribute/SmbInfoImpl").
#ifndef TARNWICK_CMT_SMB_INFO_H
#define TARNWICK_CMT_SMB_INFO_H

#include "cmt_server_info.h"

namespace tarnwick {

class cmt_smb_info : public cmt_server_info {
public:
    cmt_smb_info();
};

}  // namespace tarnwick

#endif
