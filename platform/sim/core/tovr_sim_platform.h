// The small platform services of the simulated device: process registration, platform memory,
// open resources of the facades, and the named IPC memory partitions.
#ifndef TOVR_SIM_PLATFORM_H
#define TOVR_SIM_PLATFORM_H

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace tovr_sim {

struct ProcessRegistration {
    int argument_count;
    std::vector<std::string> arguments;
};
std::vector<ProcessRegistration> process_registrations();
// The next registration answers `result` (it is recorded all the same).
void force_process_init_result(int result, int times = 1);

// Blocks handed out by emwOSWSubAllocMem and not yet freed.
int outstanding_blocks();
// The next `times` emwOSWSubAllocMem calls return null.
void fail_alloc(int times = 1);

// Open resources of the simulated device by kind ("platform block" is counted by the memory
// functions themselves; facades count their own list handles, file handles, cursors ...), so
// a test can assert that nothing was left open. A facade calls resource_opened when it hands a
// resource out and resource_closed when the library gives it back (or a reset drops `count`
// of them at once).
// Kinds in use: kPlatformBlock; kListHandle for the walking lists and list handles of the
// facades (the job-information facade's send and receive lists among them); kFileHandle for
// open files.
constexpr const char* kPlatformBlock = "platform block";
constexpr const char* kListHandle = "list handle";
constexpr const char* kFileHandle = "file handle";
void resource_opened(const std::string& kind);
void resource_closed(const std::string& kind, std::size_t count = 1);
int open_resources(const std::string& kind);

// Named IPC partitions (emwOSWIpcCreateMemPart; its result and that of
// emwOSWIpcGetBlockByIdMemPart can be forced like any facade call). A partition is made on its
// first create, or by a test writing into it first; its memory lies directly in front of an
// inaccessible page, so a read past its end faults instead of going unnoticed.
// Writes `bytes` at `offset` and makes `block_id` name that offset. Returns false when they do
// not fit into a partition of `size` bytes.
bool ipc_write_block(const std::string& partition, std::size_t size, unsigned long block_id,
                     std::size_t offset, const std::vector<unsigned char>& bytes);
// Base address and size of a partition (null and 0 when it does not exist).
std::pair<unsigned char*, std::size_t> ipc_partition(const std::string& partition);

}  // namespace tovr_sim

#endif
