// The device modules' exported wrapper functions called by their C names, on the host and on
// the PowerPC target: narrowing and widening of numbers, the signed char, one-element output
// arrays and the Java exceptions of refused arguments, in the stand-in VM.
#include <gtest/gtest.h>
#include <jni.h>

#include <string>
#include <vector>

#include "sim_fixture.h"
#include "stand_in_vm.h"
#include "tovr_sim_device.h"
#include "tovr_sim_job.h"

using sim_test::args_of;
using sim_test::Line;

#define SYSW(name) Java_tarnwick_zel_wrapper_device_attribute_CMT_1SystemInformationJNI_##name
#define ICW(name) Java_tarnwick_zel_wrapper_device_attribute_CMT_1ICCardJNI_##name
#define APPW(name) Java_tarnwick_zel_wrapper_appinfo_cmt_1appinfoJNI_##name

extern "C" {
jlong SYSW(new_1CMT_1System_1Info)(JNIEnv*, jclass);
void SYSW(delete_1CMT_1System_1Info)(JNIEnv*, jclass, jlong);
jint SYSW(CMT_1System_1Info_1get_1model_1type)(JNIEnv*, jclass, jlong, jobject, jlongArray);
jint SYSW(CMT_1System_1Info_1get_1count)(JNIEnv*, jclass, jlong, jobject, jlong, jobject, jlongArray);
jint SYSW(CMT_1System_1Info_1get_1machine_1info_1_1SWIG_10)(JNIEnv*, jclass, jlong, jobject, jint, jlong, jlongArray);
jint SYSW(CMT_1System_1Info_1set_1wakeup_1date)(JNIEnv*, jclass, jlong, jobject, jlong, jlong);
jint SYSW(CMT_1System_1Info_1get_1long_1value)(JNIEnv*, jclass, jlong, jobject, jint);
jboolean SYSW(CMT_1System_1Info_1set_1long_1value)(JNIEnv*, jclass, jlong, jobject, jint, jint);
jint SYSW(CMT_1System_1Info_1get_1retcode)(JNIEnv*, jclass, jlong, jobject);
jlong SYSW(new_1ESV_1ZEL_1COUNT_1INFO)(JNIEnv*, jclass);
void SYSW(delete_1ESV_1ZEL_1COUNT_1INFO)(JNIEnv*, jclass, jlong);
void SYSW(ESV_1ZEL_1COUNT_1INFO_1count_1kind_1set)(JNIEnv*, jclass, jlong, jobject, jshort);
jshort SYSW(ESV_1ZEL_1COUNT_1INFO_1count_1kind_1get)(JNIEnv*, jclass, jlong, jobject);
void SYSW(ESV_1ZEL_1COUNT_1INFO_1paper_1size_1set)(JNIEnv*, jclass, jlong, jobject, jshort);
void SYSW(ESV_1ZEL_1COUNT_1INFO_1color_1info_1set)(JNIEnv*, jclass, jlong, jobject, jshort);
jint SYSW(ESV_1ZEL_1MAX_1DOC_1NAME_1get)(JNIEnv*, jclass);
jint SYSW(ESV_1ZEL_1MAX_1NODE_1NAME_1get)(JNIEnv*, jclass);

jint ICW(CMT_1Device_1ICCard_1READER_1UNKNOWN_1get)(JNIEnv*, jclass);
jint ICW(CMT_1Device_1ICCard_1READ_1FELICA_1get)(JNIEnv*, jclass);
jlong ICW(new_1CMT_1Device_1ICCard)(JNIEnv*, jclass);
void ICW(delete_1CMT_1Device_1ICCard)(JNIEnv*, jclass, jlong);
jboolean ICW(CMT_1Device_1ICCard_1setReaderType)(JNIEnv*, jclass, jlong, jobject, jchar);
jint ICW(CMT_1Device_1ICCard_1getTypeCBlockNum)(JNIEnv*, jclass, jlong, jobject, jint, jint);

jlong APPW(new_1cmt_1appinfo_1proxy)(JNIEnv*, jclass);
void APPW(delete_1cmt_1appinfo_1proxy)(JNIEnv*, jclass, jlong);
jint APPW(cmt_1appinfo_1proxy_1get_1value)(JNIEnv*, jclass, jlong, jobject, jint);
jlong APPW(cmt_1appinfo_1proxy_1get_1long_1value)(JNIEnv*, jclass, jlong, jobject, jint);
jint APPW(cmt_1appinfo_1proxy_1set_1value)(JNIEnv*, jclass, jlong, jobject, jint, jint);
}

