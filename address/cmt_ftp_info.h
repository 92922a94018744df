// Builder of the Java FTP info objects of an address ("tarnwick/zel/address/attribute/FtpInfoImpl").
#ifndef TARNWICK_CMT_FTP_INFO_H
#define TARNWICK_CMT_FTP_INFO_H

#include "cmt_server_info.h"

namespace tarnwick {

class cmt_ftp_info : public cmt_server_info {
public:
    cmt_ftp_info();
};

}  // namespace tarnwick

#endif
