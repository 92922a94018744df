// Job service facade: result codes, enumerations and records.
//
// The records are shared by address with the closed facade library, so their layout is fixed:
// every offset and size below is checked at compile time on the host and on the device.
#ifndef ESV_ZEL_JOB_TYPES_H
#define ESV_ZEL_JOB_TYPES_H

#include <stddef.h>
#include <stdint.h>

#include "esv_zel_job_state.h"

// ---------------------------------------------------------------------------------------------
/**
 * The job service's answers. The job proxy reports them as small numbers: 0 for
 * ESV_ZEL_JOB_OK and the low part (2 to 13) for the others; 0x04010001 and any unknown answer
 * become 1.
 */
enum ESV_ZEL_JOB_RET : int {
    ESV_ZEL_JOB_OK = 0x00000000,
    ESV_ZEL_JOB_ERROR = 0x04010001,  ///< general failure
    ESV_ZEL_JOB_DUPL_OBSERVER = 0x04010002,
    ESV_ZEL_JOB_NO_OBSERVER = 0x04010003,
    ESV_ZEL_JOB_OUTPUT_PROHIBITING = 0x04010004,
    ESV_ZEL_JOB_START_PROHIBITION = 0x04010005,
    ESV_ZEL_JOB_LIMIT = 0x04010006,
    ESV_ZEL_JOB_IPC_ERROR = 0x04010007,
    ESV_ZEL_JOB_PARAM_ERROR = 0x04010008,
    ESV_ZEL_JOB_COPY_JOBINFO_LIMIT_OVER = 0x04010009,
    ESV_ZEL_JOB_RET_NOT_COPY_JOBINFO = 0x0401000A,
    ESV_ZEL_JOB_NO_CATEGORY = 0x0401000B,
    ESV_ZEL_NO_HIT_JOB = 0x0401000C,
    ESV_ZEL_JOB_ORG_SIZE_UNDEFINED = 0x0401000D
};

// ---------------------------------------------------------------------------------------------
// Enumerations. Every one has int width; values the device does not know come back as
// ESV_ZEL_JOB_PARAM_ERROR.

/** The function a job-information set is made for. */
enum ESV_ZEL_JOB_PHB_CATEGORY : int {
    ESV_ZEL_JOB_PHB_CATEGORY_COPY = 0,
    ESV_ZEL_JOB_PHB_CATEGORY_SEND = 1,
    ESV_ZEL_JOB_PHB_CATEGORY_FAX = 2,
    ESV_ZEL_JOB_PHB_CATEGORY_BOX = 3,
    ESV_ZEL_JOB_PHB_CATEGORY_PRINT = 4
};

/** The kind of job made from a committed set. */
enum ESV_ZEL_JOB_CATEGORY : int {
    ESV_ZEL_JOB_CATEGORY_COPY = 0,
    ESV_ZEL_JOB_CATEGORY_SCAN_SEND = 1,
    ESV_ZEL_JOB_CATEGORY_FAX_SEND = 2,
    ESV_ZEL_JOB_CATEGORY_BOX_STORE = 3,
    ESV_ZEL_JOB_CATEGORY_BOX_PRINT = 4,
    ESV_ZEL_JOB_CATEGORY_DIRECT_PRINT = 5,
    ESV_ZEL_JOB_CATEGORY_SCAN_READ = 6  ///< scan data read by the application
};

/**
 * Single-valued settings. Below ESV_ZEL_JOB_SETTING_TEXT_BASE they hold numbers, from there on
 * text.
 */
enum ESV_ZEL_JOB_SETTING : int {
    ESV_ZEL_JOB_SETTING_COPIES = 0,
    ESV_ZEL_JOB_SETTING_COLOR_MODE = 1,
    ESV_ZEL_JOB_SETTING_DUPLEX = 2,
    ESV_ZEL_JOB_SETTING_RESOLUTION = 3,
    ESV_ZEL_JOB_SETTING_ORIGINAL_SIZE = 4,
    ESV_ZEL_JOB_SETTING_ORIGINAL_DIR = 5,
    ESV_ZEL_JOB_SETTING_FILE_FORMAT = 6,
    ESV_ZEL_JOB_SETTING_ZOOM = 7,
    ESV_ZEL_JOB_SETTING_DENSITY = 8,
    ESV_ZEL_JOB_SETTING_ORIGINAL_PAGES = 9,  ///< pages on the original (how many get scanned)
    ESV_ZEL_JOB_SETTING_TEXT_BASE = 100,
    ESV_ZEL_JOB_SETTING_JOB_NAME = 100,
    ESV_ZEL_JOB_SETTING_FILE_NAME = 101,
    ESV_ZEL_JOB_SETTING_MAIL_SUBJECT = 102,
    ESV_ZEL_JOB_SETTING_MAIL_BODY = 103,
    ESV_ZEL_JOB_SETTING_USER_NAME = 104
};

