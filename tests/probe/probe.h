// Test-only native types that exercise every conversion kind of the wrapper layer.
#ifndef TOVR_TESTS_PROBE_H
#define TOVR_TESTS_PROBE_H

#include <jni.h>

#include <string>
#include <type_traits>
#include <vector>

struct PROBE_INNER {
    int a;
    unsigned short b;
};

// One member of every kind a facade record can have.
struct PROBE_RECORD {
    char text[8];
    bool flag;
    signed char sc;
    unsigned char uc;
    short s;
    unsigned short us;
    int i;
    unsigned int ui;
    long l;
    unsigned long ul;
    long long ll;
    float f;
    double d;
    PROBE_INNER inner;
    bool flags[2];
    signed char scs[2];
    unsigned char ucs[3];
    short ss[2];
    unsigned short uss[2];
    int is[2];
    unsigned int uis[2];
    long ls[2];
    unsigned long uls[2];
    long long lls[2];
    float fs[2];
    double ds[2];
};

namespace tarnwick {
struct PROBE_NS_RECORD {
    int value;
};
}  // namespace tarnwick

// One more, wrapping at the top of the type as the device's integers do (in unsigned
// arithmetic: a signed overflow would be undefined).
template <typename T>
T probe_next(T v) {
    if constexpr (std::is_integral_v<T> && !std::is_same_v<T, bool>) {
        return static_cast<T>(static_cast<std::make_unsigned_t<T>>(v) + 1u);
    } else {
        return (T)(v + 1);
    }
}

#define PROBE_SCALAR_OPS(T, NAME, OUT_VALUE)                 \
    void out_##NAME(T& v) { ++calls; v = (T)(OUT_VALUE); }  \
    void inout_##NAME(T& v) { ++calls; v = probe_next<T>(v); }

class probe_ops {
public:
    probe_ops() : calls(0) {}
    virtual ~probe_ops() {}

    // How many operations reached the native side.
    int calls;

    std::string echo(const std::string& s) { ++calls; return "<" + s + ">"; }
    std::string echo_copy(std::string s) { ++calls; return s + s; }
    const char* text(bool give_null) { ++calls; return give_null ? nullptr : "probe text"; }
    int length(const char* s) { ++calls; return s ? static_cast<int>(std::string(s).size()) : -1; }

    PROBE_SCALAR_OPS(bool, bool, true)
    PROBE_SCALAR_OPS(signed char, schar, -100)
    PROBE_SCALAR_OPS(unsigned char, uchar, 200)
    PROBE_SCALAR_OPS(short, short, -30000)
    PROBE_SCALAR_OPS(unsigned short, ushort, 60000)
    PROBE_SCALAR_OPS(int, int, -2000000000)
    PROBE_SCALAR_OPS(unsigned int, uint, 4000000000u)
    PROBE_SCALAR_OPS(long, long, -5)
    PROBE_SCALAR_OPS(unsigned long, ulong, 4000000001ul)
    PROBE_SCALAR_OPS(long long, longlong, -9000000000ll)
    PROBE_SCALAR_OPS(float, float, 1.5f)
    PROBE_SCALAR_OPS(double, double, -2.25)

    int ref_record(PROBE_RECORD& r) { ++calls; return r.i; }
    int cref_record(const PROBE_RECORD& r) { ++calls; return r.i; }
    int ref_ns(tarnwick::PROBE_NS_RECORD& r) { ++calls; return r.value; }
    int ptr_record(PROBE_RECORD* r) { ++calls; return r ? r->i : -1; }
    unsigned int vec_sum(std::vector<unsigned int>& v) {
        ++calls;
        unsigned int sum = 0;
        for (unsigned int x : v) sum += x;
        return sum;
    }
    void vec_fill(std::vector<unsigned int>& v, unsigned int n) {
        ++calls;
        for (unsigned int k = 0; k < n; ++k) v.push_back(k * 10);
    }

    unsigned long ulong_value(unsigned long v) { ++calls; return v; }
    long long_value(long v) { ++calls; return v; }
    unsigned char uchar_value(unsigned char v) { ++calls; return v; }
    unsigned short ushort_value(unsigned short v) { ++calls; return v; }
    unsigned int uint_value(unsigned int v) { ++calls; return v; }
};

// Runtime frame services, reached from Java for the tests.
class probe_runtime {
public:
    static bool has_vm();
    static bool has_env();
    static void create_jvm();
    // Forgets the VM as DestroyJVM would, without destroying the running one.
    static void forget_jvm();
    static int destroy_jvm_without_vm();
    static jobject create_java_object(const char* class_name);
    static void release_java_object(jobject obj);
};

#endif
