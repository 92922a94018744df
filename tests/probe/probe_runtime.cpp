#include "probe.h"

#include "CJvm.h"

using tarnwick::CJvm;

bool probe_runtime::has_vm() { return CJvm::ms_jvm != nullptr; }
bool probe_runtime::has_env() { return CJvm::GetJNIEnv() != nullptr; }
void probe_runtime::create_jvm() { CJvm::CreateJVM(); }
void probe_runtime::forget_jvm() { CJvm::ms_jvm = nullptr; }

int probe_runtime::destroy_jvm_without_vm() {
    JavaVM* kept = CJvm::ms_jvm;
    CJvm::ms_jvm = nullptr;
    int rc = CJvm::DestroyJVM();
    CJvm::ms_jvm = kept;
    return rc;
}

jobject probe_runtime::create_java_object(const char* class_name) {
    return CJvm::CreateJavaObject(class_name);
}

void probe_runtime::release_java_object(jobject obj) { CJvm::ReleaseJObject(obj); }
