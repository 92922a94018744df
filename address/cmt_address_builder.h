// Common part of the address-record builders: the calling thread's environment, one Java class
// with its no-argument constructor, and the field setters. A builder lives for one search on
// one Java thread; the class is a local reference of that native call.
#ifndef TARNWICK_CMT_ADDRESS_BUILDER_H
#define TARNWICK_CMT_ADDRESS_BUILDER_H

#include <jni.h>

namespace tarnwick {

class cmt_address_builder {
public:
    cmt_address_builder(const cmt_address_builder&) = delete;
    cmt_address_builder& operator=(const cmt_address_builder&) = delete;
    virtual ~cmt_address_builder();

    // A new instance (a local reference), or null when the builder has no environment or class,
    // or the constructor failed (its exception described and cleared).
    jobject create_object();

protected:
    // Takes the environment from CJvm::GetJNIEnv(); without one traces "Fail to get JNIEnv."
    // (level 0, under `module`) and stays unset. A missing class or constructor is described
    // and cleared; the builder then creates nothing.
    cmt_address_builder(const char* module, const char* class_path);

    // The field ID, or null (exception described and cleared) when the builder is unset or the
    // field is missing.
    jfieldID field(const char* name, const char* signature);

    // Each sets one field when the object and the field ID exist; a failed step is described
    // and cleared, the field stays as it was.
    void set_text(jobject obj, jfieldID id, const char* value);
    void set_byte(jobject obj, jfieldID id, signed char value);
    void set_int(jobject obj, jfieldID id, int value);
    void set_object(jobject obj, jfieldID id, jobject value);

    JNIEnv* env_ = nullptr;
    jclass class_ = nullptr;
    jmethodID constructor_ = nullptr;
};

}  // namespace tarnwick

#endif
