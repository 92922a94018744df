// Control interface of the simulated device.
//
// Test and tool code only: libtovrCMT.so never includes this header. The simulated device
// (libtovrsim.so) implements the platform interfaces for host builds; this interface lets a
// test read what the library asked of the device, force any answer, and raise notifications
// from the device's own threads. One header per topic, all brought in here:
//   tovr_sim_calls.h     the call record, forced answers, the record's limit
//   tovr_sim_record.h    how a facade member records its call (TOVR_SIM_RECORD), argument shapes
//   tovr_sim_outputs.h   forced outputs, checked against each argument's shape
//   tovr_sim_trace.h     the platform trace
//   tovr_sim_platform.h  process registration, platform memory, open resources, IPC partitions
//   tovr_sim_threads.h   facade threads and observer sets
//   tovr_sim_observed.h  a facade with observers (ObservedFacade)
//   tovr_sim_services.h  the registered services: one reset of the whole device
// Each service's own control interface lives in its folder (tovr_sim_<service>.h).
#ifndef TOVR_SIM_H
#define TOVR_SIM_H

#include "tovr_sim_calls.h"
#include "tovr_sim_observed.h"
#include "tovr_sim_outputs.h"
#include "tovr_sim_platform.h"
#include "tovr_sim_record.h"
#include "tovr_sim_services.h"
#include "tovr_sim_threads.h"
#include "tovr_sim_trace.h"

#endif
