// Simulated address book: records made by hand, generated in bulk, or loaded from a text file.
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <functional>
#include <map>

#include "tovr_sim_address.h"

namespace tovr_sim {

void set_text(char* member, std::size_t size, const std::string& text) {
    if (size == 0) return;
    std::memset(member, 0, size);
    std::memcpy(member, text.data(), std::min(text.size(), size - 1));
}

ESV_ZEL_PERSONAL_ADDRESS make_address(const std::string& name, const std::string& mail) {
    ESV_ZEL_PERSONAL_ADDRESS a{};
    set_text(a.name_info.name, name);
    set_text(a.email_info.mail_address, mail);
    return a;
}

namespace {

std::string numbered(const char* format, int n) {
    char buffer[256];
    std::snprintf(buffer, sizeof buffer, format, n);
    return buffer;
}

}  // namespace

ESV_ZEL_PERSONAL_ADDRESS generated_address(int n) {
    ESV_ZEL_PERSONAL_ADDRESS a{};
    set_text(a.name_info.name, numbered("Person %05d", n));
    set_text(a.name_info.furigana, numbered("person %05d", n));
    set_text(a.ftp_info.ftp_host, numbered("ftp%05d.mfp.test", n));
    set_text(a.ftp_info.ftp_path, numbered("/scan/%05d", n));
    a.ftp_info.ftp_port = static_cast<std::uint16_t>(1000 + n % 1000);
    set_text(a.ftp_info.ftp_login, numbered("ftpuser%05d", n));
    set_text(a.ftp_info.ftp_pw, numbered("ftppw%05d", n));
    set_text(a.smb_info.smb_host, numbered("smb%05d.mfp.test", n));
    set_text(a.smb_info.smb_path, numbered("share/%05d", n));
    a.smb_info.smb_port = static_cast<std::uint16_t>(2000 + n % 1000);
    set_text(a.smb_info.smb_login, numbered("smbuser%05d", n));
    set_text(a.smb_info.smb_pw, numbered("smbpw%05d", n));
    set_text(a.fax_info.fax_no, numbered("0312%05d", n));
    a.fax_info.communication_speed = 0x100 | (n % 3);
    a.fax_info.ecm = static_cast<signed char>(n % 2);
    set_text(a.fax_info.fax_code, numbered("%05d", n));
    set_text(a.fax_info.fax_code_pw, numbered("pw%05d", n));
    a.fax_info.cipher_send_set = 1;
    a.fax_info.cipher_send_no = static_cast<signed char>(n % 10);
    a.fax_info.cipher_box_set = 1;
    a.fax_info.cipher_box_no = static_cast<signed char>(n % 100);
    set_text(a.fax_info.name, numbered("Fax Person %05d", n));
    set_text(a.fax_info.company_name, numbered("Company %05d", n));
    set_text(a.fax_info.post_name, numbered("Department %05d", n));
    a.fax_info.title = 0x300 | (n % 4);
    set_text(a.ifax_info.i_fax_address, numbered("ifax%05d@mfp.test", n));
    a.ifax_info.mode = 0x200 | (n % 2);
    a.ifax_info.send_size = n % 5;
    a.ifax_info.resolution = n % 4;
    a.ifax_info.file_type = n % 3;
    set_text(a.email_info.mail_address, numbered("person%05d@mfp.test", n));
    return a;
}

void generate_address_book(int count, int first) {
    if (count <= 0) return;
    std::vector<ESV_ZEL_PERSONAL_ADDRESS> entries;
    entries.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) entries.push_back(generated_address(first + i));
    add_addresses(std::move(entries));
}

