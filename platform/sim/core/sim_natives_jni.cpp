// The natives bound by table (sim_jni_natives.h): kept as each JNI source registers them, and
// bound to their classes when the VM loads libtovrsimctl.so.
#include <jni.h>

#include <string>
#include <utility>
#include <vector>

#include "sim_jni_natives.h"

namespace tovr_sim_jni {
namespace {

struct Table {
    std::string java_class;
    std::vector<Native> natives;
};

std::vector<Table>& tables() {
    static std::vector<Table>* t = new std::vector<Table>;  // filled at static initialisation
    return *t;
}

// Binds one class's table; false with the VM's exception pending.
bool bind(JNIEnv* env, const Table& t) {
    jclass cls = env->FindClass(t.java_class.c_str());
    if (cls == nullptr) return false;
    std::vector<JNINativeMethod> methods;
    for (const Native& n : t.natives) {
        methods.push_back(JNINativeMethod{const_cast<char*>(n.name), const_cast<char*>(n.signature.c_str()), n.fn});
    }
    const jint rc = env->RegisterNatives(cls, methods.data(), static_cast<jint>(methods.size()));
    env->DeleteLocalRef(cls);
    return rc == JNI_OK;
}

}  // namespace

bool bind_natives(const char* java_class, std::vector<Native> natives) {
    tables().push_back(Table{java_class, std::move(natives)});
    return true;
}

}  // namespace tovr_sim_jni

// A failure leaves the VM's exception pending: the VM then throws it from System.loadLibrary.
extern "C" JNIEXPORT jint JNICALL JNI_OnLoad(JavaVM* vm, void*) {
    JNIEnv* env = nullptr;
    if (vm->GetEnv(reinterpret_cast<void**>(&env), JNI_VERSION_1_6) != JNI_OK) return JNI_ERR;
    for (const tovr_sim_jni::Table& t : tovr_sim_jni::tables()) {
        if (!tovr_sim_jni::bind(env, t)) return JNI_ERR;
    }
    return JNI_VERSION_1_6;
}
