// Simulated common facade: keeps observers and delivers on its own thread.
#include "esv_zel_common_facade.h"
#include "tovr_sim_common.h"

namespace tovr_sim {

CommonFacade& common_facade() {
    static CommonFacade* f = new CommonFacade("common");  // outlives static destruction
    return *f;
}

namespace {
const bool registered = register_service(Service{"common", reset_power, [] { return common_facade().observers().size(); }});
}  // namespace

}  // namespace tovr_sim

namespace tarnwick {

TOVR_SIM_OBSERVED_FACADE(common, tovr_sim::common_facade())

}  // namespace tarnwick
