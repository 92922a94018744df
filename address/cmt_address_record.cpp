#include "cmt_address_record.h"

#include <cstdint>
#include <cstring>

namespace tarnwick {

namespace {

// Byte offsets in the record.
enum : std::size_t {
    kName = 0,
    kPronunciation = 193,
    kFaxNum = 1168,
    kBitrateType = 1204,
    kEcm = 1208,
    kFaxAddress = 1209,
    kEncode = 1251,
    kEncodeId = 1252,
    kEncodeBox = 1253,
    kEncodeBoxNum = 1254,
    kFaxName = 1255,
    kCompany = 1448,
    kDepartment = 1641,
    kHonorificTitleType = 1836,
    kIfaxAddress = 1840,
    kModeType = 1972,
    kSizeType = 1976,
    kResolutionType = 1980,
    kFileType = 1984,
    kMailAddress = 1988,
};

// Where the fields of a server destination stand, and the widths of its texts.
struct server_layout {
    std::size_t host, host_width, path, path_width, port, login, login_width, password, password_width;
};
constexpr server_layout kFtp{386, kCmtFtpHostWidth, 451, kCmtFtpPathWidth, 580, 582, kCmtFtpLoginWidth, 647, kCmtFtpPasswordWidth};
constexpr server_layout kSmb{712, kCmtSmbHostWidth, 777, kCmtSmbPathWidth, 906, 908, kCmtSmbLoginWidth, 1037, kCmtSmbPasswordWidth};

// Copies the text at `offset` up to its first NUL, at most `width` bytes, and terminates it.
template <std::size_t N>
void text(const unsigned char* record, std::size_t offset, std::size_t width, char (&out)[N]) {
    static_assert(N > 0, "room for the NUL");
    if (width > N - 1) width = N - 1;
    const void* end = std::memchr(record + offset, 0, width);
    const std::size_t n = end ? static_cast<std::size_t>(static_cast<const unsigned char*>(end) - (record + offset)) : width;
    std::memcpy(out, record + offset, n);
    out[n] = '\0';
}

// The low byte of the 32-bit value at `offset` (in the device's byte order).
signed char low_byte(const unsigned char* record, std::size_t offset) {
    std::uint32_t v;
    std::memcpy(&v, record + offset, sizeof v);
    return static_cast<signed char>(static_cast<unsigned char>(v & 0xFFu));
}

int port(const unsigned char* record, std::size_t offset) {
    std::uint16_t v;
    std::memcpy(&v, record + offset, sizeof v);
    return v;
}

signed char byte(const unsigned char* record, std::size_t offset) {
    return static_cast<signed char>(record[offset]);
}

void server(const unsigned char* record, const server_layout& at, cmt_address_server_fields& out) {
    text(record, at.host, at.host_width, out.host);
    text(record, at.path, at.path_width, out.path);
    out.port = port(record, at.port);
    text(record, at.login, at.login_width, out.login_name);
    text(record, at.password, at.password_width, out.password);
}

}  // namespace

bool cmt_read_address_record(const unsigned char* r, std::size_t size, cmt_address_record_fields& out) {
    if (r == nullptr || size != kCmtAddressRecordSize) return false;
    text(r, kName, kCmtNameWidth, out.name);
    text(r, kPronunciation, kCmtPronunciationWidth, out.pronunciation);
    text(r, kMailAddress, kCmtMailAddressWidth, out.mail_address);
    server(r, kFtp, out.ftp);
    server(r, kSmb, out.smb);
    text(r, kFaxNum, kCmtFaxNumWidth, out.fax_num);
    out.bitrate_type = low_byte(r, kBitrateType);
    out.ecm = byte(r, kEcm);
    text(r, kFaxAddress, kCmtFaxAddressWidth, out.fax_address);
    out.encode = byte(r, kEncode);
    out.encode_id = byte(r, kEncodeId);
    out.encode_box = byte(r, kEncodeBox);
    out.encode_box_num = byte(r, kEncodeBoxNum);
    text(r, kFaxName, kCmtFaxNameWidth, out.fax_name);
    text(r, kCompany, kCmtCompanyWidth, out.company);
    text(r, kDepartment, kCmtDepartmentWidth, out.department);
    out.honorific_title_type = low_byte(r, kHonorificTitleType);
    text(r, kIfaxAddress, kCmtIfaxAddressWidth, out.ifax_address);
    out.mode_type = low_byte(r, kModeType);
    out.size_type = low_byte(r, kSizeType);
    out.resolution_type = low_byte(r, kResolutionType);
    out.file_type = low_byte(r, kFileType);
    return true;
}

}  // namespace tarnwick
