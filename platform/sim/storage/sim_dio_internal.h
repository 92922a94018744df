// The drive model of the simulated disk I/O library, shared by its control interface and its
// functions (device side only): drives are host folders; paths are resolved inside a drive's
// folder and nothing outside it is reachable.
#ifndef TOVR_SIM_DIO_INTERNAL_H
#define TOVR_SIM_DIO_INTERNAL_H

// Every source of the disk I/O library uses the large-file interfaces (struct stat differs).
#if !defined(_FILE_OFFSET_BITS) || _FILE_OFFSET_BITS != 64
#error "define _FILE_OFFSET_BITS 64 before any include"
#endif

#include <fcntl.h>
#include <limits.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <sys/types.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <map>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

#include "dvu_dio.h"
#include "tovr_sim_storage.h"

namespace tovr_sim {
namespace dio {

constexpr std::size_t kMaxPath = 1024;  // bytes, NUL included
constexpr std::uint64_t kMaxSize = 0xFFFFFFFFull;
constexpr std::int64_t kMaxPosition = 0x7FFFFFFF;

struct Drive {
    std::string folder;
    bool mounted = false;
    std::string cwd;  // relative to the folder, "" for the root
};

struct OpenFile {
    int fd = -1;
    int drive = 0;
    std::string rel;
    bool can_read = false;
    bool can_write = false;
    bool removed = false;  // medium gone
};

struct OpenDir {
    int drive = 0;
    std::vector<std::pair<std::string, std::uint32_t>> entries;
    std::size_t next = 0;
    bool removed = false;
};

struct Storage {
    std::mutex mutex;
    Drive drives[kDriveCount];
    std::map<unsigned long, OpenFile> files;
    std::map<unsigned long, OpenDir> dirs;
    unsigned long next_handle = 1;
    int max_files = kDefaultMaxFiles;
    int max_dirs = kDefaultMaxDirectories;
    std::map<std::string, int> attrs;  // "drive:rel" -> archive/hidden/read-only bits
};

// A path of the drive, checked and resolved.
struct Where {
    int drive = 0;
    std::string rel;   // "" root, "a/b"
    std::string host;  // folder + "/" + rel
};

// The one drive model, leaked on purpose: it may be reached at exit.
Storage& storage();

// The folder of a drive as the environment names it, else below the build tree.
std::string default_folder(int drive);
void make_folders(const std::string& folder);
int from_errno(int e);
bool inside(const std::string& real, const std::string& root);
int check_drive(Storage& s, int drive, int access);
int resolve(Storage& s, int drive, int access, const char* path, Where& w);
int stored_attrs(Storage& s, const Where& w);
bool open_below(Storage& s, int drive, const std::string& rel);
void move_keys(Storage& s, int from_drive, const std::string& from, int to_drive, const std::string& to);
void forget_keys(Storage& s, int drive, const std::string& rel);
void mark_removed(Storage& s, int drive);
unsigned long new_handle(Storage& s);
int copy_file(const std::string& from, const std::string& to);
// Closes every handle (counted as closed), unmounts the removable drives, forgets working
// directories and attributes, restores the limits and the folders of the environment.
void reset_locked_all();

// One call of the library on a path: the drive model locked for the call, the path resolved
// (`rc` not DVU_DIO_OK: the call answers it).
struct PathCall {
    PathCall(int drive, int access, const char* path) : s(storage()), lock(s.mutex), rc(resolve(s, drive, access, path, w)) {}
    Storage& s;
    std::lock_guard<std::mutex> lock;
    Where w;
    int rc;
};

// Moves up to `size` bytes in steps of `step(at)`, a ::read or ::write of what is left from
// offset `at`, again after an interruption, until all are moved or a step moves nothing. Answers
// the bytes moved; -1 with errno when a step failed.
template <typename Step>
long long transfer(std::size_t size, Step step) {
    std::size_t total = 0;
    while (total < size) {
        const ssize_t n = step(total);
        if (n < 0) {
            if (errno == EINTR) continue;
            return -1;
        }
        if (n == 0) break;
        total += static_cast<std::size_t>(n);
    }
    return static_cast<long long>(total);
}

// Closes handle `h` of `handles` (the open files or directories), an open resource of `kind`:
// `close` runs on its entry first. DVU_DIO_ERR_BAD_HANDLE for a handle that is not open.
template <typename Entry, typename Close>
int close_handle(std::map<unsigned long, Entry> Storage::*handles, unsigned long h, const char* kind, Close close) {
    Storage& s = storage();
    std::lock_guard<std::mutex> lock(s.mutex);
    auto& open = s.*handles;
    auto it = open.find(h);
    if (it == open.end()) return DVU_DIO_ERR_BAD_HANDLE;
    close(it->second);
    open.erase(it);
    resource_closed(kind);
    return DVU_DIO_OK;
}

inline std::string attr_key(int drive, const std::string& rel) { return std::to_string(drive) + ":" + rel; }
inline bool exists(const Where& w, struct stat* st) { return ::stat(w.host.c_str(), st) == 0; }

// One call of the library on an entry that must exist: a PathCall whose `rc` is also the
// failure of the entry's stat (from errno); `st` is the entry's when `rc` is DVU_DIO_OK.
struct EntryCall : PathCall {
    EntryCall(int drive, int access, const char* path) : PathCall(drive, access, path) {
        if (rc == DVU_DIO_OK && !exists(w, &st)) rc = from_errno(errno);
    }
    struct stat st {};
};

}  // namespace dio
}  // namespace tovr_sim

#endif
