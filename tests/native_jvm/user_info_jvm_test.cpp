// The user-object builder against a real VM: a thread the VM does not know, and a user class
// the VM cannot find (this process's class path has no framework classes).
#include <gtest/gtest.h>
#include <jni.h>

#include <thread>

#include "CJvm.h"
#include "zel_fnd_user_info.h"

using tarnwick::CJvm;
using tarnwick::zel_fnd_user_info;

TEST(UserInfoJvm, ABuilderMadeOnAThreadWithoutEnvironmentCreatesNothing) {
    CJvm::CreateJVM();
    ASSERT_NE(nullptr, CJvm::ms_jvm);
    jobject made = reinterpret_cast<jobject>(&made);
    std::thread t([&made] {
        zel_fnd_user_info builder;
        made = builder.create_user_info();
    });
    t.join();
    EXPECT_EQ(nullptr, made);
}

TEST(UserInfoJvm, AMissingUserClassIsLeftPendingForTheJavaCaller) {
    CJvm::CreateJVM();
    JNIEnv* env = CJvm::GetJNIEnv();
    ASSERT_NE(nullptr, env);
    {
        zel_fnd_user_info builder;
        ASSERT_TRUE(env->ExceptionCheck());
        jthrowable pending = env->ExceptionOccurred();
        env->ExceptionClear();
        jclass no_class = env->FindClass("java/lang/NoClassDefFoundError");
        EXPECT_TRUE(env->IsInstanceOf(pending, no_class));
        env->DeleteLocalRef(no_class);
        env->DeleteLocalRef(pending);
        EXPECT_EQ(nullptr, builder.create_user_info());
        EXPECT_FALSE(env->ExceptionCheck());
    }
    EXPECT_FALSE(env->ExceptionCheck());
}
