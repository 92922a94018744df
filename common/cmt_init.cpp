#include "cmt_init.h"

#include "CJvm.h"
#include "sys_prcm.h"

namespace tarnwick {
namespace {

// The process name the platform knows us by. The buffer keeps the size the process manager
// has always been handed; nothing writes to it.
char g_process_name[65025] = "smfstart.sh";
char* g_process_arguments[1];

}  // namespace

int cmt_init::init() {
    CJvm::CreateJVM();
    return mixsInit();
}

int cmt_init::mixsInit() {
    g_process_arguments[0] = g_process_name;
    return sys_prcm_lib_process_init(1, g_process_arguments);
}

}  // namespace tarnwick
