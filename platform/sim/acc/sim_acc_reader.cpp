// Simulated IC card reader of the access-control facade: presence (plugging raises the reader
// notification), identity, card types, read types and the FeliCa setting of sites 1 and 2.
#include <mutex>
#include <string>

#include "esv_zel_acc_facade.h"
#include "tovr_sim_acc.h"

namespace tovr_sim {

namespace {

struct Reader {
    std::mutex mutex;
    bool present = true;
    std::uint16_t vendor = 0x0590;
    std::uint16_t product = 0x0102;
    std::uint8_t card_types = 7;
    unsigned char read_type = 0;
    int felica_read_type = 0;
    ESV_ZEL_ACC_FELICA_SETTING_INFO sites[2];
    FelicaSent last_sent;

    void defaults() {
        present = true;
        vendor = 0x0590;
        product = 0x0102;
        card_types = 7;
        read_type = 0;
        felica_read_type = 0;
        for (auto& s : sites) s = ESV_ZEL_ACC_FELICA_SETTING_INFO{"0", "0", "0", 1, 1};
        last_sent = FelicaSent();
    }
    Reader() { defaults(); }
};

Reader& reader() { return lasting<Reader>(); }

// A code fits its field of the record with its terminating zero.
bool fits(const ESV_ZEL_ACC_FELICA_SETTING_INFO& info) {
    return info.system_code.size() < ESV_ZEL_ACC_FELICA_SYSTEM_CODE &&
           info.service_code_1.size() < ESV_ZEL_ACC_FELICA_SERVICE_CODE_1 &&
           info.service_code_2.size() < ESV_ZEL_ACC_FELICA_SERVICE_CODE_2;
}

}  // namespace

void reset_acc_reader() {
    std::lock_guard<std::mutex> lock(reader().mutex);
    reader().defaults();
}

std::size_t acc_plug_reader(bool present) {
    ESV_ZEL_ACC_ICCARD_STATE_CHANGE_INFO info{};
    {
        std::lock_guard<std::mutex> lock(reader().mutex);
        if (reader().present == present) return 0;
        reader().present = present;
        info.product_id = reader().product;
        info.vendor_id = reader().vendor;
        info.card_types = reader().card_types;
        info.state = present ? 1 : 0;
    }
    // Observers are called without the reader's lock: they may ask the reader again.
    return raise_iccard_state_change(info.product_id, info.vendor_id, info.card_types, info.state).size();
}

bool acc_reader_present() {
    std::lock_guard<std::mutex> lock(reader().mutex);
    return reader().present;
}

void acc_set_reader(std::uint16_t vendor_id, std::uint16_t product_id, std::uint8_t card_types) {
    std::lock_guard<std::mutex> lock(reader().mutex);
    reader().vendor = vendor_id;
    reader().product = product_id;
    reader().card_types = card_types;
}

unsigned char acc_read_type() {
    std::lock_guard<std::mutex> lock(reader().mutex);
    return reader().read_type;
}

int acc_felica_read_type() {
    std::lock_guard<std::mutex> lock(reader().mutex);
    return reader().felica_read_type;
}

void acc_set_felica(int site, const ESV_ZEL_ACC_FELICA_SETTING_INFO& info) {
    if (site != 1 && site != 2) return;
    std::lock_guard<std::mutex> lock(reader().mutex);
    reader().sites[site - 1] = info;
}

bool acc_felica(int site, ESV_ZEL_ACC_FELICA_SETTING_INFO* out) {
    if (site != 1 && site != 2) return false;
    std::lock_guard<std::mutex> lock(reader().mutex);
    *out = reader().sites[site - 1];
    return true;
}

FelicaSent acc_last_felica_sent() {
    std::lock_guard<std::mutex> lock(reader().mutex);
    return reader().last_sent;
}

}  // namespace tovr_sim

namespace tarnwick {

using tovr_sim::reader;

unsigned long esv_zel_acc_facade::esv_zel_acc_get_iccard_device_info(ESV_ZEL_ACC_ICCARD_DEVICE_INFO& info) {
    TOVR_SIM_RECORD(unsigned long, info);
    std::lock_guard<std::mutex> lock(reader().mutex);
    if (!reader().present) return tovr_sim::kAccError;
    info.product_id = reader().product;
    info.vendor_id = reader().vendor;
    info.card_types = reader().card_types;
    return 0;
}

unsigned long esv_zel_acc_facade::esv_zel_acc_get_rw_status(unsigned int& status) {
    TOVR_SIM_RECORD(unsigned long, status);
    std::lock_guard<std::mutex> lock(reader().mutex);
    status = reader().present ? 1 : 0;
    return 0;
}

unsigned long esv_zel_acc_facade::esv_zel_acc_set_iccard_read_type(unsigned char type) {
    TOVR_SIM_RECORD(unsigned long, type);
    std::lock_guard<std::mutex> lock(reader().mutex);
    reader().read_type = type;
    return 0;
}

unsigned long esv_zel_acc_facade::esv_zel_acc_set_felica_read_type(ESV_ZEL_ACC_TYPE_C_READ_TYPE type) {
    TOVR_SIM_RECORD(unsigned long, type);
    if (type < ESV_ZEL_ACC_TYPE_C_READ_NONE || type > ESV_ZEL_ACC_TYPE_C_READ_FELICA) return tovr_sim::kAccError;
    std::lock_guard<std::mutex> lock(reader().mutex);
    reader().felica_read_type = type;
    return 0;
}

unsigned long esv_zel_acc_facade::esv_zel_acc_set_felica_info(ESV_ZEL_ACC_FELICA_SETTING_SITE site,
                                                              ESV_ZEL_ACC_FELICA_SETTING_INFO& info) {
    TOVR_SIM_RECORD(unsigned long, site, info);
    std::lock_guard<std::mutex> lock(reader().mutex);
    reader().last_sent.site = site;
    reader().last_sent.info = info;
    if (site != ESV_ZEL_ACC_FELICA_SETTING_SITE_1 && site != ESV_ZEL_ACC_FELICA_SETTING_SITE_2) return tovr_sim::kAccError;
    if (!tovr_sim::fits(info)) return tovr_sim::kAccError;
    reader().sites[site - 1] = info;
    return 0;
}

unsigned long esv_zel_acc_facade::esv_zel_acc_get_felica_info(ESV_ZEL_ACC_FELICA_SETTING_SITE site,
                                                              ESV_ZEL_ACC_FELICA_SETTING_INFO& info) {
    TOVR_SIM_RECORD(unsigned long, site, info);
    if (site != ESV_ZEL_ACC_FELICA_SETTING_SITE_1 && site != ESV_ZEL_ACC_FELICA_SETTING_SITE_2) return tovr_sim::kAccError;
    std::lock_guard<std::mutex> lock(reader().mutex);
    info = reader().sites[site - 1];
    return 0;
}

}  // namespace tarnwick
