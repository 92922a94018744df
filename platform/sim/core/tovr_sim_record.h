// How a simulated facade member records its call: each argument's text for the record, its
// address for a forcing, and its shape, so that a forced output that does not fit the
// argument is refused instead of corrupting the caller's memory.
#ifndef TOVR_SIM_RECORD_H
#define TOVR_SIM_RECORD_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "tovr_sim_calls.h"

namespace tovr_sim {

// Argument formatting for the record: numbers in decimal, strings as they are, null as "null".
std::string arg(const char* s);
inline std::string arg(char* s) { return arg(static_cast<const char*>(s)); }
std::string arg(const std::string& s);
template <typename T>
std::string arg(T v) {
    if constexpr (std::is_pointer_v<T>) {
        return v ? std::to_string(reinterpret_cast<std::uintptr_t>(v)) : std::string("null");
    } else if constexpr (std::is_enum_v<T>) {
        return std::to_string(static_cast<long long>(v));
    } else {
        return std::to_string(v);
    }
}

// What a forcing reaches for one argument: the object a pointer points at, else the argument.
template <typename T>
void* param(T& v) {
    if constexpr (std::is_pointer_v<T>) {
        return const_cast<void*>(static_cast<const void*>(v));
    } else {
        return const_cast<void*>(static_cast<const void*>(&v));
    }
}

// Formats an argument for the record; a record (class type other than a string) is shown by
// its address, as a pointer would be.
template <typename T>
std::string arg_of(const T& v) {
    using U = std::decay_t<T>;
    if constexpr (std::is_class_v<U> && !std::is_same_v<U, std::string>) {
        return arg(static_cast<const void*>(&v));
    } else {
        return arg(v);
    }
}

// What an output forcing may write through one argument, from the argument's static type.
struct Shape {
    enum Kind {
        unknown,  // not described: never written
        integer,  // an integer or enumeration of `size` bytes
        string,   // a std::string
        record,   // a record of `size` bytes (its std::string members at `strings`)
        buffer,   // a character buffer of unknown size (char*, unsigned char*, signed char*)
        other     // anything else (inputs, observers, lists, pointers to pointers): never written
    };
    Kind kind = unknown;
    std::size_t size = 0;
    const std::vector<std::size_t>* strings = nullptr;  // offsets of std::string members
};

// A record with std::string members names their offsets in a specialisation beside its
// simulated facade, so that a forced output may assign them ("string" at that offset) and
// nothing else overwrites them. Records without one are plain bytes, or never written when
// they are not trivially copyable.
template <typename T>
struct StringFields {
    static const std::vector<std::size_t>* offsets() { return nullptr; }
};

template <typename T>
Shape shape_of_object() {
    using U = std::remove_volatile_t<T>;
    if constexpr (std::is_const_v<U>) {
        return Shape{Shape::other, 0};  // an input: never written
    } else if constexpr (std::is_same_v<U, std::string>) {
        return Shape{Shape::string, sizeof(U)};
    } else if constexpr (std::is_same_v<U, bool>) {
        return Shape{Shape::other, sizeof(U)};
    } else if constexpr (std::is_integral_v<U> || std::is_enum_v<U>) {
        return Shape{Shape::integer, sizeof(U)};
    } else if constexpr (std::is_class_v<U> && std::is_trivially_copyable_v<U>) {
        return Shape{Shape::record, sizeof(U)};
    } else if constexpr (std::is_class_v<U>) {
        const std::vector<std::size_t>* strings = StringFields<U>::offsets();
        return strings ? Shape{Shape::record, sizeof(U), strings} : Shape{Shape::other, 0};
    } else {
        return Shape{Shape::other, 0};
    }
}

// The shape of what param() hands a forcing for an argument of type T.
template <typename T>
Shape shape_of() {
    if constexpr (std::is_pointer_v<std::remove_cv_t<T>>) {
        using P = std::remove_pointer_t<std::remove_cv_t<T>>;
        if constexpr (std::is_const_v<P>) {
            return Shape{Shape::other, 0};  // an input: never written
        } else if constexpr (std::is_same_v<P, char> || std::is_same_v<P, signed char> ||
                             std::is_same_v<P, unsigned char>) {
            return Shape{Shape::buffer, 0};
        } else if constexpr (std::is_void_v<P> || std::is_pointer_v<P>) {
            return Shape{Shape::other, 0};
        } else {
            return shape_of_object<P>();
        }
    } else {
        return shape_of_object<T>();
    }
}

// Argument wrappers for record() / TOVR_SIM_RECORD.
//
// unrecorded(x): x reaches a forcing (params) but is left out of the recorded text, as an output
// record that only the device fills in.
template <typename T>
struct Unrecorded {
    T& value;
};
template <typename T>
Unrecorded<T> unrecorded(T& v) {
    return Unrecorded<T>{v};
}

// shown(x, parts...): x reaches a forcing (params); the record shows `parts` in its place (zero
// or more texts, each formatted as an argument), e.g. the key fields of a record.
template <typename T>
struct Shown {
    T& value;
    std::vector<std::string> texts;
};
template <typename T, typename... Parts>
Shown<T> shown(T& v, const Parts&... parts) {
    return Shown<T>{v, {arg_of(parts)...}};
}

// sized(p, n): a buffer argument `p` that the device fills, `n` bytes long: recorded as the
// pointer, and a forced output may write within its `n` bytes (a buffer of unknown size is
// never written).
template <typename T>
struct Sized {
    T* value;
    std::size_t size;
};
template <typename T>
Sized<T> sized(T* p, std::size_t n) {
    return Sized<T>{p, n};
}

namespace detail {
template <typename T>
void add_texts(std::vector<std::string>& out, T& a) {
    out.push_back(arg_of(a));
}
template <typename T>
void add_texts(std::vector<std::string>&, Unrecorded<T>&) {}
template <typename T>
void add_texts(std::vector<std::string>& out, Shown<T>& a) {
    out.insert(out.end(), a.texts.begin(), a.texts.end());
}

template <typename T>
void add_texts(std::vector<std::string>& out, Sized<T>& a) {
    out.push_back(arg_of(a.value));
}

template <typename T>
void* param_of(T& a) {
    return param(a);
}
template <typename T>
void* param_of(Unrecorded<T>& a) {
    return param(a.value);
}
template <typename T>
void* param_of(Shown<T>& a) {
    return param(a.value);
}

template <typename T>
void* param_of(Sized<T>& a) {
    return param(a.value);
}

template <typename T>
Shape shape_for(T&) {
    return shape_of<T>();
}
template <typename T>
Shape shape_for(Unrecorded<T>&) {
    return shape_of<T>();
}
template <typename T>
Shape shape_for(Shown<T>&) {
    return shape_of<T>();
}
template <typename T>
Shape shape_for(Sized<T>& a) {
    if constexpr (std::is_const_v<T>) {
        return Shape{Shape::other, 0};  // an input: never written
    } else {
        return Shape{Shape::record, a.size};
    }
}
}  // namespace detail

// intercept() with each argument named once: records `op` with the arguments formatted by
// arg_of() (unrecorded() and shown() change what one argument shows) and hands a forcing each
// argument's address (see param()) and its shape.
template <typename... A>
bool record(const char* op, long* result, A&&... a) {
    std::vector<std::string> texts;
    texts.reserve(sizeof...(a));
    (detail::add_texts(texts, a), ...);
    return intercept(op, std::move(texts), Params{detail::param_of(a)...}, Shapes{detail::shape_for(a)...},
                     result);
}

// The one instance of the simulated facade esv_zel_<AREA>_facade, made at its first use and
// never destroyed (a facade thread may still reach it at exit).
#define TOVR_SIM_FACADE_INSTANCE(AREA)                                                          \
    esv_zel_##AREA##_facade* esv_zel_##AREA##_facade::esv_zel_##AREA##_get_instance() {        \
        static esv_zel_##AREA##_facade* instance = new esv_zel_##AREA##_facade;                 \
        return instance;                                                                         \
    }

// First statement of a simulated facade member: records the call under the member's own name
// and returns a forced answer, converted to the member's result type, when one is armed.
#define TOVR_SIM_RECORD(RESULT_TYPE, ...) TOVR_SIM_RECORD_AS(__func__, RESULT_TYPE, ##__VA_ARGS__)

// The same under another recorded name, for a member whose recorded name is not its own (a
// helper shared by several members, an operation implemented under a different symbol).
#define TOVR_SIM_RECORD_AS(OP, RESULT_TYPE, ...)                                           \
    do {                                                                                   \
        long tovr_forced_ = 0;                                                             \
        if (::tovr_sim::record(OP, &tovr_forced_, ##__VA_ARGS__))                          \
            return static_cast<RESULT_TYPE>(tovr_forced_);                                 \
    } while (0)

}  // namespace tovr_sim

#endif
