// Common part of the address-record builders: the calling thread's environment, one Java class
// of an address's parts (jni::JavaClass: class, no-argument constructor and field IDs looked up
// once per process, all listed in one table) and the field setters, which name a field by its
// place in the class's member list. A builder lives for one search on one Java thread.
#ifndef TARNWICK_CMT_ADDRESS_BUILDER_H
#define TARNWICK_CMT_ADDRESS_BUILDER_H

#include <jni.h>

#include <cstddef>

#include "tovr_jni_class.h"

namespace tarnwick {

class cmt_address_builder {
public:
    // The Java classes a search builds, one a part of an address.
    enum class Part { kName, kEmail, kFtp, kSmb, kFax, kIfax, kPersonal };

    cmt_address_builder(const cmt_address_builder&) = delete;
    cmt_address_builder& operator=(const cmt_address_builder&) = delete;
    virtual ~cmt_address_builder();

    // A new instance (a local reference), or null when the builder has no environment or class,
    // or the constructor failed (its exception described and cleared).
    jobject create_object();

protected:
    // Takes the environment from CJvm::GetJNIEnv(); without one traces "Fail to get JNIEnv."
    // (level 0, under `module`) and stays unset. The class of `part` lists the constructor first,
    // then the fields in the order of the builder's setters; a missing class or member is
    // described and cleared at its first lookup, and the builder then creates nothing or leaves
    // that field as it is.
    cmt_address_builder(const char* module, Part part);

    // The class, or null (unset builder, class missing).
    jclass found_class() const;

    // Each sets field `i` of the class's member list when the object and the field exist; a
    // failed step is described and cleared, the field stays as it was. Texts go through the one
    // field-to-string conversion.
    void set_text(jobject obj, std::size_t i, const char* value);
    void set_byte(jobject obj, std::size_t i, signed char value);
    void set_int(jobject obj, std::size_t i, int value);
    void set_object(jobject obj, std::size_t i, jobject value);

    JNIEnv* env_ = nullptr;

private:
    // The ID of field `i` of `obj`'s class, or null (no object, unset builder, missing member).
    jfieldID field(jobject obj, std::size_t i) const;

    jni::JavaClass& class_;
    jclass found_ = nullptr;
};

}  // namespace tarnwick

#endif
