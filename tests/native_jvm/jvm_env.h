// The real VM of this test process (created by cjvm_jvm_test.cpp's environment), as the tests
// that call it directly reach it.
#ifndef TOVR_TESTS_JVM_ENV_H
#define TOVR_TESTS_JVM_ENV_H

#include <gtest/gtest.h>
#include <jni.h>

#include "CJvm.h"

namespace jvm_test {

// The process's VM, or null.
inline JavaVM* the_vm() {
    JavaVM* vm = nullptr;
    jsize count = 0;
    if (JNI_GetCreatedJavaVMs(&vm, 1, &count) != JNI_OK || count != 1) return nullptr;
    return vm;
}

// The calling thread's environment, or null when the thread is not attached.
inline JNIEnv* env_of_this_thread() {
    JavaVM* vm = the_vm();
    JNIEnv* env = nullptr;
    if (vm == nullptr || vm->GetEnv(reinterpret_cast<void**>(&env), tarnwick::kJniVersion) != JNI_OK) return nullptr;
    return env;
}

// A test on the calling thread's environment, which must be there.
class ThreadEnvTest : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_NE(nullptr, env); }
    JNIEnv* const env = env_of_this_thread();
};

}  // namespace jvm_test

#endif
