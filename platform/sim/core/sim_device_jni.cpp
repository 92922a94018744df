// JNI side of tarnwick.sim.SimDevice: the simulated device's control interface for Java tests.
#include <jni.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "sim_jni.h"
#include "tovr_sim.h"

namespace {

using tovr_sim_jni::strings;
using tovr_sim_jni::text_of;

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

JNIEXPORT void JNICALL Java_tarnwick_sim_SimDevice_reset0(JNIEnv*, jclass) { tovr_sim::reset_all(); }

JNIEXPORT void JNICALL Java_tarnwick_sim_SimDevice_resetCalls(JNIEnv*, jclass) { tovr_sim::reset(); }

JNIEXPORT void JNICALL Java_tarnwick_sim_SimDevice_setCallLimit(JNIEnv* env, jclass, jlong limit) {
    if (limit < 0) return tovr_sim_jni::throw_illegal(env, "call limit " + std::to_string(limit));
    tovr_sim::set_call_limit(static_cast<std::size_t>(limit));
}

JNIEXPORT void JNICALL Java_tarnwick_sim_SimDevice_failAlloc(JNIEnv*, jclass, jint times) { tovr_sim::fail_alloc(times); }

JNIEXPORT jlong JNICALL Java_tarnwick_sim_SimDevice_callLimit(JNIEnv*, jclass) {
    return static_cast<jlong>(tovr_sim::call_limit());
}

JNIEXPORT jlong JNICALL Java_tarnwick_sim_SimDevice_callCount(JNIEnv*, jclass) {
    return static_cast<jlong>(tovr_sim::call_count());
}

JNIEXPORT jlong JNICALL Java_tarnwick_sim_SimDevice_droppedCalls(JNIEnv*, jclass) {
    return static_cast<jlong>(tovr_sim::dropped_calls());
}

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
