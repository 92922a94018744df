// Plain readers of what the disk I/O library hands back, and the conversion of entry names
// between the medium's bytes and the modified UTF-8 of Java strings. No JNI: a fuzzer calls
// them directly.
#ifndef TARNWICK_CMT_STORAGE_NAMES_H
#define TARNWICK_CMT_STORAGE_NAMES_H

#include <cstddef>
#include <cstdint>
#include <string>

#include "dvu_dio.h"

namespace tarnwick {

// The entry's name: the bytes up to the first NUL, at most the whole name field when the
// library left it unterminated.
std::string cmt_storage_entry_name(const DVU_DIO_DIRENT& entry);

// File type tests and fields of a status record.
bool cmt_storage_is_directory(const DVU_DIO_STAT& status);
bool cmt_storage_is_file(const DVU_DIO_STAT& status);
std::uint32_t cmt_storage_size(const DVU_DIO_STAT& status);
std::uint32_t cmt_storage_mtime(const DVU_DIO_STAT& status);

// Medium bytes -> modified UTF-8 is the one text conversion of tovr_field_text.h
// (to_modified_utf8): every byte that is not kept becomes U+DC80..U+DCFF, which the function
// below turns back.

// Modified UTF-8 of a Java string -> medium bytes: surrogate pairs become 4-byte UTF-8, the
// escapes U+DC80..U+DCFF become their byte again; everything else passes unchanged.
std::string cmt_storage_name_from_java(const std::string& text);

}  // namespace tarnwick

#endif
