#include "cmt_init.h"

#include <gtest/gtest.h>

#include <cstring>

#include "CJvm.h"
#include "fake_jvm.h"
#include "tovr_sim.h"
#include "sim_fixture.h"

using tarnwick::CJvm;
using tarnwick::cmt_init;

namespace {

class CmtInitTest : public sim_test::SimDeviceTest {
protected:
    void SetUp() override {
        fake_jvm::reset();
        SimDeviceTest::SetUp();
        CJvm::ms_jvm = nullptr;
    }
    void TearDown() override {
        SimDeviceTest::TearDown();
        CJvm::ms_jvm = nullptr;
    }
};

TEST_F(CmtInitTest, FindsTheVmThenRegistersAsSmfstart) {
    EXPECT_EQ(0, cmt_init::init());
    EXPECT_EQ(fake_jvm::vm(), CJvm::ms_jvm);
    auto regs = tovr_sim::process_registrations();
    ASSERT_EQ(1u, regs.size());
    EXPECT_EQ(1, regs[0].argument_count);
    EXPECT_EQ("smfstart.sh", regs[0].arguments[0]);
}

TEST_F(CmtInitTest, ReturnsTheRegistrationResultUnchanged) {
    tovr_sim::force_process_init_result(0x04010207);
    EXPECT_EQ(0x04010207, cmt_init::init());
    tovr_sim::force_process_init_result(-1);
    EXPECT_EQ(-1, cmt_init::mixsInit());
    EXPECT_EQ(0, cmt_init::mixsInit());
}

TEST_F(CmtInitTest, RepeatedInitRegistersAgainButLooksTheVmUpOnce) {
    cmt_init::init();
    cmt_init::init();
    EXPECT_EQ(2u, tovr_sim::process_registrations().size());
    EXPECT_EQ(1, fake_jvm::control().lookups);
}

TEST_F(CmtInitTest, TheNameBufferIsZeroFilledBehindTheText) {
    bool zero_filled = false;
    tovr_sim::force("sys_prcm_lib_process_init", [&](const tovr_sim::Params& params) {
        char** arguments = static_cast<char**>(params[1]);
        const char* name = arguments[0];
        zero_filled = std::strcmp(name, "smfstart.sh") == 0;
        for (int i = 11; i < 65025 && zero_filled; ++i) zero_filled = name[i] == 0;
        return 0L;
    });
    EXPECT_EQ(0, cmt_init::mixsInit());
    EXPECT_TRUE(zero_filled);
}

TEST_F(CmtInitTest, NoVmStillRegisters) {
    fake_jvm::control().present = false;
    EXPECT_EQ(0, cmt_init::init());
    EXPECT_EQ(nullptr, CJvm::ms_jvm);
    EXPECT_EQ(1u, tovr_sim::process_registrations().size());
}

}  // namespace
