// Simulated disk I/O library, its functions on drives, paths and directories (the drive model
// is in sim_dio_drives.cpp, files in sim_dio_files.cpp).
//
// Large-file interfaces on 32-bit hosts too (see sim_dio_drives.cpp).
#define _FILE_OFFSET_BITS 64
#include <dirent.h>

#include "sim_dio_internal.h"

// The functions of the library work on the drive model directly.
using namespace tovr_sim::dio;

namespace {

// A call that moves an entry from path `a` to path `b`, with the checks renaming and moving
// share: the drive model locked for the call, both paths resolved, `a` there (its status in
// `st`), neither a root, `b` not there, `b` not inside `a` (`rc` not DVU_DIO_OK: the call
// answers it).
struct MoveCall {
    MoveCall(int from_drive, int from_access, const char* from, int to_drive, int to_access, const char* to)
        : s(storage()), lock(s.mutex) {
        rc = resolve(s, from_drive, from_access, from, a);
        if (rc == DVU_DIO_OK) rc = resolve(s, to_drive, to_access, to, b);
        if (rc != DVU_DIO_OK) return;
        struct stat target;
        if (::lstat(a.host.c_str(), &st) != 0) {
            rc = from_errno(errno);
        } else if (a.rel.empty() || b.rel.empty()) {
            rc = DVU_DIO_ERR_NOT_SUPPORTED;
        } else if (::lstat(b.host.c_str(), &target) == 0) {
            rc = DVU_DIO_ERR_EXISTS;
        } else if (from_drive == to_drive && b.rel.compare(0, a.rel.size() + 1, a.rel + "/") == 0) {
            rc = DVU_DIO_ERR_PARAM;  // into itself
        }
    }
    Storage& s;
    std::lock_guard<std::mutex> lock;
    Where a, b;
    struct stat st;
    int rc;
};

}  // namespace

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
    EntryCall c(drive, access, path);
    if (c.rc != DVU_DIO_OK) return c.rc;
    if (!S_ISDIR(c.st.st_mode)) return DVU_DIO_ERR_NOT_DIR;
    c.s.drives[drive].cwd = c.w.rel;
    return DVU_DIO_OK;
}

int dvu_dio_mkdir(int drive, int access, const char* path) {
    TOVR_SIM_RECORD(int, drive, access, path);
    PathCall c(drive, access, path);
    if (c.rc != DVU_DIO_OK) return c.rc;
    if (c.w.rel.empty()) return DVU_DIO_ERR_EXISTS;
    if (::mkdir(c.w.host.c_str(), 0777) != 0) return from_errno(errno);
    return DVU_DIO_OK;
}

int dvu_dio_existfile(int drive, int access, const char* path) {
    TOVR_SIM_RECORD(int, drive, access, path);
    PathCall c(drive, access, path);
    if (c.rc != DVU_DIO_OK) return c.rc;
    struct stat st;
    return tovr_sim::dio::exists(c.w, &st) ? DVU_DIO_OK : DVU_DIO_ERR_NOT_FOUND;
}

int dvu_dio_remove(int drive, int access, const char* path) {
    TOVR_SIM_RECORD(int, drive, access, path);
    PathCall c(drive, access, path);
    if (c.rc != DVU_DIO_OK) return c.rc;
    if (c.w.rel.empty()) return DVU_DIO_ERR_NOT_SUPPORTED;
    struct stat st;
    if (::lstat(c.w.host.c_str(), &st) != 0) return from_errno(errno);
    if (tovr_sim::dio::stored_attrs(c.s, c.w) & DVU_DIO_ATTR_READONLY) return DVU_DIO_ERR_READ_ONLY;
    if (tovr_sim::dio::open_below(c.s, drive, c.w.rel)) return DVU_DIO_ERR_BUSY;
    int r = S_ISDIR(st.st_mode) ? ::rmdir(c.w.host.c_str()) : ::unlink(c.w.host.c_str());
    if (r != 0) return errno == EEXIST ? DVU_DIO_ERR_NOT_EMPTY : from_errno(errno);
    tovr_sim::dio::forget_keys(c.s, drive, c.w.rel);
    return DVU_DIO_OK;
}

int dvu_dio_rename(int drive, int access, const char* from, const char* to) {
    TOVR_SIM_RECORD(int, drive, access, from, to);
    MoveCall c(drive, access, from, drive, access, to);
    if (c.rc != DVU_DIO_OK) return c.rc;
    if (::rename(c.a.host.c_str(), c.b.host.c_str()) != 0) return from_errno(errno);
    tovr_sim::dio::move_keys(c.s, drive, c.a.rel, drive, c.b.rel);
    return DVU_DIO_OK;
}

int dvu_dio_move(int from_drive, int from_access, const char* from, int to_drive, int to_access, const char* to) {
    TOVR_SIM_RECORD(int, from_drive, from_access, from, to_drive, to_access, to);
    MoveCall c(from_drive, from_access, from, to_drive, to_access, to);
    if (c.rc != DVU_DIO_OK) return c.rc;
    if (tovr_sim::dio::open_below(c.s, from_drive, c.a.rel)) return DVU_DIO_ERR_BUSY;
    if (::rename(c.a.host.c_str(), c.b.host.c_str()) != 0) {
        if (errno != EXDEV) return from_errno(errno);
        if (!S_ISREG(c.st.st_mode)) return DVU_DIO_ERR_NOT_SUPPORTED;  // folders across media
        int rc = tovr_sim::dio::copy_file(c.a.host, c.b.host);
        if (rc != DVU_DIO_OK) return rc;
        ::unlink(c.a.host.c_str());
    }
    tovr_sim::dio::move_keys(c.s, from_drive, c.a.rel, to_drive, c.b.rel);
    return DVU_DIO_OK;
}

int dvu_dio_opendir(int drive, int access, const char* path, unsigned long* dir) {
    TOVR_SIM_RECORD(int, drive, access, path, dir);
    if (dir == nullptr) return DVU_DIO_ERR_PARAM;
    EntryCall c(drive, access, path);
    if (c.rc != DVU_DIO_OK) return c.rc;
    if (!S_ISDIR(c.st.st_mode)) return DVU_DIO_ERR_NOT_DIR;
    if (static_cast<int>(c.s.dirs.size()) >= c.s.max_dirs) return DVU_DIO_ERR_TOO_MANY_DIRS;
    DIR* d = ::opendir(c.w.host.c_str());
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
    unsigned long h = tovr_sim::dio::new_handle(c.s);
    c.s.dirs[h] = std::move(od);
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
    return tovr_sim::dio::close_handle(&Storage::dirs, dir, tovr_sim::kDirectoryHandle, [](OpenDir&) {});
}

}  // extern "C"
