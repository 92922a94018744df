// JNI side of tarnwick.sim.SimDevice's forced outputs: one forcing that writes typed values
// through a call's arguments and answers a result code.
#include <jni.h>

#include <string>
#include <vector>

#include "sim_jni.h"
#include "tovr_sim.h"

namespace {

using tovr_sim_jni::text_of;
using tovr_sim_jni::throw_illegal;

// The element `i` of a String[] or byte[][] as a local reference of the current frame.
jobject element(JNIEnv* env, jobjectArray a, jsize i) {
    jobject o = env->GetObjectArrayElement(a, i);
    return env->ExceptionCheck() ? nullptr : o;
}

// Output `i`'s kind, text and bytes; false with an exception pending for the Java caller.
bool read_output(JNIEnv* env, jobjectArray kinds, jobjectArray texts, jobjectArray bytes, jsize i,
                 tovr_sim::Output* out) {
    jobject kind = element(env, kinds, i);
    if (env->ExceptionCheck()) return false;
    if (kind == nullptr) return throw_illegal(env, "no kind"), false;
    if (!text_of(env, static_cast<jstring>(kind), &out->kind)) return false;
    if (!tovr_sim::valid_output_kind(out->kind)) return throw_illegal(env, "unknown output kind: " + out->kind), false;
    jobject text = element(env, texts, i);
    if (env->ExceptionCheck()) return false;
    if (!text_of(env, static_cast<jstring>(text), &out->text)) return false;
    jobject raw = element(env, bytes, i);
    if (env->ExceptionCheck()) return false;
    const std::string b = tovr_sim_jni::bytes(env, static_cast<jbyteArray>(raw));
    out->bytes.assign(b.begin(), b.end());
    return true;
}

// The same in a local frame of its own, so that references stay flat however many outputs.
bool element_of(JNIEnv* env, jobjectArray kinds, jobjectArray texts, jobjectArray bytes, jsize i,
                tovr_sim::Output* out) {
    if (env->PushLocalFrame(4) != 0) return false;
    const bool ok = read_output(env, kinds, texts, bytes, i, out);
    env->PopLocalFrame(nullptr);
    return ok;
}

}  // namespace

extern "C" {

JNIEXPORT void JNICALL Java_tarnwick_sim_SimDevice_forceOutputs0(JNIEnv* env, jclass, jstring op, jlong result,
                                                                 jint times, jintArray indexes, jintArray offsets,
                                                                 jobjectArray kinds, jlongArray numbers,
                                                                 jobjectArray texts, jobjectArray bytes) {
    if (op == nullptr || indexes == nullptr || offsets == nullptr || kinds == nullptr || numbers == nullptr ||
        texts == nullptr || bytes == nullptr) {
        return throw_illegal(env, "null argument");
    }
    std::string name;
    if (!text_of(env, op, &name)) return;
    const jsize n = env->GetArrayLength(indexes);
    if (env->GetArrayLength(offsets) != n || env->GetArrayLength(kinds) != n || env->GetArrayLength(numbers) != n ||
        env->GetArrayLength(texts) != n || env->GetArrayLength(bytes) != n) {
        return throw_illegal(env, "output arrays of different lengths");
    }
    std::vector<tovr_sim::Output> outputs(static_cast<std::size_t>(n));
    const std::vector<jint> index = tovr_sim_jni::ints(env, indexes);
    const std::vector<jint> offset = tovr_sim_jni::ints(env, offsets);
    const std::vector<jlong> number = tovr_sim_jni::longs(env, numbers);
    for (jsize i = 0; i < n; ++i) {
        if (index[i] < 0 || offset[i] < 0) return throw_illegal(env, "negative index or offset");
        outputs[i].index = index[i];
        outputs[i].offset = static_cast<std::size_t>(offset[i]);
        outputs[i].number = static_cast<long long>(number[i]);
    }
    for (jsize i = 0; i < n; ++i) {
        if (!element_of(env, kinds, texts, bytes, i, &outputs[i])) return;
    }
    if (!tovr_sim::force_outputs(name, static_cast<long>(result), outputs, times)) {
        throw_illegal(env, "output not accepted");
    }
}

JNIEXPORT jobjectArray JNICALL Java_tarnwick_sim_SimDevice_outputRefusals(JNIEnv* env, jclass) {
    return tovr_sim_jni::strings(env, tovr_sim::output_refusals());
}

}  // extern "C"
