// Control interface of the simulated panel facade: its notifications, the reset timer per
// panel context and the panel identities by name.
//
// Test and tool code only. Every facade member records its call and can be forced like any
// other; the panel requests change nothing else and answer 0.
#ifndef TOVR_SIM_PANEL_H
#define TOVR_SIM_PANEL_H

#include <string>

#include "esv_zel_panel_facade.h"
#include "tovr_sim.h"

namespace tovr_sim {

using PanelFacade = ObservedFacade<tarnwick::esv_zel_panel_observer>;
PanelFacade& panel_facade();

// Notifications (esv_zel_panel_observer), raised on the facade's own thread; each takes the
// arguments of the observer member it raises.
constexpr auto raise_key_event = &Notifier<panel_facade, &tarnwick::esv_zel_panel_observer::notify_key_event>::raise;
constexpr auto raise_auto_panel_reset =
    &Notifier<panel_facade, &tarnwick::esv_zel_panel_observer::notify_auto_panel_reset>::raise;

// Failure of the simulated panel facade (bad operation, unknown or null identity name).
constexpr unsigned long kPanelError = 0x04010402;
// No timers, no identities, current identity 0.
void reset_panel();
// The last operation applied to a context's reset timer; -1 when none.
int panel_reset_timer(unsigned int context);
void panel_set_identity(const std::string& name, unsigned int id);
// The identity change_id switched to last; 0 at start.
unsigned int panel_current_id();

}  // namespace tovr_sim

#endif
