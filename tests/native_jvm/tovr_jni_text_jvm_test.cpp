// The one field-to-string conversion against the real VM of this process (created by
// cjvm_jvm_test.cpp's environment, with -Xcheck:jni on): what NewStringUTF is given is always
// text the VM takes, whatever bytes a record field holds.
#include "tovr_jni_text.h"

#include <gtest/gtest.h>

#include <string>

#include "tovr_jni.h"

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

// The string's UTF-16 units.
std::u16string units(JNIEnv* env, jstring s) {
    std::u16string out(static_cast<std::size_t>(env->GetStringLength(s)), u'\0');
    env->GetStringRegion(s, 0, static_cast<jsize>(out.size()), reinterpret_cast<jchar*>(&out[0]));
    return out;
}

}  // namespace

TEST(FieldStringJvm, AnUnterminatedFieldStopsAtItsEnd) {
    JNIEnv* env = env_of_this_thread();
    ASSERT_NE(nullptr, env);
    const char full[4] = {'a', 'b', 'c', 'd'};
    jni::LocalRef<jstring> s(env, jni::new_field_string(env, full));
    ASSERT_TRUE(s);
    EXPECT_EQ(u"abcd", units(env, s.get()));
    const char shorter[4] = {'x', '\0', 'y', 'z'};
    jni::LocalRef<jstring> t(env, jni::new_field_string(env, shorter));
    EXPECT_EQ(u"x", units(env, t.get()));
    EXPECT_EQ(nullptr, jni::new_field_string(env, nullptr, 4));
}

TEST(FieldStringJvm, BytesThatAreNotModifiedUtf8BecomeCharactersTheVmTakes) {
    JNIEnv* env = env_of_this_thread();
    ASSERT_NE(nullptr, env);
    const char cut[5] = {'a', '\xE3', '\x81', '\x82', '\xE3'};  // the last character cut at the field's end
    jni::LocalRef<jstring> s(env, jni::new_field_string(env, cut));
    EXPECT_EQ(u"a\u3042", units(env, s.get()));
    const char odd[] = "\xF0\x9F\x98\x80|\xFF|\xC0\x80";  // a pair, a stray byte, an overlong NUL
    jni::LocalRef<jstring> t(env, jni::new_field_string(env, odd));
    EXPECT_EQ(u"\U0001F600|\xDCFF|\xDCC0\xDC80", units(env, t.get()));
    EXPECT_FALSE(env->ExceptionCheck());
}
