#include "cmt_storage_names.h"

#include <cstring>

namespace tarnwick {

namespace {

void put3(std::string& out, std::uint32_t cp) {
    out += static_cast<char>(0xE0 | (cp >> 12));
    out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (cp & 0x3F));
}

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

std::string cmt_storage_name_to_java(const char* bytes, std::size_t length) {
    std::string out;
    if (bytes == nullptr) return out;
    const unsigned char* s = reinterpret_cast<const unsigned char*>(bytes);
    std::size_t i = 0;
    while (i < length && s[i] != 0) {
        unsigned char c = s[i];
        if (c < 0x80) {
            out += static_cast<char>(c);
            ++i;
            continue;
        }
        std::size_t left = length - i;
        if (c >= 0xC2 && c <= 0xDF && left >= 2 && cont(s[i + 1])) {
            out.append(bytes + i, 2);
            i += 2;
            continue;
        }
        if (c >= 0xE0 && c <= 0xEF && left >= 3 && cont(s[i + 1]) && cont(s[i + 2])) {
            std::uint32_t cp = ((c & 0x0Fu) << 12) | ((s[i + 1] & 0x3Fu) << 6) | (s[i + 2] & 0x3Fu);
            if (cp >= 0x800 && (cp < 0xD800 || cp > 0xDFFF)) {
                out.append(bytes + i, 3);
                i += 3;
                continue;
            }
        }
        if (c >= 0xF0 && c <= 0xF4 && left >= 4 && cont(s[i + 1]) && cont(s[i + 2]) && cont(s[i + 3])) {
            std::uint32_t cp = ((c & 0x07u) << 18) | ((s[i + 1] & 0x3Fu) << 12) | ((s[i + 2] & 0x3Fu) << 6) |
                               (s[i + 3] & 0x3Fu);
            if (cp >= 0x10000 && cp <= 0x10FFFF) {
                cp -= 0x10000;
                put3(out, 0xD800 + (cp >> 10));
                put3(out, 0xDC00 + (cp & 0x3FF));
                i += 4;
                continue;
            }
        }
        put3(out, 0xDC00 + c);  // the byte itself, escaped
        ++i;
    }
    return out;
}

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

std::string cmt_storage_java_text(const char* text, std::size_t max) {
    if (text == nullptr) return std::string();
    const void* end = std::memchr(text, 0, max);
    std::size_t n = end ? static_cast<std::size_t>(static_cast<const char*>(end) - text) : max;
    std::string raw(text, n);
    if (cmt_storage_is_modified_utf8(raw)) return raw;
    return cmt_storage_name_to_java(raw.data(), raw.size());
}

bool cmt_storage_is_modified_utf8(const std::string& text) {
    const unsigned char* s = reinterpret_cast<const unsigned char*>(text.data());
    std::size_t n = text.size();
    for (std::size_t i = 0; i < n;) {
        unsigned char c = s[i];
        if (c == 0) return false;
        if (c < 0x80) {
            ++i;
        } else if ((c & 0xE0) == 0xC0) {
            if (i + 2 > n || !cont(s[i + 1])) return false;
            i += 2;
        } else if ((c & 0xF0) == 0xE0) {
            if (i + 3 > n || !cont(s[i + 1]) || !cont(s[i + 2])) return false;
            i += 3;
        } else {
            return false;
        }
    }
    return true;
}

}  // namespace tarnwick
