// The result numbers of the user module's operations, one set for authentication and hidden
// user accounts alike; each operation answers those that apply to it. Library-internal: Java
// sees the numbers only as the operations' answers.
#ifndef TARNWICK_ZEL_FND_USER_RESULTS_H
#define TARNWICK_ZEL_FND_USER_RESULTS_H

namespace tarnwick {
namespace zel_fnd_user_result {

constexpr unsigned int kSuccess = 0;
constexpr unsigned int kInvalidPassword = 1;  // a login or rights query with a wrong password
constexpr unsigned int kNotFound = 2;         // no such user, certificate or hidden account
constexpr unsigned int kDuplicate = 3;        // a hidden account's login name is taken
constexpr unsigned int kFailure = 4;

}  // namespace zel_fnd_user_result
}  // namespace tarnwick

#endif
