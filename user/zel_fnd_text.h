// Texts of fixed-size record fields: a field cut at its size may end inside a multi-byte UTF-8
// character; the Java string made from it should not end in a broken one.
#ifndef TARNWICK_ZEL_FND_TEXT_H
#define TARNWICK_ZEL_FND_TEXT_H

#include <cstddef>

namespace tarnwick {

// The length of `text[0..length)` without an incomplete UTF-8 sequence at its end.
inline std::size_t utf8_whole_length(const char* text, std::size_t length) {
    std::size_t start = length;
    int continuation = 0;
    while (start > 0 && continuation < 3 && (static_cast<unsigned char>(text[start - 1]) & 0xC0) == 0x80) {
        --start;
        ++continuation;
    }
    if (start == 0) return length;
    unsigned char lead = static_cast<unsigned char>(text[start - 1]);
    std::size_t need;
    if (lead >= 0xF0) need = 4;
    else if (lead >= 0xE0) need = 3;
    else if (lead >= 0xC0) need = 2;
    else return length;  // ASCII, or stray continuation bytes: left as they are
    return length - (start - 1) < need ? start - 1 : length;
}

}  // namespace tarnwick

#endif
