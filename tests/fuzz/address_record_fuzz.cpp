// libFuzzer target: the address-record reader on arbitrary bytes. The input is copied into a
// buffer exactly as long as it, so AddressSanitizer catches any read past the record; every
// text read must be terminated within its width and equal the record's bytes up to there.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "cmt_address_record.h"

namespace {

void check_text(const std::uint8_t* record, std::size_t offset, std::size_t width, const char* got, std::size_t room) {
    const std::size_t n = std::strlen(got);
    if (n > width || n >= room) std::abort();
    if (std::memcmp(record + offset, got, n) != 0) std::abort();
    if (n < width && record[offset + n] != 0) std::abort();  // stopped early without a NUL
}

std::int32_t value32(const std::uint8_t* record, std::size_t offset) {
    std::int32_t v;
    std::memcpy(&v, record + offset, sizeof v);
    return v;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::vector<std::uint8_t> copy(data, data + size);
    tarnwick::cmt_address_record_fields f;
    const bool ok = tarnwick::cmt_read_address_record(copy.empty() ? nullptr : copy.data(), copy.size(), f);
    if (ok != (size == tarnwick::kCmtAddressRecordSize)) std::abort();
    if (!ok) return 0;
    const std::uint8_t* r = copy.data();
    check_text(r, 0, 193, f.name, sizeof f.name);
    check_text(r, 193, 193, f.pronunciation, sizeof f.pronunciation);
    check_text(r, 1037, 131, f.smb.password, sizeof f.smb.password);
    check_text(r, 1168, 36, f.fax_num, sizeof f.fax_num);
    check_text(r, 1209, 21, f.fax_address, sizeof f.fax_address);
    check_text(r, 1641, 195, f.department, sizeof f.department);
    check_text(r, 1840, 132, f.ifax_address, sizeof f.ifax_address);
    check_text(r, 1988, 132, f.mail_address, sizeof f.mail_address);
    if (f.bitrate_type != static_cast<signed char>(value32(r, 1204) & 0xFF)) std::abort();
    if (f.file_type != static_cast<signed char>(value32(r, 1984) & 0xFF)) std::abort();
    std::uint16_t port;
    std::memcpy(&port, r + 580, sizeof port);
    if (f.ftp.port != port) std::abort();
    return 0;
}
