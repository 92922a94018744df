// Helpers of the job tests: the trace lines of one module as "operation,message" with their
// level, and a reset of the simulated device.
#ifndef TOVR_TESTS_JOB_TEST_UTIL_H
#define TOVR_TESTS_JOB_TEST_UTIL_H

#include <string>
#include <utility>
#include <vector>

#include "tovr_sim.h"
#include "tovr_sim_job.h"

namespace job_test {

struct Line {
    int level;
    std::string text;  // "operation,message"
    bool operator==(const Line& o) const { return level == o.level && text == o.text; }
};

inline std::ostream& operator<<(std::ostream& os, const Line& l) { return os << l.level << " " << l.text; }

// Lines of `module`, with the "module[NNNN]::" prefix cut off.
inline std::vector<Line> lines_of(const std::string& module) {
    std::vector<Line> out;
    for (const tovr_sim::TraceLine& l : tovr_sim::trace_lines()) {
        if (l.text.compare(0, module.size() + 1, module + "[") != 0) continue;
        const std::size_t at = l.text.find("]::");
        if (at == std::string::npos) continue;
        out.push_back(Line{l.level, l.text.substr(at + 3)});
    }
    return out;
}

inline void reset_device() {
    tovr_sim::reset();
    tovr_sim::reset_jobs();
    tovr_sim::clear_trace();
}

}  // namespace job_test

#endif
