// The personal-address record on this ABI and the JNI-free reader of its fields (also run
// under qemu-ppc, where the type fields' low byte is the last byte in memory).
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "cmt_address_record.h"
#include "esv_zel_address_types.h"
#include "tovr_sim_address.h"

using tarnwick::cmt_address_record_fields;
using tarnwick::cmt_read_address_record;

namespace {

const unsigned char* bytes(const ESV_ZEL_PERSONAL_ADDRESS& a) { return reinterpret_cast<const unsigned char*>(&a); }

cmt_address_record_fields read(const ESV_ZEL_PERSONAL_ADDRESS& a) {
    cmt_address_record_fields f;
    std::memset(&f, 0x5A, sizeof f);
    EXPECT_TRUE(cmt_read_address_record(bytes(a), sizeof a, f));
    return f;
}

std::size_t at(const ESV_ZEL_PERSONAL_ADDRESS& a, const void* member) {
    return static_cast<std::size_t>(static_cast<const unsigned char*>(member) - bytes(a));
}

void expect_server(const tarnwick::cmt_address_server_fields& s, const char* host, const char* path, int port,
                   const char* login_name, const char* password) {
    EXPECT_STREQ(host, s.host);
    EXPECT_STREQ(path, s.path);
    EXPECT_EQ(port, s.port);
    EXPECT_STREQ(login_name, s.login_name);
    EXPECT_STREQ(password, s.password);
}

}  // namespace

TEST(AddressRecord, LayoutOfTheDevice) {
    ESV_ZEL_PERSONAL_ADDRESS a{};
    EXPECT_EQ(2120u, sizeof a);
    EXPECT_EQ(4u, alignof(ESV_ZEL_PERSONAL_ADDRESS));
    const std::vector<std::pair<const void*, std::size_t>> offsets = {
        {a.name_info.name, 0},         {a.name_info.furigana, 193},   {a.ftp_info.ftp_host, 386},
        {a.ftp_info.ftp_path, 451},    {&a.ftp_info.ftp_port, 580},   {a.ftp_info.ftp_login, 582},
        {a.ftp_info.ftp_pw, 647},      {a.smb_info.smb_host, 712},    {a.smb_info.smb_path, 777},
        {&a.smb_info.smb_port, 906},   {a.smb_info.smb_login, 908},   {a.smb_info.smb_pw, 1037},
        {a.fax_info.fax_no, 1168},     {&a.fax_info.communication_speed, 1204},
        {&a.fax_info.ecm, 1208},       {a.fax_info.fax_code, 1209},   {a.fax_info.fax_code_pw, 1230},
        {&a.fax_info.cipher_send_set, 1251}, {&a.fax_info.cipher_send_no, 1252},
        {&a.fax_info.cipher_box_set, 1253},  {&a.fax_info.cipher_box_no, 1254},
        {a.fax_info.name, 1255},       {a.fax_info.company_name, 1448}, {a.fax_info.post_name, 1641},
        {&a.fax_info.title, 1836},     {a.ifax_info.i_fax_address, 1840}, {&a.ifax_info.mode, 1972},
        {&a.ifax_info.send_size, 1976}, {&a.ifax_info.resolution, 1980}, {&a.ifax_info.file_type, 1984},
        {a.email_info.mail_address, 1988}};
    for (const auto& [member, offset] : offsets) EXPECT_EQ(offset, at(a, member));
}

TEST(AddressRecord, TypeFieldsGiveTheLowByteOfTheValue) {
    ESV_ZEL_PERSONAL_ADDRESS a{};
    a.fax_info.communication_speed = 0x00000102;
    a.fax_info.title = 0x7F7F7F80;
    a.ifax_info.mode = 0x01020304;
    a.ifax_info.send_size = -1;
    a.ifax_info.resolution = 0x0000FF00;
    a.ifax_info.file_type = 0x12345678;
    cmt_address_record_fields f = read(a);
    EXPECT_EQ(2, f.bitrate_type);
    EXPECT_EQ(static_cast<signed char>(0x80), f.honorific_title_type);
    EXPECT_EQ(4, f.mode_type);
    EXPECT_EQ(-1, f.size_type);
    EXPECT_EQ(0, f.resolution_type);
    EXPECT_EQ(0x78, f.file_type);
}

