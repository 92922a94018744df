#include "CJvm.h"

#include <cstdio>

namespace tarnwick {

JavaVM* CJvm::ms_jvm = nullptr;
JNIEnv* CJvm::ms_jnienv = nullptr;

void CJvm::CreateJVM() {
    if (ms_jvm != nullptr) return;
    jsize count = 0;
    // The library never starts a VM; it only finds the one that loaded it.
    JNI_GetCreatedJavaVMs(&ms_jvm, 1, &count);
}

JavaVM* CJvm::GetJVM() {
    CreateJVM();
    return ms_jvm;
}

JNIEnv* CJvm::GetJNIEnv() {
    if (ms_jvm == nullptr) return nullptr;
    // The VM fills a local; the shared variable is written from it, but the value handed back
    // is this thread's own: another thread's call may overwrite ms_jnienv at any moment.
    JNIEnv* env = nullptr;
    jint rc = ms_jvm->GetEnv(reinterpret_cast<void**>(&env), kJniVersion);
    ms_jnienv = env;
    if (rc == JNI_EVERSION) {
        printf("JNI VERSION ERROR\n");
    } else if (rc != JNI_OK) {
        printf("failed to Get JNIEnv\n");
    }
    return env;
}

int CJvm::DetachThread() {
    if (ms_jvm == nullptr) return 0;
    return ms_jvm->DetachCurrentThread();
}

int CJvm::DestroyJVM() {
    if (ms_jvm == nullptr) return 0;
    int rc = ms_jvm->DestroyJavaVM();
    ms_jvm = nullptr;
    return rc;
}

jobject CJvm::CreateJavaObject(const char* className) {
    JNIEnv* env = GetJNIEnv();
    if (env == nullptr) return nullptr;
    jclass cls = env->FindClass(className);
    if (cls != nullptr) {
        jmethodID ctor = env->GetMethodID(cls, "<init>", "()V");
        if (ctor != nullptr) {
            jobject obj = env->NewObject(cls, ctor);
            if (obj != nullptr) return obj;
        }
    }
    env->ExceptionDescribe();
    env->ExceptionClear();
    return nullptr;
}

void CJvm::ReleaseJObject(jobject obj) {
    JNIEnv* env = GetJNIEnv();
    if (env == nullptr) return;
    jclass cls = env->GetObjectClass(obj);
    if (cls != nullptr) {
        jmethodID release = env->GetMethodID(cls, "release", "()V");
        if (release != nullptr) {
            // An exception thrown by release() stays pending for the Java caller.
            env->CallVoidMethod(obj, release);
            return;
        }
    }
    env->ExceptionDescribe();
    env->ExceptionClear();
}

}  // namespace tarnwick
