#include "cmt_address_book.h"

#include <climits>
#include <cstring>

#include "CJvm.h"
#include "cmt_address_record.h"
#include "cmt_email_info.h"
#include "cmt_fax_info.h"
#include "cmt_ftp_info.h"
#include "cmt_ifax_info.h"
#include "cmt_name_info.h"
#include "cmt_personal_address.h"
#include "cmt_smb_info.h"
#include "cmt_trace.h"
#include "emw_osw_mem.h"
#include "esv_zel_common_facade.h"
#include "tovr_jni.h"
#include "tovr_jni_class.h"

#define CMT_TRACE_MODULE "cmt_address_book"

namespace tarnwick {

namespace {

// Records per fetch of the counting pass, and its scratch buffer.
constexpr unsigned int kCountBatch = 20;
constexpr std::size_t kCountBufferSize = kCountBatch * sizeof(ESV_ZEL_PERSONAL_ADDRESS);  // 42400
static_assert(kCountBufferSize == 42400, "20 records");

// Local references one address makes: six sub-objects, the address and its 17 strings.
constexpr jint kAddressFrame = 32;

const char kSearchKeyClass[] = "tarnwick/address/SearchKey";

// The key's class and its "name" field: found once per process, by whichever thread searches first.
jni::JavaClass& search_key_class() {
    static const jni::Member members[] = {{jni::Member::kField, "name", "Ljava/lang/String;"}};
    static jni::JavaClass holder(kSearchKeyClass, members);
    return holder;
}

esv_zel_common_facade* facade() { return esv_zel_common_facade::esv_zel_common_get_instance(); }

// An FTP or SMB object with its fields (a local reference), or null when it could not be made.
jobject build_server(cmt_server_info& builder, const cmt_address_server_fields& f) {
    jobject obj = builder.create_object();
    if (obj != nullptr) {
        builder.set_field_host(obj, f.host);
        builder.set_field_path(obj, f.path);
        builder.set_field_port(obj, f.port);
        builder.set_field_login_name(obj, f.login_name);
        builder.set_field_password(obj, f.password);
    }
    return obj;
}

// Builds the Java objects of one record and returns the personal address (a local reference of
// the current frame, or null when it could not be made).
jobject build_address(const ESV_ZEL_PERSONAL_ADDRESS& record, cmt_email_info& email,
                      cmt_fax_info& fax, cmt_ftp_info& ftp, cmt_ifax_info& ifax, cmt_name_info& name,
                      cmt_smb_info& smb, cmt_personal_address& personal) {
    cmt_address_record_fields f;
    cmt_read_address_record(reinterpret_cast<const unsigned char*>(&record), sizeof record, f);

    jobject name_obj = name.create_object();
    if (name_obj != nullptr) {
        name.set_field_name(name_obj, f.name);
        name.set_field_pronunciation(name_obj, f.pronunciation);
    }
    jobject email_obj = email.create_object();
    if (email_obj != nullptr) email.set_field_mail_address(email_obj, f.mail_address);
    jobject ftp_obj = build_server(ftp, f.ftp);
    jobject smb_obj = build_server(smb, f.smb);
    jobject fax_obj = fax.create_object();
    if (fax_obj != nullptr) {
        fax.set_field_fax_num(fax_obj, f.fax_num);
        fax.set_field_bitrate_type(fax_obj, f.bitrate_type);
        fax.set_field_ecm(fax_obj, f.ecm);
        fax.set_field_fax_address(fax_obj, f.fax_address);
        fax.set_field_encode(fax_obj, f.encode);
        fax.set_field_encode_id(fax_obj, f.encode_id);
        fax.set_field_encode_box(fax_obj, f.encode_box);
        fax.set_field_encode_box_num(fax_obj, f.encode_box_num);
        fax.set_field_name(fax_obj, f.fax_name);
        fax.set_field_department(fax_obj, f.department);
        fax.set_field_company(fax_obj, f.company);
        fax.set_field_honorific_title_type(fax_obj, f.honorific_title_type);
    }
    jobject ifax_obj = ifax.create_object();
    if (ifax_obj != nullptr) {
        ifax.set_field_ifax_address(ifax_obj, f.ifax_address);
        ifax.set_field_mode_type(ifax_obj, f.mode_type);
        ifax.set_field_size_type(ifax_obj, f.size_type);
        ifax.set_field_resolution_type(ifax_obj, f.resolution_type);
        ifax.set_field_file_type(ifax_obj, f.file_type);
    }
    jobject address = personal.create_object();
    if (address != nullptr) {
        personal.set_field_name(address, name_obj);
        personal.set_field_email(address, email_obj);
        personal.set_field_ftp(address, ftp_obj);
        personal.set_field_smb(address, smb_obj);
        personal.set_field_fax(address, fax_obj);
        personal.set_field_ifax(address, ifax_obj);
    }
    return address;
}

}  // namespace

cmt_address_book::cmt_address_book() {}

cmt_address_book::~cmt_address_book() {}

jobjectArray cmt_address_book::search_address(int type, jobject key) {
    CMT_TRACE(kTraceFlow, "[Enter] type = [%d]", type);
    if (type == 1) return search_personal_address(key);
    return nullptr;
}

jobjectArray cmt_address_book::search_personal_address(jobject key) {
    if (key == nullptr) {
        CMT_TRACE(kTraceError, "keyObj==NULL");
        return nullptr;
    }
    JNIEnv* env = CJvm::GetJNIEnv();
    if (env == nullptr) {
        CMT_TRACE(kTraceError, "Fail to get JNIEnv.");
        return nullptr;
    }
    jclass key_class = search_key_class().get(env);
    if (key_class == nullptr) {
        CMT_TRACE(kTraceError, "Fail to find %s.", kSearchKeyClass);
        return nullptr;
    }
    jfieldID key_name = search_key_class().field(0);
    if (key_name == nullptr) {
        CMT_TRACE(kTraceError, "Fail to find %s.name.", kSearchKeyClass);
        return nullptr;
    }

    // First pass: count the matches.
    unsigned int handle = 0;
    unsigned int second = 0;
    unsigned long result = facade()->esv_zel_search_personal_address_list_prepare(kCountBatch, handle, second);
    if (result != 0) {
        CMT_TRACE(kTraceError, "Fail to prepare!");
        return nullptr;
    }

    // A key of another class, or one without a name, is a missing key.
    if (!env->IsInstanceOf(key, key_class)) {
        facade()->esv_zel_search_personal_address_list_finish(handle);
        CMT_TRACE(kTraceError, "keyObj is not a SearchKey");
        return nullptr;
    }
    jni::LocalRef<jstring> name_string(env, static_cast<jstring>(env->GetObjectField(key, key_name)));
    if (!name_string) {
        facade()->esv_zel_search_personal_address_list_finish(handle);
        CMT_TRACE(kTraceError, "keyObj.name==NULL");
        return nullptr;
    }
    // Released on the successful path only: the failure paths below keep them (a required
    // behaviour of this module).
    const char* name = env->GetStringUTFChars(name_string.get(), nullptr);
    if (name == nullptr) {
        jni::failed(env);
        facade()->esv_zel_search_personal_address_list_finish(handle);
        CMT_TRACE(kTraceError, "Fail to get the key name.");
        return nullptr;
    }

    unsigned int ret_num = kCountBatch;
    int total = 0;
    for (;;) {
        void* buffer = emwOSWSubAllocMem(kCountBufferSize);
        if (buffer == nullptr) {
            CMT_TRACE(kTraceError, "buffer == NULL");
            facade()->esv_zel_search_personal_address_list_finish(handle);
            return nullptr;
        }
        std::memset(buffer, 0, kCountBufferSize);
        result = facade()->esv_zel_search_personal_address_list(handle, name, ret_num,
                                                                static_cast<ESV_ZEL_PERSONAL_ADDRESS*>(buffer));
        emwOSWOrgFreeMemPart(0, buffer);
        CMT_TRACE(kTraceFlow, "ret_num = [%d]", ret_num);
        if (result != 0) {
            CMT_TRACE(kTraceError, "[cmt_address_book::search_personal_address] Fail to search!, result = [0x%08lx]",
                      result);
            facade()->esv_zel_search_personal_address_list_finish(handle);
            return nullptr;
        }
        // Claimed counts saturate at the largest int: no array is made of that many.
        total = ret_num > static_cast<unsigned int>(INT_MAX - total) ? INT_MAX : total + static_cast<int>(ret_num);
        if (ret_num < kCountBatch) break;
        ret_num = kCountBatch;
    }
    facade()->esv_zel_search_personal_address_list_finish(handle);
    CMT_TRACE(kTraceFlow, "plen = [%d]", total);
    if (total == 0) {
        CMT_TRACE(kTraceError, "No match!");
        return nullptr;
    }

    // Second pass: one record per fetch into the array.
    result = facade()->esv_zel_search_personal_address_list_prepare(1, handle, second);
    if (result != 0) {
        CMT_TRACE(kTraceError, "Fail to prepare!");
        return nullptr;
    }
    cmt_email_info email;
    cmt_fax_info fax;
    cmt_ftp_info ftp;
    cmt_ifax_info ifax;
    cmt_name_info name_info;
    cmt_smb_info smb;
    cmt_personal_address personal;
    jobjectArray array = personal.create_object_array(total);
    if (array == nullptr) {
        // The second search stays open here: a required behaviour of this module.
        CMT_TRACE(kTraceError, "personalObjArray == NULL");
        return nullptr;
    }
    for (int index = 0; index < total; ++index) {
        auto* record = static_cast<ESV_ZEL_PERSONAL_ADDRESS*>(emwOSWSubAllocMem(sizeof(ESV_ZEL_PERSONAL_ADDRESS)));
        if (record == nullptr) {
            CMT_TRACE(kTraceError, "address == NULL");
            facade()->esv_zel_search_personal_address_list_finish(handle);
            env->DeleteLocalRef(array);
            return nullptr;
        }
        std::memset(record, 0, sizeof *record);
        result = facade()->esv_zel_search_personal_address_list(handle, name, ret_num, record);
        if (result != 0) {
            CMT_TRACE(kTraceError, "[Fail to search! result = [0x%08lx]", result);
            emwOSWOrgFreeMemPart(0, record);
            facade()->esv_zel_search_personal_address_list_finish(handle);
            env->DeleteLocalRef(array);
            return nullptr;
        }
        // A fetch that succeeds with nothing (the book lost matches since they were counted)
        // still gives an address, made from the zero-filled record: the array never holds null
        // where the count said an address would be. No room for one more address's local
        // references is a failure of this step.
        jni::LocalFrame frame(env, kAddressFrame);
        if (!frame.ok()) {
            emwOSWOrgFreeMemPart(0, record);
            facade()->esv_zel_search_personal_address_list_finish(handle);
            env->DeleteLocalRef(array);
            return nullptr;
        }
        jobject address = build_address(*record, email, fax, ftp, ifax, name_info, smb, personal);
        emwOSWOrgFreeMemPart(0, record);
        env->SetObjectArrayElement(array, index, address);
        if (jni::failed(env)) {
            facade()->esv_zel_search_personal_address_list_finish(handle);
            frame.pop();
            env->DeleteLocalRef(array);
            return nullptr;
        }
    }
    env->ReleaseStringUTFChars(name_string.get(), name);
    facade()->esv_zel_search_personal_address_list_finish(handle);
    return array;
}

}  // namespace tarnwick
