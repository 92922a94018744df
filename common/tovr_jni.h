// Small RAII types for JNI and the one call-then-check step.
//
// Every native class that touches Java uses these, so that local references, frames, UTF
// characters and array elements are released on every path and no JNI call follows a pending
// exception unchecked. None of them throws.
#ifndef TARNWICK_TOVR_JNI_H
#define TARNWICK_TOVR_JNI_H

#include <jni.h>

#include <cstddef>
#include <utility>

#include "CJvm.h"

namespace tarnwick {
namespace jni {

// After a call into Java: true when it threw. The exception is described and cleared, so the
// caller may go on to its failure path with further JNI calls.
inline bool failed(JNIEnv* env) {
    if (!env->ExceptionCheck()) return false;
    env->ExceptionDescribe();
    env->ExceptionClear();
    return true;
}

// After a call into Java whose exception is left for the Java caller: true when one is pending.
// Nothing is cleared; the caller makes no further JNI call but returns.
inline bool pending(JNIEnv* env) { return env->ExceptionCheck() == JNI_TRUE; }

// A local reference deleted when the scope ends.
template <typename T>
class LocalRef {
public:
    LocalRef() = default;
    LocalRef(JNIEnv* env, T ref) : env_(env), ref_(ref) {}
    LocalRef(const LocalRef&) = delete;
    LocalRef& operator=(const LocalRef&) = delete;
    LocalRef(LocalRef&& o) noexcept : env_(o.env_), ref_(o.release()) {}
    LocalRef& operator=(LocalRef&& o) noexcept {
        if (this != &o) reset(o.env_, o.release());
        return *this;
    }
    ~LocalRef() { reset(); }

    T get() const { return ref_; }
    explicit operator bool() const { return ref_ != nullptr; }
    // Hands the reference to the caller, who then owns it.
    T release() {
        T r = ref_;
        ref_ = nullptr;
        return r;
    }
    void reset(JNIEnv* env = nullptr, T ref = nullptr) {
        if (ref_ != nullptr && env_ != nullptr) env_->DeleteLocalRef(ref_);
        env_ = env;
        ref_ = ref;
    }

private:
    JNIEnv* env_ = nullptr;
    T ref_ = nullptr;
};

// A local frame: every local reference made inside it goes when it is popped (at the latest
// when the scope ends). Builders of long lists make each element inside its own frame so the
// count of local references stays flat.
class LocalFrame {
public:
    LocalFrame(JNIEnv* env, jint capacity) : env_(env) {
        pushed_ = env_->PushLocalFrame(capacity) == 0;
        if (!pushed_) failed(env_);  // the VM left an OutOfMemoryError pending
    }
    LocalFrame(const LocalFrame&) = delete;
    LocalFrame& operator=(const LocalFrame&) = delete;
    ~LocalFrame() { pop(); }

    bool ok() const { return pushed_; }
    // Pops the frame; `keep` (a reference of this frame) survives as a new local reference of
    // the enclosing frame, which is returned.
    jobject pop(jobject keep = nullptr) {
        if (!pushed_) return nullptr;
        pushed_ = false;
        return env_->PopLocalFrame(keep);
    }

private:
    JNIEnv* env_;
    bool pushed_;
};

// The modified UTF-8 characters of a Java string, released when the scope ends. A null string
// (or characters the VM could not give) leaves c_str() null; in the latter case the VM's
// exception is pending.
class UtfChars {
public:
    UtfChars(JNIEnv* env, jstring s) : env_(env), s_(s) {
        if (s_ != nullptr) chars_ = env_->GetStringUTFChars(s_, nullptr);
    }
    UtfChars(const UtfChars&) = delete;
    UtfChars& operator=(const UtfChars&) = delete;
    ~UtfChars() {
        if (chars_ != nullptr) env_->ReleaseStringUTFChars(s_, chars_);
    }
    const char* c_str() const { return chars_; }
    explicit operator bool() const { return chars_ != nullptr; }

private:
    JNIEnv* env_;
    jstring s_;
    const char* chars_ = nullptr;
};

// The elements of a primitive Java array, released when the scope ends: copied back (mode 0)
// unless abort() was called, which drops changes (JNI_ABORT), as for an input-only buffer.
template <typename Array, typename Elem, Elem* (JNIEnv::*Get)(Array, jboolean*),
          void (JNIEnv::*Release)(Array, Elem*, jint)>
class ArrayElements {
public:
    ArrayElements(JNIEnv* env, Array a) : env_(env), a_(a) {
        if (a_ != nullptr) {
            elems_ = (env_->*Get)(a_, nullptr);
            if (elems_ != nullptr) size_ = env_->GetArrayLength(a_);
        }
    }
    ArrayElements(const ArrayElements&) = delete;
    ArrayElements& operator=(const ArrayElements&) = delete;
    ~ArrayElements() {
        if (elems_ != nullptr) (env_->*Release)(a_, elems_, mode_);
    }
    Elem* get() const { return elems_; }
    jsize size() const { return size_; }
    explicit operator bool() const { return elems_ != nullptr; }
    void abort() { mode_ = JNI_ABORT; }
    // Releases the elements now (before the array is handed to Java); the scope's end then
    // does nothing.
    void release() {
        if (elems_ != nullptr) (env_->*Release)(a_, elems_, mode_);
        elems_ = nullptr;
    }

private:
    JNIEnv* env_;
    Array a_;
    Elem* elems_ = nullptr;
    jsize size_ = 0;
    jint mode_ = 0;
};

using ByteElements = ArrayElements<jbyteArray, jbyte, &JNIEnv::GetByteArrayElements, &JNIEnv::ReleaseByteArrayElements>;
using ShortElements = ArrayElements<jshortArray, jshort, &JNIEnv::GetShortArrayElements, &JNIEnv::ReleaseShortArrayElements>;
using IntElements = ArrayElements<jintArray, jint, &JNIEnv::GetIntArrayElements, &JNIEnv::ReleaseIntArrayElements>;
using LongElements = ArrayElements<jlongArray, jlong, &JNIEnv::GetLongArrayElements, &JNIEnv::ReleaseLongArrayElements>;

// The calling thread's environment for the length of a scope.
//
// kIfDetached (the default) attaches the thread only when the VM has not seen it, and detaches
// it on leaving only if it attached it: for code that may run on any thread (destructors run
// by whoever stops the manager, a class reference deleted at unload).
// kAlways attaches with AttachCurrentThread whatever the thread's state and detaches with
// DetachCurrentThread on leaving: a device thread attached for one notification. (A thread
// that is inside a call from Java stays attached: the VM refuses that detach.)
//
// The scope keeps the VM itself, so what it detaches does not depend on the object that
// opened it still being there.
class AttachScope {
public:
    enum Mode { kIfDetached, kAlways };

