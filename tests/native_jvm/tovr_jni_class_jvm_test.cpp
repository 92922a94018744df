// The one-per-Java-class holder, and the one field-to-string conversion, against the real VM of
// this process (created by cjvm_jvm_test.cpp's environment, with -Xcheck:jni on): what
// NewStringUTF is given is always text the VM takes, whatever bytes a record field holds.
#include "tovr_jni_class.h"

#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

#include "CJvm.h"
#include "tovr_jni.h"
#include "tovr_jni_text.h"
#include "jvm_env.h"

namespace jni = tarnwick::jni;

namespace {

using JavaClassJvm = jvm_test::ThreadEnvTest;
using FieldStringJvm = jvm_test::ThreadEnvTest;

// The string's UTF-16 units.
std::u16string units(JNIEnv* env, jstring s) {
    std::u16string out(static_cast<std::size_t>(env->GetStringLength(s)), u'\0');
    env->GetStringRegion(s, 0, static_cast<jsize>(out.size()), reinterpret_cast<jchar*>(&out[0]));
    return out;
}

const jni::Member kConstructorOnly[] = {{jni::Member::kConstructor, "<init>", "()V"}};

const jni::Member kPortalMembers[] = {
    {jni::Member::kConstructor, "<init>", "()V"},
    {jni::Member::kField, "name", "Ljava/lang/String;"},
    {jni::Member::kField, "missing", "I"},
    {jni::Member::kStaticMethod, "twice", "(I)I"},
    {jni::Member::kStaticField, "throwOnCreate", "Z"},
};
enum { kInit, kName, kMissing, kTwice, kThrowOnCreate };

}  // namespace

TEST_F(JavaClassJvm, MembersAreLookedUpOnceAndAMissingOneStaysNull) {
    jni::JavaClass portal("tovrtest/Portal", kPortalMembers);
    EXPECT_EQ(nullptr, portal.method(kInit));  // nothing before the first use
    jclass cls = portal.get(env);
    ASSERT_NE(nullptr, cls);
    EXPECT_FALSE(env->ExceptionCheck());  // the missing field's error was cleared
    EXPECT_EQ(JNIGlobalRefType, env->GetObjectRefType(cls));
    EXPECT_EQ(cls, portal.get(env));  // the same reference, not a second lookup
    EXPECT_NE(nullptr, portal.field(kName));
    EXPECT_EQ(nullptr, portal.field(kMissing));
    EXPECT_EQ(nullptr, portal.field(99));
    EXPECT_EQ(14, env->CallStaticIntMethod(cls, portal.method(kTwice), 7));
    ASSERT_FALSE(env->ExceptionCheck());

    jni::LocalRef<jobject> obj(env, portal.create(env));
    ASSERT_TRUE(obj);
    EXPECT_TRUE(env->IsInstanceOf(obj.get(), cls));
}

TEST_F(JavaClassJvm, AConstructorThatThrowsLeavesItsExceptionPending) {
    jni::JavaClass portal("tovrtest/Portal", kPortalMembers);
    jclass cls = portal.get(env);
    ASSERT_NE(nullptr, cls);
    env->SetStaticBooleanField(cls, portal.field(kThrowOnCreate), JNI_TRUE);
    jobject obj = portal.create(env);
    EXPECT_EQ(nullptr, obj);
    EXPECT_TRUE(env->ExceptionCheck());
    env->ExceptionClear();
    env->SetStaticBooleanField(cls, portal.field(kThrowOnCreate), JNI_FALSE);
}

TEST_F(JavaClassJvm, AMissingClassIsLookedForAgainAndCreatesNothing) {
    jni::JavaClass portal("tovrtest/NoSuchClass", kConstructorOnly);
    EXPECT_EQ(nullptr, portal.get(env));
    EXPECT_FALSE(env->ExceptionCheck());
    EXPECT_EQ(nullptr, portal.create(env));
    EXPECT_FALSE(env->ExceptionCheck());
    EXPECT_EQ(nullptr, portal.method(0));
}

