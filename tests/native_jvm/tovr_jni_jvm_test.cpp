// The JNI toolkit against the real VM of this process (created by cjvm_jvm_test.cpp's
// environment, with -Xcheck:jni on).
#include "tovr_jni.h"

#include <gtest/gtest.h>

#include <string>

namespace jni = tarnwick::jni;

namespace {

JNIEnv* env_of_this_thread() {
    JavaVM* vm = nullptr;
    jsize count = 0;
    if (JNI_GetCreatedJavaVMs(&vm, 1, &count) != JNI_OK || count != 1) return nullptr;
    JNIEnv* env = nullptr;
    if (vm->GetEnv(reinterpret_cast<void**>(&env), tarnwick::kJniVersion) != JNI_OK) return nullptr;
    return env;
}

std::string utf(JNIEnv* env, jstring s) {
    jni::UtfChars chars(env, s);
    return chars ? std::string(chars.c_str()) : std::string("<null>");
}

// Stands for an observer: the thread is the test's own, already attached, so attach and detach
// only count.
struct CountingObserver {
    JNIEnv* env = nullptr;
    int attaches = 0;
    int detaches = 0;
    JNIEnv* thread_attach() {
        ++attaches;
        return env;
    }
    int thread_detach() {
        ++detaches;
        return JNI_OK;
    }
};

}  // namespace

TEST(ToolkitJvm, StringOfAFieldStopsAtItsEndWhenUnterminated) {
    JNIEnv* env = env_of_this_thread();
    ASSERT_NE(nullptr, env);
    const char full[4] = {'a', 'b', 'c', 'd'};
    jni::LocalRef<jstring> s(env, jni::new_string_of_field(env, full));
    ASSERT_TRUE(s);
    EXPECT_EQ("abcd", utf(env, s.get()));
    const char shorter[4] = {'x', '\0', 'y', 'z'};
    jni::LocalRef<jstring> t(env, jni::new_string_of_field(env, shorter));
    EXPECT_EQ("x", utf(env, t.get()));
}

TEST(ToolkitJvm, StaticMethodLookupStopsAtTheFirstMissingOne) {
    JNIEnv* env = env_of_this_thread();
    ASSERT_NE(nullptr, env);
    jni::GlobalClass integer;
    ASSERT_TRUE(integer.find(env, "java/lang/Integer"));
    jmethodID parse = nullptr, missing = nullptr, value_of = nullptr;
    const jni::StaticMethod methods[] = {
        {&integer, "parseInt", "(Ljava/lang/String;)I", &parse},
        {&integer, "noSuchMethod", "()V", &missing},
        {&integer, "valueOf", "(I)Ljava/lang/Integer;", &value_of},
    };
    EXPECT_FALSE(jni::lookup_static_methods(env, methods));
    EXPECT_NE(nullptr, parse);
    EXPECT_EQ(nullptr, missing);
    EXPECT_EQ(nullptr, value_of);  // not looked up after the missing one
    EXPECT_FALSE(env->ExceptionCheck());

    const jni::StaticMethod present[] = {
        {&integer, "valueOf", "(I)Ljava/lang/Integer;", &value_of},
    };
    EXPECT_TRUE(jni::lookup_static_methods(env, present));
    EXPECT_NE(nullptr, value_of);
}

TEST(ToolkitJvm, GlobalClassMissingLeavesNothingPendingAndResetWithAnEnvDeletesTheReference) {
    JNIEnv* env = env_of_this_thread();
    ASSERT_NE(nullptr, env);
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

TEST(ToolkitJvm, ArrayElementsReleasedEarlyAreCopiedBackOnce) {
    JNIEnv* env = env_of_this_thread();
    ASSERT_NE(nullptr, env);
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

TEST(ToolkitJvm, NotificationFailDescribesAndClearsTheExceptionAndAnswersTheFailureCode) {
    JNIEnv* env = env_of_this_thread();
    ASSERT_NE(nullptr, env);
    CountingObserver observer;
    observer.env = env;
    {
        jni::Notification call(observer, 0x04010A05);
        ASSERT_TRUE(call.attached());
        jni::LocalRef<jclass> runtime(env, env->FindClass("java/lang/RuntimeException"));
        ASSERT_TRUE(runtime);
        env->ThrowNew(runtime.get(), "thrown by the test");
        ::testing::internal::CaptureStderr();
        EXPECT_EQ(0x04010A05, call.fail());
        const std::string described = ::testing::internal::GetCapturedStderr();
        EXPECT_FALSE(env->ExceptionCheck());
        EXPECT_NE(std::string::npos, described.find("thrown by the test")) << described;
        EXPECT_EQ(0, observer.detaches);
        // Without a pending exception fail() only answers the code.
        EXPECT_EQ(0x04010A05, call.fail());
    }
    EXPECT_EQ(1, observer.attaches);
    EXPECT_EQ(1, observer.detaches);
}
