// Simulated disk I/O library: the control interface of tests and tools (drive folders,
// plugging removable media with its notification, limits, typed forcings of the outputs).
#define _FILE_OFFSET_BITS 64
#include <cstddef>

#include "sim_dio_internal.h"
#include "tovr_sim_common.h"

namespace tovr_sim {

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
    Answers a = raise_usb_memory_status(usb_memory_status(drive, mounted));
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

namespace {
const bool registered = register_service(Service{"storage", storage_reset, nullptr});
}  // namespace

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
    force_outputs_on_success("dvu_dio_stat", result,
                     {output_value(3, mode, offsetof(DVU_DIO_STAT, dio_mode)),
                      output_value(3, size, offsetof(DVU_DIO_STAT, dio_size)),
                      output_value(3, mtime, offsetof(DVU_DIO_STAT, dio_mtime))},
                     times);
}

void force_readdir_name(int result, const std::string& name_bytes, int times) {
    const std::size_t field = sizeof(DVU_DIO_DIRENT::d_name);
    force_outputs_on_success("dvu_dio_readdir", result,
                     {output_bytes(1, "bytes[" + std::to_string(field) + "]",
                                   std::vector<unsigned char>(name_bytes.begin(), name_bytes.end()),
                                   offsetof(DVU_DIO_DIRENT, d_name))},
                     times);
}

void force_handle(const std::string& op, int result, unsigned long handle, int times) {
    force_outputs_on_success(op, result, {output_value(-1, handle)}, times);
}

void force_done(const std::string& op, int result, unsigned long done, int times) {
    force_outputs_on_success(op, result, {output_value(3, done)}, times);
}

void force_ftell(int result, long position, int times) {
    force_outputs_on_success("dvu_dio_ftell", result, {output_value(1, position)}, times);
}

void force_attribute(int result, int raw, int times) {
    force_outputs_on_success("dvu_dio_getfileattribute", result, {output_value(3, raw)}, times);
}

}  // namespace tovr_sim