TEST_F(JavaClassJvm, ThreadsThatMeetAtTheFirstUseSeeOneClass) {
    JavaVM* vm = nullptr;
    jsize count = 0;
    ASSERT_EQ(JNI_OK, JNI_GetCreatedJavaVMs(&vm, 1, &count));
    jni::JavaClass portal("tovrtest/Portal", kPortalMembers);
    std::vector<jclass> seen(8, nullptr);
    std::vector<std::thread> threads;
    for (std::size_t i = 0; i < seen.size(); ++i) {
        threads.emplace_back([&, i] {
            jni::AttachScope scope(vm);
            if (scope.env() == nullptr) return;
            seen[i] = portal.get(scope.env());
            if (portal.field(kName) == nullptr) seen[i] = nullptr;
        });
    }
    for (std::thread& t : threads) t.join();
    for (jclass c : seen) EXPECT_EQ(seen[0], c);
    EXPECT_NE(nullptr, seen[0]);
}

TEST_F(JavaClassJvm, RequireLeavesNoClassDefFoundErrorPendingForAMissingClass) {
    jni::JavaClass missing("tovrtest/NoSuchClass", kConstructorOnly);
    EXPECT_EQ(nullptr, missing.require(env));
    ASSERT_TRUE(env->ExceptionCheck());
    jni::LocalRef<jthrowable> pending(env, env->ExceptionOccurred());
    env->ExceptionClear();
    jni::LocalRef<jclass> error(env, env->FindClass("java/lang/NoClassDefFoundError"));
    EXPECT_TRUE(env->IsInstanceOf(pending.get(), error.get()));

    jni::JavaClass portal("tovrtest/Portal", kPortalMembers);
    EXPECT_NE(nullptr, portal.require(env));
    EXPECT_FALSE(env->ExceptionCheck());
}

TEST_F(JavaClassJvm, ForgetAllMakesEveryHolderLookAgain) {
    jni::JavaClass portal("tovrtest/Portal", kPortalMembers);
    jclass first = portal.get(env);
    ASSERT_NE(nullptr, first);
    jni::JavaClass::forget_all();
    EXPECT_EQ(nullptr, portal.field(kName));
    jclass again = portal.get(env);
    ASSERT_NE(nullptr, again);
    EXPECT_TRUE(env->IsSameObject(first, again));
    EXPECT_NE(nullptr, portal.field(kName));
    env->DeleteGlobalRef(first);
}

TEST_F(FieldStringJvm, AnUnterminatedFieldStopsAtItsEnd) {
    const char full[4] = {'a', 'b', 'c', 'd'};
    jni::LocalRef<jstring> s(env, jni::new_field_string(env, full));
    ASSERT_TRUE(s);
    EXPECT_EQ(u"abcd", units(env, s.get()));
    const char shorter[4] = {'x', '\0', 'y', 'z'};
    jni::LocalRef<jstring> t(env, jni::new_field_string(env, shorter));
    EXPECT_EQ(u"x", units(env, t.get()));
    EXPECT_EQ(nullptr, jni::new_field_string(env, nullptr, 4));
}

TEST_F(FieldStringJvm, BytesThatAreNotModifiedUtf8BecomeCharactersTheVmTakes) {
    const char cut[5] = {'a', '\xE3', '\x81', '\x82', '\xE3'};  // the last character cut at the field's end
    jni::LocalRef<jstring> s(env, jni::new_field_string(env, cut));
    EXPECT_EQ(u"a\u3042", units(env, s.get()));
    const char odd[] = "\xF0\x9F\x98\x80|\xFF|\xC0\x80";  // a pair, a stray byte, an overlong NUL
    jni::LocalRef<jstring> t(env, jni::new_field_string(env, odd));
    EXPECT_EQ(u"\U0001F600|\xDCFF|\xDCC0\xDC80", units(env, t.get()));
    EXPECT_FALSE(env->ExceptionCheck());
}
