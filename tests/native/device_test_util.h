// Helpers of the device-service tests: a clean simulated device and the trace lines of one
// module as "operation,message" with their level.
#ifndef TOVR_TESTS_DEVICE_TEST_UTIL_H
#define TOVR_TESTS_DEVICE_TEST_UTIL_H

#include <string>
#include <vector>

#include "job_test_util.h"
#include "tovr_sim.h"
#include "tovr_sim_device.h"

namespace device_test {

using job_test::Line;
using job_test::lines_of;

inline void reset_device() {
    tovr_sim::reset();
    tovr_sim::reset_device_services();
    tovr_sim::clear_trace();
}

// The arguments of each recorded call of `op`.
inline std::vector<std::vector<std::string>> args_of(const std::string& op) {
    std::vector<std::vector<std::string>> out;
    for (const tovr_sim::Call& c : tovr_sim::calls(op)) out.push_back(c.args);
    return out;
}

}  // namespace device_test

#endif
