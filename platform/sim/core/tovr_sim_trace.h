// The platform trace as the simulated device keeps it.
#ifndef TOVR_SIM_TRACE_H
#define TOVR_SIM_TRACE_H

#include <cstddef>
#include <string>
#include <vector>

namespace tovr_sim {

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

}  // namespace tovr_sim

#endif
