// Simulated disk I/O library, its functions on open files: sizes and positions are 32-bit
// values, read-only is enforced.
#define _FILE_OFFSET_BITS 64
#include "sim_dio_internal.h"

// The functions of the library work on the drive model directly.
using namespace tovr_sim::dio;

extern "C" {

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
