// The call record and forced answers of the simulated device.
//
// Every facade (or platform) call is recorded in order; a test reads what the library asked
// and arms answers that replace the device's own behaviour for the next calls of an operation.
#ifndef TOVR_SIM_CALLS_H
#define TOVR_SIM_CALLS_H

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace tovr_sim {

// One facade (or platform) call as the device received it. `op` is the facade member's name
// (e.g. "esv_zel_job_start"); `args` holds each argument as text, in order, as it came in.
struct Call {
    std::string op;
    std::vector<std::string> args;
};

// Every call kept since the last clear_calls(), oldest first.
std::vector<Call> calls();
// Only the calls of one operation.
std::vector<Call> calls(const std::string& op);
// Drops the recorded calls (and the count of dropped ones).
void clear_calls();

// The record keeps the most recent `call_limit()` calls; an older one is dropped (and
// counted) when a new one comes, so a long run keeps its memory. reset() restores the default.
constexpr std::size_t kDefaultCallLimit = 100000;
void set_call_limit(std::size_t limit);
std::size_t call_limit();
// Calls kept now, and calls dropped since the last clear_calls() or reset().
std::size_t call_count();
std::uint64_t dropped_calls();

// A forced answer sees the call's arguments through `params`: params[i] points at argument i
// as the facade member received it (for a reference or pointer argument: at the referenced
// object). It returns the facade's result code. Outputs are written through force_output()
// (tovr_sim_outputs.h), which checks each write against the argument's type.
using Params = std::vector<void*>;
using Forcing = std::function<long(const Params& params)>;

// The next `times` calls of `op` (every call when times < 0) answer `result` and change nothing.
void force_result(const std::string& op, long result, int times = 1);
// The next `times` calls of `op` are answered by `fn` instead of the device's own behaviour.
void force(const std::string& op, Forcing fn, int times = 1);
// The next `times` calls of `op` behave as the device's own. Forcings of one operation apply
// in the order they were armed, so a forcing armed after this reaches a later call.
void pass(const std::string& op, int times = 1);
// The `nth` call of `op` from now (1: the next) first runs `fn`, then behaves as the device's
// own; the calls before it pass.
void on_call(const std::string& op, std::function<void()> fn, int nth = 1);
// Drops every forcing, every recorded call, the output refusals, process registrations and
// allocation failures, and restores the call limit.
void reset();

// The shape of one argument (tovr_sim_record.h), for forcings that write outputs.
struct Shape;
using Shapes = std::vector<Shape>;

// Called by every simulated facade member first (through TOVR_SIM_RECORD): records the call
// and, when a forcing is armed for `op`, applies it and returns true with its result in
// *result.
bool intercept(const char* op, std::vector<std::string> args, const Params& params, const Shapes& shapes,
               long* result);

}  // namespace tovr_sim

#endif
