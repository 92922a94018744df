// JNI side of tarnwick.sim.SimSystem: converts the arguments and calls the system-information
// control interface (tovr_sim_system.h).
#include <jni.h>

#include "sim_jni.h"
#include "tovr_sim_device.h"

using tovr_sim_jni::text;

extern "C" {

JNIEXPORT void JNICALL Java_tarnwick_sim_SimSystem_reset(JNIEnv*, jclass) { tovr_sim::reset_device_services(); }

JNIEXPORT void JNICALL Java_tarnwick_sim_SimSystem_setModelType(JNIEnv*, jclass, jlong v) {
    tovr_sim::sysinfo_set_model_type(static_cast<unsigned int>(v));
}

JNIEXPORT void JNICALL Java_tarnwick_sim_SimSystem_setScreenSize(JNIEnv*, jclass, jlong v) {
    tovr_sim::sysinfo_set_screen_size(static_cast<unsigned int>(v));
}

JNIEXPORT void JNICALL Java_tarnwick_sim_SimSystem_setTray(JNIEnv*, jclass, jint key, jint remain, jint size,
                                                          jint direction, jint kind) {
    tovr_sim::sysinfo_set_tray(key, ESV_ZEL_PAPER_INFO{static_cast<unsigned char>(remain), static_cast<unsigned char>(size),
                                                       static_cast<unsigned char>(direction),
                                                       static_cast<unsigned char>(kind)});
}

JNIEXPORT void JNICALL Java_tarnwick_sim_SimSystem_removeTray(JNIEnv*, jclass, jint key) {
    tovr_sim::sysinfo_remove_tray(key);
}

JNIEXPORT jintArray JNICALL Java_tarnwick_sim_SimSystem_tray(JNIEnv* env, jclass, jint key) {
    ESV_ZEL_PAPER_INFO info{};
    if (!tovr_sim::sysinfo_tray(key, &info)) return nullptr;
    jint v[4] = {info.paper_remain, info.paper_size, info.paper_direction, info.paper_kind};
    jintArray out = env->NewIntArray(4);
    if (out == nullptr) return nullptr;
    env->SetIntArrayRegion(out, 0, 4, v);
    return out;
}

JNIEXPORT void JNICALL Java_tarnwick_sim_SimSystem_setCount(JNIEnv*, jclass, jint kind, jint size, jint color, jlong count) {
    tovr_sim::sysinfo_set_count(static_cast<unsigned char>(kind), static_cast<unsigned char>(size),
                                static_cast<unsigned char>(color), static_cast<std::uint32_t>(count));
}

JNIEXPORT jlong JNICALL Java_tarnwick_sim_SimSystem_count(JNIEnv*, jclass, jint kind, jint size, jint color) {
    return tovr_sim::sysinfo_count(static_cast<unsigned char>(kind), static_cast<unsigned char>(size),
                                   static_cast<unsigned char>(color));
}

JNIEXPORT void JNICALL Java_tarnwick_sim_SimSystem_setMachineInfo(JNIEnv*, jclass, jint key, jlong cid, jlong value) {
    tovr_sim::sysinfo_set_machine_info(key, static_cast<std::uint32_t>(cid), static_cast<unsigned int>(value));
}

JNIEXPORT void JNICALL Java_tarnwick_sim_SimSystem_setMachineText(JNIEnv* env, jclass, jint key, jlong cid, jstring value) {
    tovr_sim::sysinfo_set_machine_text(key, static_cast<std::uint32_t>(cid), text(env, value));
}

JNIEXPORT jlong JNICALL Java_tarnwick_sim_SimSystem_machineInfo(JNIEnv*, jclass, jint key, jlong cid) {
    unsigned int v = 0;
    return tovr_sim::sysinfo_machine_info(key, static_cast<std::uint32_t>(cid), &v) ? static_cast<jlong>(v) : -1;
}

JNIEXPORT void JNICALL Java_tarnwick_sim_SimSystem_setValue(JNIEnv*, jclass, jint key, jlong value) {
    tovr_sim::sysinfo_set_value(key, static_cast<unsigned int>(value));
}

JNIEXPORT void JNICALL Java_tarnwick_sim_SimSystem_setText(JNIEnv* env, jclass, jint key, jstring value) {
    tovr_sim::sysinfo_set_text(key, text(env, value));
}

JNIEXPORT jlong JNICALL Java_tarnwick_sim_SimSystem_value(JNIEnv*, jclass, jint key) {
    unsigned int v = 0;
    return tovr_sim::sysinfo_value(key, &v) ? static_cast<jlong>(v) : -1;
}

JNIEXPORT jstring JNICALL Java_tarnwick_sim_SimSystem_text(JNIEnv* env, jclass, jint key) {
    std::string v;
    if (!tovr_sim::sysinfo_text(key, &v)) return nullptr;
    return env->NewStringUTF(v.c_str());
}

JNIEXPORT void JNICALL Java_tarnwick_sim_SimSystem_setKeyAnswer(JNIEnv*, jclass, jint key, jlong code) {
    tovr_sim::sysinfo_set_key_answer(key, static_cast<long>(code));
}

}  // extern "C"
