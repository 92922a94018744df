// JNI side of tarnwick.sim.SimCommon: converts the arguments and calls the common facade's
// control interface (tovr_sim_common.h). Its notifications are bound in sim_events_jni.cpp.
#include <jni.h>

#include <climits>

#include "sim_jni.h"
#include "tovr_sim_common.h"

using tovr_sim_jni::text;

extern "C" {

JNIEXPORT jint JNICALL Java_tarnwick_sim_SimCommon_powerState(JNIEnv*, jclass) { return tovr_sim::power_state(); }

JNIEXPORT void JNICALL Java_tarnwick_sim_SimCommon_setPowerState(JNIEnv*, jclass, jint state) {
    tovr_sim::power_set_state(state);
}

JNIEXPORT jboolean JNICALL Java_tarnwick_sim_SimCommon_saveModeProhibited(JNIEnv*, jclass) {
    return tovr_sim::power_save_mode_prohibited() ? JNI_TRUE : JNI_FALSE;
}

JNIEXPORT jint JNICALL Java_tarnwick_sim_SimCommon_deepSleepSuspends(JNIEnv*, jclass, jlong app) {
    return tovr_sim::deep_sleep_suspends(static_cast<unsigned int>(app));
}

JNIEXPORT jlong JNICALL Java_tarnwick_sim_SimCommon_wakeupDate(JNIEnv*, jclass, jlong app) {
    long date = 0;
    return tovr_sim::wakeup_date(static_cast<unsigned int>(app), &date) ? static_cast<jlong>(date) : LLONG_MIN;
}

JNIEXPORT void JNICALL Java_tarnwick_sim_SimCommon_setCertAnswer(JNIEnv* env, jclass, jstring path, jlong answer) {
    tovr_sim::cert_set_answer(text(env, path), static_cast<unsigned long>(answer));
}

}  // extern "C"
