// Simulated web service facade: one holder per service kind.
#include <map>
#include <mutex>
#include <string>

#include "esv_zel_webservice_facade.h"
#include "tovr_sim_webservice.h"

namespace tovr_sim {

namespace {

using Holders = std::map<int, std::string>;  // by service kind

struct Services {
    std::mutex mutex;
    Holders holders;
};

Services& services() { return lasting<Services>(); }

bool known_kind(int kind) { return kind >= ESV_ZEL_WEBSERVICE_KIND_SCAN && kind <= ESV_ZEL_WEBSERVICE_KIND_DEVICE; }

// What reserve and release share: a name and a kind the device knows, then `use` on the holders
// under their lock.
template <typename Use>
long with_holders(int kind, const std::string& name, Use use) {
    if (name.empty()) return ESV_ZEL_WEBSERVICE_ERROR_PARAMETER;
    if (!known_kind(kind)) return ESV_ZEL_WEBSERVICE_ERROR_INVALID_SERVICE;
    std::lock_guard<std::mutex> lock(services().mutex);
    return use(services().holders);
}

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

using tovr_sim::Holders;
using tovr_sim::with_holders;

TOVR_SIM_FACADE_INSTANCE(webservice)

long esv_zel_webservice_facade::esv_zel_webservice_reserve(ESV_ZEL_WEBSERVICE_KIND kind, std::string const& name) {
    TOVR_SIM_RECORD(long, kind, name);
    return with_holders(kind, name, [&](Holders& holders) -> long {
        auto it = holders.find(kind);
        if (it != holders.end()) {
            return it->second == name ? ESV_ZEL_WEBSERVICE_ERROR_ALREADY_RESERVED : ESV_ZEL_WEBSERVICE_ERROR_DIFFERENT_HOST;
        }
        holders[kind] = name;
        return ESV_ZEL_WEBSERVICE_OK;
    });
}

long esv_zel_webservice_facade::esv_zel_webservice_release(ESV_ZEL_WEBSERVICE_KIND kind, std::string const& name) {
    TOVR_SIM_RECORD(long, kind, name);
    return with_holders(kind, name, [&](Holders& holders) -> long {
        auto it = holders.find(kind);
        if (it == holders.end()) return ESV_ZEL_WEBSERVICE_ERROR_FAILED;
        if (it->second != name) return ESV_ZEL_WEBSERVICE_ERROR_DIFFERENT_HOST;
        holders.erase(it);
        return ESV_ZEL_WEBSERVICE_OK;
    });
}

}  // namespace tarnwick
