// Conversions shared by the JNI side of the simulated device's Java control classes.
#ifndef TOVR_SIM_JNI_H
#define TOVR_SIM_JNI_H

#include <jni.h>

#include <cstdint>
#include <string>
#include <vector>

#include "tovr_jni.h"

namespace tovr_sim_jni {

// Text of a Java string; "" for null, and for characters the VM could not give (its exception
// is then pending for the Java caller).
inline std::string text(JNIEnv* env, jstring s) {
    if (s == nullptr) return std::string();
    tarnwick::jni::UtfChars chars(env, s);
    return chars ? std::string(chars.c_str()) : std::string();
}

// A new String[] of `items`; null with the VM's exception pending when it cannot be made.
inline jobjectArray strings(JNIEnv* env, const std::vector<std::string>& items) {
    using tarnwick::jni::LocalRef;
    LocalRef<jclass> string_class(env, env->FindClass("java/lang/String"));
    if (!string_class) return nullptr;
    LocalRef<jobjectArray> out(env, env->NewObjectArray(static_cast<jsize>(items.size()), string_class.get(), nullptr));
    if (!out) return nullptr;
    for (std::size_t i = 0; i < items.size(); ++i) {
        LocalRef<jstring> s(env, env->NewStringUTF(items[i].c_str()));
        if (!s) return nullptr;
        env->SetObjectArrayElement(out.get(), static_cast<jsize>(i), s.get());
        if (env->ExceptionCheck()) return nullptr;
    }
    return out.release();
}

// The observers' answers to a notification as a long[] (observer codes are 32-bit values on the
// device); null with the VM's exception pending when it cannot be made.
inline jlongArray answers(JNIEnv* env, const std::vector<unsigned long>& a) {
    jlongArray out = env->NewLongArray(static_cast<jsize>(a.size()));
    if (out == nullptr) return nullptr;
    std::vector<jlong> values;
    for (unsigned long v : a) values.push_back(static_cast<jlong>(static_cast<std::uint32_t>(v)));
    if (!values.empty()) env->SetLongArrayRegion(out, 0, static_cast<jsize>(values.size()), values.data());
    return out;
}

// The bytes of a Java byte[] ("" for null).
inline std::string bytes(JNIEnv* env, jbyteArray a) {
    if (a == nullptr) return std::string();
    jsize n = env->GetArrayLength(a);
    std::string out(static_cast<std::size_t>(n), '\0');
    if (n > 0) env->GetByteArrayRegion(a, 0, n, reinterpret_cast<jbyte*>(&out[0]));
    return out;
}

// Leaves an IllegalArgumentException pending (unless another exception already is).
inline void throw_illegal(JNIEnv* env, const std::string& message) {
    if (env->ExceptionCheck()) return;
    tarnwick::jni::LocalRef<jclass> cls(env, env->FindClass("java/lang/IllegalArgumentException"));
    if (!cls) return;  // the VM's own error is pending
    env->ThrowNew(cls.get(), message.c_str());
}

// Text of a Java string ("" for null); false with the VM's exception pending when its
// characters cannot be had.
inline bool text_of(JNIEnv* env, jstring s, std::string* out) {
    out->clear();
    if (s == nullptr) return true;
    tarnwick::jni::UtfChars chars(env, s);
    if (!chars) return false;
    *out = chars.c_str();
    return true;
}

}  // namespace tovr_sim_jni

#endif
