// Job-information facade: result codes, enumerations, job-log records and the records of its
// notifications.
//
// The records are shared by address with the closed facade library, so their layout is fixed:
// every offset and size below is checked at compile time on the host and on the device.
#ifndef ESV_ZEL_JOBINFO_TYPES_H
#define ESV_ZEL_JOBINFO_TYPES_H

#include <stddef.h>
#include <stdint.h>

// ---------------------------------------------------------------------------------------------
/** Result codes of the job-information facade. */
enum ESV_ZEL_JOBINFO_RET : int {
    ESV_ZEL_JOBINFO_OK = 0x00000000,
    ESV_ZEL_JOBINFO_ERROR = 0x04010001,
    ESV_ZEL_JOBINFO_DUPL_OBSERVER = 0x04010002,
    ESV_ZEL_JOBINFO_NO_OBSERVER = 0x04010003,
    ESV_ZEL_JOBINFO_PARAM_ERROR = 0x04010004,
    ESV_ZEL_JOBINFO_NOT_FOUND_ERROR = 0x04010005,
    ESV_ZEL_JOBINFO_ERROR_OUT_OF_RANGE = 0x04010006,
    ESV_ZEL_JOBINFO_ERROR_CRITICAL = 0x04010007,
    ESV_ZEL_JOBINFO_IPC_ERROR = 0x04010008,
    ESV_ZEL_JOBINFO_LIST_OPERATE_ERROR = 0x04010009
};

/** Which log a receipt id is looked up in. */
enum ESV_ZEL_JOBINFO_JOBLOG_TYPE_VAL : int {
    ESV_ZEL_JOBINFO_JOBLOG_TYPE_PRINT = 0,
    ESV_ZEL_JOBINFO_JOBLOG_TYPE_SEND = 1,
    ESV_ZEL_JOBINFO_JOBLOG_TYPE_RECEIVE = 2,
    ESV_ZEL_JOBINFO_JOBLOG_TYPE_STORE = 3
};

/** Destination kinds of the send and receive lists (category fields). */
enum ESV_ZEL_JOBINFO_CATEGORY : int {
    ESV_ZEL_JOBINFO_CATEGORY_MAIL = 0,
    ESV_ZEL_JOBINFO_CATEGORY_I_FAX = 1,
    ESV_ZEL_JOBINFO_CATEGORY_FAX = 2,
    ESV_ZEL_JOBINFO_CATEGORY_PC = 3
};

// ---------------------------------------------------------------------------------------------
// Job log records.

/**
 * One entry of the job log ({@code zel_fnd_job_log_proxy.retrieve_joblog}): the job's result
 * ({@code ESV_ZEL_EVENT_JOB_RESULT}) and error code, times, user, name, pages and copies, and
 * how many send and receive destinations it has.
 */
struct ESV_ZEL_JOBINFO_JOBLOG {
    uint32_t receipt_id;
    int result;
    int result_err;
    uint32_t received_time;
    uint32_t end_time;
    char user_name[257];
    int job_log_type;
    char job_name[257];
    char login_name[193];
    uint8_t input_attribute;
    uint8_t output_attribute;
    uint16_t original_page_number;
    uint16_t copies;
    uint16_t completed_copies;
    uint16_t print_completion_page_number;
    int scan_type;
    uint32_t start_time;
    char dept_code[9];
    uint32_t total_time;
    uint16_t total_page_number;
    uint32_t receive_num;  ///< entries of the receive list
    uint32_t send_num;     ///< entries of the send list
};

