#include "zel_fnd_removable_memory_file_info.h"

#include <cstring>
#include <ctime>
#include <string>

#include "CJvm.h"
#include "cmt_storage_names.h"
#include "emw_clb_time.h"

namespace tarnwick {

zel_fnd_removable_memory_file_info::zel_fnd_removable_memory_file_info() {
    JNIEnv* env = CJvm::GetJNIEnv();
    if (env == nullptr) return;
    if (!m_class.find(env, "tarnwick/zel/box/document/RemovableMemoryFileInfoImpl")) return;
    jclass c = m_class.get();
    m_init = env->GetMethodID(c, "<init>", "()V");
    if (m_init != nullptr) m_name = env->GetFieldID(c, "name", "Ljava/lang/String;");
    if (m_name != nullptr) m_datasize = env->GetFieldID(c, "datasize", "J");
    if (m_datasize != nullptr) m_date = env->GetFieldID(c, "date", "Ljava/util/Date;");
    if (m_date != nullptr) m_path = env->GetFieldID(c, "path", "Ljava/lang/String;");
    if (m_path == nullptr) {
        jni::failed(env);
        m_init = nullptr;
        m_class.reset();
        return;
    }
    // Calendar is looked up once per builder, not once per date.
    if (!m_calendar.find(env, "java/util/Calendar")) return;
    jclass cal = m_calendar.get();
    m_get_instance = env->GetStaticMethodID(cal, "getInstance", "()Ljava/util/Calendar;");
    if (m_get_instance != nullptr) m_set = env->GetMethodID(cal, "set", "(IIIIII)V");
    if (m_set != nullptr) m_get_time = env->GetMethodID(cal, "getTime", "()Ljava/util/Date;");
    if (m_get_time == nullptr) {
        jni::failed(env);
        m_get_instance = m_set = nullptr;
        m_calendar.reset();
    }
}

zel_fnd_removable_memory_file_info::~zel_fnd_removable_memory_file_info() {}

JNIEnv* zel_fnd_removable_memory_file_info::env_for(jobject obj) {
    if (m_init == nullptr || obj == nullptr) return nullptr;
    JNIEnv* env = CJvm::GetJNIEnv();
    if (env == nullptr) return nullptr;
    if (env->IsInstanceOf(obj, m_class.get())) return env;
    jni::LocalRef<jclass> cce(env, env->FindClass("java/lang/ClassCastException"));
    if (cce) env->ThrowNew(cce.get(), "not a tarnwick.zel.box.document.RemovableMemoryFileInfoImpl");
    return nullptr;
}

jobject zel_fnd_removable_memory_file_info::create_removable_memory_file_info() {
    if (m_init == nullptr) return nullptr;
    JNIEnv* env = CJvm::GetJNIEnv();
    if (env == nullptr) return nullptr;
    return env->NewObject(m_class.get(), m_init);
}

void zel_fnd_removable_memory_file_info::set_text(jobject obj, jfieldID field, const char* text) {
    JNIEnv* env = env_for(obj);
    if (env == nullptr) return;
    if (text == nullptr) {
        env->SetObjectField(obj, field, nullptr);
        return;
    }
    std::string java = cmt_storage_java_text(text, std::strlen(text));
    jni::LocalRef<jstring> s(env, env->NewStringUTF(java.c_str()));
    if (!s) return;  // OutOfMemoryError pending for the caller
    env->SetObjectField(obj, field, s.get());
}

void zel_fnd_removable_memory_file_info::set_field_name(jobject obj, char* name) { set_text(obj, m_name, name); }

void zel_fnd_removable_memory_file_info::set_field_path(jobject obj, char* path) { set_text(obj, m_path, path); }

void zel_fnd_removable_memory_file_info::set_field_data_size(jobject obj, unsigned long size) {
    JNIEnv* env = env_for(obj);
    if (env == nullptr) return;
    env->SetLongField(obj, m_datasize, static_cast<jlong>(static_cast<std::uint32_t>(size)));
}

void zel_fnd_removable_memory_file_info::set_field_date(jobject obj, long seconds) {
    if (m_get_time == nullptr) return;
    JNIEnv* env = env_for(obj);
    if (env == nullptr) return;
    time_t t = static_cast<time_t>(static_cast<std::int32_t>(seconds));  // 32-bit on the device
    struct tm local;
    std::memset(&local, 0, sizeof local);
    if (emwCLBLocalTime_r(&t, &local) == nullptr) return;  // no calendar time: the date stays as it was
    jni::LocalRef<jobject> calendar(env, env->CallStaticObjectMethod(m_calendar.get(), m_get_instance));
    if (jni::pending(env) || !calendar) return;
    env->CallVoidMethod(calendar.get(), m_set, static_cast<jint>(local.tm_year + 1900), static_cast<jint>(local.tm_mon),
                        static_cast<jint>(local.tm_mday), static_cast<jint>(local.tm_hour),
                        static_cast<jint>(local.tm_min), static_cast<jint>(local.tm_sec));
    if (jni::pending(env)) return;
    jni::LocalRef<jobject> date(env, env->CallObjectMethod(calendar.get(), m_get_time));
    if (jni::pending(env)) return;
    env->SetObjectField(obj, m_date, date.get());
}

}  // namespace tarnwick
