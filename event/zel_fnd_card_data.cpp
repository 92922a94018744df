// Walk of the card-data block.
#include "zel_fnd_card_data.h"

namespace tarnwick {

namespace {

// Reads forward through [data, data + size) and refuses to pass its end.
class Reader {
public:
    Reader(const unsigned char* data, std::size_t size) : data_(data), size_(size), at_(0) {}

    bool u8(std::uint8_t* out) {
        if (size_ - at_ < 1) return false;
        *out = data_[at_++];
        return true;
    }
    bool u16(std::uint16_t* out) {
        if (size_ - at_ < 2) return false;
        *out = static_cast<std::uint16_t>((data_[at_] << 8) | data_[at_ + 1]);
        at_ += 2;
        return true;
    }
    // Skips `n` bytes and returns where they start, or null when they do not fit.
    const unsigned char* take(std::size_t n) {
        if (size_ - at_ < n) return nullptr;
        const unsigned char* p = data_ + at_;
        at_ += n;
        return p;
    }

private:
    const unsigned char* data_;
    std::size_t size_;
    std::size_t at_;
};

}  // namespace

bool zel_fnd_decode_card_data(const unsigned char* data, std::size_t size,
                              std::vector<zel_fnd_card_system>& systems) {
    systems.clear();
    if (data == nullptr) size = 0;
    Reader in(data, size);
    std::uint8_t sysdata_num = 0;
    if (!in.u8(&sysdata_num)) return false;
    systems.reserve(sysdata_num);
    for (unsigned i = 0; i < sysdata_num; ++i) {
        zel_fnd_card_system system;
        std::uint8_t service_num = 0;
        if (!in.u16(&system.system_code) || in.take(kZelFndCardReservedSize) == nullptr ||
            !in.u8(&service_num)) {
            systems.clear();
            return false;
        }
        system.services.reserve(service_num);
        for (unsigned j = 0; j < service_num; ++j) {
            zel_fnd_card_service service;
            if (!in.u16(&service.service_code) || !in.u8(&service.block_count)) {
                systems.clear();
                return false;
            }
            // An empty run of blocks still has a place: point it at the current position.
            service.blocks = in.take(std::size_t(service.block_count) * kZelFndCardBlockSize);
            if (service.blocks == nullptr) {
                systems.clear();
                return false;
            }
            system.services.push_back(service);
        }
        systems.push_back(std::move(system));
    }
    return true;
}

}  // namespace tarnwick
