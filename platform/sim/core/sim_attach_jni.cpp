// JNI side of tarnwick.sim.SimDevice's VM controls: attaching a thread to the VM fails on
// demand, and the observers registered with each facade.
#include <jni.h>

#include <atomic>
#include <string>

#include "sim_jni.h"
#include "tovr_sim.h"

namespace {

// ----- attach failures -----
//
// The VM's invocation table is replaced, once, by a copy whose AttachCurrentThread can refuse;
// everything else goes to the VM's own functions. The library finds the VM as usual and sees
// the refusal exactly as from a VM that cannot attach the thread.
std::atomic<int> g_attach_failures{0};  // < 0: every attach fails
std::atomic<int> g_attach_refused{0};
const JNIInvokeInterface_* g_real_invoke = nullptr;
JNIInvokeInterface_ g_invoke;

jint JNICALL refusing_attach(JavaVM* vm, void** penv, void* args) {
    int n = g_attach_failures.load();
    while (n != 0) {
        if (n < 0 || g_attach_failures.compare_exchange_weak(n, n - 1)) {
            ++g_attach_refused;
            return JNI_ERR;
        }
    }
    return g_real_invoke->AttachCurrentThread(vm, penv, args);
}

void install_refusing_attach(JNIEnv* env) {
    JavaVM* vm = nullptr;
    if (env->GetJavaVM(&vm) != JNI_OK || vm == nullptr) return;
    if (vm->functions == &g_invoke) return;
    g_real_invoke = vm->functions;
    g_invoke = *g_real_invoke;
    g_invoke.AttachCurrentThread = refusing_attach;
    vm->functions = &g_invoke;
}

}  // namespace

extern "C" {

JNIEXPORT void JNICALL Java_tarnwick_sim_SimDevice_failAttach(JNIEnv* env, jclass, jint times) {
    install_refusing_attach(env);
    g_attach_failures = times;
}

JNIEXPORT jint JNICALL Java_tarnwick_sim_SimDevice_refusedAttaches(JNIEnv*, jclass) { return g_attach_refused.load(); }

JNIEXPORT jint JNICALL Java_tarnwick_sim_SimDevice_observerCount(JNIEnv* env, jclass, jstring facade) {
    return static_cast<jint>(tovr_sim::observer_count(tovr_sim_jni::text(env, facade)));
}

}  // extern "C"
