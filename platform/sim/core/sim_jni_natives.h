// Natives of the Java control classes bound by table (RegisterNatives when libtovrsimctl.so
// loads) rather than by exported name: for a family of natives that each only convert their
// arguments and call one control function, such as the notifications. A table line names the
// Java method and the control function; the native's Java parameters, its JNI signature and the
// conversions all follow from the function's parameter types, so they cannot disagree.
#ifndef TOVR_SIM_JNI_NATIVES_H
#define TOVR_SIM_JNI_NATIVES_H

#include <jni.h>

#include <cstdint>
#include <string>
#include <tuple>
#include <type_traits>
#include <vector>

#include "sim_jni.h"

namespace tovr_sim_jni {

// How one parameter of a control function comes from Java: `java` is its JNI type, `letter` its
// code in a JNI signature, and the object converts to the parameter.
//
// Integers and enumerations: unsigned values of 32 bits and more come as a Java long, of which
// the low 32 bits count (the device's long is 32 bits); narrower ones, int and enumerations as
// a Java int.
template <typename P, typename = void>
struct FromJava {
    static_assert((std::is_integral_v<P> && !std::is_same_v<P, bool>) || std::is_enum_v<P>,
                  "no Java form for this parameter type");
    static constexpr bool kWide = std::is_unsigned_v<P> && sizeof(P) >= 4;
    using java = std::conditional_t<kWide, jlong, jint>;
    static constexpr const char* letter = kWide ? "J" : "I";

    FromJava(JNIEnv*, java v) : value(kWide ? static_cast<P>(static_cast<std::uint32_t>(v)) : static_cast<P>(v)) {}
    operator P() const { return value; }
    P value;
};

// Text: a Java String, "" for null. Not read while an exception is pending (an earlier
// argument's), so that the native fails with that one.
template <>
struct FromJava<std::string> {
    using java = jstring;
    static constexpr const char* letter = "Ljava/lang/String;";

    FromJava(JNIEnv* env, jstring s) {
        if (!env->ExceptionCheck()) text_of(env, s, &value);
    }
    operator const std::string&() const { return value; }
    std::string value;
};

// A C string from a Java String, where null stays a null pointer.
template <>
struct FromJava<const char*> : FromJava<std::string> {
    FromJava(JNIEnv* env, jstring s) : FromJava<std::string>(env, s), null(s == nullptr) {}
    operator const char*() const { return null ? nullptr : value.c_str(); }
    bool null;
};

// One native: its Java name, JNI signature and C function.
struct Native {
    const char* name;
    std::string signature;
    void* fn;
};

// The native of a notification: raises it through `Raise` (a control function answering the
// observers' answers) and returns them as a long[] (sim_jni.h); null, raising nothing, when an
// argument could not be converted (its exception is pending for the Java caller).
template <auto Raise, typename Fn = decltype(Raise)>
struct Notification;

template <auto Raise, typename... P>
struct Notification<Raise, std::vector<unsigned long> (*)(P...)> {
    static jlongArray JNICALL call(JNIEnv* env, jclass, typename FromJava<std::decay_t<P>>::java... java_args) {
        // Braces: the arguments are converted in order, so a failed one stops the rest.
        std::tuple<FromJava<std::decay_t<P>>...> args{FromJava<std::decay_t<P>>(env, java_args)...};
        if (env->ExceptionCheck()) return nullptr;
        return answers(env, std::apply([](const auto&... a) { return Raise(a...); }, args));
    }
    static std::string signature() { return (std::string("(") + ... + FromJava<std::decay_t<P>>::letter) + ")[J"; }
};

// A table line: the Java method `name` raising its notification through `Raise`. An overloaded
// control function is named through a pointer of the one form Java raises.
template <auto Raise>
Native notification(const char* name) {
    using N = Notification<Raise>;
    return Native{name, N::signature(), reinterpret_cast<void*>(&N::call)};
}

// Binds `natives` to the Java class `java_class` ("tarnwick/sim/SimCommon") when the library
// loads. Called at static initialisation of the JNI sources; returns true so that it can
// initialise a namespace-scope constant. A class or method that cannot be bound fails the
// library's loading with the VM's error (NoClassDefFoundError, NoSuchMethodError).
bool bind_natives(const char* java_class, std::vector<Native> natives);

}  // namespace tovr_sim_jni

#endif
