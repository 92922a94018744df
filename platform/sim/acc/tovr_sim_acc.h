// Control interface of the simulated access-control facade: its notifications, the card-data
// partition they point into, and the IC card reader.
//
// Test and tool code only. The facade delivers its notifications on one thread of its own; each
// raise_* call waits for the observers' answers and returns them in registration order.
#ifndef TOVR_SIM_ACC_H
#define TOVR_SIM_ACC_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "esv_zel_acc_facade.h"
#include "tovr_sim.h"

namespace tovr_sim {

using AccFacade = ObservedFacade<tarnwick::esv_zel_acc_observer>;
AccFacade& acc_facade();

// ---------------------------------------------------------------------------------------------
// Notifications (esv_zel_acc_observer)

// An IC card at the reader: the record is built from the fields (the identifier cut to its
// field and terminated).
Answers raise_iccard_detect(const std::string& card_id, std::uint32_t card_type, std::uint16_t card_data_size,
                            int blkid);
Answers raise_iccard_read_error(int code);
Answers raise_iccard_state_change(std::uint16_t product_id, std::uint16_t vendor_id, std::uint8_t card_types,
                                  int state);

// The card-data partition of the access-control facade.
constexpr const char* kAccPartition = ESV_ZEL_ACC_ICCARD_DATA_PARTITION;
constexpr std::size_t kAccPartitionSize = ESV_ZEL_ACC_ICCARD_DATA_PARTITION_SIZE;

// Writes card data as block `block_id` at `offset` of the card-data partition.
inline bool acc_write_card_data(unsigned long block_id, std::size_t offset, const std::vector<unsigned char>& bytes) {
    return ipc_write_block(kAccPartition, kAccPartitionSize, block_id, offset, bytes);
}

// ---------------------------------------------------------------------------------------------
// IC card reader. A fresh device has a reader: vendor 0x0590, product 0x0102, card types A|B|C
// (7); read type 0, TypeC read type 0; both FeliCa sites hold system code "0", service codes "0"
// and "0", block counts 1 and 1.

// Failure of the simulated access-control facade: device info without a reader, site other
// than 1 or 2, a code longer than its field (15 characters), a TypeC read type above 2.
constexpr unsigned long kAccError = 0x04010702;
void reset_acc_reader();
// Plugs the reader in or out; a change raises notify_iccard_state_change_info (state 1 or 0,
// with the reader's identity) and returns the observers' answers' count.
std::size_t acc_plug_reader(bool present);
bool acc_reader_present();
void acc_set_reader(std::uint16_t vendor_id, std::uint16_t product_id, std::uint8_t card_types);
unsigned char acc_read_type();
int acc_felica_read_type();
void acc_set_felica(int site, const ESV_ZEL_ACC_FELICA_SETTING_INFO& info);
bool acc_felica(int site, ESV_ZEL_ACC_FELICA_SETTING_INFO* out);
// What the last set_felica_info carried, whatever it answered (site -1 when none came).
struct FelicaSent {
    int site = -1;
    ESV_ZEL_ACC_FELICA_SETTING_INFO info{};
};
FelicaSent acc_last_felica_sent();

// The outputs that fill a FeliCa setting record at argument `index`: its three codes (its
// std::string members) and two block counts.
std::vector<Output> felica_outputs(int index, const ESV_ZEL_ACC_FELICA_SETTING_INFO& info);

// The FeliCa setting record holds std::string members: forced outputs may assign exactly those.
template <>
struct StringFields<ESV_ZEL_ACC_FELICA_SETTING_INFO> {
    static const std::vector<std::size_t>* offsets();
};

}  // namespace tovr_sim

#endif
