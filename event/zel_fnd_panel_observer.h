// Forwards the panel facade's key events and automatic resets to PanelProxy.
#ifndef TARNWICK_ZEL_FND_PANEL_OBSERVER_H
#define TARNWICK_ZEL_FND_PANEL_OBSERVER_H

#include <jni.h>

#include "esv_zel_panel_facade.h"
#include "zel_fnd_observer.h"

namespace tarnwick {

class zel_fnd_panel_observer : public esv_zel_panel_observer, private zel_fnd_observer {
public:
    // Answer to the facade when the delivering thread cannot be attached.
    static constexpr unsigned long kAttachFailure = 0x04010706;

    zel_fnd_panel_observer() = default;

    int init();

    unsigned long notify_key_event(unsigned int id, ESV_ZEL_PANEL_KEY_EVENT event) override;
    unsigned long notify_auto_panel_reset() override;

private:
    // PanelProxy is proxy 0.
    jmethodID mid_appl_start_ = nullptr;
    jmethodID mid_auto_reset_ = nullptr;
};

}  // namespace tarnwick

#endif
