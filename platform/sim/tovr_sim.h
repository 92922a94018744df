// Control interface of the simulated device.
//
// Test and tool code only: libtovrCMT.so never includes this header. The simulated device
// (libtovrsim.so) implements the platform interfaces for host builds; this interface lets a
// test read what the library asked of the device, force any answer, and raise notifications
// from the device's own threads.
#ifndef TOVR_SIM_H
#define TOVR_SIM_H

#include <condition_variable>
#include <cstdint>
#include <functional>
#include <future>
#include <initializer_list>
#include <list>
#include <mutex>
#include <type_traits>
#include <utility>
#include <string>
#include <thread>
#include <vector>

namespace tovr_sim {

// ---------------------------------------------------------------------------------------------
// Facade calls

// One facade (or platform) call as the device received it. `op` is the facade member's name
// (e.g. "esv_zel_job_start"); `args` holds each argument as text, in order, as it came in.
struct Call {
    std::string op;
    std::vector<std::string> args;
};

// Every call since the last clear_calls(), oldest first.
std::vector<Call> calls();
// Only the calls of one operation.
std::vector<Call> calls(const std::string& op);
void clear_calls();

// A forced answer sees the call's arguments through `params`: params[i] points at argument i
// as the facade member received it (for a reference or pointer argument: at the referenced
// object). It may write outputs and returns the facade's result code.
using Params = std::vector<void*>;
using Forcing = std::function<long(const Params& params)>;

// The next `times` calls of `op` (every call when times < 0) answer `result` and change nothing.
void force_result(const std::string& op, long result, int times = 1);
// The next `times` calls of `op` are answered by `fn` instead of the device's own behaviour.
void force(const std::string& op, Forcing fn, int times = 1);
// Drops every forcing, every recorded call, and resets the hooks below.
void reset();

// Called by every simulated facade member first: records the call and, when a forcing is
// armed for `op`, applies it and returns true with its result in *result.
bool intercept(const char* op, std::initializer_list<std::string> args, const Params& params,
               long* result);

// Argument formatting for intercept(): numbers in decimal, strings as they are, null as "null".
std::string arg(const char* s);
inline std::string arg(char* s) { return arg(static_cast<const char*>(s)); }
std::string arg(const std::string& s);
template <typename T>
std::string arg(T v) {
    if constexpr (std::is_pointer_v<T>) {
        return v ? std::to_string(reinterpret_cast<std::uintptr_t>(v)) : std::string("null");
    } else if constexpr (std::is_enum_v<T>) {
        return std::to_string(static_cast<long long>(v));
    } else {
        return std::to_string(v);
    }
}

// What a forcing reaches for one argument: the object a pointer points at, else the argument.
template <typename T>
void* param(T& v) {
    if constexpr (std::is_pointer_v<T>) {
        return const_cast<void*>(static_cast<const void*>(v));
    } else {
        return const_cast<void*>(static_cast<const void*>(&v));
    }
}

// Formats an argument for the record; a record (class type other than a string) is shown by
// its address, as a pointer would be.
template <typename T>
std::string arg_of(const T& v) {
    using U = std::decay_t<T>;
    if constexpr (std::is_class_v<U> && !std::is_same_v<U, std::string>) {
        return arg(static_cast<const void*>(&v));
    } else {
        return arg(v);
    }
}

// intercept() with each argument named once: records `op` with the arguments formatted by
// arg_of() and hands a forcing each argument's address (see param()).
template <typename... A>
bool record(const char* op, long* result, A&... a) {
    return intercept(op, {arg_of(a)...}, Params{param(a)...}, result);
}

// First statement of a simulated facade member: records the call under the member's own name
// and returns a forced answer, converted to the member's result type, when one is armed.
#define TOVR_SIM_RECORD(RESULT_TYPE, ...)                                                  \
    do {                                                                                   \
        long tovr_forced_ = 0;                                                             \
        if (::tovr_sim::record(__func__, &tovr_forced_, ##__VA_ARGS__))                    \
            return static_cast<RESULT_TYPE>(tovr_forced_);                                 \
    } while (0)

// ---------------------------------------------------------------------------------------------
// Trace

struct TraceLine {
    unsigned int id;
    unsigned int sub_id;
    int level;
    std::string text;  // formatted line, trailing newline removed
};

// The most recent trace lines (bounded buffer; oldest dropped first).
std::vector<TraceLine> trace_lines();
void clear_trace();
// Trace lines are also appended to the file named by this environment variable, when set.
constexpr const char* kTraceFileVariable = "TOVR_TRACE_FILE";
constexpr std::size_t kTraceCapacity = 4096;

// ---------------------------------------------------------------------------------------------
// Process registration and platform memory

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
// resource out and resource_closed when the library gives it back.
void resource_opened(const std::string& kind);
void resource_closed(const std::string& kind);
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

// ---------------------------------------------------------------------------------------------
// Notifications

// One thread of a facade. Notifications posted to it run one at a time, in order, on that
// thread; the caller gets the observer's answer through the future.
class FacadeThread {
public:
    explicit FacadeThread(std::string name);
    ~FacadeThread() = delete;  // lives as long as the process: observers may still be reached at exit
    std::future<unsigned long> post(std::function<unsigned long()> notification);
    bool on_this_thread() const;
    const std::string& name() const { return name_; }

private:
    void run();
    std::string name_;
    std::mutex mutex_;
    std::condition_variable wake_;
    std::vector<std::packaged_task<unsigned long()>> queue_;
    std::thread::id id_;
    std::thread thread_;
};

// The observers registered with one facade. deliver() runs on a facade thread, on several at
// once when the facade has more than one; remove() returns only when no notification to that
// observer is under way on another thread (the caller may be such a notification itself, which
// would otherwise wait for itself).
template <typename Observer>
class ObserverSet {
public:
    void add(Observer* o) {
        std::lock_guard<std::mutex> lock(mutex_);
        observers_.push_back(o);
    }
    // Returns false when `o` was not registered.
    bool remove(Observer* o) {
        std::unique_lock<std::mutex> lock(mutex_);
        bool found = false;
        for (auto it = observers_.begin(); it != observers_.end(); ++it) {
            if (*it == o) {
                observers_.erase(it);
                found = true;
                break;
            }
        }
        idle_.wait(lock, [&] { return !busy_elsewhere(o); });
        return found;
    }
    bool contains(Observer* o) {
        std::lock_guard<std::mutex> lock(mutex_);
        for (Observer* x : observers_) {
            if (x == o) return true;
        }
        return false;
    }
    std::size_t size() {
        std::lock_guard<std::mutex> lock(mutex_);
        return observers_.size();
    }
    // Calls `fn` for each registered observer in registration order; returns each answer.
    std::vector<unsigned long> deliver(const std::function<unsigned long(Observer*)>& fn) {
        std::vector<unsigned long> answers;
        std::unique_lock<std::mutex> lock(mutex_);
        std::vector<Observer*> targets = observers_;
        for (Observer* o : targets) {
            if (!still_registered(o)) continue;
            const auto mark = busy_.insert(busy_.end(), {o, std::this_thread::get_id()});
            lock.unlock();
            answers.push_back(fn(o));
            lock.lock();
            busy_.erase(mark);
            idle_.notify_all();
        }
        return answers;
    }

private:
    bool still_registered(Observer* o) const {
        for (Observer* x : observers_) {
            if (x == o) return true;
        }
        return false;
    }
    bool busy_elsewhere(Observer* o) const {
        for (const auto& b : busy_) {
            if (b.first == o && b.second != std::this_thread::get_id()) return true;
        }
        return false;
    }
    std::mutex mutex_;
    std::condition_variable idle_;
    std::vector<Observer*> observers_;
    std::list<std::pair<Observer*, std::thread::id>> busy_;  // notifications under way
};

// Answer of a notification raised through a facade: one code per registered observer.
using Answers = std::vector<unsigned long>;

}  // namespace tovr_sim

#endif
