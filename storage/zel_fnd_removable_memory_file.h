// Builds Java "tarnwick/zel/box/document/RemovableMemoryFileImpl" objects: an info object and
// whether the entry is a file. Same rules as zel_fnd_removable_memory_file_info (one lookup per
// process, the calling thread's environment on each call, exceptions left for the caller to check).
#ifndef TARNWICK_ZEL_FND_REMOVABLE_MEMORY_FILE_H
#define TARNWICK_ZEL_FND_REMOVABLE_MEMORY_FILE_H

#include <jni.h>

namespace tarnwick {

class zel_fnd_document_manager;

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
    friend class zel_fnd_document_manager;

    // On objects this library made, with the caller's environment (no instance test).
    static jobject make(JNIEnv* env);
    static void put_info(JNIEnv* env, jobject file, jobject info);
    static void put_isfile(JNIEnv* env, jobject file, bool isfile);

    // The calling thread's environment when `file` is a file object; else null, with a
    // ClassCastException thrown when it is of another class.
    JNIEnv* env_for(jobject file) const;

    bool ready_ = false;
};

}  // namespace tarnwick

#endif
