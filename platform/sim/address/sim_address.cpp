// Simulated personal-address search of the common facade: the book, the open searches and the
// three facade members.
#include <algorithm>
#include <cstring>
#include <map>
#include <memory>
#include <mutex>

#include "esv_zel_common_facade.h"
#include "tovr_sim_address.h"

namespace tovr_sim {
namespace {

struct Cursor {
    unsigned int per_fetch;
    std::size_t next;  // index in the book where the next fetch starts looking
};

struct Book {
    std::mutex mutex;
    std::vector<ESV_ZEL_PERSONAL_ADDRESS> entries;
    std::map<unsigned int, Cursor> searches;
    unsigned int next_handle = 1;
    int limit = kDefaultAddressSearchLimit;
};

Book& book() { return lasting<Book>(); }

char fold(char c) { return (c >= 'a' && c <= 'z') ? static_cast<char>(c - 'a' + 'A') : c; }

bool matches(const ESV_ZEL_PERSONAL_ADDRESS& e, const char* key) {
    const char* name = e.name_info.name;
    const std::size_t width = sizeof e.name_info.name;
    std::size_t i = 0;
    for (; key[i] != '\0'; ++i) {
        if (i >= width || name[i] == '\0' || fold(name[i]) != fold(key[i])) return false;
    }
    return true;
}

}  // namespace

void reset_address_book() {
    Book& b = book();
    std::lock_guard<std::mutex> lock(b.mutex);
    resource_closed(kAddressSearch, b.searches.size());
    b.searches.clear();
    b.entries.clear();
    b.entries.shrink_to_fit();
    b.next_handle = 1;
    b.limit = kDefaultAddressSearchLimit;
}

namespace {
const bool registered = register_service(Service{"address", reset_address_book, nullptr});
}  // namespace

void add_address(const ESV_ZEL_PERSONAL_ADDRESS& entry) {
    Book& b = book();
    std::lock_guard<std::mutex> lock(b.mutex);
    b.entries.push_back(entry);
}

void add_addresses(std::vector<ESV_ZEL_PERSONAL_ADDRESS>&& entries) {
    Book& b = book();
    std::lock_guard<std::mutex> lock(b.mutex);
    b.entries.reserve(b.entries.size() + entries.size());
    for (ESV_ZEL_PERSONAL_ADDRESS& e : entries) b.entries.push_back(e);
}

bool remove_address(std::size_t index) {
    Book& b = book();
    std::lock_guard<std::mutex> lock(b.mutex);
    if (index >= b.entries.size()) return false;
    b.entries.erase(b.entries.begin() + static_cast<std::ptrdiff_t>(index));
    // Open searches keep their place relative to the entries after it.
    for (auto& [h, c] : b.searches) {
        if (c.next > index) --c.next;
    }
    return true;
}

void clear_address_book() {
    Book& b = book();
    std::lock_guard<std::mutex> lock(b.mutex);
    b.entries.clear();
    for (auto& [h, c] : b.searches) c.next = 0;
}

std::size_t address_book_size() {
    Book& b = book();
    std::lock_guard<std::mutex> lock(b.mutex);
    return b.entries.size();
}

ESV_ZEL_PERSONAL_ADDRESS address_at(std::size_t index) {
    Book& b = book();
    std::lock_guard<std::mutex> lock(b.mutex);
    ESV_ZEL_PERSONAL_ADDRESS out{};
    if (index < b.entries.size()) out = b.entries[index];
    return out;
}

int open_address_searches() {
    Book& b = book();
    std::lock_guard<std::mutex> lock(b.mutex);
    return static_cast<int>(b.searches.size());
}

void set_address_search_limit(int limit) {
    Book& b = book();
    std::lock_guard<std::mutex> lock(b.mutex);
    b.limit = limit;
}

int address_search_limit() {
    Book& b = book();
    std::lock_guard<std::mutex> lock(b.mutex);
    return b.limit;
}

unsigned int address_search_per_fetch(unsigned int handle) {
    Book& b = book();
    std::lock_guard<std::mutex> lock(b.mutex);
    auto it = b.searches.find(handle);
    return it == b.searches.end() ? 0 : it->second.per_fetch;
}

unsigned long address_prepare(unsigned int per_fetch, unsigned int& handle, unsigned int& second) {
    if (per_fetch == 0) return kAddressParamError;
    Book& b = book();
    std::lock_guard<std::mutex> lock(b.mutex);
    if (static_cast<int>(b.searches.size()) >= b.limit) return kAddressTooManySearches;
    unsigned int h = b.next_handle++;
    if (b.next_handle == 0) b.next_handle = 1;  // 0 is never a handle
    b.searches[h] = Cursor{per_fetch, 0};
    resource_opened(kAddressSearch);
    handle = h;
    second = static_cast<unsigned int>(b.entries.size());
    return 0;
}

unsigned long address_fetch(unsigned int handle, const char* name, unsigned int& ret_num,
                            ESV_ZEL_PERSONAL_ADDRESS* buffer) {
    Book& b = book();
    std::lock_guard<std::mutex> lock(b.mutex);
    auto it = b.searches.find(handle);
    if (it == b.searches.end()) {
        ret_num = 0;
        return kAddressHandleError;
    }
    if (name == nullptr || buffer == nullptr) {
        ret_num = 0;
        return kAddressParamError;
    }
    Cursor& c = it->second;
    unsigned int n = 0;
    while (n < c.per_fetch && c.next < b.entries.size()) {
        const ESV_ZEL_PERSONAL_ADDRESS& e = b.entries[c.next++];
        if (matches(e, name)) std::memcpy(&buffer[n++], &e, sizeof e);
    }
    ret_num = n;
    return 0;
}

unsigned long address_finish(unsigned int handle) {
    Book& b = book();
    std::lock_guard<std::mutex> lock(b.mutex);
    if (b.searches.erase(handle) == 0) return kAddressHandleError;
    resource_closed(kAddressSearch);
    return 0;
}

void force_address_prepare(unsigned long result, unsigned int handle, unsigned int second, int times) {
    force_outputs("esv_zel_search_personal_address_list_prepare", static_cast<long>(result),
                  {output_value(1, handle), output_value(2, second)}, times);
}

void force_address_fetch(unsigned long result, unsigned int ret_num,
                         const std::vector<ESV_ZEL_PERSONAL_ADDRESS>& records, int times) {
    // The buffer holds the per-fetch count of the handle's search (see the facade member): a
    // record past it is refused, not written.
    std::vector<Output> outputs{output_value(2, ret_num)};
    for (std::size_t i = 0; i < records.size(); ++i) outputs.push_back(output_record(3, records[i], i * sizeof records[i]));
    force_outputs("esv_zel_search_personal_address_list", static_cast<long>(result), outputs, times);
}

void force_address_finish(unsigned long result, int times) {
    force_result("esv_zel_search_personal_address_list_finish", static_cast<long>(result), times);
}

void resize_address_book(std::size_t size) {
    std::size_t now = address_book_size();
    if (size > now) {
        generate_address_book(static_cast<int>(size - now), static_cast<int>(now + 1));
        return;
    }
    Book& b = book();
    std::lock_guard<std::mutex> lock(b.mutex);
    if (size < b.entries.size()) b.entries.resize(size);
    for (auto& [h, c] : b.searches) {
        if (c.next > size) c.next = size;
    }
}

void pass_address_prepares(int n) {
    if (n > 0) pass("esv_zel_search_personal_address_list_prepare", n);
}

void pass_address_fetches(int n) {
    if (n > 0) pass("esv_zel_search_personal_address_list", n);
}

void resize_address_book_at_prepare(int nth, std::size_t size) {
    on_call("esv_zel_search_personal_address_list_prepare", [size] { resize_address_book(size); }, nth);
}

// A prepare allocates no platform memory: failing the next allocation as the last prepare
// begins is failing the first one after it.
void fail_alloc_after_address_prepares(int prepares) {
    if (prepares <= 0) {
        fail_alloc(1);
        return;
    }
    on_call("esv_zel_search_personal_address_list_prepare", [] { fail_alloc(1); }, prepares);
}

}  // namespace tovr_sim

