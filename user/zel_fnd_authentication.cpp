#include "zel_fnd_authentication.h"

#include <cstring>

#include "CJvm.h"
#include "cmt_trace.h"
#include "emw_osw_mem.h"
#include "tovr_field_text.h"
#include "tovr_jni.h"
#include "tovr_jni_class.h"
#include "zel_fnd_user_info.h"
#include "zel_fnd_user_results.h"

#define CMT_TRACE_MODULE "zel_fnd_authentication"

namespace tarnwick {

using namespace zel_fnd_user_result;

namespace {

esv_zel_user_facade* facade() { return esv_zel_user_facade::esv_zel_user_get_instance(); }

jni::JavaClass& array_list_class() {
    static const jni::Member members[] = {{jni::Member::kMethod, "add", "(Ljava/lang/Object;)Z"}};
    static jni::JavaClass holder("java/util/ArrayList", members);
    return holder;
}

// Local references of one user: the user, three strings, four attributes.
constexpr jint kUserFrame = 16;

// Module results of the facade's answers, traced under the operation that asked. `word` names
// the answer in the trace ("result" or "retcode", as each operation has it).

unsigned int failure(const char* operation, long rc) {
    CMT_TRACE_OP(kTraceFlow, operation, "failed. result = [%d]", static_cast<int>(rc));
    return kFailure;
}

// An answer that is success or failure.
unsigned int result(const char* operation, long rc) {
    if (rc != 0) return failure(operation, rc);
    CMT_TRACE_OP(kTraceFlow, operation, "success. result = [%d]", static_cast<int>(rc));
    return kSuccess;
}

// A login's answer; an invalid password is told apart only where there is a password.
unsigned int login_result(const char* operation, const char* word, long rc, unsigned long cert_id, bool password) {
    if (rc == 0) {
        CMT_TRACE_OP(kTraceFlow, operation, "success. %s = [%d], cert_id = [%lu]", word, static_cast<int>(rc), cert_id);
        return kSuccess;
    }
    if (password && rc == ESV_ZEL_USER_INVALID_PASSWORD) {
        CMT_TRACE_OP(kTraceFlow, operation, "invalid password. %s = [%d]", word, static_cast<int>(rc));
        return kInvalidPassword;
    }
    if (rc == ESV_ZEL_USER_NOT_FOUND) {
        CMT_TRACE_OP(kTraceFlow, operation, "not found. %s = [%d]", word, static_cast<int>(rc));
        return kNotFound;
    }
    CMT_TRACE_OP(kTraceFlow, operation, "failed. %s = [%d]", word, static_cast<int>(rc));
    return kFailure;
}

// A rights query's answer; `level` takes `value` on success. Every failure shares one text, the
// one the two-string form was given.
unsigned int rights_result(const char* operation, const char* word, long rc, ESV_ZEL_USER_RIGHTS value,
                           ZEL_FND_USER_ACCESS_LEVEL& level) {
    if (rc == 0) {
        level.level = value;
        CMT_TRACE_OP(kTraceFlow, operation, "success. %s = [%d], level = [%d]", word, static_cast<int>(rc),
                     static_cast<int>(value));
        return kSuccess;
    }
    CMT_TRACE_OP(kTraceFlow, operation, "failed. result = %d", static_cast<int>(rc));
    if (rc == ESV_ZEL_USER_INVALID_PASSWORD) return kInvalidPassword;
    if (rc == ESV_ZEL_USER_NOT_FOUND) return kNotFound;
    return kFailure;
}

}  // namespace

zel_fnd_authentication::zel_fnd_authentication() {}

zel_fnd_authentication::~zel_fnd_authentication() {}

unsigned int zel_fnd_authentication::login(const std::string& user, const std::string& password,
                                           ESV_ZEL_USER_AUTHMODE mode, ZEL_FND_CERTIFICATE_ID& cert) {
    unsigned long cert_id = 0;
    long rc = facade()->esv_zel_user_account_login(user, password, mode, &cert_id);
    cert.id = cert_id;
    CMT_TRACE(kTraceFlow, "[Start], cert_id=[%lu]", cert_id);
    return login_result(__func__, "result", rc, cert_id, true);
}

unsigned int zel_fnd_authentication::login(const std::string& user, const std::string& password,
                                           ESV_ZEL_USER_AUTHMODE mode, const std::string& third,
                                           ZEL_FND_CERTIFICATE_ID& cert) {
    CMT_TRACE(kTraceFlow, "[Start]");
    unsigned long cert_id = 0;
    long rc = facade()->esv_zel_user_account_login(user, password, mode, third, &cert_id);
    cert.id = cert_id;
    CMT_TRACE(kTraceFlow, "cert_id = [%lu]", cert_id);
    return login_result(__func__, "retcode", rc, cert_id, true);
}

// An IC card has no password: an invalid-password answer is a plain failure.
unsigned int zel_fnd_authentication::iccard_login(char* idm, ZEL_FND_CERTIFICATE_ID& cert) {
    unsigned long cert_id = 0;
    long rc = facade()->esv_zel_user_idm_login(idm, &cert_id);
    if (rc == 0) cert.id = cert_id;
    return login_result(__func__, "result", rc, cert_id, false);
}

unsigned int zel_fnd_authentication::logout(unsigned long cert_id) {
    return result(__func__, facade()->esv_zel_user_logout(cert_id));
}

unsigned int zel_fnd_authentication::get_login_user_info(ESV_ZEL_USER_USERKIND kind, ESV_ZEL_USERINFO_RECORD& rec) {
    return result(__func__, facade()->esv_zel_user_get_userinfo(kind, rec));
}

unsigned int zel_fnd_authentication::get_auth_mode(ZEL_FND_AUTH_MODE& mode) {
    ESV_ZEL_USER_AUTHMODE value = mode.mode;
    long rc = facade()->esv_zel_user_get_authentication_mode(&value);
    if (rc != 0) return failure(__func__, rc);
    mode.mode = value;
    CMT_TRACE(kTraceFlow, "success. result = [%d], mode = [%d]", static_cast<int>(rc), static_cast<int>(value));
    return kSuccess;
}

unsigned int zel_fnd_authentication::set_auth_mode(ESV_ZEL_USER_AUTHMODE mode) {
    return result(__func__, facade()->esv_zel_user_set_authentication_mode(mode));
}

unsigned int zel_fnd_authentication::get_rights(const std::string& user, const std::string& password,
                                                ZEL_FND_USER_ACCESS_LEVEL& level) {
    ESV_ZEL_USER_RIGHTS value = level.level;
    long rc = facade()->esv_zel_user_get_rights(user, password, &value);
    return rights_result(__func__, "result", rc, value, level);
}

unsigned int zel_fnd_authentication::get_rights(const std::string& user, const std::string& password,
                                                const std::string& third, ZEL_FND_USER_ACCESS_LEVEL& level) {
    CMT_TRACE(kTraceFlow, "[Start]");
    ESV_ZEL_USER_RIGHTS value = level.level;
    long rc = facade()->esv_zel_user_get_rights(user, password, third, &value);
    return rights_result(__func__, "retcode", rc, value, level);
}

unsigned int zel_fnd_authentication::set_func_login_mode(ESV_ZEL_MODE_10_VAL mode) {
    CMT_TRACE(kTraceFlow, "[Start]");
    long rc = facade()->esv_zel_user_set_func_auth_mode(mode);
    CMT_TRACE(kTraceFlow, "retcode = [%d]", static_cast<int>(rc));
    return rc == 0 ? kSuccess : kFailure;
}

// One record per fetch into one reused buffer; each user object is made inside its own local
// frame, so the references in use stay flat however long the list. A Java step that raises an
// exception (the list's add, a builder step) ends the fetch: the buffer is freed, the list
// finished, 4 returned and the exception left pending for the Java caller, with no trace of its
// own.
unsigned int zel_fnd_authentication::get_local_user_list(jobject list) {
    CMT_TRACE(kTraceFlow, "[Start]");
    JNIEnv* env = CJvm::GetJNIEnv();
    if (env == nullptr) {
        CMT_TRACE(kTraceError, "GetJNIEnv() failed.");
        return kFailure;
    }

    esv_zel_user_facade* users = facade();
    unsigned int handle = 0;
    unsigned int total_num = 0;
    long rc = users->esv_zel_user_get_local_user_list_prepare(1, handle, total_num);
    if (rc != 0) {
        CMT_TRACE(kTraceError, "failed. result(%d)", static_cast<int>(rc));
        return kFailure;
    }
    if (total_num == 0) {
        users->esv_zel_user_get_local_user_list_finish(handle);
        CMT_TRACE(kTraceFlow, "total_num == 0.");
        return kSuccess;
    }

    unsigned int get_num = 0;
    jni::JavaClass& array_list = array_list_class();
    jclass list_class = array_list.get(env);
    if (list_class == nullptr) {
        users->esv_zel_user_get_local_user_list_finish(handle);
        CMT_TRACE(kTraceError, "FindClass(java/util/ArrayList) failed.");
        return kFailure;
    }
    jmethodID add = array_list.method(0);
    if (add == nullptr) {
        users->esv_zel_user_get_local_user_list_finish(handle);
        CMT_TRACE(kTraceError, "GetMethodID(add) failed.");
        return kFailure;
    }
    // The method is ArrayList's: anything else is refused before a call is made on it.
    if (list == nullptr || !env->IsInstanceOf(list, list_class)) {
        users->esv_zel_user_get_local_user_list_finish(handle);
        CMT_TRACE(kTraceError, "list is not a java.util.ArrayList.");
        return kFailure;
    }

    void* block = emwOSWSubAllocMem(sizeof(ESV_ZEL_USERINFO_RECORD));
    if (block == nullptr) {
        emwOSWOrgFreeMemPart(0, block);
        users->esv_zel_user_get_local_user_list_finish(handle);
        CMT_TRACE(kTraceError, "user_info == NULL.");
        return kFailure;
    }
    ESV_ZEL_USERINFO_RECORD* user_info = static_cast<ESV_ZEL_USERINFO_RECORD*>(block);
    auto fail = [&] {
        emwOSWOrgFreeMemPart(0, block);
        users->esv_zel_user_get_local_user_list_finish(handle);
        return kFailure;
    };

    zel_fnd_user_info builder;
    if (jni::pending(env)) return fail();  // the user class is missing

    unsigned int total_get_num = 0;
    while (total_num > total_get_num) {
        CMT_TRACE(kTraceFlow, "total_get_num=(%d), total_num=(%d), get_num=(%d)", static_cast<int>(total_get_num),
                  static_cast<int>(total_num), static_cast<int>(get_num));
        rc = users->esv_zel_user_get_local_user_list(handle, get_num, user_info);
        if (rc != 0) {
            fail();
            CMT_TRACE(kTraceError, "failed. ret(%d)", static_cast<int>(rc));
            return kFailure;
        }

        jni::LocalFrame frame(env, kUserFrame);
        if (!frame.ok()) return fail();
        jobject user = zel_fnd_user_info::make_user(env);  // null exactly when it could not be made
        if (user == nullptr) return fail();
        zel_fnd_user_info::put_text(env, user, zel_fnd_user_info::kLoginName, FieldText(user_info->login_name).c_str());
        if (jni::pending(env)) return fail();
        zel_fnd_user_info::put_text(env, user, zel_fnd_user_info::kUserName, FieldText(user_info->user_name).c_str());
        if (jni::pending(env)) return fail();
        zel_fnd_user_info::put_text(env, user, zel_fnd_user_info::kMailAddress, FieldText(user_info->email).c_str());
        if (jni::pending(env)) return fail();
        zel_fnd_user_info::put_access_level(env, user, user_info->rights);
        if (jni::pending(env)) return fail();
        env->CallBooleanMethod(list, add, user);
        if (jni::pending(env)) return fail();
        frame.pop();
        total_get_num += get_num;
    }

    emwOSWOrgFreeMemPart(0, block);
    rc = users->esv_zel_user_get_local_user_list_finish(handle);
    if (rc != 0) CMT_TRACE(kTraceFlow, "failed. result(%d)", static_cast<int>(rc));
    return kSuccess;
}

}  // namespace tarnwick
