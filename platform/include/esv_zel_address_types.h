// Records of the common facade's address book: one personal address is the six destination
// records in this order in memory, 2120 bytes in all.
//
// Text members are NUL-terminated; their sizes are the facade's ESV_ZEL_MAX_* sizes and the
// reserved bytes after some of them are the device's padding. The type members are 32-bit
// values of the platform's enumerations.
#ifndef ESV_ZEL_ADDRESS_TYPES_H
#define ESV_ZEL_ADDRESS_TYPES_H

#include <cstdint>

#include "esv_zel_layout.h"
#include "esv_zel_max_sizes.h"

struct ESV_ZEL_NAME_INFO {
    char name[ESV_ZEL_MAX_ADDRESS_NAME_SIZE];
    char furigana[ESV_ZEL_MAX_ADDRESS_KANA_SIZE];  // pronunciation
};

struct ESV_ZEL_FTP_INFO {
    char ftp_host[ESV_ZEL_MAX_FTP_HOST_SIZE];
    char ftp_path[ESV_ZEL_MAX_FTP_PATH_SIZE];
    std::uint16_t ftp_port;
    char ftp_login[ESV_ZEL_MAX_FTP_LOGIN_NAME_SIZE];
    char ftp_pw[ESV_ZEL_MAX_FTP_LOGIN_PW_SIZE];
};

struct ESV_ZEL_SMB_INFO {
    char smb_host[ESV_ZEL_MAX_SMB_HOST_SIZE];
    char smb_path[ESV_ZEL_MAX_SMB_PATH_SIZE];
    std::uint16_t smb_port;
    char smb_login[ESV_ZEL_MAX_SMB_LOGIN_NAME_SIZE];
    char smb_pw[ESV_ZEL_MAX_SMB_LOGIN_PW_SIZE];
    char reserved_smb[2];
};

struct ESV_ZEL_FAX_INFO {
    char fax_no[ESV_ZEL_MAX_FAX_SIZE];
    char reserved_fax_no[3];
    std::int32_t communication_speed;  // bit rate type
    signed char ecm;
    char fax_code[ESV_ZEL_MAX_FAX_COOD_SIZE];        // sub-address
    char fax_code_pw[ESV_ZEL_MAX_FAX_COOD_PW_SIZE];  // its password
    signed char cipher_send_set;  // encode
    signed char cipher_send_no;   // encode ID
    signed char cipher_box_set;   // encode box
    signed char cipher_box_no;    // encode box number
    char name[ESV_ZEL_MAX_SEND_SHEET_NAME_SIZE];
    char company_name[ESV_ZEL_MAX_SEND_SHEET_CNP_SIZE];
    char post_name[ESV_ZEL_MAX_SEND_SHEET_POST_SIZE];  // department
    char reserved_post_name[2];
    std::int32_t title;  // honorific title type
};

struct ESV_ZEL_IFAX_INFO {
    char i_fax_address[ESV_ZEL_MAX_I_FAX_SIZE];
    char reserved_i_fax_address[3];
    std::int32_t mode;
    std::int32_t send_size;
    std::int32_t resolution;
    std::int32_t file_type;
};

struct ESV_ZEL_EMAIL_INFO {
    char mail_address[ESV_ZEL_MAX_E_MAIL_SIZE];
    char reserved_mail_address[3];
};

struct ESV_ZEL_PERSONAL_ADDRESS {
    ESV_ZEL_NAME_INFO name_info;
    ESV_ZEL_FTP_INFO ftp_info;
    ESV_ZEL_SMB_INFO smb_info;
    ESV_ZEL_FAX_INFO fax_info;
    ESV_ZEL_IFAX_INFO ifax_info;
    ESV_ZEL_EMAIL_INFO email_info;
};

