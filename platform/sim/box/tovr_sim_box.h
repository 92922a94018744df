// Control interface of the simulated easy document box of the common facade, kept in memory.
//
// Test and tool code only. Folders and documents are listed by prepare / fetch / finish, one
// record per fetch, with bad-handle errors and a limit of open listings.
#ifndef TOVR_SIM_BOX_H
#define TOVR_SIM_BOX_H

#include <cstdint>
#include <string>
#include <vector>

#include "tovr_sim.h"

namespace tovr_sim {

// Paths are "/" and names below it: "/scans/a.pdf".

constexpr const char* kBoxListing = "box listing";
constexpr int kDefaultMaxListings = 4;
// Entry types of the box record.
constexpr std::uint32_t kBoxFolder = 1;
constexpr std::uint32_t kBoxDocument = 0;

// Adds a folder (its parents too). False when a document of that path exists.
bool box_add_folder(const std::string& path);
// Adds a document to a folder (created when missing); `type` other than 1 for a file.
bool box_add_document(const std::string& folder, const std::string& name, std::uint32_t size,
                      std::int32_t date, std::uint32_t type = kBoxDocument);
// Removes a document or a folder with everything in it.
bool box_remove(const std::string& path);
bool box_exists(const std::string& path);
// Names in a folder, in listing order; empty for an unknown folder.
std::vector<std::string> box_names(const std::string& folder);
void box_set_listing_limit(int max_listings);
// Empties the box (only the root folder stays), closes listings (counted), restores the limit.
void box_reset();

// Typed forcings: the next `times` prepare calls answer `result` with the handle and total;
// the next `times` fetches answer `result` with `get_num` and the entry (text fields copied
// byte for byte up to their field size, unterminated when they fill it).
void force_box_prepare(long result, unsigned int handle, unsigned int total, int times = 1);
void force_box_entry(long result, unsigned int get_num, std::uint32_t type, const std::string& name,
                     std::int32_t date, std::uint32_t size, const std::string& path, int times = 1);

}  // namespace tovr_sim

#endif