namespace {

using Setter = std::function<bool(ESV_ZEL_PERSONAL_ADDRESS&, const std::string&)>;

bool number(const std::string& value, long long lo, long long hi, long long& out) {
    if (value.empty()) return false;
    char* end = nullptr;
    out = std::strtoll(value.c_str(), &end, 0);
    return *end == '\0' && out >= lo && out <= hi;
}

#define TEXT(KEY, MEMBER) \
    {KEY, [](ESV_ZEL_PERSONAL_ADDRESS& a, const std::string& v) { set_text(a.MEMBER, v); return true; }}
#define NUMBER(KEY, MEMBER, LO, HI)                                            \
    {KEY, [](ESV_ZEL_PERSONAL_ADDRESS& a, const std::string& v) {              \
         long long n = 0;                                                      \
         if (!number(v, LO, HI, n)) return false;                              \
         a.MEMBER = static_cast<decltype(a.MEMBER)>(n);                        \
         return true;                                                          \
     }}

const std::map<std::string, Setter>& setters() {
    static const auto* s = new std::map<std::string, Setter>{
        TEXT("name", name_info.name),
        TEXT("furigana", name_info.furigana),
        TEXT("ftp_host", ftp_info.ftp_host),
        TEXT("ftp_path", ftp_info.ftp_path),
        NUMBER("ftp_port", ftp_info.ftp_port, 0, 65535),
        TEXT("ftp_login", ftp_info.ftp_login),
        TEXT("ftp_pw", ftp_info.ftp_pw),
        TEXT("smb_host", smb_info.smb_host),
        TEXT("smb_path", smb_info.smb_path),
        NUMBER("smb_port", smb_info.smb_port, 0, 65535),
        TEXT("smb_login", smb_info.smb_login),
        TEXT("smb_pw", smb_info.smb_pw),
        TEXT("fax_no", fax_info.fax_no),
        NUMBER("communication_speed", fax_info.communication_speed, INT32_MIN, UINT32_MAX),
        NUMBER("ecm", fax_info.ecm, -128, 255),
        TEXT("fax_code", fax_info.fax_code),
        TEXT("fax_code_pw", fax_info.fax_code_pw),
        NUMBER("cipher_send_set", fax_info.cipher_send_set, -128, 255),
        NUMBER("cipher_send_no", fax_info.cipher_send_no, -128, 255),
        NUMBER("cipher_box_set", fax_info.cipher_box_set, -128, 255),
        NUMBER("cipher_box_no", fax_info.cipher_box_no, -128, 255),
        TEXT("fax_name", fax_info.name),
        TEXT("company_name", fax_info.company_name),
        TEXT("post_name", fax_info.post_name),
        NUMBER("title", fax_info.title, INT32_MIN, UINT32_MAX),
        TEXT("i_fax_address", ifax_info.i_fax_address),
        NUMBER("mode", ifax_info.mode, INT32_MIN, UINT32_MAX),
        NUMBER("send_size", ifax_info.send_size, INT32_MIN, UINT32_MAX),
        NUMBER("resolution", ifax_info.resolution, INT32_MIN, UINT32_MAX),
        NUMBER("file_type", ifax_info.file_type, INT32_MIN, UINT32_MAX),
        TEXT("mail_address", email_info.mail_address),
    };
    return *s;
}

#undef TEXT
#undef NUMBER

std::string trim(const std::string& s) {
    std::size_t b = s.find_first_not_of(" \t\r");
    if (b == std::string::npos) return std::string();
    std::size_t e = s.find_last_not_of(" \t\r");
    return s.substr(b, e - b + 1);
}

}  // namespace

int load_address_book(const std::string& path, std::string* error) {
    auto fail = [&](const std::string& why) {
        if (error) *error = why;
        return -1;
    };
    std::ifstream in(path);
    if (!in) return fail(path + ": cannot open");
    std::vector<ESV_ZEL_PERSONAL_ADDRESS> entries;
    std::string line;
    int number = 0;
    while (std::getline(in, line)) {
        ++number;
        const std::string where = path + ":" + std::to_string(number) + ": ";
        std::string t = trim(line);
        if (t.empty() || t[0] == '#') continue;
        if (t == "[address]") {
            entries.push_back(ESV_ZEL_PERSONAL_ADDRESS{});
            continue;
        }
        std::size_t eq = t.find('=');
        if (eq == std::string::npos) return fail(where + "expected member = value");
        if (entries.empty()) return fail(where + "member before the first [address]");
        const std::string key = trim(t.substr(0, eq));
        // The value keeps its inner spaces; only the blanks around '=' and at the end go.
        const std::string value = trim(t.substr(eq + 1));
        auto it = setters().find(key);
        if (it == setters().end()) return fail(where + "unknown member " + key);
        if (!it->second(entries.back(), value)) return fail(where + "bad number for " + key);
    }
    const int added = static_cast<int>(entries.size());
    add_addresses(std::move(entries));
    return added;
}

}  // namespace tovr_sim
