// The simulated services as the device knows them: each service folder registers itself once
// (its name, how it returns to a freshly started device, how many observers its facade has),
// so a test resets the whole device with one call and a new service needs no edit here.
#ifndef TOVR_SIM_SERVICES_H
#define TOVR_SIM_SERVICES_H

#include <cstddef>
#include <functional>
#include <mutex>
#include <string>
#include <vector>

namespace tovr_sim {

struct Service {
    std::string name;                          // the facade's short name: "common", "job" ...
    std::function<void()> reset;               // back to a freshly started device; may be empty
    std::function<std::size_t()> observers;    // observers registered now; empty: no observers
};

// Registers a service (at static initialisation of its folder's sources); returns true so
// that it can initialise a namespace-scope constant.
bool register_service(Service service);
// Names of the registered services, sorted.
std::vector<std::string> service_names();

// The whole device back to its initial state: reset(), every service's own reset (in name
// order), then an empty call record and trace.
void reset_all();
// Observers registered with a facade by its service name; -1 for a name no service has.
long observer_count(const std::string& service);

// The one `State` of a service or of the core, made on first use and never destroyed: facade
// and device threads, the library's exit handlers and late frees reach it until the process
// ends, and it may be first used during another source's static initialisation. `State` is a
// type of the caller's own: every user of one type shares its one object.
template <typename State>
State& lasting() {
    static State* s = new State;
    return *s;
}

// A control that sets one answer of a service's state under the state's lock: `value` kept
// under `key`, or the key forgotten when `value` is the empty one (0, an empty name).
template <typename Map, typename Value>
void keep_or_forget(std::mutex& mutex, Map& map, const typename Map::key_type& key, const Value& value) {
    std::lock_guard<std::mutex> lock(mutex);
    if (value == Value{}) {
        map.erase(key);
    } else {
        map[key] = value;
    }
}

}  // namespace tovr_sim

#endif
