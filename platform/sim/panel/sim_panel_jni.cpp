// JNI side of tarnwick.sim.SimPanel: converts the arguments and calls the panel facade's control
// interface (tovr_sim_panel.h). Its notifications are bound in common/sim_events_jni.cpp.
#include <jni.h>

#include "sim_jni.h"
#include "tovr_sim_panel.h"

using tovr_sim_jni::text;

extern "C" {

JNIEXPORT jint JNICALL Java_tarnwick_sim_SimPanel_resetTimer(JNIEnv*, jclass, jlong context) {
    return tovr_sim::panel_reset_timer(static_cast<unsigned int>(context));
}

JNIEXPORT void JNICALL Java_tarnwick_sim_SimPanel_setIdentity(JNIEnv* env, jclass, jstring name, jlong id) {
    tovr_sim::panel_set_identity(text(env, name), static_cast<unsigned int>(id));
}

JNIEXPORT jlong JNICALL Java_tarnwick_sim_SimPanel_currentId(JNIEnv*, jclass) {
    return static_cast<jlong>(tovr_sim::panel_current_id());
}

}  // extern "C"
