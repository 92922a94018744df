// Records of the common facade's personal and group addresses. A personal address is 2120
// bytes: name, FTP, SMB, fax, Internet-fax and e-mail parts in this order. Text members are
// NUL-terminated; enumerated values are 32-bit. The gaps after some text members are the
// device's padding (no member: the box module exposes every member to Java).
#ifndef ESV_ZEL_ADDRESS_TYPES_H
#define ESV_ZEL_ADDRESS_TYPES_H

#include <stdint.h>

#include "esv_zel_max_sizes.h"

/** The name of an address-book entry and its pronunciation. */
struct ESV_ZEL_NAME_INFO {
    char name[ESV_ZEL_MAX_ADDRESS_NAME_SIZE];          // 0
    char furigana[ESV_ZEL_MAX_ADDRESS_KANA_SIZE];      // 193: pronunciation
};

/** The FTP destination of an address-book entry: host, path, port, login name, password. */
struct ESV_ZEL_FTP_INFO {
    char ftp_host[ESV_ZEL_MAX_FTP_HOST_SIZE];          // 0
    char ftp_path[ESV_ZEL_MAX_FTP_PATH_SIZE];          // 65
    uint16_t ftp_port;                            // 194
    char ftp_login[ESV_ZEL_MAX_FTP_LOGIN_NAME_SIZE];   // 196
    char ftp_pw[ESV_ZEL_MAX_FTP_LOGIN_PW_SIZE];        // 261
};

/**
 * The shared-folder (SMB) destination of an address-book entry: host, path, port, login name,
 * password.
 */
struct ESV_ZEL_SMB_INFO {
    char smb_host[ESV_ZEL_MAX_SMB_HOST_SIZE];          // 0
    char smb_path[ESV_ZEL_MAX_SMB_PATH_SIZE];          // 65
    uint16_t smb_port;                            // 194
    char smb_login[ESV_ZEL_MAX_SMB_LOGIN_NAME_SIZE];   // 196
    char smb_pw[ESV_ZEL_MAX_SMB_LOGIN_PW_SIZE];        // 325
};

/**
 * The fax destination of an address-book entry: number, bit rate, error correction, sub-address,
 * encryption, cover sheet names.
 */
struct ESV_ZEL_FAX_INFO {
    char fax_no[ESV_ZEL_MAX_FAX_SIZE];                 // 0
    int32_t communication_speed;                  // 36: bit rate type
    signed char ecm;                                   // 40
    char fax_code[ESV_ZEL_MAX_FAX_COOD_SIZE];          // 41: sub-address
    char fax_code_pw[ESV_ZEL_MAX_FAX_COOD_PW_SIZE];    // 62: its password
    signed char cipher_send_set;                       // 83: encode
    signed char cipher_send_no;                        // 84: encode ID
    signed char cipher_box_set;                        // 85: encode box
    signed char cipher_box_no;                         // 86: encode box number
    char name[ESV_ZEL_MAX_SEND_SHEET_NAME_SIZE];       // 87
    char company_name[ESV_ZEL_MAX_SEND_SHEET_CNP_SIZE];  // 280
    char post_name[ESV_ZEL_MAX_SEND_SHEET_POST_SIZE];  // 473: department
    int32_t title;                                // 668: honorific title type
};

/**
 * The Internet-fax destination of an address-book entry: address, mode, size, resolution and file
 * type.
 */
struct ESV_ZEL_IFAX_INFO {
    char i_fax_address[ESV_ZEL_MAX_I_FAX_SIZE];        // 0
    int32_t mode;                                 // 132
    int32_t send_size;                            // 136
    int32_t resolution;                           // 140
    int32_t file_type;                            // 144
};

/** The e-mail destination of an address-book entry: its mail address. */
struct ESV_ZEL_EMAIL_INFO {
    char mail_address[ESV_ZEL_MAX_E_MAIL_SIZE];        // 0
};

