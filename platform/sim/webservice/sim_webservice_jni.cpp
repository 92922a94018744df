// JNI side of tarnwick.sim.SimWebService: converts the arguments and calls the web service
// facade's control interface (tovr_sim_webservice.h).
#include <jni.h>

#include "sim_jni.h"
#include "tovr_sim_webservice.h"

extern "C" {

JNIEXPORT jstring JNICALL Java_tarnwick_sim_SimWebService_holder(JNIEnv* env, jclass, jint kind) {
    return env->NewStringUTF(tovr_sim::webservice_holder(kind).c_str());
}

JNIEXPORT void JNICALL Java_tarnwick_sim_SimWebService_setHolder(JNIEnv* env, jclass, jint kind, jstring name) {
    tovr_sim::webservice_set_holder(kind, tovr_sim_jni::text(env, name));
}

}  // extern "C"
