// JNI side of tarnwick.sim.SimDevice: the simulated device's control interface for Java tests.
#include <jni.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "tovr_jni.h"
#include "sim_jni.h"
#include "tovr_sim.h"

namespace {

using tarnwick::jni::UtfChars;
using tovr_sim_jni::strings;

// Text of a Java string ("" for null); false with the VM's exception pending when its
// characters cannot be had.
bool text_of(JNIEnv* env, jstring s, std::string* out) {
    out->clear();
    if (s == nullptr) return true;
    UtfChars chars(env, s);
    if (!chars) return false;
    *out = chars.c_str();
    return true;
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
    std::string name;
    if (!text_of(env, op, &name)) return;
    tovr_sim::force_result(name, static_cast<long>(result), times);
}

JNIEXPORT jobjectArray JNICALL Java_tarnwick_sim_SimDevice_calls(JNIEnv* env, jclass, jstring op) {
    std::string name;
    if (!text_of(env, op, &name)) return nullptr;
    std::vector<std::string> out;
    for (const tovr_sim::Call& c : tovr_sim::calls(name)) out.push_back(join(c.args));
    return strings(env, out);
}

JNIEXPORT jobjectArray JNICALL Java_tarnwick_sim_SimDevice_allCalls(JNIEnv* env, jclass) {
    std::vector<std::string> out;
    for (const tovr_sim::Call& c : tovr_sim::calls()) out.push_back(c.op + "(" + join(c.args) + ")");
    return strings(env, out);
}

JNIEXPORT jint JNICALL Java_tarnwick_sim_SimDevice_openResources(JNIEnv* env, jclass, jstring kind) {
    std::string name;
    if (!text_of(env, kind, &name)) return 0;
    return tovr_sim::open_resources(name);
}

JNIEXPORT void JNICALL Java_tarnwick_sim_SimDevice_clearCalls(JNIEnv*, jclass) {
    tovr_sim::clear_calls();
}

JNIEXPORT jobjectArray JNICALL Java_tarnwick_sim_SimDevice_traceLines(JNIEnv* env, jclass) {
    std::vector<std::string> out;
    for (const tovr_sim::TraceLine& l : tovr_sim::trace_lines()) {
        out.push_back(std::to_string(l.level) + " " + l.text);
    }
    return strings(env, out);
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
    return strings(env, out);
}

JNIEXPORT void JNICALL Java_tarnwick_sim_SimDevice_setTimeZone(JNIEnv* env, jclass, jstring tz) {
    std::string zone;
    if (!text_of(env, tz, &zone)) return;
    setenv("TZ", zone.c_str(), 1);
}

}  // extern "C"
