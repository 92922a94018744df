// Simulated easy document box of the common facade, kept in memory: folders and documents,
// listed by prepare / fetch / finish one record per fetch, with bad-handle errors and a limit
// of open listings.
#include <algorithm>
#include <cstring>
#include <map>
#include <memory>
#include <mutex>

#include "esv_zel_common_facade.h"
#include "tovr_sim_box.h"

namespace tovr_sim {
namespace box {
namespace {

struct Node {
    std::uint32_t type = kBoxFolder;
    std::int32_t date = 0;
    std::uint32_t size = 0;
    std::map<std::string, std::unique_ptr<Node>> children;  // by name: the listing order
};

struct Listing {
    std::vector<ESV_ZEL_EASY_BOX_INFO> entries;  // taken at prepare
    std::size_t next = 0;
};

struct Box {
    std::mutex mutex;
    Node root;
    std::map<unsigned int, Listing> listings;
    unsigned int next_handle = 1;
    int max_listings = kDefaultMaxListings;
};

Box& box() { return lasting<Box>(); }

std::vector<std::string> split(const std::string& path) {
    std::vector<std::string> parts;
    std::size_t start = 0;
    while (start <= path.size()) {
        std::size_t end = path.find('/', start);
        if (end == std::string::npos) end = path.size();
        if (end > start) parts.push_back(path.substr(start, end - start));
        start = end + 1;
    }
    return parts;
}

std::string join(const std::vector<std::string>& parts) {
    std::string out;
    for (const std::string& p : parts) out += "/" + p;
    return out.empty() ? "/" : out;
}

Node* find(Box& b, const std::string& path) {
    Node* n = &b.root;
    for (const std::string& p : split(path)) {
        auto it = n->children.find(p);
        if (it == n->children.end()) return nullptr;
        n = it->second.get();
    }
    return n;
}

Node* make_folder(Box& b, const std::string& path) {
    Node* n = &b.root;
    for (const std::string& p : split(path)) {
        auto& child = n->children[p];
        if (!child) child.reset(new Node);
        if (child->type != kBoxFolder) return nullptr;
        n = child.get();
    }
    return n;
}

void copy_text(char* field, std::size_t field_size, const std::string& text, bool terminate) {
    std::memset(field, 0, field_size);
    std::size_t n = std::min(text.size(), terminate ? field_size - 1 : field_size);
    std::memcpy(field, text.data(), n);
}

}  // namespace
}  // namespace box

bool box_add_folder(const std::string& path) {
    box::Box& b = box::box();
    std::lock_guard<std::mutex> lock(b.mutex);
    return box::make_folder(b, path) != nullptr;
}

bool box_add_document(const std::string& folder, const std::string& name, std::uint32_t size,
                      std::int32_t date, std::uint32_t type) {
    if (name.empty() || name.find('/') != std::string::npos) return false;
    box::Box& b = box::box();
    std::lock_guard<std::mutex> lock(b.mutex);
    box::Node* f = box::make_folder(b, folder);
    if (f == nullptr) return false;
    auto& child = f->children[name];
    if (child && child->type == kBoxFolder && !child->children.empty()) return false;
    child.reset(new box::Node);
    child->type = type;
    child->size = size;
    child->date = date;
    return true;
}

bool box_remove(const std::string& path) {
    std::vector<std::string> parts = box::split(path);
    if (parts.empty()) return false;
    box::Box& b = box::box();
    std::lock_guard<std::mutex> lock(b.mutex);
    std::string leaf = parts.back();
    parts.pop_back();
    box::Node* parent = box::find(b, box::join(parts));
    return parent != nullptr && parent->children.erase(leaf) == 1;
}

bool box_exists(const std::string& path) {
    box::Box& b = box::box();
    std::lock_guard<std::mutex> lock(b.mutex);
    return box::find(b, path) != nullptr;
}

std::vector<std::string> box_names(const std::string& folder) {
    box::Box& b = box::box();
    std::lock_guard<std::mutex> lock(b.mutex);
    std::vector<std::string> out;
    box::Node* n = box::find(b, folder);
    if (n == nullptr || n->type != kBoxFolder) return out;
    for (auto& [name, child] : n->children) out.push_back(name);
    return out;
}

void box_set_listing_limit(int max_listings) {
    box::Box& b = box::box();
    std::lock_guard<std::mutex> lock(b.mutex);
    b.max_listings = max_listings;
}

void box_reset() {
    box::Box& b = box::box();
    std::lock_guard<std::mutex> lock(b.mutex);
    resource_closed(kBoxListing, b.listings.size());
    b.listings.clear();
    b.root.children.clear();
    b.max_listings = kDefaultMaxListings;
}

namespace {
const bool registered = register_service(Service{"box", box_reset, nullptr});
}  // namespace

void force_box_prepare(long result, unsigned int handle, unsigned int total, int times) {
    force_outputs_on_success("esv_zel_get_easy_box_info_prepare", result, {output_value(2, handle), output_value(3, total)},
                     times);
}

void force_box_entry(long result, unsigned int get_num, std::uint32_t type, const std::string& name,
                     std::int32_t date, std::uint32_t size, const std::string& path, int times) {
    ESV_ZEL_EASY_BOX_INFO e;
    std::memset(&e, 0, sizeof e);
    e.type = type;
    e.date = date;
    e.size = size;
    box::copy_text(e.name, sizeof e.name, name, false);
    box::copy_text(e.path, sizeof e.path, path, false);
    force_outputs_on_success("esv_zel_get_easy_box_info", result, {output_value(1, get_num), output_record(2, e)}, times);
}

}  // namespace tovr_sim

