// File and directory access on the device's drives (the built-in hard disk and removable
// media) for Java applications, through the platform's disk I/O library. No state: every
// operation is static and makes one library call; its code is folded into the module's own
// result codes (0 no error, 1 end, -1 any code without a counterpart).
#ifndef TARNWICK_CMT_STORAGEIO_H
#define TARNWICK_CMT_STORAGEIO_H

#include <string>

namespace tarnwick {

/** Which drive: 0 ({@code CMTDIO_HDD}) the built-in hard disk, 1 and 2 the removable media. */
enum CMT_STORAGE_TYPE : int { CMTDIO_HDD = 0 };

/**
 * Open modes: 0 ({@code CMTDIO_READ}) read, the file must exist; 1 write, the file is created
 * or emptied; 2 read and write, the file must exist; 3 write at the end, created when missing;
 * 4 read and write, created or emptied; 5 read anywhere and write at the end, created when
 * missing.
 */
enum CMT_FOPEN_MODE : int { CMTDIO_READ = 0 };

/** Seek origins: 0 ({@code CMTDIO_SEEK_CUR}) the current position, 1 the start, 2 the end. */
enum CMT_SEEK_MODE : int { CMTDIO_SEEK_CUR = 0 };

// Result codes: these three, and further values 2 to 38 folded from the library's codes.
enum { CMTDIO_ERROR = -1, CMTDIO_NOERROR = 0, CMTDIO_EOF = 1 };

/**
 * Files and folders on the device's drives (the built-in hard disk and removable media). Every
 * operation is static; a drive is a {@code CMT_STORAGE_TYPE} (0 hard disk, 1 and 2 removable
 * media), outputs come back in element 0 of the array passed, and file and folder handles are
 * {@code long} values handed back unchanged.
 * <p>Results: 0 ({@code CMTDIO_NOERROR}) success, 1 ({@code CMTDIO_EOF}) the end of a file or
 * folder was reached, -1 ({@code CMTDIO_ERROR}) an error the library has no number for, and
 * 2 to 38 the disk library's own failures (the medium is missing, full, write-protected, a name
 * is not found ...).
 */
class CMT_StorageIO {
public:
    // Attribute bits.
    enum { CMTDIO_DIRECTORY = 1, CMTDIO_ARCHIVE = 2, CMTDIO_HIDDEN = 4, CMTDIO_READONLY = 8 };

    static int init();
    static int sync();
    static int verifydiskmount(CMT_STORAGE_TYPE type);
    static int remove_disk(CMT_STORAGE_TYPE type);
    static int chdir(CMT_STORAGE_TYPE type, const std::string& path);
    static int mkdir(CMT_STORAGE_TYPE type, const std::string& path);
    static int existfile(CMT_STORAGE_TYPE type, const std::string& path);
    static int remove(CMT_STORAGE_TYPE type, const std::string& path);
    static int rename(CMT_STORAGE_TYPE type, const std::string& from, const std::string& to);
    static int move(CMT_STORAGE_TYPE from_type, const std::string& from, CMT_STORAGE_TYPE to_type,
                    const std::string& to);
    static int opendir(CMT_STORAGE_TYPE type, const std::string& path, unsigned long& dir);
    /**
     * The entry's name as modified UTF-8 (see cmt_storage_names.h), "" on failure; `result` is
     * always written.
     */
    static std::string readdir(unsigned long dir, int& result);
    static int closedir(unsigned long dir);
    static int open(CMT_STORAGE_TYPE type, const std::string& path, CMT_FOPEN_MODE mode, unsigned long& file);
    static int read(signed char* buffer, unsigned long size, unsigned long file, unsigned long& done);
    static int write(const signed char* buffer, unsigned long size, unsigned long file, unsigned long& done);
    static int fseek(unsigned long file, long offset, CMT_SEEK_MODE mode);
    static int ftell(unsigned long file, long& position);
    static int fflush(unsigned long file);
    static int close(unsigned long file);
    static int is_directory(CMT_STORAGE_TYPE type, const std::string& path, bool& yes);
    static int is_file(CMT_STORAGE_TYPE type, const std::string& path, bool& yes);
    static int getfilesize(CMT_STORAGE_TYPE type, const std::string& path, unsigned long& size);
    static int getlastmodified(CMT_STORAGE_TYPE type, const std::string& path, unsigned long& time);
    static int setfileattribute(CMT_STORAGE_TYPE type, const std::string& path, int attributes);
    static int getfileattribute(CMT_STORAGE_TYPE type, const std::string& path, int& attributes);

    /** Translations (internal to the library; not exposed to Java). */
    static int getDriveNumber(CMT_STORAGE_TYPE type);
    static int getDVUOpenMode(CMT_FOPEN_MODE mode);
    static int getCMTOpenMode(int mode);
    static int getDVUSeekMode(CMT_SEEK_MODE mode);
    static int getReturnValue(int code);
};

}  // namespace tarnwick

#endif