namespace {

// The elements of a long[] of the stand-in VM.
std::vector<jlong>& longs(jlongArray a) { return stand_in::O(a)->longs; }

class DeviceWrapper : public sim_test::SimDeviceTest {
protected:
    void SetUp() override {
        SimDeviceTest::SetUp();
        info = SYSW(new_1CMT_1System_1Info)(env, nullptr);
    }
    void TearDown() override {
        SYSW(delete_1CMT_1System_1Info)(env, nullptr, info);
        SimDeviceTest::TearDown();
    }
    stand_in::Vm vm{{}};
    JNIEnv* const env = vm.env();
    jlong info = 0;
};

TEST_F(DeviceWrapper, OutputArrayIsZeroExtendedAndOnlyElementZeroWritten) {
    tovr_sim::sysinfo_set_model_type(0xFFFFFFF0u);
    jlongArray out = vm.long_array({5, 6});
    EXPECT_EQ(0, SYSW(CMT_1System_1Info_1get_1model_1type)(env, nullptr, info, nullptr, out));
    EXPECT_EQ((std::vector<jlong>{4294967280LL, 6}), longs(out));
    tovr_sim::force_result("esv_zel_systeminfo_get_model_type", ESV_ZEL_SYSINFO_ERROR);
    EXPECT_EQ(2, SYSW(CMT_1System_1Info_1get_1model_1type)(env, nullptr, info, nullptr, out));
    EXPECT_EQ(0, longs(out)[0]);  // written back also when the call failed
    EXPECT_TRUE(vm.thrown.empty());
}

TEST_F(DeviceWrapper, CountKeepsThirtyTwoBits) {
    tovr_sim::sysinfo_set_count(tovr_sim::kCountKindPrint, 2, 1, 0xFFFFFFFFu);
    jlong c = SYSW(new_1ESV_1ZEL_1COUNT_1INFO)(env, nullptr);
    SYSW(ESV_1ZEL_1COUNT_1INFO_1count_1kind_1set)(env, nullptr, c, nullptr, 0x101);  // low byte 1
    EXPECT_EQ(1, SYSW(ESV_1ZEL_1COUNT_1INFO_1count_1kind_1get)(env, nullptr, c, nullptr));
    SYSW(ESV_1ZEL_1COUNT_1INFO_1paper_1size_1set)(env, nullptr, c, nullptr, 2);
    SYSW(ESV_1ZEL_1COUNT_1INFO_1color_1info_1set)(env, nullptr, c, nullptr, 1);
    jlongArray out = vm.long_array({0});
    EXPECT_EQ(0, SYSW(CMT_1System_1Info_1get_1count)(env, nullptr, info, nullptr, c, nullptr, out));
    EXPECT_EQ(4294967295LL, longs(out)[0]);
    SYSW(ESV_1ZEL_1COUNT_1INFO_1count_1kind_1set)(env, nullptr, 0, nullptr, 1);  // null record: ignored
    SYSW(delete_1ESV_1ZEL_1COUNT_1INFO)(env, nullptr, c);
    SYSW(delete_1ESV_1ZEL_1COUNT_1INFO)(env, nullptr, 0);
}

TEST_F(DeviceWrapper, RefusedArgumentsThrowAndReachNoFacade) {
    jlongArray empty = vm.long_array({});
    EXPECT_EQ(0, SYSW(CMT_1System_1Info_1get_1model_1type)(env, nullptr, info, nullptr, empty));
    EXPECT_EQ(0, SYSW(CMT_1System_1Info_1get_1model_1type)(env, nullptr, info, nullptr, nullptr));
    jlongArray out = vm.long_array({0});
    EXPECT_EQ(0, SYSW(CMT_1System_1Info_1get_1count)(env, nullptr, info, nullptr, 0, nullptr, out));
    EXPECT_EQ((std::vector<std::string>{"java/lang/IndexOutOfBoundsException: Array must contain at least 1 element",
                                        "java/lang/NullPointerException: array null",
                                        "java/lang/NullPointerException: ESV_ZEL_COUNT_INFO & reference is null"}),
              vm.thrown);
    EXPECT_TRUE(tovr_sim::calls().empty());
}

TEST_F(DeviceWrapper, CidAndDateNarrowToThirtyTwoBits) {
    tovr_sim::sysinfo_set_machine_info(3, 5, 9);
    jlongArray out = vm.long_array({0});
    EXPECT_EQ(0, SYSW(CMT_1System_1Info_1get_1machine_1info_1_1SWIG_10)(env, nullptr, info, nullptr, 3, 0x100000005LL,
                                                                        out));
    EXPECT_EQ(9, longs(out)[0]);
    EXPECT_EQ((std::vector<Line>{{3, "get_machine_info,(key = [3], cid = [5], value = [9])"},
                                 {3, "convert_retcode,ESV_ZEL_SYSINFO_OK"}}),
              sim_test::lines_of("cmt_system_info"));
    EXPECT_EQ(2, SYSW(CMT_1System_1Info_1set_1wakeup_1date)(env, nullptr, info, nullptr, 6, 2147483649LL));
    EXPECT_EQ((std::vector<std::string>{"6", "-2147483647"}), args_of("esv_zel_set_wakeup_date")[0]);
}

TEST_F(DeviceWrapper, LongValueIsThirtyTwoBitsSigned) {
    EXPECT_EQ(JNI_TRUE, SYSW(CMT_1System_1Info_1set_1long_1value)(env, nullptr, info, nullptr, 8, -2));
    EXPECT_EQ(-2, SYSW(CMT_1System_1Info_1get_1long_1value)(env, nullptr, info, nullptr, 8));
    EXPECT_EQ(0, SYSW(CMT_1System_1Info_1get_1retcode)(env, nullptr, info, nullptr));
    EXPECT_EQ(256, SYSW(ESV_1ZEL_1MAX_1DOC_1NAME_1get)(env, nullptr));
    EXPECT_EQ(1531, SYSW(ESV_1ZEL_1MAX_1NODE_1NAME_1get)(env, nullptr));
}

TEST_F(DeviceWrapper, ReaderTypeIsSignedOnEveryTarget) {
    jlong card = ICW(new_1CMT_1Device_1ICCard)(env, nullptr);
    EXPECT_EQ(-1, ICW(CMT_1Device_1ICCard_1READER_1UNKNOWN_1get)(env, nullptr));
    EXPECT_EQ(2, ICW(CMT_1Device_1ICCard_1READ_1FELICA_1get)(env, nullptr));
    EXPECT_EQ(JNI_TRUE, ICW(CMT_1Device_1ICCard_1setReaderType)(env, nullptr, card, nullptr, 200));
    EXPECT_EQ((std::vector<Line>{{3, "setReaderType,[Enter] card_device_type = -56"}, {3, "setReaderType,true!!"}}),
              sim_test::lines_of("cmt_device_iccard"));
    EXPECT_EQ((std::vector<std::string>{"200"}), args_of("esv_zel_acc_set_iccard_read_type")[0]);
    EXPECT_EQ(0xC8, tovr_sim::acc_read_type());
    EXPECT_EQ(0, ICW(CMT_1Device_1ICCard_1getTypeCBlockNum)(env, nullptr, card, nullptr, 1, 7));
    ICW(delete_1CMT_1Device_1ICCard)(env, nullptr, card);
    ICW(delete_1CMT_1Device_1ICCard)(env, nullptr, 0);
}

TEST_F(DeviceWrapper, AppInfoValueAsIntAndAsUnsignedLong) {
    jlong p = APPW(new_1cmt_1appinfo_1proxy)(env, nullptr);
    EXPECT_EQ(0, APPW(cmt_1appinfo_1proxy_1set_1value)(env, nullptr, p, nullptr, 4, -1));
    EXPECT_EQ(-1, APPW(cmt_1appinfo_1proxy_1get_1value)(env, nullptr, p, nullptr, 4));
    EXPECT_EQ(4294967295LL, APPW(cmt_1appinfo_1proxy_1get_1long_1value)(env, nullptr, p, nullptr, 4));
    EXPECT_EQ(0, APPW(cmt_1appinfo_1proxy_1get_1value)(env, nullptr, p, nullptr, 5));
    APPW(delete_1cmt_1appinfo_1proxy)(env, nullptr, p);
    APPW(delete_1cmt_1appinfo_1proxy)(env, nullptr, 0);
}

}  // namespace
