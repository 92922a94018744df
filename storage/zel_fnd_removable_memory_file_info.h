// Builds Java "tarnwick/zel/box/document/RemovableMemoryFileInfoImpl" objects: name, data
// size, date and path of one removable-memory file.
//
// The class is kept as a global reference (released with the builder); every operation takes
// the calling thread's environment anew. After any operation a Java exception may be pending
// (no memory for a string, a throwing Calendar): the caller checks before its next JNI call.
#ifndef TARNWICK_ZEL_FND_REMOVABLE_MEMORY_FILE_INFO_H
#define TARNWICK_ZEL_FND_REMOVABLE_MEMORY_FILE_INFO_H

#include <jni.h>

#include "tovr_jni.h"

namespace tarnwick {

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
    void set_text(jobject obj, jfieldID field, const char* text);
    /**
     * The calling thread's environment when `obj` is an info object; else null, with a
     * ClassCastException thrown when `obj` is of another class.
     */
    JNIEnv* env_for(jobject obj);

    jni::GlobalClass m_class;
    jmethodID m_init = nullptr;
    jfieldID m_name = nullptr;
    jfieldID m_datasize = nullptr;
    jfieldID m_date = nullptr;
    jfieldID m_path = nullptr;
    jni::GlobalClass m_calendar;
    jmethodID m_get_instance = nullptr;
    jmethodID m_set = nullptr;
    jmethodID m_get_time = nullptr;
};

}  // namespace tarnwick

#endif
