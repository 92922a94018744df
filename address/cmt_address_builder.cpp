#include "cmt_address_builder.h"

#include <cstring>

#include "CJvm.h"
#include "cmt_trace.h"
#include "tovr_jni.h"
#include "tovr_jni_class.h"
#include "tovr_jni_text.h"

namespace tarnwick {

cmt_address_builder::cmt_address_builder(const char* module, jni::JavaClass& java_class) : class_(java_class) {
    env_ = CJvm::GetJNIEnv();
    if (env_ == nullptr) {
#define CMT_TRACE_MODULE module
        CMT_TRACE_OP(kTraceError, module, "Fail to get JNIEnv.");
#undef CMT_TRACE_MODULE
        return;
    }
    found_ = class_.get(env_);
}

// Releases nothing: the class belongs to its holder.
cmt_address_builder::~cmt_address_builder() {}

jclass cmt_address_builder::java_class_() const { return env_ != nullptr ? found_ : nullptr; }

jfieldID cmt_address_builder::field(std::size_t i) const { return found_ != nullptr ? class_.field(i) : nullptr; }

jobject cmt_address_builder::create_object() {
    if (found_ == nullptr || class_.method(0) == nullptr) return nullptr;
    jobject obj = class_.create(env_, 0);
    if (jni::failed(env_)) {
        if (obj != nullptr) env_->DeleteLocalRef(obj);
        return nullptr;
    }
    return obj;
}

void cmt_address_builder::set_text(jobject obj, jfieldID id, const char* value) {
    if (env_ == nullptr || obj == nullptr || id == nullptr || value == nullptr) return;
    jni::LocalRef<jstring> s(env_, jni::new_field_string(env_, value, std::strlen(value) + 1));
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
