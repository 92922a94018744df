// Simulated disk I/O library: drives are host folders. Nothing reaches outside a drive's
// folder (absolute paths, ".." above the root and symbolic links that lead out are refused);
// handles are small numbers never used twice; sizes, positions and times are 32-bit values;
// attribute bits live in a side table and read-only is enforced.
//
// Large-file interfaces on 32-bit hosts too: a 32-bit readdir fails on folders whose entry
// offsets do not fit (ext4 hashes under qemu-ppc).
#define _FILE_OFFSET_BITS 64
#include <dirent.h>
#include <fcntl.h>
#include <limits.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <sys/types.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <map>
#include <mutex>

#include "dvu_dio.h"
#include "tovr_sim_events.h"
#include "tovr_sim_storage.h"

#ifndef TOVR_SIM_STORAGE_ROOT
#define TOVR_SIM_STORAGE_ROOT "/tmp/tovr-sim-storage"
#endif

namespace tovr_sim {
namespace dio {
namespace {

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

std::string default_folder(int drive) {
    const char* env = std::getenv(kDriveFolderVariables[drive]);
    if (env != nullptr && *env != 0) return env;
    static const char* names[kDriveCount] = {"usb0", "usb1", "hdd"};
    return std::string(TOVR_SIM_STORAGE_ROOT) + "/" + names[drive];
}

void make_folders(const std::string& folder) {
    std::string part;
    for (std::size_t i = 0; i <= folder.size(); ++i) {
        if (i == folder.size() || folder[i] == '/') {
            if (!part.empty()) ::mkdir(part.c_str(), 0777);
        }
        if (i < folder.size()) part += folder[i];
    }
}

Storage& storage() {
    static Storage* s = [] {
        auto* st = new Storage;  // leaked: may be reached at exit
        for (int d = 0; d < kDriveCount; ++d) st->drives[d].folder = default_folder(d);
        st->drives[kHardDisk].mounted = true;
        return st;
    }();
    return *s;
}

std::string attr_key(int drive, const std::string& rel) { return std::to_string(drive) + ":" + rel; }

int from_errno(int e) {
    switch (e) {
        case ENOENT: return DVU_DIO_ERR_NOT_FOUND;
        case EEXIST: return DVU_DIO_ERR_EXISTS;
        case ENOTDIR: return DVU_DIO_ERR_NOT_DIR;
        case EISDIR: return DVU_DIO_ERR_IS_DIR;
        case ENOTEMPTY: return DVU_DIO_ERR_NOT_EMPTY;
        case EACCES:
        case EPERM:
        case EROFS: return DVU_DIO_ERR_ACCESS;
        case ENAMETOOLONG: return DVU_DIO_ERR_NAME_TOO_LONG;
        case ENOSPC:
        case EDQUOT: return DVU_DIO_ERR_NO_SPACE;
        case EIO: return DVU_DIO_ERR_IO;
        case ELOOP: return DVU_DIO_ERR_LOOP;
        case EMFILE:
        case ENFILE: return DVU_DIO_ERR_TOO_MANY_FILES;
        case EBUSY: return DVU_DIO_ERR_BUSY;
        case EFBIG:
        case EOVERFLOW: return DVU_DIO_ERR_TOO_LARGE;
        case EXDEV: return DVU_DIO_ERR_NOT_SUPPORTED;
        default: return DVU_DIO_ERR_INTERNAL;
    }
}

bool inside(const std::string& real, const std::string& root) {
    return real == root || (real.size() > root.size() && real.compare(0, root.size(), root) == 0 &&
                            real[root.size()] == '/');
}

// A path of the drive, checked and resolved.
struct Where {
    int drive = 0;
    std::string rel;   // "" root, "a/b"
    std::string host;  // folder + "/" + rel
};

int check_drive(Storage& s, int drive, int access) {
    if (drive < 0 || drive >= kDriveCount) return DVU_DIO_ERR_NO_DRIVE;
    if (access != DVU_DIO_ACCESS) return DVU_DIO_ERR_PARAM;
    if (!s.drives[drive].mounted) return DVU_DIO_ERR_NOT_MOUNTED;
    return DVU_DIO_OK;
}

int resolve(Storage& s, int drive, int access, const char* path, Where& w) {
    int rc = check_drive(s, drive, access);
    if (rc != DVU_DIO_OK) return rc;
    if (path == nullptr) return DVU_DIO_ERR_PARAM;
    std::size_t length = std::strlen(path);
    if (length >= kMaxPath) return DVU_DIO_ERR_NAME_TOO_LONG;
    if (path[0] == '/') return DVU_DIO_ERR_OUTSIDE;
    const Drive& d = s.drives[drive];
    std::vector<std::string> parts;
    auto walk = [&](const std::string& text) {
        std::size_t start = 0;
        while (start <= text.size()) {
            std::size_t end = text.find('/', start);
            if (end == std::string::npos) end = text.size();
            std::string part = text.substr(start, end - start);
            start = end + 1;
            if (part.empty() || part == ".") continue;
            if (part == "..") {
                if (parts.empty()) return false;
                parts.pop_back();
                continue;
            }
            parts.push_back(part);
        }
        return true;
    };
    if (!walk(d.cwd) || !walk(path)) return DVU_DIO_ERR_OUTSIDE;
    w.drive = drive;
    w.rel.clear();
    for (const std::string& p : parts) {
        if (p.size() >= DVU_DIO_NAME_SIZE) return DVU_DIO_ERR_NAME_TOO_LONG;
        if (!w.rel.empty()) w.rel += '/';
        w.rel += p;
    }
    make_folders(d.folder);
    char root_buf[PATH_MAX];
    if (::realpath(d.folder.c_str(), root_buf) == nullptr) return DVU_DIO_ERR_NOT_MOUNTED;
    std::string root(root_buf);
    w.host = root + (w.rel.empty() ? "" : "/" + w.rel);
    if (w.host.size() >= PATH_MAX) return DVU_DIO_ERR_NAME_TOO_LONG;
    // Every existing prefix must stay inside the folder once its links are followed; a link
    // that leads nowhere is refused as well, since following it could create outside.
    std::string prefix = root;
    for (const std::string& p : parts) {
        prefix += "/" + p;
        struct stat st;
        if (::lstat(prefix.c_str(), &st) != 0) break;
        if (!S_ISLNK(st.st_mode)) continue;
        char real[PATH_MAX];
        if (::realpath(prefix.c_str(), real) == nullptr) {
            return errno == ELOOP ? DVU_DIO_ERR_LOOP : DVU_DIO_ERR_OUTSIDE;
        }
        if (!inside(real, root)) return DVU_DIO_ERR_OUTSIDE;
    }
    return DVU_DIO_OK;
}

bool exists(const Where& w, struct stat* st) { return ::stat(w.host.c_str(), st) == 0; }

int stored_attrs(Storage& s, const Where& w) {
    auto it = s.attrs.find(attr_key(w.drive, w.rel));
    return it == s.attrs.end() ? 0 : it->second;
}

bool open_below(Storage& s, int drive, const std::string& rel) {
    for (auto& [h, f] : s.files) {
        if (f.removed || f.drive != drive) continue;
        if (f.rel == rel || (rel.empty() || f.rel.compare(0, rel.size() + 1, rel + "/") == 0)) return true;
    }
    return false;
}

void move_keys(Storage& s, int from_drive, const std::string& from, int to_drive, const std::string& to) {
    std::map<std::string, int> moved;
    const std::string key = attr_key(from_drive, from);
    for (auto it = s.attrs.begin(); it != s.attrs.end();) {
        if (it->first == key || it->first.compare(0, key.size() + 1, key + "/") == 0) {
            moved[attr_key(to_drive, to) + it->first.substr(key.size())] = it->second;
            it = s.attrs.erase(it);
        } else {
            ++it;
        }
    }
    for (auto& [k, v] : moved) s.attrs[k] = v;
    for (auto& [h, f] : s.files) {
        if (f.drive != from_drive) continue;
        if (f.rel == from || f.rel.compare(0, from.size() + 1, from + "/") == 0) {
            f.drive = to_drive;
            f.rel = to + f.rel.substr(from.size());
        }
    }
}

void forget_keys(Storage& s, int drive, const std::string& rel) {
    const std::string key = attr_key(drive, rel);
    for (auto it = s.attrs.begin(); it != s.attrs.end();) {
        if (it->first == key || it->first.compare(0, key.size() + 1, key + "/") == 0) {
            it = s.attrs.erase(it);
        } else {
            ++it;
        }
    }
}

void mark_removed(Storage& s, int drive) {
    for (auto& [h, f] : s.files) {
        if (f.drive == drive) f.removed = true;
    }
    for (auto& [h, d] : s.dirs) {
        if (d.drive == drive) d.removed = true;
    }
}

unsigned long new_handle(Storage& s) {
    unsigned long h = s.next_handle++;
    if (s.next_handle > 0xFFFFFFFFul) s.next_handle = 1;
    return h;
}

int copy_file(const std::string& from, const std::string& to) {
    int in = ::open(from.c_str(), O_RDONLY | O_CLOEXEC);
    if (in < 0) return from_errno(errno);
    int out = ::open(to.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, 0666);
    if (out < 0) {
        int e = errno;
        ::close(in);
        return from_errno(e);
    }
    char buf[65536];
    int rc = DVU_DIO_OK;
    for (;;) {
        ssize_t n = ::read(in, buf, sizeof buf);
        if (n < 0) {
            if (errno == EINTR) continue;
            rc = from_errno(errno);
            break;
        }
        if (n == 0) break;
        for (ssize_t off = 0; off < n;) {
            ssize_t w = ::write(out, buf + off, static_cast<std::size_t>(n - off));
            if (w < 0) {
                if (errno == EINTR) continue;
                rc = from_errno(errno);
                break;
            }
            off += w;
        }
        if (rc != DVU_DIO_OK) break;
    }
    ::close(in);
    ::close(out);
    if (rc != DVU_DIO_OK) ::unlink(to.c_str());
    return rc;
}

}  // namespace

void reset_locked_all() {
    Storage& s = storage();
    std::lock_guard<std::mutex> lock(s.mutex);
    for (auto& [h, f] : s.files) {
        if (f.fd >= 0) ::close(f.fd);
        resource_closed(kFileHandle);
    }
    for (std::size_t i = 0; i < s.dirs.size(); ++i) resource_closed(kDirectoryHandle);
    s.files.clear();
    s.dirs.clear();
    s.attrs.clear();
    s.max_files = kDefaultMaxFiles;
    s.max_dirs = kDefaultMaxDirectories;
    for (int d = 0; d < kDriveCount; ++d) {
        s.drives[d].folder = default_folder(d);
        s.drives[d].cwd.clear();
        s.drives[d].mounted = d == kHardDisk;
    }
}

}  // namespace dio

// ----- control -----

std::string storage_folder(int drive) {
    if (drive < 0 || drive >= kDriveCount) return std::string();
    dio::Storage& s = dio::storage();
    std::lock_guard<std::mutex> lock(s.mutex);
    return s.drives[drive].folder;
}

bool storage_set_folder(int drive, const std::string& folder) {
    if (drive < 0 || drive >= kDriveCount || folder.empty()) return false;
    dio::make_folders(folder);
    dio::Storage& s = dio::storage();
    std::lock_guard<std::mutex> lock(s.mutex);
    dio::mark_removed(s, drive);
    s.drives[drive].folder = folder;
    s.drives[drive].cwd.clear();
    return true;
}

namespace {
bool set_mounted(int drive, bool mounted, Answers* answers) {
    if (drive < 0 || drive >= kDriveCount || drive == kHardDisk) return false;
    {
        dio::Storage& s = dio::storage();
        std::lock_guard<std::mutex> lock(s.mutex);
        if (s.drives[drive].mounted == mounted) return false;
        s.drives[drive].mounted = mounted;
        s.drives[drive].cwd.clear();
        if (!mounted) dio::mark_removed(s, drive);
    }
    unsigned int status = usb_memory_status(drive, mounted);
    Answers a = common_facade().raise(
        [status](tarnwick::esv_zel_common_observer* o) { return o->notify_usb_memory_status(status); });
    if (answers) *answers = a;
    return true;
}
}  // namespace

bool storage_plug(int drive, Answers* answers) { return set_mounted(drive, true, answers); }
bool storage_unplug(int drive, Answers* answers) { return set_mounted(drive, false, answers); }

bool storage_mounted(int drive) {
    if (drive < 0 || drive >= kDriveCount) return false;
    dio::Storage& s = dio::storage();
    std::lock_guard<std::mutex> lock(s.mutex);
    return s.drives[drive].mounted;
}

void storage_set_limits(int max_files, int max_directories) {
    dio::Storage& s = dio::storage();
    std::lock_guard<std::mutex> lock(s.mutex);
    s.max_files = max_files;
    s.max_dirs = max_directories;
}

void storage_reset() { dio::reset_locked_all(); }

int storage_attributes(int drive, const std::string& path) {
    dio::Storage& s = dio::storage();
    std::lock_guard<std::mutex> lock(s.mutex);
    dio::Where w;
    bool was = drive >= 0 && drive < kDriveCount && s.drives[drive].mounted;
    if (!was) return -1;
    if (dio::resolve(s, drive, DVU_DIO_ACCESS, path.c_str(), w) != DVU_DIO_OK) return -1;
    struct stat st;
    if (!dio::exists(w, &st)) return -1;
    return dio::stored_attrs(s, w) | (S_ISDIR(st.st_mode) ? DVU_DIO_ATTR_DIRECTORY : 0);
}

void force_stat(int result, std::uint32_t mode, std::uint32_t size, std::uint32_t mtime, int times) {
    force("dvu_dio_stat", [=](const Params& p) -> long {
        if (result == 0 && p[3] != nullptr) {
            auto* st = static_cast<DVU_DIO_STAT*>(p[3]);
            st->dio_mode = mode;
            st->dio_size = size;
            st->dio_mtime = mtime;
        }
        return result;
    }, times);
}

void force_readdir_name(int result, const std::string& name_bytes, int times) {
    force("dvu_dio_readdir", [=](const Params& p) -> long {
        if (result == 0 && p[1] != nullptr) {
            auto* e = static_cast<DVU_DIO_DIRENT*>(p[1]);
            std::memset(e->d_name, 0, sizeof e->d_name);
            std::memcpy(e->d_name, name_bytes.data(), std::min(name_bytes.size(), sizeof e->d_name));
        }
        return result;
    }, times);
}

void force_handle(const std::string& op, int result, unsigned long handle, int times) {
    force(op, [=](const Params& p) -> long {
        if (result == 0 && p.back() != nullptr) *static_cast<unsigned long*>(p.back()) = handle;
        return result;
    }, times);
}

void force_done(const std::string& op, int result, unsigned long done, int times) {
    force(op, [=](const Params& p) -> long {
        if (result == 0 && p[3] != nullptr) *static_cast<unsigned long*>(p[3]) = done;
        return result;
    }, times);
}

void force_ftell(int result, long position, int times) {
    force("dvu_dio_ftell", [=](const Params& p) -> long {
        if (result == 0 && p[1] != nullptr) *static_cast<long*>(p[1]) = position;
        return result;
    }, times);
}

void force_attribute(int result, int raw, int times) {
    force("dvu_dio_getfileattribute", [=](const Params& p) -> long {
        if (result == 0 && p[3] != nullptr) *static_cast<int*>(p[3]) = raw;
        return result;
    }, times);
}

}  // namespace tovr_sim

