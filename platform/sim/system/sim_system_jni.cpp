// JNI side of tarnwick.sim.SimSystem: control of the simulated device services for Java tests.
#include <jni.h>

#include <climits>
#include <string>
#include <vector>

#include "tovr_sim.h"
#include "tovr_sim_device.h"
#include "sim_jni.h"

namespace {

using tovr_sim_jni::strings;
using tovr_sim_jni::text;



std::vector<std::string> felica_fields(const ESV_ZEL_ACC_FELICA_SETTING_INFO& f) {
    return {f.system_code, f.service_code_1, f.service_code_2, std::to_string(f.blk_num_1), std::to_string(f.blk_num_2)};
}

// A forcing that writes one output of type T at argument `index` and answers `result`.
template <typename T>
void force_output(JNIEnv* env, jstring op, jint index, T value, jlong result, jint times) {
    tovr_sim::force(
        text(env, op),
        [index, value, result](const tovr_sim::Params& params) -> long {
            if (index >= 0 && static_cast<std::size_t>(index) < params.size() && params[index] != nullptr) {
                *static_cast<T*>(params[index]) = value;
            }
            return static_cast<long>(result);
        },
        times);
}

}  // namespace

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

JNIEXPORT jint JNICALL Java_tarnwick_sim_SimSystem_powerState(JNIEnv*, jclass) { return tovr_sim::power_state(); }

JNIEXPORT void JNICALL Java_tarnwick_sim_SimSystem_setPowerState(JNIEnv*, jclass, jint state) {
    tovr_sim::power_set_state(state);
}

JNIEXPORT jboolean JNICALL Java_tarnwick_sim_SimSystem_saveModeProhibited(JNIEnv*, jclass) {
    return tovr_sim::power_save_mode_prohibited() ? JNI_TRUE : JNI_FALSE;
}

JNIEXPORT jint JNICALL Java_tarnwick_sim_SimSystem_deepSleepSuspends(JNIEnv*, jclass, jlong app) {
    return tovr_sim::deep_sleep_suspends(static_cast<unsigned int>(app));
}

JNIEXPORT jlong JNICALL Java_tarnwick_sim_SimSystem_wakeupDate(JNIEnv*, jclass, jlong app) {
    long date = 0;
    return tovr_sim::wakeup_date(static_cast<unsigned int>(app), &date) ? static_cast<jlong>(date) : LLONG_MIN;
}

JNIEXPORT void JNICALL Java_tarnwick_sim_SimSystem_setCertAnswer(JNIEnv* env, jclass, jstring path, jlong answer) {
    tovr_sim::cert_set_answer(text(env, path), static_cast<unsigned long>(answer));
}

JNIEXPORT jint JNICALL Java_tarnwick_sim_SimSystem_resetTimer(JNIEnv*, jclass, jlong context) {
    return tovr_sim::panel_reset_timer(static_cast<unsigned int>(context));
}

JNIEXPORT void JNICALL Java_tarnwick_sim_SimSystem_setPanelIdentity(JNIEnv* env, jclass, jstring name, jlong id) {
    tovr_sim::panel_set_identity(text(env, name), static_cast<unsigned int>(id));
}

JNIEXPORT jlong JNICALL Java_tarnwick_sim_SimSystem_currentPanelId(JNIEnv*, jclass) {
    return static_cast<jlong>(tovr_sim::panel_current_id());
}

JNIEXPORT jint JNICALL Java_tarnwick_sim_SimSystem_plugReader(JNIEnv*, jclass, jboolean present) {
    return static_cast<jint>(tovr_sim::acc_plug_reader(present != JNI_FALSE));
}

JNIEXPORT jboolean JNICALL Java_tarnwick_sim_SimSystem_readerPresent(JNIEnv*, jclass) {
    return tovr_sim::acc_reader_present() ? JNI_TRUE : JNI_FALSE;
}

JNIEXPORT void JNICALL Java_tarnwick_sim_SimSystem_setReader(JNIEnv*, jclass, jint vendor, jint product, jint types) {
    tovr_sim::acc_set_reader(static_cast<std::uint16_t>(vendor), static_cast<std::uint16_t>(product),
                             static_cast<std::uint8_t>(types));
}

JNIEXPORT jint JNICALL Java_tarnwick_sim_SimSystem_readType(JNIEnv*, jclass) { return tovr_sim::acc_read_type(); }

JNIEXPORT jint JNICALL Java_tarnwick_sim_SimSystem_felicaReadType(JNIEnv*, jclass) {
    return tovr_sim::acc_felica_read_type();
}

