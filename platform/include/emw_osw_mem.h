// Platform memory: sub-allocation from the process's memory partition and named IPC partitions.
#ifndef EMW_OSW_MEM_H
#define EMW_OSW_MEM_H

#include <stddef.h>

#ifdef __cplusplus
extern "C" {
#endif

// Returns a block of at least `size` bytes, or null.
void* emwOSWSubAllocMem(size_t size);
// Gives a block from emwOSWSubAllocMem back; `part` 0 names the process's own partition.
int emwOSWOrgFreeMemPart(int part, void* block);

// Platform result of the OSW calls: 0 on success, a platform code otherwise.
typedef long EMWRET;
typedef unsigned long EMWOSW_MEMPART_HANDLE;

// Named inter-process memory partitions. Create opens the partition when it exists already;
// the handle names it in later calls.
EMWRET emwOSWIpcCreateMemPart(EMWOSW_MEMPART_HANDLE* handle, const char* name, unsigned long size);
// Gives the address of block `block_id` inside the partition.
EMWRET emwOSWIpcGetBlockByIdMemPart(EMWOSW_MEMPART_HANDLE handle, unsigned long block_id,
                                    void** block);

#ifdef __cplusplus
}
#endif

#endif
