// Finds the process's Java VM and hands out the calling Java thread's environment.
#ifndef TARNWICK_CJVM_H
#define TARNWICK_CJVM_H

#include <jni.h>

namespace tarnwick {

class CJvm {
public:
    CJvm() = delete;

    // The process's VM, filled by CreateJVM and cleared by DestroyJVM.
    static JavaVM* ms_jvm;
    // The environment of the latest GetJNIEnv on any thread: one shared variable by design, so
    // callers use GetJNIEnv's return value at once and never read this later.
    static JNIEnv* ms_jnienv;

    static void CreateJVM();
    static JavaVM* GetJVM();
    static JNIEnv* GetJNIEnv();
    static int DetachThread();
    static int DestroyJVM();
    static void ReleaseJObject(jobject obj);
    static jobject CreateJavaObject(const char* className);
};

// The JNI version asked for everywhere.
constexpr jint kJniVersion = 0x10002;

}  // namespace tarnwick

#endif
