// Process registration with the platform's process manager.
#ifndef SYS_PRCM_H
#define SYS_PRCM_H

#ifdef __cplusplus
extern "C" {
#endif

// Registers the calling process under arguments[0]; 0 on success.
int sys_prcm_lib_process_init(int argument_count, char** arguments);

#ifdef __cplusplus
}
#endif

#endif
