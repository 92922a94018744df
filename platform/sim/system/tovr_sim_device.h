// Control interface of the simulated device services, as one header: system information
// (tovr_sim_system.h), the power and certificate requests of the common facade
// (tovr_sim_common.h), the panel's reset timer and identities (tovr_sim_panel.h), the IC card
// reader (tovr_sim_acc.h) and the web service reservation (tovr_sim_webservice.h). Each
// service's own header is enough for code that needs only that service.
#ifndef TOVR_SIM_DEVICE_H
#define TOVR_SIM_DEVICE_H

#include "tovr_sim_acc.h"
#include "tovr_sim_common.h"
#include "tovr_sim_panel.h"
#include "tovr_sim_system.h"
#include "tovr_sim_webservice.h"

namespace tovr_sim {

// Back to the state of a freshly started device (each of the services above).
inline void reset_device_services() {
    reset_sysinfo();
    reset_power();
    reset_panel();
    reset_acc_reader();
    reset_webservice();
}

}  // namespace tovr_sim

#endif
