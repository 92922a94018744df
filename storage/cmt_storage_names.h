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

// Medium bytes -> modified UTF-8 that NewStringUTF accepts as it stands:
// - well-formed UTF-8 of 1 to 3 bytes is kept;
// - a well-formed 4-byte sequence becomes its surrogate pair (two 3-byte sequences);
// - every other byte 0x80..0xFF (stray continuation, overlong or truncated sequence, encoded
//   surrogate, code point above U+10FFFF) becomes the lone low surrogate U+DC80..U+DCFF, so no
//   byte is lost and the name can be turned back by cmt_storage_name_from_java;
// - a NUL ends the name (it cannot occur inside one).
std::string cmt_storage_name_to_java(const char* bytes, std::size_t length);

// Modified UTF-8 of a Java string -> medium bytes: surrogate pairs become 4-byte UTF-8, the
// escapes U+DC80..U+DCFF become their byte again; everything else passes unchanged.
std::string cmt_storage_name_from_java(const std::string& text);

// Text of at most `max` bytes (up to the first NUL) made fit for NewStringUTF: kept when it is
// modified UTF-8 already (as from a Java string), else converted by cmt_storage_name_to_java.
std::string cmt_storage_java_text(const char* text, std::size_t max);

// True when `text` is modified UTF-8 that a JVM accepts (what cmt_storage_name_to_java makes).
bool cmt_storage_is_modified_utf8(const std::string& text);

}  // namespace tarnwick

#endif
