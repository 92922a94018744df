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
    std::vector<std::string> output_refusals;
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
    s.output_refusals.clear();
}

namespace {
// The shapes of the call whose forcing runs on this thread (null when not described).
thread_local const Shapes* t_shapes = nullptr;
}  // namespace

bool intercept(const char* op, std::vector<std::string> args, const Params& params,
               const Shapes& shapes, long* result) {
    Forcing fn;
    {
        State& s = state();
        std::lock_guard<std::mutex> lock(s.mutex);
        s.calls.push_back(Call{op, std::move(args)});
        auto it = s.forced.find(op);
        if (it == s.forced.end() || it->second.empty()) return false;
        Forced& f = it->second.front();
        fn = f.fn;
        if (f.times > 0 && --f.times == 0) it->second.pop_front();
    }
    // Outside the lock: a forcing may itself call into the device.
    const Shapes* outer = t_shapes;
    t_shapes = shapes.empty() ? nullptr : &shapes;
    *result = fn(params);
    t_shapes = outer;
    return true;
}

bool intercept(const char* op, std::initializer_list<std::string> args, const Params& params,
               long* result) {
    return intercept(op, std::vector<std::string>(args), params, Shapes{}, result);
}

// ----- forced outputs -----

namespace {

struct OutputKind {
    enum What { number, string, chars, bytes } what = number;
    std::size_t size = 0;
};

// "char[N]" / "bytes[N]" with N from 1 to 16 MiB.
bool parse_sized(const std::string& kind, const std::string& name, std::size_t* size) {
    if (kind.size() < name.size() + 3 || kind.compare(0, name.size() + 1, name + "[") != 0 || kind.back() != ']') {
        return false;
    }
    const std::string digits = kind.substr(name.size() + 1, kind.size() - name.size() - 2);
    if (digits.empty() || digits.size() > 8 || digits.find_first_not_of("0123456789") != std::string::npos) return false;
    *size = static_cast<std::size_t>(std::stoul(digits));
    return *size >= 1 && *size <= (std::size_t{1} << 24);
}

bool parse_kind(const std::string& kind, OutputKind* out) {
    static const std::map<std::string, std::size_t> numbers = {
        {"int8", 1},  {"uint8", 1},  {"int16", 2},           {"uint16", 2},
        {"int32", 4}, {"uint32", 4}, {"int64", 8},           {"uint64", 8},
        {"long", sizeof(long)},      {"ulong", sizeof(unsigned long)},
    };
    auto n = numbers.find(kind);
    if (n != numbers.end()) {
        *out = OutputKind{OutputKind::number, n->second};
        return true;
    }
    if (kind == "string") {
        *out = OutputKind{OutputKind::string, 0};
        return true;
    }
    std::size_t size = 0;
    if (parse_sized(kind, "char", &size)) {
        *out = OutputKind{OutputKind::chars, size};
        return true;
    }
    if (parse_sized(kind, "bytes", &size)) {
        *out = OutputKind{OutputKind::bytes, size};
        return true;
    }
    return false;
}

// Empty when `kind` may be written `offset` bytes into an argument of `shape`, else why not.
std::string misfit(const Shape& shape, const OutputKind& kind, std::size_t offset) {
    switch (shape.kind) {
        case Shape::unknown:
            return std::string();
        case Shape::other:
            return "the argument is not an output the device writes";
        case Shape::integer:
            if (kind.what != OutputKind::number) return "the argument is a number";
            if (offset != 0) return "an offset into a number";
            if (kind.size != shape.size) {
                return "the argument has " + std::to_string(shape.size) + " bytes, the kind " +
                       std::to_string(kind.size);
            }
            return std::string();
        case Shape::string:
            if (kind.what != OutputKind::string || offset != 0) return "the argument is a std::string";
            return std::string();
        case Shape::record:
            if (kind.what == OutputKind::string) return "the argument is a record, not a std::string";
            if (offset > shape.size || kind.size > shape.size - offset) {
                return "past the end of the record (" + std::to_string(shape.size) + " bytes)";
            }
            return std::string();
        case Shape::buffer:
            if (kind.what == OutputKind::string) return "the argument is a character buffer, not a std::string";
            return std::string();
    }
    return "unknown shape";
}

void write_number(void* at, std::size_t size, long long number) {
    const unsigned long long v = static_cast<unsigned long long>(number);
    switch (size) {
        case 1: { std::uint8_t x = static_cast<std::uint8_t>(v); std::memcpy(at, &x, 1); break; }
        case 2: { std::uint16_t x = static_cast<std::uint16_t>(v); std::memcpy(at, &x, 2); break; }
        case 4: { std::uint32_t x = static_cast<std::uint32_t>(v); std::memcpy(at, &x, 4); break; }
        default: { std::uint64_t x = static_cast<std::uint64_t>(v); std::memcpy(at, &x, 8); break; }
    }
}

void refuse(const std::string& op, const Output& o, const std::string& why) {
    State& s = state();
    std::lock_guard<std::mutex> lock(s.mutex);
    s.output_refusals.push_back(op + ": argument " + std::to_string(o.index) + ": " + why);
}

void write_output(const std::string& op, const Params& params, const Output& o) {
    OutputKind kind;
    if (!parse_kind(o.kind, &kind)) return refuse(op, o, "unknown kind " + o.kind);
    if (o.index < 0 || static_cast<std::size_t>(o.index) >= params.size()) {
        return refuse(op, o, "the call has " + std::to_string(params.size()) + " arguments");
    }
    void* target = params[static_cast<std::size_t>(o.index)];
    if (target == nullptr) return refuse(op, o, "the argument is null");
    Shape shape;
    if (t_shapes && static_cast<std::size_t>(o.index) < t_shapes->size()) shape = (*t_shapes)[o.index];
    const std::string why = misfit(shape, kind, o.offset);
    if (!why.empty()) return refuse(op, o, why);
    unsigned char* at = static_cast<unsigned char*>(target) + o.offset;
    switch (kind.what) {
        case OutputKind::number:
            write_number(at, kind.size, o.number);
            break;
        case OutputKind::string:
            *reinterpret_cast<std::string*>(at) = o.text;
            break;
        case OutputKind::chars:
            std::memset(at, 0, kind.size);
            std::memcpy(at, o.text.data(), std::min(o.text.size(), kind.size - 1));
            break;
        case OutputKind::bytes:
            std::memset(at, 0, kind.size);
            std::memcpy(at, o.bytes.data(), std::min(o.bytes.size(), kind.size));
            break;
    }
}

}  // namespace

