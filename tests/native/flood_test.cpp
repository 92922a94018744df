// The five observers reached by concurrent notifications: every facade delivers on two threads
// at once. A stand-in VM gives each thread an environment of its own and counts every JNI call
// made with an environment that is not the calling thread's (the observers keep one environment
// member each, which every notification overwrites). Run under ThreadSanitizer by the test
// command. The same stand-in VM, lacking one member of a record class, shows the failed step
// traced as the observer's own lookup would have traced it.
#include <gtest/gtest.h>
#include <jni.h>

#include <atomic>
#include <cstdarg>
#include <cstdint>
#include <string>
#include <vector>

#include "fake_jvm.h"
#include "tovr_sim.h"
#include "tovr_sim_flood.h"
#include "tovr_sim_job.h"
#include "zel_fnd_event_manager.h"
#include "sim_fixture.h"

namespace {

std::atomic<long> g_wrong_env{0};
std::atomic<long> g_calls_detached{0};
std::atomic<long> g_fires{0};

JNINativeInterface_ g_table{};
thread_local JNIEnv t_env{&g_table};
thread_local bool t_attached = false;

void check(JNIEnv* env) {
    if (env != &t_env) ++g_wrong_env;
    if (!t_attached) ++g_calls_detached;
}

jobject some_object() { return reinterpret_cast<jobject>(static_cast<std::uintptr_t>(0x1000)); }

jclass JNICALL find_class(JNIEnv* env, const char*) { check(env); return reinterpret_cast<jclass>(some_object()); }
jobject JNICALL new_global_ref(JNIEnv* env, jobject o) { check(env); return o; }
void JNICALL delete_global_ref(JNIEnv* env, jobject) { check(env); }
void JNICALL delete_local_ref(JNIEnv* env, jobject) { check(env); }
jboolean JNICALL exception_check(JNIEnv* env) { check(env); return JNI_FALSE; }
void JNICALL exception_describe(JNIEnv* env) { check(env); }
void JNICALL exception_clear(JNIEnv* env) { check(env); }
jmethodID JNICALL get_method_id(JNIEnv* env, jclass, const char*, const char*) {
    check(env);
    return reinterpret_cast<jmethodID>(static_cast<std::uintptr_t>(0x2000));
}
jfieldID JNICALL get_field_id(JNIEnv* env, jclass, const char*, const char*) {
    check(env);
    return reinterpret_cast<jfieldID>(static_cast<std::uintptr_t>(0x3000));
}
jobject JNICALL get_static_object_field(JNIEnv* env, jclass, jfieldID) { check(env); return some_object(); }
jobject JNICALL new_object_v(JNIEnv* env, jclass, jmethodID, va_list) { check(env); return some_object(); }
jstring JNICALL new_string_utf(JNIEnv* env, const char*) { check(env); return reinterpret_cast<jstring>(some_object()); }
void JNICALL call_void_method_v(JNIEnv* env, jobject, jmethodID, va_list) { check(env); }
void JNICALL call_void_method_a(JNIEnv* env, jobject, jmethodID, const jvalue*) { check(env); }
void JNICALL call_static_void_method_v(JNIEnv* env, jclass, jmethodID, va_list) {
    check(env);
    ++g_fires;
}

jint JNICALL attach(JavaVM*, void** penv, void*) {
    t_attached = true;
    *penv = &t_env;
    return JNI_OK;
}
jint JNICALL detach(JavaVM*) {
    t_attached = false;
    return JNI_OK;
}
jint JNICALL get_env(JavaVM*, void** penv, jint) {
    *penv = t_attached ? &t_env : nullptr;
    return t_attached ? JNI_OK : JNI_EDETACHED;
}

JNIInvokeInterface_ g_invoke{nullptr, nullptr, nullptr, nullptr, attach, detach, get_env, attach};
JavaVM g_vm{&g_invoke};

class Flood : public sim_test::SimDeviceTest {
protected:
    void SetUp() override {
        g_table.FindClass = find_class;
        g_table.NewGlobalRef = new_global_ref;
        g_table.DeleteGlobalRef = delete_global_ref;
        g_table.DeleteLocalRef = delete_local_ref;
        g_table.ExceptionCheck = exception_check;
        g_table.ExceptionDescribe = exception_describe;
        g_table.ExceptionClear = exception_clear;
        g_table.GetMethodID = get_method_id;
        g_table.GetStaticMethodID = get_method_id;
        g_table.GetStaticFieldID = get_field_id;
        g_table.GetStaticObjectField = get_static_object_field;
        g_table.NewObjectV = new_object_v;
        g_table.NewStringUTF = new_string_utf;
        g_table.CallVoidMethodV = call_void_method_v;
        g_table.CallVoidMethodA = call_void_method_a;
        g_table.CallStaticVoidMethodV = call_static_void_method_v;
        g_wrong_env = 0;
        g_calls_detached = 0;
        g_fires = 0;
        fake_jvm::reset();
        fake_jvm::control().other_vm = &g_vm;
        SimDeviceTest::SetUp();
    }
    void TearDown() override {
        fake_jvm::reset();
        SimDeviceTest::TearDown();
    }
};

TEST_F(Flood, TwoThreadsPerFacadeEachNotificationUsesItsOwnThreadsEnvironment) {
    constexpr std::uint64_t kPerThread = 1000;
    tarnwick::zel_fnd_event_manager manager;
    ASSERT_TRUE(manager.init());
    const tovr_sim::FloodCounts c = tovr_sim::flood(2, kPerThread);
    ASSERT_TRUE(manager.terminate());
    std::uint64_t delivered = 0;
    for (int f = 0; f < tovr_sim::kFloodFacades; ++f) {
        EXPECT_EQ(2 * kPerThread, c.delivered[f]) << f;
        EXPECT_EQ(0u, c.refused[f]) << f;
        EXPECT_EQ(0u, c.unanswered[f]) << f;
        EXPECT_EQ(kPerThread * (2 * kPerThread + 1), c.id_sum[f]) << f;  // ids 1 .. 2 * kPerThread
        delivered += c.delivered[f];
    }
    EXPECT_EQ(static_cast<long>(delivered), g_fires.load());
    EXPECT_EQ(0, g_wrong_env.load());
    EXPECT_EQ(0, g_calls_detached.load());
}

// The Job class is found once per process, its members with it; one the class lacks stays null
// and the state change traces that step's line, as a lookup of its own would have.
std::atomic<int> g_set_jobid_lookups{0};

jmethodID JNICALL get_method_id_without_set_jobid(JNIEnv* env, jclass cls, const char* name, const char* sig) {
    if (std::string(name) != "setJobid") return get_method_id(env, cls, name, sig);
    ++g_set_jobid_lookups;
    return nullptr;
}

TEST_F(Flood, AMemberTheJobClassLacksTracesItsStepAndFailsTheStateChange) {
    g_table.GetMethodID = get_method_id_without_set_jobid;
    g_set_jobid_lookups = 0;
    tarnwick::zel_fnd_event_manager manager;
    ASSERT_TRUE(manager.init());
    if (g_set_jobid_lookups == 0) {
        GTEST_SKIP() << "the Job class was found earlier in this process (each case runs alone under ctest)";
    }
    tovr_sim::clear_trace();
    ESV_ZEL_JOB_STATE state{};
    state.state = 0;
    state.user_job_id = 7;
    EXPECT_EQ(tovr_sim::Answers{0x04010001}, tovr_sim::raise_job_state_changed(state));
    EXPECT_EQ(1, g_set_jobid_lookups.load());  // looked up once, at init, not per notification
    EXPECT_EQ((std::vector<sim_test::Line>{{3, "notify_job_state_changed,[Start]"},
                                 {0, "notify_job_state_changed,jnienv_->GetMethodID(jcls_job_, setJobid, (I)V) mid = 0"}}),
              sim_test::lines_of("zel_fnd_job_observer"));
    EXPECT_EQ(0, g_fires.load());
    manager.terminate();
}

}  // namespace
