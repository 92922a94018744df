// The empty static native that the job benchmark measures its floor with.
#include <jni.h>

extern "C" JNIEXPORT void JNICALL Java_tarnwick_bench_JobBench_empty(JNIEnv*, jclass) {}
