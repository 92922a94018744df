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

// What an output forcing may safely write through one argument: set by record() from the
// argument's static type, so that a forced output of the wrong kind or past the end of a record
// is refused instead of corrupting the caller's memory.
struct Shape {
    enum Kind {
        unknown,  // not described (intercept() without shapes): writes are trusted
        integer,  // an integer or enumeration of `size` bytes
        string,   // a std::string
        record,   // a plain record of `size` bytes
        buffer,   // a character buffer of unknown size (char*, unsigned char*, signed char*)
        other     // anything else (observers, lists, pointers to pointers): never written
    };
    Kind kind = unknown;
    std::size_t size = 0;
};
using Shapes = std::vector<Shape>;

template <typename T>
Shape shape_of_object() {
    using U = std::remove_volatile_t<T>;
    if constexpr (std::is_const_v<U>) {
        return Shape{Shape::other, 0};  // an input: never written
    } else if constexpr (std::is_same_v<U, std::string>) {
        return Shape{Shape::string, sizeof(U)};
    } else if constexpr (std::is_same_v<U, bool>) {
        return Shape{Shape::other, sizeof(U)};
    } else if constexpr (std::is_integral_v<U> || std::is_enum_v<U>) {
        return Shape{Shape::integer, sizeof(U)};
    } else if constexpr (std::is_class_v<U> && std::is_trivially_copyable_v<U>) {
        return Shape{Shape::record, sizeof(U)};
    } else {
        return Shape{Shape::other, 0};
    }
}

// The shape of what param() hands a forcing for an argument of type T.
template <typename T>
Shape shape_of() {
    if constexpr (std::is_pointer_v<std::remove_cv_t<T>>) {
        using P = std::remove_pointer_t<std::remove_cv_t<T>>;
        if constexpr (std::is_const_v<P>) {
            return Shape{Shape::other, 0};  // an input: never written
        } else if constexpr (std::is_same_v<P, char> || std::is_same_v<P, signed char> ||
                             std::is_same_v<P, unsigned char>) {
            return Shape{Shape::buffer, 0};
        } else if constexpr (std::is_void_v<P> || std::is_pointer_v<P>) {
            return Shape{Shape::other, 0};
        } else {
            return shape_of_object<P>();
        }
    } else {
        return shape_of_object<T>();
    }
}

// intercept() with the shape of each parameter, for forcings that write outputs.
bool intercept(const char* op, std::vector<std::string> args, const Params& params,
               const Shapes& shapes, long* result);

// Argument wrappers for record() / TOVR_SIM_RECORD.
//
// unrecorded(x): x reaches a forcing (params) but is left out of the recorded text, as an output
// record that only the device fills in.
template <typename T>
struct Unrecorded {
    T& value;
};
template <typename T>
Unrecorded<T> unrecorded(T& v) {
    return Unrecorded<T>{v};
}

// shown(x, parts...): x reaches a forcing (params); the record shows `parts` in its place (zero
// or more texts, each formatted as an argument), e.g. the key fields of a record.
template <typename T>
struct Shown {
    T& value;
    std::vector<std::string> texts;
};
template <typename T, typename... Parts>
Shown<T> shown(T& v, const Parts&... parts) {
    return Shown<T>{v, {arg_of(parts)...}};
}

namespace detail {
template <typename T>
void add_texts(std::vector<std::string>& out, T& a) {
    out.push_back(arg_of(a));
}
template <typename T>
void add_texts(std::vector<std::string>&, Unrecorded<T>&) {}
template <typename T>
void add_texts(std::vector<std::string>& out, Shown<T>& a) {
    out.insert(out.end(), a.texts.begin(), a.texts.end());
}

template <typename T>
void* param_of(T& a) {
    return param(a);
}
template <typename T>
void* param_of(Unrecorded<T>& a) {
    return param(a.value);
}
template <typename T>
void* param_of(Shown<T>& a) {
    return param(a.value);
}

template <typename T>
Shape shape_for(T&) {
    return shape_of<T>();
}
template <typename T>
Shape shape_for(Unrecorded<T>&) {
    return shape_of<T>();
}
template <typename T>
Shape shape_for(Shown<T>&) {
    return shape_of<T>();
}
}  // namespace detail

