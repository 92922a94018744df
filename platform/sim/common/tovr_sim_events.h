// Control interface of the simulated common, panel and access-control facades, as one header.
// Each facade's own header (tovr_sim_common.h, tovr_sim_panel.h, tovr_sim_acc.h) is enough for
// code that needs only that facade; ObservedFacade is in tovr_sim_observed.h.
#ifndef TOVR_SIM_EVENTS_H
#define TOVR_SIM_EVENTS_H

#include "tovr_sim_acc.h"
#include "tovr_sim_common.h"
#include "tovr_sim_panel.h"

#endif
