// Simulated access-control facade: keeps observers and delivers on its own thread. The card
// data it reports lie in the IPC partition "DVC_ACC_ICCARD_DATA_PARTITION" of the device core.
#include <cstddef>
#include <cstring>

#include "esv_zel_acc_facade.h"
#include "tovr_sim_acc.h"

namespace tovr_sim {

AccFacade& acc_facade() { return AccFacade::instance("acc"); }

namespace {
// Observer codes are 32-bit values on the device.
unsigned long code(int answer) { return static_cast<unsigned long>(static_cast<std::uint32_t>(answer)); }
}  // namespace

Answers raise_iccard_detect(const std::string& card_id, std::uint32_t card_type, std::uint16_t card_data_size,
                            int blkid) {
    ESV_ZEL_ACC_ICCARD_INFO info;
    std::memset(&info, 0, sizeof info);
    std::strncpy(info.card_id, card_id.c_str(), sizeof info.card_id - 1);
    info.card_type = card_type;
    info.card_data_size = card_data_size;
    info.blkid = blkid;
    return acc_facade().raise([info](tarnwick::esv_zel_acc_observer* o) mutable { return code(o->notify_iccard_detect(info)); });
}

Answers raise_iccard_read_error(int error) {
    return acc_facade().raise([=](tarnwick::esv_zel_acc_observer* o) { return code(o->notify_iccard_read_error(error)); });
}

Answers raise_iccard_state_change(std::uint16_t product_id, std::uint16_t vendor_id, std::uint8_t card_types,
                                  int state) {
    ESV_ZEL_ACC_ICCARD_STATE_CHANGE_INFO info;
    std::memset(&info, 0, sizeof info);
    info.product_id = product_id;
    info.vendor_id = vendor_id;
    info.card_types = card_types;
    info.state = state;
    return acc_facade().raise(
        [info](tarnwick::esv_zel_acc_observer* o) mutable { return code(o->notify_iccard_state_change_info(info)); });
}

const std::vector<std::size_t>* StringFields<ESV_ZEL_ACC_FELICA_SETTING_INFO>::offsets() {
    static const std::vector<std::size_t> at = {offsetof(ESV_ZEL_ACC_FELICA_SETTING_INFO, system_code),
                                                offsetof(ESV_ZEL_ACC_FELICA_SETTING_INFO, service_code_1),
                                                offsetof(ESV_ZEL_ACC_FELICA_SETTING_INFO, service_code_2)};
    return &at;
}

std::vector<Output> felica_outputs(int index, const ESV_ZEL_ACC_FELICA_SETTING_INFO& info) {
    return {output_text(index, "string", info.system_code, offsetof(ESV_ZEL_ACC_FELICA_SETTING_INFO, system_code)),
            output_text(index, "string", info.service_code_1, offsetof(ESV_ZEL_ACC_FELICA_SETTING_INFO, service_code_1)),
            output_text(index, "string", info.service_code_2, offsetof(ESV_ZEL_ACC_FELICA_SETTING_INFO, service_code_2)),
            output_value(index, info.blk_num_1, offsetof(ESV_ZEL_ACC_FELICA_SETTING_INFO, blk_num_1)),
            output_value(index, info.blk_num_2, offsetof(ESV_ZEL_ACC_FELICA_SETTING_INFO, blk_num_2))};
}

}  // namespace tovr_sim

namespace tarnwick {

TOVR_SIM_OBSERVED_FACADE(acc, tovr_sim::acc_facade(), tovr_sim::reset_acc_reader)

}  // namespace tarnwick
