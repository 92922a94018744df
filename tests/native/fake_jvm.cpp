#include "fake_jvm.h"

namespace fake_jvm {
namespace {

jint JNICALL destroy(JavaVM*) {
    ++control().destroys;
    return control().destroy_result;
}

jint JNICALL attach(JavaVM*, void** penv, void*) {
    ++control().attaches;
    if (control().attach_result != JNI_OK) return control().attach_result;
    *penv = control().env;
    return JNI_OK;
}

jint JNICALL detach(JavaVM*) {
    ++control().detaches;
    return control().detach_result;
}

jint JNICALL get_env(JavaVM*, void** penv, jint version) {
    control().last_get_env_version = version;
    if (control().get_env_result != JNI_OK) {
        *penv = nullptr;  // as the VM does on failure
        return control().get_env_result;
    }
    *penv = control().env;
    return JNI_OK;
}

JNIInvokeInterface_ g_functions = {nullptr, nullptr, nullptr, destroy, attach, detach, get_env, attach};
JavaVM g_vm = {&g_functions};

}  // namespace

Control& control() {
    static Control c;
    return c;
}

JavaVM* vm() { return &g_vm; }

void reset() { control() = Control(); }

}  // namespace fake_jvm

extern "C" JNIEXPORT jint JNICALL JNI_GetCreatedJavaVMs(JavaVM** vms, jsize, jsize* count) {
    ++fake_jvm::control().lookups;
    if (!fake_jvm::control().present) {
        *count = 0;
        return JNI_OK;
    }
    vms[0] = fake_jvm::control().other_vm != nullptr ? fake_jvm::control().other_vm : fake_jvm::vm();
    *count = 1;
    return JNI_OK;
}
