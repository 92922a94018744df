// The JNI toolkit's parts that need no Java: a notification's attach and detach, and the
// observers' thread helpers, against the stand-in VM.
#include "tovr_jni.h"

#include <gtest/gtest.h>

#include "fake_jvm.h"

namespace jni = tarnwick::jni;

namespace {

JNIEnv* const kSomeEnv = reinterpret_cast<JNIEnv*>(0x1000);

struct StubObserver {
    bool attach_ok = true;
    int attaches = 0;
    int detaches = 0;
    JNIEnv* thread_attach() {
        ++attaches;
        return attach_ok ? kSomeEnv : nullptr;
    }
    int thread_detach() {
        ++detaches;
        return JNI_OK;
    }
};

class ToolkitTest : public ::testing::Test {
protected:
    void SetUp() override {
        fake_jvm::reset();
        fake_jvm::control().env = kSomeEnv;
    }
    void TearDown() override { fake_jvm::reset(); }
};

}  // namespace

TEST_F(ToolkitTest, NotificationDetachesOnceWhenItsScopeEnds) {
    StubObserver observer;
    {
        jni::Notification call(observer, 7L);
        EXPECT_TRUE(call.attached());
        EXPECT_EQ(kSomeEnv, call.env());
        EXPECT_EQ(0, observer.detaches);
    }
    EXPECT_EQ(1, observer.attaches);
    EXPECT_EQ(1, observer.detaches);
}

TEST_F(ToolkitTest, NotificationWhoseAttachFailedDoesNotDetach) {
    StubObserver observer;
    observer.attach_ok = false;
    {
        jni::Notification call(observer, 7L);
        EXPECT_FALSE(call.attached());
        EXPECT_EQ(nullptr, call.env());
    }
    EXPECT_EQ(1, observer.attaches);
    EXPECT_EQ(0, observer.detaches);
}

TEST_F(ToolkitTest, AttachThreadFillsTheEnvironment) {
    JNIEnv* env = nullptr;
    EXPECT_TRUE(jni::attach_thread(fake_jvm::vm(), &env));
    EXPECT_EQ(kSomeEnv, env);
    EXPECT_EQ(JNI_OK, jni::detach_thread(fake_jvm::vm()));
    EXPECT_EQ(1, fake_jvm::control().attaches);
    EXPECT_EQ(1, fake_jvm::control().detaches);
}

TEST_F(ToolkitTest, WithoutAVmNothingIsAttachedOrDetached) {
    JNIEnv* env = nullptr;
    EXPECT_FALSE(jni::attach_thread(nullptr, &env));
    EXPECT_EQ(JNI_ERR, jni::detach_thread(nullptr));
    EXPECT_EQ(nullptr, jni::calling_thread_env(nullptr));
    EXPECT_EQ(0, fake_jvm::control().attaches);
}

TEST_F(ToolkitTest, AttachThreadEnvAnswersTheEnvironmentAndStoresItInTheMember) {
    JNIEnv* member = nullptr;
    EXPECT_EQ(kSomeEnv, jni::attach_thread_env(fake_jvm::vm(), &member));
    EXPECT_EQ(kSomeEnv, member);
    fake_jvm::control().attach_result = JNI_ERR;
    JNIEnv* untouched = kSomeEnv;
    EXPECT_EQ(nullptr, jni::attach_thread_env(fake_jvm::vm(), &untouched));
    EXPECT_EQ(kSomeEnv, untouched);
}

TEST_F(ToolkitTest, AttachFailureIsReported) {
    fake_jvm::control().attach_result = JNI_ERR;
    JNIEnv* env = nullptr;
    EXPECT_FALSE(jni::attach_thread(fake_jvm::vm(), &env));
}

TEST_F(ToolkitTest, CallingThreadEnvUsesTheThreadsOwnEnvironmentWhenAttached) {
    EXPECT_EQ(kSomeEnv, jni::calling_thread_env(fake_jvm::vm()));
    EXPECT_EQ(tarnwick::kJniVersion, fake_jvm::control().last_get_env_version);
    EXPECT_EQ(0, fake_jvm::control().attaches);
}

TEST_F(ToolkitTest, CallingThreadEnvAttachesAThreadTheVmHasNotSeenAndLeavesItAttached) {
    fake_jvm::control().get_env_result = JNI_EDETACHED;
    EXPECT_EQ(kSomeEnv, jni::calling_thread_env(fake_jvm::vm()));
    EXPECT_EQ(1, fake_jvm::control().attaches);
    EXPECT_EQ(0, fake_jvm::control().detaches);
    fake_jvm::control().attach_result = JNI_ERR;
    EXPECT_EQ(nullptr, jni::calling_thread_env(fake_jvm::vm()));
}
