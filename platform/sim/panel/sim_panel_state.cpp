// Simulated panel reset timer (per panel context) and panel identities by name.
#include <map>
#include <mutex>
#include <string>

#include "esv_zel_panel_facade.h"
#include "tovr_sim_panel.h"

namespace tovr_sim {

namespace {

struct Panel {
    std::mutex mutex;
    std::map<unsigned int, int> timers;
    std::map<std::string, unsigned int> identities;
    unsigned int current = 0;

    void defaults() {
        timers.clear();
        identities.clear();
        current = 0;
    }
};

Panel& panel() { return lasting<Panel>(); }

}  // namespace

void reset_panel() {
    std::lock_guard<std::mutex> lock(panel().mutex);
    panel().defaults();
}

int panel_reset_timer(unsigned int context) {
    std::lock_guard<std::mutex> lock(panel().mutex);
    auto it = panel().timers.find(context);
    return it == panel().timers.end() ? -1 : it->second;
}

void panel_set_identity(const std::string& name, unsigned int id) {
    std::lock_guard<std::mutex> lock(panel().mutex);
    panel().identities[name] = id;
}

unsigned int panel_current_id() {
    std::lock_guard<std::mutex> lock(panel().mutex);
    return panel().current;
}

}  // namespace tovr_sim

namespace tarnwick {

using tovr_sim::panel;

unsigned long esv_zel_panel_facade::esv_zel_panel_reset_timer_ctrl(unsigned int context, ESV_ZEL_PNL_RST_TMR operation) {
    TOVR_SIM_RECORD(unsigned long, context, operation);
    if (operation < ESV_ZEL_PNL_RST_TMR_STOP || operation > ESV_ZEL_PNL_RST_TMR_RESTART) return tovr_sim::kPanelError;
    std::lock_guard<std::mutex> lock(panel().mutex);
    panel().timers[context] = operation;
    return 0;
}

unsigned long esv_zel_panel_facade::esv_zel_panel_change_id(char* id, unsigned int& current_id) {
    TOVR_SIM_RECORD(unsigned long, id, current_id);
    if (id == nullptr) return tovr_sim::kPanelError;
    std::lock_guard<std::mutex> lock(panel().mutex);
    auto it = panel().identities.find(id);
    if (it == panel().identities.end()) return tovr_sim::kPanelError;
    panel().current = it->second;
    current_id = it->second;
    return 0;
}

}  // namespace tarnwick