/** Three-valued settings. */
enum ESV_ZEL_PHB_SETTING_ID : int {
    ESV_ZEL_PHB_SETTING_ID_ERASE_FRAME = 0,
    ESV_ZEL_PHB_SETTING_ID_MARGIN = 1,
    ESV_ZEL_PHB_SETTING_ID_CUSTOM_SIZE = 2,
    ESV_ZEL_PHB_SETTING_ID_SHARPNESS = 3
};

/** Items whose disabled state (a 16-bit mask) a set reports. */
enum ESV_ZEL_PHB_DISABLE_ITEM : int {
    ESV_ZEL_PHB_DISABLE_ITEM_COLOR_MODE = 0,
    ESV_ZEL_PHB_DISABLE_ITEM_DUPLEX = 1,
    ESV_ZEL_PHB_DISABLE_ITEM_RESOLUTION = 2,
    ESV_ZEL_PHB_DISABLE_ITEM_FILE_FORMAT = 3,
    ESV_ZEL_PHB_DISABLE_ITEM_ORIGINAL_SIZE = 4
};

/** Which jobs {@code zel_fnd_job_proxy.get_job_list} lists. */
enum ESV_ZEL_JOB_KIND : int {
    ESV_ZEL_JOB_KIND_ALL = 0,
    ESV_ZEL_JOB_KIND_ACTIVE = 1,   ///< created, not yet finished
    ESV_ZEL_JOB_KIND_RUNNING = 2,  ///< started, not yet finished
    ESV_ZEL_JOB_KIND_FINISHED = 3
};

/** Function types of the basic (set-independent) settings. */
enum ESV_ZEL_JOB_FUNC_TYPE : int {
    ESV_ZEL_JOB_FUNC_TYPE_COPY = 0,
    ESV_ZEL_JOB_FUNC_TYPE_SEND = 1,
    ESV_ZEL_JOB_FUNC_TYPE_FAX = 2,
    ESV_ZEL_JOB_FUNC_TYPE_BOX = 3,
    ESV_ZEL_JOB_FUNC_TYPE_PRINT = 4
};

/** Device-wide start prohibition. */
enum ESV_ZEL_STATE_OF_PROHIBITION : int {
    ESV_ZEL_STATE_OF_PROHIBITION_RELEASE = 0,
    ESV_ZEL_STATE_OF_PROHIBITION_SET = 1
};

/** Send address types (ESV_ZEL_JOB_SEND_INFO::address_type). */
enum ESV_ZEL_JOB_ADDRESS_TYPE : int {
    ESV_ZEL_JOB_ADDRESS_TYPE_FTP = 0,
    ESV_ZEL_JOB_ADDRESS_TYPE_SMB = 1,
    ESV_ZEL_JOB_ADDRESS_TYPE_MAIL = 2,
    ESV_ZEL_JOB_ADDRESS_TYPE_FAX = 3
};

// ---------------------------------------------------------------------------------------------
// Sizes (texts include their terminating zero); unsigned, as Java sees them (long).
#define ESV_ZEL_JOB_FTP_HOST_NAME_SIZE 65u
#define ESV_ZEL_JOB_FTP_PATH_NAME_SIZE 129u
#define ESV_ZEL_JOB_FTP_USER_NAME_SIZE 65u
#define ESV_ZEL_JOB_FTP_PASSWORD_SIZE 65u
#define ESV_ZEL_JOB_SMB_HOST_NAME_SIZE 65u
#define ESV_ZEL_JOB_SMB_PATH_NAME_SIZE 129u
#define ESV_ZEL_JOB_SMB_USER_NAME_SIZE 129u
#define ESV_ZEL_JOB_SMB_PASSWORD_SIZE 129u
#define ESV_ZEL_JOB_MAIL_ADDRESS_SIZE 129u
#define ESV_ZEL_JOB_ADDRESS_LIST_NUM 100u
#define ESV_ZEL_JOB_FAX_NUMBER_SIZE 65u
#define ESV_ZEL_JOB_SUB_ADDRESS_SIZE 21u
#define ESV_ZEL_JOB_SUB_ADDRESS_PASSWORD_SIZE 21u
#define ESV_ZEL_JOB_ACCESS_PATH_SIZE 1531u
#define ESV_ZEL_JOB_BOX_PASS_SIZE 17u
#define ESV_ZEL_JOB_DOC_NAME_SIZE 257u
#define ESV_ZEL_JOB_JOB_FILENAME_SIZE 257u
#define ESV_ZEL_JOB_GET_SCAN_DATA_SIZE 4096u
#define ESV_ZEL_JOB_DOC_PASS_SIZE 5u

