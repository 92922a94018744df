// JNI side of tarnwick.sim.SimAcc: converts the arguments and calls the access-control facade's
// control interface (tovr_sim_acc.h). Its notifications are bound in common/sim_events_jni.cpp.
#include <jni.h>

#include <string>
#include <vector>

#include "sim_jni.h"
#include "tovr_sim_acc.h"

using tovr_sim_jni::strings;
using tovr_sim_jni::text;

namespace {

std::vector<std::string> felica_fields(const ESV_ZEL_ACC_FELICA_SETTING_INFO& f) {
    return {f.system_code, f.service_code_1, f.service_code_2, std::to_string(f.blk_num_1), std::to_string(f.blk_num_2)};
}

}  // namespace

extern "C" {

JNIEXPORT jboolean JNICALL Java_tarnwick_sim_SimAcc_writeCardData(JNIEnv* env, jclass, jlong block_id, jint offset,
                                                                  jbyteArray bytes) {
    if (offset < 0) return JNI_FALSE;
    const std::string data = tovr_sim_jni::bytes(env, bytes);
    return tovr_sim::acc_write_card_data(static_cast<unsigned long>(block_id), static_cast<std::size_t>(offset),
                                         std::vector<unsigned char>(data.begin(), data.end()))
               ? JNI_TRUE
               : JNI_FALSE;
}

JNIEXPORT jint JNICALL Java_tarnwick_sim_SimAcc_plugReader(JNIEnv*, jclass, jboolean present) {
    return static_cast<jint>(tovr_sim::acc_plug_reader(present != JNI_FALSE));
}

JNIEXPORT jboolean JNICALL Java_tarnwick_sim_SimAcc_readerPresent(JNIEnv*, jclass) {
    return tovr_sim::acc_reader_present() ? JNI_TRUE : JNI_FALSE;
}

JNIEXPORT void JNICALL Java_tarnwick_sim_SimAcc_setReader(JNIEnv*, jclass, jint vendor, jint product, jint types) {
    tovr_sim::acc_set_reader(static_cast<std::uint16_t>(vendor), static_cast<std::uint16_t>(product),
                             static_cast<std::uint8_t>(types));
}

JNIEXPORT jint JNICALL Java_tarnwick_sim_SimAcc_readType(JNIEnv*, jclass) { return tovr_sim::acc_read_type(); }

JNIEXPORT jint JNICALL Java_tarnwick_sim_SimAcc_felicaReadType(JNIEnv*, jclass) { return tovr_sim::acc_felica_read_type(); }

JNIEXPORT void JNICALL Java_tarnwick_sim_SimAcc_setFelica(JNIEnv* env, jclass, jint site, jstring sys, jstring s1,
                                                          jstring s2, jint b1, jint b2) {
    tovr_sim::acc_set_felica(site, ESV_ZEL_ACC_FELICA_SETTING_INFO{text(env, sys), text(env, s1), text(env, s2),
                                                                   static_cast<unsigned char>(b1),
                                                                   static_cast<unsigned char>(b2)});
}

JNIEXPORT jobjectArray JNICALL Java_tarnwick_sim_SimAcc_felica(JNIEnv* env, jclass, jint site) {
    ESV_ZEL_ACC_FELICA_SETTING_INFO info{};
    if (!tovr_sim::acc_felica(site, &info)) return nullptr;
    return strings(env, felica_fields(info));
}

JNIEXPORT jobjectArray JNICALL Java_tarnwick_sim_SimAcc_lastFelicaSent(JNIEnv* env, jclass) {
    tovr_sim::FelicaSent sent = tovr_sim::acc_last_felica_sent();
    if (sent.site < 0) return nullptr;
    std::vector<std::string> out = felica_fields(sent.info);
    out.insert(out.begin(), std::to_string(sent.site));
    return strings(env, out);
}

JNIEXPORT void JNICALL Java_tarnwick_sim_SimAcc_forceFelica(JNIEnv* env, jclass, jstring op, jint index, jstring sys,
                                                            jstring s1, jstring s2, jint b1, jint b2, jlong result,
                                                            jint times) {
    if (index < 0) return tovr_sim_jni::throw_illegal(env, "argument index " + std::to_string(index));
    const ESV_ZEL_ACC_FELICA_SETTING_INFO info{text(env, sys), text(env, s1), text(env, s2),
                                               static_cast<unsigned char>(b1), static_cast<unsigned char>(b2)};
    tovr_sim::force_outputs(text(env, op), static_cast<long>(result), tovr_sim::felica_outputs(index, info), times);
}

}  // extern "C"