TEST(AddressRecord, PortsAndBytes) {
    ESV_ZEL_PERSONAL_ADDRESS a{};
    a.ftp_info.ftp_port = 21;
    a.smb_info.smb_port = 0xFFFF;
    a.fax_info.ecm = -3;
    a.fax_info.cipher_send_set = 1;
    a.fax_info.cipher_send_no = 2;
    a.fax_info.cipher_box_set = 3;
    a.fax_info.cipher_box_no = 127;
    cmt_address_record_fields f = read(a);
    EXPECT_EQ(21, f.ftp.port);
    EXPECT_EQ(65535, f.smb.port);
    EXPECT_EQ(-3, f.ecm);
    EXPECT_EQ(1, f.encode);
    EXPECT_EQ(2, f.encode_id);
    EXPECT_EQ(3, f.encode_box);
    EXPECT_EQ(127, f.encode_box_num);
}

TEST(AddressRecord, EveryTextOfAGeneratedEntry) {
    cmt_address_record_fields f = read(tovr_sim::generated_address(42));
    EXPECT_STREQ("Person 00042", f.name);
    EXPECT_STREQ("person 00042", f.pronunciation);
    EXPECT_STREQ("person00042@mfp.test", f.mail_address);
    expect_server(f.ftp, "ftp00042.mfp.test", "/scan/00042", 1042, "ftpuser00042", "ftppw00042");
    expect_server(f.smb, "smb00042.mfp.test", "share/00042", 2042, "smbuser00042", "smbpw00042");
    EXPECT_STREQ("031200042", f.fax_num);
    EXPECT_EQ(0, f.bitrate_type);
    EXPECT_EQ(0, f.ecm);
    EXPECT_STREQ("00042", f.fax_address);
    EXPECT_STREQ("Fax Person 00042", f.fax_name);
    EXPECT_STREQ("Company 00042", f.company);
    EXPECT_STREQ("Department 00042", f.department);
    EXPECT_EQ(2, f.honorific_title_type);
    EXPECT_STREQ("ifax00042@mfp.test", f.ifax_address);
    EXPECT_EQ(0, f.mode_type);
    EXPECT_EQ(2, f.size_type);
    EXPECT_EQ(2, f.resolution_type);
    EXPECT_EQ(0, f.file_type);
}

TEST(AddressRecord, UnterminatedTextsStopAtTheirWidth) {
    ESV_ZEL_PERSONAL_ADDRESS a{};
    std::memset(a.name_info.name, 'n', sizeof a.name_info.name);
    std::memset(a.name_info.furigana, 'f', sizeof a.name_info.furigana);
    char* const base = reinterpret_cast<char*>(&a);  // the widths run into the padding after a field
    std::memset(base + offsetof(ESV_ZEL_PERSONAL_ADDRESS, smb_info.smb_pw), 'p', tarnwick::kCmtSmbPasswordWidth);
    std::memset(a.fax_info.fax_code, '7', sizeof a.fax_info.fax_code);
    tovr_sim::set_text(a.fax_info.fax_code_pw, "SECRET");
    std::memset(base + offsetof(ESV_ZEL_PERSONAL_ADDRESS, fax_info.post_name), 'd', tarnwick::kCmtDepartmentWidth);
    std::memset(base + offsetof(ESV_ZEL_PERSONAL_ADDRESS, email_info.mail_address), 'm', tarnwick::kCmtMailAddressWidth);
    cmt_address_record_fields f = read(a);
    EXPECT_EQ(std::string(193, 'n'), f.name);
    EXPECT_EQ(std::string(193, 'f'), f.pronunciation);
    EXPECT_EQ(std::string(131, 'p'), f.smb.password);
    EXPECT_STREQ("", f.fax_num);
    // The sub-address password never joins the sub-address.
    EXPECT_EQ(std::string(21, '7'), f.fax_address);
    EXPECT_EQ(std::string(195, 'd'), f.department);
    EXPECT_EQ(std::string(132, 'm'), f.mail_address);
}

TEST(AddressRecord, WrongSizeOrNullIsRefused) {
    ESV_ZEL_PERSONAL_ADDRESS a = tovr_sim::generated_address(1);
    cmt_address_record_fields f;
    std::memset(&f, 0x5A, sizeof f);
    EXPECT_FALSE(cmt_read_address_record(nullptr, sizeof a, f));
    EXPECT_FALSE(cmt_read_address_record(bytes(a), sizeof a - 1, f));
    EXPECT_FALSE(cmt_read_address_record(bytes(a), sizeof a + 1, f));
    EXPECT_EQ(0x5A, static_cast<unsigned char>(f.name[0]));
}
