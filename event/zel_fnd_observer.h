// What the five observers of the event bridge share: the VM, the environment member, the
// attach of the delivering thread for one notification, the frame of init() and the
// destructor.
//
// A facade delivers each notification on a thread of its own, which the observer attaches for
// that notification alone (AttachCurrentThread at its start, DetachCurrentThread at its end).
// The observer keeps one environment member that every notification overwrites with its
// thread's environment, unguarded by a lock (a facade that delivers on two threads writes it
// from both); a notification itself works only with the environment its own attach produced.
#ifndef TARNWICK_ZEL_FND_OBSERVER_H
#define TARNWICK_ZEL_FND_OBSERVER_H

#include <jni.h>

#include <cstddef>
#include <initializer_list>

#include "tovr_jni.h"
#include "tovr_jni_class.h"

namespace tarnwick {

class zel_fnd_observer {
public:
    zel_fnd_observer(const zel_fnd_observer&) = delete;
    zel_fnd_observer& operator=(const zel_fnd_observer&) = delete;

protected:
    // A static fire method of proxy class `proxy` (its place in the list given to start()),
    // whose ID lands in *id.
    struct FireMethod {
        std::size_t proxy;
        const char* name;
        const char* signature;
        jmethodID* id;
    };

    template <typename Code>
    class Notification;

    zel_fnd_observer();
    // Deletes the proxy classes' global references with the environment of the thread that
    // destroys the observer (attached for the moment when the VM has not seen it).
    ~zel_fnd_observer();

    // The body of every observer's init(): finds the VM (a non-zero answer of
    // JNI_GetCreatedJavaVMs is returned as it is), attaches the calling thread (0 at once when it
    // cannot), then finds each proxy class and keeps it as a global reference, finds each record
    // class the notifications build, and looks up each fire method, in that order; the first
    // that is missing (described and cleared) ends the lookups and leaves the IDs after it
    // unset. Answers the result of detaching the thread. An observer is registered whatever
    // this answers; its notifications then use what was found.
    int start(std::initializer_list<const char*> proxies, std::initializer_list<jni::JavaClass*> records,
              std::initializer_list<FireMethod> methods);

    // Proxy class `i` of the list given to start(); null when it was not found.
    jclass proxy(std::size_t i) const { return proxies_[i].get(); }

private:
    // The environment member: written by every notification's attach, on the notification's
    // own thread, with no lock.
    void remember(JNIEnv* env);

    static constexpr std::size_t kMaxProxies = 2;
    JavaVM* vm_;
    JNIEnv* jnienv_;
    jni::GlobalClass proxies_[kMaxProxies];
};

// One notification: the delivering thread attached for its length, detached as the scope
// ends. The scope keeps all that the detach needs, so a listener may stop the event manager,
// and so destroy the observer, while the notification is under way: after the fire call a
// notification uses nothing of its observer.
//
// fail() is the one way out after a failed Java step: the pending exception, if any, is
// described and cleared and the observer's failure code is returned to the facade. A step
// with a message of its own traces it (level 0) just before:
//
//     if (mid == nullptr) {
//         CMT_TRACE(kTraceError, "...");
//         return call.fail();
//     }
template <typename Code>
class zel_fnd_observer::Notification {
public:
    Notification(zel_fnd_observer& observer, Code failure)
        : scope_(observer.vm_, jni::AttachScope::kAlways), failure_(failure) {
        if (scope_.env() != nullptr) observer.remember(scope_.env());
    }
    Notification(const Notification&) = delete;
    Notification& operator=(const Notification&) = delete;

    bool attached() const { return scope_.env() != nullptr; }
    // The delivering thread's environment, never the observer's member.
    JNIEnv* env() const { return scope_.env(); }
    Code fail() const {
        jni::failed(scope_.env());
        return failure_;
    }

private:
    jni::AttachScope scope_;
    const Code failure_;
};

// One argument of a Java call made through a jvalue.
inline jvalue java_value(jint v) {
    jvalue j;
    j.i = v;
    return j;
}
inline jvalue java_value(jlong v) {
    jvalue j;
    j.j = v;
    return j;
}
inline jvalue java_value(jobject v) {
    jvalue j;
    j.l = v;
    return j;
}

// Calls the one-argument void method `mid` on `obj`. False when the setter threw; the exception
// stays pending for the notification's fail().
inline bool call_setter(JNIEnv* env, jobject obj, jmethodID mid, jvalue value) {
    env->CallVoidMethodA(obj, mid, &value);
    return !jni::pending(env);
}

}  // namespace tarnwick

#endif