/** A logged destination by e-mail: the mail address. */
struct ESV_ZEL_JOBINFO_SEND_INFO_MAIL {
    char mail_address[129];
};
/** A logged destination by Internet fax: its address. */
struct ESV_ZEL_JOBINFO_SEND_INFO_I_FAX {
    char i_fax_address[129];
};
/** A logged destination by fax: number, line, time and pages. */
struct ESV_ZEL_JOBINFO_SEND_INFO_FAX {
    char fax_no[65];
    int port_no;
    uint32_t time;
    uint16_t page_number;
};
/** A logged destination on a computer: its host name. */
struct ESV_ZEL_JOBINFO_SEND_INFO_PC {
    char host_name[65];
};
/** The logged destination itself: mail, Internet fax, fax or computer, as its category tells. */
union ESV_ZEL_JOBINFO_SEND_INFO_DETAIL {
    ESV_ZEL_JOBINFO_SEND_INFO_MAIL mail;
    ESV_ZEL_JOBINFO_SEND_INFO_I_FAX i_fax;
    ESV_ZEL_JOBINFO_SEND_INFO_FAX fax;
    ESV_ZEL_JOBINFO_SEND_INFO_PC pc;
};
/** One destination of a logged job; category tells the valid member of detail. */
struct ESV_ZEL_JOBINFO_SEND_INFO {
    int category;
    int result;
    int result_err;
    char destination_name[258];
    ESV_ZEL_JOBINFO_SEND_INFO_DETAIL detail;
};

/** A logged reception by e-mail: the sender's mail address. */
struct ESV_ZEL_JOBINFO_RECEIVE_INFO_MAIL {
    char mail_address[129];
};
/** A logged reception by Internet fax: the sender's address. */
struct ESV_ZEL_JOBINFO_RECEIVE_INFO_I_FAX {
    char i_fax_address[129];
};
/** A logged fax reception: sender, number, line, result and time. */
struct ESV_ZEL_JOBINFO_RECEIVE_INFO_FAX {
    char destination_name[194];
    char fax_no[65];
    int port_no;
    int result;
    int result_err;
    uint32_t time;
};
/** A logged reception from a computer: its host name. */
struct ESV_ZEL_JOBINFO_RECEIVE_INFO_PC {
    char host_name[65];
};
/** The logged reception itself: mail, Internet fax, fax or computer, as its category tells. */
union ESV_ZEL_JOBINFO_RECEIVE_INFO_DETAIL {
    ESV_ZEL_JOBINFO_RECEIVE_INFO_MAIL mail;
    ESV_ZEL_JOBINFO_RECEIVE_INFO_I_FAX i_fax;
    ESV_ZEL_JOBINFO_RECEIVE_INFO_FAX fax;
    ESV_ZEL_JOBINFO_RECEIVE_INFO_PC pc;
};
/**
 * One reception of a logged job ({@code zel_fnd_job_log_proxy.get_receive_info}); its category
 * tells the valid member of detail.
 */
struct ESV_ZEL_JOBINFO_RECEIVE_INFO {
    int category;
    ESV_ZEL_JOBINFO_RECEIVE_INFO_DETAIL detail;
};

// ---------------------------------------------------------------------------------------------
// Notification records.

/** A job-log entry was written. */
struct ESV_ZEL_EVENT_JOB_UPDATE_LOG {
    uint32_t user_job_id;
    uint32_t receipt_id;
};

/** A fax page was sent. */
struct ESV_ZEL_EVENT_SEND_PAGE {
    uint32_t user_job_id;
    uint32_t page_num;
};

/** An interpreter started for a print job. */
struct ESV_ZEL_EVENT_RENINT_START {
    uint32_t user_job_id;
    uint8_t name_setting;
    uint32_t interface_info;
};

/** A page was printed. */
struct ESV_ZEL_EVENT_PRINT_PAGE {
    uint32_t user_job_id;
    uint32_t page_num;
    int output_dev;
    int input_dev;
    uint16_t custom_x;
    uint16_t custom_y;
    int paper_size;
    int paper_type;
    int paper_dir;
    int paper_weight;
    int duplex;
    int staple;
    int punch;
    int color_mode;
};

/** A page was scanned. */
struct ESV_ZEL_EVENT_SCAN_PAGE {
    uint32_t user_job_id;
    uint32_t page_num;
    uint16_t custom_x;
    uint16_t custom_y;
    int paper_size;
    int paper_dir;
    int duplex;
    int color_mode;
    int resolution;
};

