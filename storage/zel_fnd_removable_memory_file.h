// Builds Java "tarnwick/zel/box/document/RemovableMemoryFileImpl" objects: an info object and
// whether the entry is a file. Same rules as zel_fnd_removable_memory_file_info (global class,
// the calling thread's environment on each call, exceptions left for the caller to check).
#ifndef TARNWICK_ZEL_FND_REMOVABLE_MEMORY_FILE_H
#define TARNWICK_ZEL_FND_REMOVABLE_MEMORY_FILE_H

#include <jni.h>

#include "tovr_jni.h"

namespace tarnwick {

/**
 * Makes {@code tarnwick.zel.box.document.RemovableMemoryFileImpl} objects: an entry of the document
 * box or of removable memory (its info and whether it is a file).
 */
class zel_fnd_removable_memory_file {
public:
    zel_fnd_removable_memory_file();
    virtual ~zel_fnd_removable_memory_file();

    jobject create_removable_memory_file();
    void set_field_info(jobject file, jobject info);
    void set_field_isfile(jobject obj, bool isfile);

private:
    /** False, with a ClassCastException thrown, when `obj` is not of `cls`. */
    static bool accepts(JNIEnv* env, jobject obj, jclass cls, const char* what);

    jni::GlobalClass m_class;
    jni::GlobalClass m_info_class;
    jmethodID m_init = nullptr;
    jfieldID m_info = nullptr;
    jfieldID m_isfile = nullptr;
};

}  // namespace tarnwick

#endif
