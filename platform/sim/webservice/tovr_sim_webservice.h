// Control interface of the simulated web service facade: one holder per kind
// (ESV_ZEL_WEBSERVICE_KIND_SCAN, _PRINT, _DEVICE).
//
// reserve / release: an empty name answers ERROR_PARAMETER, then an unknown kind
// ERROR_INVALID_SERVICE. reserve: the holder again ALREADY_RESERVED, another host
// DIFFERENT_HOST. release: a kind nobody holds ERROR_FAILED, another host DIFFERENT_HOST.
#ifndef TOVR_SIM_WEBSERVICE_H
#define TOVR_SIM_WEBSERVICE_H

#include <string>

#include "esv_zel_webservice_facade.h"
#include "tovr_sim.h"

namespace tovr_sim {

// Every kind free.
void reset_webservice();
std::string webservice_holder(int kind);  // "" when free
void webservice_set_holder(int kind, const std::string& name);

}  // namespace tovr_sim

#endif
