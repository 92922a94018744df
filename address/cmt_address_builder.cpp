#include "cmt_address_builder.h"

#include "CJvm.h"
#include "cmt_trace.h"
#include "tovr_jni.h"

namespace tarnwick {

cmt_address_builder::cmt_address_builder(const char* module, const char* class_path) {
    env_ = CJvm::GetJNIEnv();
    if (env_ == nullptr) {
#define CMT_TRACE_MODULE module
        CMT_TRACE_OP(kTraceError, module, "Fail to get JNIEnv.");
#undef CMT_TRACE_MODULE
        return;
    }
    class_ = env_->FindClass(class_path);
    if (class_ == nullptr) {
        jni::failed(env_);
        return;
    }
    constructor_ = env_->GetMethodID(class_, "<init>", "()V");
    if (constructor_ == nullptr) jni::failed(env_);
}

// Releases nothing: the class is a local reference that goes when the native call returns.
cmt_address_builder::~cmt_address_builder() {}

jobject cmt_address_builder::create_object() {
    if (env_ == nullptr || class_ == nullptr || constructor_ == nullptr) return nullptr;
    jobject obj = env_->NewObject(class_, constructor_);
    if (jni::failed(env_)) {
        if (obj != nullptr) env_->DeleteLocalRef(obj);
        return nullptr;
    }
    return obj;
}

jfieldID cmt_address_builder::field(const char* name, const char* signature) {
    if (env_ == nullptr || class_ == nullptr) return nullptr;
    jfieldID id = env_->GetFieldID(class_, name, signature);
    if (id == nullptr) jni::failed(env_);
    return id;
}

void cmt_address_builder::set_text(jobject obj, jfieldID id, const char* value) {
    if (env_ == nullptr || obj == nullptr || id == nullptr || value == nullptr) return;
    jni::LocalRef<jstring> s(env_, env_->NewStringUTF(value));
    if (jni::failed(env_) || !s) return;
    env_->SetObjectField(obj, id, s.get());
}

void cmt_address_builder::set_byte(jobject obj, jfieldID id, signed char value) {
    if (env_ == nullptr || obj == nullptr || id == nullptr) return;
    env_->SetByteField(obj, id, static_cast<jbyte>(value));
}

void cmt_address_builder::set_int(jobject obj, jfieldID id, int value) {
    if (env_ == nullptr || obj == nullptr || id == nullptr) return;
    env_->SetIntField(obj, id, static_cast<jint>(value));
}

void cmt_address_builder::set_object(jobject obj, jfieldID id, jobject value) {
    if (env_ == nullptr || obj == nullptr || id == nullptr) return;
    env_->SetObjectField(obj, id, value);
}

}  // namespace tarnwick
