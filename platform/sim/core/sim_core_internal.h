// What the pieces of the simulated device's core share (device side only).
#ifndef TOVR_SIM_CORE_INTERNAL_H
#define TOVR_SIM_CORE_INTERNAL_H

#include "tovr_sim_calls.h"

namespace tovr_sim {
namespace core {

// The shapes of the call whose forcing runs on this thread (null outside a forcing).
const Shapes* current_shapes();

// The parts of reset() that live beside their own state.
void reset_output_refusals();
void reset_registrations();
void reset_alloc_failures();

}  // namespace core
}  // namespace tovr_sim

#endif
