// JNI side of tarnwick.sim.SimCommon: converts the arguments and calls the common facade's
// control interface (tovr_sim_common.h).
#include <jni.h>

#include <climits>

#include "sim_jni.h"
#include "tovr_sim_common.h"

using tovr_sim_jni::answers;
using tovr_sim_jni::text;

extern "C" {

JNIEXPORT jlongArray JNICALL Java_tarnwick_sim_SimCommon_keyCardStatus(JNIEnv* env, jclass, jint status) {
    return answers(env, tovr_sim::raise_key_card_status(static_cast<unsigned char>(status)));
}

JNIEXPORT jlongArray JNICALL Java_tarnwick_sim_SimCommon_keyCounterStatus(JNIEnv* env, jclass, jlong status) {
    return answers(env, tovr_sim::raise_key_counter_status(static_cast<unsigned int>(status)));
}

JNIEXPORT jlongArray JNICALL Java_tarnwick_sim_SimCommon_residentAppStateChanged(JNIEnv* env, jclass, jint state) {
    return answers(env, tovr_sim::raise_resident_app_state_changed(static_cast<ESV_ZEL_REQ_APP_STATE>(state)));
}

JNIEXPORT jlongArray JNICALL Java_tarnwick_sim_SimCommon_wasteTonerBottleStatus(JNIEnv* env, jclass, jint status) {
    return answers(env, tovr_sim::raise_waste_toner_bottle_status(static_cast<unsigned char>(status)));
}

JNIEXPORT jlongArray JNICALL Java_tarnwick_sim_SimCommon_coverStatus(JNIEnv* env, jclass, jlong status) {
    return answers(env, tovr_sim::raise_cover_status(static_cast<unsigned int>(status)));
}

JNIEXPORT jlongArray JNICALL Java_tarnwick_sim_SimCommon_paperRestStatus(JNIEnv* env, jclass, jint source, jint level) {
    return answers(env, tovr_sim::raise_paper_rest_status(static_cast<unsigned short>(source), static_cast<unsigned char>(level)));
}

JNIEXPORT jlongArray JNICALL Java_tarnwick_sim_SimCommon_tonerStatus(JNIEnv* env, jclass, jint first, jint second) {
    return answers(env, tovr_sim::raise_toner_status(static_cast<unsigned char>(first), static_cast<unsigned char>(second)));
}

JNIEXPORT jlongArray JNICALL Java_tarnwick_sim_SimCommon_coinVenderStatus(JNIEnv* env, jclass, jlong status) {
    return answers(env, tovr_sim::raise_coin_vender_status(static_cast<unsigned int>(status)));
}

JNIEXPORT jlongArray JNICALL Java_tarnwick_sim_SimCommon_usbMemoryStatus(JNIEnv* env, jclass, jlong status) {
    return answers(env, tovr_sim::raise_usb_memory_status(static_cast<unsigned int>(status)));
}

JNIEXPORT jlongArray JNICALL Java_tarnwick_sim_SimCommon_sleep(JNIEnv* env, jclass, jint state) {
    return answers(env, tovr_sim::raise_sleep(static_cast<ESV_ZEL_EVENT_SLEEP_STATE>(state)));
}

JNIEXPORT jlongArray JNICALL Java_tarnwick_sim_SimCommon_pbpConnectionError(JNIEnv* env, jclass, jint error) {
    return answers(env, tovr_sim::raise_pbp_connection_error(static_cast<ESV_ZEL_EVENT_CONNECTION_ERROR>(error)));
}

JNIEXPORT jlongArray JNICALL Java_tarnwick_sim_SimCommon_logout(JNIEnv* env, jclass, jlong reason) {
    return answers(env, tovr_sim::raise_logout(static_cast<unsigned long>(static_cast<std::uint32_t>(reason))));
}

JNIEXPORT jlongArray JNICALL Java_tarnwick_sim_SimCommon_networkStateChanged(JNIEnv* env, jclass, jint type) {
    return answers(env, tovr_sim::raise_network_state_changed(static_cast<ESV_ZEL_NETWORK_TYPE>(type)));
}

JNIEXPORT jlongArray JNICALL Java_tarnwick_sim_SimCommon_serviceStateChanged(JNIEnv* env, jclass, jint type) {
    return answers(env, tovr_sim::raise_service_state_changed(static_cast<ESV_ZEL_ACCEPTANCE_TYPE>(type)));
}

JNIEXPORT jlongArray JNICALL Java_tarnwick_sim_SimCommon_requestActivate(JNIEnv* env, jclass, jint scenario, jlong value) {
    return answers(env, tovr_sim::raise_request_activate(static_cast<ESV_ZEL_KIND_OF_SCENARIO>(scenario),
                                                         static_cast<unsigned int>(value)));
}

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
