// The result conversion behind each module's convert_retcode: a table of the facade codes the
// module knows, the result each becomes and the name its trace line gives it, and how the
// module's lines read. One trace line per conversion, under the module's name and the operation
// "convert_retcode".
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

struct cmt_retcode_table {
    const char* module;
    const cmt_retcode_row* rows;
    std::size_t count;
    const char* known;    // the line of a known code (level 3), given the constant's name
    const char* unknown;  // the line of any other code, given the code as 32 bits (0x%08lx)
    int unknown_level;
    int unknown_result;
};

// The result of `code` by `table`, with its one trace line.
int cmt_convert_retcode(const cmt_retcode_table& table, long code);

}  // namespace tarnwick

#endif
