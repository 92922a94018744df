// The FeliCa card-data block that the access-control service leaves in its IPC partition:
// byte-packed, big-endian, counts followed by their entries, no length field.
//
//   sysdata_num (1)
//   sysdata_num x { system code (2), reserved (8), service_num (1),
//                   service_num x { service code (2), block count (1), block count x 16 bytes } }
//
// The data come from outside the process, so the walk is bounded by the bytes that are
// readable from the block's start; counts that run past them make the whole block invalid.
#ifndef TARNWICK_ZEL_FND_CARD_DATA_H
#define TARNWICK_ZEL_FND_CARD_DATA_H

#include <cstddef>
#include <cstdint>
#include <vector>

namespace tarnwick {

constexpr std::size_t kZelFndCardBlockSize = 16;
constexpr std::size_t kZelFndCardReservedSize = 8;

struct zel_fnd_card_service {
    std::uint16_t service_code;
    std::uint8_t block_count;
    const unsigned char* blocks;  // block_count * 16 bytes inside the decoded block
};

struct zel_fnd_card_system {
    std::uint16_t system_code;
    std::vector<zel_fnd_card_service> services;
};

// Decodes the block at `data`, of which `size` bytes may be read. On success fills `systems`
// (one entry per system-data entry, in order) and returns true; returns false, with
// `systems` empty, when a count runs past `size`. Bytes after the last entry are ignored.
bool zel_fnd_decode_card_data(const unsigned char* data, std::size_t size,
                              std::vector<zel_fnd_card_system>& systems);

}  // namespace tarnwick

#endif
