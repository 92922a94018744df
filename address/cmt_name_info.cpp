#include "cmt_name_info.h"

namespace tarnwick {

cmt_name_info::cmt_name_info() : cmt_address_builder("cmt_name_info", Part::kName) {}

void cmt_name_info::set_field_name(jobject obj, const char* value) { set_text(obj, 1, value); }

void cmt_name_info::set_field_pronunciation(jobject obj, const char* value) { set_text(obj, 2, value); }

}  // namespace tarnwick
