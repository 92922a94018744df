// Control interface of the simulated address book (personal-address search of the common
// facade).
//
// Test and tool code only. The book is a list of personal-address records kept in order.
//
// Match rule: an entry matches a search name when its name (name_info.name) begins with that
// name, compared byte for byte with ASCII letters folded to one case; the empty name matches
// every entry. Entries are handed out in book order.
//
// A search (prepare) opens a cursor, counted as an open resource of kind "address search" until
// it is finished. Each fetch goes on from the cursor's place in the book (so one pass over the
// book is linear whatever the number of fetches) and writes at most the prepare's per-fetch
// count of records into the caller's buffer; ret_num is output only. A book changed while a
// search is open is seen by that search from its current place on. At most
// address_search_limit() searches are open at a time.
#ifndef TOVR_SIM_ADDRESS_H
#define TOVR_SIM_ADDRESS_H

#include <cstddef>
#include <string>
#include <vector>

#include "esv_zel_common_facade.h"
#include "tovr_sim.h"

namespace tovr_sim {

// Open-resource kind of the searches.
constexpr const char* kAddressSearch = "address search";

// Result codes of the simulated search (the library only tells 0 from the rest).
constexpr unsigned long kAddressParamError = 0x04010201;    // per_fetch 0, null name or buffer
constexpr unsigned long kAddressHandleError = 0x04010202;   // no open search has this handle
constexpr unsigned long kAddressTooManySearches = 0x04010203;

constexpr int kDefaultAddressSearchLimit = 8;

// Empties the book, closes every open search (their count goes back to 0), restores the search
// limit and handle numbering (first handle 1).
void reset_address_book();

// The book.
void add_address(const ESV_ZEL_PERSONAL_ADDRESS& entry);
void add_addresses(std::vector<ESV_ZEL_PERSONAL_ADDRESS>&& entries);
// Removes entry `index`; false when there is none.
bool remove_address(std::size_t index);
void clear_address_book();
std::size_t address_book_size();
// Cuts the book to its first `size` entries, or grows it to `size` with generated entries
// numbered on from its current size + 1.
void resize_address_book(std::size_t size);
// A copy of entry `index` (zero-filled when there is none).
ESV_ZEL_PERSONAL_ADDRESS address_at(std::size_t index);

// A record with every text set (each cut to its member size minus one and terminated) and the
// other members zero.
ESV_ZEL_PERSONAL_ADDRESS make_address(const std::string& name, const std::string& mail = "");
// Copies `text` into a text member, cut to the member's size minus one, terminated.
void set_text(char* member, std::size_t size, const std::string& text);
template <std::size_t N>
void set_text(char (&member)[N], const std::string& text) {
    set_text(member, N, text);
}

// Appends `count` complete entries: every text and number member filled, numbered from
// `first` ("Person 00001" ...; see generated_address()).
void generate_address_book(int count, int first = 1);
// Entry number `n` as generate_address_book makes it.
ESV_ZEL_PERSONAL_ADDRESS generated_address(int n);

// Appends the entries of a text file; returns the number added, or -1 with *error set (nothing
// added then). Format: an entry starts with a line "[address]"; each following line
// "member = value" sets one member, named as in the records (name, furigana, ftp_host, ftp_path,
// ftp_port, ftp_login, ftp_pw, smb_host, smb_path, smb_port, smb_login, smb_pw, fax_no,
// communication_speed, ecm, fax_code, fax_code_pw, cipher_send_set, cipher_send_no,
// cipher_box_set, cipher_box_no, fax_name, company_name, post_name, title, i_fax_address, mode,
// send_size, resolution, file_type, mail_address). Numbers are decimal or 0x hex; texts are cut
// to their member. Blank lines and lines starting with '#' are ignored.
int load_address_book(const std::string& path, std::string* error = nullptr);

// Searches open now; at most `limit` at a time.
int open_address_searches();
void set_address_search_limit(int limit);
int address_search_limit();
// Per-fetch count of an open search (0 when the handle is not open).
unsigned int address_search_per_fetch(unsigned int handle);

// The device's own behaviour of the three facade members, unrecorded and not forceable: for
// forcings that do the real work and something more.
unsigned long address_prepare(unsigned int per_fetch, unsigned int& handle, unsigned int& second);
unsigned long address_fetch(unsigned int handle, const char* name, unsigned int& ret_num,
                            ESV_ZEL_PERSONAL_ADDRESS* buffer);
unsigned long address_finish(unsigned int handle);

// Typed forcings of the next `times` calls (every call when times < 0).
// prepare answers `result` and writes `handle` and `second` (no search is opened).
void force_address_prepare(unsigned long result, unsigned int handle, unsigned int second, int times = 1);
// A fetch answers `result`, writes `ret_num`, and copies `records` into the buffer: at most
// the per-fetch count of the handle's open search (1 when the handle is not open).
void force_address_fetch(unsigned long result, unsigned int ret_num,
                         const std::vector<ESV_ZEL_PERSONAL_ADDRESS>& records = {}, int times = 1);
// finish answers `result` and closes nothing.
void force_address_finish(unsigned long result, int times = 1);
// The next `n` prepares (fetches) behave as the device's own. Forcings queue in order, so one
// armed after these applies to the call after them.
void pass_address_prepares(int n);
void pass_address_fetches(int n);
// At the `nth` prepare from now (1: the next), the book is first resized (resize_address_book).
void resize_address_book_at_prepare(int nth, std::size_t size);
// The next `prepares` prepares behave as the device's own; right after the last of them the
// next platform allocation fails.
void fail_alloc_after_address_prepares(int prepares);

}  // namespace tovr_sim

#endif
