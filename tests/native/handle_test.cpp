// Handles and wrapper functions as the device sees them. Functions that need no Java step are
// called with a null JNIEnv, as a module's static native would be by a VM we do not have here.
#include <gtest/gtest.h>
#include <jni.h>

#include <cstdint>
#include <cstring>

#include "cmt_time.h"

extern "C" {
jlong Java_tarnwick_zel_wrapper_system_cmt_1commonJNI_new_1cmt_1time_1_1SWIG_11(JNIEnv*, jclass, jlong);
jlong Java_tarnwick_zel_wrapper_system_cmt_1commonJNI_new_1cmt_1time_1_1SWIG_10(JNIEnv*, jclass);
void Java_tarnwick_zel_wrapper_system_cmt_1commonJNI_delete_1cmt_1time(JNIEnv*, jclass, jlong);
jint Java_tarnwick_zel_wrapper_system_cmt_1commonJNI_cmt_1time_1getYear(JNIEnv*, jclass, jlong, jobject);
jint Java_tarnwick_zel_wrapper_system_cmt_1commonJNI_cmt_1time_1getDate(JNIEnv*, jclass, jlong, jobject);
jlong Java_tarnwick_zel_wrapper_system_cmt_1commonJNI_new_1cmt_1init(JNIEnv*, jclass);
void Java_tarnwick_zel_wrapper_system_cmt_1commonJNI_delete_1cmt_1init(JNIEnv*, jclass, jlong);
}

namespace {

constexpr bool kBigEndian = __BYTE_ORDER__ == __ORDER_BIG_ENDIAN__;

// The object's address sits in the first four (ILP32) or eight bytes of the handle.
void* address_of(jlong handle) {
    void* p = nullptr;
    std::memcpy(&p, &handle, sizeof p);
    return p;
}

TEST(Handle, HoldsTheAddressInItsFirstBytes) {
    jlong h = Java_tarnwick_zel_wrapper_system_cmt_1commonJNI_new_1cmt_1time_1_1SWIG_11(nullptr, nullptr, 86400);
    ASSERT_NE(0, h);
    auto* t = static_cast<tarnwick::cmt_time*>(address_of(h));
    EXPECT_EQ(2, t->getDate());
    EXPECT_EQ(1970, Java_tarnwick_zel_wrapper_system_cmt_1commonJNI_cmt_1time_1getYear(nullptr, nullptr, h, nullptr));
    Java_tarnwick_zel_wrapper_system_cmt_1commonJNI_delete_1cmt_1time(nullptr, nullptr, h);
}

TEST(Handle, OnTheDeviceTheLowHalfIsZero) {
    if (sizeof(void*) != 4 || !kBigEndian) GTEST_SKIP() << "a 32-bit big-endian property";
    for (int i = 0; i < 8; ++i) {
        jlong h = Java_tarnwick_zel_wrapper_system_cmt_1commonJNI_new_1cmt_1init(nullptr, nullptr);
        ASSERT_NE(0, h);
        EXPECT_EQ(0u, static_cast<std::uint64_t>(h) & 0xFFFFFFFFu);
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(address_of(h)),
                  static_cast<std::uintptr_t>(static_cast<std::uint64_t>(h) >> 32));
        Java_tarnwick_zel_wrapper_system_cmt_1commonJNI_delete_1cmt_1init(nullptr, nullptr, h);
    }
}

TEST(Handle, AHighHalfOfZeroIsNullOnTheDevice) {
    if (sizeof(void*) != 4 || !kBigEndian) GTEST_SKIP() << "a 32-bit big-endian property";
    EXPECT_EQ(nullptr, address_of(static_cast<jlong>(0x12345678)));
    Java_tarnwick_zel_wrapper_system_cmt_1commonJNI_delete_1cmt_1time(nullptr, nullptr, 0x12345678);
}

TEST(Handle, DeleteOfNullDoesNothing) {
    Java_tarnwick_zel_wrapper_system_cmt_1commonJNI_delete_1cmt_1time(nullptr, nullptr, 0);
    Java_tarnwick_zel_wrapper_system_cmt_1commonJNI_delete_1cmt_1init(nullptr, nullptr, 0);
}

TEST(Handle, OnlyTheLow32BitsOfTheTimeArePassed) {
    jlong h = Java_tarnwick_zel_wrapper_system_cmt_1commonJNI_new_1cmt_1time_1_1SWIG_11(
        nullptr, nullptr, 4294967296LL + 86400);
    EXPECT_EQ(2, Java_tarnwick_zel_wrapper_system_cmt_1commonJNI_cmt_1time_1getDate(nullptr, nullptr, h, nullptr));
    Java_tarnwick_zel_wrapper_system_cmt_1commonJNI_delete_1cmt_1time(nullptr, nullptr, h);
}

TEST(Abi, TargetModel) {
    if (sizeof(void*) == 4) {
        EXPECT_EQ(4u, sizeof(long));
        EXPECT_TRUE(kBigEndian);
    }
    EXPECT_EQ(8u, sizeof(jlong));
}

}  // namespace