// intercept() with each argument named once: records `op` with the arguments formatted by
// arg_of() (unrecorded() and shown() change what one argument shows) and hands a forcing each
// argument's address (see param()) and its shape.
template <typename... A>
bool record(const char* op, long* result, A&&... a) {
    std::vector<std::string> texts;
    texts.reserve(sizeof...(a));
    (detail::add_texts(texts, a), ...);
    return intercept(op, std::move(texts), Params{detail::param_of(a)...}, Shapes{detail::shape_for(a)...},
                     result);
}

// First statement of a simulated facade member: records the call under the member's own name
// and returns a forced answer, converted to the member's result type, when one is armed.
#define TOVR_SIM_RECORD(RESULT_TYPE, ...) TOVR_SIM_RECORD_AS(__func__, RESULT_TYPE, ##__VA_ARGS__)

// The same under another recorded name, for a member whose recorded name is not its own (a
// helper shared by several members, an operation implemented under a different symbol).
#define TOVR_SIM_RECORD_AS(OP, RESULT_TYPE, ...)                                           \
    do {                                                                                   \
        long tovr_forced_ = 0;                                                             \
        if (::tovr_sim::record(OP, &tovr_forced_, ##__VA_ARGS__))                          \
            return static_cast<RESULT_TYPE>(tovr_forced_);                                 \
    } while (0)

// ---------------------------------------------------------------------------------------------
// Forced outputs
//
// force_output() arms a forcing that writes one value through one argument and answers
// `result`: what a facade that fills in an output and returns a code does. The value is written
// `offset` bytes into the object the argument reaches (0: the object itself; a field of a
// record otherwise). Kinds:
//   int8 uint8 int16 uint16 int32 uint32 int64 uint64 long ulong (the platform's C long)
//     the low bits of `number`, in the platform's byte order;
//   string      a std::string argument is assigned `text`;
//   char[N]     a fixed character array of N bytes: at most N-1 bytes of `text`, the rest zero
//               (always NUL-terminated);
//   bytes[N]    N raw bytes: `bytes`, cut at N, the rest zero.
// A write that does not fit the argument (a kind of another width, a string into a number,
// past the end of a record, an argument the call does not have) is not made; the forcing
// answers `result` all the same and the refusal is listed by output_refusals().
struct Output {
    int index = 0;            // argument number, from 0
    std::size_t offset = 0;   // bytes into the argument's object
    std::string kind;         // see above
    long long number = 0;     // integer kinds
    std::string text;         // string, char[N]
    std::vector<unsigned char> bytes;  // bytes[N]
};

// Builders for the common cases.
Output output_number(int index, const std::string& kind, long long number, std::size_t offset = 0);
Output output_text(int index, const std::string& kind, const std::string& text, std::size_t offset = 0);
Output output_bytes(int index, const std::string& kind, const std::vector<unsigned char>& bytes,
                    std::size_t offset = 0);

// False (and nothing armed) when a kind is not one of the above.
bool valid_output_kind(const std::string& kind);
bool force_output(const std::string& op, long result, const Output& output, int times = 1);
// Several outputs of one call (e.g. a count and a list), written in order.
bool force_outputs(const std::string& op, long result, const std::vector<Output>& outputs, int times = 1);
// Forced outputs that could not be written since the last reset(), each as
// "op: argument i: reason".
std::vector<std::string> output_refusals();

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
// Kinds in use: kPlatformBlock; kListHandle for the walking lists and list handles of the
// facades (the job-information facade's send and receive lists among them); kFileHandle for
// open files.
constexpr const char* kPlatformBlock = "platform block";
constexpr const char* kListHandle = "list handle";
constexpr const char* kFileHandle = "file handle";
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
    // True on the thread of any facade.
    static bool on_a_facade_thread();
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
