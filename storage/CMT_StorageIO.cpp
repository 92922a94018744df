#include "CMT_StorageIO.h"

#include "cmt_storage_names.h"
#include "tovr_field_text.h"
#include "dvu_dio.h"

namespace tarnwick {

namespace {

constexpr int kAccess = DVU_DIO_ACCESS;

// Paths reach the library as the medium's bytes (see cmt_storage_name_from_java).
std::string medium(const std::string& path) { return cmt_storage_name_from_java(path); }

// One fact of `path` read from its status into `out`, which keeps its value when the status
// cannot be read; the disk library's code.
template <typename T, typename Fact>
int stat_fact(int drive, const std::string& path, T& out, Fact fact) {
    DVU_DIO_STAT status{};
    const int rc = dvu_dio_stat(drive, kAccess, medium(path).c_str(), &status);
    if (rc == 0) out = fact(status);
    return rc;
}

}  // namespace

// Values outside the tables (negative ones included) take the stated defaults: the enumerations
// have an int base, so any int may arrive from Java.
int CMT_StorageIO::getDriveNumber(CMT_STORAGE_TYPE type) {
    static const int drives[] = {2, 1, 0};
    unsigned int i = static_cast<unsigned int>(type);
    return i < 3 ? drives[i] : 1;
}

int CMT_StorageIO::getDVUOpenMode(CMT_FOPEN_MODE mode) {
    static const int modes[] = {0, 1, 3, 2, 4, 5};
    unsigned int i = static_cast<unsigned int>(mode);
    return i < 6 ? modes[i] : -1;
}

int CMT_StorageIO::getCMTOpenMode(int mode) {
    static const int modes[] = {0, 1, 3, 2, 4, 5};
    unsigned int i = static_cast<unsigned int>(mode);
    return i < 6 ? modes[i] : 6;
}

int CMT_StorageIO::getDVUSeekMode(CMT_SEEK_MODE mode) {
    static const int modes[] = {1, 0, 2};
    unsigned int i = static_cast<unsigned int>(mode);
    return i < 3 ? modes[i] : 0;
}

int CMT_StorageIO::getReturnValue(int code) {
    if (code < -1 || code > 49) return CMTDIO_ERROR;
    if (code == -1) return CMTDIO_ERROR;
    if (code <= 23) return code;
    if (code == 24) return CMTDIO_ERROR;
    if (code <= 36) return code - 1;
    if (code <= 46) return CMTDIO_ERROR;
    return code - 11;  // 47, 48, 49 -> 36, 37, 38
}

int CMT_StorageIO::init() { return dvu_dio_api_init() == 0 ? 0 : -1; }

int CMT_StorageIO::sync() { return getReturnValue(dvu_dio_sync()); }

int CMT_StorageIO::verifydiskmount(CMT_STORAGE_TYPE type) {
    return getReturnValue(dvu_dio_verifydiskmount(getDriveNumber(type), kAccess));
}

int CMT_StorageIO::remove_disk(CMT_STORAGE_TYPE type) {
    return getReturnValue(dvu_dio_remove_disk(getDriveNumber(type)));
}

int CMT_StorageIO::chdir(CMT_STORAGE_TYPE type, const std::string& path) {
    return getReturnValue(dvu_dio_chdir(getDriveNumber(type), kAccess, medium(path).c_str()));
}

int CMT_StorageIO::mkdir(CMT_STORAGE_TYPE type, const std::string& path) {
    return getReturnValue(dvu_dio_mkdir(getDriveNumber(type), kAccess, medium(path).c_str()));
}

int CMT_StorageIO::existfile(CMT_STORAGE_TYPE type, const std::string& path) {
    return getReturnValue(dvu_dio_existfile(getDriveNumber(type), kAccess, medium(path).c_str()));
}

int CMT_StorageIO::remove(CMT_STORAGE_TYPE type, const std::string& path) {
    return getReturnValue(dvu_dio_remove(getDriveNumber(type), kAccess, medium(path).c_str()));
}

int CMT_StorageIO::rename(CMT_STORAGE_TYPE type, const std::string& from, const std::string& to) {
    return getReturnValue(
        dvu_dio_rename(getDriveNumber(type), kAccess, medium(from).c_str(), medium(to).c_str()));
}

int CMT_StorageIO::move(CMT_STORAGE_TYPE from_type, const std::string& from, CMT_STORAGE_TYPE to_type,
                        const std::string& to) {
    return getReturnValue(dvu_dio_move(getDriveNumber(from_type), kAccess, medium(from).c_str(),
                                       getDriveNumber(to_type), kAccess, medium(to).c_str()));
}

int CMT_StorageIO::opendir(CMT_STORAGE_TYPE type, const std::string& path, unsigned long& dir) {
    unsigned long handle = dir;
    int rc = dvu_dio_opendir(getDriveNumber(type), kAccess, medium(path).c_str(), &handle);
    if (rc == 0) dir = handle;
    return getReturnValue(rc);
}

std::string CMT_StorageIO::readdir(unsigned long dir, int& result) {
    DVU_DIO_DIRENT entry{};
    int rc = dvu_dio_readdir(dir, &entry);
    if (rc != 0) {
        result = getReturnValue(rc);
        return std::string();
    }
    result = 0;
    std::string name = cmt_storage_entry_name(entry);
    return to_modified_utf8(name.data(), name.size());
}

int CMT_StorageIO::closedir(unsigned long dir) { return getReturnValue(dvu_dio_closedir(dir)); }

int CMT_StorageIO::open(CMT_STORAGE_TYPE type, const std::string& path, CMT_FOPEN_MODE mode,
                        unsigned long& file) {
    unsigned long handle = file;
    int rc = dvu_dio_fopen(getDriveNumber(type), kAccess, medium(path).c_str(), getDVUOpenMode(mode), &handle);
    if (rc == 0) file = handle;
    return getReturnValue(rc);
}

int CMT_StorageIO::read(signed char* buffer, unsigned long size, unsigned long file, unsigned long& done) {
    unsigned long n = done;
    int rc = dvu_dio_fread(buffer, size, file, &n);
    if (rc == 0) done = n;
    return getReturnValue(rc);
}

int CMT_StorageIO::write(const signed char* buffer, unsigned long size, unsigned long file, unsigned long& done) {
    unsigned long n = done;
    int rc = dvu_dio_fwrite(buffer, size, file, &n);
    if (rc == 0) done = n;
    return getReturnValue(rc);
}

int CMT_StorageIO::fseek(unsigned long file, long offset, CMT_SEEK_MODE mode) {
    return getReturnValue(dvu_dio_fseek(file, offset, getDVUSeekMode(mode)));
}

int CMT_StorageIO::ftell(unsigned long file, long& position) {
    long p = position;
    int rc = dvu_dio_ftell(file, &p);
    if (rc == 0) position = p;
    return getReturnValue(rc);
}

int CMT_StorageIO::fflush(unsigned long file) { return getReturnValue(dvu_dio_fflush(file)); }

int CMT_StorageIO::close(unsigned long file) { return getReturnValue(dvu_dio_fclose(file)); }

int CMT_StorageIO::is_directory(CMT_STORAGE_TYPE type, const std::string& path, bool& yes) {
    return getReturnValue(stat_fact(getDriveNumber(type), path, yes, cmt_storage_is_directory));
}

int CMT_StorageIO::is_file(CMT_STORAGE_TYPE type, const std::string& path, bool& yes) {
    return getReturnValue(stat_fact(getDriveNumber(type), path, yes, cmt_storage_is_file));
}

int CMT_StorageIO::getfilesize(CMT_STORAGE_TYPE type, const std::string& path, unsigned long& size) {
    return getReturnValue(stat_fact(getDriveNumber(type), path, size, cmt_storage_size));
}

int CMT_StorageIO::getlastmodified(CMT_STORAGE_TYPE type, const std::string& path, unsigned long& time) {
    return getReturnValue(stat_fact(getDriveNumber(type), path, time, cmt_storage_mtime));
}

int CMT_StorageIO::setfileattribute(CMT_STORAGE_TYPE type, const std::string& path, int attributes) {
    return getReturnValue(
        dvu_dio_setfileattribute(getDriveNumber(type), kAccess, medium(path).c_str(), attributes & 15));
}

int CMT_StorageIO::getfileattribute(CMT_STORAGE_TYPE type, const std::string& path, int& attributes) {
    int raw = 0;
    int rc = dvu_dio_getfileattribute(getDriveNumber(type), kAccess, medium(path).c_str(), &raw);
    if (rc != 0) return getReturnValue(rc);
    attributes = raw & 15;
    return 0;
}

}  // namespace tarnwick
