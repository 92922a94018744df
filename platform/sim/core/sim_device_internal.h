// Sections of the simulated device services, each resetting its own state (device side only).
#ifndef TOVR_SIM_DEVICE_INTERNAL_H
#define TOVR_SIM_DEVICE_INTERNAL_H

namespace tovr_sim {
namespace devicesim {

void reset_sysinfo();
void reset_power();
void reset_panel();
void reset_acc_reader();
void reset_webservice();

}  // namespace devicesim
}  // namespace tovr_sim

#endif
