#include "cmt_smb_info.h"

namespace tarnwick {

cmt_smb_info::cmt_smb_info() : cmt_server_info("cmt_smb_info", Part::kSmb) {}

}  // namespace tarnwick