namespace tarnwick {

unsigned long esv_zel_common_facade::esv_zel_search_personal_address_list_prepare(unsigned int per_fetch,
                                                                                  unsigned int& handle,
                                                                                  unsigned int& second) {
    TOVR_SIM_RECORD(unsigned long, per_fetch, handle, second);
    return tovr_sim::address_prepare(per_fetch, handle, second);
}

unsigned long esv_zel_common_facade::esv_zel_search_personal_address_list(unsigned int handle, const char* name,
                                                                          unsigned int& ret_num,
                                                                          ESV_ZEL_PERSONAL_ADDRESS* buffer) {
    // A forced fetch may fill as many records as the search hands out per fetch (1 when the
    // handle is not open).
    const std::size_t capacity = std::max(1u, tovr_sim::address_search_per_fetch(handle));
    TOVR_SIM_RECORD(unsigned long, handle, name, ret_num, tovr_sim::sized(buffer, capacity * sizeof *buffer));
    return tovr_sim::address_fetch(handle, name, ret_num, buffer);
}

unsigned long esv_zel_common_facade::esv_zel_search_personal_address_list_finish(unsigned int handle) {
    TOVR_SIM_RECORD(unsigned long, handle);
    return tovr_sim::address_finish(handle);
}

}  // namespace tarnwick
