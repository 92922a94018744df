// Builds Java "tarnwick/zel/box/document/RemovableMemoryFileInfoImpl" objects: name, data
// size, date and path of one removable-memory file.
//
// The class, java.util.Calendar and their members are looked up once per process
// (jni::JavaClass); every operation takes the calling thread's environment anew. After any
// operation a Java exception may be pending (no memory for a string, a throwing Calendar): the
// caller checks before its next JNI call.
#ifndef TARNWICK_ZEL_FND_REMOVABLE_MEMORY_FILE_INFO_H
#define TARNWICK_ZEL_FND_REMOVABLE_MEMORY_FILE_INFO_H

#include <jni.h>

namespace tarnwick {

class zel_fnd_document_manager;
class zel_fnd_removable_memory_file;

/**
 * Makes {@code tarnwick.zel.box.document.RemovableMemoryFileInfoImpl} objects: the name, size, date
 * and path of one entry.
 */
class zel_fnd_removable_memory_file_info {
public:
    zel_fnd_removable_memory_file_info();
    virtual ~zel_fnd_removable_memory_file_info();

    /**
     * A new object through its no-argument constructor; null when there is no environment or
     * the class could not be found.
     */
    jobject create_removable_memory_file_info();
    void set_field_name(jobject obj, char* name);
    void set_field_path(jobject obj, char* path);
    /** Zero-extended into the long field. */
    void set_field_data_size(jobject obj, unsigned long size);
    /**
     * A java.util.Date of the local calendar time of `seconds` (platform clock), through
     * Calendar.getInstance() and its six-field set; the milliseconds stay those of the moment
     * of conversion.
     */
    void set_field_date(jobject obj, long seconds);

private:
    friend class zel_fnd_document_manager;
    friend class zel_fnd_removable_memory_file;

    enum Text { kName, kPath };
    // On an info object this library made, with the caller's environment (no instance test).
    // The references they make are the caller's frame's. False: a Java exception is pending.
    static jobject make(JNIEnv* env);
    static bool put_text(JNIEnv* env, jobject obj, Text field, const char* text);
    static void put_data_size(JNIEnv* env, jobject obj, unsigned long size);
    static bool put_date(JNIEnv* env, jobject obj, long seconds);
    // The info class, for the file builder's instance test.
    static jclass info_class(JNIEnv* env);

    // The calling thread's environment when `obj` is an info object; else null, with a
    // ClassCastException thrown when `obj` is of another class.
    JNIEnv* env_for(jobject obj) const;

    bool ready_ = false;
};

}  // namespace tarnwick

#endif
