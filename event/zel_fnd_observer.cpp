// What the observers of the event bridge share.
#include "zel_fnd_observer.h"

#include "CJvm.h"

namespace tarnwick {

zel_fnd_observer::zel_fnd_observer(const char* module, Thrown thrown)
    : module_(module), thrown_(thrown), vm_(nullptr), jnienv_(nullptr) {}

zel_fnd_observer::~zel_fnd_observer() {
    if (vm_ == nullptr) return;
    // The environment kept from the last notification is a facade thread's, detached since; the
    // observer is destroyed on the thread that stops the manager (a Java thread, or a facade
    // thread when a listener stops it), whose own environment takes the member's place.
    jni::AttachScope scope(vm_);
    jnienv_ = scope.env();
    for (jni::GlobalClass& cls : proxies_) cls.reset(jnienv_);
}

void zel_fnd_observer::remember(JNIEnv* env) { jnienv_ = env; }

int zel_fnd_observer::start(std::initializer_list<const char*> proxies,
                            std::initializer_list<jni::JavaClass*> records,
                            std::initializer_list<FireMethod> methods) {
    jsize count = 0;
    const jint rc = JNI_GetCreatedJavaVMs(&vm_, 1, &count);
    if (rc != JNI_OK) return rc;
    // A failed attach is reported as success; the observer is registered all the same.
    jni::AttachScope scope(vm_, jni::AttachScope::kAlways);
    JNIEnv* const env = scope.env();
    if (env == nullptr) return 0;
    remember(env);
    bool ok = true;
    std::size_t i = 0;
    for (const char* path : proxies) {
        if (ok) ok = i < kMaxProxies && proxies_[i++].find(env, path);
    }
    for (jni::JavaClass* record : records) {
        if (ok) ok = record->get(env) != nullptr;
    }
    std::size_t n = 0;
    for (const FireMethod& m : methods) {
        if (!ok || n == kMaxMethods) break;
        method_proxies_[n] = m.proxy;
        methods_[n] = env->GetStaticMethodID(proxy(m.proxy), m.name, m.signature);
        if (methods_[n++] == nullptr) {
            jni::failed(env);
            ok = false;
        }
    }
    return scope.detach();
}

}  // namespace tarnwick
