// Common part of the address-record builders: the calling thread's environment, one Java class
// (jni::JavaClass: class, no-argument constructor and field IDs looked up once per process) and
// the field setters. A builder lives for one search on one Java thread.
#ifndef TARNWICK_CMT_ADDRESS_BUILDER_H
#define TARNWICK_CMT_ADDRESS_BUILDER_H

#include <jni.h>

#include <cstddef>

#include "tovr_jni_class.h"

namespace tarnwick {

// The members of the FTP and of the SMB info class, which have the same fields: the
// constructor, host, path, port, loginName and password.
extern const jni::Member kServerInfoMembers[6];

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
    // (level 0, under `module`) and stays unset. `java_class` lists the constructor first, then
    // the fields; a missing class or member is described and cleared at its first lookup, and
    // the builder then creates nothing or leaves that field as it is.
    cmt_address_builder(const char* module, jni::JavaClass& java_class);

    // The ID of member `i` of the class's list, or null (unset builder, missing member).
    jfieldID field(std::size_t i) const;
    // The class, or null (unset builder, class missing).
    jclass found_class() const;

    // Each sets one field when the object and the field ID exist; a failed step is described
    // and cleared, the field stays as it was. Texts go through the one field-to-string conversion.
    void set_text(jobject obj, jfieldID id, const char* value);
    void set_byte(jobject obj, jfieldID id, signed char value);
    void set_int(jobject obj, jfieldID id, int value);
    void set_object(jobject obj, jfieldID id, jobject value);

    JNIEnv* env_ = nullptr;

private:
    jni::JavaClass& class_;
    jclass found_ = nullptr;
};

}  // namespace tarnwick

#endif
