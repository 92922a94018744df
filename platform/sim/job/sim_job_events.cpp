// Simulated job service: notification records built from their fields, for tests and tools
// that name the values rather than build the records.
#include <cstring>

#include "sim_job_internal.h"

namespace tovr_sim {

namespace {
const bool registered_job = register_service(Service{"job", reset_jobs, job_observer_count});
const bool registered_jobinfo = register_service(Service{"jobinfo", nullptr, jobinfo_observer_count});
}  // namespace

Answers raise_job_state_changed(int state, unsigned int user_job_id, int result, int job_mode,
                                const std::string& user_name, int in_dev, int out_dev) {
    ESV_ZEL_JOB_STATE s;
    std::memset(&s, 0, sizeof s);
    s.state = state;
    s.user_job_id = user_job_id;
    s.result = result;
    s.job_mode = static_cast<uint16_t>(job_mode);
    std::strncpy(s.user_name, user_name.c_str(), sizeof s.user_name - 1);
    s.in_dev = static_cast<uint8_t>(in_dev);
    s.out_dev = static_cast<uint8_t>(out_dev);
    return raise_job_state_changed(s);
}

Answers raise_job_update_log(unsigned int user_job_id, unsigned int receipt_id) {
    return raise_job_update_log(ESV_ZEL_EVENT_JOB_UPDATE_LOG{user_job_id, receipt_id});
}

Answers raise_fax_send_page_info(unsigned int user_job_id, unsigned int page_num) {
    return raise_fax_send_page_info(ESV_ZEL_EVENT_SEND_PAGE{user_job_id, page_num});
}

Answers raise_renint_start_info(unsigned int user_job_id, int name_setting, unsigned int interface_info,
                                const char* job_name) {
    ESV_ZEL_EVENT_RENINT_START start;
    std::memset(&start, 0, sizeof start);
    start.user_job_id = user_job_id;
    start.name_setting = static_cast<uint8_t>(name_setting);
    start.interface_info = interface_info;
    return raise_renint_start_info(start, job_name);
}

Answers raise_print_page_fields(const std::vector<long long>& f) {
    if (f.size() < kPrintPageFields) return Answers();
    ESV_ZEL_EVENT_PRINT_PAGE p;
    std::memset(&p, 0, sizeof p);
    p.user_job_id = static_cast<uint32_t>(f[0]);
    p.page_num = static_cast<uint32_t>(f[1]);
    p.output_dev = static_cast<int>(f[2]);
    p.input_dev = static_cast<int>(f[3]);
    p.custom_x = static_cast<uint16_t>(f[4]);
    p.custom_y = static_cast<uint16_t>(f[5]);
    p.paper_size = static_cast<int>(f[6]);
    p.paper_type = static_cast<int>(f[7]);
    p.paper_dir = static_cast<int>(f[8]);
    p.paper_weight = static_cast<int>(f[9]);
    p.duplex = static_cast<int>(f[10]);
    p.staple = static_cast<int>(f[11]);
    p.punch = static_cast<int>(f[12]);
    p.color_mode = static_cast<int>(f[13]);
    return raise_print_page_info(p);
}

Answers raise_scan_page_fields(const std::vector<long long>& f) {
    if (f.size() < kScanPageFields) return Answers();
    ESV_ZEL_EVENT_SCAN_PAGE p;
    std::memset(&p, 0, sizeof p);
    p.user_job_id = static_cast<uint32_t>(f[0]);
    p.page_num = static_cast<uint32_t>(f[1]);
    p.custom_x = static_cast<uint16_t>(f[2]);
    p.custom_y = static_cast<uint16_t>(f[3]);
    p.paper_size = static_cast<int>(f[4]);
    p.paper_dir = static_cast<int>(f[5]);
    p.duplex = static_cast<int>(f[6]);
    p.color_mode = static_cast<int>(f[7]);
    p.resolution = static_cast<int>(f[8]);
    return raise_scan_page_info(p);
}

}  // namespace tovr_sim
