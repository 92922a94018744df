// A stand-in Java VM for native tests that run without a JVM (the PowerPC target under qemu has
// none). The test binary defines JNI_GetCreatedJavaVMs, so the library finds this VM instead.
#ifndef TOVR_TESTS_FAKE_JVM_H
#define TOVR_TESTS_FAKE_JVM_H

#include <gtest/gtest.h>
#include <jni.h>

namespace fake_jvm {

struct Control {
    bool present = true;      // JNI_GetCreatedJavaVMs reports a VM
    int lookups = 0;          // JNI_GetCreatedJavaVMs calls
    jint get_env_result = JNI_OK;
    JNIEnv* env = nullptr;    // what GetEnv / AttachCurrentThread hand out
    jint attach_result = JNI_OK;
    int attaches = 0;
    int detaches = 0;
    jint detach_result = JNI_OK;
    jint destroy_result = JNI_OK;
    int destroys = 0;
    jint last_get_env_version = 0;
    JavaVM* other_vm = nullptr;  // when set, JNI_GetCreatedJavaVMs reports this VM instead
};

Control& control();
JavaVM* vm();
// Back to a present VM with every counter at 0.
void reset();

// An environment the fake VM hands out and no test dereferences.
JNIEnv* const kSomeEnv = reinterpret_cast<JNIEnv*>(0x1000);

// A test on a present fake VM that hands out kSomeEnv, back to its initial state afterwards.
class FakeVmTest : public ::testing::Test {
protected:
    void SetUp() override {
        reset();
        control().env = kSomeEnv;
    }
    void TearDown() override { reset(); }
};

}  // namespace fake_jvm

#endif
