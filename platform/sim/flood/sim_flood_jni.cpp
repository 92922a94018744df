// JNI side of tarnwick.sim.SimFlood.
#include <jni.h>

#include <malloc.h>

#include <vector>

#include "tovr_sim_flood.h"

extern "C" JNIEXPORT jlongArray JNICALL Java_tarnwick_sim_SimFlood_run(JNIEnv* env, jclass, jint threads_per_facade,
                                                                        jlong per_thread) {
    // The device threads attach themselves through the observers; this Java thread only waits.
    const tovr_sim::FloodCounts c =
        tovr_sim::flood(threads_per_facade, per_thread > 0 ? static_cast<std::uint64_t>(per_thread) : 0);
    std::vector<jlong> raw;
    for (const auto* counts : {&c.delivered, &c.refused, &c.id_sum, &c.unanswered}) {
        for (std::uint64_t v : *counts) raw.push_back(static_cast<jlong>(v));
    }
    jlongArray out = env->NewLongArray(static_cast<jsize>(raw.size()));
    if (out == nullptr) return nullptr;  // OutOfMemoryError pending for Java
    env->SetLongArrayRegion(out, 0, static_cast<jsize>(raw.size()), raw.data());
    return out;
}

// Hands the C library's free heap memory back to the system, so that the resident size a test
// reads counts memory in use, not memory freed and kept for reuse.
extern "C" JNIEXPORT void JNICALL Java_tarnwick_sim_SimFlood_releaseFreeMemory(JNIEnv*, jclass) { malloc_trim(0); }
