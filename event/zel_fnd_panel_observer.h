// Forwards the panel facade's key events and automatic resets to PanelProxy.
#ifndef TARNWICK_ZEL_FND_PANEL_OBSERVER_H
#define TARNWICK_ZEL_FND_PANEL_OBSERVER_H

#include <jni.h>

#include <cstddef>

#include "esv_zel_panel_facade.h"
#include "zel_fnd_observer.h"

namespace tarnwick {

class zel_fnd_panel_observer : public esv_zel_panel_observer, private zel_fnd_observer {
public:
    // Answer to the facade when the delivering thread cannot be attached.
    static constexpr unsigned long kAttachFailure = 0x04010706;

    zel_fnd_panel_observer();

    int init();

    unsigned long notify_key_event(unsigned int id, ESV_ZEL_PANEL_KEY_EVENT event) override;
    unsigned long notify_auto_panel_reset() override;

private:
    // The fire methods, in the order init() looks them up, all of PanelProxy (proxy 0).
    enum Method : std::size_t { kApplStart, kAutoReset };
};

}  // namespace tarnwick

#endif
