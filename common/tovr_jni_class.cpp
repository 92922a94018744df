#include "tovr_jni_class.h"

#include "CJvm.h"
#include "tovr_jni.h"

namespace tarnwick {
namespace jni {

namespace {

std::mutex& holders_lock() {
    static std::mutex m;
    return m;
}

JavaClass*& holders() {
    static JavaClass* first = nullptr;
    return first;
}

}  // namespace

JavaClass::JavaClass(const char* path, const Member* members, std::size_t count)
    : path_(path), members_(members), count_(count), ids_(new void*[count]()) {
    std::lock_guard<std::mutex> lock(holders_lock());
    next_ = holders();
    holders() = this;
}

void JavaClass::forget_all() {
    std::lock_guard<std::mutex> lock(holders_lock());
    for (JavaClass* h = holders(); h != nullptr; h = h->next_) {
        h->class_.store(nullptr, std::memory_order_release);
        for (std::size_t i = 0; i < h->count_; ++i) h->ids_[i] = nullptr;
    }
}

JavaClass::~JavaClass() {
    {
        std::lock_guard<std::mutex> lock(holders_lock());
        for (JavaClass** p = &holders(); *p != nullptr; p = &(*p)->next_) {
            if (*p == this) {
                *p = next_;
                break;
            }
        }
    }
    jclass cls = class_.load(std::memory_order_acquire);
    if (cls != nullptr) {
        JavaVM* vm = nullptr;
        jsize vms = 0;
        JNIEnv* env = nullptr;
        if (JNI_GetCreatedJavaVMs(&vm, 1, &vms) == JNI_OK && vms > 0 &&
            vm->GetEnv(reinterpret_cast<void**>(&env), kJniVersion) == JNI_OK && env != nullptr) {
            env->DeleteGlobalRef(cls);
        }
    }
    delete[] ids_;
}

jclass JavaClass::get(JNIEnv* env) {
    jclass cls = class_.load(std::memory_order_acquire);
    return cls != nullptr ? cls : find(env);
}

jclass JavaClass::find(JNIEnv* env) {
    std::lock_guard<std::mutex> lock(lookup_);
    jclass cls = class_.load(std::memory_order_relaxed);
    if (cls != nullptr) return cls;  // another thread found it meanwhile
    LocalRef<jclass> local(env, env->FindClass(path_));
    if (!local) {
        failed(env);
        return nullptr;
    }
    for (std::size_t i = 0; i < count_; ++i) {
        const Member& m = members_[i];
        void* id = nullptr;
        switch (m.kind) {
        case Member::kConstructor:
        case Member::kMethod:
            id = env->GetMethodID(local.get(), m.name, m.signature);
            break;
        case Member::kStaticMethod:
            id = env->GetStaticMethodID(local.get(), m.name, m.signature);
            break;
        case Member::kField:
            id = env->GetFieldID(local.get(), m.name, m.signature);
            break;
        case Member::kStaticField:
            id = env->GetStaticFieldID(local.get(), m.name, m.signature);
            break;
        }
        if (id == nullptr) failed(env);  // NoSuchMethodError / NoSuchFieldError: the member stays null
        ids_[i] = id;
    }
    cls = static_cast<jclass>(env->NewGlobalRef(local.get()));
    if (cls == nullptr) {
        failed(env);
        return nullptr;
    }
    class_.store(cls, std::memory_order_release);
    return cls;
}

jclass JavaClass::require(JNIEnv* env) {
    jclass cls = get(env);
    if (cls == nullptr && !env->ExceptionCheck()) {
        LocalRef<jclass> error(env, env->FindClass("java/lang/NoClassDefFoundError"));
        if (error) env->ThrowNew(error.get(), path_);
    }
    return cls;
}

jmethodID JavaClass::method(std::size_t i) const {
    if (i >= count_ || class_.load(std::memory_order_acquire) == nullptr) return nullptr;
    return static_cast<jmethodID>(ids_[i]);
}

jfieldID JavaClass::field(std::size_t i) const {
    if (i >= count_ || class_.load(std::memory_order_acquire) == nullptr) return nullptr;
    return static_cast<jfieldID>(ids_[i]);
}

jobject JavaClass::create(JNIEnv* env, std::size_t i) {
    jclass cls = get(env);
    if (cls == nullptr) return nullptr;
    jmethodID init = method(i);
    if (init == nullptr) return nullptr;
    return env->NewObject(cls, init);
}

}  // namespace jni
}  // namespace tarnwick
