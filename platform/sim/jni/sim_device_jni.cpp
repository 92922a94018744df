// JNI side of tarnwick.sim.SimDevice: the simulated device's control interface for Java tests.
#include <jni.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "tovr_sim.h"

namespace {

std::string to_string(JNIEnv* env, jstring s) {
    if (s == nullptr) return std::string();
    const char* chars = env->GetStringUTFChars(s, nullptr);
    if (chars == nullptr) return std::string();
    std::string out(chars);
    env->ReleaseStringUTFChars(s, chars);
    return out;
}

jobjectArray to_java(JNIEnv* env, const std::vector<std::string>& items) {
    jclass string_class = env->FindClass("java/lang/String");
    if (string_class == nullptr) return nullptr;
    jobjectArray out = env->NewObjectArray(static_cast<jsize>(items.size()), string_class, nullptr);
    env->DeleteLocalRef(string_class);
    if (out == nullptr) return nullptr;
    for (std::size_t i = 0; i < items.size(); ++i) {
        jstring s = env->NewStringUTF(items[i].c_str());
        if (s == nullptr) return nullptr;
        env->SetObjectArrayElement(out, static_cast<jsize>(i), s);
        env->DeleteLocalRef(s);
    }
    return out;
}

std::string join(const std::vector<std::string>& args) {
    std::string out;
    for (std::size_t i = 0; i < args.size(); ++i) {
        if (i) out += ", ";
        out += args[i];
    }
    return out;
}

}  // namespace

extern "C" {

JNIEXPORT void JNICALL Java_tarnwick_sim_SimDevice_reset(JNIEnv*, jclass) { tovr_sim::reset(); }

JNIEXPORT void JNICALL Java_tarnwick_sim_SimDevice_forceResult(JNIEnv* env, jclass, jstring op,
                                                               jlong result, jint times) {
    tovr_sim::force_result(to_string(env, op), static_cast<long>(result), times);
}

JNIEXPORT jobjectArray JNICALL Java_tarnwick_sim_SimDevice_calls(JNIEnv* env, jclass, jstring op) {
    std::vector<std::string> out;
    for (const tovr_sim::Call& c : tovr_sim::calls(to_string(env, op))) out.push_back(join(c.args));
    return to_java(env, out);
}

JNIEXPORT jobjectArray JNICALL Java_tarnwick_sim_SimDevice_allCalls(JNIEnv* env, jclass) {
    std::vector<std::string> out;
    for (const tovr_sim::Call& c : tovr_sim::calls()) out.push_back(c.op + "(" + join(c.args) + ")");
    return to_java(env, out);
}

JNIEXPORT jint JNICALL Java_tarnwick_sim_SimDevice_openResources(JNIEnv* env, jclass, jstring kind) {
    return tovr_sim::open_resources(to_string(env, kind));
}

JNIEXPORT void JNICALL Java_tarnwick_sim_SimDevice_clearCalls(JNIEnv*, jclass) {
    tovr_sim::clear_calls();
}

JNIEXPORT jobjectArray JNICALL Java_tarnwick_sim_SimDevice_traceLines(JNIEnv* env, jclass) {
    std::vector<std::string> out;
    for (const tovr_sim::TraceLine& l : tovr_sim::trace_lines()) {
        out.push_back(std::to_string(l.level) + " " + l.text);
    }
    return to_java(env, out);
}

JNIEXPORT void JNICALL Java_tarnwick_sim_SimDevice_clearTrace(JNIEnv*, jclass) {
    tovr_sim::clear_trace();
}

JNIEXPORT jobjectArray JNICALL Java_tarnwick_sim_SimDevice_processRegistrations(JNIEnv* env, jclass) {
    std::vector<std::string> out;
    for (const tovr_sim::ProcessRegistration& r : tovr_sim::process_registrations()) {
        out.push_back(std::to_string(r.argument_count) + ":" +
                      (r.arguments.empty() ? std::string() : r.arguments[0]));
    }
    return to_java(env, out);
}

JNIEXPORT void JNICALL Java_tarnwick_sim_SimDevice_setTimeZone(JNIEnv* env, jclass, jstring tz) {
    setenv("TZ", to_string(env, tz).c_str(), 1);
}

}  // extern "C"
