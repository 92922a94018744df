// CJvm in a process that runs a real Java VM.
#include "CJvm.h"

#include <dlfcn.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <thread>

using tarnwick::CJvm;

namespace {

JavaVM* g_vm = nullptr;
JNIEnv* g_env = nullptr;
int g_lookups = 0;

// Creates the one VM of this process before any test runs, with the fixture classes on its
// class path and -Xcheck:jni on.
class JvmEnvironment : public ::testing::Environment {
public:
    void SetUp() override {
        std::string classpath = std::string("-Djava.class.path=") + TOVR_TEST_CLASSES;
        JavaVMOption options[2];
        options[0].optionString = const_cast<char*>(classpath.c_str());
        options[1].optionString = const_cast<char*>("-Xcheck:jni");
        JavaVMInitArgs args;
        args.version = JNI_VERSION_1_8;
        args.nOptions = 2;
        args.options = options;
        args.ignoreUnrecognized = JNI_FALSE;
        ASSERT_EQ(JNI_OK, JNI_CreateJavaVM(&g_vm, reinterpret_cast<void**>(&g_env), &args));
    }
};

const auto* const g_environment = ::testing::AddGlobalTestEnvironment(new JvmEnvironment);

std::string captured(void (*fn)()) {
    ::testing::internal::CaptureStdout();
    fn();
    std::fflush(stdout);
    return ::testing::internal::GetCapturedStdout();
}

}  // namespace

// Counts the library's VM lookups; the JVM's own function does the work.
extern "C" JNIEXPORT jint JNICALL JNI_GetCreatedJavaVMs(JavaVM** vms, jsize size, jsize* count) {
    ++g_lookups;
    using Fn = jint (*)(JavaVM**, jsize, jsize*);
    static Fn real = reinterpret_cast<Fn>(dlsym(RTLD_NEXT, "JNI_GetCreatedJavaVMs"));
    return real(vms, size, count);
}

// Declared first: it must see CJvm before anything has run CreateJVM.
TEST(CJvmJvm, GetJNIEnvBeforeCreateJVMIsNull) {
    ASSERT_NE(nullptr, g_vm);
    EXPECT_EQ(nullptr, CJvm::ms_jvm);
    EXPECT_EQ(nullptr, CJvm::GetJNIEnv());
    EXPECT_EQ(0, g_lookups);
}

TEST(CJvmJvm, CreateJVMTwiceLooksUpOnce) {
    CJvm::CreateJVM();
    CJvm::CreateJVM();
    EXPECT_EQ(1, g_lookups);
    EXPECT_EQ(g_vm, CJvm::ms_jvm);
    EXPECT_EQ(g_vm, CJvm::GetJVM());
    EXPECT_EQ(1, g_lookups);
    EXPECT_EQ(g_env, CJvm::GetJNIEnv());
}

TEST(CJvmJvm, GetJNIEnvOnAThreadThatIsNotAttached) {
    CJvm::CreateJVM();
    std::string out;
    JNIEnv* env = reinterpret_cast<JNIEnv*>(1);
    std::thread t([&] {
        out = captured([] { CJvm::GetJNIEnv(); });
        env = CJvm::ms_jnienv;
    });
    t.join();
    EXPECT_EQ("failed to Get JNIEnv\n", out);
    EXPECT_EQ(nullptr, env);
}

TEST(CJvmJvm, CreateJavaObjectByClassName) {
    CJvm::CreateJVM();
    jobject obj = CJvm::CreateJavaObject("tovrtest/Plain");
    ASSERT_NE(nullptr, obj);
    jclass plain = g_env->FindClass("tovrtest/Plain");
    EXPECT_TRUE(g_env->IsInstanceOf(obj, plain));
    g_env->DeleteLocalRef(plain);
    g_env->DeleteLocalRef(obj);
}

TEST(CJvmJvm, CreateJavaObjectWithAnUnknownClassLeavesNoException) {
    CJvm::CreateJVM();
    EXPECT_EQ(nullptr, CJvm::CreateJavaObject("tovrtest/NoSuchClass"));
    EXPECT_FALSE(g_env->ExceptionCheck());
}

