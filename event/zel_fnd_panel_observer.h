// Forwards the panel facade's key events and automatic resets to PanelProxy.
#ifndef TARNWICK_ZEL_FND_PANEL_OBSERVER_H
#define TARNWICK_ZEL_FND_PANEL_OBSERVER_H

#include <jni.h>

#include "esv_zel_panel_facade.h"
#include "tovr_jni.h"

namespace tarnwick {

class zel_fnd_panel_observer : public esv_zel_panel_observer {
public:
    // Answer to the facade when the delivering thread cannot be attached.
    static constexpr unsigned long kAttachFailure = 0x04010706;

    zel_fnd_panel_observer();
    virtual ~zel_fnd_panel_observer();

    int init();
    // The delivering thread's environment (null when it cannot be attached); also kept in
    // the environment member.
    JNIEnv* thread_attach();
    int thread_detach();

    unsigned long notify_key_event(unsigned int id, ESV_ZEL_PANEL_KEY_EVENT event) override;
    unsigned long notify_auto_panel_reset() override;

private:
    zel_fnd_panel_observer(const zel_fnd_panel_observer&) = delete;
    zel_fnd_panel_observer& operator=(const zel_fnd_panel_observer&) = delete;

    JavaVM* vm_;
    JNIEnv* jnienv_;
    jni::GlobalClass jcls_panel_proxy_;
    jmethodID mid_appl_start_;
    jmethodID mid_auto_reset_;
};

}  // namespace tarnwick

#endif
