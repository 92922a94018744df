// The facade-code tables behind each module's convert_retcode: which facade code becomes which
// module result, and the name its trace line gives it. Each module traces the name itself (its
// own prefix, its own line for codes the table does not know), so the lines keep their module.
#ifndef TARNWICK_CMT_RETCODE_H
#define TARNWICK_CMT_RETCODE_H

#include <cstddef>

namespace tarnwick {

struct cmt_retcode_row {
    long code;
    int result;
    const char* name;  // the facade constant's own name
};

// A row naming the facade constant as it is spelled, so the traced name cannot drift from it.
#define CMT_RETCODE_ROW(constant, result) \
    { static_cast<long>(constant), (result), #constant }

// The row of `code`, or null when the table does not know it.
template <std::size_t N>
const cmt_retcode_row* cmt_find_retcode(const cmt_retcode_row (&rows)[N], long code) {
    for (const cmt_retcode_row& row : rows) {
        if (row.code == code) return &row;
    }
    return nullptr;
}

}  // namespace tarnwick

#endif