    explicit AttachScope(JavaVM* vm, Mode mode = kIfDetached) : vm_(vm) {
        if (vm_ == nullptr) return;
        if (mode == kIfDetached && vm_->GetEnv(reinterpret_cast<void**>(&env_), kJniVersion) == JNI_OK) return;
        env_ = nullptr;
        if (vm_->AttachCurrentThread(reinterpret_cast<void**>(&env_), nullptr) == JNI_OK) {
            attached_ = true;
        } else {
            env_ = nullptr;
        }
    }
    AttachScope(const AttachScope&) = delete;
    AttachScope& operator=(const AttachScope&) = delete;
    ~AttachScope() { detach(); }

    // Null when the thread could not be attached (or there is no VM).
    JNIEnv* env() const { return env_; }
    // Detaches now, when this scope attached the thread, and answers DetachCurrentThread's
    // result; JNI_OK when it has nothing to detach. The environment is gone afterwards.
    jint detach() {
        if (!attached_) return JNI_OK;
        attached_ = false;
        env_ = nullptr;
        return vm_->DetachCurrentThread();
    }

private:
    JavaVM* vm_;
    JNIEnv* env_ = nullptr;
    bool attached_ = false;
};

// A Java class kept across native calls: a global reference, deleted when the holder goes
// (with the then calling thread's environment, never one kept from another call).
class GlobalClass {
public:
    GlobalClass() = default;
    GlobalClass(const GlobalClass&) = delete;
    GlobalClass& operator=(const GlobalClass&) = delete;
    ~GlobalClass() { reset(); }

    // Finds `path` and keeps it. On failure (class missing, or no memory for the reference)
    // the exception is described and cleared and false returned; the holder stays empty.
    bool find(JNIEnv* env, const char* path) {
        reset();
        jclass local = env->FindClass(path);
        if (local == nullptr) {
            failed(env);
            return false;
        }
        cls_ = static_cast<jclass>(env->NewGlobalRef(local));
        env->DeleteLocalRef(local);
        if (cls_ == nullptr) {
            failed(env);
            return false;
        }
        return true;
    }
    jclass get() const { return cls_; }
    explicit operator bool() const { return cls_ != nullptr; }
    // Deletes the reference with `env`, the calling thread's environment that the holder
    // already has (null: the reference is only forgotten).
    void reset(JNIEnv* env) {
        if (cls_ != nullptr && env != nullptr) env->DeleteGlobalRef(cls_);
        cls_ = nullptr;
    }
    // Deletes the reference with the calling thread's environment (attaching it for the
    // moment when needed).
    void reset() {
        if (cls_ == nullptr) return;
        JavaVM* vm = nullptr;
        jsize count = 0;
        if (JNI_GetCreatedJavaVMs(&vm, 1, &count) == JNI_OK && count > 0) {
            AttachScope scope(vm);
            if (scope.env() != nullptr) scope.env()->DeleteGlobalRef(cls_);
        }
        cls_ = nullptr;
    }

private:
    jclass cls_ = nullptr;
};

}  // namespace jni
}  // namespace tarnwick

#endif
