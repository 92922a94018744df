// The sample device (see tovr_sim_sample.h).
#include "tovr_sim_sample.h"

#include <cstring>

#include "esv_zel_dept_facade.h"
#include "tovr_sim.h"
#include "tovr_sim_address.h"
#include "tovr_sim_device.h"
#include "tovr_sim_job.h"
#include "tovr_sim_storage.h"
#include "tovr_sim_user.h"

namespace tovr_sim {

namespace {

struct SampleUser {
    const char* login;
    const char* password;
    const char* name;
    const char* mail;
    int rights;
    int dept;
    const char* card;
};

const SampleUser kUsers[] = {
    {"alice", "secret", "Alice Archer", "alice@example.com", ESV_ZEL_USER_RIGHTS_ADMIN, 1, kSampleCard},
    {"bob", "bobpw", "Bob Baker", "bob@example.com", ESV_ZEL_USER_RIGHTS_USER, 2, ""},
    {"carol", "carolpw", "Carol Cole", "carol@example.com", ESV_ZEL_USER_RIGHTS_USER, 1, ""},
};

const char* const kDepartments[][2] = {{"1", "Sales"}, {"2", "Engineering"}, {"3", "Front office"}};

const char* const kPeople[][2] = {{"Alice Archer", "alice@example.com"}, {"Bob Baker", "bob@example.com"},
                                  {"Carol Cole", "carol@example.com"},   {"Dana Dunn", "dana@example.org"},
                                  {"Erik Engel", "erik@example.net"}};

void load_people() {
    for (const SampleUser& s : kUsers) {
        SimUser u;
        u.login_name = s.login;
        u.password = s.password;
        u.user_name = s.name;
        u.email = s.mail;
        u.rights = s.rights;
        u.dept_id = static_cast<std::uint16_t>(s.dept);
        u.idm = s.card;
        add_local_user(u);
    }
    // Departments are registered the way an application registers them: through the facade.
    for (const auto& d : kDepartments) {
        ESV_ZEL_DEPT_DEPTINFO info{};
        std::strncpy(info.id, d[0], sizeof info.id - 1);
        std::strncpy(info.name, d[1], sizeof info.name - 1);
        tarnwick::esv_zel_dept_facade::esv_zel_dept_get_instance()->esv_zel_dept_add_hide_dept(info);
    }
    for (const auto& p : kPeople) add_address(make_address(p[0], p[1]));
    generate_address_book(300, 1);
}

void load_documents() {
    box_add_folder("/Sales");
    box_add_document("/Sales", "price-list.pdf", 482113, 0, 0);
    box_add_document("/Sales", "contract-draft.pdf", 1204551, 86400, 0);
    box_add_folder("/Engineering");
    box_add_document("/Engineering", "schematic.tif", 8388608, 0, 2);
}

void load_machine() {
    sysinfo_set_model_type(0x5A31);
    sysinfo_set_tray(1, ESV_ZEL_PAPER_INFO{80, 4, 0, 0});
    sysinfo_set_tray(2, ESV_ZEL_PAPER_INFO{35, 5, 0, 0});
    const unsigned char size = kSamplePaperSize, color = kSampleColor;
    sysinfo_set_count(kCountKindTotal, size, color, 12873);
    sysinfo_set_count(kCountKindPrint, size, color, 9012);
    sysinfo_set_count(kCountKindCopy, size, color, 3861);
    sysinfo_set_count(kCountKindScan, size, color, 2250);
    acc_set_reader(0x0590, 0x0102, 7);
}

}  // namespace

void load_sample_device() {
    reset();
    reset_device_services();
    reset_jobs();
    reset_users();
    reset_depts();
    reset_address_book();
    storage_reset();
    box_reset();
    load_people();
    load_documents();
    load_machine();
    clear_calls();
}

}  // namespace tovr_sim
