// libFuzzer target: the card-data walk on arbitrary bytes. The input buffer is exactly as long
// as the data, so AddressSanitizer catches any read past its end; a decoded block must point
// inside the input and account for no more bytes than it has.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <vector>

#include "zel_fnd_card_data.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::vector<tarnwick::zel_fnd_card_system> systems;
    if (!tarnwick::zel_fnd_decode_card_data(data, size, systems)) {
        if (!systems.empty()) std::abort();
        return 0;
    }
    if (size == 0 || systems.size() != data[0]) std::abort();
    std::size_t used = 1;
    for (const tarnwick::zel_fnd_card_system& s : systems) {
        used += 2 + tarnwick::kZelFndCardReservedSize + 1;
        for (const tarnwick::zel_fnd_card_service& v : s.services) {
            used += 3;
            const std::size_t n = std::size_t(v.block_count) * tarnwick::kZelFndCardBlockSize;
            if (v.blocks != data + used) std::abort();  // blocks follow their count directly
            used += n;
        }
    }
    if (used > size) std::abort();
    return 0;
}
