#include "cmt_ftp_info.h"

namespace tarnwick {

cmt_ftp_info::cmt_ftp_info() : cmt_server_info("cmt_ftp_info", Part::kFtp) {}

}  // namespace tarnwick
