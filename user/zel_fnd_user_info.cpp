#include "zel_fnd_user_info.h"

#include <cstdio>

#include "CJvm.h"

namespace tarnwick {

namespace {

constexpr const char* kUserClass = "tarnwick/zel/user/UserImpl";
constexpr const char* kAccessLevelClass = "tarnwick/user/attribute/AccessLevel";

}  // namespace

// A missing class or method is left pending for the Java caller; the builder then stays empty.
zel_fnd_user_info::zel_fnd_user_info() {
    JNIEnv* env = CJvm::GetJNIEnv();
    if (env == nullptr) return;
    jclass probe = env->FindClass(kUserClass);
    if (probe == nullptr) return;
    env->DeleteLocalRef(probe);
    if (!user_class_.find(env, kUserClass)) return;
    set_attribute_ = env->GetMethodID(user_class_.get(), "setAttribute", "(Ltarnwick/user/attribute/UserAttribute;)V");
    if (set_attribute_ == nullptr) user_class_.reset();
}

zel_fnd_user_info::~zel_fnd_user_info() {}

jobject zel_fnd_user_info::create_user_info() {
    if (!user_class_) return nullptr;
    JNIEnv* env = CJvm::GetJNIEnv();
    if (env == nullptr) return nullptr;
    jmethodID init = env->GetMethodID(user_class_.get(), "<init>", "()V");
    if (init == nullptr) return nullptr;
    return env->NewObject(user_class_.get(), init);
}

void zel_fnd_user_info::set_field_login_name(jobject user, char* text) {
    set_text_attribute(user, "tarnwick/user/attribute/LoginName", text);
}

void zel_fnd_user_info::set_field_user_name(jobject user, char* text) {
    set_text_attribute(user, "tarnwick/user/attribute/UserName", text);
}

void zel_fnd_user_info::set_field_mail_address(jobject user, char* text) {
    set_text_attribute(user, "tarnwick/user/attribute/MailAddress", text);
}

void zel_fnd_user_info::set_field_account_id(jobject user, int id) {
    char text[16];
    std::snprintf(text, sizeof text, "%d", id);
    set_text_attribute(user, "tarnwick/account/attribute/AccountID", text);
}

void zel_fnd_user_info::set_field_access_level(jobject user, ESV_ZEL_USER_RIGHTS level) {
    const char* name = nullptr;
    if (level == 0) name = "ADMIN";
    if (level == 1) name = "USER";
    if (name == nullptr || !user_class_) return;  // no attribute for other levels
    JNIEnv* env = CJvm::GetJNIEnv();
    if (env == nullptr) return;
    jni::LocalRef<jclass> cls(env, env->FindClass(kAccessLevelClass));
    if (!cls) return;
    jfieldID field = env->GetStaticFieldID(cls.get(), name, "Ltarnwick/user/attribute/AccessLevel;");
    if (field == nullptr) return;
    jni::LocalRef<jobject> attribute(env, env->GetStaticObjectField(cls.get(), field));
    if (jni::pending(env)) return;
    set_attribute(env, user, attribute.get());
}

// A null text makes an attribute holding null.
void zel_fnd_user_info::set_text_attribute(jobject user, const char* class_path, const char* text) {
    if (!user_class_) return;
    JNIEnv* env = CJvm::GetJNIEnv();
    if (env == nullptr) return;
    jni::LocalRef<jclass> cls(env, env->FindClass(class_path));
    if (!cls) return;
    jmethodID init = env->GetMethodID(cls.get(), "<init>", "(Ljava/lang/String;)V");
    if (init == nullptr) return;
    jni::LocalRef<jstring> value;
    if (text != nullptr) {
        value.reset(env, env->NewStringUTF(text));
        if (!value) return;
    }
    jni::LocalRef<jobject> attribute(env, env->NewObject(cls.get(), init, value.get()));
    if (!attribute) return;
    set_attribute(env, user, attribute.get());
}

// Only a UserImpl is given the call: a null or foreign object would make the VM call a method
// on an object that does not have it.
void zel_fnd_user_info::set_attribute(JNIEnv* env, jobject user, jobject attribute) {
    if (user == nullptr || !env->IsInstanceOf(user, user_class_.get())) return;
    env->CallVoidMethod(user, set_attribute_, attribute);
}

}  // namespace tarnwick
