// Forced outputs: the one way a forcing writes through a call's arguments.
//
// force_output() arms a forcing that writes one value through one argument and answers
// `result`: what a facade that fills in an output and returns a code does. The value is written
// `offset` bytes into the object the argument reaches (0: the object itself; a field of a
// record otherwise). Kinds:
//   int8 uint8 int16 uint16 int32 uint32 int64 uint64 long ulong (the platform's C long)
//     the low bits of `number`, in the platform's byte order;
//   string      a std::string argument (or a std::string member of a record) is assigned `text`;
//   char[N]     a fixed character array of N bytes: at most N-1 bytes of `text`, the rest zero
//               (always NUL-terminated);
//   bytes[N]    N raw bytes: `bytes`, cut at N, the rest zero.
// A write that does not fit the argument (a kind of another width, a string into a number,
// past the end of a record, over a std::string member, an input, an argument the call does not
// have) is not made; the forcing answers `result` all the same and the refusal is listed by
// output_refusals().
#ifndef TOVR_SIM_OUTPUTS_H
#define TOVR_SIM_OUTPUTS_H

#include <cstddef>
#include <cstring>
#include <string>
#include <type_traits>
#include <vector>

namespace tovr_sim {

struct Output {
    int index = 0;            // argument number from 0; from C++ also -1 for the last, -2 ...
    std::size_t offset = 0;   // bytes into the argument's object
    std::string kind;         // see above
    long long number = 0;     // integer kinds
    std::string text;         // string, char[N]
    std::vector<unsigned char> bytes;  // bytes[N]
};

// Builders for the common cases.
Output output_number(int index, const std::string& kind, long long number, std::size_t offset = 0);
Output output_text(int index, const std::string& kind, const std::string& text, std::size_t offset = 0);
Output output_bytes(int index, const std::string& kind, const std::vector<unsigned char>& bytes,
                    std::size_t offset = 0);

// The number kind of an integer or enumeration type T ("uint32" for unsigned int ...).
template <typename T>
std::string number_kind() {
    static_assert(std::is_integral_v<T> || std::is_enum_v<T>, "a number");
    bool is_signed = false;
    if constexpr (std::is_enum_v<T>) {
        is_signed = std::is_signed_v<std::underlying_type_t<T>>;
    } else {
        is_signed = std::is_signed_v<T>;
    }
    return std::string(is_signed ? "int" : "uint") + std::to_string(sizeof(T) * 8);
}

// A value of T written as the number kind of its own width.
template <typename T>
Output output_value(int index, T value, std::size_t offset = 0) {
    return output_number(index, number_kind<T>(), static_cast<long long>(value), offset);
}

// A whole plain record written byte for byte ("bytes[sizeof(T)]").
template <typename T>
Output output_record(int index, const T& record, std::size_t offset = 0) {
    static_assert(std::is_trivially_copyable_v<T>, "a plain record");
    std::vector<unsigned char> raw(sizeof(T));
    std::memcpy(raw.data(), &record, sizeof(T));
    return output_bytes(index, "bytes[" + std::to_string(sizeof(T)) + "]", raw, offset);
}

// False (and nothing armed) when a kind is not one of the above.
bool valid_output_kind(const std::string& kind);
bool force_output(const std::string& op, long result, const Output& output, int times = 1);
// Several outputs of one call (e.g. a count and a list), written in order.
bool force_outputs(const std::string& op, long result, const std::vector<Output>& outputs, int times = 1);
// As force_outputs(), but the outputs are written only when `result` is 0 (a device that fills
// in its outputs on success only); another result is answered alone.
bool force_outputs_on_success(const std::string& op, long result, const std::vector<Output>& outputs, int times = 1);
// Forced outputs that could not be written since the last reset(), each as
// "op: argument i: reason".
std::vector<std::string> output_refusals();

}  // namespace tovr_sim

#endif
