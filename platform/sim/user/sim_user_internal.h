// Shared state of the simulated user and department facades (device side only).
#ifndef TOVR_SIM_USER_INTERNAL_H
#define TOVR_SIM_USER_INTERNAL_H

#include <string>

namespace tovr_sim {

// The department a user's pages count to: a hidden user's dept_code, or a local user's
// dept_id in decimal; "" when the user is unknown or has none.
std::string department_of_user(const std::string& login_name);

}  // namespace tovr_sim

#endif
