// Application information against the simulated device: raw codes of set_value, getters that
// fold failures into 0 or "", the 32-bit value seen as int and as unsigned long, and change_id.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "cmt_appinfo_proxy.h"
#include "sim_fixture.h"
#include "tovr_sim_device.h"
#include "tovr_sim_job.h"

using sim_test::args_of;
using tarnwick::cmt_appinfo_proxy;

namespace {

const ESV_ZEL_ENTKEY kKey = static_cast<ESV_ZEL_ENTKEY>(17);

class AppInfo : public sim_test::SimDeviceTest {
protected:
    cmt_appinfo_proxy proxy;
};

TEST_F(AppInfo, SetValueGivesTheFacadeCodeUnchanged) {
    EXPECT_EQ(0, proxy.set_value(kKey, -1));
    unsigned int stored = 0;
    ASSERT_TRUE(tovr_sim::sysinfo_value(kKey, &stored));
    EXPECT_EQ(0xFFFFFFFFu, stored);
    tovr_sim::sysinfo_set_key_answer(kKey, ESV_ZEL_SYSINFO_ERROR_COMPETENCE);
    EXPECT_EQ(0x04010501, proxy.set_value(kKey, 1));
    tovr_sim::force_result("esv_zel_systeminfo_set_value", 0x04010599);
    EXPECT_EQ(0x04010599, proxy.set_value(static_cast<ESV_ZEL_ENTKEY>(1), 1));
    EXPECT_TRUE(sim_test::lines_of("cmt_appinfo_proxy").empty());
}

TEST_F(AppInfo, RejectedKeyReadsAsZeroLikeAZeroValue) {
    tovr_sim::sysinfo_set_value(3, 0);
    EXPECT_EQ(0, proxy.get_value(static_cast<ESV_ZEL_ENTKEY>(3)));
    EXPECT_EQ(0, proxy.get_value(static_cast<ESV_ZEL_ENTKEY>(4)));  // never set
    tovr_sim::sysinfo_set_value(3, 9);
    tovr_sim::sysinfo_set_key_answer(3, ESV_ZEL_SYSINFO_UNSUPPORTED_ERROR);
    EXPECT_EQ(0, proxy.get_value(static_cast<ESV_ZEL_ENTKEY>(3)));
    EXPECT_EQ(0ul, proxy.get_long_value(static_cast<ESV_ZEL_ENTKEY>(3)));
}

TEST_F(AppInfo, AllBitsReadAsMinusOneAndAsFourBillion) {
    tovr_sim::sysinfo_set_value(kKey, 0xFFFFFFFFu);
    EXPECT_EQ(-1, proxy.get_value(kKey));
    EXPECT_EQ(4294967295ul, proxy.get_long_value(kKey));
}

TEST_F(AppInfo, GetValueReturnsWhatAFailingFacadeWrote) {
    tovr_sim::force_output("esv_zel_systeminfo_get_value", ESV_ZEL_SYSINFO_ERROR, tovr_sim::output_value(1, 55u));
    EXPECT_EQ(55, proxy.get_value(kKey));
}

TEST_F(AppInfo, StringValueIsEmptiedOnFailure) {
    tovr_sim::sysinfo_set_text(kKey, "abc");
    EXPECT_EQ("abc", proxy.get_string_value(kKey));
    EXPECT_EQ("", proxy.get_string_value(static_cast<ESV_ZEL_ENTKEY>(999)));
    tovr_sim::force_output("esv_zel_systeminfo_get_value", ESV_ZEL_SYSINFO_ERROR,
                           tovr_sim::output_text(1, "string", "partial"));
    EXPECT_EQ("", proxy.get_string_value(kKey));
}

TEST_F(AppInfo, ChangeId) {
    tovr_sim::panel_set_identity("copy-app", 0x80000001u);
    char name[] = "copy-app";
    EXPECT_EQ(0x80000001u, proxy.change_id(name));
    EXPECT_EQ(0x80000001u, tovr_sim::panel_current_id());
    char unknown[] = "nobody";
    EXPECT_EQ(0u, proxy.change_id(unknown));
    EXPECT_EQ(0u, proxy.change_id(nullptr));
    EXPECT_EQ((std::vector<std::string>{"null", "0"}), args_of("esv_zel_panel_change_id")[2]);
    EXPECT_EQ("0", args_of("esv_zel_panel_change_id")[0][1]);  // output preset to 0
    // An identifier written before a failure is not handed on.
    tovr_sim::force_output("esv_zel_panel_change_id", tovr_sim::kPanelError, tovr_sim::output_value(1, 77u));
    EXPECT_EQ(0u, proxy.change_id(name));
}

}  // namespace
