// Simulated device: platform memory blocks (with failures on demand) and the count of open
// resources the facades hand out.
#include <cstdlib>
#include <map>
#include <mutex>
#include <set>

#include "emw_osw_mem.h"
#include "sim_core_internal.h"
#include "tovr_sim_platform.h"
#include "tovr_sim_record.h"
#include "tovr_sim_services.h"

namespace tovr_sim {
namespace {

struct Memory {
    std::mutex mutex;
    std::set<void*> blocks;
    int fail_alloc = 0;
};

Memory& memory() { return lasting<Memory>(); }

struct Resources {
    std::mutex mutex;
    std::map<std::string, int> open;
};

Resources& resources() { return lasting<Resources>(); }

}  // namespace

namespace core {
void reset_alloc_failures() {
    Memory& m = memory();
    std::lock_guard<std::mutex> lock(m.mutex);
    m.fail_alloc = 0;
}
}  // namespace core

int outstanding_blocks() {
    Memory& m = memory();
    std::lock_guard<std::mutex> lock(m.mutex);
    return static_cast<int>(m.blocks.size());
}

void fail_alloc(int times) {
    Memory& m = memory();
    std::lock_guard<std::mutex> lock(m.mutex);
    m.fail_alloc = times;
}

void resource_opened(const std::string& kind) {
    Resources& r = resources();
    std::lock_guard<std::mutex> lock(r.mutex);
    ++r.open[kind];
}

void resource_closed(const std::string& kind, std::size_t count) {
    Resources& r = resources();
    std::lock_guard<std::mutex> lock(r.mutex);
    r.open[kind] -= static_cast<int>(count);
}

int open_resources(const std::string& kind) {
    if (kind == kPlatformBlock) return outstanding_blocks();
    Resources& r = resources();
    std::lock_guard<std::mutex> lock(r.mutex);
    auto it = r.open.find(kind);
    return it == r.open.end() ? 0 : it->second;
}

}  // namespace tovr_sim

extern "C" void* emwOSWSubAllocMem(size_t size) {
    tovr_sim::Memory& m = tovr_sim::memory();
    std::lock_guard<std::mutex> lock(m.mutex);
    if (m.fail_alloc > 0) {
        --m.fail_alloc;
        return nullptr;
    }
    void* p = std::calloc(1, size ? size : 1);
    if (p) m.blocks.insert(p);
    return p;
}

extern "C" int emwOSWOrgFreeMemPart(int part, void* block) {
    TOVR_SIM_RECORD(int, part, block);
    tovr_sim::Memory& m = tovr_sim::memory();
    std::lock_guard<std::mutex> lock(m.mutex);
    auto it = m.blocks.find(block);
    if (it == m.blocks.end()) return -1;
    m.blocks.erase(it);
    std::free(block);
    return 0;
}
