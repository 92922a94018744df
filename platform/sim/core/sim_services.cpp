// Simulated device: the registered services and the reset of the whole device.
#include <map>
#include <mutex>

#include "tovr_sim_calls.h"
#include "tovr_sim_services.h"
#include "tovr_sim_trace.h"

namespace tovr_sim {
namespace {

struct Registry {
    std::mutex mutex;
    std::map<std::string, Service> by_name;  // name order: the order of resets
};

Registry& registry() { return lasting<Registry>(); }

}  // namespace

bool register_service(Service service) {
    Registry& r = registry();
    std::lock_guard<std::mutex> lock(r.mutex);
    const std::string name = service.name;
    r.by_name[name] = std::move(service);
    return true;
}

std::vector<std::string> service_names() {
    Registry& r = registry();
    std::lock_guard<std::mutex> lock(r.mutex);
    std::vector<std::string> out;
    for (const auto& [name, s] : r.by_name) out.push_back(name);
    return out;
}

void reset_all() {
    reset();
    std::vector<std::function<void()>> resets;
    {
        Registry& r = registry();
        std::lock_guard<std::mutex> lock(r.mutex);
        for (const auto& [name, s] : r.by_name) {
            if (s.reset) resets.push_back(s.reset);
        }
    }
    // Outside the lock: a reset may wait for a device thread that records calls.
    for (const auto& fn : resets) fn();
    clear_calls();
    clear_trace();
}

long observer_count(const std::string& service) {
    std::function<std::size_t()> count;
    {
        Registry& r = registry();
        std::lock_guard<std::mutex> lock(r.mutex);
        auto it = r.by_name.find(service);
        if (it == r.by_name.end() || !it->second.observers) return -1;
        count = it->second.observers;
    }
    return static_cast<long>(count());
}

}  // namespace tovr_sim