ESV_ZEL_SIZE(ESV_ZEL_NAME_INFO, 386);
ESV_ZEL_SIZE(ESV_ZEL_FTP_INFO, 326);
ESV_ZEL_SIZE(ESV_ZEL_SMB_INFO, 456);
ESV_ZEL_SIZE(ESV_ZEL_FAX_INFO, 672);
ESV_ZEL_SIZE(ESV_ZEL_IFAX_INFO, 148);
ESV_ZEL_SIZE(ESV_ZEL_EMAIL_INFO, 132);
ESV_ZEL_SIZE(ESV_ZEL_PERSONAL_ADDRESS, 2120);
ESV_ZEL_LAYOUT(ESV_ZEL_PERSONAL_ADDRESS, name_info, 0);
ESV_ZEL_LAYOUT(ESV_ZEL_PERSONAL_ADDRESS, ftp_info, 386);
ESV_ZEL_LAYOUT(ESV_ZEL_PERSONAL_ADDRESS, smb_info, 712);
ESV_ZEL_LAYOUT(ESV_ZEL_PERSONAL_ADDRESS, fax_info, 1168);
ESV_ZEL_LAYOUT(ESV_ZEL_PERSONAL_ADDRESS, ifax_info, 1840);
ESV_ZEL_LAYOUT(ESV_ZEL_PERSONAL_ADDRESS, email_info, 1988);
// Offsets inside the whole record, as the device lays them out.
ESV_ZEL_LAYOUT(ESV_ZEL_PERSONAL_ADDRESS, name_info.furigana, 193);
ESV_ZEL_LAYOUT(ESV_ZEL_PERSONAL_ADDRESS, ftp_info.ftp_host, 386);
ESV_ZEL_LAYOUT(ESV_ZEL_PERSONAL_ADDRESS, ftp_info.ftp_path, 451);
ESV_ZEL_LAYOUT(ESV_ZEL_PERSONAL_ADDRESS, ftp_info.ftp_port, 580);
ESV_ZEL_LAYOUT(ESV_ZEL_PERSONAL_ADDRESS, ftp_info.ftp_login, 582);
ESV_ZEL_LAYOUT(ESV_ZEL_PERSONAL_ADDRESS, ftp_info.ftp_pw, 647);
ESV_ZEL_LAYOUT(ESV_ZEL_PERSONAL_ADDRESS, smb_info.smb_host, 712);
ESV_ZEL_LAYOUT(ESV_ZEL_PERSONAL_ADDRESS, smb_info.smb_path, 777);
ESV_ZEL_LAYOUT(ESV_ZEL_PERSONAL_ADDRESS, smb_info.smb_port, 906);
ESV_ZEL_LAYOUT(ESV_ZEL_PERSONAL_ADDRESS, smb_info.smb_login, 908);
ESV_ZEL_LAYOUT(ESV_ZEL_PERSONAL_ADDRESS, smb_info.smb_pw, 1037);
ESV_ZEL_LAYOUT(ESV_ZEL_PERSONAL_ADDRESS, fax_info.fax_no, 1168);
ESV_ZEL_LAYOUT(ESV_ZEL_PERSONAL_ADDRESS, fax_info.communication_speed, 1204);
ESV_ZEL_LAYOUT(ESV_ZEL_PERSONAL_ADDRESS, fax_info.ecm, 1208);
ESV_ZEL_LAYOUT(ESV_ZEL_PERSONAL_ADDRESS, fax_info.fax_code, 1209);
ESV_ZEL_LAYOUT(ESV_ZEL_PERSONAL_ADDRESS, fax_info.fax_code_pw, 1230);
ESV_ZEL_LAYOUT(ESV_ZEL_PERSONAL_ADDRESS, fax_info.cipher_send_set, 1251);
ESV_ZEL_LAYOUT(ESV_ZEL_PERSONAL_ADDRESS, fax_info.cipher_send_no, 1252);
ESV_ZEL_LAYOUT(ESV_ZEL_PERSONAL_ADDRESS, fax_info.cipher_box_set, 1253);
ESV_ZEL_LAYOUT(ESV_ZEL_PERSONAL_ADDRESS, fax_info.cipher_box_no, 1254);
ESV_ZEL_LAYOUT(ESV_ZEL_PERSONAL_ADDRESS, fax_info.name, 1255);
ESV_ZEL_LAYOUT(ESV_ZEL_PERSONAL_ADDRESS, fax_info.company_name, 1448);
ESV_ZEL_LAYOUT(ESV_ZEL_PERSONAL_ADDRESS, fax_info.post_name, 1641);
ESV_ZEL_LAYOUT(ESV_ZEL_PERSONAL_ADDRESS, fax_info.title, 1836);
ESV_ZEL_LAYOUT(ESV_ZEL_PERSONAL_ADDRESS, ifax_info.i_fax_address, 1840);
ESV_ZEL_LAYOUT(ESV_ZEL_PERSONAL_ADDRESS, ifax_info.mode, 1972);
ESV_ZEL_LAYOUT(ESV_ZEL_PERSONAL_ADDRESS, ifax_info.send_size, 1976);
ESV_ZEL_LAYOUT(ESV_ZEL_PERSONAL_ADDRESS, ifax_info.resolution, 1980);
ESV_ZEL_LAYOUT(ESV_ZEL_PERSONAL_ADDRESS, ifax_info.file_type, 1984);
ESV_ZEL_LAYOUT(ESV_ZEL_PERSONAL_ADDRESS, email_info.mail_address, 1988);

#endif
