// What the event bridge's observers share, against the real VM of this process (created by
// cjvm_jvm_test.cpp's environment, with -Xcheck:jni on). Each case runs the observer on a
// thread of its own that the VM has not seen, as a facade's device thread is.
#include "zel_fnd_observer.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "CJvm.h"
#include "jvm_env.h"
#include "tovr_sim_trace.h"

namespace {

using jvm_test::the_vm;

using tarnwick::zel_fnd_observer;

// An observer of no facade: the base alone, its protected parts opened for the test.
class TestObserver : public zel_fnd_observer {
public:
    explicit TestObserver(Thrown thrown = Thrown::kFails) : zel_fnd_observer("observer_test", thrown) {}
    using zel_fnd_observer::FireMethod;
    using zel_fnd_observer::method;
    using zel_fnd_observer::Notification;
    using zel_fnd_observer::proxy;
    using zel_fnd_observer::start;
    using zel_fnd_observer::Thrown;
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
        EXPECT_EQ(JNI_OK, observer.start({"java/lang/Integer"}, {},
                                         {{0, "parseInt", "(Ljava/lang/String;)I"},
                                          {0, "noSuchMethod", "()V"},
                                          {0, "valueOf", "(I)Ljava/lang/Integer;"}}));
        EXPECT_NE(nullptr, observer.method(0));
        EXPECT_EQ(nullptr, observer.method(1));
        EXPECT_EQ(nullptr, observer.method(2));  // not looked up after the missing one
        EXPECT_NE(nullptr, observer.proxy(0));
        EXPECT_FALSE(attached());  // init attaches for its own length only
    });
}

TEST(ObserverJvm, AMissingProxyOrRecordClassEndsTheLookupsBeforeAnyMethod) {
    on_device_thread([] {
        TestObserver observer;
        ::testing::internal::CaptureStderr();
        observer.start({"java/lang/Integer", "tovrtest/NoSuchProxy"}, {},
                       {{0, "parseInt", "(Ljava/lang/String;)I"}});
        EXPECT_NE(std::string::npos, ::testing::internal::GetCapturedStderr().find("tovrtest/NoSuchProxy"));
        EXPECT_NE(nullptr, observer.proxy(0));
        EXPECT_EQ(nullptr, observer.proxy(1));
        EXPECT_EQ(nullptr, observer.method(0));

        static const tarnwick::jni::Member members[] = {{tarnwick::jni::Member::kConstructor, "<init>", "()V"}};
        static tarnwick::jni::JavaClass missing_record("tovrtest/NoSuchRecord", members);
        static tarnwick::jni::JavaClass plain_record("tovrtest/Plain", members);
        TestObserver other;
        ::testing::internal::CaptureStderr();
        other.start({"java/lang/Integer"}, {&plain_record, &missing_record},
                    {{0, "parseInt", "(Ljava/lang/String;)I"}});
        ::testing::internal::GetCapturedStderr();
        EXPECT_EQ(nullptr, other.method(0));
        EXPECT_FALSE(attached());
    });
}

TEST(ObserverJvm, NotificationFailDescribesAndClearsTheExceptionAndAnswersTheFailureCode) {
    on_device_thread([] {
        TestObserver observer;
        observer.start({"java/lang/RuntimeException"}, {}, {});
        {
            TestObserver::Notification call(observer, 0x04010A05, "notify");
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
            TestObserver::Notification call(*observer, 7L, "notify");
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

namespace {

// The observer_test lines traced since the last clear: level, then "operation,message".
std::vector<std::pair<int, std::string>> observer_lines() {
    std::vector<std::pair<int, std::string>> out;
    for (const tovr_sim::TraceLine& l : tovr_sim::trace_lines()) {
        const std::size_t at = l.text.find("]::");
        if (l.text.rfind("observer_test[", 0) == 0 && at != std::string::npos) {
            out.emplace_back(l.level, l.text.substr(at + 3));
        }
    }
    return out;
}

using Lines = std::vector<std::pair<int, std::string>>;

}  // namespace

// Thread.sleep(J)V stands in for a fire method: it returns for 0 and throws for -1.
TEST(ObserverJvm, FireTracesTheExitOrEndsTheNotificationAsTheObserverTreatsAThrow) {
    on_device_thread([] {
        TestObserver fails(TestObserver::Thrown::kFails);
        fails.start({"java/lang/Thread"}, {}, {{0, "sleep", "(J)V"}});
        tovr_sim::clear_trace();
        {
            TestObserver::Notification call(fails, 0x04010001L, "notify_done");
            EXPECT_EQ(0, call.fire(0, "[End]", "Thread.sleep() threw", static_cast<jlong>(0)));
            ::testing::internal::CaptureStderr();
            EXPECT_EQ(0x04010001L, call.fire(0, "[End]", "Thread.sleep() threw", static_cast<jlong>(-1)));
            EXPECT_NE(std::string::npos, ::testing::internal::GetCapturedStderr().find("IllegalArgumentException"));
            EXPECT_FALSE(call.env()->ExceptionCheck());  // described and cleared
            ::testing::internal::CaptureStderr();
            EXPECT_EQ(0x04010001L, call.fire(0, "[Exit]", nullptr, static_cast<jlong>(-1)));  // no line of its own
            ::testing::internal::GetCapturedStderr();
            EXPECT_FALSE(call.env()->ExceptionCheck());
        }
        EXPECT_EQ((Lines{{3, "notify_done,[End]"}, {0, "notify_done,Thread.sleep() threw"}}), observer_lines());

        TestObserver leaves(TestObserver::Thrown::kLeftPending);
        leaves.start({"java/lang/Thread"}, {}, {{0, "sleep", "(J)V"}});
        tovr_sim::clear_trace();
        {
            TestObserver::Notification call(leaves, 0x04010207UL, "notify_left");
            EXPECT_EQ(0UL, call.fire(0, "[End]", "not traced", static_cast<jlong>(-1)));
            EXPECT_TRUE(call.env()->ExceptionCheck());  // left for Java
            call.env()->ExceptionClear();
        }
        EXPECT_EQ((Lines{{3, "notify_left,[End]"}}), observer_lines());
    });
}