// ---------------------------------------------------------------------------------------------
// Records.

/** The operation panel's main message of a job-information set. */
struct ESV_ZEL_PHB_GET_MESSAGE {
    int main_msg_1;
    int main_msg_2;
    int main_msg_3;
    int msg_detail_info[4];
    char msg_detail_filename[ESV_ZEL_JOB_JOB_FILENAME_SIZE];
};

/** A send address on an FTP server: host, port, path, login name and password. */
struct ESV_ZEL_JOB_SEND_INFO_FTP {
    char host_name[ESV_ZEL_JOB_FTP_HOST_NAME_SIZE];
    uint16_t port_num;
    char path_name[ESV_ZEL_JOB_FTP_PATH_NAME_SIZE];
    char login_user_name[ESV_ZEL_JOB_FTP_USER_NAME_SIZE];
    char login_password[ESV_ZEL_JOB_FTP_PASSWORD_SIZE];
};

/** A send address in a shared folder (SMB): host, port, path, login name and password. */
struct ESV_ZEL_JOB_SEND_INFO_SMB {
    char host_name[ESV_ZEL_JOB_SMB_HOST_NAME_SIZE];
    uint16_t port_num;
    char path_name[ESV_ZEL_JOB_SMB_PATH_NAME_SIZE];
    char login_user_name[ESV_ZEL_JOB_SMB_USER_NAME_SIZE];
    char login_password[ESV_ZEL_JOB_SMB_PASSWORD_SIZE];
};

/** A send address by e-mail: the mail address. */
struct ESV_ZEL_JOB_SEND_INFO_MAIL {
    int address_type;
    char mail_address[ESV_ZEL_JOB_MAIL_ADDRESS_SIZE];
};

/**
 * A send address by fax: number, sub-address and its password, communication rate, error
 * correction, encryption.
 */
struct ESV_ZEL_JOB_SEND_INFO_FAX {
    char fax_number[ESV_ZEL_JOB_FAX_NUMBER_SIZE];
    char sub_address[ESV_ZEL_JOB_SUB_ADDRESS_SIZE];
    char sub_address_password[ESV_ZEL_JOB_SUB_ADDRESS_PASSWORD_SIZE];
    int comrate;
    int ecm;
    int cipher;
    uint8_t encryption_key_id;
};

/**
 * The address itself, one of FTP, SMB, mail or fax as the send address's type tells ({@code
 * ESV_ZEL_JOB_ADDRESS_TYPE}).
 */
union ESV_ZEL_JOB_SEND_INFO_DETAIL {
    ESV_ZEL_JOB_SEND_INFO_FTP ftp_info;
    ESV_ZEL_JOB_SEND_INFO_SMB smb_info;
    ESV_ZEL_JOB_SEND_INFO_MAIL mail_info;
    ESV_ZEL_JOB_SEND_INFO_FAX fax_info;
};

/** One send address; address_type tells the valid member of detail. */
struct ESV_ZEL_JOB_SEND_INFO {
    int address_type;  ///< ESV_ZEL_JOB_ADDRESS_TYPE
    ESV_ZEL_JOB_SEND_INFO_DETAIL detail;
};

/**
 * What a document-box job works on: the job type, box and document ids, their passwords and the
 * access path ({@code zel_fnd_job_proxy.box_job_prepare}).
 */
struct ESV_ZEL_BOX_JOB_INIT_SETTING {
    int box_job_type;
    uint32_t box_id;
    uint32_t doc_id;
    char box_pass[ESV_ZEL_JOB_BOX_PASS_SIZE];
    char access_path[ESV_ZEL_JOB_ACCESS_PATH_SIZE];
    char doc_pass[ESV_ZEL_JOB_DOC_PASS_SIZE];
};

