#include "zel_fnd_removable_memory_file.h"

#include "CJvm.h"

namespace tarnwick {

zel_fnd_removable_memory_file::zel_fnd_removable_memory_file() {
    JNIEnv* env = CJvm::GetJNIEnv();
    if (env == nullptr) return;
    if (!m_class.find(env, "tarnwick/zel/box/document/RemovableMemoryFileImpl")) return;
    jclass c = m_class.get();
    m_init = env->GetMethodID(c, "<init>", "()V");
    if (m_init != nullptr) {
        m_info = env->GetFieldID(c, "info", "Ltarnwick/zel/box/document/RemovableMemoryFileInfoImpl;");
    }
    if (m_info != nullptr) m_isfile = env->GetFieldID(c, "isfile", "Z");
    if (m_isfile != nullptr && !m_info_class.find(env, "tarnwick/zel/box/document/RemovableMemoryFileInfoImpl")) {
        m_isfile = nullptr;
    }
    if (m_isfile == nullptr) {
        jni::failed(env);
        m_init = nullptr;
        m_info = nullptr;
        m_class.reset();
    }
}

zel_fnd_removable_memory_file::~zel_fnd_removable_memory_file() {}

bool zel_fnd_removable_memory_file::accepts(JNIEnv* env, jobject obj, jclass cls, const char* what) {
    if (env->IsInstanceOf(obj, cls)) return true;
    jni::LocalRef<jclass> cce(env, env->FindClass("java/lang/ClassCastException"));
    if (cce) env->ThrowNew(cce.get(), what);
    return false;
}

jobject zel_fnd_removable_memory_file::create_removable_memory_file() {
    if (m_init == nullptr) return nullptr;
    JNIEnv* env = CJvm::GetJNIEnv();
    if (env == nullptr) return nullptr;
    return env->NewObject(m_class.get(), m_init);
}

void zel_fnd_removable_memory_file::set_field_info(jobject file, jobject info) {
    if (m_info == nullptr || file == nullptr) return;
    JNIEnv* env = CJvm::GetJNIEnv();
    if (env == nullptr) return;
    // Objects of other classes would corrupt the fields: refused as a Java cast would refuse them.
    if (!accepts(env, file, m_class.get(), "file is not a tarnwick.zel.box.document.RemovableMemoryFileImpl")) return;
    if (info != nullptr &&
        !accepts(env, info, m_info_class.get(), "info is not a tarnwick.zel.box.document.RemovableMemoryFileInfoImpl")) {
        return;
    }
    env->SetObjectField(file, m_info, info);
}

void zel_fnd_removable_memory_file::set_field_isfile(jobject obj, bool isfile) {
    if (m_isfile == nullptr || obj == nullptr) return;
    JNIEnv* env = CJvm::GetJNIEnv();
    if (env == nullptr) return;
    if (!accepts(env, obj, m_class.get(), "file is not a tarnwick.zel.box.document.RemovableMemoryFileImpl")) return;
    env->SetBooleanField(obj, m_isfile, isfile ? JNI_TRUE : JNI_FALSE);
}

}  // namespace tarnwick