// ----- the library -----

using tovr_sim::dio::OpenDir;
using tovr_sim::dio::OpenFile;
using tovr_sim::dio::Storage;
using tovr_sim::dio::Where;
using tovr_sim::dio::from_errno;
using tovr_sim::dio::resolve;
using tovr_sim::dio::storage;

extern "C" {

int dvu_dio_api_init(void) {
    TOVR_SIM_RECORD(int);
    return DVU_DIO_OK;
}

int dvu_dio_sync(void) {
    TOVR_SIM_RECORD(int);
    return DVU_DIO_OK;
}

int dvu_dio_verifydiskmount(int drive, int access) {
    TOVR_SIM_RECORD(int, drive, access);
    Storage& s = storage();
    std::lock_guard<std::mutex> lock(s.mutex);
    return tovr_sim::dio::check_drive(s, drive, access);
}

int dvu_dio_remove_disk(int drive) {
    TOVR_SIM_RECORD(int, drive);
    {
        Storage& s = storage();
        std::lock_guard<std::mutex> lock(s.mutex);
        if (drive < 0 || drive >= tovr_sim::kDriveCount) return DVU_DIO_ERR_NO_DRIVE;
        if (drive == tovr_sim::kHardDisk) return DVU_DIO_ERR_NOT_SUPPORTED;
        if (!s.drives[drive].mounted) return DVU_DIO_ERR_NOT_MOUNTED;
        for (auto& [h, f] : s.files) {
            if (f.drive == drive && !f.removed) return DVU_DIO_ERR_BUSY;
        }
        for (auto& [h, d] : s.dirs) {
            if (d.drive == drive && !d.removed) return DVU_DIO_ERR_BUSY;
        }
    }
    return tovr_sim::storage_unplug(drive) ? DVU_DIO_OK : DVU_DIO_ERR_NOT_MOUNTED;
}

int dvu_dio_chdir(int drive, int access, const char* path) {
    TOVR_SIM_RECORD(int, drive, access, path);
    Storage& s = storage();
    std::lock_guard<std::mutex> lock(s.mutex);
    Where w;
    int rc = resolve(s, drive, access, path, w);
    if (rc != DVU_DIO_OK) return rc;
    struct stat st;
    if (!tovr_sim::dio::exists(w, &st)) return from_errno(errno);
    if (!S_ISDIR(st.st_mode)) return DVU_DIO_ERR_NOT_DIR;
    s.drives[drive].cwd = w.rel;
    return DVU_DIO_OK;
}

int dvu_dio_mkdir(int drive, int access, const char* path) {
    TOVR_SIM_RECORD(int, drive, access, path);
    Storage& s = storage();
    std::lock_guard<std::mutex> lock(s.mutex);
    Where w;
    int rc = resolve(s, drive, access, path, w);
    if (rc != DVU_DIO_OK) return rc;
    if (w.rel.empty()) return DVU_DIO_ERR_EXISTS;
    if (::mkdir(w.host.c_str(), 0777) != 0) return from_errno(errno);
    return DVU_DIO_OK;
}

int dvu_dio_existfile(int drive, int access, const char* path) {
    TOVR_SIM_RECORD(int, drive, access, path);
    Storage& s = storage();
    std::lock_guard<std::mutex> lock(s.mutex);
    Where w;
    int rc = resolve(s, drive, access, path, w);
    if (rc != DVU_DIO_OK) return rc;
    struct stat st;
    return tovr_sim::dio::exists(w, &st) ? DVU_DIO_OK : DVU_DIO_ERR_NOT_FOUND;
}

int dvu_dio_remove(int drive, int access, const char* path) {
    TOVR_SIM_RECORD(int, drive, access, path);
    Storage& s = storage();
    std::lock_guard<std::mutex> lock(s.mutex);
    Where w;
    int rc = resolve(s, drive, access, path, w);
    if (rc != DVU_DIO_OK) return rc;
    if (w.rel.empty()) return DVU_DIO_ERR_NOT_SUPPORTED;
    struct stat st;
    if (::lstat(w.host.c_str(), &st) != 0) return from_errno(errno);
    if (tovr_sim::dio::stored_attrs(s, w) & DVU_DIO_ATTR_READONLY) return DVU_DIO_ERR_READ_ONLY;
    if (tovr_sim::dio::open_below(s, drive, w.rel)) return DVU_DIO_ERR_BUSY;
    int r = S_ISDIR(st.st_mode) ? ::rmdir(w.host.c_str()) : ::unlink(w.host.c_str());
    if (r != 0) return errno == EEXIST ? DVU_DIO_ERR_NOT_EMPTY : from_errno(errno);
    tovr_sim::dio::forget_keys(s, drive, w.rel);
    return DVU_DIO_OK;
}

int dvu_dio_rename(int drive, int access, const char* from, const char* to) {
    TOVR_SIM_RECORD(int, drive, access, from, to);
    Storage& s = storage();
    std::lock_guard<std::mutex> lock(s.mutex);
    Where a, b;
    int rc = resolve(s, drive, access, from, a);
    if (rc == DVU_DIO_OK) rc = resolve(s, drive, access, to, b);
    if (rc != DVU_DIO_OK) return rc;
    struct stat st;
    if (::lstat(a.host.c_str(), &st) != 0) return from_errno(errno);
    if (a.rel.empty() || b.rel.empty()) return DVU_DIO_ERR_NOT_SUPPORTED;
    if (::lstat(b.host.c_str(), &st) == 0) return DVU_DIO_ERR_EXISTS;
    if (b.rel.compare(0, a.rel.size() + 1, a.rel + "/") == 0) return DVU_DIO_ERR_PARAM;  // into itself
    if (::rename(a.host.c_str(), b.host.c_str()) != 0) return from_errno(errno);
    tovr_sim::dio::move_keys(s, drive, a.rel, drive, b.rel);
    return DVU_DIO_OK;
}

int dvu_dio_move(int from_drive, int from_access, const char* from, int to_drive, int to_access, const char* to) {
    TOVR_SIM_RECORD(int, from_drive, from_access, from, to_drive, to_access, to);
    Storage& s = storage();
    std::lock_guard<std::mutex> lock(s.mutex);
    Where a, b;
    int rc = resolve(s, from_drive, from_access, from, a);
    if (rc == DVU_DIO_OK) rc = resolve(s, to_drive, to_access, to, b);
    if (rc != DVU_DIO_OK) return rc;
    struct stat st;
    if (::lstat(a.host.c_str(), &st) != 0) return from_errno(errno);
    if (a.rel.empty() || b.rel.empty()) return DVU_DIO_ERR_NOT_SUPPORTED;
    struct stat target;
    if (::lstat(b.host.c_str(), &target) == 0) return DVU_DIO_ERR_EXISTS;
    if (from_drive == to_drive && b.rel.compare(0, a.rel.size() + 1, a.rel + "/") == 0) return DVU_DIO_ERR_PARAM;
    if (tovr_sim::dio::open_below(s, from_drive, a.rel)) return DVU_DIO_ERR_BUSY;
    if (::rename(a.host.c_str(), b.host.c_str()) != 0) {
        if (errno != EXDEV) return from_errno(errno);
        if (!S_ISREG(st.st_mode)) return DVU_DIO_ERR_NOT_SUPPORTED;  // folders across media
        rc = tovr_sim::dio::copy_file(a.host, b.host);
        if (rc != DVU_DIO_OK) return rc;
        ::unlink(a.host.c_str());
    }
    tovr_sim::dio::move_keys(s, from_drive, a.rel, to_drive, b.rel);
    return DVU_DIO_OK;
}

int dvu_dio_opendir(int drive, int access, const char* path, unsigned long* dir) {
    TOVR_SIM_RECORD(int, drive, access, path, dir);
    Storage& s = storage();
    std::lock_guard<std::mutex> lock(s.mutex);
    if (dir == nullptr) return DVU_DIO_ERR_PARAM;
    Where w;
    int rc = resolve(s, drive, access, path, w);
    if (rc != DVU_DIO_OK) return rc;
    struct stat st;
    if (!tovr_sim::dio::exists(w, &st)) return from_errno(errno);
    if (!S_ISDIR(st.st_mode)) return DVU_DIO_ERR_NOT_DIR;
    if (static_cast<int>(s.dirs.size()) >= s.max_dirs) return DVU_DIO_ERR_TOO_MANY_DIRS;
    DIR* d = ::opendir(w.host.c_str());
    if (d == nullptr) return from_errno(errno);
    OpenDir od;
    od.drive = drive;
    for (;;) {
        errno = 0;
        struct dirent* e = ::readdir(d);
        if (e == nullptr) break;
        if (std::strcmp(e->d_name, ".") == 0 || std::strcmp(e->d_name, "..") == 0) continue;
        od.entries.emplace_back(e->d_name, static_cast<std::uint32_t>(e->d_ino));
    }
    int read_errno = errno;
    ::closedir(d);
    if (read_errno != 0) return from_errno(read_errno);
    std::sort(od.entries.begin(), od.entries.end());
    unsigned long h = tovr_sim::dio::new_handle(s);
    s.dirs[h] = std::move(od);
    tovr_sim::resource_opened(tovr_sim::kDirectoryHandle);
    *dir = h;
    return DVU_DIO_OK;
}

int dvu_dio_readdir(unsigned long dir, DVU_DIO_DIRENT* entry) {
    TOVR_SIM_RECORD(int, dir, entry);
    Storage& s = storage();
    std::lock_guard<std::mutex> lock(s.mutex);
    if (entry == nullptr) return DVU_DIO_ERR_PARAM;
    auto it = s.dirs.find(dir);
    if (it == s.dirs.end()) return DVU_DIO_ERR_BAD_HANDLE;
    OpenDir& d = it->second;
    if (d.removed) return DVU_DIO_ERR_MEDIA_REMOVED;
    if (d.next >= d.entries.size()) return DVU_DIO_EOF;
    const auto& e = d.entries[d.next++];
    std::memset(entry, 0, sizeof *entry);
    entry->d_ino = e.second;
    std::memcpy(entry->d_name, e.first.data(), std::min(e.first.size(), sizeof entry->d_name - 1));
    return DVU_DIO_OK;
}

int dvu_dio_closedir(unsigned long dir) {
    TOVR_SIM_RECORD(int, dir);
    Storage& s = storage();
    std::lock_guard<std::mutex> lock(s.mutex);
    auto it = s.dirs.find(dir);
    if (it == s.dirs.end()) return DVU_DIO_ERR_BAD_HANDLE;
    s.dirs.erase(it);
    tovr_sim::resource_closed(tovr_sim::kDirectoryHandle);
    return DVU_DIO_OK;
}

int dvu_dio_fopen(int drive, int access, const char* path, int mode, unsigned long* file) {
    TOVR_SIM_RECORD(int, drive, access, path, mode, file);
    Storage& s = storage();
    std::lock_guard<std::mutex> lock(s.mutex);
    if (file == nullptr || mode < DVU_DIO_MODE_READ || mode > DVU_DIO_MODE_APPEND_READ) return DVU_DIO_ERR_PARAM;
    Where w;
    int rc = resolve(s, drive, access, path, w);
    if (rc != DVU_DIO_OK) return rc;
    if (w.rel.empty()) return DVU_DIO_ERR_IS_DIR;
    static const int flags[] = {O_RDONLY,
                                O_WRONLY | O_CREAT | O_TRUNC,
                                O_WRONLY | O_CREAT | O_APPEND,
                                O_RDWR,
                                O_RDWR | O_CREAT | O_TRUNC,
                                O_RDWR | O_CREAT | O_APPEND};
    const bool writes = mode != DVU_DIO_MODE_READ;
    struct stat st;
    bool existed = ::stat(w.host.c_str(), &st) == 0;
    if (existed && S_ISDIR(st.st_mode)) return DVU_DIO_ERR_IS_DIR;
    if (existed && !S_ISREG(st.st_mode)) return DVU_DIO_ERR_NOT_SUPPORTED;
    if (existed && writes && (tovr_sim::dio::stored_attrs(s, w) & DVU_DIO_ATTR_READONLY)) return DVU_DIO_ERR_READ_ONLY;
    if (existed && static_cast<std::uint64_t>(st.st_size) > tovr_sim::dio::kMaxSize) return DVU_DIO_ERR_TOO_LARGE;
    if (static_cast<int>(s.files.size()) >= s.max_files) return DVU_DIO_ERR_TOO_MANY_FILES;
    int fd = ::open(w.host.c_str(), flags[mode] | O_CLOEXEC | O_NOFOLLOW, 0666);
    if (fd < 0) return from_errno(errno);
    OpenFile f;
    f.fd = fd;
    f.drive = drive;
    f.rel = w.rel;
    f.can_read = mode == DVU_DIO_MODE_READ || mode >= DVU_DIO_MODE_READ_WRITE;
    f.can_write = writes;
    if (writes) s.attrs[tovr_sim::dio::attr_key(drive, w.rel)] |= DVU_DIO_ATTR_ARCHIVE;
    unsigned long h = tovr_sim::dio::new_handle(s);
    s.files[h] = f;
    tovr_sim::resource_opened(tovr_sim::kFileHandle);
    *file = h;
    return DVU_DIO_OK;
}

namespace {
int lookup(Storage& s, unsigned long file, OpenFile*& f) {
    auto it = s.files.find(file);
    if (it == s.files.end()) return DVU_DIO_ERR_BAD_HANDLE;
    if (it->second.removed) return DVU_DIO_ERR_MEDIA_REMOVED;
    f = &it->second;
    return DVU_DIO_OK;
}
}  // namespace

int dvu_dio_fread(void* buffer, unsigned long size, unsigned long file, unsigned long* done) {
    TOVR_SIM_RECORD(int, buffer, size, file, done);
    Storage& s = storage();
    std::lock_guard<std::mutex> lock(s.mutex);
    if (done == nullptr || (buffer == nullptr && size != 0)) return DVU_DIO_ERR_PARAM;
    OpenFile* f = nullptr;
    int rc = lookup(s, file, f);
    if (rc != DVU_DIO_OK) return rc;
    if (!f->can_read) return DVU_DIO_ERR_MODE;
    size = static_cast<std::uint32_t>(size);
    unsigned long total = 0;
    while (total < size) {
        ssize_t n = ::read(f->fd, static_cast<char*>(buffer) + total, size - total);
        if (n < 0) {
            if (errno == EINTR) continue;
            return from_errno(errno);
        }
        if (n == 0) break;
        total += static_cast<unsigned long>(n);
    }
    *done = total;
    return (total == 0 && size != 0) ? DVU_DIO_EOF : DVU_DIO_OK;
}

int dvu_dio_fwrite(const void* buffer, unsigned long size, unsigned long file, unsigned long* done) {
    TOVR_SIM_RECORD(int, buffer, size, file, done);
    Storage& s = storage();
    std::lock_guard<std::mutex> lock(s.mutex);
    if (done == nullptr || (buffer == nullptr && size != 0)) return DVU_DIO_ERR_PARAM;
    OpenFile* f = nullptr;
    int rc = lookup(s, file, f);
    if (rc != DVU_DIO_OK) return rc;
    if (!f->can_write) return DVU_DIO_ERR_MODE;
    size = static_cast<std::uint32_t>(size);
    off_t pos = ::lseek(f->fd, 0, SEEK_CUR);
    struct stat st;
    if (::fstat(f->fd, &st) == 0 && (::fcntl(f->fd, F_GETFL) & O_APPEND)) pos = st.st_size;
    if (static_cast<std::uint64_t>(pos) + size > tovr_sim::dio::kMaxSize) return DVU_DIO_ERR_TOO_LARGE;
    unsigned long total = 0;
    while (total < size) {
        ssize_t n = ::write(f->fd, static_cast<const char*>(buffer) + total, size - total);
        if (n < 0) {
            if (errno == EINTR) continue;
            return from_errno(errno);
        }
        total += static_cast<unsigned long>(n);
    }
    *done = total;
    return DVU_DIO_OK;
}

int dvu_dio_fseek(unsigned long file, long offset, int origin) {
    TOVR_SIM_RECORD(int, file, offset, origin);
    Storage& s = storage();
    std::lock_guard<std::mutex> lock(s.mutex);
    OpenFile* f = nullptr;
    int rc = lookup(s, file, f);
    if (rc != DVU_DIO_OK) return rc;
    std::int64_t base = 0;
    std::int64_t off = static_cast<std::int32_t>(offset);  // a 32-bit long on the device
    switch (origin) {
        case DVU_DIO_SEEK_SET: base = 0; break;
        case DVU_DIO_SEEK_CUR: base = ::lseek(f->fd, 0, SEEK_CUR); break;
        case DVU_DIO_SEEK_END: {
            struct stat st;
            if (::fstat(f->fd, &st) != 0) return from_errno(errno);
            base = st.st_size;
            break;
        }
        default: return DVU_DIO_ERR_PARAM;
    }
    std::int64_t target = base + off;
    if (target < 0) return DVU_DIO_ERR_SEEK;
    if (target > tovr_sim::dio::kMaxPosition) return DVU_DIO_ERR_TOO_LARGE;
    if (::lseek(f->fd, static_cast<off_t>(target), SEEK_SET) < 0) return from_errno(errno);
    return DVU_DIO_OK;
}

int dvu_dio_ftell(unsigned long file, long* position) {
    TOVR_SIM_RECORD(int, file, position);
    Storage& s = storage();
    std::lock_guard<std::mutex> lock(s.mutex);
    if (position == nullptr) return DVU_DIO_ERR_PARAM;
    OpenFile* f = nullptr;
    int rc = lookup(s, file, f);
    if (rc != DVU_DIO_OK) return rc;
    off_t pos = ::lseek(f->fd, 0, SEEK_CUR);
    if (pos < 0) return from_errno(errno);
    if (pos > tovr_sim::dio::kMaxPosition) return DVU_DIO_ERR_TOO_LARGE;
    *position = static_cast<long>(pos);
    return DVU_DIO_OK;
}

int dvu_dio_fflush(unsigned long file) {
    TOVR_SIM_RECORD(int, file);
    Storage& s = storage();
    std::lock_guard<std::mutex> lock(s.mutex);
    OpenFile* f = nullptr;
    return lookup(s, file, f);
}

int dvu_dio_fclose(unsigned long file) {
    TOVR_SIM_RECORD(int, file);
    Storage& s = storage();
    std::lock_guard<std::mutex> lock(s.mutex);
    auto it = s.files.find(file);
    if (it == s.files.end()) return DVU_DIO_ERR_BAD_HANDLE;
    ::close(it->second.fd);
    s.files.erase(it);
    tovr_sim::resource_closed(tovr_sim::kFileHandle);
    return DVU_DIO_OK;
}

int dvu_dio_stat(int drive, int access, const char* path, DVU_DIO_STAT* status) {
    TOVR_SIM_RECORD(int, drive, access, path, status);
    Storage& s = storage();
    std::lock_guard<std::mutex> lock(s.mutex);
    if (status == nullptr) return DVU_DIO_ERR_PARAM;
    Where w;
    int rc = resolve(s, drive, access, path, w);
    if (rc != DVU_DIO_OK) return rc;
    struct stat st;
    if (!tovr_sim::dio::exists(w, &st)) return from_errno(errno);
    if (S_ISREG(st.st_mode) && static_cast<std::uint64_t>(st.st_size) > tovr_sim::dio::kMaxSize) {
        return DVU_DIO_ERR_TOO_LARGE;
    }
    std::memset(status, 0, sizeof *status);
    std::uint32_t type = S_ISDIR(st.st_mode) ? DVU_DIO_S_IFDIR : S_ISREG(st.st_mode) ? DVU_DIO_S_IFREG : 0;
    status->dio_dev = static_cast<std::uint32_t>(drive);
    status->dio_ino = static_cast<std::uint32_t>(st.st_ino);
    status->dio_nlink = static_cast<std::uint32_t>(st.st_nlink);
    status->dio_mode = type | (st.st_mode & 0777);
    status->dio_attr = static_cast<std::uint32_t>(tovr_sim::dio::stored_attrs(s, w)) |
                      (S_ISDIR(st.st_mode) ? DVU_DIO_ATTR_DIRECTORY : 0);
    status->dio_size = S_ISREG(st.st_mode) ? static_cast<std::uint32_t>(st.st_size) : 0;
    auto secs = [](time_t t) { return t < 0 ? 0u : static_cast<std::uint32_t>(t); };
    status->dio_atime = secs(st.st_atime);
    status->dio_mtime = secs(st.st_mtime);
    status->dio_ctime = secs(st.st_ctime);
    status->dio_blksize = 512;
    status->dio_blocks = static_cast<std::uint32_t>((status->dio_size + 511) / 512);
    return DVU_DIO_OK;
}

int dvu_dio_setfileattribute(int drive, int access, const char* path, int attributes) {
    TOVR_SIM_RECORD(int, drive, access, path, attributes);
    Storage& s = storage();
    std::lock_guard<std::mutex> lock(s.mutex);
    Where w;
    int rc = resolve(s, drive, access, path, w);
    if (rc != DVU_DIO_OK) return rc;
    struct stat st;
    if (!tovr_sim::dio::exists(w, &st)) return from_errno(errno);
    if (w.rel.empty()) return DVU_DIO_ERR_NOT_SUPPORTED;
    // The directory bit is the entry's kind; bits above read-only do not exist.
    s.attrs[tovr_sim::dio::attr_key(drive, w.rel)] =
        attributes & (DVU_DIO_ATTR_ARCHIVE | DVU_DIO_ATTR_HIDDEN | DVU_DIO_ATTR_READONLY);
    return DVU_DIO_OK;
}

int dvu_dio_getfileattribute(int drive, int access, const char* path, int* attributes) {
    TOVR_SIM_RECORD(int, drive, access, path, attributes);
    Storage& s = storage();
    std::lock_guard<std::mutex> lock(s.mutex);
    if (attributes == nullptr) return DVU_DIO_ERR_PARAM;
    Where w;
    int rc = resolve(s, drive, access, path, w);
    if (rc != DVU_DIO_OK) return rc;
    struct stat st;
    if (!tovr_sim::dio::exists(w, &st)) return from_errno(errno);
    *attributes = tovr_sim::dio::stored_attrs(s, w) | (S_ISDIR(st.st_mode) ? DVU_DIO_ATTR_DIRECTORY : 0);
    return DVU_DIO_OK;
}

}  // extern "C"
