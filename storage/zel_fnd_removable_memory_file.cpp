#include "zel_fnd_removable_memory_file.h"

#include "CJvm.h"
#include "tovr_builder.h"
#include "tovr_jni.h"
#include "tovr_jni_class.h"
#include "zel_fnd_removable_memory_file_info.h"

namespace tarnwick {

namespace {

enum FileMember { kInit, kInfo, kIsFile };

jni::JavaClass& file() {
    static const jni::Member members[] = {
        {jni::Member::kConstructor, "<init>", "()V"},
        {jni::Member::kField, "info", "Ltarnwick/zel/box/document/RemovableMemoryFileInfoImpl;"},
        {jni::Member::kField, "isfile", "Z"},
    };
    static jni::JavaClass holder("tarnwick/zel/box/document/RemovableMemoryFileImpl", members);
    return holder;
}

}  // namespace

zel_fnd_removable_memory_file::zel_fnd_removable_memory_file() {
    JNIEnv* env = CJvm::GetJNIEnv();
    if (env == nullptr) return;
    jni::JavaClass& f = file();
    ready_ = f.get(env) != nullptr && f.method(kInit) != nullptr && f.field(kInfo) != nullptr &&
             f.field(kIsFile) != nullptr && zel_fnd_removable_memory_file_info::info_class(env) != nullptr;
}

zel_fnd_removable_memory_file::~zel_fnd_removable_memory_file() {}

// Objects of other classes would corrupt the fields.
JNIEnv* zel_fnd_removable_memory_file::env_for(jobject obj) const {
    JNIEnv* env = obj != nullptr ? jni::builder_env(ready_) : nullptr;
    const char* const refused = "file is not a tarnwick.zel.box.document.RemovableMemoryFileImpl";
    return env != nullptr && jni::cast_check(env, obj, file().get(env), refused) ? env : nullptr;
}

jobject zel_fnd_removable_memory_file::make(JNIEnv* env) { return file().create(env, kInit); }

void zel_fnd_removable_memory_file::put_info(JNIEnv* env, jobject f, jobject info) {
    env->SetObjectField(f, file().field(kInfo), info);
}

void zel_fnd_removable_memory_file::put_isfile(JNIEnv* env, jobject f, bool isfile) {
    env->SetBooleanField(f, file().field(kIsFile), isfile ? JNI_TRUE : JNI_FALSE);
}

jobject zel_fnd_removable_memory_file::create_removable_memory_file() {
    JNIEnv* env = jni::builder_env(ready_);
    return env != nullptr ? make(env) : nullptr;
}

void zel_fnd_removable_memory_file::set_field_info(jobject f, jobject info) {
    JNIEnv* env = env_for(f);
    if (env == nullptr) return;
    if (info != nullptr &&
        !jni::cast_check(env, info, zel_fnd_removable_memory_file_info::info_class(env),
                         "info is not a tarnwick.zel.box.document.RemovableMemoryFileInfoImpl")) {
        return;
    }
    put_info(env, f, info);
}

void zel_fnd_removable_memory_file::set_field_isfile(jobject obj, bool isfile) {
    if (JNIEnv* env = env_for(obj)) put_isfile(env, obj, isfile);
}

}  // namespace tarnwick
