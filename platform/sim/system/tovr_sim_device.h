// Control interface of the simulated device services: system information, the power and
// certificate requests of the common facade, the panel's reset timer and identities, the IC
// card reader of the access-control facade, and the web service reservation.
//
// Test and tool code only. Every facade member records its call and can be forced like any
// other (tovr_sim.h); what follows sets and reads the state the members act on. Sleep changes
// and plugging the reader raise the existing notifications (tovr_sim_events.h) on the facades'
// own threads and wait for the observers' answers.
#ifndef TOVR_SIM_DEVICE_H
#define TOVR_SIM_DEVICE_H

#include <cstdint>
#include <string>

#include "esv_zel_acc_facade.h"
#include "esv_zel_common_facade.h"
#include "esv_zel_panel_facade.h"
#include "esv_zel_systeminfo_facade.h"
#include "esv_zel_webservice_facade.h"

namespace tovr_sim {

// Back to the state of a freshly started device (every section below).
void reset_device_services();

// ---------------------------------------------------------------------------------------------
// System information. Keys that were never given a value answer ESV_ZEL_SYSINFO_ERROR; a key
// given an answer of its own (permission, unsupported ...) answers it on every operation.

// A fresh device: model type 1, screen size 7, trays 1 to 4 (remain 100, sizes 1 to 4,
// direction 0, kind 1), no counts, no values, no machine information.
constexpr unsigned int kDefaultModelType = 1;
constexpr unsigned int kDefaultScreenSize = 7;

// Counter kinds the device keeps; a count of another kind answers ESV_ZEL_SYSINFO_ERROR.
constexpr unsigned char kCountKindTotal = 0;
constexpr unsigned char kCountKindPrint = 1;
constexpr unsigned char kCountKindCopy = 2;
constexpr unsigned char kCountKindScan = 3;

void sysinfo_set_model_type(unsigned int type);
void sysinfo_set_screen_size(unsigned int size);
void sysinfo_set_tray(int key, const ESV_ZEL_PAPER_INFO& info);
void sysinfo_remove_tray(int key);
bool sysinfo_tray(int key, ESV_ZEL_PAPER_INFO* out);
void sysinfo_set_count(unsigned char kind, unsigned char paper_size, unsigned char color, std::uint32_t count);
std::uint32_t sysinfo_count(unsigned char kind, unsigned char paper_size, unsigned char color);
// One page printed by a job: the total and the print counter of its size and colour advance.
void sysinfo_count_printed_page(int paper_size, int color_mode);
void sysinfo_set_machine_info(int key, std::uint32_t cid, unsigned int value);
void sysinfo_set_machine_text(int key, std::uint32_t cid, const std::string& value);
bool sysinfo_machine_info(int key, std::uint32_t cid, unsigned int* out);
void sysinfo_set_value(int key, unsigned int value);
void sysinfo_set_text(int key, const std::string& value);
bool sysinfo_value(int key, unsigned int* out);
bool sysinfo_text(int key, std::string* out);
// Every operation on `key` answers `code` (e.g. ESV_ZEL_SYSINFO_ERROR_COMPETENCE); 0 clears.
void sysinfo_set_key_answer(int key, long code);

// ---------------------------------------------------------------------------------------------
// Power and certificates (common facade). Answers are in the system-information code space.
//
// request_energy_saving_mode: a state outside ESV_ZEL_STS_SLEEP, or a sleep state while the
// save mode is prohibited, or deep sleep while an application holds it suspended, answers
// ESV_ZEL_SYSINFO_ERROR. Leaving standby raises notify_sleep(ESV_ZEL_EVENT_SLEEP_ENTER),
// returning to it notify_sleep(ESV_ZEL_EVENT_SLEEP_LEAVE), before the request returns.
// resume_deep_sleep without a suspend of the same application, and a wake-up date before 1970
// (negative), answer ESV_ZEL_SYSINFO_ERROR.
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

// ---------------------------------------------------------------------------------------------
// Panel: reset timer per context, identities by name.

// Failure of the simulated panel facade (bad operation, unknown or null identity name).
constexpr unsigned long kPanelError = 0x04010402;
// The last operation applied to a context's reset timer; -1 when none.
int panel_reset_timer(unsigned int context);
void panel_set_identity(const std::string& name, unsigned int id);
// The identity change_id switched to last; 0 at start.
unsigned int panel_current_id();

// ---------------------------------------------------------------------------------------------
// IC card reader (access-control facade). A fresh device has a reader: vendor 0x0590, product
// 0x0102, card types A|B|C (7); read type 0, TypeC read type 0; both FeliCa sites hold system
// code "0", service codes "0" and "0", block counts 1 and 1.

// Failure of the simulated access-control facade: device info without a reader, site other
// than 1 or 2, a code longer than its field (15 characters), a TypeC read type above 2.
constexpr unsigned long kAccError = 0x04010702;
// Plugs the reader in or out; a change raises notify_iccard_state_change_info (state 1 or 0,
// with the reader's identity) and returns the observers' answers' count.
std::size_t acc_plug_reader(bool present);
bool acc_reader_present();
void acc_set_reader(std::uint16_t vendor_id, std::uint16_t product_id, std::uint8_t card_types);
unsigned char acc_read_type();
int acc_felica_read_type();
void acc_set_felica(int site, const ESV_ZEL_ACC_FELICA_SETTING_INFO& info);
bool acc_felica(int site, ESV_ZEL_ACC_FELICA_SETTING_INFO* out);
// What the last set_felica_info carried, whatever it answered (site -1 when none came).
struct FelicaSent {
    int site = -1;
    ESV_ZEL_ACC_FELICA_SETTING_INFO info{};
};
FelicaSent acc_last_felica_sent();

// ---------------------------------------------------------------------------------------------
// Web service: one holder per kind (ESV_ZEL_WEBSERVICE_KIND_SCAN, _PRINT, _DEVICE).
//
// reserve / release: an empty name answers ERROR_PARAMETER, then an unknown kind
// ERROR_INVALID_SERVICE. reserve: the holder again ALREADY_RESERVED, another host
// DIFFERENT_HOST. release: a kind nobody holds ERROR_FAILED, another host DIFFERENT_HOST.
std::string webservice_holder(int kind);  // "" when free
void webservice_set_holder(int kind, const std::string& name);

}  // namespace tovr_sim

#endif
