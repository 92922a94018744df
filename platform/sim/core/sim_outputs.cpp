// Simulated device: forced outputs, each write checked against the shape of its argument.
#include <algorithm>
#include <cstdint>
#include <cstring>
#include <map>
#include <mutex>

#include "sim_core_internal.h"
#include "tovr_sim_outputs.h"
#include "tovr_sim_record.h"
#include "tovr_sim_services.h"

namespace tovr_sim {
namespace {

struct OutputKind {
    enum What { number, string, chars, bytes } what = number;
    std::size_t size = 0;
};

// "char[N]" / "bytes[N]" with N from 1 to 16 MiB.
bool parse_sized(const std::string& kind, const std::string& name, std::size_t* size) {
    if (kind.size() < name.size() + 3 || kind.compare(0, name.size() + 1, name + "[") != 0 || kind.back() != ']') {
        return false;
    }
    const std::string digits = kind.substr(name.size() + 1, kind.size() - name.size() - 2);
    if (digits.empty() || digits.size() > 8 || digits.find_first_not_of("0123456789") != std::string::npos) return false;
    *size = static_cast<std::size_t>(std::stoul(digits));
    return *size >= 1 && *size <= (std::size_t{1} << 24);
}

bool parse_kind(const std::string& kind, OutputKind* out) {
    static const std::map<std::string, std::size_t> numbers = {
        {"int8", 1},  {"uint8", 1},  {"int16", 2},           {"uint16", 2},
        {"int32", 4}, {"uint32", 4}, {"int64", 8},           {"uint64", 8},
        {"long", sizeof(long)},      {"ulong", sizeof(unsigned long)},
    };
    auto n = numbers.find(kind);
    if (n != numbers.end()) {
        *out = OutputKind{OutputKind::number, n->second};
        return true;
    }
    if (kind == "string") {
        *out = OutputKind{OutputKind::string, 0};
        return true;
    }
    std::size_t size = 0;
    if (parse_sized(kind, "char", &size)) {
        *out = OutputKind{OutputKind::chars, size};
        return true;
    }
    if (parse_sized(kind, "bytes", &size)) {
        *out = OutputKind{OutputKind::bytes, size};
        return true;
    }
    return false;
}

// Empty when a write of `size` bytes at `offset` stays clear of a record's std::string members.
bool clear_of_strings(const Shape& shape, std::size_t offset, std::size_t size) {
    if (shape.strings == nullptr) return true;
    for (std::size_t at : *shape.strings) {
        if (offset < at + sizeof(std::string) && at < offset + size) return false;
    }
    return true;
}

bool is_string_field(const Shape& shape, std::size_t offset) {
    if (shape.strings == nullptr) return false;
    return std::find(shape.strings->begin(), shape.strings->end(), offset) != shape.strings->end();
}

// Empty when `kind` may be written `offset` bytes into an argument of `shape`, else why not.
std::string misfit(const Shape& shape, const OutputKind& kind, std::size_t offset) {
    switch (shape.kind) {
        case Shape::unknown:
            return "the argument's type is not known";
        case Shape::other:
            return "the argument is not an output the device writes";
        case Shape::integer:
            if (kind.what != OutputKind::number) return "the argument is a number";
            if (offset != 0) return "an offset into a number";
            if (kind.size != shape.size) {
                return "the argument has " + std::to_string(shape.size) + " bytes, the kind " +
                       std::to_string(kind.size);
            }
            return std::string();
        case Shape::string:
            if (kind.what != OutputKind::string || offset != 0) return "the argument is a std::string";
            return std::string();
        case Shape::record:
            if (kind.what == OutputKind::string) {
                if (is_string_field(shape, offset)) return std::string();
                return shape.strings ? "no std::string member at offset " + std::to_string(offset)
                                     : "the argument is a record, not a std::string";
            }
            if (offset > shape.size || kind.size > shape.size - offset) {
                return "past the end of the record (" + std::to_string(shape.size) + " bytes)";
            }
            if (!clear_of_strings(shape, offset, kind.size)) return "over a std::string member of the record";
            return std::string();
        case Shape::buffer:
            // Its size is not known here: a facade whose member writes one names it (sized()).
            if (kind.what == OutputKind::string) return "the argument is a character buffer, not a std::string";
            return "a character buffer of unknown size";
    }
    return "unknown shape";
}

void write_number(void* at, std::size_t size, long long number) {
    const unsigned long long v = static_cast<unsigned long long>(number);
    switch (size) {
        case 1: { std::uint8_t x = static_cast<std::uint8_t>(v); std::memcpy(at, &x, 1); break; }
        case 2: { std::uint16_t x = static_cast<std::uint16_t>(v); std::memcpy(at, &x, 2); break; }
        case 4: { std::uint32_t x = static_cast<std::uint32_t>(v); std::memcpy(at, &x, 4); break; }
        default: { std::uint64_t x = static_cast<std::uint64_t>(v); std::memcpy(at, &x, 8); break; }
    }
}

struct Refusals {
    std::mutex mutex;
    std::vector<std::string> lines;
};

Refusals& refusals() { return lasting<Refusals>(); }

void refuse(const std::string& op, long long index, const std::string& why) {
    Refusals& r = refusals();
    std::lock_guard<std::mutex> lock(r.mutex);
    r.lines.push_back(op + ": argument " + std::to_string(index) + ": " + why);
}

void write_output(const std::string& op, const Params& params, const Output& o) {
    OutputKind kind;
    if (!parse_kind(o.kind, &kind)) return refuse(op, o.index, "unknown kind " + o.kind);
    // A negative index counts from the end (-1: the last argument).
    const long long n = static_cast<long long>(params.size());
    const long long index = o.index < 0 ? n + o.index : o.index;
    if (index < 0 || index >= n) {
        return refuse(op, o.index, "the call has " + std::to_string(params.size()) + " arguments");
    }
    void* target = params[static_cast<std::size_t>(index)];
    if (target == nullptr) return refuse(op, index, "the argument is null");
    const Shapes* shapes = core::current_shapes();
    Shape shape;
    if (shapes && static_cast<std::size_t>(index) < shapes->size()) shape = (*shapes)[static_cast<std::size_t>(index)];
    const std::string why = misfit(shape, kind, o.offset);
    if (!why.empty()) return refuse(op, index, why);
    unsigned char* at = static_cast<unsigned char*>(target) + o.offset;
    switch (kind.what) {
        case OutputKind::number:
            write_number(at, kind.size, o.number);
            break;
        case OutputKind::string:
            *reinterpret_cast<std::string*>(at) = o.text;
            break;
        case OutputKind::chars:
            std::memset(at, 0, kind.size);
            std::memcpy(at, o.text.data(), std::min(o.text.size(), kind.size - 1));
            break;
        case OutputKind::bytes:
            std::memset(at, 0, kind.size);
            std::memcpy(at, o.bytes.data(), std::min(o.bytes.size(), kind.size));
            break;
    }
}

}  // namespace

namespace {
Output output_of(int index, const std::string& kind, std::size_t offset) {
    Output o;
    o.index = index;
    o.offset = offset;
    o.kind = kind;
    return o;
}
}  // namespace

Output output_number(int index, const std::string& kind, long long number, std::size_t offset) {
    Output o = output_of(index, kind, offset);
    o.number = number;
    return o;
}

Output output_text(int index, const std::string& kind, const std::string& text, std::size_t offset) {
    Output o = output_of(index, kind, offset);
    o.text = text;
    return o;
}

Output output_bytes(int index, const std::string& kind, const std::vector<unsigned char>& bytes,
                    std::size_t offset) {
    Output o = output_of(index, kind, offset);
    o.bytes = bytes;
    return o;
}

bool valid_output_kind(const std::string& kind) {
    OutputKind k;
    return parse_kind(kind, &k);
}

bool force_outputs(const std::string& op, long result, const std::vector<Output>& outputs, int times) {
    for (const Output& o : outputs) {
        if (!valid_output_kind(o.kind)) return false;
    }
    force(op,
          [op, result, outputs](const Params& params) {
              for (const Output& o : outputs) write_output(op, params, o);
              return result;
          },
          times);
    return true;
}

bool force_outputs_on_success(const std::string& op, long result, const std::vector<Output>& outputs, int times) {
    if (result == 0) return force_outputs(op, result, outputs, times);
    for (const Output& o : outputs) {
        if (!valid_output_kind(o.kind)) return false;
    }
    force_result(op, result, times);
    return true;
}

bool force_output(const std::string& op, long result, const Output& output, int times) {
    return force_outputs(op, result, std::vector<Output>{output}, times);
}

std::vector<std::string> output_refusals() {
    Refusals& r = refusals();
    std::lock_guard<std::mutex> lock(r.mutex);
    return r.lines;
}

namespace core {
void reset_output_refusals() {
    Refusals& r = refusals();
    std::lock_guard<std::mutex> lock(r.mutex);
    r.lines.clear();
}
}  // namespace core

}  // namespace tovr_sim
