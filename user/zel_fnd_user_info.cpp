#include "zel_fnd_user_info.h"

#include <cstdio>

#include "CJvm.h"
#include "tovr_builder.h"
#include "tovr_jni.h"
#include "tovr_jni_class.h"

namespace tarnwick {

namespace {

enum UserMember { kUserInit, kSetAttribute };

jni::JavaClass& user_class() {
    static const jni::Member members[] = {
        {jni::Member::kConstructor, "<init>", "()V"},
        {jni::Member::kMethod, "setAttribute", "(Ltarnwick/user/attribute/UserAttribute;)V"},
    };
    static jni::JavaClass holder("tarnwick/zel/user/UserImpl", members);
    return holder;
}

const jni::Member kStringConstructor[] = {{jni::Member::kConstructor, "<init>", "(Ljava/lang/String;)V"}};

enum AccessLevelMember { kAdmin, kUser };

jni::JavaClass& access_level_class() {
    static const jni::Member members[] = {
        {jni::Member::kStaticField, "ADMIN", "Ltarnwick/user/attribute/AccessLevel;"},
        {jni::Member::kStaticField, "USER", "Ltarnwick/user/attribute/AccessLevel;"},
    };
    static jni::JavaClass holder("tarnwick/user/attribute/AccessLevel", members);
    return holder;
}

// A member a found class lacks: the error its own lookup would have raised, pending.
void raise_missing(JNIEnv* env, const char* error, const char* name) {
    jni::LocalRef<jclass> cls(env, env->FindClass(error));
    if (cls) env->ThrowNew(cls.get(), name);
}

void set_attribute(JNIEnv* env, jobject user, jobject attribute) {
    jmethodID set = user_class().method(kSetAttribute);
    if (set == nullptr) {
        raise_missing(env, "java/lang/NoSuchMethodError", "setAttribute");
        return;
    }
    env->CallVoidMethod(user, set, attribute);
}

}  // namespace

// The text attributes, each made by its String constructor.
jni::JavaClass& zel_fnd_user_info::attribute_class(Attribute attribute) {
    static jni::JavaClass login_name("tarnwick/user/attribute/LoginName", kStringConstructor);
    static jni::JavaClass user_name("tarnwick/user/attribute/UserName", kStringConstructor);
    static jni::JavaClass mail_address("tarnwick/user/attribute/MailAddress", kStringConstructor);
    static jni::JavaClass account_id("tarnwick/account/attribute/AccountID", kStringConstructor);
    switch (attribute) {
    case kLoginName: return login_name;
    case kUserName: return user_name;
    case kMailAddress: return mail_address;
    default: return account_id;
    }
}

// A missing class or method is left pending for the Java caller; the builder then stays empty.
zel_fnd_user_info::zel_fnd_user_info() {
    JNIEnv* env = CJvm::GetJNIEnv();
    if (env == nullptr) return;
    if (user_class().require(env) == nullptr) return;
    if (user_class().method(kSetAttribute) == nullptr) {
        raise_missing(env, "java/lang/NoSuchMethodError", "setAttribute");
        return;
    }
    ready_ = true;
}

zel_fnd_user_info::~zel_fnd_user_info() {}

jobject zel_fnd_user_info::make_user(JNIEnv* env) {
    jni::JavaClass& cls = user_class();
    if (cls.method(kUserInit) == nullptr) {
        raise_missing(env, "java/lang/NoSuchMethodError", "<init>");
        return nullptr;
    }
    return cls.create(env, kUserInit);
}

jobject zel_fnd_user_info::create_user_info() {
    JNIEnv* env = jni::builder_env(ready_);
    return env != nullptr ? make_user(env) : nullptr;
}

// A null text makes an attribute holding null. The string and the attribute are local references
// of the caller's frame (one per user in the list; the native call's own for a Java caller).
void zel_fnd_user_info::put_text(JNIEnv* env, jobject user, Attribute attribute, const char* text) {
    jni::JavaClass& cls = attribute_class(attribute);
    jclass c = cls.require(env);
    if (c == nullptr) return;
    jmethodID init = cls.method(0);
    if (init == nullptr) {
        raise_missing(env, "java/lang/NoSuchMethodError", "<init>");
        return;
    }
    jstring value = nullptr;
    if (text != nullptr) {
        value = env->NewStringUTF(text);
        if (value == nullptr) return;
    }
    jobject made = env->NewObject(c, init, value);
    if (made == nullptr) return;
    set_attribute(env, user, made);
}

void zel_fnd_user_info::put_access_level(JNIEnv* env, jobject user, ESV_ZEL_USER_RIGHTS level) {
    int member;
    if (level == 0) member = kAdmin;
    else if (level == 1) member = kUser;
    else return;  // no attribute for other levels
    jni::JavaClass& cls = access_level_class();
    jclass c = cls.require(env);
    if (c == nullptr) return;
    jfieldID field = cls.field(member);
    if (field == nullptr) {
        raise_missing(env, "java/lang/NoSuchFieldError", member == kAdmin ? "ADMIN" : "USER");
        return;
    }
    jobject made = env->GetStaticObjectField(c, field);
    if (jni::pending(env)) return;
    set_attribute(env, user, made);
}

// Only a UserImpl is given the call: a null or foreign object would make the VM call a method on
// an object that does not have it.
JNIEnv* zel_fnd_user_info::env_for(jobject user) const {
    JNIEnv* env = user != nullptr ? jni::builder_env(ready_) : nullptr;
    if (env == nullptr) return nullptr;
    jclass cls = user_class().get(env);
    if (cls == nullptr || !env->IsInstanceOf(user, cls)) return nullptr;
    return env;
}

void zel_fnd_user_info::set_field_login_name(jobject user, char* text) {
    if (JNIEnv* env = env_for(user)) put_text(env, user, kLoginName, text);
}

void zel_fnd_user_info::set_field_user_name(jobject user, char* text) {
    if (JNIEnv* env = env_for(user)) put_text(env, user, kUserName, text);
}

void zel_fnd_user_info::set_field_mail_address(jobject user, char* text) {
    if (JNIEnv* env = env_for(user)) put_text(env, user, kMailAddress, text);
}

void zel_fnd_user_info::set_field_account_id(jobject user, int id) {
    JNIEnv* env = env_for(user);
    if (env == nullptr) return;
    char text[16];
    std::snprintf(text, sizeof text, "%d", id);
    put_text(env, user, kAccountId, text);
}

void zel_fnd_user_info::set_field_access_level(jobject user, ESV_ZEL_USER_RIGHTS level) {
    if (JNIEnv* env = env_for(user)) put_access_level(env, user, level);
}

}  // namespace tarnwick