/** Which settings of a job-information set are disabled, item by item. */
struct ESV_ZEL_PHB_INFO_DISABLE {
    uint32_t setting_id;
    uint32_t original_image;
    uint32_t original_dir;
    uint32_t original_mixed;
    uint32_t original_duplex;
    uint32_t color_mode;
    uint32_t file_format;
    uint32_t scn_resolution;
    uint32_t original_size;
    uint32_t combine_setting;
    uint32_t paper_source_setting;
    uint32_t zoom_mode;
    uint32_t pdf_a_level;
};

/**
 * Which settings of a job-information set may still be changed after the job started, item by item.
 */
struct ESV_ZEL_PHB_INFO_AFTERWARD {
    uint32_t setting_id;
    uint32_t original_image;
    uint32_t original_dir;
    uint32_t file_format;
    uint32_t scn_resolution;
    uint32_t feeder;
    uint32_t zoom_mode;
    uint32_t pdf_a_level;
};

/**
 * The content of a job-information report: the disabled items, the items changeable afterwards, or
 * the start flag.
 */
union ESV_ZEL_PHB_INFO_DETAIL {
    ESV_ZEL_PHB_INFO_DISABLE disable_info;
    ESV_ZEL_PHB_INFO_AFTERWARD afterward_info;
    uint32_t start_info;  ///< a flag word: 1 or 0
};

/** A report on a job-information set: its type and its content. */
struct ESV_ZEL_PHB_INFO {
    int phb_type;
    ESV_ZEL_PHB_INFO_DETAIL phb_info_detail;
};

/**
 * Two documents of a box to combine into a new one ({@code zel_fnd_job_proxy.combine_document}):
 * box, its password, the two documents and the new name.
 */
struct ESV_ZEL_PHB_COMBINE_DOC_INFO {
    uint32_t box_id;
    char box_pass[ESV_ZEL_JOB_BOX_PASS_SIZE];
    uint32_t in_doc_id_parent;
    uint32_t in_doc_id_child;
    char out_doc_name[ESV_ZEL_JOB_DOC_NAME_SIZE];
};

/**
 * One piece of a running job's scan data ({@code zel_fnd_job_proxy.get_scan_data}): up to 4096
 * bytes, how many are valid, and the state of the document (0 while more is coming).
 */
struct ESV_ZEL_JOB_GET_SCAN_DATA {
    char scan_data[ESV_ZEL_JOB_GET_SCAN_DATA_SIZE];
    uint32_t data_size;
    int doc_state;
};

#ifndef SWIG
// ---------------------------------------------------------------------------------------------
// Layout checks (identical on the 64-bit host and the 32-bit device).
#include "esv_zel_layout.h"

ESV_ZEL_SIZE(ESV_ZEL_PHB_GET_MESSAGE, 288);
ESV_ZEL_LAYOUT(ESV_ZEL_PHB_GET_MESSAGE, main_msg_1, 0);
ESV_ZEL_LAYOUT(ESV_ZEL_PHB_GET_MESSAGE, main_msg_2, 4);
ESV_ZEL_LAYOUT(ESV_ZEL_PHB_GET_MESSAGE, main_msg_3, 8);
ESV_ZEL_LAYOUT(ESV_ZEL_PHB_GET_MESSAGE, msg_detail_info, 12);
ESV_ZEL_LAYOUT(ESV_ZEL_PHB_GET_MESSAGE, msg_detail_filename, 28);

ESV_ZEL_SIZE(ESV_ZEL_JOB_SEND_INFO_FTP, 328);
ESV_ZEL_LAYOUT(ESV_ZEL_JOB_SEND_INFO_FTP, host_name, 0);
ESV_ZEL_LAYOUT(ESV_ZEL_JOB_SEND_INFO_FTP, port_num, 66);
ESV_ZEL_LAYOUT(ESV_ZEL_JOB_SEND_INFO_FTP, path_name, 68);
ESV_ZEL_LAYOUT(ESV_ZEL_JOB_SEND_INFO_FTP, login_user_name, 197);
ESV_ZEL_LAYOUT(ESV_ZEL_JOB_SEND_INFO_FTP, login_password, 262);

