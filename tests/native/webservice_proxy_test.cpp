// Web service reservation against the simulated facade: every row of the result conversion
// with its trace, the reservation rules of the device, and the traces of both operations.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "sim_fixture.h"
#include "tovr_sim_device.h"
#include "tovr_sim_job.h"
#include "zel_fnd_webservice_proxy.h"

using sim_test::args_of;
using sim_test::Line;
using tarnwick::zel_fnd_webservice_proxy;

namespace {

std::vector<Line> lines() { return sim_test::lines_of("zel_fnd_webservice_proxy"); }

class WebService : public sim_test::SimDeviceTest {
protected:
    zel_fnd_webservice_proxy proxy;
};

TEST_F(WebService, ReserveTwiceThenAnotherHostThenRelease) {
    EXPECT_EQ(0, proxy.reserve(ESV_ZEL_WEBSERVICE_KIND_SCAN, "host-a"));
    EXPECT_EQ((std::vector<Line>{{3, "reserve,[Start]"}, {3, "reserve,[End]"},
                                 {3, "convert_retcode,result = ESV_ZEL_WEBSERVICE_OK"}}),
              lines());
    EXPECT_EQ("host-a", tovr_sim::webservice_holder(ESV_ZEL_WEBSERVICE_KIND_SCAN));
    EXPECT_EQ(3, proxy.reserve(ESV_ZEL_WEBSERVICE_KIND_SCAN, "host-a"));
    EXPECT_EQ(4, proxy.reserve(ESV_ZEL_WEBSERVICE_KIND_SCAN, "host-b"));
    EXPECT_EQ(0, proxy.reserve(ESV_ZEL_WEBSERVICE_KIND_PRINT, "host-b"));  // one holder per kind
    EXPECT_EQ(4, proxy.release(ESV_ZEL_WEBSERVICE_KIND_SCAN, "host-b"));
    tovr_sim::clear_trace();
    EXPECT_EQ(0, proxy.release(ESV_ZEL_WEBSERVICE_KIND_SCAN, "host-a"));
    EXPECT_EQ((std::vector<Line>{{3, "release,[Start]"}, {3, "release,[End]"},
                                 {3, "convert_retcode,result = ESV_ZEL_WEBSERVICE_OK"}}),
              lines());
    EXPECT_EQ("", tovr_sim::webservice_holder(ESV_ZEL_WEBSERVICE_KIND_SCAN));
    EXPECT_EQ(5, proxy.release(ESV_ZEL_WEBSERVICE_KIND_SCAN, "host-a"));  // nobody holds it
    EXPECT_EQ(0, proxy.reserve(ESV_ZEL_WEBSERVICE_KIND_SCAN, "host-b"));
    EXPECT_EQ((std::vector<std::string>{"0", "host-b"}), args_of("esv_zel_webservice_reserve").back());
}

TEST_F(WebService, UnknownKindAndEmptyName) {
    EXPECT_EQ(2, proxy.reserve(static_cast<ESV_ZEL_WEBSERVICE_KIND>(3), "h"));
    EXPECT_EQ(2, proxy.reserve(static_cast<ESV_ZEL_WEBSERVICE_KIND>(-1), "h"));
    EXPECT_EQ(2, proxy.release(static_cast<ESV_ZEL_WEBSERVICE_KIND>(99), "h"));
    EXPECT_EQ(1, proxy.reserve(ESV_ZEL_WEBSERVICE_KIND_DEVICE, ""));
    EXPECT_EQ(1, proxy.release(ESV_ZEL_WEBSERVICE_KIND_DEVICE, ""));
    EXPECT_EQ(1, proxy.reserve(static_cast<ESV_ZEL_WEBSERVICE_KIND>(99), ""));  // the name is checked first
    EXPECT_EQ((std::vector<std::string>{"-1", "h"}), args_of("esv_zel_webservice_reserve")[1]);
}

TEST_F(WebService, ForcedCodesAndLongNames) {
    tovr_sim::force_result("esv_zel_webservice_reserve", ESV_ZEL_WEBSERVICE_ERROR_IPC);
    EXPECT_EQ(6, proxy.reserve(ESV_ZEL_WEBSERVICE_KIND_SCAN, "h"));
    tovr_sim::force_result("esv_zel_webservice_release", 0x04010607);
    EXPECT_EQ(5, proxy.release(ESV_ZEL_WEBSERVICE_KIND_SCAN, "h"));
    const std::string long_name(100000, 'n');
    EXPECT_EQ(0, proxy.reserve(ESV_ZEL_WEBSERVICE_KIND_SCAN, long_name));
    EXPECT_EQ(long_name, tovr_sim::webservice_holder(ESV_ZEL_WEBSERVICE_KIND_SCAN));
}

}  // namespace
