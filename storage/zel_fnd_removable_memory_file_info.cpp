#include "zel_fnd_removable_memory_file_info.h"

#include <cstdint>
#include <cstring>
#include <ctime>

#include "CJvm.h"
#include "emw_clb_time.h"
#include "tovr_builder.h"
#include "tovr_field_text.h"
#include "tovr_jni.h"
#include "tovr_jni_class.h"

namespace tarnwick {

namespace {

enum InfoMember { kInfoInit, kInfoName, kInfoDataSize, kInfoDate, kInfoPath };

jni::JavaClass& info() {
    static const jni::Member members[] = {
        {jni::Member::kConstructor, "<init>", "()V"},
        {jni::Member::kField, "name", "Ljava/lang/String;"},
        {jni::Member::kField, "datasize", "J"},
        {jni::Member::kField, "date", "Ljava/util/Date;"},
        {jni::Member::kField, "path", "Ljava/lang/String;"},
    };
    static jni::JavaClass holder("tarnwick/zel/box/document/RemovableMemoryFileInfoImpl", members);
    return holder;
}

enum CalendarMember { kGetInstance, kSet, kGetTime };

jni::JavaClass& calendar() {
    static const jni::Member members[] = {
        {jni::Member::kStaticMethod, "getInstance", "()Ljava/util/Calendar;"},
        {jni::Member::kMethod, "set", "(IIIIII)V"},
        {jni::Member::kMethod, "getTime", "()Ljava/util/Date;"},
    };
    static jni::JavaClass holder("java/util/Calendar", members);
    return holder;
}

// The class with every member the builder uses, or null.
jclass complete_info(JNIEnv* env) {
    jclass c = info().get(env);
    for (std::size_t i = kInfoInit; c != nullptr && i <= kInfoPath; ++i) {
        if (i == kInfoInit ? info().method(i) == nullptr : info().field(i) == nullptr) c = nullptr;
    }
    return c;
}

}  // namespace

zel_fnd_removable_memory_file_info::zel_fnd_removable_memory_file_info() {
    JNIEnv* env = CJvm::GetJNIEnv();
    if (env == nullptr) return;
    ready_ = complete_info(env) != nullptr;
}

zel_fnd_removable_memory_file_info::~zel_fnd_removable_memory_file_info() {}

jclass zel_fnd_removable_memory_file_info::info_class(JNIEnv* env) { return complete_info(env); }

JNIEnv* zel_fnd_removable_memory_file_info::env_for(jobject obj) const {
    JNIEnv* env = obj != nullptr ? jni::builder_env(ready_) : nullptr;
    const char* const refused = "not a tarnwick.zel.box.document.RemovableMemoryFileInfoImpl";
    return env != nullptr && jni::cast_check(env, obj, info().get(env), refused) ? env : nullptr;
}

jobject zel_fnd_removable_memory_file_info::make(JNIEnv* env) { return info().create(env, kInfoInit); }

jobject zel_fnd_removable_memory_file_info::create_removable_memory_file_info() {
    JNIEnv* env = jni::builder_env(ready_);
    return env != nullptr ? make(env) : nullptr;
}

bool zel_fnd_removable_memory_file_info::put_text(JNIEnv* env, jobject obj, Text field, const char* text) {
    jfieldID id = info().field(field == kName ? kInfoName : kInfoPath);
    jstring s = nullptr;
    if (text != nullptr) {
        s = env->NewStringUTF(text);
        if (s == nullptr) return false;  // OutOfMemoryError pending for the caller
    }
    env->SetObjectField(obj, id, s);
    return true;
}

void zel_fnd_removable_memory_file_info::put_data_size(JNIEnv* env, jobject obj, unsigned long size) {
    env->SetLongField(obj, info().field(kInfoDataSize), static_cast<jlong>(static_cast<std::uint32_t>(size)));
}

bool zel_fnd_removable_memory_file_info::put_date(JNIEnv* env, jobject obj, long seconds) {
    jni::JavaClass& cal = calendar();
    jclass c = cal.get(env);
    jmethodID get_instance = cal.method(kGetInstance);
    jmethodID set = cal.method(kSet);
    jmethodID get_time = cal.method(kGetTime);
    if (c == nullptr || get_instance == nullptr || set == nullptr || get_time == nullptr) return true;
    time_t t = static_cast<time_t>(static_cast<std::int32_t>(seconds));  // 32-bit on the device
    struct tm local;
    std::memset(&local, 0, sizeof local);
    if (emwCLBLocalTime_r(&t, &local) == nullptr) return true;  // no calendar time: the date stays as it was
    jobject now = env->CallStaticObjectMethod(c, get_instance);
    if (jni::pending(env)) return false;
    if (now == nullptr) return true;
    env->CallVoidMethod(now, set, static_cast<jint>(local.tm_year + 1900), static_cast<jint>(local.tm_mon),
                        static_cast<jint>(local.tm_mday), static_cast<jint>(local.tm_hour),
                        static_cast<jint>(local.tm_min), static_cast<jint>(local.tm_sec));
    if (jni::pending(env)) return false;
    jobject date = env->CallObjectMethod(now, get_time);
    if (jni::pending(env)) return false;
    env->SetObjectField(obj, info().field(kInfoDate), date);
    return true;
}

// Text from Java is modified UTF-8 already; made fit all the same, as any text a string is made of.
void zel_fnd_removable_memory_file_info::set_field_name(jobject obj, char* name) {
    JNIEnv* env = env_for(obj);
    if (env == nullptr) return;
    put_text(env, obj, kName, name ? FieldText(name, std::strlen(name) + 1).c_str() : nullptr);
}

void zel_fnd_removable_memory_file_info::set_field_path(jobject obj, char* path) {
    JNIEnv* env = env_for(obj);
    if (env == nullptr) return;
    put_text(env, obj, kPath, path ? FieldText(path, std::strlen(path) + 1).c_str() : nullptr);
}

void zel_fnd_removable_memory_file_info::set_field_data_size(jobject obj, unsigned long size) {
    if (JNIEnv* env = env_for(obj)) put_data_size(env, obj, size);
}

void zel_fnd_removable_memory_file_info::set_field_date(jobject obj, long seconds) {
    if (JNIEnv* env = env_for(obj)) put_date(env, obj, seconds);
}

}  // namespace tarnwick