Output output_number(int index, const std::string& kind, long long number, std::size_t offset) {
    Output o;
    o.index = index;
    o.offset = offset;
    o.kind = kind;
    o.number = number;
    return o;
}

Output output_text(int index, const std::string& kind, const std::string& text, std::size_t offset) {
    Output o;
    o.index = index;
    o.offset = offset;
    o.kind = kind;
    o.text = text;
    return o;
}

Output output_bytes(int index, const std::string& kind, const std::vector<unsigned char>& bytes,
                    std::size_t offset) {
    Output o;
    o.index = index;
    o.offset = offset;
    o.kind = kind;
    o.bytes = bytes;
    return o;
}

bool valid_output_kind(const std::string& kind) {
    OutputKind k;
    return parse_kind(kind, &k);
}

bool force_outputs(const std::string& op, long result, const std::vector<Output>& outputs, int times) {
    for (const Output& o : outputs) {
        if (!valid_output_kind(o.kind) || o.index < 0) return false;
    }
    force(op,
          [op, result, outputs](const Params& params) {
              for (const Output& o : outputs) write_output(op, params, o);
              return result;
          },
          times);
    return true;
}

bool force_output(const std::string& op, long result, const Output& output, int times) {
    return force_outputs(op, result, std::vector<Output>{output}, times);
}

std::vector<std::string> output_refusals() {
    State& s = state();
    std::lock_guard<std::mutex> lock(s.mutex);
    return s.output_refusals;
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
    if (kind == kPlatformBlock) return outstanding_blocks();
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

namespace {
thread_local bool t_facade_thread = false;
}  // namespace

bool FacadeThread::on_a_facade_thread() { return t_facade_thread; }

void FacadeThread::run() {
    t_facade_thread = true;
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

extern "C" int emwOSWOrgFreeMemPart(int part, void* block) {
    TOVR_SIM_RECORD(int, part, block);
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
    TOVR_SIM_RECORD(EMWRET, tovr_sim::unrecorded(handle), name, size);
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
    TOVR_SIM_RECORD(EMWRET, handle, block_id, tovr_sim::unrecorded(block));
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
    TOVR_SIM_RECORD(int, argument_count, tovr_sim::shown(arguments, args.empty() ? std::string() : args[0]));
    return 0;
}

OSW_Thread_Guard::OSW_Thread_Guard() { state().guard.lock(); }
OSW_Thread_Guard::~OSW_Thread_Guard() { state().guard.unlock(); }
