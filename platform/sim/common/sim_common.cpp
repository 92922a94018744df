// Simulated common facade: keeps observers and delivers on its own thread.
#include "esv_zel_common_facade.h"
#include "tovr_sim_common.h"

namespace tovr_sim {

CommonFacade& common_facade() { return CommonFacade::instance("common"); }

}  // namespace tovr_sim

namespace tarnwick {

TOVR_SIM_OBSERVED_FACADE(common, tovr_sim::common_facade(), tovr_sim::reset_power)

}  // namespace tarnwick
