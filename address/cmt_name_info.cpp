#include "cmt_name_info.h"

namespace tarnwick {

cmt_name_info::cmt_name_info() : cmt_address_builder("cmt_name_info", "tarnwick/zel/address/attribute/NameInfoImpl") {
    name_ = field("name", "Ljava/lang/String;");
    pronunciation_ = field("pronunciation", "Ljava/lang/String;");
}

cmt_name_info::~cmt_name_info() {}

void cmt_name_info::set_field_name(jobject obj, const char* value) { set_text(obj, name_, value); }

void cmt_name_info::set_field_pronunciation(jobject obj, const char* value) { set_text(obj, pronunciation_, value); }

}  // namespace tarnwick
