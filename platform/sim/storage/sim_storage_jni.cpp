// JNI side of tarnwick.sim.SimStorage: the simulated disk I/O library and easy box for Java tests.
#include <jni.h>

#include <string>
#include <vector>

#include "tovr_sim_storage.h"
#include "sim_jni.h"

namespace {

using tovr_sim_jni::strings;
using tovr_sim_jni::text;


std::string bytes(JNIEnv* env, jbyteArray a) {
    if (a == nullptr) return std::string();
    jsize n = env->GetArrayLength(a);
    std::string out(static_cast<std::size_t>(n), '\0');
    if (n > 0) env->GetByteArrayRegion(a, 0, n, reinterpret_cast<jbyte*>(&out[0]));
    return out;
}

}  // namespace

extern "C" {

JNIEXPORT jstring JNICALL Java_tarnwick_sim_SimStorage_folder(JNIEnv* env, jclass, jint drive) {
    return env->NewStringUTF(tovr_sim::storage_folder(drive).c_str());
}

JNIEXPORT jboolean JNICALL Java_tarnwick_sim_SimStorage_setFolder(JNIEnv* env, jclass, jint drive, jstring folder) {
    return tovr_sim::storage_set_folder(drive, text(env, folder));
}

JNIEXPORT jboolean JNICALL Java_tarnwick_sim_SimStorage_plug(JNIEnv*, jclass, jint drive) {
    return tovr_sim::storage_plug(drive);
}

JNIEXPORT jboolean JNICALL Java_tarnwick_sim_SimStorage_unplug(JNIEnv*, jclass, jint drive) {
    return tovr_sim::storage_unplug(drive);
}

JNIEXPORT jboolean JNICALL Java_tarnwick_sim_SimStorage_mounted(JNIEnv*, jclass, jint drive) {
    return tovr_sim::storage_mounted(drive);
}

JNIEXPORT void JNICALL Java_tarnwick_sim_SimStorage_setLimits(JNIEnv*, jclass, jint files, jint dirs) {
    tovr_sim::storage_set_limits(files, dirs);
}

JNIEXPORT void JNICALL Java_tarnwick_sim_SimStorage_reset(JNIEnv*, jclass) { tovr_sim::storage_reset(); }

JNIEXPORT jint JNICALL Java_tarnwick_sim_SimStorage_attributes(JNIEnv* env, jclass, jint drive, jstring path) {
    return tovr_sim::storage_attributes(drive, text(env, path));
}

JNIEXPORT void JNICALL Java_tarnwick_sim_SimStorage_forceStat(JNIEnv*, jclass, jint result, jlong mode, jlong size,
                                                              jlong mtime, jint times) {
    tovr_sim::force_stat(result, static_cast<std::uint32_t>(mode), static_cast<std::uint32_t>(size),
                         static_cast<std::uint32_t>(mtime), times);
}

JNIEXPORT void JNICALL Java_tarnwick_sim_SimStorage_forceReaddirName(JNIEnv* env, jclass, jint result, jbyteArray name,
                                                                     jint times) {
    tovr_sim::force_readdir_name(result, bytes(env, name), times);
}

JNIEXPORT void JNICALL Java_tarnwick_sim_SimStorage_forceHandle(JNIEnv* env, jclass, jstring op, jint result,
                                                                jlong handle, jint times) {
    tovr_sim::force_handle(text(env, op), result, static_cast<unsigned long>(handle), times);
}

JNIEXPORT void JNICALL Java_tarnwick_sim_SimStorage_forceDone(JNIEnv* env, jclass, jstring op, jint result, jlong done,
                                                              jint times) {
    tovr_sim::force_done(text(env, op), result, static_cast<unsigned long>(done), times);
}

JNIEXPORT void JNICALL Java_tarnwick_sim_SimStorage_forceFtell(JNIEnv*, jclass, jint result, jint position, jint times) {
    tovr_sim::force_ftell(result, position, times);
}

JNIEXPORT void JNICALL Java_tarnwick_sim_SimStorage_forceAttribute(JNIEnv*, jclass, jint result, jint raw, jint times) {
    tovr_sim::force_attribute(result, raw, times);
}

JNIEXPORT void JNICALL Java_tarnwick_sim_SimStorage_failAlloc(JNIEnv*, jclass, jint times) {
    tovr_sim::fail_alloc(times);
}

JNIEXPORT jboolean JNICALL Java_tarnwick_sim_SimStorage_boxAddFolder(JNIEnv* env, jclass, jstring path) {
    return tovr_sim::box_add_folder(text(env, path));
}

JNIEXPORT jboolean JNICALL Java_tarnwick_sim_SimStorage_boxAddDocument(JNIEnv* env, jclass, jstring folder,
                                                                       jstring name, jlong size, jint date, jint type) {
    return tovr_sim::box_add_document(text(env, folder), text(env, name), static_cast<std::uint32_t>(size), date,
                                      static_cast<std::uint32_t>(type));
}

JNIEXPORT jboolean JNICALL Java_tarnwick_sim_SimStorage_boxRemove(JNIEnv* env, jclass, jstring path) {
    return tovr_sim::box_remove(text(env, path));
}

JNIEXPORT jboolean JNICALL Java_tarnwick_sim_SimStorage_boxExists(JNIEnv* env, jclass, jstring path) {
    return tovr_sim::box_exists(text(env, path));
}

JNIEXPORT jobjectArray JNICALL Java_tarnwick_sim_SimStorage_boxNames(JNIEnv* env, jclass, jstring folder) {
    return strings(env, tovr_sim::box_names(text(env, folder)));
}

JNIEXPORT void JNICALL Java_tarnwick_sim_SimStorage_boxSetListingLimit(JNIEnv*, jclass, jint n) {
    tovr_sim::box_set_listing_limit(n);
}

JNIEXPORT void JNICALL Java_tarnwick_sim_SimStorage_boxReset(JNIEnv*, jclass) { tovr_sim::box_reset(); }

JNIEXPORT void JNICALL Java_tarnwick_sim_SimStorage_forceBoxPrepare(JNIEnv*, jclass, jlong result, jlong handle,
                                                                    jlong total, jint times) {
    tovr_sim::force_box_prepare(static_cast<long>(result), static_cast<unsigned int>(handle),
                                static_cast<unsigned int>(total), times);
}

JNIEXPORT void JNICALL Java_tarnwick_sim_SimStorage_forceBoxEntry(JNIEnv* env, jclass, jlong result, jlong get_num,
                                                                  jlong type, jbyteArray name, jint date, jlong size,
                                                                  jbyteArray path, jint times) {
    tovr_sim::force_box_entry(static_cast<long>(result), static_cast<unsigned int>(get_num),
                              static_cast<std::uint32_t>(type), bytes(env, name), date,
                              static_cast<std::uint32_t>(size), bytes(env, path), times);
}

}  // extern "C"
