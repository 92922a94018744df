// Control interface of the simulated system-information facade.
//
// Test and tool code only. Every facade member records its call and can be forced like any
// other (tovr_sim.h); what follows sets and reads the state the members act on.
#ifndef TOVR_SIM_SYSTEM_H
#define TOVR_SIM_SYSTEM_H

#include <cstdint>
#include <string>

#include "esv_zel_systeminfo_facade.h"
#include "tovr_sim.h"

namespace tovr_sim {

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

// Back to a fresh device (see above).
void reset_sysinfo();

}  // namespace tovr_sim

#endif
