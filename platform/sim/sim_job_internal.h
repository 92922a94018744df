// Shared state of the simulated job and job-information facades (device side only).
#ifndef TOVR_SIM_JOB_INTERNAL_H
#define TOVR_SIM_JOB_INTERNAL_H

#include <map>
#include <mutex>
#include <string>
#include <vector>

#include "esv_zel_jobinfo_types.h"
#include "tovr_sim_job.h"

namespace tovr_sim {
namespace jobsim {

struct LogEntry {
    ESV_ZEL_JOBINFO_JOBLOG log;
    std::vector<ESV_ZEL_JOBINFO_SEND_INFO> sends;
    std::vector<ESV_ZEL_JOBINFO_RECEIVE_INFO> receives;
};

// The job log and the walking lists of the job-information facade.
struct JobLog {
    std::mutex mutex;
    std::map<unsigned int, LogEntry> entries;
    unsigned int next_receipt = 5001;
    bool send_list_open = false;
    std::vector<ESV_ZEL_JOBINFO_SEND_INFO> send_list;
    std::size_t send_pos = 0;
    bool receive_list_open = false;
    std::vector<ESV_ZEL_JOBINFO_RECEIVE_INFO> receive_list;
    std::size_t receive_pos = 0;
};
JobLog& joblog();
// Stores an entry under a new receipt id and returns it.
unsigned int store_log(LogEntry entry);
void reset_joblog();

FacadeThread& jobinfo_thread();
ObserverSet<tarnwick::esv_zel_jobinfo_observer>& jobinfo_observers();

}  // namespace jobsim
}  // namespace tovr_sim

#endif
