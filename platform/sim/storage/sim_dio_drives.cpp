// Simulated disk I/O library: the drive model. Drives are host folders; a path is resolved
// inside its drive's folder (absolute paths, ".." above the root and symbolic links that lead
// out are refused); handles are small numbers never used twice; attribute bits live in a side
// table.
//
// Large-file interfaces on 32-bit hosts too: a 32-bit readdir fails on folders whose entry
// offsets do not fit (ext4 hashes under qemu-ppc).
#define _FILE_OFFSET_BITS 64
#include "sim_dio_internal.h"

#ifndef TOVR_SIM_STORAGE_ROOT
#define TOVR_SIM_STORAGE_ROOT "/tmp/tovr-sim-storage"
#endif

namespace tovr_sim {
namespace dio {

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
        const long long got = transfer(sizeof buf, [&](std::size_t at) { return ::read(in, buf + at, sizeof buf - at); });
        const long long put = got <= 0 ? got : transfer(static_cast<std::size_t>(got), [&](std::size_t at) {
            return ::write(out, buf + at, static_cast<std::size_t>(got) - at);
        });
        if (got < 0 || put < 0) rc = from_errno(errno);
        if (got <= 0 || put < 0) break;
    }
    ::close(in);
    ::close(out);
    if (rc != DVU_DIO_OK) ::unlink(to.c_str());
    return rc;
}

void reset_locked_all() {
    Storage& s = storage();
    std::lock_guard<std::mutex> lock(s.mutex);
    for (auto& [h, f] : s.files) {
        if (f.fd >= 0) ::close(f.fd);
    }
    resource_closed(kFileHandle, s.files.size());
    resource_closed(kDirectoryHandle, s.dirs.size());
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
}  // namespace tovr_sim
