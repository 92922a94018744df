// What the five observers of the event bridge share: the VM, the environment member, the
// proxy classes and fire method IDs, the attach of the delivering thread for one notification,
// the fire call that ends a notification, the frame of init() and the destructor.
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

#include "cmt_trace.h"
#include "tovr_jni.h"
#include "tovr_jni_class.h"

namespace tarnwick {

class zel_fnd_observer {
public:
    zel_fnd_observer(const zel_fnd_observer&) = delete;
    zel_fnd_observer& operator=(const zel_fnd_observer&) = delete;

protected:
    // A static fire method of proxy class `proxy` (its place in the list given to start()).
    // Each observer numbers its fire methods in the order it gives them to start().
    struct FireMethod {
        std::size_t proxy;
        const char* name;
        const char* signature;
    };

    // What a notification does when its fire method throws: the common and panel observers
    // leave the exception pending for Java and answer 0; the others answer their failure code.
    enum class Thrown { kLeftPending, kFails };

    template <typename Code>
    class Notification;

    // `module` names the observer's trace lines.
    zel_fnd_observer(const char* module, Thrown thrown);
    // Deletes the proxy classes' global references with the environment of the thread that
    // destroys the observer (attached for the moment when the VM has not seen it).
    ~zel_fnd_observer();

    // The body of every observer's init(): finds the VM (a non-zero answer of
    // JNI_GetCreatedJavaVMs is returned as it is), attaches the calling thread (0 at once when it
    // cannot), then finds each proxy class and keeps it as a global reference, finds each record
    // class the notifications build, and looks up each fire method, in that order; the first
    // that is missing (described and cleared) ends the lookups and leaves the IDs after it
    // unset (null). Answers the result of detaching the thread. An observer is registered
    // whatever this answers; its notifications then use what was found.
    int start(std::initializer_list<const char*> proxies, std::initializer_list<jni::JavaClass*> records,
              std::initializer_list<FireMethod> methods);

    // Proxy class `i` of the list given to start(); null when it was not found.
    jclass proxy(std::size_t i) const { return proxies_[i].get(); }
    // Fire method `i`; null when init() did not find it.
    jmethodID method(std::size_t i) const { return methods_[i]; }

    // The whole of a notification that only passes its values on to fire method `method`:
    // attach (else `failure`), "[Start]" (with the status when one is given), the fire call
    // with `args`, "[End]"; see Notification::fire.
    template <typename Code, typename... Args>
    Code forward(const char* operation, Code failure, const int* status, std::size_t method, Args... args);

private:
    // The environment member: written by every notification's attach, on the notification's
    // own thread, with no lock.
    void remember(JNIEnv* env);

    static constexpr std::size_t kMaxProxies = 2;
    static constexpr std::size_t kMaxMethods = 16;  // the common observer has 15
    const char* const module_;
    const Thrown thrown_;
    JavaVM* vm_;
    JNIEnv* jnienv_;
    jni::GlobalClass proxies_[kMaxProxies];
    std::size_t method_proxies_[kMaxMethods] = {};  // the proxy class of each fire method
    jmethodID methods_[kMaxMethods] = {};
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
//
// fire() is the last step of every notification that ends in a static void fire method.
template <typename Code>
class zel_fnd_observer::Notification {
public:
    // `operation` names the notification in the lines fire() traces.
    Notification(zel_fnd_observer& observer, Code failure, const char* operation)
        : scope_(observer.vm_, jni::AttachScope::kAlways),
          failure_(failure),
          observer_(observer),
          operation_(operation) {
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

    // Calls static fire method `method` with `args`, traces `exit` and answers 0. When the
    // method throws, an observer that leaves the exception pending goes on the same way; any
    // other answers fail(), after tracing `threw` (level 0) when one is given.
    template <typename... Args>
    Code fire(std::size_t method, const char* exit, const char* threw, Args... args) const {
        JNIEnv* const env = scope_.env();
        const char* const module = observer_.module_;
        const Thrown thrown = observer_.thrown_;
        // The last use of the observer: the listeners may stop the manager.
        env->CallStaticVoidMethod(observer_.proxy(observer_.method_proxies_[method]), observer_.methods_[method],
                                  args...);
        if (jni::pending(env) && thrown == Thrown::kFails) {
            if (threw != nullptr) CMT_TRACE_AT(module, kTraceError, operation_, "%s", threw);
            return fail();
        }
        CMT_TRACE_AT(module, kTraceFlow, operation_, "%s", exit);
        return 0;
    }

private:
    jni::AttachScope scope_;
    const Code failure_;
    zel_fnd_observer& observer_;
    const char* const operation_;
};

template <typename Code, typename... Args>
Code zel_fnd_observer::forward(const char* operation, Code failure, const int* status, std::size_t method,
                               Args... args) {
    Notification<Code> call(*this, failure, operation);
    if (!call.attached()) return failure;
    if (status != nullptr) {
        CMT_TRACE_AT(module_, kTraceFlow, operation, "[Start]. status = [%d]", *status);
    } else {
        CMT_TRACE_AT(module_, kTraceFlow, operation, "[Start]");
    }
    return call.fire(method, "[End]", nullptr, args...);
}

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
