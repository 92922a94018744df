#include "cmt_storage_names.h"

#include <cstring>

namespace tarnwick {

namespace {

bool cont(unsigned char c) { return (c & 0xC0) == 0x80; }

}  // namespace

std::string cmt_storage_entry_name(const DVU_DIO_DIRENT& entry) {
    const void* end = std::memchr(entry.d_name, 0, sizeof entry.d_name);
    std::size_t n = end ? static_cast<std::size_t>(static_cast<const char*>(end) - entry.d_name)
                        : sizeof entry.d_name;
    return std::string(entry.d_name, n);
}

bool cmt_storage_is_directory(const DVU_DIO_STAT& status) {
    return (status.dio_mode & DVU_DIO_S_IFMT) == DVU_DIO_S_IFDIR;
}

bool cmt_storage_is_file(const DVU_DIO_STAT& status) {
    return (status.dio_mode & DVU_DIO_S_IFMT) == DVU_DIO_S_IFREG;
}

std::uint32_t cmt_storage_size(const DVU_DIO_STAT& status) { return status.dio_size; }

std::uint32_t cmt_storage_mtime(const DVU_DIO_STAT& status) { return status.dio_mtime; }

std::string cmt_storage_name_from_java(const std::string& text) {
    std::string out;
    const unsigned char* s = reinterpret_cast<const unsigned char*>(text.data());
    std::size_t n = text.size();
    std::size_t i = 0;
    auto surrogate_at = [&](std::size_t k, std::uint32_t& cp) {
        if (k + 3 > n || s[k] != 0xED || !cont(s[k + 1]) || !cont(s[k + 2])) return false;
        cp = 0xD000u | ((s[k + 1] & 0x3Fu) << 6) | (s[k + 2] & 0x3Fu);
        return cp >= 0xD800 && cp <= 0xDFFF;
    };
    while (i < n) {
        std::uint32_t hi = 0, lo = 0;
        if (surrogate_at(i, hi)) {
            if (hi <= 0xDBFF && surrogate_at(i + 3, lo) && lo >= 0xDC00) {
                std::uint32_t cp = 0x10000 + ((hi - 0xD800) << 10) + (lo - 0xDC00);
                out += static_cast<char>(0xF0 | (cp >> 18));
                out += static_cast<char>(0x80 | ((cp >> 12) & 0x3F));
                out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
                out += static_cast<char>(0x80 | (cp & 0x3F));
                i += 6;
                continue;
            }
            if (hi >= 0xDC80 && hi <= 0xDCFF) {
                out += static_cast<char>(hi - 0xDC00);
                i += 3;
                continue;
            }
        }
        out += static_cast<char>(s[i]);
        ++i;
    }
    return out;
}

}  // namespace tarnwick
