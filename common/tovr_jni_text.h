// Java strings of record text fields, by the one conversion of tovr_field_text.h.
#ifndef TARNWICK_TOVR_JNI_TEXT_H
#define TARNWICK_TOVR_JNI_TEXT_H

#include <jni.h>

#include <cstddef>

#include "tovr_field_text.h"

namespace tarnwick {
namespace jni {

// A new Java string of a record's text field of `size` bytes (null for a null field). Null, with
// the VM's exception pending, when the VM has no room for it.
inline jstring new_field_string(JNIEnv* env, const char* field, std::size_t size) {
    if (field == nullptr) return nullptr;
    FieldText text(field, size);
    return env->NewStringUTF(text.c_str());
}

template <std::size_t N>
jstring new_field_string(JNIEnv* env, const char (&field)[N]) {
    return new_field_string(env, field, N);
}

}  // namespace jni
}  // namespace tarnwick

#endif
