// package tarnwick.zel.wrapper.job
// Job control: the job proxy, the records its operations read and fill, the id list type and
// the facade's size constants.
%module zel_fnd_job_module

%include "tovr_conventions.i"
%include <stdint.i>

%{
#include "esv_zel_job_types.h"
#include "zel_fnd_job_proxy.h"
%}

// The list type's API reference (its declaration is in the shared typemaps).
%typemap(javaclassmodifiers) std::vector<unsigned int> %{/**
 * A list of unsigned 32-bit numbers (job ids, send address ids), as {@code long} values: what
 * {@code zel_fnd_job_proxy.get_job_list} and {@code get_send_address_id} fill. {@code get} and
 * {@code set} throw {@code IndexOutOfBoundsException} ("vector index out of range") for an index
 * outside it.
 */
public class%}
TOVR_VECTORL

// ---------------------------------------------------------------------------------------------
// Size constants of the facade's header, each a native getter NAME_get returning long.
%javaconst(0) ESV_ZEL_JOB_FTP_HOST_NAME_SIZE;
%javaconst(0) ESV_ZEL_JOB_FTP_PATH_NAME_SIZE;
%javaconst(0) ESV_ZEL_JOB_FTP_USER_NAME_SIZE;
%javaconst(0) ESV_ZEL_JOB_FTP_PASSWORD_SIZE;
%javaconst(0) ESV_ZEL_JOB_SMB_HOST_NAME_SIZE;
%javaconst(0) ESV_ZEL_JOB_SMB_PATH_NAME_SIZE;
%javaconst(0) ESV_ZEL_JOB_SMB_USER_NAME_SIZE;
%javaconst(0) ESV_ZEL_JOB_SMB_PASSWORD_SIZE;
%javaconst(0) ESV_ZEL_JOB_MAIL_ADDRESS_SIZE;
%javaconst(0) ESV_ZEL_JOB_ADDRESS_LIST_NUM;
%javaconst(0) ESV_ZEL_JOB_FAX_NUMBER_SIZE;
%javaconst(0) ESV_ZEL_JOB_SUB_ADDRESS_SIZE;
%javaconst(0) ESV_ZEL_JOB_SUB_ADDRESS_PASSWORD_SIZE;
%javaconst(0) ESV_ZEL_JOB_ACCESS_PATH_SIZE;
%javaconst(0) ESV_ZEL_JOB_BOX_PASS_SIZE;
%javaconst(0) ESV_ZEL_JOB_DOC_NAME_SIZE;
%javaconst(0) ESV_ZEL_JOB_JOB_FILENAME_SIZE;
%javaconst(0) ESV_ZEL_JOB_GET_SCAN_DATA_SIZE;
%javaconst(0) ESV_ZEL_JOB_DOC_PASS_SIZE;

// ---------------------------------------------------------------------------------------------
// Records.
// The start flag shares its word with the other members of the union: Java sees a boolean,
// true is stored as the whole word 1, and the flag read back is the word's lowest byte.
%typemap(jni) uint32_t start_info "jboolean"
%typemap(jtype) uint32_t start_info "boolean"
%typemap(jstype) uint32_t start_info "boolean"
%typemap(javain) uint32_t start_info "$javainput"
%typemap(javaout) uint32_t start_info { if (swigCPtr == 0) throw swigDeleted(); return $jnicall; }
%typemap(in) uint32_t start_info %{ $1 = $input ? 1u : 0u; %}
%typemap(out) uint32_t start_info %{ $result = (jboolean)(($1 & 0xFFu) != 0); %}
// The records' embedded records.
TOVR_EMBEDDED(ESV_ZEL_JOB_SEND_INFO_FTP, ftp_info)
TOVR_EMBEDDED(ESV_ZEL_JOB_SEND_INFO_SMB, smb_info)
TOVR_EMBEDDED(ESV_ZEL_JOB_SEND_INFO_MAIL, mail_info)
TOVR_EMBEDDED(ESV_ZEL_JOB_SEND_INFO_FAX, fax_info)
TOVR_EMBEDDED(ESV_ZEL_JOB_SEND_INFO_DETAIL, detail)
TOVR_EMBEDDED(ESV_ZEL_PHB_INFO_DISABLE, disable_info)
TOVR_EMBEDDED(ESV_ZEL_PHB_INFO_AFTERWARD, afterward_info)
TOVR_EMBEDDED(ESV_ZEL_PHB_INFO_DETAIL, phb_info_detail)
%include "esv_zel_job_state.i"
%include "esv_zel_job_types.h"

// ---------------------------------------------------------------------------------------------
// The proxy. Out arguments are one-element arrays, read in and written back after the call.
%apply unsigned int &INOUT { unsigned int &current_id, unsigned int &user_job_id, unsigned int &val,
                             unsigned int &value_1, unsigned int &value_2, unsigned int &value_3,
                             unsigned int &value, unsigned int &address_id };
%apply bool &INOUT { bool &result };
%apply unsigned short &INOUT { unsigned short &val };

%ignore tarnwick::zel_fnd_job_proxy::convert_retcode;
%include "zel_fnd_job_proxy.h"
