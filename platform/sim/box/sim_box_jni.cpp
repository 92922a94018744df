// JNI side of tarnwick.sim.SimBox: converts the arguments and calls the document box's control
// interface (tovr_sim_box.h).
#include <jni.h>

#include <string>

#include "sim_jni.h"
#include "tovr_sim_box.h"

using tovr_sim_jni::bytes;
using tovr_sim_jni::strings;
using tovr_sim_jni::text;

extern "C" {

JNIEXPORT jboolean JNICALL Java_tarnwick_sim_SimBox_addFolder(JNIEnv* env, jclass, jstring path) {
    return tovr_sim::box_add_folder(text(env, path));
}

JNIEXPORT jboolean JNICALL Java_tarnwick_sim_SimBox_addDocument(JNIEnv* env, jclass, jstring folder,
                                                                       jstring name, jlong size, jint date, jint type) {
    return tovr_sim::box_add_document(text(env, folder), text(env, name), static_cast<std::uint32_t>(size), date,
                                      static_cast<std::uint32_t>(type));
}

JNIEXPORT jboolean JNICALL Java_tarnwick_sim_SimBox_remove(JNIEnv* env, jclass, jstring path) {
    return tovr_sim::box_remove(text(env, path));
}

JNIEXPORT jboolean JNICALL Java_tarnwick_sim_SimBox_exists(JNIEnv* env, jclass, jstring path) {
    return tovr_sim::box_exists(text(env, path));
}

JNIEXPORT jobjectArray JNICALL Java_tarnwick_sim_SimBox_names(JNIEnv* env, jclass, jstring folder) {
    return strings(env, tovr_sim::box_names(text(env, folder)));
}

JNIEXPORT void JNICALL Java_tarnwick_sim_SimBox_setListingLimit(JNIEnv*, jclass, jint n) {
    tovr_sim::box_set_listing_limit(n);
}

JNIEXPORT void JNICALL Java_tarnwick_sim_SimBox_reset(JNIEnv*, jclass) { tovr_sim::box_reset(); }

JNIEXPORT void JNICALL Java_tarnwick_sim_SimBox_forcePrepare(JNIEnv*, jclass, jlong result, jlong handle,
                                                                    jlong total, jint times) {
    tovr_sim::force_box_prepare(static_cast<long>(result), static_cast<unsigned int>(handle),
                                static_cast<unsigned int>(total), times);
}

JNIEXPORT void JNICALL Java_tarnwick_sim_SimBox_forceEntry(JNIEnv* env, jclass, jlong result, jlong get_num,
                                                                  jlong type, jbyteArray name, jint date, jlong size,
                                                                  jbyteArray path, jint times) {
    tovr_sim::force_box_entry(static_cast<long>(result), static_cast<unsigned int>(get_num),
                              static_cast<std::uint32_t>(type), bytes(env, name), date,
                              static_cast<std::uint32_t>(size), bytes(env, path), times);
}

}  // extern "C"
