// JNI side of tarnwick.sim.SimDevice's forced outputs: one forcing that writes typed values
// through a call's arguments and answers a result code.
#include <jni.h>

#include <string>
#include <vector>

#include "sim_jni.h"
#include "tovr_sim.h"

namespace {

using tarnwick::jni::ByteElements;
using tarnwick::jni::IntElements;
using tarnwick::jni::LocalFrame;
using tarnwick::jni::LongElements;
using tovr_sim_jni::text_of;
using tovr_sim_jni::throw_illegal;

// The element `i` of a String[] or byte[][] as a local reference of the current frame.
jobject element(JNIEnv* env, jobjectArray a, jsize i) {
    jobject o = env->GetObjectArrayElement(a, i);
    return env->ExceptionCheck() ? nullptr : o;
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
    {
        IntElements index(env, indexes);
        IntElements offset(env, offsets);
        LongElements number(env, numbers);
        if (!index || !offset || !number) return;  // the VM's OutOfMemoryError is pending
        index.abort();
        offset.abort();
        number.abort();
        for (jsize i = 0; i < n; ++i) {
            if (index.get()[i] < 0 || offset.get()[i] < 0) return throw_illegal(env, "negative index or offset");
            outputs[i].index = index.get()[i];
            outputs[i].offset = static_cast<std::size_t>(offset.get()[i]);
            outputs[i].number = static_cast<long long>(number.get()[i]);
        }
    }
    for (jsize i = 0; i < n; ++i) {
        LocalFrame frame(env, 4);
        if (!frame.ok()) return;
        jobject kind = element(env, kinds, i);
        if (env->ExceptionCheck()) return;
        if (kind == nullptr) return throw_illegal(env, "no kind");
        if (!text_of(env, static_cast<jstring>(kind), &outputs[i].kind)) return;
        if (!tovr_sim::valid_output_kind(outputs[i].kind)) {
            return throw_illegal(env, "unknown output kind: " + outputs[i].kind);
        }
        jobject text = element(env, texts, i);
        if (env->ExceptionCheck()) return;
        if (!text_of(env, static_cast<jstring>(text), &outputs[i].text)) return;
        jobject raw = element(env, bytes, i);
        if (env->ExceptionCheck()) return;
        if (raw != nullptr) {
            ByteElements b(env, static_cast<jbyteArray>(raw));
            if (!b) return;
            b.abort();
            outputs[i].bytes.assign(reinterpret_cast<const unsigned char*>(b.get()),
                                    reinterpret_cast<const unsigned char*>(b.get()) + b.size());
        }
    }
    if (!tovr_sim::force_outputs(name, static_cast<long>(result), outputs, times)) {
        throw_illegal(env, "output not accepted");
    }
}

JNIEXPORT jobjectArray JNICALL Java_tarnwick_sim_SimDevice_outputRefusals(JNIEnv* env, jclass) {
    return tovr_sim_jni::strings(env, tovr_sim::output_refusals());
}

}  // extern "C"
