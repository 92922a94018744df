// Simulated device: the call record (bounded) and the forcings armed per operation.
#include <deque>
#include <map>
#include <mutex>

#include "sim_core_internal.h"
#include "tovr_sim_record.h"
#include "tovr_sim_services.h"

namespace tovr_sim {
namespace {

// One armed entry of an operation's queue: an answer (`fn`), or a pass to the device's own
// behaviour (no `fn`), with a hook that runs first.
struct Forced {
    Forcing fn;
    std::function<void()> before;
    int times;  // < 0: for ever
};

// Leaked on purpose: facade threads and JVM shutdown hooks may still record calls while static
// destructors run.
struct Record {
    std::mutex mutex;
    std::deque<Call> calls;
    std::size_t limit = kDefaultCallLimit;
    std::uint64_t dropped = 0;
    std::map<std::string, std::deque<Forced>> forced;
};

Record& record_state() { return lasting<Record>(); }

// Keeps at most `limit` calls, dropping (and counting) the oldest.
void trim_locked(Record& r) {
    while (r.calls.size() > r.limit) {
        r.calls.pop_front();
        ++r.dropped;
    }
}

void arm(const std::string& op, Forced f) {
    Record& r = record_state();
    std::lock_guard<std::mutex> lock(r.mutex);
    r.forced[op].push_back(std::move(f));
}

thread_local const Shapes* t_shapes = nullptr;

}  // namespace

namespace core {
const Shapes* current_shapes() { return t_shapes; }
}  // namespace core

std::vector<Call> calls() {
    Record& r = record_state();
    std::lock_guard<std::mutex> lock(r.mutex);
    return std::vector<Call>(r.calls.begin(), r.calls.end());
}

std::vector<Call> calls(const std::string& op) {
    Record& r = record_state();
    std::lock_guard<std::mutex> lock(r.mutex);
    std::vector<Call> out;
    for (const Call& c : r.calls) {
        if (c.op == op) out.push_back(c);
    }
    return out;
}

void clear_calls() {
    Record& r = record_state();
    std::lock_guard<std::mutex> lock(r.mutex);
    r.calls.clear();
    r.dropped = 0;
}

void set_call_limit(std::size_t limit) {
    Record& r = record_state();
    std::lock_guard<std::mutex> lock(r.mutex);
    r.limit = limit;
    trim_locked(r);
}

std::size_t call_limit() {
    Record& r = record_state();
    std::lock_guard<std::mutex> lock(r.mutex);
    return r.limit;
}

std::size_t call_count() {
    Record& r = record_state();
    std::lock_guard<std::mutex> lock(r.mutex);
    return r.calls.size();
}

std::uint64_t dropped_calls() {
    Record& r = record_state();
    std::lock_guard<std::mutex> lock(r.mutex);
    return r.dropped;
}

void force(const std::string& op, Forcing fn, int times) { arm(op, Forced{std::move(fn), nullptr, times}); }

void force_result(const std::string& op, long result, int times) {
    force(op, [result](const Params&) { return result; }, times);
}

void pass(const std::string& op, int times) {
    if (times != 0) arm(op, Forced{nullptr, nullptr, times});
}

void on_call(const std::string& op, std::function<void()> fn, int nth) {
    if (nth < 1) return;
    pass(op, nth - 1);
    arm(op, Forced{nullptr, std::move(fn), 1});
}

void reset() {
    {
        Record& r = record_state();
        std::lock_guard<std::mutex> lock(r.mutex);
        r.calls.clear();
        r.forced.clear();
        r.limit = kDefaultCallLimit;
        r.dropped = 0;
    }
    core::reset_registrations();
    core::reset_alloc_failures();
    core::reset_output_refusals();
}

bool intercept(const char* op, std::vector<std::string> args, const Params& params, const Shapes& shapes,
               long* result) {
    Forced f;
    {
        Record& r = record_state();
        std::lock_guard<std::mutex> lock(r.mutex);
        if (r.limit > 0) {
            r.calls.push_back(Call{op, std::move(args)});
            trim_locked(r);
        } else {
            ++r.dropped;
        }
        auto it = r.forced.find(op);
        if (it == r.forced.end() || it->second.empty()) return false;
        Forced& front = it->second.front();
        f = front;
        if (front.times > 0 && --front.times == 0) it->second.pop_front();
    }
    // Outside the lock: a forcing or hook may itself call into the device.
    if (f.before) f.before();
    if (!f.fn) return false;
    const Shapes* outer = t_shapes;
    t_shapes = &shapes;
    *result = f.fn(params);
    t_shapes = outer;
    return true;
}

std::string arg(const char* s) { return s ? std::string(s) : std::string("null"); }
std::string arg(const std::string& s) { return s; }

}  // namespace tovr_sim
