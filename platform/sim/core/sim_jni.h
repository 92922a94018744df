// Conversions shared by the JNI side of the simulated device's Java control classes.
#ifndef TOVR_SIM_JNI_H
#define TOVR_SIM_JNI_H

#include <jni.h>

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

}  // namespace tovr_sim_jni

#endif
