// The simulated facades with observers, made once for every file that names them
// (tovr_sim_observed.h declares them extern).
#include "esv_zel_acc_facade.h"
#include "esv_zel_common_facade.h"
#include "esv_zel_job_observer.h"
#include "esv_zel_jobinfo_observer.h"
#include "esv_zel_panel_facade.h"
#include "tovr_sim_observed.h"

namespace tovr_sim {

template class ObservedFacade<tarnwick::esv_zel_common_observer>;
template class ObservedFacade<tarnwick::esv_zel_panel_observer>;
template class ObservedFacade<tarnwick::esv_zel_acc_observer>;
template class ObservedFacade<tarnwick::esv_zel_job_observer>;
template class ObservedFacade<tarnwick::esv_zel_jobinfo_observer>;

}  // namespace tovr_sim
