// Simulated web service facade: one holder per service kind.
#include <map>
#include <mutex>
#include <string>

#include "esv_zel_webservice_facade.h"
#include "tovr_sim_webservice.h"

namespace tovr_sim {

namespace {

struct Services {
    std::mutex mutex;
    std::map<int, std::string> holders;
};

Services& services() { return lasting<Services>(); }

bool known_kind(int kind) { return kind >= ESV_ZEL_WEBSERVICE_KIND_SCAN && kind <= ESV_ZEL_WEBSERVICE_KIND_DEVICE; }

const bool registered = register_service(Service{"webservice", reset_webservice, nullptr});

}  // namespace

void reset_webservice() {
    std::lock_guard<std::mutex> lock(services().mutex);
    services().holders.clear();
}

std::string webservice_holder(int kind) {
    std::lock_guard<std::mutex> lock(services().mutex);
    auto it = services().holders.find(kind);
    return it == services().holders.end() ? std::string() : it->second;
}

void webservice_set_holder(int kind, const std::string& name) {
    keep_or_forget(services().mutex, services().holders, kind, name);
}

}  // namespace tovr_sim

namespace tarnwick {

using tovr_sim::services;

TOVR_SIM_FACADE_INSTANCE(webservice)

long esv_zel_webservice_facade::esv_zel_webservice_reserve(ESV_ZEL_WEBSERVICE_KIND kind, std::string const& name) {
    TOVR_SIM_RECORD(long, kind, name);
    if (name.empty()) return ESV_ZEL_WEBSERVICE_ERROR_PARAMETER;
    if (!tovr_sim::known_kind(kind)) return ESV_ZEL_WEBSERVICE_ERROR_INVALID_SERVICE;
    std::lock_guard<std::mutex> lock(services().mutex);
    auto it = services().holders.find(kind);
    if (it != services().holders.end()) {
        return it->second == name ? ESV_ZEL_WEBSERVICE_ERROR_ALREADY_RESERVED : ESV_ZEL_WEBSERVICE_ERROR_DIFFERENT_HOST;
    }
    services().holders[kind] = name;
    return ESV_ZEL_WEBSERVICE_OK;
}

long esv_zel_webservice_facade::esv_zel_webservice_release(ESV_ZEL_WEBSERVICE_KIND kind, std::string const& name) {
    TOVR_SIM_RECORD(long, kind, name);
    if (name.empty()) return ESV_ZEL_WEBSERVICE_ERROR_PARAMETER;
    if (!tovr_sim::known_kind(kind)) return ESV_ZEL_WEBSERVICE_ERROR_INVALID_SERVICE;
    std::lock_guard<std::mutex> lock(services().mutex);
    auto it = services().holders.find(kind);
    if (it == services().holders.end()) return ESV_ZEL_WEBSERVICE_ERROR_FAILED;
    if (it->second != name) return ESV_ZEL_WEBSERVICE_ERROR_DIFFERENT_HOST;
    services().holders.erase(it);
    return ESV_ZEL_WEBSERVICE_OK;
}

}  // namespace tarnwick
