// The set-up every native test on the simulated device shares: a whole device in its initial
// state before and after each test (every service reset, no forcings, calls or trace), and the
// helpers that read the trace and the call record.
//
//   class JobProxy : public sim_test::SimDeviceTest { ... };
//   EXPECT_EQ((std::vector<sim_test::Line>{{3, "start,[Start]"}}), sim_test::lines_of("zel_fnd_job_proxy"));
#ifndef TOVR_TESTS_SIM_FIXTURE_H
#define TOVR_TESTS_SIM_FIXTURE_H

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

#include "tovr_sim.h"

namespace sim_test {

// The whole simulated device back to its initial state.
inline void reset_device() { tovr_sim::reset_all(); }

class SimDeviceTest : public ::testing::Test {
protected:
    void SetUp() override { reset_device(); }
    void TearDown() override { reset_device(); }
};

// One trace line of a module: its level and "operation,message".
struct Line {
    int level;
    std::string text;
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

// Messages of one operation of `module`, in order.
inline std::vector<Line> op_lines(const std::string& module, const std::string& op) {
    std::vector<Line> out;
    for (const Line& l : lines_of(module)) {
        if (l.text.compare(0, op.size() + 1, op + ",") == 0) out.push_back(Line{l.level, l.text.substr(op.size() + 1)});
    }
    return out;
}

// The arguments of each recorded call of `op`.
inline std::vector<std::vector<std::string>> args_of(const std::string& op) {
    std::vector<std::vector<std::string>> out;
    for (const tovr_sim::Call& c : tovr_sim::calls(op)) out.push_back(c.args);
    return out;
}

}  // namespace sim_test

#endif
