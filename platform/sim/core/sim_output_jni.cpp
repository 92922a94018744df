// JNI side of tarnwick.sim.SimDevice's forced outputs: one forcing that writes typed values
// through a call's arguments and answers a result code.
#include <jni.h>

#include <string>
#include <vector>

#include "tovr_jni.h"
#include "tovr_sim.h"

namespace {

using tarnwick::jni::ByteElements;
using tarnwick::jni::IntElements;
using tarnwick::jni::LocalFrame;
using tarnwick::jni::LocalRef;
using tarnwick::jni::LongElements;
using tarnwick::jni::UtfChars;

// Leaves an IllegalArgumentException pending (unless another exception already is).
void throw_illegal(JNIEnv* env, const std::string& message) {
    if (env->ExceptionCheck()) return;
    LocalRef<jclass> cls(env, env->FindClass("java/lang/IllegalArgumentException"));
    if (!cls) return;  // the VM's own error is pending
    env->ThrowNew(cls.get(), message.c_str());
}

// Text of a Java string; false with the VM's exception pending when its characters cannot be had.
bool text_of(JNIEnv* env, jstring s, std::string* out) {
    out->clear();
    if (s == nullptr) return true;
    UtfChars chars(env, s);
    if (!chars) return false;
    *out = chars.c_str();
    return true;
}

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
    const std::vector<std::string> refusals = tovr_sim::output_refusals();
    LocalRef<jclass> string_class(env, env->FindClass("java/lang/String"));
    if (!string_class) return nullptr;
    LocalRef<jobjectArray> out(
        env, env->NewObjectArray(static_cast<jsize>(refusals.size()), string_class.get(), nullptr));
    if (!out) return nullptr;
    for (std::size_t i = 0; i < refusals.size(); ++i) {
        LocalRef<jstring> s(env, env->NewStringUTF(refusals[i].c_str()));
        if (!s) return nullptr;
        env->SetObjectArrayElement(out.get(), static_cast<jsize>(i), s.get());
        if (env->ExceptionCheck()) return nullptr;
    }
    return out.release();
}

}  // extern "C"
