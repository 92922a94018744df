// The JNI toolkit's parts that need no Java: the attach scope, against the stand-in VM.
#include "tovr_jni.h"

#include <gtest/gtest.h>

#include "fake_jvm.h"

namespace jni = tarnwick::jni;

namespace {

using fake_jvm::kSomeEnv;

using ToolkitTest = fake_jvm::FakeVmTest;

}  // namespace

TEST_F(ToolkitTest, AttachScopeUsesTheThreadsOwnEnvironmentWhenAttached) {
    {
        jni::AttachScope scope(fake_jvm::vm());
        EXPECT_EQ(kSomeEnv, scope.env());
        EXPECT_EQ(tarnwick::kJniVersion, fake_jvm::control().last_get_env_version);
    }
    EXPECT_EQ(0, fake_jvm::control().attaches);
    EXPECT_EQ(0, fake_jvm::control().detaches);
}

TEST_F(ToolkitTest, AttachScopeAttachesAThreadTheVmHasNotSeenForItsLengthOnly) {
    fake_jvm::control().get_env_result = JNI_EDETACHED;
    {
        jni::AttachScope scope(fake_jvm::vm());
        EXPECT_EQ(kSomeEnv, scope.env());
        EXPECT_EQ(1, fake_jvm::control().attaches);
        EXPECT_EQ(0, fake_jvm::control().detaches);
    }
    EXPECT_EQ(1, fake_jvm::control().detaches);
}

TEST_F(ToolkitTest, AttachScopeWhoseAttachIsRefusedHasNoEnvironmentAndDetachesNothing) {
    fake_jvm::control().get_env_result = JNI_EDETACHED;
    fake_jvm::control().attach_result = JNI_ERR;
    {
        jni::AttachScope scope(fake_jvm::vm());
        EXPECT_EQ(nullptr, scope.env());
        EXPECT_EQ(JNI_OK, scope.detach());
    }
    EXPECT_EQ(1, fake_jvm::control().attaches);
    EXPECT_EQ(0, fake_jvm::control().detaches);
}

TEST_F(ToolkitTest, AlwaysAttachesAndDetachesWhateverTheThreadsState) {
    {
        jni::AttachScope scope(fake_jvm::vm(), jni::AttachScope::kAlways);
        EXPECT_EQ(kSomeEnv, scope.env());
        EXPECT_EQ(1, fake_jvm::control().attaches);
        EXPECT_EQ(0, fake_jvm::control().last_get_env_version);  // GetEnv is not asked
    }
    EXPECT_EQ(1, fake_jvm::control().detaches);
}

TEST_F(ToolkitTest, AnEarlyDetachAnswersTheVmsResultOnceAndTheScopeEndsWithoutAnother) {
    fake_jvm::control().detach_result = JNI_ERR;
    {
        jni::AttachScope scope(fake_jvm::vm(), jni::AttachScope::kAlways);
        EXPECT_EQ(JNI_ERR, scope.detach());
        EXPECT_EQ(nullptr, scope.env());
        EXPECT_EQ(JNI_OK, scope.detach());
    }
    EXPECT_EQ(1, fake_jvm::control().detaches);
}

TEST_F(ToolkitTest, AlwaysWithARefusedAttachDetachesNothing) {
    fake_jvm::control().attach_result = JNI_ERR;
    {
        jni::AttachScope scope(fake_jvm::vm(), jni::AttachScope::kAlways);
        EXPECT_EQ(nullptr, scope.env());
    }
    EXPECT_EQ(1, fake_jvm::control().attaches);
    EXPECT_EQ(0, fake_jvm::control().detaches);
}

TEST_F(ToolkitTest, WithoutAVmNothingIsAttachedOrDetached) {
    {
        jni::AttachScope scope(nullptr, jni::AttachScope::kAlways);
        EXPECT_EQ(nullptr, scope.env());
        jni::AttachScope other(nullptr);
        EXPECT_EQ(nullptr, other.env());
    }
    EXPECT_EQ(0, fake_jvm::control().attaches);
    EXPECT_EQ(0, fake_jvm::control().detaches);
}
