// JNI side of tarnwick.sim.SimUsers: control of the simulated user and department facades.
#include <jni.h>

#include <cstring>
#include <string>
#include <vector>

#include "tovr_sim_user.h"
#include "sim_jni.h"

namespace {

using tovr_sim_jni::strings;
using tovr_sim_jni::text;


template <std::size_t N>
std::string get(const char (&field)[N]) {
    return std::string(field, strnlen(field, N));
}


jintArray ints(JNIEnv* env, const std::int32_t* v, std::size_t n) {
    jintArray out = env->NewIntArray(static_cast<jsize>(n));
    if (out == nullptr) return nullptr;
    std::vector<jint> copy(v, v + n);
    env->SetIntArrayRegion(out, 0, static_cast<jsize>(n), copy.data());
    return out;
}

// The fields a user list shows of a user.
tovr_sim::SimUser listed_user(JNIEnv* env, jstring login, jstring name, jstring email, jint rights) {
    tovr_sim::SimUser u;
    u.login_name = text(env, login);
    u.user_name = text(env, name);
    u.email = text(env, email);
    u.rights = rights;
    return u;
}

}  // namespace

extern "C" {

JNIEXPORT void JNICALL Java_tarnwick_sim_SimUsers_reset(JNIEnv*, jclass) {
    tovr_sim::reset_users();
    tovr_sim::reset_depts();
}

JNIEXPORT jlong JNICALL Java_tarnwick_sim_SimUsers_addLocalUser(JNIEnv* env, jclass, jstring login, jstring password,
                                                                 jstring name, jstring email, jint rights,
                                                                 jlong job_limit, jint dept_id, jstring kana,
                                                                 jstring idm, jstring domain) {
    tovr_sim::SimUser u;
    u.login_name = text(env, login);
    u.password = text(env, password);
    u.user_name = text(env, name);
    u.email = text(env, email);
    u.rights = rights;
    u.job_limit = static_cast<std::uint32_t>(job_limit);
    u.dept_id = static_cast<std::uint16_t>(dept_id);
    u.kana = text(env, kana);
    u.idm = text(env, idm);
    u.domain = text(env, domain);
    return static_cast<jlong>(tovr_sim::add_local_user(u));
}

JNIEXPORT void JNICALL Java_tarnwick_sim_SimUsers_addLocalUsers(JNIEnv*, jclass, jint count) {
    tovr_sim::add_local_users(count);
}

JNIEXPORT jboolean JNICALL Java_tarnwick_sim_SimUsers_removeLocalUser(JNIEnv* env, jclass, jstring login) {
    return tovr_sim::remove_local_user(text(env, login)) ? JNI_TRUE : JNI_FALSE;
}

JNIEXPORT jint JNICALL Java_tarnwick_sim_SimUsers_localUserCount(JNIEnv*, jclass) {
    return static_cast<jint>(tovr_sim::local_user_count());
}

JNIEXPORT jobjectArray JNICALL Java_tarnwick_sim_SimUsers_hiddenUser(JNIEnv* env, jclass, jstring login) {
    ESV_ZEL_HIDE_USERINFO_RECORD r;
    if (!tovr_sim::hidden_user(text(env, login), &r)) return nullptr;
    return strings(env, {get(r.login_name), get(r.login_passwd), get(r.user_name), get(r.email), get(r.dept_code),
                         std::to_string(static_cast<int>(r.rights)), std::to_string(r.job_limit)});
}

JNIEXPORT jint JNICALL Java_tarnwick_sim_SimUsers_hiddenUserCount(JNIEnv*, jclass) {
    return static_cast<jint>(tovr_sim::hidden_user_count());
}

JNIEXPORT jlongArray JNICALL Java_tarnwick_sim_SimUsers_sessions(JNIEnv* env, jclass) {
    std::vector<unsigned long> s = tovr_sim::sessions();
    std::vector<jlong> v(s.begin(), s.end());
    jlongArray out = env->NewLongArray(static_cast<jsize>(v.size()));
    if (out == nullptr) return nullptr;
    env->SetLongArrayRegion(out, 0, static_cast<jsize>(v.size()), v.data());
    return out;
}

JNIEXPORT jstring JNICALL Java_tarnwick_sim_SimUsers_sessionUser(JNIEnv* env, jclass, jlong cert) {
    return env->NewStringUTF(tovr_sim::session_user(static_cast<unsigned long>(cert)).c_str());
}

JNIEXPORT jint JNICALL Java_tarnwick_sim_SimUsers_authMode(JNIEnv*, jclass) { return tovr_sim::auth_mode(); }

JNIEXPORT jint JNICALL Java_tarnwick_sim_SimUsers_funcAuthMode(JNIEnv*, jclass) { return tovr_sim::func_auth_mode(); }

JNIEXPORT void JNICALL Java_tarnwick_sim_SimUsers_forceLoginOutput(JNIEnv* env, jclass, jstring op, jlong result,
                                                                    jlong cert, jint times) {
    tovr_sim::force_login_output(text(env, op), static_cast<long>(result), static_cast<unsigned long>(cert), times);
}

JNIEXPORT void JNICALL Java_tarnwick_sim_SimUsers_forceRightsOutput(JNIEnv*, jclass, jlong result, jint rights,
                                                                     jint times) {
    tovr_sim::force_rights_output(static_cast<long>(result), rights, times);
}

JNIEXPORT void JNICALL Java_tarnwick_sim_SimUsers_forceAuthModeOutput(JNIEnv*, jclass, jlong result, jint mode,
                                                                       jint times) {
    tovr_sim::force_auth_mode_output(static_cast<long>(result), mode, times);
}

JNIEXPORT void JNICALL Java_tarnwick_sim_SimUsers_forceUserInfoOutput(JNIEnv* env, jclass, jlong result, jlong id,
                                                                       jstring login, jstring name, jstring email,
                                                                       jint rights, jlong job_limit, jint dept_id,
                                                                       jstring kana, jint times) {
    tovr_sim::SimUser u = listed_user(env, login, name, email, rights);
    u.job_limit = static_cast<std::uint32_t>(job_limit);
    u.dept_id = static_cast<std::uint16_t>(dept_id);
    u.kana = text(env, kana);
    tovr_sim::force_userinfo_output(static_cast<long>(result), tovr_sim::userinfo_record(static_cast<std::uint32_t>(id), u),
                                    times);
}

JNIEXPORT void JNICALL Java_tarnwick_sim_SimUsers_forceListPrepareOutput(JNIEnv*, jclass, jlong result, jlong handle,
                                                                          jlong total, jint times) {
    tovr_sim::force_list_prepare_output(static_cast<long>(result), static_cast<unsigned int>(handle),
                                        static_cast<unsigned int>(total), times);
}

JNIEXPORT void JNICALL Java_tarnwick_sim_SimUsers_forceListFetchOutput(JNIEnv* env, jclass, jlong result,
                                                                        jlong get_num, jstring login, jstring name,
                                                                        jstring email, jint rights, jint times) {
    if (login == nullptr) {
        tovr_sim::force_list_fetch_output(static_cast<long>(result), static_cast<unsigned int>(get_num), nullptr, times);
        return;
    }
    const ESV_ZEL_USERINFO_RECORD r = tovr_sim::userinfo_record(0, listed_user(env, login, name, email, rights));
    tovr_sim::force_list_fetch_output(static_cast<long>(result), static_cast<unsigned int>(get_num), &r, times);
}

JNIEXPORT void JNICALL Java_tarnwick_sim_SimUsers_forceListFetchFullFields(JNIEnv*, jclass, jlong result, jint rights,
                                                                            jint times) {
    const ESV_ZEL_USERINFO_RECORD r = tovr_sim::userinfo_record_full(rights);
    tovr_sim::force_list_fetch_output(static_cast<long>(result), 1, &r, times);
}

JNIEXPORT void JNICALL Java_tarnwick_sim_SimUsers_failPlatformAlloc(JNIEnv*, jclass, jint times) {
    tovr_sim::fail_alloc(times);
}

JNIEXPORT jobjectArray JNICALL Java_tarnwick_sim_SimUsers_deptIds(JNIEnv* env, jclass) {
    return strings(env, tovr_sim::dept_ids());
}

JNIEXPORT jstring JNICALL Java_tarnwick_sim_SimUsers_deptName(JNIEnv* env, jclass, jstring id) {
    ESV_ZEL_DEPT_DEPTINFO d;
    if (!tovr_sim::dept(text(env, id), &d)) return nullptr;
    return env->NewStringUTF(get(d.name).c_str());
}

JNIEXPORT jintArray JNICALL Java_tarnwick_sim_SimUsers_deptLimits(JNIEnv* env, jclass, jstring id) {
    ESV_ZEL_DEPT_DEPTINFO d;
    if (!tovr_sim::dept(text(env, id), &d)) return nullptr;
    return ints(env, d.limit, ESV_ZEL_DEPT_SLOT_NUM);
}

JNIEXPORT jintArray JNICALL Java_tarnwick_sim_SimUsers_deptRestrictions(JNIEnv* env, jclass, jstring id) {
    ESV_ZEL_DEPT_DEPTINFO d;
    if (!tovr_sim::dept(text(env, id), &d)) return nullptr;
    return ints(env, d.restriction, ESV_ZEL_DEPT_SLOT_NUM);
}

JNIEXPORT jlong JNICALL Java_tarnwick_sim_SimUsers_deptCounter(JNIEnv* env, jclass, jstring id, jint slot) {
    return static_cast<jlong>(tovr_sim::dept_counter(text(env, id), slot));
}

JNIEXPORT void JNICALL Java_tarnwick_sim_SimUsers_countPages(JNIEnv* env, jclass, jstring id, jboolean copy, jint pages) {
    tovr_sim::dept_count_pages(text(env, id), copy != JNI_FALSE, static_cast<unsigned int>(pages));
}

JNIEXPORT jint JNICALL Java_tarnwick_sim_SimUsers_deptLimitAction(JNIEnv*, jclass) { return tovr_sim::dept_limit_action(); }
JNIEXPORT jint JNICALL Java_tarnwick_sim_SimUsers_deptInvalidMode(JNIEnv*, jclass) { return tovr_sim::dept_invalid_mode(); }
JNIEXPORT jint JNICALL Java_tarnwick_sim_SimUsers_deptMixMode(JNIEnv*, jclass) { return tovr_sim::dept_mix_mode(); }
JNIEXPORT jint JNICALL Java_tarnwick_sim_SimUsers_deptMode(JNIEnv*, jclass) { return tovr_sim::dept_mode(); }

JNIEXPORT void JNICALL Java_tarnwick_sim_SimUsers_forceDeptValueOutput(JNIEnv* env, jclass, jstring op, jlong result,
                                                                        jint value, jint times) {
    tovr_sim::force_dept_value_output(text(env, op), static_cast<long>(result), value, times);
}

JNIEXPORT void JNICALL Java_tarnwick_sim_SimUsers_forceDeptRecordOutput(JNIEnv* env, jclass, jlong result, jstring id,
                                                                         jstring name, jint times) {
    tovr_sim::force_dept_record_output(static_cast<long>(result), tovr_sim::dept_record(text(env, id), text(env, name)),
                                       times);
}

JNIEXPORT void JNICALL Java_tarnwick_sim_SimUsers_forceDeptRecordFullFields(JNIEnv*, jclass, jlong result, jint times) {
    tovr_sim::force_dept_record_output(static_cast<long>(result), tovr_sim::dept_record_full(), times);
}

}  // extern "C"
