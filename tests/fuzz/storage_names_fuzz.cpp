// libFuzzer target: entry names as the medium hands them over. The name is read bounded by its
// field, converted to modified UTF-8 (which must be valid for NewStringUTF) and turned back into
// exactly the medium's bytes; the conversion of a bare buffer never reads past it.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>

#include "cmt_storage_names.h"
#include "tovr_field_text.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // A buffer exactly as long as the input: AddressSanitizer sees any read past it.
    std::unique_ptr<char[]> exact(new char[size ? size : 1]);
    if (size) std::memcpy(exact.get(), data, size);
    std::string java = tarnwick::to_modified_utf8(exact.get(), size);
    if (!tarnwick::is_modified_utf8(java.data(), java.size())) std::abort();
    std::string name(exact.get(), size);
    name = name.substr(0, name.find('\0'));
    if (tarnwick::cmt_storage_name_from_java(java) != name) std::abort();

    std::unique_ptr<DVU_DIO_DIRENT> entry(new DVU_DIO_DIRENT);
    std::memset(entry.get(), 0, sizeof *entry);
    std::memcpy(entry.get(), data, size < sizeof *entry ? size : sizeof *entry);
    std::string read = tarnwick::cmt_storage_entry_name(*entry);
    if (read.size() > sizeof entry->d_name) std::abort();
    if (read.find('\0') != std::string::npos) std::abort();

    // A record field of the input's size: what the library hands to NewStringUTF.
    tarnwick::FieldText text(exact.get(), size);
    std::size_t n = std::strlen(text.c_str());
    if (n > 3 * size || !tarnwick::is_modified_utf8(text.c_str(), n)) std::abort();
    return 0;
}
