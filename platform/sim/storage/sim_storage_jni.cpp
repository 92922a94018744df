// JNI side of tarnwick.sim.SimStorage: converts the arguments and calls the disk I/O library's
// control interface (tovr_sim_storage.h).
#include <jni.h>

#include <string>

#include "sim_jni.h"
#include "tovr_sim_storage.h"

using tovr_sim_jni::bytes;
using tovr_sim_jni::text;

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

}  // extern "C"