ESV_ZEL_SIZE(ESV_ZEL_JOB_SEND_INFO_SMB, 456);
ESV_ZEL_LAYOUT(ESV_ZEL_JOB_SEND_INFO_SMB, host_name, 0);
ESV_ZEL_LAYOUT(ESV_ZEL_JOB_SEND_INFO_SMB, port_num, 66);
ESV_ZEL_LAYOUT(ESV_ZEL_JOB_SEND_INFO_SMB, path_name, 68);
ESV_ZEL_LAYOUT(ESV_ZEL_JOB_SEND_INFO_SMB, login_user_name, 197);
ESV_ZEL_LAYOUT(ESV_ZEL_JOB_SEND_INFO_SMB, login_password, 326);

ESV_ZEL_SIZE(ESV_ZEL_JOB_SEND_INFO_MAIL, 136);
ESV_ZEL_LAYOUT(ESV_ZEL_JOB_SEND_INFO_MAIL, address_type, 0);
ESV_ZEL_LAYOUT(ESV_ZEL_JOB_SEND_INFO_MAIL, mail_address, 4);

ESV_ZEL_SIZE(ESV_ZEL_JOB_SEND_INFO_FAX, 124);
ESV_ZEL_LAYOUT(ESV_ZEL_JOB_SEND_INFO_FAX, fax_number, 0);
ESV_ZEL_LAYOUT(ESV_ZEL_JOB_SEND_INFO_FAX, sub_address, 65);
ESV_ZEL_LAYOUT(ESV_ZEL_JOB_SEND_INFO_FAX, sub_address_password, 86);
ESV_ZEL_LAYOUT(ESV_ZEL_JOB_SEND_INFO_FAX, comrate, 108);
ESV_ZEL_LAYOUT(ESV_ZEL_JOB_SEND_INFO_FAX, ecm, 112);
ESV_ZEL_LAYOUT(ESV_ZEL_JOB_SEND_INFO_FAX, cipher, 116);
ESV_ZEL_LAYOUT(ESV_ZEL_JOB_SEND_INFO_FAX, encryption_key_id, 120);

ESV_ZEL_SIZE(ESV_ZEL_JOB_SEND_INFO_DETAIL, 456);
ESV_ZEL_LAYOUT(ESV_ZEL_JOB_SEND_INFO_DETAIL, ftp_info, 0);
ESV_ZEL_LAYOUT(ESV_ZEL_JOB_SEND_INFO_DETAIL, smb_info, 0);
ESV_ZEL_LAYOUT(ESV_ZEL_JOB_SEND_INFO_DETAIL, mail_info, 0);
ESV_ZEL_LAYOUT(ESV_ZEL_JOB_SEND_INFO_DETAIL, fax_info, 0);

ESV_ZEL_SIZE(ESV_ZEL_JOB_SEND_INFO, 460);
ESV_ZEL_LAYOUT(ESV_ZEL_JOB_SEND_INFO, address_type, 0);
ESV_ZEL_LAYOUT(ESV_ZEL_JOB_SEND_INFO, detail, 4);

ESV_ZEL_SIZE(ESV_ZEL_BOX_JOB_INIT_SETTING, 1568);
ESV_ZEL_LAYOUT(ESV_ZEL_BOX_JOB_INIT_SETTING, box_job_type, 0);
ESV_ZEL_LAYOUT(ESV_ZEL_BOX_JOB_INIT_SETTING, box_id, 4);
ESV_ZEL_LAYOUT(ESV_ZEL_BOX_JOB_INIT_SETTING, doc_id, 8);
ESV_ZEL_LAYOUT(ESV_ZEL_BOX_JOB_INIT_SETTING, box_pass, 12);
ESV_ZEL_LAYOUT(ESV_ZEL_BOX_JOB_INIT_SETTING, access_path, 29);
ESV_ZEL_LAYOUT(ESV_ZEL_BOX_JOB_INIT_SETTING, doc_pass, 1560);

