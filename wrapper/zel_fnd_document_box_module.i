// package tarnwick.zel.wrapper.box
// The easy document box: the document manager, the builders of removable-memory file records,
// the box and address records and the facade's size constants.
%module zel_fnd_document_box_module

%include "tovr_conventions.i"
%include <stdint.i>
%include "esv_zel_max_sizes.i"

%{
#include "esv_zel_address_types.h"
#include "ZEL_FND_BOX_DETAIL_INFO.h"
#include "zel_fnd_document_manager.h"
#include "zel_fnd_removable_memory_file.h"
#include "zel_fnd_removable_memory_file_info.h"
using namespace tarnwick;
%}

TOVR_STATIC(tarnwick::zel_fnd_document_manager::zel_fnd_get_instance)
// The address records' embedded records.
TOVR_EMBEDDED(ESV_ZEL_NAME_INFO, name_info)
TOVR_EMBEDDED(ESV_ZEL_FTP_INFO, ftp_info)
TOVR_EMBEDDED(ESV_ZEL_SMB_INFO, smb_info)
TOVR_EMBEDDED(ESV_ZEL_FAX_INFO, fax_info)
TOVR_EMBEDDED(ESV_ZEL_IFAX_INFO, ifax_info)
TOVR_EMBEDDED(ESV_ZEL_EMAIL_INFO, email_info)
%include "esv_zel_address_types.h"
%include "ZEL_FND_BOX_DETAIL_INFO.h"
%include "zel_fnd_removable_memory_file_info.h"
%include "zel_fnd_removable_memory_file.h"
%include "zel_fnd_document_manager.h"
