// JNI side of tarnwick.sim.SimAddressBook: the simulated address book for Java tests.
#include <jni.h>

#include <cstring>
#include <mutex>
#include <string>
#include <vector>

#include "tovr_sim_address.h"
#include "sim_jni.h"

namespace {

using tovr_sim_jni::strings;
using tovr_sim_jni::text;


bool to_record(JNIEnv* env, jbyteArray bytes, ESV_ZEL_PERSONAL_ADDRESS& out) {
    if (bytes == nullptr || env->GetArrayLength(bytes) != static_cast<jsize>(sizeof out)) return false;
    env->GetByteArrayRegion(bytes, 0, sizeof out, reinterpret_cast<jbyte*>(&out));
    return !env->ExceptionCheck();
}

std::mutex g_error_mutex;
std::string g_load_error;

}  // namespace

extern "C" {

JNIEXPORT void JNICALL Java_tarnwick_sim_SimAddressBook_reset(JNIEnv*, jclass) { tovr_sim::reset_address_book(); }

JNIEXPORT jboolean JNICALL Java_tarnwick_sim_SimAddressBook_addRecord(JNIEnv* env, jclass, jbyteArray bytes) {
    ESV_ZEL_PERSONAL_ADDRESS r{};
    if (!to_record(env, bytes, r)) return JNI_FALSE;
    tovr_sim::add_address(r);
    return JNI_TRUE;
}

JNIEXPORT jboolean JNICALL Java_tarnwick_sim_SimAddressBook_remove(JNIEnv*, jclass, jint index) {
    return index >= 0 && tovr_sim::remove_address(static_cast<std::size_t>(index)) ? JNI_TRUE : JNI_FALSE;
}

JNIEXPORT void JNICALL Java_tarnwick_sim_SimAddressBook_clear(JNIEnv*, jclass) { tovr_sim::clear_address_book(); }

JNIEXPORT jint JNICALL Java_tarnwick_sim_SimAddressBook_size(JNIEnv*, jclass) {
    return static_cast<jint>(tovr_sim::address_book_size());
}

JNIEXPORT jbyteArray JNICALL Java_tarnwick_sim_SimAddressBook_record(JNIEnv* env, jclass, jint index) {
    ESV_ZEL_PERSONAL_ADDRESS r{};
    if (index >= 0) r = tovr_sim::address_at(static_cast<std::size_t>(index));
    jbyteArray out = env->NewByteArray(sizeof r);
    if (out == nullptr) return nullptr;
    env->SetByteArrayRegion(out, 0, sizeof r, reinterpret_cast<const jbyte*>(&r));
    return out;
}

JNIEXPORT void JNICALL Java_tarnwick_sim_SimAddressBook_generate(JNIEnv*, jclass, jint count, jint first) {
    tovr_sim::generate_address_book(count, first);
}

JNIEXPORT jint JNICALL Java_tarnwick_sim_SimAddressBook_load(JNIEnv* env, jclass, jstring path) {
    std::string error;
    int n = tovr_sim::load_address_book(text(env, path), &error);
    std::lock_guard<std::mutex> lock(g_error_mutex);
    g_load_error = n < 0 ? error : std::string();
    return n;
}

JNIEXPORT jstring JNICALL Java_tarnwick_sim_SimAddressBook_loadError(JNIEnv* env, jclass) {
    std::lock_guard<std::mutex> lock(g_error_mutex);
    return env->NewStringUTF(g_load_error.c_str());
}

JNIEXPORT jint JNICALL Java_tarnwick_sim_SimAddressBook_openSearches(JNIEnv*, jclass) {
    return tovr_sim::open_address_searches();
}

JNIEXPORT void JNICALL Java_tarnwick_sim_SimAddressBook_setSearchLimit(JNIEnv*, jclass, jint limit) {
    tovr_sim::set_address_search_limit(limit);
}

JNIEXPORT jint JNICALL Java_tarnwick_sim_SimAddressBook_searchLimit(JNIEnv*, jclass) {
    return tovr_sim::address_search_limit();
}

JNIEXPORT void JNICALL Java_tarnwick_sim_SimAddressBook_forcePrepare(JNIEnv*, jclass, jlong result, jlong handle,
                                                                     jlong second, jint times) {
    tovr_sim::force_address_prepare(static_cast<unsigned long>(static_cast<std::uint32_t>(result)),
                                    static_cast<unsigned int>(handle), static_cast<unsigned int>(second), times);
}

JNIEXPORT void JNICALL Java_tarnwick_sim_SimAddressBook_forceFetch(JNIEnv* env, jclass, jlong result, jlong ret_num,
                                                                   jobjectArray records, jint times) {
    std::vector<ESV_ZEL_PERSONAL_ADDRESS> list;
    const jsize n = records ? env->GetArrayLength(records) : 0;
    for (jsize i = 0; i < n; ++i) {
        auto bytes = static_cast<jbyteArray>(env->GetObjectArrayElement(records, i));
        if (env->ExceptionCheck()) return;
        ESV_ZEL_PERSONAL_ADDRESS r{};
        const bool ok = to_record(env, bytes, r);
        env->DeleteLocalRef(bytes);
        if (env->ExceptionCheck()) return;
        if (ok) list.push_back(r);
    }
    tovr_sim::force_address_fetch(static_cast<unsigned long>(static_cast<std::uint32_t>(result)),
                                  static_cast<unsigned int>(ret_num), list, times);
}

JNIEXPORT void JNICALL Java_tarnwick_sim_SimAddressBook_forceFinish(JNIEnv*, jclass, jlong result, jint times) {
    tovr_sim::force_address_finish(static_cast<unsigned long>(static_cast<std::uint32_t>(result)), times);
}

JNIEXPORT void JNICALL Java_tarnwick_sim_SimAddressBook_failAllocAfterPrepares(JNIEnv*, jclass, jint prepares) {
    tovr_sim::fail_alloc_after_address_prepares(prepares);
}

JNIEXPORT void JNICALL Java_tarnwick_sim_SimAddressBook_passPrepares(JNIEnv*, jclass, jint n) {
    tovr_sim::pass_address_prepares(n);
}

JNIEXPORT void JNICALL Java_tarnwick_sim_SimAddressBook_passFetches(JNIEnv*, jclass, jint n) {
    tovr_sim::pass_address_fetches(n);
}

JNIEXPORT void JNICALL Java_tarnwick_sim_SimAddressBook_resizeAtPrepare(JNIEnv*, jclass, jint nth, jint size) {
    tovr_sim::resize_address_book_at_prepare(nth, size < 0 ? 0 : static_cast<std::size_t>(size));
}

}  // extern "C"