/**
 * One personal address of the device's address book: name, FTP, SMB, fax, Internet-fax and e-mail
 * destinations.
 */
struct ESV_ZEL_PERSONAL_ADDRESS {
    ESV_ZEL_NAME_INFO name_info;    // 0
    ESV_ZEL_FTP_INFO ftp_info;      // 386
    ESV_ZEL_SMB_INFO smb_info;      // 712
    ESV_ZEL_FAX_INFO fax_info;      // 1168
    ESV_ZEL_IFAX_INFO ifax_info;    // 1840
    ESV_ZEL_EMAIL_INFO email_info;  // 1988
};

/** A group of the device's address book: its id and name. */
struct ESV_ZEL_GROUP_ADDRESS {
    uint32_t group_id;         // 0
    ESV_ZEL_NAME_INFO name_info;    // 4
};

#ifndef SWIG
#include "esv_zel_layout.h"

ESV_ZEL_SIZE(ESV_ZEL_NAME_INFO, 386);
ESV_ZEL_LAYOUT(ESV_ZEL_FTP_INFO, ftp_port, 194);
ESV_ZEL_LAYOUT(ESV_ZEL_FTP_INFO, ftp_login, 196);
ESV_ZEL_LAYOUT(ESV_ZEL_FTP_INFO, ftp_pw, 261);
ESV_ZEL_SIZE(ESV_ZEL_FTP_INFO, 326);
ESV_ZEL_LAYOUT(ESV_ZEL_SMB_INFO, smb_port, 194);
ESV_ZEL_LAYOUT(ESV_ZEL_SMB_INFO, smb_pw, 325);
ESV_ZEL_SIZE(ESV_ZEL_SMB_INFO, 454);
ESV_ZEL_LAYOUT(ESV_ZEL_FAX_INFO, communication_speed, 36);
ESV_ZEL_LAYOUT(ESV_ZEL_FAX_INFO, ecm, 40);
ESV_ZEL_LAYOUT(ESV_ZEL_FAX_INFO, fax_code, 41);
ESV_ZEL_LAYOUT(ESV_ZEL_FAX_INFO, cipher_send_set, 83);
ESV_ZEL_LAYOUT(ESV_ZEL_FAX_INFO, cipher_box_no, 86);
ESV_ZEL_LAYOUT(ESV_ZEL_FAX_INFO, name, 87);
ESV_ZEL_LAYOUT(ESV_ZEL_FAX_INFO, company_name, 280);
ESV_ZEL_LAYOUT(ESV_ZEL_FAX_INFO, post_name, 473);
ESV_ZEL_LAYOUT(ESV_ZEL_FAX_INFO, title, 668);
ESV_ZEL_SIZE(ESV_ZEL_FAX_INFO, 672);
ESV_ZEL_LAYOUT(ESV_ZEL_IFAX_INFO, mode, 132);
ESV_ZEL_LAYOUT(ESV_ZEL_IFAX_INFO, file_type, 144);
ESV_ZEL_SIZE(ESV_ZEL_IFAX_INFO, 148);
ESV_ZEL_LAYOUT(ESV_ZEL_PERSONAL_ADDRESS, ftp_info, 386);
ESV_ZEL_LAYOUT(ESV_ZEL_PERSONAL_ADDRESS, smb_info, 712);
ESV_ZEL_LAYOUT(ESV_ZEL_PERSONAL_ADDRESS, fax_info, 1168);
ESV_ZEL_LAYOUT(ESV_ZEL_PERSONAL_ADDRESS, ifax_info, 1840);
ESV_ZEL_LAYOUT(ESV_ZEL_PERSONAL_ADDRESS, email_info, 1988);
ESV_ZEL_SIZE(ESV_ZEL_PERSONAL_ADDRESS, 2120);
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
ESV_ZEL_LAYOUT(ESV_ZEL_GROUP_ADDRESS, name_info, 4);
ESV_ZEL_SIZE(ESV_ZEL_GROUP_ADDRESS, 392);
#endif

#endif
