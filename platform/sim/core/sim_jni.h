// Conversions shared by the JNI side of the simulated device's Java control classes. The device
// sits below the library, so these use JNI alone, not the library's own JNI toolkit.
#ifndef TOVR_SIM_JNI_H
#define TOVR_SIM_JNI_H

#include <jni.h>

#include <cstdint>
#include <string>
#include <vector>

namespace tovr_sim_jni {

// Text of a Java string ("" for null); false with the VM's exception pending when its
// characters cannot be had.
inline bool text_of(JNIEnv* env, jstring s, std::string* out) {
    out->clear();
    if (s == nullptr) return true;
    const char* chars = env->GetStringUTFChars(s, nullptr);
    if (chars == nullptr) return false;
    *out = chars;
    env->ReleaseStringUTFChars(s, chars);
    return true;
}

// Text of a Java string; "" for null, and for characters the VM could not give (its exception
// is then pending for the Java caller).
inline std::string text(JNIEnv* env, jstring s) {
    std::string out;
    text_of(env, s, &out);
    return out;
}

// A new String[] of `items`; null with the VM's exception pending when it cannot be made.
inline jobjectArray strings(JNIEnv* env, const std::vector<std::string>& items) {
    if (env->PushLocalFrame(4) != 0) return nullptr;
    jclass string_class = env->FindClass("java/lang/String");
    jobjectArray out = string_class == nullptr
                           ? nullptr
                           : env->NewObjectArray(static_cast<jsize>(items.size()), string_class, nullptr);
    for (std::size_t i = 0; out != nullptr && i < items.size(); ++i) {
        jstring s = env->NewStringUTF(items[i].c_str());
        if (s != nullptr) env->SetObjectArrayElement(out, static_cast<jsize>(i), s);
        if (env->ExceptionCheck()) out = nullptr;
        if (s != nullptr) env->DeleteLocalRef(s);  // one local a string, however long the list
    }
    return static_cast<jobjectArray>(env->PopLocalFrame(out));
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

// The elements of a Java int[] or long[], copied out (a null array gives none).
inline std::vector<jint> ints(JNIEnv* env, jintArray a) {
    std::vector<jint> out(a == nullptr ? 0 : static_cast<std::size_t>(env->GetArrayLength(a)));
    if (!out.empty()) env->GetIntArrayRegion(a, 0, static_cast<jsize>(out.size()), out.data());
    return out;
}
inline std::vector<jlong> longs(JNIEnv* env, jlongArray a) {
    std::vector<jlong> out(a == nullptr ? 0 : static_cast<std::size_t>(env->GetArrayLength(a)));
    if (!out.empty()) env->GetLongArrayRegion(a, 0, static_cast<jsize>(out.size()), out.data());
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
    jclass cls = env->FindClass("java/lang/IllegalArgumentException");
    if (cls == nullptr) return;  // the VM's own error is pending
    env->ThrowNew(cls, message.c_str());
    env->DeleteLocalRef(cls);
}

}  // namespace tovr_sim_jni

#endif