ESV_ZEL_SIZE(ESV_ZEL_PHB_INFO_DISABLE, 52);
ESV_ZEL_LAYOUT(ESV_ZEL_PHB_INFO_DISABLE, setting_id, 0);
ESV_ZEL_LAYOUT(ESV_ZEL_PHB_INFO_DISABLE, original_image, 4);
ESV_ZEL_LAYOUT(ESV_ZEL_PHB_INFO_DISABLE, original_dir, 8);
ESV_ZEL_LAYOUT(ESV_ZEL_PHB_INFO_DISABLE, original_mixed, 12);
ESV_ZEL_LAYOUT(ESV_ZEL_PHB_INFO_DISABLE, original_duplex, 16);
ESV_ZEL_LAYOUT(ESV_ZEL_PHB_INFO_DISABLE, color_mode, 20);
ESV_ZEL_LAYOUT(ESV_ZEL_PHB_INFO_DISABLE, file_format, 24);
ESV_ZEL_LAYOUT(ESV_ZEL_PHB_INFO_DISABLE, scn_resolution, 28);
ESV_ZEL_LAYOUT(ESV_ZEL_PHB_INFO_DISABLE, original_size, 32);
ESV_ZEL_LAYOUT(ESV_ZEL_PHB_INFO_DISABLE, combine_setting, 36);
ESV_ZEL_LAYOUT(ESV_ZEL_PHB_INFO_DISABLE, paper_source_setting, 40);
ESV_ZEL_LAYOUT(ESV_ZEL_PHB_INFO_DISABLE, zoom_mode, 44);
ESV_ZEL_LAYOUT(ESV_ZEL_PHB_INFO_DISABLE, pdf_a_level, 48);

ESV_ZEL_SIZE(ESV_ZEL_PHB_INFO_AFTERWARD, 32);
ESV_ZEL_LAYOUT(ESV_ZEL_PHB_INFO_AFTERWARD, setting_id, 0);
ESV_ZEL_LAYOUT(ESV_ZEL_PHB_INFO_AFTERWARD, original_image, 4);
ESV_ZEL_LAYOUT(ESV_ZEL_PHB_INFO_AFTERWARD, original_dir, 8);
ESV_ZEL_LAYOUT(ESV_ZEL_PHB_INFO_AFTERWARD, file_format, 12);
ESV_ZEL_LAYOUT(ESV_ZEL_PHB_INFO_AFTERWARD, scn_resolution, 16);
ESV_ZEL_LAYOUT(ESV_ZEL_PHB_INFO_AFTERWARD, feeder, 20);
ESV_ZEL_LAYOUT(ESV_ZEL_PHB_INFO_AFTERWARD, zoom_mode, 24);
ESV_ZEL_LAYOUT(ESV_ZEL_PHB_INFO_AFTERWARD, pdf_a_level, 28);

ESV_ZEL_SIZE(ESV_ZEL_PHB_INFO_DETAIL, 52);
ESV_ZEL_LAYOUT(ESV_ZEL_PHB_INFO_DETAIL, disable_info, 0);
ESV_ZEL_LAYOUT(ESV_ZEL_PHB_INFO_DETAIL, afterward_info, 0);
ESV_ZEL_LAYOUT(ESV_ZEL_PHB_INFO_DETAIL, start_info, 0);

ESV_ZEL_SIZE(ESV_ZEL_PHB_INFO, 56);
ESV_ZEL_LAYOUT(ESV_ZEL_PHB_INFO, phb_type, 0);
ESV_ZEL_LAYOUT(ESV_ZEL_PHB_INFO, phb_info_detail, 4);

ESV_ZEL_SIZE(ESV_ZEL_PHB_COMBINE_DOC_INFO, 292);
ESV_ZEL_LAYOUT(ESV_ZEL_PHB_COMBINE_DOC_INFO, box_id, 0);
ESV_ZEL_LAYOUT(ESV_ZEL_PHB_COMBINE_DOC_INFO, box_pass, 4);
ESV_ZEL_LAYOUT(ESV_ZEL_PHB_COMBINE_DOC_INFO, in_doc_id_parent, 24);
ESV_ZEL_LAYOUT(ESV_ZEL_PHB_COMBINE_DOC_INFO, in_doc_id_child, 28);
ESV_ZEL_LAYOUT(ESV_ZEL_PHB_COMBINE_DOC_INFO, out_doc_name, 32);

ESV_ZEL_SIZE(ESV_ZEL_JOB_GET_SCAN_DATA, 4104);
ESV_ZEL_LAYOUT(ESV_ZEL_JOB_GET_SCAN_DATA, scan_data, 0);
ESV_ZEL_LAYOUT(ESV_ZEL_JOB_GET_SCAN_DATA, data_size, 4096);
ESV_ZEL_LAYOUT(ESV_ZEL_JOB_GET_SCAN_DATA, doc_state, 4100);
#endif  // SWIG

#endif
