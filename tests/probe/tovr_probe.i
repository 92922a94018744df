// package tarnwick.zel.wrapper.probe
// Test-only module: every conversion kind of the wrapper layer, built from the shared typemaps.
%module tovr_probe

%include "tovr_conventions.i"

%{
#include "probe.h"
%}

TOVR_VECTORL

%apply bool &OUTPUT { bool &v_out };
%define PROBE_APPLY(T)
%apply T &OUTPUT { T &out };
%apply T &INOUT { T &inout };
%enddef
PROBE_APPLY(bool)
PROBE_APPLY(signed char)
PROBE_APPLY(unsigned char)
PROBE_APPLY(short)
PROBE_APPLY(unsigned short)
PROBE_APPLY(int)
PROBE_APPLY(unsigned int)
PROBE_APPLY(long)
PROBE_APPLY(unsigned long)
PROBE_APPLY(long long)
PROBE_APPLY(float)
PROBE_APPLY(double)

// Throws through the module's exception table, for the table's own test.
%typemap(in, numinputs=0) JNIEnv *ENV %{ $1 = jenv; %}
TOVR_STATIC(probe_throw)
%inline %{
void probe_throw(JNIEnv *ENV, int code, const char *message) {
    SWIG_JavaThrowException(ENV, (SWIG_JavaExceptionCodes)code, message);
}
%}

TOVR_CONSTANT(unsigned int, PROBE_LONG_CONSTANT, 256)
TOVR_CONSTANT(int, PROBE_INT_CONSTANT, 193)

enum PROBE_ENUM { PROBE_ENUM_A = 1, PROBE_ENUM_B = 4 };

struct PROBE_INNER {
    int a;
    unsigned short b;
};

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
}

%define PROBE_SCALAR_DECL(T, NAME)
    void out_##NAME(T &out);
    void inout_##NAME(T &inout);
%enddef

class probe_ops {
public:
    probe_ops();
    virtual ~probe_ops();
    int calls;
    std::string echo(const std::string& s);
    std::string echo_copy(std::string s);
    const char* text(bool give_null);
    int length(const char* s);
    PROBE_SCALAR_DECL(bool, bool)
    PROBE_SCALAR_DECL(signed char, schar)
    PROBE_SCALAR_DECL(unsigned char, uchar)
    PROBE_SCALAR_DECL(short, short)
    PROBE_SCALAR_DECL(unsigned short, ushort)
    PROBE_SCALAR_DECL(int, int)
    PROBE_SCALAR_DECL(unsigned int, uint)
    PROBE_SCALAR_DECL(long, long)
    PROBE_SCALAR_DECL(unsigned long, ulong)
    PROBE_SCALAR_DECL(long long, longlong)
    PROBE_SCALAR_DECL(float, float)
    PROBE_SCALAR_DECL(double, double)
    int ref_record(PROBE_RECORD& r);
    int cref_record(const PROBE_RECORD& r);
    int ref_ns(tarnwick::PROBE_NS_RECORD& r);
    int ptr_record(PROBE_RECORD* r);
    unsigned int vec_sum(std::vector<unsigned int>& v);
    void vec_fill(std::vector<unsigned int>& v, unsigned int n);
    unsigned long ulong_value(unsigned long v);
    long long_value(long v);
    unsigned char uchar_value(unsigned char v);
    unsigned short ushort_value(unsigned short v);
    unsigned int uint_value(unsigned int v);
};

%define PROBE_STATIC(NAME) TOVR_STATIC(probe_runtime::NAME) %enddef
PROBE_STATIC(has_vm)
PROBE_STATIC(has_env)
PROBE_STATIC(create_jvm)
PROBE_STATIC(forget_jvm)
PROBE_STATIC(destroy_jvm_without_vm)
PROBE_STATIC(create_java_object)
PROBE_STATIC(release_java_object)
class probe_runtime {
public:
    static bool has_vm();
    static bool has_env();
    static void create_jvm();
    static void forget_jvm();
    static int destroy_jvm_without_vm();
    static jobject create_java_object(const char* class_name);
    static void release_java_object(jobject obj);
};
