// Simulated device: named IPC memory partitions, each ending right at an inaccessible page.
#include <sys/mman.h>
#include <unistd.h>

#include <cstring>
#include <map>
#include <mutex>

#include "emw_osw_mem.h"
#include "tovr_sim_platform.h"
#include "tovr_sim_record.h"
#include "tovr_sim_services.h"

namespace tovr_sim {
namespace {

struct Partition {
    unsigned char* base = nullptr;
    std::size_t size = 0;
    std::map<unsigned long, std::size_t> blocks;
};

struct Partitions {
    std::mutex mutex;
    std::map<std::string, Partition> by_name;
    std::map<unsigned long, std::string> names;  // handle -> name
};

Partitions& partitions() { return lasting<Partitions>(); }

// Maps `size` bytes so that they end right at a PROT_NONE page.
unsigned char* map_guarded(std::size_t size) {
    const std::size_t page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    const std::size_t data_pages = (size + page - 1) / page;
    const std::size_t total = (data_pages + 1) * page;
    void* p = mmap(nullptr, total, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (p == MAP_FAILED) return nullptr;
    unsigned char* base = static_cast<unsigned char*>(p);
    mprotect(base + data_pages * page, page, PROT_NONE);
    return base + data_pages * page - size;
}

Partition& partition_locked(Partitions& s, const std::string& name, std::size_t size) {
    Partition& part = s.by_name[name];
    if (!part.base) {
        part.base = map_guarded(size);
        part.size = size;
        std::memset(part.base, 0, size);
        s.names[s.names.size() + 1] = name;
    }
    return part;
}

}  // namespace

bool ipc_write_block(const std::string& partition, std::size_t size, unsigned long block_id,
                     std::size_t offset, const std::vector<unsigned char>& bytes) {
    Partitions& s = partitions();
    std::lock_guard<std::mutex> lock(s.mutex);
    Partition& part = partition_locked(s, partition, size);
    if (offset > part.size || bytes.size() > part.size - offset) return false;
    std::memcpy(part.base + offset, bytes.data(), bytes.size());
    part.blocks[block_id] = offset;
    return true;
}

std::pair<unsigned char*, std::size_t> ipc_partition(const std::string& partition) {
    Partitions& s = partitions();
    std::lock_guard<std::mutex> lock(s.mutex);
    auto it = s.by_name.find(partition);
    if (it == s.by_name.end()) return {nullptr, 0};
    return {it->second.base, it->second.size};
}

}  // namespace tovr_sim

extern "C" EMWRET emwOSWIpcCreateMemPart(EMWOSW_MEMPART_HANDLE* handle, const char* name, unsigned long size) {
    TOVR_SIM_RECORD(EMWRET, tovr_sim::unrecorded(handle), name, size);
    tovr_sim::Partitions& s = tovr_sim::partitions();
    std::lock_guard<std::mutex> lock(s.mutex);
    tovr_sim::partition_locked(s, name, size);
    for (auto& [h, n] : s.names) {
        if (n == name) {
            *handle = h;
            return 0;
        }
    }
    return -1;
}

extern "C" EMWRET emwOSWIpcGetBlockByIdMemPart(EMWOSW_MEMPART_HANDLE handle, unsigned long block_id, void** block) {
    TOVR_SIM_RECORD(EMWRET, handle, block_id, tovr_sim::unrecorded(block));
    tovr_sim::Partitions& s = tovr_sim::partitions();
    std::lock_guard<std::mutex> lock(s.mutex);
    auto name = s.names.find(handle);
    if (name == s.names.end()) return 0x2;
    tovr_sim::Partition& part = s.by_name[name->second];
    auto at = part.blocks.find(block_id);
    if (at == part.blocks.end()) return 0x3;
    *block = part.base + at->second;
    return 0;
}
