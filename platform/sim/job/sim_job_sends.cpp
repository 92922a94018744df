// Simulated job facade: the send addresses of a job-information set and the documents a job
// prints, retrieves or combines.
#include <algorithm>
#include <cstring>
#include <ctime>

#include "esv_zel_job_facade.h"
#include "sim_job_internal.h"

namespace tarnwick {

using namespace tovr_sim::jobsim;

long esv_zel_job_facade::esv_zel_job_add_address(unsigned int current_id, unsigned int& address_id,
                                                 const ESV_ZEL_JOB_SEND_INFO& info) {
    TOVR_SIM_RECORD(long, current_id, address_id, tovr_sim::shown(info, info.address_type));
    return edit_set(current_id, [&](Device&, Set& s) {
        if (!address_fits(info, s.category)) return long{ESV_ZEL_JOB_PARAM_ERROR};
        if (s.work.addresses.size() >= ESV_ZEL_JOB_ADDRESS_LIST_NUM) return long{ESV_ZEL_JOB_LIMIT};
        address_id = s.work.next_address_id++;
        s.work.addresses[address_id] = info;
        return long{ESV_ZEL_JOB_OK};
    });
}

long esv_zel_job_facade::esv_zel_job_update_address(unsigned int current_id, unsigned int address_id,
                                                    const ESV_ZEL_JOB_SEND_INFO& info) {
    TOVR_SIM_RECORD(long, current_id, address_id, tovr_sim::shown(info, info.address_type));
    return edit_set(current_id, [&](Device&, Set& s) {
        auto it = s.work.addresses.find(address_id);
        if (it == s.work.addresses.end() || !address_fits(info, s.category)) return long{ESV_ZEL_JOB_PARAM_ERROR};
        it->second = info;
        return long{ESV_ZEL_JOB_OK};
    });
}

long esv_zel_job_facade::esv_zel_job_delete_address(unsigned int current_id, unsigned int address_id) {
    TOVR_SIM_RECORD(long, current_id, address_id);
    return edit_set(current_id, [&](Device&, Set& s) {
        return s.work.addresses.erase(address_id) ? long{ESV_ZEL_JOB_OK} : long{ESV_ZEL_JOB_PARAM_ERROR};
    });
}

long esv_zel_job_facade::esv_zel_job_delete_all_address(unsigned int current_id) {
    TOVR_SIM_RECORD(long, current_id);
    return edit_set(current_id, [&](Device&, Set& s) {
        s.work.addresses.clear();
        return long{ESV_ZEL_JOB_OK};
    });
}

long esv_zel_job_facade::esv_zel_job_get_address(unsigned int current_id, unsigned int address_id,
                                                 ESV_ZEL_JOB_SEND_INFO& info) {
    TOVR_SIM_RECORD(long, current_id, address_id, tovr_sim::unrecorded(info));
    return use_set(current_id, [&](Device&, const Set& s) {
        auto a = s.work.addresses.find(address_id);
        if (a == s.work.addresses.end()) return long{ESV_ZEL_JOB_PARAM_ERROR};
        info = a->second;
        return long{ESV_ZEL_JOB_OK};
    });
}

long esv_zel_job_facade::esv_zel_job_get_address_id(unsigned int current_id, unsigned int& count,
                                                    std::vector<unsigned int>& ids) {
    TOVR_SIM_RECORD(long, current_id, count, tovr_sim::shown(ids, ids.size()));
    return use_set(current_id, [&](Device&, const Set& s) {
        ids.clear();
        for (auto& [id, a] : s.work.addresses) ids.push_back(id);
        count = static_cast<unsigned int>(ids.size());
        return long{ESV_ZEL_JOB_OK};
    });
}

long esv_zel_job_facade::esv_zel_job_box_job_prepare(unsigned int current_id, ESV_ZEL_BOX_JOB_INIT_SETTING& setting) {
    TOVR_SIM_RECORD(long, current_id, tovr_sim::shown(setting, setting.box_job_type, setting.box_id));
    return edit_set(current_id, [&](Device&, Set& s) {
        if (s.category != ESV_ZEL_JOB_PHB_CATEGORY_BOX) return long{ESV_ZEL_JOB_NO_CATEGORY};
        s.work.box = setting;
        return long{ESV_ZEL_JOB_OK};
    });
}

long esv_zel_job_facade::esv_zel_job_direct_print_prepare(unsigned int current_id, char* file_path, char* file_name) {
    TOVR_SIM_RECORD(long, current_id, file_path, file_name);
    if (!file_path || !file_name) return ESV_ZEL_JOB_PARAM_ERROR;
    return edit_set(current_id, [&](Device&, Set& s) {
        if (s.category != ESV_ZEL_JOB_PHB_CATEGORY_PRINT) return long{ESV_ZEL_JOB_NO_CATEGORY};
        s.work.print_path = file_path;
        s.work.print_name = file_name;
        return long{ESV_ZEL_JOB_OK};
    });
}

long esv_zel_job_facade::esv_zel_job_retrieve_document_prepare(unsigned int current_id, char* text, unsigned long box_id,
                                                               unsigned long doc_id, char* store_path) {
    TOVR_SIM_RECORD(long, current_id, text, box_id, doc_id, store_path);
    if (!store_path) return ESV_ZEL_JOB_PARAM_ERROR;
    return edit_set(current_id, [&](Device&, Set& s) {
        if (s.category != ESV_ZEL_JOB_PHB_CATEGORY_BOX) return long{ESV_ZEL_JOB_NO_CATEGORY};
        s.work.box_id = box_id;
        s.work.doc_id = doc_id;
        s.work.store_path = store_path;
        return long{ESV_ZEL_JOB_OK};
    });
}

long esv_zel_job_facade::esv_zel_job_combine_document(unsigned int current_id, ESV_ZEL_PHB_COMBINE_DOC_INFO& info) {
    TOVR_SIM_RECORD(long, current_id, tovr_sim::shown(info, info.box_id));
    return edit_set(current_id, [&](Device&, Set& s) {
        if (s.category != ESV_ZEL_JOB_PHB_CATEGORY_BOX) return long{ESV_ZEL_JOB_NO_CATEGORY};
        s.work.combine = info;
        return long{ESV_ZEL_JOB_OK};
    });
}

}  // namespace tarnwick
