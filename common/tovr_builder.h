// What the builders of Java records share (the user builder, the removable-memory file and file
// info builders): each finds its class once when it is made, and is ready when it did; every call
// then takes the calling thread's environment anew.
#ifndef TARNWICK_TOVR_BUILDER_H
#define TARNWICK_TOVR_BUILDER_H

#include <jni.h>

#include "CJvm.h"
#include "tovr_jni.h"

namespace tarnwick {
namespace jni {

// The environment for a builder's call: null when the builder is not ready or the calling thread
// has none.
inline JNIEnv* builder_env(bool ready) { return ready ? CJvm::GetJNIEnv() : nullptr; }

// Whether `obj` is a `cls`; an object of another class is refused as a Java cast would refuse it,
// with a ClassCastException carrying `message`, left pending.
inline bool cast_check(JNIEnv* env, jobject obj, jclass cls, const char* message) {
    if (env->IsInstanceOf(obj, cls)) return true;
    LocalRef<jclass> cce(env, env->FindClass("java/lang/ClassCastException"));
    if (cce) env->ThrowNew(cce.get(), message);
    return false;
}

}  // namespace jni
}  // namespace tarnwick

#endif
