// Disk I/O library of the device: files, directories, attributes and the mounts of removable
// media and the internal disk.
//
// Drives: 2 is the built-in hard disk (always mounted), 0 and 1 are removable media. Every call
// that names a drive (except dvu_dio_remove_disk) takes the fixed value DVU_DIO_ACCESS (34)
// right after the drive number. Handles are small 32-bit numbers, never addresses; a closed
// handle stays invalid. Sizes, positions and times are 32-bit values, as on the device.
#ifndef DVU_DIO_H
#define DVU_DIO_H

#include <stdint.h>

#ifdef __cplusplus
#include "esv_zel_layout.h"
#endif

#ifdef __cplusplus
extern "C" {
#endif

// The fixed second argument of every call that names a drive.
#define DVU_DIO_ACCESS 34

// Result codes: one code per condition. Codes not listed are reserved.
#define DVU_DIO_ERROR (-1)              // unspecified failure
#define DVU_DIO_OK 0
#define DVU_DIO_EOF 1                   // end of file (read) or of a directory (readdir)
#define DVU_DIO_ERR_PARAM 2             // null output, fixed argument not 34, unknown open or seek mode
#define DVU_DIO_ERR_NO_DRIVE 3          // drive number other than 0, 1, 2
#define DVU_DIO_ERR_NOT_MOUNTED 4       // removable drive without medium
#define DVU_DIO_ERR_NOT_FOUND 5         // no such file or directory (or a missing parent)
#define DVU_DIO_ERR_EXISTS 6            // the target name exists already
#define DVU_DIO_ERR_NOT_DIR 7           // a directory was needed
#define DVU_DIO_ERR_IS_DIR 8            // a file was needed
#define DVU_DIO_ERR_NOT_EMPTY 9         // directory not empty
#define DVU_DIO_ERR_READ_ONLY 10        // the read-only attribute forbids the change
#define DVU_DIO_ERR_ACCESS 11           // the medium refuses access
#define DVU_DIO_ERR_BAD_HANDLE 12       // unknown, closed or wrong-kind handle
#define DVU_DIO_ERR_TOO_MANY_FILES 13   // open-file limit reached
#define DVU_DIO_ERR_TOO_MANY_DIRS 14    // open-directory limit reached
#define DVU_DIO_ERR_NAME_TOO_LONG 15    // path or name too long
#define DVU_DIO_ERR_NO_SPACE 16         // medium full
#define DVU_DIO_ERR_IO 17               // medium read or write error
#define DVU_DIO_ERR_SEEK 18             // position would be negative
#define DVU_DIO_ERR_MODE 19             // handle not opened for this (read on write-only ...)
#define DVU_DIO_ERR_BUSY 20             // file or medium in use (open file removed, medium ejected)
#define DVU_DIO_ERR_TOO_LARGE 21        // size or position beyond 32 bits
#define DVU_DIO_ERR_LOOP 22             // too many symbolic links
#define DVU_DIO_ERR_NOT_SUPPORTED 23    // not possible on this drive or entry kind
#define DVU_DIO_ERR_OUTSIDE 24          // path leads outside the drive (absolute, .., link)
#define DVU_DIO_ERR_INTERNAL 40         // host failure without a code of its own
#define DVU_DIO_ERR_MEDIA_REMOVED 47    // the handle's medium was removed

// Open modes.
#define DVU_DIO_MODE_READ 0             // read; the file must exist
#define DVU_DIO_MODE_WRITE 1            // write; created or emptied
#define DVU_DIO_MODE_APPEND 2           // write at the end; created when missing
#define DVU_DIO_MODE_READ_WRITE 3       // read and write; the file must exist
#define DVU_DIO_MODE_WRITE_READ 4       // read and write; created or emptied
#define DVU_DIO_MODE_APPEND_READ 5      // read anywhere, write at the end; created when missing

// Seek origins.
#define DVU_DIO_SEEK_SET 0
#define DVU_DIO_SEEK_CUR 1
#define DVU_DIO_SEEK_END 2

// Attribute bits (dvu_dio_getfileattribute; the directory bit is the entry's kind and cannot
// be set).
#define DVU_DIO_ATTR_DIRECTORY 0x01
#define DVU_DIO_ATTR_ARCHIVE 0x02
#define DVU_DIO_ATTR_HIDDEN 0x04
#define DVU_DIO_ATTR_READONLY 0x08

// File type bits of the status record's mode.
#define DVU_DIO_S_IFMT 0xF000
#define DVU_DIO_S_IFDIR 0x4000
#define DVU_DIO_S_IFREG 0x8000

// Status record (dvu_dio_stat): 64 bytes.
typedef struct DVU_DIO_STAT {
    uint32_t dio_dev;          // 0
    uint32_t dio_ino;          // 4
    uint32_t dio_nlink;        // 8
    uint32_t dio_mode;         // 12: type bits 0xF000 and permission bits
    uint32_t dio_uid;          // 16
    uint32_t dio_gid;          // 20
    uint32_t dio_attr;         // 24: attribute bits
    uint32_t dio_reserved[3];  // 28
    uint32_t dio_size;         // 40: bytes
    uint32_t dio_atime;        // 44
    uint32_t dio_blksize;      // 48
    uint32_t dio_blocks;       // 52
    uint32_t dio_mtime;        // 56: seconds since 1970
    uint32_t dio_ctime;        // 60
} DVU_DIO_STAT;

#define DVU_DIO_STAT_SIZE 64
#define DVU_DIO_NAME_SIZE 256  // longest entry name 255 bytes, NUL-terminated

// Directory entry (dvu_dio_readdir): 260 bytes.
typedef struct DVU_DIO_DIRENT {
    uint32_t d_ino;                      // 0
    char d_name[DVU_DIO_NAME_SIZE];      // 4: NUL-terminated
} DVU_DIO_DIRENT;

#define DVU_DIO_DIRENT_SIZE 260

#ifdef __cplusplus
ESV_ZEL_LAYOUT(DVU_DIO_STAT, dio_mode, 12);
ESV_ZEL_LAYOUT(DVU_DIO_STAT, dio_size, 40);
ESV_ZEL_LAYOUT(DVU_DIO_STAT, dio_mtime, 56);
ESV_ZEL_SIZE(DVU_DIO_STAT, DVU_DIO_STAT_SIZE);
ESV_ZEL_LAYOUT(DVU_DIO_DIRENT, d_name, 4);
ESV_ZEL_SIZE(DVU_DIO_DIRENT, DVU_DIO_DIRENT_SIZE);
#endif

int dvu_dio_api_init(void);
int dvu_dio_sync(void);
int dvu_dio_verifydiskmount(int drive, int access);
int dvu_dio_remove_disk(int drive);
int dvu_dio_chdir(int drive, int access, const char* path);
int dvu_dio_mkdir(int drive, int access, const char* path);
int dvu_dio_existfile(int drive, int access, const char* path);
int dvu_dio_remove(int drive, int access, const char* path);
int dvu_dio_rename(int drive, int access, const char* from, const char* to);
int dvu_dio_move(int from_drive, int from_access, const char* from, int to_drive, int to_access,
                 const char* to);
int dvu_dio_opendir(int drive, int access, const char* path, unsigned long* dir);
int dvu_dio_readdir(unsigned long dir, DVU_DIO_DIRENT* entry);
int dvu_dio_closedir(unsigned long dir);
int dvu_dio_fopen(int drive, int access, const char* path, int mode, unsigned long* file);
int dvu_dio_fread(void* buffer, unsigned long size, unsigned long file, unsigned long* done);
int dvu_dio_fwrite(const void* buffer, unsigned long size, unsigned long file, unsigned long* done);
int dvu_dio_fseek(unsigned long file, long offset, int origin);
int dvu_dio_ftell(unsigned long file, long* position);
int dvu_dio_fflush(unsigned long file);
int dvu_dio_fclose(unsigned long file);
int dvu_dio_stat(int drive, int access, const char* path, DVU_DIO_STAT* status);
int dvu_dio_setfileattribute(int drive, int access, const char* path, int attributes);
int dvu_dio_getfileattribute(int drive, int access, const char* path, int* attributes);

#ifdef __cplusplus
}
#endif

#endif