#ifndef SWIG
// ---------------------------------------------------------------------------------------------
// Layout checks (identical on the 64-bit host and the 32-bit device).
#include "esv_zel_layout.h"

ESV_ZEL_SIZE(ESV_ZEL_JOBINFO_JOBLOG, 780);
ESV_ZEL_LAYOUT(ESV_ZEL_JOBINFO_JOBLOG, receipt_id, 0);
ESV_ZEL_LAYOUT(ESV_ZEL_JOBINFO_JOBLOG, result, 4);
ESV_ZEL_LAYOUT(ESV_ZEL_JOBINFO_JOBLOG, result_err, 8);
ESV_ZEL_LAYOUT(ESV_ZEL_JOBINFO_JOBLOG, received_time, 12);
ESV_ZEL_LAYOUT(ESV_ZEL_JOBINFO_JOBLOG, end_time, 16);
ESV_ZEL_LAYOUT(ESV_ZEL_JOBINFO_JOBLOG, user_name, 20);
ESV_ZEL_LAYOUT(ESV_ZEL_JOBINFO_JOBLOG, job_log_type, 280);
ESV_ZEL_LAYOUT(ESV_ZEL_JOBINFO_JOBLOG, job_name, 284);
ESV_ZEL_LAYOUT(ESV_ZEL_JOBINFO_JOBLOG, login_name, 541);
ESV_ZEL_LAYOUT(ESV_ZEL_JOBINFO_JOBLOG, input_attribute, 734);
ESV_ZEL_LAYOUT(ESV_ZEL_JOBINFO_JOBLOG, output_attribute, 735);
ESV_ZEL_LAYOUT(ESV_ZEL_JOBINFO_JOBLOG, original_page_number, 736);
ESV_ZEL_LAYOUT(ESV_ZEL_JOBINFO_JOBLOG, copies, 738);
ESV_ZEL_LAYOUT(ESV_ZEL_JOBINFO_JOBLOG, completed_copies, 740);
ESV_ZEL_LAYOUT(ESV_ZEL_JOBINFO_JOBLOG, print_completion_page_number, 742);
ESV_ZEL_LAYOUT(ESV_ZEL_JOBINFO_JOBLOG, scan_type, 744);
ESV_ZEL_LAYOUT(ESV_ZEL_JOBINFO_JOBLOG, start_time, 748);
ESV_ZEL_LAYOUT(ESV_ZEL_JOBINFO_JOBLOG, dept_code, 752);
ESV_ZEL_LAYOUT(ESV_ZEL_JOBINFO_JOBLOG, total_time, 764);
ESV_ZEL_LAYOUT(ESV_ZEL_JOBINFO_JOBLOG, total_page_number, 768);
ESV_ZEL_LAYOUT(ESV_ZEL_JOBINFO_JOBLOG, receive_num, 772);
ESV_ZEL_LAYOUT(ESV_ZEL_JOBINFO_JOBLOG, send_num, 776);

