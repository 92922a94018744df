// The fields of one personal-address record as the address objects carry them, read without
// JNI from the record's 2120 bytes as the facade left them.
//
// Each text is read at most to its width in the record and always ends in a NUL here, whatever
// the facade wrote (an unterminated field never runs into the next one). Type fields are
// 32-bit values of which the low byte of the value is kept (not the first byte in memory: on
// the big-endian device that would be the high byte).
#ifndef TARNWICK_CMT_ADDRESS_RECORD_H
#define TARNWICK_CMT_ADDRESS_RECORD_H

#include <cstddef>

namespace tarnwick {

// Widths of the texts in the record, in bytes, from their offset up to the next field.
constexpr std::size_t kCmtAddressRecordSize = 2120;
constexpr std::size_t kCmtNameWidth = 193;
constexpr std::size_t kCmtPronunciationWidth = 193;
constexpr std::size_t kCmtFtpHostWidth = 65;
constexpr std::size_t kCmtFtpPathWidth = 129;
constexpr std::size_t kCmtFtpLoginWidth = 65;
constexpr std::size_t kCmtFtpPasswordWidth = 65;
constexpr std::size_t kCmtSmbHostWidth = 65;
constexpr std::size_t kCmtSmbPathWidth = 129;
constexpr std::size_t kCmtSmbLoginWidth = 129;
constexpr std::size_t kCmtSmbPasswordWidth = 131;
constexpr std::size_t kCmtFaxNumWidth = 36;
// The 42 bytes of the fax address are the sub-address (21) and its password (21): only the
// sub-address is passed on, so the password never shows in the Java string.
constexpr std::size_t kCmtFaxAddressWidth = 21;
constexpr std::size_t kCmtFaxNameWidth = 193;
constexpr std::size_t kCmtCompanyWidth = 193;
constexpr std::size_t kCmtDepartmentWidth = 195;
constexpr std::size_t kCmtIfaxAddressWidth = 132;
constexpr std::size_t kCmtMailAddressWidth = 132;

static_assert(kCmtFtpHostWidth <= kCmtSmbHostWidth && kCmtFtpPathWidth <= kCmtSmbPathWidth &&
                  kCmtFtpLoginWidth <= kCmtSmbLoginWidth && kCmtFtpPasswordWidth <= kCmtSmbPasswordWidth,
              "the server fields hold the wider of the two");

// A server destination (FTP or SMB): the same fields, the SMB's login name and password wider.
struct cmt_address_server_fields {
    char host[kCmtSmbHostWidth + 1];
    char path[kCmtSmbPathWidth + 1];
    int port;
    char login_name[kCmtSmbLoginWidth + 1];
    char password[kCmtSmbPasswordWidth + 1];
};

struct cmt_address_record_fields {
    // name info
    char name[kCmtNameWidth + 1];
    char pronunciation[kCmtPronunciationWidth + 1];
    // e-mail info
    char mail_address[kCmtMailAddressWidth + 1];
    cmt_address_server_fields ftp;
    cmt_address_server_fields smb;
    // fax info
    char fax_num[kCmtFaxNumWidth + 1];
    signed char bitrate_type;
    signed char ecm;
    char fax_address[kCmtFaxAddressWidth + 1];
    signed char encode;
    signed char encode_id;
    signed char encode_box;
    signed char encode_box_num;
    char fax_name[kCmtFaxNameWidth + 1];
    char company[kCmtCompanyWidth + 1];
    char department[kCmtDepartmentWidth + 1];
    signed char honorific_title_type;
    // Internet-fax info
    char ifax_address[kCmtIfaxAddressWidth + 1];
    signed char mode_type;
    signed char size_type;
    signed char resolution_type;
    signed char file_type;
};

// Reads the record in `bytes` (exactly `size` bytes are readable). False, with `out` untouched,
// when `bytes` is null or `size` is not the record's size.
bool cmt_read_address_record(const unsigned char* bytes, std::size_t size, cmt_address_record_fields& out);

}  // namespace tarnwick

#endif
