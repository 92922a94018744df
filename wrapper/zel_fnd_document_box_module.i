// package tarnwick.zel.wrapper.box
// The easy document box: the document manager, the builders of removable-memory file records,
// the box and address records and the facade's size constants.
%module zel_fnd_document_box_module

%include "tovr_conventions.i"
%include <stdint.i>
%include "esv_zel_max_sizes.i"

%{
#include "cmt_storage_names.h"
#include "esv_zel_address_types.h"
#include "ZEL_FND_BOX_DETAIL_INFO.h"
#include "zel_fnd_document_manager.h"
#include "zel_fnd_removable_memory_file.h"
#include "zel_fnd_removable_memory_file_info.h"
using namespace tarnwick;
%}

// Text members read back bounded by their size; bytes that are not modified UTF-8 (a setter
// cut inside a character) are converted rather than handed to NewStringUTF as they stand.
%typemap(out) char [ANY] %{
  if ($1) {
    std::string text = tarnwick::cmt_storage_java_text($1, $1_dim0);
    $result = jenv->NewStringUTF(text.c_str());
  }
%}

TOVR_STATIC(tarnwick::zel_fnd_document_manager::zel_fnd_get_instance)
%include "esv_zel_address_types.h"
%include "ZEL_FND_BOX_DETAIL_INFO.h"
%include "zel_fnd_removable_memory_file_info.h"
%include "zel_fnd_removable_memory_file.h"
%include "zel_fnd_document_manager.h"
