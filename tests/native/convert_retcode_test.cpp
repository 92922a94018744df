// Every module's result conversion: each facade code the module knows, and some it does not,
// with the result it becomes and the one "convert_retcode" line it traces.
#include <gtest/gtest.h>

#include <ios>
#include <ostream>
#include <sstream>
#include <string>
#include <vector>

#include "cmt_system_info.h"
#include "sim_fixture.h"
#include "zel_fnd_job_log_proxy.h"
#include "zel_fnd_job_proxy.h"
#include "zel_fnd_webservice_proxy.h"

using sim_test::Line;

namespace {

// A module whose results are converted: its trace name, and its conversion run on a new object
// of it with the trace emptied.
struct Module {
    const char* name;
    int (*convert)(long code);
};

template <class Object>
int convert_on_new(long code) {
    Object o;
    tovr_sim::clear_trace();
    return o.convert_retcode(code);
}

const Module kJobLog{"zel_fnd_job_log_proxy", convert_on_new<tarnwick::zel_fnd_job_log_proxy>};
const Module kJob{"zel_fnd_job_proxy", convert_on_new<tarnwick::zel_fnd_job_proxy>};
const Module kSystemInfo{"cmt_system_info", convert_on_new<tarnwick::CMT_System_Info>};
const Module kWebService{"zel_fnd_webservice_proxy", convert_on_new<tarnwick::zel_fnd_webservice_proxy>};

// One facade code of a module: the result it becomes, and the message its line carries at `level`.
struct Conversion {
    Module module;
    long code;
    int result;
    const char* message;
    int level = 3;
};

void PrintTo(const Conversion& c, std::ostream* os) { *os << c.module.name << " 0x" << std::hex << c.code; }

const Conversion kJobLogProxyConversions[] = {
    {kJobLog, 0x00000000, 0, "rc = ESV_ZEL_JOBINFO_OK."},
    {kJobLog, 0x04010001, 1, "rc = ESV_ZEL_JOBINFO_ERROR."},
    {kJobLog, 0x04010002, 2, "rc = ESV_ZEL_JOBINFO_DUPL_OBSERVER."},
    {kJobLog, 0x04010003, 3, "rc = ESV_ZEL_JOBINFO_NO_OBSERVER."},
    {kJobLog, 0x04010004, 4, "rc = ESV_ZEL_JOBINFO_PARAM_ERROR."},
    {kJobLog, 0x04010005, 5, "rc = ESV_ZEL_JOBINFO_NOT_FOUND_ERROR."},
    {kJobLog, 0x04010006, 6, "rc = ESV_ZEL_JOBINFO_ERROR_OUT_OF_RANGE."},
    {kJobLog, 0x04010007, 7, "rc = ESV_ZEL_JOBINFO_ERROR_CRITICAL."},
    {kJobLog, 0x04010008, 8, "rc = ESV_ZEL_JOBINFO_IPC_ERROR."},
    {kJobLog, 0x04010009, 9, "rc = ESV_ZEL_JOBINFO_LIST_OPERATE_ERROR."},
    {kJobLog, 0x0401000A, 1, "rc = ESV_ZEL_JOBINFO_ERROR."},
    {kJobLog, 0x0401000D, 1, "rc = ESV_ZEL_JOBINFO_ERROR."},
    {kJobLog, 1, 1, "rc = ESV_ZEL_JOBINFO_ERROR."},
    {kJobLog, -1, 1, "rc = ESV_ZEL_JOBINFO_ERROR."},
};

const Conversion kJobProxyConversions[] = {
    {kJob, 0x00000000, 0, "code = ESV_ZEL_JOB_OK"},
    {kJob, 0x04010002, 2, "code = ESV_ZEL_JOB_DUPL_OBSERVER"},
    {kJob, 0x04010003, 3, "code = ESV_ZEL_JOB_NO_OBSERVER"},
    {kJob, 0x04010004, 4, "code = ESV_ZEL_JOB_OUTPUT_PROHIBITING"},
    {kJob, 0x04010005, 5, "code = ESV_ZEL_JOB_START_PROHIBITION"},
    {kJob, 0x04010006, 6, "code = ESV_ZEL_JOB_LIMIT"},
    {kJob, 0x04010007, 7, "code = ESV_ZEL_JOB_IPC_ERROR"},
    {kJob, 0x04010008, 8, "code = ESV_ZEL_JOB_PARAM_ERROR"},
    {kJob, 0x04010009, 9, "code = ESV_ZEL_JOB_COPY_JOBINFO_LIMIT_OVER"},
    {kJob, 0x0401000A, 10, "code = ESV_ZEL_JOB_RET_NOT_COPY_JOBINFO"},
    {kJob, 0x0401000B, 11, "code = ESV_ZEL_JOB_NO_CATEGORY"},
    {kJob, 0x0401000C, 12, "code = ESV_ZEL_NO_HIT_JOB"},
    {kJob, 0x0401000D, 13, "code = ESV_ZEL_JOB_ORG_SIZE_UNDEFINED"},
    {kJob, 0x04010001, 1, "code = unknown(0x04010001)", 0},
    {kJob, 0x0401000E, 1, "code = unknown(0x0401000e)", 0},
    {kJob, 0x00000001, 1, "code = unknown(0x00000001)", 0},
    {kJob, -1, 1, "code = unknown(0xffffffff)", 0},
    {kJob, -2147483647L - 1, 1, "code = unknown(0x80000000)", 0},
};

const Conversion kSystemInfoConversions[] = {
    {kSystemInfo, 0, 0, "ESV_ZEL_SYSINFO_OK"},
    {kSystemInfo, 0x04010501, 1, "ESV_ZEL_SYSINFO_ERROR_COMPETENCE"},
    {kSystemInfo, 0x04010502, 2, "ESV_ZEL_SYSINFO_ERROR"},
    {kSystemInfo, 0x04010503, 3, "ESV_ZEL_SYSINFO_UNSUPPORTED_ERROR"},
    {kSystemInfo, 0x04010504, 2, "default ZEL_FND_SYSINFO_ERROR"},
    {kSystemInfo, 0x04010500, 2, "default ZEL_FND_SYSINFO_ERROR"},
    {kSystemInfo, 1, 2, "default ZEL_FND_SYSINFO_ERROR"},
    {kSystemInfo, -1, 2, "default ZEL_FND_SYSINFO_ERROR"},
};

const Conversion kWebServiceConversions[] = {
    {kWebService, 0, 0, "result = ESV_ZEL_WEBSERVICE_OK"},
    {kWebService, 0x04010601, 1, "result = ESV_ZEL_WEBSERVICE_ERROR_PARAMETER"},
    {kWebService, 0x04010602, 2, "result = ESV_ZEL_WEBSERVICE_ERROR_INVALID_SERVICE"},
    {kWebService, 0x04010603, 3, "result = ESV_ZEL_WEBSERVICE_ERROR_ALREADY_RESERVED"},
    {kWebService, 0x04010604, 4, "result = ESV_ZEL_WEBSERVICE_ERROR_DIFFERENT_HOST"},
    {kWebService, 0x04010605, 5, "result = ESV_ZEL_WEBSERVICE_ERROR_FAILED"},
    {kWebService, 0x04010606, 6, "result = ESV_ZEL_WEBSERVICE_ERROR_IPC"},
    {kWebService, 0x04010607, 5, "result = ZEL_FND_WEBSERVICE_ERROR_FAILED"},
    {kWebService, 0x04010600, 5, "result = ZEL_FND_WEBSERVICE_ERROR_FAILED"},
    {kWebService, -1, 5, "result = ZEL_FND_WEBSERVICE_ERROR_FAILED"},
};

class ConvertRetcode : public sim_test::SimDeviceTest, public ::testing::WithParamInterface<Conversion> {};

TEST_P(ConvertRetcode, GivesTheResultAndTracesOneLine) {
    const Conversion& c = GetParam();
    EXPECT_EQ(c.result, c.module.convert(c.code));
    EXPECT_EQ((std::vector<Line>{{c.level, std::string("convert_retcode,") + c.message}}), sim_test::lines_of(c.module.name));
}

// "4010002": the code as the platform's 32 bits.
std::string case_name(const ::testing::TestParamInfo<Conversion>& info) {
    std::ostringstream name;
    name << std::hex << (static_cast<unsigned long>(info.param.code) & 0xFFFFFFFFul);
    return name.str();
}

INSTANTIATE_TEST_SUITE_P(JobLogProxy, ConvertRetcode, ::testing::ValuesIn(kJobLogProxyConversions), case_name);
INSTANTIATE_TEST_SUITE_P(JobProxy, ConvertRetcode, ::testing::ValuesIn(kJobProxyConversions), case_name);
INSTANTIATE_TEST_SUITE_P(SystemInfo, ConvertRetcode, ::testing::ValuesIn(kSystemInfoConversions), case_name);
INSTANTIATE_TEST_SUITE_P(WebService, ConvertRetcode, ::testing::ValuesIn(kWebServiceConversions), case_name);

}  // namespace
