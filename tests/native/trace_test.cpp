// The trace shape every module uses.
#define CMT_TRACE_MODULE "trace_probe"
#include "cmt_trace.h"

#include <gtest/gtest.h>

#include <string>

#include "tovr_sim.h"

namespace {

std::string last_text() {
    auto lines = tovr_sim::trace_lines();
    return lines.empty() ? std::string() : lines.back().text;
}

int trace_line_here(int* line) {
    *line = __LINE__ + 1;
    CMT_TRACE(tarnwick::kTraceFlow, "[Start]. status = [%d]", 7);
    return 0;
}

}  // namespace

TEST(Trace, ShapeIdentifiersAndLevel) {
    tovr_sim::clear_trace();
    int line = 0;
    trace_line_here(&line);
    auto lines = tovr_sim::trace_lines();
    ASSERT_EQ(1u, lines.size());
    EXPECT_EQ(0x2601u, lines[0].id);
    EXPECT_EQ(0x101u, lines[0].sub_id);
    EXPECT_EQ(3, lines[0].level);
    char expected[128];
    std::snprintf(expected, sizeof expected, "trace_probe[%04d]::trace_line_here,[Start]. status = [7]", line);
    EXPECT_EQ(expected, lines[0].text);
}

TEST(Trace, LineNumberHasAtLeastFourDigits) {
    tovr_sim::clear_trace();
    CMT_TRACE_OP(tarnwick::kTraceError, "op", "%s", "x");
    const std::string text = last_text();
    EXPECT_EQ(0, tovr_sim::trace_lines().back().level);
    ASSERT_EQ(std::string("trace_probe["), text.substr(0, 12));
    EXPECT_EQ(']', text[16]);
    EXPECT_EQ("::op,x", text.substr(17));
}

TEST(Trace, MessageIsCutAt255Characters) {
    tovr_sim::clear_trace();
    std::string long_text(300, 'a');
    long_text[254] = 'b';
    long_text[255] = 'c';
    CMT_TRACE_OP(tarnwick::kTraceFlow, "cut", "%s", long_text.c_str());
    const std::string text = last_text();
    const std::string message = text.substr(text.find(",") + 1);
    EXPECT_EQ(255u, message.size());
    EXPECT_EQ('b', message.back());
}

TEST(Trace, MessageOfExactly255CharactersIsKept) {
    tovr_sim::clear_trace();
    std::string text255(255, 'z');
    CMT_TRACE_OP(tarnwick::kTraceFlow, "edge", "%s", text255.c_str());
    const std::string text = last_text();
    EXPECT_EQ(text255, text.substr(text.find(",") + 1));
}
