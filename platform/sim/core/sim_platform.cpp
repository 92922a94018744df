// Simulated device: process registration, the clock and the thread guard.
#include <ctime>
#include <mutex>

#include "emw_clb_time.h"
#include "osw_thread_guard.h"
#include "sim_core_internal.h"
#include "sys_prcm.h"
#include "tovr_sim_platform.h"
#include "tovr_sim_record.h"
#include "tovr_sim_services.h"

namespace tovr_sim {
namespace {

struct Registrations {
    std::mutex mutex;
    std::vector<ProcessRegistration> list;
};

Registrations& registrations() { return lasting<Registrations>(); }

std::recursive_mutex& guard() {
    static std::recursive_mutex* g = new std::recursive_mutex;
    return *g;
}

}  // namespace

namespace core {
void reset_registrations() {
    Registrations& r = registrations();
    std::lock_guard<std::mutex> lock(r.mutex);
    r.list.clear();
}
}  // namespace core

std::vector<ProcessRegistration> process_registrations() {
    Registrations& r = registrations();
    std::lock_guard<std::mutex> lock(r.mutex);
    return r.list;
}

void force_process_init_result(int result, int times) {
    force_result("sys_prcm_lib_process_init", result, times);
}

}  // namespace tovr_sim

extern "C" struct tm* emwCLBLocalTime_r(const time_t* t, struct tm* result) { return localtime_r(t, result); }

extern "C" int sys_prcm_lib_process_init(int argument_count, char** arguments) {
    std::vector<std::string> args;
    for (int i = 0; i < argument_count; ++i) args.push_back(tovr_sim::arg(arguments[i]));
    {
        tovr_sim::Registrations& r = tovr_sim::registrations();
        std::lock_guard<std::mutex> lock(r.mutex);
        r.list.push_back(tovr_sim::ProcessRegistration{argument_count, args});
    }
    TOVR_SIM_RECORD(int, argument_count, tovr_sim::shown(arguments, args.empty() ? std::string() : args[0]));
    return 0;
}

OSW_Thread_Guard::OSW_Thread_Guard() { tovr_sim::guard().lock(); }
OSW_Thread_Guard::~OSW_Thread_Guard() { tovr_sim::guard().unlock(); }
