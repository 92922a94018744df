// The one conversion of a text field of a fixed-size record into a Java string.
//
// A record's text field holds its text up to the first NUL and never runs past the field, even
// when the device left it unterminated. A Java string is made from modified UTF-8, which
// NewStringUTF takes as it stands; a field may hold other bytes (a setter cut inside a character,
// a name the device took from a medium). So:
// - the text is the field's bytes up to the first NUL, at most the whole field;
// - an incomplete UTF-8 sequence at its end (a cut) is dropped;
// - well-formed UTF-8 of 1 to 3 bytes is kept, a 4-byte sequence becomes its surrogate pair, and
//   every other byte 0x80..0xFF becomes the lone surrogate U+DC80..U+DCFF, so no byte is lost.
// The common case, plain text ending inside its field, is used in place without a copy. No JNI
// here (a fuzzer calls it); tovr_jni_text.h makes the Java string.
#ifndef TARNWICK_TOVR_FIELD_TEXT_H
#define TARNWICK_TOVR_FIELD_TEXT_H

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>

namespace tarnwick {

// The length of text[0..length) without an incomplete UTF-8 sequence at its end.
std::size_t utf8_whole_length(const char* text, std::size_t length);

// True when text[0..length) is modified UTF-8 that a VM accepts as it stands (no NUL byte).
bool is_modified_utf8(const char* text, std::size_t length);

// Bytes up to the first NUL of text[0..length) as modified UTF-8, by the rules above (without the
// dropping of a cut, which is the field's business).
std::string to_modified_utf8(const char* text, std::size_t length);

// The text of a field of `size` bytes, terminated, as a Java string is made from it.
class FieldText {
public:
    FieldText(const char* field, std::size_t size);
    template <std::size_t N>
    explicit FieldText(const char (&field)[N]) : FieldText(field, N) {}
    FieldText(const FieldText&) = delete;
    FieldText& operator=(const FieldText&) = delete;

    const char* c_str() const { return text_; }

private:
    const char* text_;
    std::string copy_;
};

// ---------------------------------------------------------------------------------------------
namespace field_text_detail {

inline bool cont(unsigned char c) { return (c & 0xC0) == 0x80; }

inline void put3(std::string& out, std::uint32_t cp) {
    out += static_cast<char>(0xE0 | (cp >> 12));
    out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (cp & 0x3F));
}

}  // namespace field_text_detail

inline std::size_t utf8_whole_length(const char* text, std::size_t length) {
    using field_text_detail::cont;
    std::size_t start = length;
    int continuation = 0;
    while (start > 0 && continuation < 3 && cont(static_cast<unsigned char>(text[start - 1]))) {
        --start;
        ++continuation;
    }
    if (start == 0) return length;
    unsigned char lead = static_cast<unsigned char>(text[start - 1]);
    std::size_t need;
    if (lead >= 0xF0) need = 4;
    else if (lead >= 0xE0) need = 3;
    else if (lead >= 0xC0) need = 2;
    else return length;  // ASCII, or stray continuation bytes: left to the conversion
    return length - (start - 1) < need ? start - 1 : length;
}

inline bool is_modified_utf8(const char* text, std::size_t length) {
    using field_text_detail::cont;
    const unsigned char* s = reinterpret_cast<const unsigned char*>(text);
    for (std::size_t i = 0; i < length;) {
        unsigned char c = s[i];
        if (c == 0) return false;
        if (c < 0x80) {
            ++i;
        } else if ((c & 0xE0) == 0xC0) {
            if (i + 2 > length || !cont(s[i + 1])) return false;
            i += 2;
        } else if ((c & 0xF0) == 0xE0) {
            if (i + 3 > length || !cont(s[i + 1]) || !cont(s[i + 2])) return false;
            i += 3;
        } else {
            return false;
        }
    }
    return true;
}

inline std::string to_modified_utf8(const char* bytes, std::size_t length) {
    using field_text_detail::cont;
    using field_text_detail::put3;
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

inline FieldText::FieldText(const char* field, std::size_t size) : text_("") {
    if (field == nullptr) return;
    std::size_t n = 0;
    bool plain = true;
    while (n < size && field[n] != 0) {
        if (static_cast<unsigned char>(field[n]) >= 0x80) plain = false;
        ++n;
    }
    std::size_t whole = plain ? n : utf8_whole_length(field, n);
    bool valid = plain || is_modified_utf8(field, whole);
    if (valid && whole == n && n < size) {
        text_ = field;  // ends inside the field as it is: used in place
        return;
    }
    if (valid) copy_.assign(field, whole);
    else copy_ = to_modified_utf8(field, whole);
    text_ = copy_.c_str();
}

}  // namespace tarnwick

#endif
