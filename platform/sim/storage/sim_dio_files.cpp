// Simulated disk I/O library, its functions on open files: sizes and positions are 32-bit
// values, read-only is enforced.
#define _FILE_OFFSET_BITS 64
#include "sim_dio_internal.h"

// The functions of the library work on the drive model directly.
using namespace tovr_sim::dio;

extern "C" {

int dvu_dio_fopen(int drive, int access, const char* path, int mode, unsigned long* file) {
    TOVR_SIM_RECORD(int, drive, access, path, mode, file);
    if (file == nullptr || mode < DVU_DIO_MODE_READ || mode > DVU_DIO_MODE_APPEND_READ) return DVU_DIO_ERR_PARAM;
    PathCall c(drive, access, path);
    if (c.rc != DVU_DIO_OK) return c.rc;
    if (c.w.rel.empty()) return DVU_DIO_ERR_IS_DIR;
    static const int flags[] = {O_RDONLY,
                                O_WRONLY | O_CREAT | O_TRUNC,
                                O_WRONLY | O_CREAT | O_APPEND,
                                O_RDWR,
                                O_RDWR | O_CREAT | O_TRUNC,
                                O_RDWR | O_CREAT | O_APPEND};
    const bool writes = mode != DVU_DIO_MODE_READ;
    struct stat st;
    bool existed = ::stat(c.w.host.c_str(), &st) == 0;
    if (existed && S_ISDIR(st.st_mode)) return DVU_DIO_ERR_IS_DIR;
    if (existed && !S_ISREG(st.st_mode)) return DVU_DIO_ERR_NOT_SUPPORTED;
    if (existed && writes && (tovr_sim::dio::stored_attrs(c.s, c.w) & DVU_DIO_ATTR_READONLY)) return DVU_DIO_ERR_READ_ONLY;
    if (existed && static_cast<std::uint64_t>(st.st_size) > tovr_sim::dio::kMaxSize) return DVU_DIO_ERR_TOO_LARGE;
    if (static_cast<int>(c.s.files.size()) >= c.s.max_files) return DVU_DIO_ERR_TOO_MANY_FILES;
    int fd = ::open(c.w.host.c_str(), flags[mode] | O_CLOEXEC | O_NOFOLLOW, 0666);
    if (fd < 0) return from_errno(errno);
    OpenFile f;
    f.fd = fd;
    f.drive = drive;
    f.rel = c.w.rel;
    f.can_read = mode == DVU_DIO_MODE_READ || mode >= DVU_DIO_MODE_READ_WRITE;
    f.can_write = writes;
    if (writes) c.s.attrs[tovr_sim::dio::attr_key(drive, c.w.rel)] |= DVU_DIO_ATTR_ARCHIVE;
    unsigned long h = tovr_sim::dio::new_handle(c.s);
    c.s.files[h] = f;
    tovr_sim::resource_opened(tovr_sim::kFileHandle);
    *file = h;
    return DVU_DIO_OK;
}

namespace {

// One call on an open file: the drive model locked for the call, the file looked up (`rc` not
// DVU_DIO_OK: the call answers it, `f` is null).
struct FileCall {
    explicit FileCall(unsigned long file) : s(storage()), lock(s.mutex) {
        auto it = s.files.find(file);
        rc = it == s.files.end() ? DVU_DIO_ERR_BAD_HANDLE : it->second.removed ? DVU_DIO_ERR_MEDIA_REMOVED : DVU_DIO_OK;
        if (rc == DVU_DIO_OK) f = &it->second;
    }
    Storage& s;
    std::lock_guard<std::mutex> lock;
    OpenFile* f = nullptr;
    int rc;
};

// A read or write of `size` bytes of `buffer` on an open file: its parameters checked, the file
// looked up and open for it (`may`: can_read or can_write), the size a 32-bit value as on the
// device.
struct TransferCall : FileCall {
    TransferCall(const void* buffer, unsigned long size, unsigned long file, const unsigned long* done,
                 bool OpenFile::*may)
        : FileCall(file), size(static_cast<std::uint32_t>(size)) {
        if (done == nullptr || (buffer == nullptr && size != 0)) {
            rc = DVU_DIO_ERR_PARAM;
        } else if (rc == DVU_DIO_OK && !(f->*may)) {
            rc = DVU_DIO_ERR_MODE;
        }
    }
    unsigned long size;
};

}  // namespace

int dvu_dio_fread(void* buffer, unsigned long size, unsigned long file, unsigned long* done) {
    TOVR_SIM_RECORD(int, buffer, size, file, done);
    TransferCall c(buffer, size, file, done, &OpenFile::can_read);
    if (c.rc != DVU_DIO_OK) return c.rc;
    const long long n =
        transfer(c.size, [&](std::size_t at) { return ::read(c.f->fd, static_cast<char*>(buffer) + at, c.size - at); });
    if (n < 0) return from_errno(errno);
    *done = static_cast<unsigned long>(n);
    return (n == 0 && c.size != 0) ? DVU_DIO_EOF : DVU_DIO_OK;
}

int dvu_dio_fwrite(const void* buffer, unsigned long size, unsigned long file, unsigned long* done) {
    TOVR_SIM_RECORD(int, buffer, size, file, done);
    TransferCall c(buffer, size, file, done, &OpenFile::can_write);
    if (c.rc != DVU_DIO_OK) return c.rc;
    off_t pos = ::lseek(c.f->fd, 0, SEEK_CUR);
    struct stat st;
    if (::fstat(c.f->fd, &st) == 0 && (::fcntl(c.f->fd, F_GETFL) & O_APPEND)) pos = st.st_size;
    if (static_cast<std::uint64_t>(pos) + c.size > tovr_sim::dio::kMaxSize) return DVU_DIO_ERR_TOO_LARGE;
    const long long n = transfer(
        c.size, [&](std::size_t at) { return ::write(c.f->fd, static_cast<const char*>(buffer) + at, c.size - at); });
    if (n < 0) return from_errno(errno);
    *done = static_cast<unsigned long>(n);
    return DVU_DIO_OK;
}

int dvu_dio_fseek(unsigned long file, long offset, int origin) {
    TOVR_SIM_RECORD(int, file, offset, origin);
    FileCall c(file);
    if (c.rc != DVU_DIO_OK) return c.rc;
    std::int64_t base = 0;
    std::int64_t off = static_cast<std::int32_t>(offset);  // a 32-bit long on the device
    switch (origin) {
        case DVU_DIO_SEEK_SET: base = 0; break;
        case DVU_DIO_SEEK_CUR: base = ::lseek(c.f->fd, 0, SEEK_CUR); break;
        case DVU_DIO_SEEK_END: {
            struct stat st;
            if (::fstat(c.f->fd, &st) != 0) return from_errno(errno);
            base = st.st_size;
            break;
        }
        default: return DVU_DIO_ERR_PARAM;
    }
    std::int64_t target = base + off;
    if (target < 0) return DVU_DIO_ERR_SEEK;
    if (target > tovr_sim::dio::kMaxPosition) return DVU_DIO_ERR_TOO_LARGE;
    if (::lseek(c.f->fd, static_cast<off_t>(target), SEEK_SET) < 0) return from_errno(errno);
    return DVU_DIO_OK;
}

int dvu_dio_ftell(unsigned long file, long* position) {
    TOVR_SIM_RECORD(int, file, position);
    if (position == nullptr) return DVU_DIO_ERR_PARAM;
    FileCall c(file);
    if (c.rc != DVU_DIO_OK) return c.rc;
    off_t pos = ::lseek(c.f->fd, 0, SEEK_CUR);
    if (pos < 0) return from_errno(errno);
    if (pos > tovr_sim::dio::kMaxPosition) return DVU_DIO_ERR_TOO_LARGE;
    *position = static_cast<long>(pos);
    return DVU_DIO_OK;
}

int dvu_dio_fflush(unsigned long file) {
    TOVR_SIM_RECORD(int, file);
    return FileCall(file).rc;
}

int dvu_dio_fclose(unsigned long file) {
    TOVR_SIM_RECORD(int, file);
    return tovr_sim::dio::close_handle(&Storage::files, file, tovr_sim::kFileHandle, [](OpenFile& f) { ::close(f.fd); });
}

int dvu_dio_stat(int drive, int access, const char* path, DVU_DIO_STAT* status) {
    TOVR_SIM_RECORD(int, drive, access, path, status);
    if (status == nullptr) return DVU_DIO_ERR_PARAM;
    EntryCall c(drive, access, path);
    if (c.rc != DVU_DIO_OK) return c.rc;
    if (S_ISREG(c.st.st_mode) && static_cast<std::uint64_t>(c.st.st_size) > tovr_sim::dio::kMaxSize) {
        return DVU_DIO_ERR_TOO_LARGE;
    }
    std::memset(status, 0, sizeof *status);
    std::uint32_t type = S_ISDIR(c.st.st_mode) ? DVU_DIO_S_IFDIR : S_ISREG(c.st.st_mode) ? DVU_DIO_S_IFREG : 0;
    status->dio_dev = static_cast<std::uint32_t>(drive);
    status->dio_ino = static_cast<std::uint32_t>(c.st.st_ino);
    status->dio_nlink = static_cast<std::uint32_t>(c.st.st_nlink);
    status->dio_mode = type | (c.st.st_mode & 0777);
    status->dio_attr = static_cast<std::uint32_t>(tovr_sim::dio::stored_attrs(c.s, c.w)) |
                      (S_ISDIR(c.st.st_mode) ? DVU_DIO_ATTR_DIRECTORY : 0);
    status->dio_size = S_ISREG(c.st.st_mode) ? static_cast<std::uint32_t>(c.st.st_size) : 0;
    auto secs = [](time_t t) { return t < 0 ? 0u : static_cast<std::uint32_t>(t); };
    status->dio_atime = secs(c.st.st_atime);
    status->dio_mtime = secs(c.st.st_mtime);
    status->dio_ctime = secs(c.st.st_ctime);
    status->dio_blksize = 512;
    status->dio_blocks = static_cast<std::uint32_t>((status->dio_size + 511) / 512);
    return DVU_DIO_OK;
}

int dvu_dio_setfileattribute(int drive, int access, const char* path, int attributes) {
    TOVR_SIM_RECORD(int, drive, access, path, attributes);
    EntryCall c(drive, access, path);
    if (c.rc != DVU_DIO_OK) return c.rc;
    if (c.w.rel.empty()) return DVU_DIO_ERR_NOT_SUPPORTED;
    // The directory bit is the entry's kind; bits above read-only do not exist.
    c.s.attrs[tovr_sim::dio::attr_key(drive, c.w.rel)] =
        attributes & (DVU_DIO_ATTR_ARCHIVE | DVU_DIO_ATTR_HIDDEN | DVU_DIO_ATTR_READONLY);
    return DVU_DIO_OK;
}

int dvu_dio_getfileattribute(int drive, int access, const char* path, int* attributes) {
    TOVR_SIM_RECORD(int, drive, access, path, attributes);
    if (attributes == nullptr) return DVU_DIO_ERR_PARAM;
    EntryCall c(drive, access, path);
    if (c.rc != DVU_DIO_OK) return c.rc;
    *attributes = tovr_sim::dio::stored_attrs(c.s, c.w) | (S_ISDIR(c.st.st_mode) ? DVU_DIO_ATTR_DIRECTORY : 0);
    return DVU_DIO_OK;
}

}  // extern "C"