ESV_ZEL_SIZE(ESV_ZEL_JOBINFO_SEND_INFO_FAX, 80);
ESV_ZEL_LAYOUT(ESV_ZEL_JOBINFO_SEND_INFO_FAX, fax_no, 0);
ESV_ZEL_LAYOUT(ESV_ZEL_JOBINFO_SEND_INFO_FAX, port_no, 68);
ESV_ZEL_LAYOUT(ESV_ZEL_JOBINFO_SEND_INFO_FAX, time, 72);
ESV_ZEL_LAYOUT(ESV_ZEL_JOBINFO_SEND_INFO_FAX, page_number, 76);
ESV_ZEL_SIZE(ESV_ZEL_JOBINFO_SEND_INFO_MAIL, 129);
ESV_ZEL_SIZE(ESV_ZEL_JOBINFO_SEND_INFO_I_FAX, 129);
ESV_ZEL_SIZE(ESV_ZEL_JOBINFO_SEND_INFO_PC, 65);
ESV_ZEL_SIZE(ESV_ZEL_JOBINFO_SEND_INFO_DETAIL, 132);
ESV_ZEL_LAYOUT(ESV_ZEL_JOBINFO_SEND_INFO_DETAIL, mail, 0);
ESV_ZEL_LAYOUT(ESV_ZEL_JOBINFO_SEND_INFO_DETAIL, i_fax, 0);
ESV_ZEL_LAYOUT(ESV_ZEL_JOBINFO_SEND_INFO_DETAIL, fax, 0);
ESV_ZEL_LAYOUT(ESV_ZEL_JOBINFO_SEND_INFO_DETAIL, pc, 0);
ESV_ZEL_SIZE(ESV_ZEL_JOBINFO_SEND_INFO, 404);
ESV_ZEL_LAYOUT(ESV_ZEL_JOBINFO_SEND_INFO, category, 0);
ESV_ZEL_LAYOUT(ESV_ZEL_JOBINFO_SEND_INFO, result, 4);
ESV_ZEL_LAYOUT(ESV_ZEL_JOBINFO_SEND_INFO, result_err, 8);
ESV_ZEL_LAYOUT(ESV_ZEL_JOBINFO_SEND_INFO, destination_name, 12);
ESV_ZEL_LAYOUT(ESV_ZEL_JOBINFO_SEND_INFO, detail, 272);

ESV_ZEL_SIZE(ESV_ZEL_JOBINFO_RECEIVE_INFO_FAX, 276);
ESV_ZEL_LAYOUT(ESV_ZEL_JOBINFO_RECEIVE_INFO_FAX, destination_name, 0);
ESV_ZEL_LAYOUT(ESV_ZEL_JOBINFO_RECEIVE_INFO_FAX, fax_no, 194);
ESV_ZEL_LAYOUT(ESV_ZEL_JOBINFO_RECEIVE_INFO_FAX, port_no, 260);
ESV_ZEL_LAYOUT(ESV_ZEL_JOBINFO_RECEIVE_INFO_FAX, result, 264);
ESV_ZEL_LAYOUT(ESV_ZEL_JOBINFO_RECEIVE_INFO_FAX, result_err, 268);
ESV_ZEL_LAYOUT(ESV_ZEL_JOBINFO_RECEIVE_INFO_FAX, time, 272);
ESV_ZEL_SIZE(ESV_ZEL_JOBINFO_RECEIVE_INFO_MAIL, 129);
ESV_ZEL_SIZE(ESV_ZEL_JOBINFO_RECEIVE_INFO_I_FAX, 129);
ESV_ZEL_SIZE(ESV_ZEL_JOBINFO_RECEIVE_INFO_PC, 65);
ESV_ZEL_SIZE(ESV_ZEL_JOBINFO_RECEIVE_INFO_DETAIL, 276);
ESV_ZEL_LAYOUT(ESV_ZEL_JOBINFO_RECEIVE_INFO_DETAIL, mail, 0);
ESV_ZEL_LAYOUT(ESV_ZEL_JOBINFO_RECEIVE_INFO_DETAIL, i_fax, 0);
ESV_ZEL_LAYOUT(ESV_ZEL_JOBINFO_RECEIVE_INFO_DETAIL, fax, 0);
ESV_ZEL_LAYOUT(ESV_ZEL_JOBINFO_RECEIVE_INFO_DETAIL, pc, 0);
ESV_ZEL_SIZE(ESV_ZEL_JOBINFO_RECEIVE_INFO, 280);
ESV_ZEL_LAYOUT(ESV_ZEL_JOBINFO_RECEIVE_INFO, category, 0);
ESV_ZEL_LAYOUT(ESV_ZEL_JOBINFO_RECEIVE_INFO, detail, 4);

