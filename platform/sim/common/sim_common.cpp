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

esv_zel_common_facade* esv_zel_common_facade::esv_zel_common_get_instance() {
    static esv_zel_common_facade* instance = new esv_zel_common_facade;
    return instance;
}

unsigned long esv_zel_common_facade::esv_zel_common_add_observer(esv_zel_common_observer* observer) {
    TOVR_SIM_RECORD(unsigned long, observer);
    tovr_sim::common_facade().observers().add(observer);
    return 0;
}

unsigned long esv_zel_common_facade::esv_zel_common_remove_observer(esv_zel_common_observer* observer) {
    TOVR_SIM_RECORD(unsigned long, observer);
    tovr_sim::common_facade().observers().remove(observer);
    return 0;
}

}  // namespace tarnwick
