// The JNI toolkit against the real VM of this process (created by cjvm_jvm_test.cpp's
// environment, with -Xcheck:jni on).
#include "tovr_jni.h"

#include <gtest/gtest.h>

#include <thread>

#include "jvm_env.h"

namespace jni = tarnwick::jni;

namespace {

using ToolkitJvm = jvm_test::ThreadEnvTest;

}  // namespace

TEST_F(ToolkitJvm, GlobalClassMissingLeavesNothingPendingAndResetWithAnEnvDeletesTheReference) {
    jni::GlobalClass missing;
    EXPECT_FALSE(missing.find(env, "tovrtest/NoSuchClass"));
    EXPECT_FALSE(missing);
    EXPECT_FALSE(env->ExceptionCheck());

    jni::GlobalClass plain;
    ASSERT_TRUE(plain.find(env, "tovrtest/Plain"));
    EXPECT_EQ(JNIGlobalRefType, env->GetObjectRefType(plain.get()));
    plain.reset(env);
    EXPECT_FALSE(plain);
    plain.reset(env);  // a second reset has nothing left to delete
}

TEST_F(ToolkitJvm, ArrayElementsReleasedEarlyAreCopiedBackOnce) {
    jni::LocalRef<jintArray> array(env, env->NewIntArray(3));
    ASSERT_TRUE(array);
    {
        jni::IntElements elements(env, array.get());
        ASSERT_TRUE(elements);
        EXPECT_EQ(3, elements.size());
        elements.get()[1] = 7;
        elements.release();
        EXPECT_FALSE(elements);
        jint region[3] = {-1, -1, -1};
        env->GetIntArrayRegion(array.get(), 0, 3, region);
        EXPECT_EQ(0, region[0]);
        EXPECT_EQ(7, region[1]);
    }  // nothing is released a second time
    EXPECT_FALSE(env->ExceptionCheck());
}

TEST_F(ToolkitJvm, AttachScopeOnAThreadTheVmHasNotSeenAttachesItForItsLengthOnly) {
    JavaVM* vm = nullptr;
    jsize count = 0;
    ASSERT_EQ(JNI_OK, JNI_GetCreatedJavaVMs(&vm, 1, &count));
    ASSERT_EQ(1, count);
    jint before = JNI_OK, inside = JNI_ERR, after = JNI_OK;
    bool made_a_string = false;
    std::thread device([&] {
        JNIEnv* env = nullptr;
        before = vm->GetEnv(reinterpret_cast<void**>(&env), tarnwick::kJniVersion);
        {
            jni::AttachScope scope(vm);
            ASSERT_NE(nullptr, scope.env());
            inside = vm->GetEnv(reinterpret_cast<void**>(&env), tarnwick::kJniVersion);
            jni::LocalRef<jstring> s(scope.env(), scope.env()->NewStringUTF("device"));
            made_a_string = static_cast<bool>(s);
        }
        after = vm->GetEnv(reinterpret_cast<void**>(&env), tarnwick::kJniVersion);
    });
    device.join();
    EXPECT_EQ(JNI_EDETACHED, before);
    EXPECT_EQ(JNI_OK, inside);
    EXPECT_TRUE(made_a_string);
    EXPECT_EQ(JNI_EDETACHED, after);
}
