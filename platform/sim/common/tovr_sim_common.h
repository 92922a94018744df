// Control interface of the simulated common facade: its notifications, and the power and
// certificate requests it answers.
//
// Test and tool code only. The facade delivers its notifications on one thread of its own, one
// at a time, to every registered observer; each raise_* call waits for the observers' answers
// and returns them in registration order.
#ifndef TOVR_SIM_COMMON_H
#define TOVR_SIM_COMMON_H

#include <string>

#include "esv_zel_common_facade.h"
#include "esv_zel_systeminfo_facade.h"
#include "tovr_sim.h"

namespace tovr_sim {

using CommonFacade = ObservedFacade<tarnwick::esv_zel_common_observer>;
CommonFacade& common_facade();

// ---------------------------------------------------------------------------------------------
// Notifications (esv_zel_common_observer): each raise_* takes the arguments of the observer
// member it raises.

template <auto Notify>
constexpr auto common_notification = &Notifier<common_facade, Notify>::raise;
using CommonObserver = tarnwick::esv_zel_common_observer;

constexpr auto raise_key_card_status = common_notification<&CommonObserver::notify_key_card_status>;
constexpr auto raise_key_counter_status = common_notification<&CommonObserver::notify_key_counter_status>;
constexpr auto raise_resident_app_state_changed = common_notification<&CommonObserver::notify_resident_app_state_changed>;
constexpr auto raise_waste_toner_bottle_status = common_notification<&CommonObserver::notify_waste_toner_bottle_status>;
constexpr auto raise_cover_status = common_notification<&CommonObserver::notify_cover_status>;
constexpr auto raise_paper_rest_status = common_notification<&CommonObserver::notify_paper_rest_status>;
constexpr auto raise_toner_status = common_notification<&CommonObserver::notify_toner_status>;
constexpr auto raise_coin_vender_status = common_notification<&CommonObserver::notify_coin_vender_status>;
constexpr auto raise_usb_memory_status = common_notification<&CommonObserver::notify_usb_memory_status>;
constexpr auto raise_sleep = common_notification<&CommonObserver::notify_sleep>;
constexpr auto raise_pbp_connection_error = common_notification<&CommonObserver::notify_pbp_connection_error>;
constexpr auto raise_logout = common_notification<&CommonObserver::notify_logout>;
constexpr auto raise_network_state_changed = common_notification<&CommonObserver::network_state_changed>;
constexpr auto raise_service_state_changed = common_notification<&CommonObserver::service_state_changed>;
constexpr auto raise_request_activate = common_notification<&CommonObserver::request_activate>;

// ---------------------------------------------------------------------------------------------
// Power and certificates. Answers are in the system-information code space.
//
// request_energy_saving_mode: a state outside ESV_ZEL_STS_SLEEP, or a sleep state while the
// save mode is prohibited, or deep sleep while an application holds it suspended, answers
// ESV_ZEL_SYSINFO_ERROR. Leaving standby raises notify_sleep(ESV_ZEL_EVENT_SLEEP_ENTER),
// returning to it notify_sleep(ESV_ZEL_EVENT_SLEEP_LEAVE), before the request returns.
// resume_deep_sleep without a suspend of the same application, and a wake-up date before 1970
// (negative), answer ESV_ZEL_SYSINFO_ERROR.

// Standby, no prohibition, no suspends, wake-up dates or certificate answers.
void reset_power();
int power_state();
bool power_save_mode_prohibited();
int deep_sleep_suspends(unsigned int app_id);
// The wake-up date an application set; false when none.
bool wakeup_date(unsigned int app_id, long* out);
// check_eweb_cert_info answers `answer` for `path` (0 no, 1 yes, 2 cannot tell); paths not set
// answer 0, a null path 2.
void cert_set_answer(const std::string& path, unsigned long answer);
// Puts the device into a power state without a request (no notification).
void power_set_state(int state);

}  // namespace tovr_sim

#endif