TEST(CJvmJvm, CreateJavaObjectWithoutANoArgumentConstructor) {
    CJvm::CreateJVM();
    EXPECT_EQ(nullptr, CJvm::CreateJavaObject("tovrtest/NoDefaultConstructor"));
    EXPECT_FALSE(g_env->ExceptionCheck());
}

// A new object of `cls` (null if there is none) handed to ReleaseJObject; the caller still
// holds its local reference.
jobject created_and_released(const char* cls) {
    CJvm::CreateJVM();
    jobject obj = CJvm::CreateJavaObject(cls);
    if (obj != nullptr) CJvm::ReleaseJObject(obj);
    return obj;
}

TEST(CJvmJvm, ReleaseJObjectCallsRelease) {
    jobject obj = created_and_released("tovrtest/Releasable");
    ASSERT_NE(nullptr, obj);
    EXPECT_FALSE(g_env->ExceptionCheck());
    jclass cls = g_env->FindClass("tovrtest/Releasable");
    jfieldID released = g_env->GetStaticFieldID(cls, "released", "I");
    EXPECT_EQ(1, g_env->GetStaticIntField(cls, released));
    g_env->DeleteLocalRef(cls);
    g_env->DeleteLocalRef(obj);
}

TEST(CJvmJvm, ReleaseJObjectWithoutReleaseLeavesNoException) {
    jobject obj = created_and_released("tovrtest/Plain");
    ASSERT_NE(nullptr, obj);
    EXPECT_FALSE(g_env->ExceptionCheck());
    g_env->DeleteLocalRef(obj);
}

TEST(CJvmJvm, ReleaseJObjectLeavesTheExceptionOfReleasePending) {
    jobject obj = created_and_released("tovrtest/ThrowingRelease");
    ASSERT_NE(nullptr, obj);
    ASSERT_TRUE(g_env->ExceptionCheck());
    jthrowable thrown = g_env->ExceptionOccurred();
    g_env->ExceptionClear();
    jclass expected = g_env->FindClass("java/lang/IllegalStateException");
    EXPECT_TRUE(g_env->IsInstanceOf(thrown, expected));
    jclass throwable = g_env->FindClass("java/lang/Throwable");
    jmethodID get_message = g_env->GetMethodID(throwable, "getMessage", "()Ljava/lang/String;");
    jstring message = static_cast<jstring>(g_env->CallObjectMethod(thrown, get_message));
    ASSERT_FALSE(g_env->ExceptionCheck());
    const char* chars = g_env->GetStringUTFChars(message, nullptr);
    EXPECT_STREQ("release failed", chars);
    g_env->ReleaseStringUTFChars(message, chars);
    g_env->DeleteLocalRef(message);
    g_env->DeleteLocalRef(throwable);
    g_env->DeleteLocalRef(expected);
    g_env->DeleteLocalRef(thrown);
    g_env->DeleteLocalRef(obj);
}

TEST(CJvmJvm, DestroyJVMWithoutAVmReturnsZero) {
    JavaVM* kept = CJvm::ms_jvm;
    CJvm::ms_jvm = nullptr;
    EXPECT_EQ(0, CJvm::DestroyJVM());
    EXPECT_EQ(nullptr, CJvm::GetJNIEnv());
    CJvm::ms_jvm = kept;
}

// Declared last: it ends the process's VM.
TEST(CJvmJvm, DestroyJVMDestroysTheVmAndForgetsIt) {
    CJvm::CreateJVM();
    ASSERT_EQ(g_vm, CJvm::ms_jvm);
    EXPECT_EQ(JNI_OK, CJvm::DestroyJVM());
    EXPECT_EQ(nullptr, CJvm::ms_jvm);
    EXPECT_EQ(nullptr, CJvm::GetJNIEnv());
    EXPECT_EQ(0, CJvm::DestroyJVM());
    EXPECT_EQ(0, CJvm::DetachThread());
}
