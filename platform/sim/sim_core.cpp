// Simulated device: call record, forcing, trace, memory, process registration, clock, IPC
// partitions, thread guard and facade threads.
#include "tovr_sim.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <deque>
#include <map>
#include <set>

#include "emw_clb_time.h"
#include "emw_gen_trc.h"
#include "emw_osw_mem.h"
#include "osw_thread_guard.h"
#include "sys_prcm.h"

namespace tovr_sim {
namespace {

struct Forced {
    Forcing fn;
    int times;  // < 0: for ever
};

// Process-wide device state. Leaked on purpose: facade threads and JVM shutdown hooks may
// still reach it while static destructors run.
struct State {
    std::mutex mutex;
    std::vector<Call> calls;
    std::map<std::string, std::deque<Forced>> forced;
    std::deque<TraceLine> trace;
    std::vector<ProcessRegistration> registrations;
    std::set<void*> blocks;
    int fail_alloc = 0;
    struct Partition {
        unsigned char* base = nullptr;
        std::size_t size = 0;
        std::map<unsigned long, std::size_t> blocks;
    };
    std::map<std::string, Partition> partitions;
    std::map<unsigned long, std::string> partition_names;  // handle -> name
    std::recursive_mutex guard;
};

State& state() {
    static State* s = new State;
    return *s;
}

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

State::Partition& partition_locked(State& s, const std::string& name, std::size_t size) {
    State::Partition& part = s.partitions[name];
    if (!part.base) {
        part.base = map_guarded(size);
        part.size = size;
        std::memset(part.base, 0, size);
        s.partition_names[s.partition_names.size() + 1] = name;
    }
    return part;
}

}  // namespace

// ----- calls and forcing -----

std::vector<Call> calls() {
    State& s = state();
    std::lock_guard<std::mutex> lock(s.mutex);
    return s.calls;
}

std::vector<Call> calls(const std::string& op) {
    std::vector<Call> out;
    for (Call& c : calls()) {
        if (c.op == op) out.push_back(std::move(c));
    }
    return out;
}

void clear_calls() {
    State& s = state();
    std::lock_guard<std::mutex> lock(s.mutex);
    s.calls.clear();
}

void force(const std::string& op, Forcing fn, int times) {
    State& s = state();
    std::lock_guard<std::mutex> lock(s.mutex);
    s.forced[op].push_back(Forced{std::move(fn), times});
}

void force_result(const std::string& op, long result, int times) {
    force(op, [result](const Params&) { return result; }, times);
}

void reset() {
    State& s = state();
    std::lock_guard<std::mutex> lock(s.mutex);
    s.calls.clear();
    s.forced.clear();
    s.registrations.clear();
    s.fail_alloc = 0;
}

bool intercept(const char* op, std::initializer_list<std::string> args, const Params& params,
               long* result) {
    Forcing fn;
    {
        State& s = state();
        std::lock_guard<std::mutex> lock(s.mutex);
        s.calls.push_back(Call{op, std::vector<std::string>(args)});
        auto it = s.forced.find(op);
        if (it == s.forced.end() || it->second.empty()) return false;
        Forced& f = it->second.front();
        fn = f.fn;
        if (f.times > 0 && --f.times == 0) it->second.pop_front();
    }
    // Outside the lock: a forcing may itself call into the device.
    *result = fn(params);
    return true;
}

std::string arg(const char* s) { return s ? std::string(s) : std::string("null"); }
std::string arg(const std::string& s) { return s; }

// ----- trace -----

std::vector<TraceLine> trace_lines() {
    State& s = state();
    std::lock_guard<std::mutex> lock(s.mutex);
    return std::vector<TraceLine>(s.trace.begin(), s.trace.end());
}

void clear_trace() {
    State& s = state();
    std::lock_guard<std::mutex> lock(s.mutex);
    s.trace.clear();
}

// ----- registration and memory -----

std::vector<ProcessRegistration> process_registrations() {
    State& s = state();
    std::lock_guard<std::mutex> lock(s.mutex);
    return s.registrations;
}

void force_process_init_result(int result, int times) {
    force_result("sys_prcm_lib_process_init", result, times);
}

int outstanding_blocks() {
    State& s = state();
    std::lock_guard<std::mutex> lock(s.mutex);
    return static_cast<int>(s.blocks.size());
}

namespace {
std::mutex& resources_mutex() {
    static std::mutex* m = new std::mutex;
    return *m;
}
std::map<std::string, int>& resources() {
    static auto* r = new std::map<std::string, int>;
    return *r;
}
}  // namespace

void resource_opened(const std::string& kind) {
    std::lock_guard<std::mutex> lock(resources_mutex());
    ++resources()[kind];
}

void resource_closed(const std::string& kind) {
    std::lock_guard<std::mutex> lock(resources_mutex());
    --resources()[kind];
}

int open_resources(const std::string& kind) {
    if (kind == "platform block") return outstanding_blocks();
    std::lock_guard<std::mutex> lock(resources_mutex());
    auto it = resources().find(kind);
    return it == resources().end() ? 0 : it->second;
}

void fail_alloc(int times) {
    State& s = state();
    std::lock_guard<std::mutex> lock(s.mutex);
    s.fail_alloc = times;
}

bool ipc_write_block(const std::string& partition, std::size_t size, unsigned long block_id,
                     std::size_t offset, const std::vector<unsigned char>& bytes) {
    State& s = state();
    std::lock_guard<std::mutex> lock(s.mutex);
    State::Partition& part = partition_locked(s, partition, size);
    if (offset > part.size || bytes.size() > part.size - offset) return false;
    std::memcpy(part.base + offset, bytes.data(), bytes.size());
    part.blocks[block_id] = offset;
    return true;
}

std::pair<unsigned char*, std::size_t> ipc_partition(const std::string& partition) {
    State& s = state();
    std::lock_guard<std::mutex> lock(s.mutex);
    auto it = s.partitions.find(partition);
    if (it == s.partitions.end()) return {nullptr, 0};
    return {it->second.base, it->second.size};
}

// ----- facade threads -----

FacadeThread::FacadeThread(std::string name) : name_(std::move(name)) {
    std::promise<std::thread::id> started;
    std::future<std::thread::id> id = started.get_future();
    thread_ = std::thread([this, &started] {
        started.set_value(std::this_thread::get_id());
        run();
    });
    id_ = id.get();
    thread_.detach();
}

std::future<unsigned long> FacadeThread::post(std::function<unsigned long()> notification) {
    std::packaged_task<unsigned long()> task(std::move(notification));
    std::future<unsigned long> answer = task.get_future();
    {
        std::lock_guard<std::mutex> lock(mutex_);
        queue_.push_back(std::move(task));
    }
    wake_.notify_one();
    return answer;
}

bool FacadeThread::on_this_thread() const { return std::this_thread::get_id() == id_; }

void FacadeThread::run() {
    for (;;) {
        std::packaged_task<unsigned long()> task;
        {
            std::unique_lock<std::mutex> lock(mutex_);
            wake_.wait(lock, [this] { return !queue_.empty(); });
            task = std::move(queue_.front());
            queue_.erase(queue_.begin());
        }
        task();
    }
}

}  // namespace tovr_sim

