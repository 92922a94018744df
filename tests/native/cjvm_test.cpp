// CJvm against the stand-in VM: the parts that need no real Java.
#include "CJvm.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cstdint>
#include <cstdio>
#include <thread>
#include <vector>

#include "fake_jvm.h"

using tarnwick::CJvm;

namespace {

using fake_jvm::kSomeEnv;

class CJvmTest : public fake_jvm::FakeVmTest {
protected:
    void SetUp() override {
        FakeVmTest::SetUp();
        CJvm::ms_jvm = nullptr;
        CJvm::ms_jnienv = nullptr;
    }
    void TearDown() override {
        CJvm::ms_jvm = nullptr;
        CJvm::ms_jnienv = nullptr;
        FakeVmTest::TearDown();
    }
    static std::string stdout_of(void (*fn)()) {
        ::testing::internal::CaptureStdout();
        fn();
        std::fflush(stdout);
        return ::testing::internal::GetCapturedStdout();
    }
};

TEST_F(CJvmTest, GetJNIEnvBeforeCreateJVMIsNullEvenWithAVm) {
    EXPECT_EQ(nullptr, CJvm::GetJNIEnv());
    EXPECT_EQ(0, fake_jvm::control().lookups);
}

TEST_F(CJvmTest, CreateJVMLooksUpOnce) {
    CJvm::CreateJVM();
    CJvm::CreateJVM();
    EXPECT_EQ(1, fake_jvm::control().lookups);
    EXPECT_EQ(fake_jvm::vm(), CJvm::ms_jvm);
    EXPECT_EQ(fake_jvm::vm(), CJvm::GetJVM());
    EXPECT_EQ(1, fake_jvm::control().lookups);
}

TEST_F(CJvmTest, GetJVMLooksUpLazilyAndGivesNullWithoutAVm) {
    fake_jvm::control().present = false;
    EXPECT_EQ(nullptr, CJvm::GetJVM());
    EXPECT_EQ(1, fake_jvm::control().lookups);
    fake_jvm::control().present = true;
    EXPECT_EQ(fake_jvm::vm(), CJvm::GetJVM());
}

TEST_F(CJvmTest, GetJNIEnvAsksForVersion12AndSharesTheResult) {
    CJvm::CreateJVM();
    EXPECT_EQ(kSomeEnv, CJvm::GetJNIEnv());
    EXPECT_EQ(0x10002, fake_jvm::control().last_get_env_version);
    EXPECT_EQ(kSomeEnv, CJvm::ms_jnienv);
    EXPECT_EQ(0, fake_jvm::control().attaches);  // never attaches
}

TEST_F(CJvmTest, GetJNIEnvVersionRefused) {
    CJvm::CreateJVM();
    fake_jvm::control().get_env_result = JNI_EVERSION;
    JNIEnv* env = kSomeEnv;
    std::string out = stdout_of([] { CJvm::GetJNIEnv(); });
    EXPECT_EQ("JNI VERSION ERROR\n", out);
    env = CJvm::ms_jnienv;
    EXPECT_EQ(nullptr, env);
}

TEST_F(CJvmTest, GetJNIEnvOnADetachedThread) {
    CJvm::CreateJVM();
    fake_jvm::control().get_env_result = JNI_EDETACHED;
    EXPECT_EQ("failed to Get JNIEnv\n", stdout_of([] { CJvm::GetJNIEnv(); }));
    EXPECT_EQ(nullptr, CJvm::ms_jnienv);
    fake_jvm::control().get_env_result = JNI_ERR;
    EXPECT_EQ("failed to Get JNIEnv\n", stdout_of([] { CJvm::GetJNIEnv(); }));
}

TEST_F(CJvmTest, DestroyJVMWithoutAVmReturnsZero) {
    EXPECT_EQ(0, CJvm::DestroyJVM());
    EXPECT_EQ(0, fake_jvm::control().destroys);
}

TEST_F(CJvmTest, DestroyJVMForgetsTheVmWhateverTheResult) {
    CJvm::CreateJVM();
    fake_jvm::control().destroy_result = JNI_ERR;
    EXPECT_EQ(JNI_ERR, CJvm::DestroyJVM());
    EXPECT_EQ(nullptr, CJvm::ms_jvm);
    EXPECT_EQ(nullptr, CJvm::GetJNIEnv());
    CJvm::CreateJVM();
    EXPECT_EQ(2, fake_jvm::control().lookups);
    EXPECT_EQ(kSomeEnv, CJvm::GetJNIEnv());
}

TEST_F(CJvmTest, DetachThread) {
    EXPECT_EQ(0, CJvm::DetachThread());
    EXPECT_EQ(0, fake_jvm::control().detaches);
    CJvm::CreateJVM();
    fake_jvm::control().detach_result = JNI_EDETACHED;
    EXPECT_EQ(JNI_EDETACHED, CJvm::DetachThread());
    EXPECT_EQ(1, fake_jvm::control().detaches);
}

TEST_F(CJvmTest, JavaObjectServicesDoNothingWithoutAnEnvironment) {
    EXPECT_EQ(nullptr, CJvm::CreateJavaObject("java/lang/Object"));
    CJvm::ReleaseJObject(nullptr);  // must not touch a JNIEnv
    CJvm::CreateJVM();
    fake_jvm::control().get_env_result = JNI_EDETACHED;
    ::testing::internal::CaptureStdout();
    EXPECT_EQ(nullptr, CJvm::CreateJavaObject("java/lang/Object"));
    CJvm::ReleaseJObject(nullptr);
    std::fflush(stdout);
    EXPECT_EQ("failed to Get JNIEnv\nfailed to Get JNIEnv\n", ::testing::internal::GetCapturedStdout());
}

// A VM whose GetEnv hands each thread an environment of its own. Right after it has stored the
// environment, `after_store` runs: it plays another thread's GetJNIEnv overwriting the shared
// variable in the window between the VM's store and the caller's return.
struct PerThreadVm {
    static thread_local JNIEnv* own;
    static void (*after_store)();
    static jint JNICALL get_env(JavaVM*, void** penv, jint) {
        *penv = own;
        if (after_store != nullptr) after_store();
        return JNI_OK;
    }
    JNIInvokeInterface_ functions{};
    JavaVM vm{};
    PerThreadVm() {
        functions.GetEnv = get_env;
        vm.functions = &functions;
    }
};
thread_local JNIEnv* PerThreadVm::own = nullptr;
void (*PerThreadVm::after_store)() = nullptr;

JNIEnv* const kOtherThreadsEnv = reinterpret_cast<JNIEnv*>(0x2000);

TEST_F(CJvmTest, GetJNIEnvReturnsItsOwnEnvironmentEvenWhenTheSharedOneIsOverwritten) {
    PerThreadVm vm;
    CJvm::ms_jvm = &vm.vm;
    PerThreadVm::own = kSomeEnv;
    PerThreadVm::after_store = [] { CJvm::ms_jnienv = kOtherThreadsEnv; };
    EXPECT_EQ(kSomeEnv, CJvm::GetJNIEnv());
    PerThreadVm::after_store = nullptr;
    // Still one shared variable, written by every call.
    EXPECT_EQ(kSomeEnv, CJvm::ms_jnienv);
}

TEST_F(CJvmTest, GetJNIEnvOnManyThreadsGivesEachItsOwn) {
    PerThreadVm vm;
    CJvm::ms_jvm = &vm.vm;
    std::atomic<int> wrong{0};
    std::vector<std::thread> threads;
    for (int t = 1; t <= 4; ++t) {
        threads.emplace_back([t, &wrong] {
            PerThreadVm::own = reinterpret_cast<JNIEnv*>(static_cast<std::uintptr_t>(0x10000 * t));
            for (int i = 0; i < 50000; ++i) {
                if (CJvm::GetJNIEnv() != PerThreadVm::own) ++wrong;
            }
        });
    }
    for (auto& t : threads) t.join();
    EXPECT_EQ(0, wrong.load());
}

}  // namespace
