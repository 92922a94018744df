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

jclass cmt_address_builder::found_class() const { return env_ != nullptr ? found_ : nullptr; }

jfieldID cmt_address_builder::field(jobject obj, std::size_t i) const {
    return obj != nullptr && found_ != nullptr ? class_.field(i) : nullptr;
}

jobject cmt_address_builder::create_object() {
    if (found_ == nullptr || class_.method(0) == nullptr) return nullptr;
    // NewObject answers null exactly when the constructor threw (or no object could be had).
    jobject obj = class_.create(env_, 0);
    if (obj == nullptr) jni::failed(env_);
    return obj;
}

// The string is a local reference of the search's frame for this address.
void cmt_address_builder::set_text(jobject obj, std::size_t i, const char* value) {
    jfieldID id = field(obj, i);
    if (id == nullptr || value == nullptr) return;
    jstring s = jni::new_field_string(env_, value, std::strlen(value) + 1);
    if (s == nullptr) {
        jni::failed(env_);  // no room for it: described and cleared, the field stays as it was
        return;
    }
    env_->SetObjectField(obj, id, s);
}

void cmt_address_builder::set_byte(jobject obj, std::size_t i, signed char value) {
    if (jfieldID id = field(obj, i)) env_->SetByteField(obj, id, static_cast<jbyte>(value));
}

void cmt_address_builder::set_int(jobject obj, std::size_t i, int value) {
    if (jfieldID id = field(obj, i)) env_->SetIntField(obj, id, static_cast<jint>(value));
}

void cmt_address_builder::set_object(jobject obj, std::size_t i, jobject value) {
    if (jfieldID id = field(obj, i)) env_->SetObjectField(obj, id, value);
}

}  // namespace tarnwick
