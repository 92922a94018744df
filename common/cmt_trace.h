// The library's one trace shape: every line goes to the platform trace with the library's two
// fixed identifiers, a level, the source module, the line and the operation.
//
// A source defines CMT_TRACE_MODULE (its module name as a string literal) before using
// CMT_TRACE; the operation name is the calling function's bare name.
#ifndef TARNWICK_CMT_TRACE_H
#define TARNWICK_CMT_TRACE_H

#include <cstdio>
#include <cstring>

#include "emw_gen_trc.h"

namespace tarnwick {

constexpr unsigned int kTraceId = 0x2601;
constexpr unsigned int kTraceSubId = 0x101;
constexpr int kTraceFlow = 3;   // entry, exit, results
constexpr int kTraceError = 0;  // failures
constexpr int kTraceBufferSize = 256;

}  // namespace tarnwick

// Formats the message into a zero-filled 256-byte buffer (longer text is cut at 255
// characters) and hands it to the platform trace. Code shared by several modules names the
// module it traces for; a source's own lines use CMT_TRACE_OP or CMT_TRACE.
#define CMT_TRACE_AT(module, level, operation, ...)                                              \
    do {                                                                                         \
        char cmt_trace_message_[::tarnwick::kTraceBufferSize];                                   \
        std::memset(cmt_trace_message_, 0, sizeof cmt_trace_message_);                           \
        std::snprintf(cmt_trace_message_, sizeof cmt_trace_message_, __VA_ARGS__);              \
        emwGENTrcPrintf(::tarnwick::kTraceId, ::tarnwick::kTraceSubId, (level),                  \
                        "%s[%04d]::%s,%s\n", (module), __LINE__, (operation),                    \
                        cmt_trace_message_);                                                     \
    } while (0)

#define CMT_TRACE_OP(level, operation, ...) CMT_TRACE_AT(CMT_TRACE_MODULE, level, operation, __VA_ARGS__)

#define CMT_TRACE(level, ...) CMT_TRACE_OP(level, __func__, __VA_ARGS__)

#endif
