#include "cmt_retcode.h"

#include <cstdint>

#include "cmt_trace.h"

namespace tarnwick {

int cmt_convert_retcode(const cmt_retcode_table& table, long code) {
    for (std::size_t i = 0; i < table.count; ++i) {
        const cmt_retcode_row& row = table.rows[i];
        if (row.code == code) {
            CMT_TRACE_AT(table.module, kTraceFlow, "convert_retcode", table.known, row.name);
            return row.result;
        }
    }
    CMT_TRACE_AT(table.module, table.unknown_level, "convert_retcode", table.unknown,
                 static_cast<unsigned long>(static_cast<std::uint32_t>(code)));
    return table.unknown_result;
}

}  // namespace tarnwick
