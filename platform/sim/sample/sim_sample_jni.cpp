// JNI side of tarnwick.sim.SimSample.
#include <jni.h>

#include "tovr_sim_sample.h"

extern "C" JNIEXPORT void JNICALL Java_tarnwick_sim_SimSample_load(JNIEnv*, jclass) { tovr_sim::load_sample_device(); }
