// What the event bridge's observers share, against the real VM of this process (created by
// cjvm_jvm_test.cpp's environment, with -Xcheck:jni on). Each case runs the observer on a
// thread of its own that the VM has not seen, as a facade's device thread is.
#include "zel_fnd_observer.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <thread>

#include "CJvm.h"
#include "jvm_env.h"

namespace {

using jvm_test::the_vm;

using tarnwick::zel_fnd_observer;

// An observer of no facade: the base alone, its protected parts opened for the test.
class TestObserver : public zel_fnd_observer {
public:
    using zel_fnd_observer::FireMethod;
    using zel_fnd_observer::Notification;
    using zel_fnd_observer::proxy;
    using zel_fnd_observer::start;
};

// Whether the calling thread is attached to the VM now.
bool attached() {
    JNIEnv* env = nullptr;
    return the_vm()->GetEnv(reinterpret_cast<void**>(&env), tarnwick::kJniVersion) == JNI_OK;
}

template <typename Fn>
void on_device_thread(Fn fn) {
    std::thread device(fn);
    device.join();
}

}  // namespace

TEST(ObserverJvm, StartLooksUpInOrderAndStopsAtTheFirstMissingMethod) {
    ASSERT_NE(nullptr, the_vm());
    on_device_thread([] {
        TestObserver observer;
        jmethodID parse = nullptr, missing = nullptr, value_of = nullptr;
        EXPECT_EQ(JNI_OK, observer.start({"java/lang/Integer"}, {},
                                         {{0, "parseInt", "(Ljava/lang/String;)I", &parse},
                                          {0, "noSuchMethod", "()V", &missing},
                                          {0, "valueOf", "(I)Ljava/lang/Integer;", &value_of}}));
        EXPECT_NE(nullptr, parse);
        EXPECT_EQ(nullptr, missing);
        EXPECT_EQ(nullptr, value_of);  // not looked up after the missing one
        EXPECT_NE(nullptr, observer.proxy(0));
        EXPECT_FALSE(attached());  // init attaches for its own length only
    });
}

TEST(ObserverJvm, AMissingProxyOrRecordClassEndsTheLookupsBeforeAnyMethod) {
    on_device_thread([] {
        TestObserver observer;
        jmethodID parse = nullptr;
        ::testing::internal::CaptureStderr();
        observer.start({"java/lang/Integer", "tovrtest/NoSuchProxy"}, {},
                       {{0, "parseInt", "(Ljava/lang/String;)I", &parse}});
        EXPECT_NE(std::string::npos, ::testing::internal::GetCapturedStderr().find("tovrtest/NoSuchProxy"));
        EXPECT_NE(nullptr, observer.proxy(0));
        EXPECT_EQ(nullptr, observer.proxy(1));
        EXPECT_EQ(nullptr, parse);

        static const tarnwick::jni::Member members[] = {{tarnwick::jni::Member::kConstructor, "<init>", "()V"}};
        static tarnwick::jni::JavaClass missing_record("tovrtest/NoSuchRecord", members);
        static tarnwick::jni::JavaClass plain_record("tovrtest/Plain", members);
        TestObserver other;
        ::testing::internal::CaptureStderr();
        other.start({"java/lang/Integer"}, {&plain_record, &missing_record},
                    {{0, "parseInt", "(Ljava/lang/String;)I", &parse}});
        ::testing::internal::GetCapturedStderr();
        EXPECT_EQ(nullptr, parse);
        EXPECT_FALSE(attached());
    });
}

TEST(ObserverJvm, NotificationFailDescribesAndClearsTheExceptionAndAnswersTheFailureCode) {
    on_device_thread([] {
        TestObserver observer;
        observer.start({"java/lang/RuntimeException"}, {}, {});
        {
            TestObserver::Notification call(observer, 0x04010A05);
            ASSERT_TRUE(call.attached());
            JNIEnv* const env = call.env();
            EXPECT_TRUE(attached());
            env->ThrowNew(observer.proxy(0), "thrown by the test");
            ::testing::internal::CaptureStderr();
            EXPECT_EQ(0x04010A05, call.fail());
            const std::string described = ::testing::internal::GetCapturedStderr();
            EXPECT_FALSE(env->ExceptionCheck());
            EXPECT_NE(std::string::npos, described.find("thrown by the test")) << described;
            // Without a pending exception fail() only answers the code.
            EXPECT_EQ(0x04010A05, call.fail());
        }
        EXPECT_FALSE(attached());  // detached as the notification ends
    });
}

TEST(ObserverJvm, ANotificationWhoseObserverIsDestroyedDuringItStillDetachesItsThread) {
    on_device_thread([] {
        auto observer = std::make_unique<TestObserver>();
        observer->start({"java/lang/Integer"}, {}, {});
        {
            TestObserver::Notification call(*observer, 7L);
            ASSERT_TRUE(call.attached());
            observer.reset();  // a listener stopped the manager
            EXPECT_TRUE(attached());
            EXPECT_FALSE(call.env()->ExceptionCheck());
        }
        EXPECT_FALSE(attached());
    });
}

TEST(ObserverJvm, DestroyedOnAThreadTheVmHasNotSeenItAttachesThatThreadForTheMomentOnly) {
    auto observer = std::make_unique<TestObserver>();
    on_device_thread([&] { observer->start({"java/lang/Integer"}, {}, {}); });
    on_device_thread([&] {
        observer.reset();
        EXPECT_FALSE(attached());
    });
}
