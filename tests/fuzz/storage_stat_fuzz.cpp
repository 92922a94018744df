// libFuzzer target: status records as the disk I/O library fills them. Whatever the bytes, the
// readers look only at the record's own fields and agree with the type bits.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>

#include "cmt_storage_names.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::unique_ptr<DVU_DIO_STAT> st(new DVU_DIO_STAT);
    std::memset(st.get(), 0, sizeof *st);
    std::memcpy(st.get(), data, size < sizeof *st ? size : sizeof *st);
    const bool dir = tarnwick::cmt_storage_is_directory(*st);
    const bool file = tarnwick::cmt_storage_is_file(*st);
    if (dir && file) std::abort();
    if (dir != ((st->dio_mode & 0xF000u) == 0x4000u)) std::abort();
    if (file != ((st->dio_mode & 0xF000u) == 0x8000u)) std::abort();
    if (tarnwick::cmt_storage_size(*st) != st->dio_size) std::abort();
    if (tarnwick::cmt_storage_mtime(*st) != st->dio_mtime) std::abort();
    return 0;
}