ESV_ZEL_SIZE(ESV_ZEL_EVENT_JOB_UPDATE_LOG, 8);
ESV_ZEL_LAYOUT(ESV_ZEL_EVENT_JOB_UPDATE_LOG, user_job_id, 0);
ESV_ZEL_LAYOUT(ESV_ZEL_EVENT_JOB_UPDATE_LOG, receipt_id, 4);
ESV_ZEL_SIZE(ESV_ZEL_EVENT_SEND_PAGE, 8);
ESV_ZEL_LAYOUT(ESV_ZEL_EVENT_SEND_PAGE, user_job_id, 0);
ESV_ZEL_LAYOUT(ESV_ZEL_EVENT_SEND_PAGE, page_num, 4);
ESV_ZEL_SIZE(ESV_ZEL_EVENT_RENINT_START, 12);
ESV_ZEL_LAYOUT(ESV_ZEL_EVENT_RENINT_START, user_job_id, 0);
ESV_ZEL_LAYOUT(ESV_ZEL_EVENT_RENINT_START, name_setting, 4);
ESV_ZEL_LAYOUT(ESV_ZEL_EVENT_RENINT_START, interface_info, 8);
ESV_ZEL_SIZE(ESV_ZEL_EVENT_PRINT_PAGE, 52);
ESV_ZEL_LAYOUT(ESV_ZEL_EVENT_PRINT_PAGE, user_job_id, 0);
ESV_ZEL_LAYOUT(ESV_ZEL_EVENT_PRINT_PAGE, page_num, 4);
ESV_ZEL_LAYOUT(ESV_ZEL_EVENT_PRINT_PAGE, output_dev, 8);
ESV_ZEL_LAYOUT(ESV_ZEL_EVENT_PRINT_PAGE, input_dev, 12);
ESV_ZEL_LAYOUT(ESV_ZEL_EVENT_PRINT_PAGE, custom_x, 16);
ESV_ZEL_LAYOUT(ESV_ZEL_EVENT_PRINT_PAGE, custom_y, 18);
ESV_ZEL_LAYOUT(ESV_ZEL_EVENT_PRINT_PAGE, paper_size, 20);
ESV_ZEL_LAYOUT(ESV_ZEL_EVENT_PRINT_PAGE, paper_type, 24);
ESV_ZEL_LAYOUT(ESV_ZEL_EVENT_PRINT_PAGE, paper_dir, 28);
ESV_ZEL_LAYOUT(ESV_ZEL_EVENT_PRINT_PAGE, paper_weight, 32);
ESV_ZEL_LAYOUT(ESV_ZEL_EVENT_PRINT_PAGE, duplex, 36);
ESV_ZEL_LAYOUT(ESV_ZEL_EVENT_PRINT_PAGE, staple, 40);
ESV_ZEL_LAYOUT(ESV_ZEL_EVENT_PRINT_PAGE, punch, 44);
ESV_ZEL_LAYOUT(ESV_ZEL_EVENT_PRINT_PAGE, color_mode, 48);
ESV_ZEL_SIZE(ESV_ZEL_EVENT_SCAN_PAGE, 32);
ESV_ZEL_LAYOUT(ESV_ZEL_EVENT_SCAN_PAGE, user_job_id, 0);
ESV_ZEL_LAYOUT(ESV_ZEL_EVENT_SCAN_PAGE, page_num, 4);
ESV_ZEL_LAYOUT(ESV_ZEL_EVENT_SCAN_PAGE, custom_x, 8);
ESV_ZEL_LAYOUT(ESV_ZEL_EVENT_SCAN_PAGE, custom_y, 10);
ESV_ZEL_LAYOUT(ESV_ZEL_EVENT_SCAN_PAGE, paper_size, 12);
ESV_ZEL_LAYOUT(ESV_ZEL_EVENT_SCAN_PAGE, paper_dir, 16);
ESV_ZEL_LAYOUT(ESV_ZEL_EVENT_SCAN_PAGE, duplex, 20);
ESV_ZEL_LAYOUT(ESV_ZEL_EVENT_SCAN_PAGE, color_mode, 24);
ESV_ZEL_LAYOUT(ESV_ZEL_EVENT_SCAN_PAGE, resolution, 28);
#endif  // SWIG

#endif
