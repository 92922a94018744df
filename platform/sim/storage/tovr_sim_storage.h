// Control interface of the simulated disk I/O library (the easy document box has its own,
// tovr_sim_box.h, which this header brings in as well).
//
// Test and tool code only. The drives are host folders: drive 2 (the hard disk) is always
// mounted; drives 0 and 1 (removable media) are mounted by plug() and unmounted by unplug()
// or by the library's dvu_dio_remove_disk, each raising the common facade's USB memory
// notification. Folders come from the environment variables below, else from folders under
// the build tree; tests set folders of their own with storage_set_folder().
#ifndef TOVR_SIM_STORAGE_H
#define TOVR_SIM_STORAGE_H

#include <cstdint>
#include <string>
#include <vector>

#include "tovr_sim.h"
#include "tovr_sim_box.h"

namespace tovr_sim {

// ---------------------------------------------------------------------------------------------
// Disk I/O

constexpr int kDriveCount = 3;
constexpr int kHardDisk = 2;
// Environment variables naming each drive's folder, by drive number.
constexpr const char* kDriveFolderVariables[kDriveCount] = {"TOVR_SIM_USB0", "TOVR_SIM_USB1", "TOVR_SIM_HDD"};

// Resource kinds counted by the disk I/O library.
// kFileHandle ("file handle") comes from tovr_sim.h.
constexpr const char* kDirectoryHandle = "directory handle";

// Status of the USB memory notification raised on plug and unplug:
// (drive << 8) | kUsbMemoryPlugged or kUsbMemoryRemoved.
constexpr unsigned int kUsbMemoryRemoved = 0;
constexpr unsigned int kUsbMemoryPlugged = 1;
inline unsigned int usb_memory_status(int drive, bool plugged) {
    return (static_cast<unsigned int>(drive) << 8) | (plugged ? kUsbMemoryPlugged : kUsbMemoryRemoved);
}

// Default limits of open handles.
constexpr int kDefaultMaxFiles = 16;
constexpr int kDefaultMaxDirectories = 8;

std::string storage_folder(int drive);
// Points a drive at `folder` (created when missing). Handles open on the drive become stale.
bool storage_set_folder(int drive, const std::string& folder);
// Mounts / unmounts a removable drive and raises the notification (answers of the observers
// returned). False, without a notification, for the hard disk, an unknown drive or no change.
bool storage_plug(int drive, Answers* answers = nullptr);
bool storage_unplug(int drive, Answers* answers = nullptr);
bool storage_mounted(int drive);
void storage_set_limits(int max_files, int max_directories);
// Closes every handle (counted as closed), unmounts the removable drives without a
// notification, forgets working directories and attributes, restores the limits and the
// folders of the environment.
void storage_reset();
// Attribute bits the library keeps for an entry (directory bit included); -1 when unknown.
int storage_attributes(int drive, const std::string& path);

// Typed forcings of the library's outputs: the next `times` calls answer `result` and, when
// it is 0, write the output as given.
void force_stat(int result, std::uint32_t mode, std::uint32_t size, std::uint32_t mtime, int times = 1);
// The entry name's bytes as they stand (no terminator added when they fill the field).
void force_readdir_name(int result, const std::string& name_bytes, int times = 1);
// "dvu_dio_fopen" or "dvu_dio_opendir": the handle written.
void force_handle(const std::string& op, int result, unsigned long handle, int times = 1);
// "dvu_dio_fread" or "dvu_dio_fwrite": the count written (nothing is read or written).
void force_done(const std::string& op, int result, unsigned long done, int times = 1);
void force_ftell(int result, long position, int times = 1);
void force_attribute(int result, int raw, int times = 1);

}  // namespace tovr_sim

#endif