JNIEXPORT void JNICALL Java_tarnwick_sim_SimSystem_setFelica(JNIEnv* env, jclass, jint site, jstring sys, jstring s1,
                                                            jstring s2, jint b1, jint b2) {
    ESV_ZEL_ACC_FELICA_SETTING_INFO info{text(env, sys), text(env, s1), text(env, s2),
                                         static_cast<unsigned char>(b1), static_cast<unsigned char>(b2)};
    tovr_sim::acc_set_felica(site, info);
}

JNIEXPORT jobjectArray JNICALL Java_tarnwick_sim_SimSystem_felica(JNIEnv* env, jclass, jint site) {
    ESV_ZEL_ACC_FELICA_SETTING_INFO info{};
    if (!tovr_sim::acc_felica(site, &info)) return nullptr;
    return strings(env, felica_fields(info));
}

JNIEXPORT jobjectArray JNICALL Java_tarnwick_sim_SimSystem_lastFelicaSent(JNIEnv* env, jclass) {
    tovr_sim::FelicaSent sent = tovr_sim::acc_last_felica_sent();
    if (sent.site < 0) return nullptr;
    std::vector<std::string> out = felica_fields(sent.info);
    out.insert(out.begin(), std::to_string(sent.site));
    return strings(env, out);
}

JNIEXPORT jstring JNICALL Java_tarnwick_sim_SimSystem_webServiceHolder(JNIEnv* env, jclass, jint kind) {
    return env->NewStringUTF(tovr_sim::webservice_holder(kind).c_str());
}

JNIEXPORT void JNICALL Java_tarnwick_sim_SimSystem_setWebServiceHolder(JNIEnv* env, jclass, jint kind, jstring name) {
    tovr_sim::webservice_set_holder(kind, text(env, name));
}

JNIEXPORT void JNICALL Java_tarnwick_sim_SimSystem_forceUint(JNIEnv* env, jclass, jstring op, jint index, jlong value,
                                                            jlong result, jint times) {
    force_output<unsigned int>(env, op, index, static_cast<unsigned int>(value), result, times);
}

JNIEXPORT void JNICALL Java_tarnwick_sim_SimSystem_forceUlong(JNIEnv* env, jclass, jstring op, jint index, jlong value,
                                                             jlong result, jint times) {
    force_output<unsigned long>(env, op, index, static_cast<unsigned long>(value), result, times);
}

JNIEXPORT void JNICALL Java_tarnwick_sim_SimSystem_forceString(JNIEnv* env, jclass, jstring op, jint index, jstring value,
                                                              jlong result, jint times) {
    force_output<std::string>(env, op, index, text(env, value), result, times);
}

JNIEXPORT void JNICALL Java_tarnwick_sim_SimSystem_forcePaperInfo(JNIEnv* env, jclass, jstring op, jint index, jint remain,
                                                                 jint size, jint direction, jint kind, jlong result,
                                                                 jint times) {
    force_output<ESV_ZEL_PAPER_INFO>(env, op, index,
                                     ESV_ZEL_PAPER_INFO{static_cast<unsigned char>(remain), static_cast<unsigned char>(size),
                                                        static_cast<unsigned char>(direction),
                                                        static_cast<unsigned char>(kind)},
                                     result, times);
}

JNIEXPORT void JNICALL Java_tarnwick_sim_SimSystem_forceDeviceInfo(JNIEnv* env, jclass, jstring op, jint index,
                                                                  jint product, jint vendor, jint types, jlong result,
                                                                  jint times) {
    force_output<ESV_ZEL_ACC_ICCARD_DEVICE_INFO>(
        env, op, index,
        ESV_ZEL_ACC_ICCARD_DEVICE_INFO{static_cast<std::uint16_t>(product), static_cast<std::uint16_t>(vendor),
                                       static_cast<std::uint8_t>(types)},
        result, times);
}

JNIEXPORT void JNICALL Java_tarnwick_sim_SimSystem_forceFelica(JNIEnv* env, jclass, jstring op, jint index, jstring sys,
                                                              jstring s1, jstring s2, jint b1, jint b2, jlong result,
                                                              jint times) {
    ESV_ZEL_ACC_FELICA_SETTING_INFO info{text(env, sys), text(env, s1), text(env, s2),
                                         static_cast<unsigned char>(b1), static_cast<unsigned char>(b2)};
    force_output<ESV_ZEL_ACC_FELICA_SETTING_INFO>(env, op, index, info, result, times);
}

}  // extern "C"
