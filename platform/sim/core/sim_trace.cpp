// Simulated device: the platform trace, kept in a bounded buffer and appended to the file
// named by TOVR_TRACE_FILE.
#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <deque>
#include <mutex>

#include "emw_gen_trc.h"
#include "tovr_sim_services.h"
#include "tovr_sim_trace.h"

namespace tovr_sim {
namespace {

struct Trace {
    std::mutex mutex;
    std::deque<TraceLine> lines;
};

Trace& trace() { return lasting<Trace>(); }

}  // namespace

std::vector<TraceLine> trace_lines() {
    Trace& t = trace();
    std::lock_guard<std::mutex> lock(t.mutex);
    return std::vector<TraceLine>(t.lines.begin(), t.lines.end());
}

void clear_trace() {
    Trace& t = trace();
    std::lock_guard<std::mutex> lock(t.mutex);
    t.lines.clear();
}

}  // namespace tovr_sim

extern "C" int emwGENTrcPrintf(unsigned int id, unsigned int sub_id, int level, const char* format, ...) {
    char line[1024];
    va_list ap;
    va_start(ap, format);
    int n = vsnprintf(line, sizeof line, format, ap);
    va_end(ap);
    std::string text(line, n < 0 ? 0 : std::min<std::size_t>(static_cast<std::size_t>(n), sizeof line - 1));
    while (!text.empty() && text.back() == '\n') text.pop_back();

    tovr_sim::Trace& t = tovr_sim::trace();
    std::lock_guard<std::mutex> lock(t.mutex);
    if (t.lines.size() == tovr_sim::kTraceCapacity) t.lines.pop_front();
    t.lines.push_back(tovr_sim::TraceLine{id, sub_id, level, text});
    if (const char* path = std::getenv(tovr_sim::kTraceFileVariable)) {
        if (FILE* f = std::fopen(path, "a")) {
            std::fprintf(f, "%u %s\n", static_cast<unsigned>(level), text.c_str());
            std::fclose(f);
        }
    }
    return 0;
}
