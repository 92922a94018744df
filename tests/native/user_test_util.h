// Helpers of the user and department tests: a clean simulated device and one module's trace.
#ifndef TOVR_TESTS_USER_TEST_UTIL_H
#define TOVR_TESTS_USER_TEST_UTIL_H

#include <string>
#include <vector>

#include "job_test_util.h"
#include "tovr_sim.h"
#include "tovr_sim_user.h"

namespace user_test {

using job_test::Line;
using job_test::lines_of;

inline void reset_device() {
    tovr_sim::reset();
    tovr_sim::reset_users();
    tovr_sim::reset_depts();
    tovr_sim::clear_trace();
}

// Messages of one operation of `module`, in order.
inline std::vector<Line> op_lines(const std::string& module, const std::string& op) {
    std::vector<Line> out;
    for (const Line& l : lines_of(module)) {
        if (l.text.compare(0, op.size() + 1, op + ",") == 0) out.push_back(Line{l.level, l.text.substr(op.size() + 1)});
    }
    return out;
}

}  // namespace user_test

#endif