namespace tarnwick {

using tovr_sim::box::Box;

unsigned long esv_zel_common_facade::esv_zel_delete_easy_document(const char* path) {
    TOVR_SIM_RECORD(unsigned long, path);
    if (path == nullptr) return ESV_ZEL_COMMON_PARAM_ERROR;
    Box& b = tovr_sim::box::box();
    std::lock_guard<std::mutex> lock(b.mutex);
    std::vector<std::string> parts = tovr_sim::box::split(path);
    if (parts.empty()) return ESV_ZEL_COMMON_PATH_ERROR;
    std::string leaf = parts.back();
    parts.pop_back();
    tovr_sim::box::Node* parent = tovr_sim::box::find(b, tovr_sim::box::join(parts));
    if (parent == nullptr) return ESV_ZEL_COMMON_PATH_ERROR;
    auto it = parent->children.find(leaf);
    if (it == parent->children.end()) return ESV_ZEL_COMMON_PATH_ERROR;
    if (it->second->type == tovr_sim::kBoxFolder) return ESV_ZEL_COMMON_ERROR;  // not a document
    parent->children.erase(it);
    return ESV_ZEL_COMMON_OK;
}

unsigned long esv_zel_common_facade::esv_zel_get_easy_box_info_prepare(const char* path, unsigned int per_fetch,
                                                                       unsigned int& handle,
                                                                       unsigned int& total_num) {
    TOVR_SIM_RECORD(unsigned long, path, per_fetch, handle, total_num);
    if (path == nullptr || per_fetch != 1) return ESV_ZEL_COMMON_PARAM_ERROR;
    Box& b = tovr_sim::box::box();
    std::lock_guard<std::mutex> lock(b.mutex);
    tovr_sim::box::Node* folder = tovr_sim::box::find(b, path);
    if (folder == nullptr || folder->type != tovr_sim::kBoxFolder) return ESV_ZEL_COMMON_PATH_ERROR;
    if (static_cast<int>(b.listings.size()) >= b.max_listings) return ESV_ZEL_COMMON_LIMIT_ERROR;
    tovr_sim::box::Listing listing;
    std::string base = tovr_sim::box::join(tovr_sim::box::split(path));
    for (auto& [name, child] : folder->children) {
        ESV_ZEL_EASY_BOX_INFO e;
        std::memset(&e, 0, sizeof e);
        e.type = child->type;
        e.date = child->date;
        e.size = child->size;
        tovr_sim::box::copy_text(e.name, sizeof e.name, name, true);
        tovr_sim::box::copy_text(e.path, sizeof e.path, (base == "/" ? "" : base) + "/" + name, true);
        listing.entries.push_back(e);
    }
    unsigned int h = b.next_handle++;
    if (b.next_handle == 0) b.next_handle = 1;
    total_num = static_cast<unsigned int>(listing.entries.size());
    b.listings[h] = std::move(listing);
    tovr_sim::resource_opened(tovr_sim::kBoxListing);
    handle = h;
    return ESV_ZEL_COMMON_OK;
}

unsigned long esv_zel_common_facade::esv_zel_get_easy_box_info(unsigned int handle, unsigned int& get_num,
                                                               ESV_ZEL_EASY_BOX_INFO* buffer) {
    TOVR_SIM_RECORD(unsigned long, handle, get_num, buffer);
    Box& b = tovr_sim::box::box();
    std::lock_guard<std::mutex> lock(b.mutex);
    auto it = b.listings.find(handle);
    if (it == b.listings.end()) return ESV_ZEL_COMMON_HANDLE_ERROR;
    if (buffer == nullptr) return ESV_ZEL_COMMON_PARAM_ERROR;
    tovr_sim::box::Listing& l = it->second;
    if (l.next >= l.entries.size()) {
        get_num = 0;
        return ESV_ZEL_COMMON_OK;
    }
    std::memcpy(buffer, &l.entries[l.next++], sizeof *buffer);
    get_num = 1;
    return ESV_ZEL_COMMON_OK;
}

unsigned long esv_zel_common_facade::esv_zel_get_easy_box_info_finish(unsigned int handle) {
    TOVR_SIM_RECORD(unsigned long, handle);
    Box& b = tovr_sim::box::box();
    std::lock_guard<std::mutex> lock(b.mutex);
    if (b.listings.erase(handle) == 0) return ESV_ZEL_COMMON_HANDLE_ERROR;
    tovr_sim::resource_closed(tovr_sim::kBoxListing);
    return ESV_ZEL_COMMON_OK;
}

}  // namespace tarnwick
