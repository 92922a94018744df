// JNI side of tarnwick.sim.SimPanel: converts the arguments and calls the panel facade's control
// interface (tovr_sim_panel.h).
#include <jni.h>

#include "sim_jni.h"
#include "tovr_sim_panel.h"

using tovr_sim_jni::answers;
using tovr_sim_jni::text;

extern "C" {

JNIEXPORT jlongArray JNICALL Java_tarnwick_sim_SimPanel_keyEvent(JNIEnv* env, jclass, jlong id, jint event) {
    return answers(env, tovr_sim::raise_key_event(static_cast<unsigned int>(id), static_cast<ESV_ZEL_PANEL_KEY_EVENT>(event)));
}

JNIEXPORT jlongArray JNICALL Java_tarnwick_sim_SimPanel_autoPanelReset(JNIEnv* env, jclass) {
    return answers(env, tovr_sim::raise_auto_panel_reset());
}

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
