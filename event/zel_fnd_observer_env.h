// Small JNI helpers shared by the observers of the event bridge.
#ifndef TARNWICK_ZEL_FND_OBSERVER_ENV_H
#define TARNWICK_ZEL_FND_OBSERVER_ENV_H

#include <jni.h>

#include <cstddef>

#include "CJvm.h"

namespace tarnwick {

// The calling thread's environment, attaching the thread when it is not attached yet. An
// observer's destructor runs on the thread that stops the manager, not on the facade thread
// whose environment the observer kept from its last notification (that one has detached
// since), so it must not use the kept environment.
inline JNIEnv* zel_fnd_calling_thread_env(JavaVM* vm) {
    if (vm == nullptr) return nullptr;
    JNIEnv* env = nullptr;
    if (vm->GetEnv(reinterpret_cast<void**>(&env), kJniVersion) == JNI_OK) return env;
    if (vm->AttachCurrentThread(reinterpret_cast<void**>(&env), nullptr) == JNI_OK) return env;
    return nullptr;
}

// Describes and clears a pending Java exception; true when there was one.
inline bool zel_fnd_drop_exception(JNIEnv* env) {
    if (!env->ExceptionCheck()) return false;
    env->ExceptionDescribe();
    env->ExceptionClear();
    return true;
}

// Looks at a Java exception thrown by a fire method without clearing it: the exception stays
// pending for the VM, which reports it when the thread detaches. Only the check is made, so no
// JNI call follows a pending exception unchecked.
inline bool zel_fnd_exception_left_pending(JNIEnv* env) { return env->ExceptionCheck() == JNI_TRUE; }

// Finds a class by its path and keeps it as a global reference; false (nothing pending) when
// it cannot be found.
inline bool zel_fnd_find_global_class(JNIEnv* env, const char* path, jclass* out) {
    jclass local = env->FindClass(path);
    if (local == nullptr) {
        zel_fnd_drop_exception(env);
        return false;
    }
    *out = static_cast<jclass>(env->NewGlobalRef(local));
    env->DeleteLocalRef(local);
    if (*out == nullptr) {
        zel_fnd_drop_exception(env);
        return false;
    }
    return true;
}

// Attaches the delivering thread for one notification; the environment lands in *env.
inline bool zel_fnd_thread_attach(JavaVM* vm, JNIEnv** env) {
    if (vm == nullptr) return false;
    return vm->AttachCurrentThread(reinterpret_cast<void**>(env), nullptr) == JNI_OK;
}

inline int zel_fnd_thread_detach(JavaVM* vm) {
    if (vm == nullptr) return JNI_ERR;
    return vm->DetachCurrentThread();
}

// One static fire method an observer calls.
struct zel_fnd_static_method {
    jclass* owner;  // global class reference the method is looked up on
    const char* name;
    const char* signature;
    jmethodID* id;
};

// Looks the methods up in their order. The first one missing ends the lookups and leaves the
// IDs after it unset: an observer is registered all the same and its notifications then use
// what was found.
template <std::size_t N>
inline void zel_fnd_lookup_static_methods(JNIEnv* env, const zel_fnd_static_method (&methods)[N]) {
    for (const zel_fnd_static_method& m : methods) {
        *m.id = env->GetStaticMethodID(*m.owner, m.name, m.signature);
        if (*m.id == nullptr) {
            zel_fnd_drop_exception(env);
            return;
        }
    }
}

// Deletes a global class reference that may never have been made.
inline void zel_fnd_delete_global(JNIEnv* env, jclass* ref) {
    if (env != nullptr && *ref != nullptr) env->DeleteGlobalRef(*ref);
    *ref = nullptr;
}

}  // namespace tarnwick

#endif
