#include "cmt_address_builder.h"

#include <cstring>

#include "CJvm.h"
#include "cmt_trace.h"
#include "tovr_jni.h"
#include "tovr_jni_class.h"
#include "tovr_jni_text.h"

namespace tarnwick {

namespace {

constexpr jni::Member kConstructor = {jni::Member::kConstructor, "<init>", "()V"};
constexpr const char* kText = "Ljava/lang/String;";

const jni::Member kName[] = {kConstructor, {jni::Member::kField, "name", kText},
                             {jni::Member::kField, "pronunciation", kText}};
const jni::Member kEmail[] = {kConstructor, {jni::Member::kField, "mailAddress", kText}};
// FTP and SMB destinations have the same fields.
const jni::Member kServer[] = {kConstructor,
                               {jni::Member::kField, "host", kText},
                               {jni::Member::kField, "path", kText},
                               {jni::Member::kField, "port", "I"},
                               {jni::Member::kField, "loginName", kText},
                               {jni::Member::kField, "password", kText}};
const jni::Member kFax[] = {kConstructor,
                            {jni::Member::kField, "faxNum", kText},
                            {jni::Member::kField, "bitrateType", "B"},
                            {jni::Member::kField, "ecm", "B"},
                            {jni::Member::kField, "faxAddress", kText},
                            {jni::Member::kField, "encode", "B"},
                            {jni::Member::kField, "encodeID", "B"},
                            {jni::Member::kField, "encodeBox", "B"},
                            {jni::Member::kField, "encodeBoxNum", "B"},
                            {jni::Member::kField, "name", kText},
                            {jni::Member::kField, "department", kText},
                            {jni::Member::kField, "company", kText},
                            {jni::Member::kField, "honorificTitleType", "B"}};
const jni::Member kIfax[] = {kConstructor,
                             {jni::Member::kField, "ifaxAddress", kText},
                             {jni::Member::kField, "modeType", "B"},
                             {jni::Member::kField, "sizeType", "B"},
                             {jni::Member::kField, "resolutionType", "B"},
                             {jni::Member::kField, "fileType", "B"}};
const jni::Member kPersonal[] = {kConstructor,
                                 {jni::Member::kField, "name", "Ltarnwick/zel/address/attribute/NameInfoImpl;"},
                                 {jni::Member::kField, "email", "Ltarnwick/zel/address/attribute/EmailInfoImpl;"},
                                 {jni::Member::kField, "ftp", "Ltarnwick/zel/address/attribute/FtpInfoImpl;"},
                                 {jni::Member::kField, "smb", "Ltarnwick/zel/address/attribute/SmbInfoImpl;"},
                                 {jni::Member::kField, "fax", "Ltarnwick/zel/address/attribute/FaxInfoImpl;"},
                                 {jni::Member::kField, "ifax", "Ltarnwick/zel/address/attribute/IfaxInfoImpl;"}};

// One holder a part, in the order of cmt_address_builder::Part, made at the first search.
jni::JavaClass& java_class(cmt_address_builder::Part part) {
    static jni::JavaClass holders[] = {
        {"tarnwick/zel/address/attribute/NameInfoImpl", kName},
        {"tarnwick/zel/address/attribute/EmailInfoImpl", kEmail},
        {"tarnwick/zel/address/attribute/FtpInfoImpl", kServer},
        {"tarnwick/zel/address/attribute/SmbInfoImpl", kServer},
        {"tarnwick/zel/address/attribute/FaxInfoImpl", kFax},
        {"tarnwick/zel/address/attribute/IfaxInfoImpl", kIfax},
        {"tarnwick/zel/address/PersonalAddressImpl", kPersonal},
    };
    return holders[static_cast<std::size_t>(part)];
}

}  // namespace

cmt_address_builder::cmt_address_builder(const char* module, Part part) : class_(java_class(part)) {
    env_ = CJvm::GetJNIEnv();
    if (env_ == nullptr) {
#define CMT_TRACE_MODULE module
        CMT_TRACE_OP(kTraceError, module, "Fail to get JNIEnv.");
#undef CMT_TRACE_MODULE
        return;
    }
    found_ = class_.get(env_);
}

// Releases nothing: the class belongs to its holder.
cmt_address_builder::~cmt_address_builder() {}

jclass cmt_address_builder::found_class() const { return env_ != nullptr ? found_ : nullptr; }

jfieldID cmt_address_builder::field(jobject obj, std::size_t i) const {
    return obj != nullptr && found_ != nullptr ? class_.field(i) : nullptr;
}

jobject cmt_address_builder::create_object() {
    if (found_ == nullptr || class_.method(0) == nullptr) return nullptr;
    // NewObject answers null exactly when the constructor threw (or no object could be had).
    jobject obj = class_.create(env_, 0);
    if (obj == nullptr) jni::failed(env_);
    return obj;
}

// The string is a local reference of the search's frame for this address.
void cmt_address_builder::set_text(jobject obj, std::size_t i, const char* value) {
    jfieldID id = field(obj, i);
    if (id == nullptr || value == nullptr) return;
    jstring s = jni::new_field_string(env_, value, std::strlen(value) + 1);
    if (s == nullptr) {
        jni::failed(env_);  // no room for it: described and cleared, the field stays as it was
        return;
    }
    env_->SetObjectField(obj, id, s);
}

void cmt_address_builder::set_byte(jobject obj, std::size_t i, signed char value) {
    if (jfieldID id = field(obj, i)) env_->SetByteField(obj, id, static_cast<jbyte>(value));
}

void cmt_address_builder::set_int(jobject obj, std::size_t i, int value) {
    if (jfieldID id = field(obj, i)) env_->SetIntField(obj, id, static_cast<jint>(value));
}

void cmt_address_builder::set_object(jobject obj, std::size_t i, jobject value) {
    if (jfieldID id = field(obj, i)) env_->SetObjectField(obj, id, value);
}

}  // namespace tarnwick