using tovr_sim::state;

// ----- platform functions -----

extern "C" int emwGENTrcPrintf(unsigned int id, unsigned int sub_id, int level, const char* format,
                               ...) {
    char line[1024];
    va_list ap;
    va_start(ap, format);
    int n = vsnprintf(line, sizeof line, format, ap);
    va_end(ap);
    std::string text(line, n < 0 ? 0 : std::min<std::size_t>(static_cast<std::size_t>(n), sizeof line - 1));
    while (!text.empty() && text.back() == '\n') text.pop_back();

    tovr_sim::State& s = state();
    std::lock_guard<std::mutex> lock(s.mutex);
    if (s.trace.size() == tovr_sim::kTraceCapacity) s.trace.pop_front();
    s.trace.push_back(tovr_sim::TraceLine{id, sub_id, level, text});
    if (const char* path = std::getenv(tovr_sim::kTraceFileVariable)) {
        if (FILE* f = std::fopen(path, "a")) {
            std::fprintf(f, "%u %s\n", static_cast<unsigned>(level), text.c_str());
            std::fclose(f);
        }
    }
    return 0;
}

extern "C" void* emwOSWSubAllocMem(size_t size) {
    tovr_sim::State& s = state();
    std::lock_guard<std::mutex> lock(s.mutex);
    if (s.fail_alloc > 0) {
        --s.fail_alloc;
        return nullptr;
    }
    void* p = std::calloc(1, size ? size : 1);
    if (p) s.blocks.insert(p);
    return p;
}

