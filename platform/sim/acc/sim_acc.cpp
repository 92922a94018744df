// Simulated access-control facade: keeps observers and delivers on its own thread. The card
// data it reports lie in the IPC partition "DVC_ACC_ICCARD_DATA_PARTITION" of the device core.
#include "esv_zel_acc_facade.h"
#include "tovr_sim_events.h"

namespace tovr_sim {

AccFacade& acc_facade() {
    static AccFacade* f = new AccFacade("acc");  // outlives static destruction
    return *f;
}

}  // namespace tovr_sim

namespace tarnwick {

esv_zel_acc_facade* esv_zel_acc_facade::esv_zel_acc_get_instance() {
    static esv_zel_acc_facade* instance = new esv_zel_acc_facade;
    return instance;
}

unsigned long esv_zel_acc_facade::esv_zel_acc_add_observer(esv_zel_acc_observer* observer) {
    TOVR_SIM_RECORD(unsigned long, observer);
    tovr_sim::acc_facade().observers().add(observer);
    return 0;
}

unsigned long esv_zel_acc_facade::esv_zel_acc_remove_observer(esv_zel_acc_observer* observer) {
    TOVR_SIM_RECORD(unsigned long, observer);
    tovr_sim::acc_facade().observers().remove(observer);
    return 0;
}

}  // namespace tarnwick