extern "C" int emwOSWOrgFreeMemPart(int, void* block) {
    tovr_sim::State& s = state();
    std::lock_guard<std::mutex> lock(s.mutex);
    auto it = s.blocks.find(block);
    if (it == s.blocks.end()) return -1;
    s.blocks.erase(it);
    std::free(block);
    return 0;
}

extern "C" EMWRET emwOSWIpcCreateMemPart(EMWOSW_MEMPART_HANDLE* handle, const char* name,
                                         unsigned long size) {
    long forced;
    if (tovr_sim::intercept("emwOSWIpcCreateMemPart", {tovr_sim::arg(name), tovr_sim::arg(size)},
                            {handle, const_cast<char*>(name), &size}, &forced)) {
        return forced;
    }
    tovr_sim::State& s = state();
    std::lock_guard<std::mutex> lock(s.mutex);
    tovr_sim::partition_locked(s, name, size);
    for (auto& [h, n] : s.partition_names) {
        if (n == name) {
            *handle = h;
            return 0;
        }
    }
    return -1;
}

extern "C" EMWRET emwOSWIpcGetBlockByIdMemPart(EMWOSW_MEMPART_HANDLE handle, unsigned long block_id,
                                               void** block) {
    long forced;
    if (tovr_sim::intercept("emwOSWIpcGetBlockByIdMemPart",
                            {tovr_sim::arg(handle), tovr_sim::arg(block_id)},
                            {&handle, &block_id, block}, &forced)) {
        return forced;
    }
    tovr_sim::State& s = state();
    std::lock_guard<std::mutex> lock(s.mutex);
    auto name = s.partition_names.find(handle);
    if (name == s.partition_names.end()) return 0x2;
    tovr_sim::State::Partition& part = s.partitions[name->second];
    auto at = part.blocks.find(block_id);
    if (at == part.blocks.end()) return 0x3;
    *block = part.base + at->second;
    return 0;
}

extern "C" struct tm* emwCLBLocalTime_r(const time_t* t, struct tm* result) {
    return localtime_r(t, result);
}

extern "C" int sys_prcm_lib_process_init(int argument_count, char** arguments) {
    std::vector<std::string> args;
    for (int i = 0; i < argument_count; ++i) args.push_back(tovr_sim::arg(arguments[i]));
    {
        tovr_sim::State& s = state();
        std::lock_guard<std::mutex> lock(s.mutex);
        s.registrations.push_back(tovr_sim::ProcessRegistration{argument_count, args});
    }
    long forced;
    if (tovr_sim::intercept("sys_prcm_lib_process_init",
                            {tovr_sim::arg(argument_count), args.empty() ? "" : args[0]},
                            {&argument_count, arguments}, &forced)) {
        return static_cast<int>(forced);
    }
    return 0;
}

OSW_Thread_Guard::OSW_Thread_Guard() { state().guard.lock(); }
OSW_Thread_Guard::~OSW_Thread_Guard() { state().guard.unlock(); }
