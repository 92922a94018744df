// Conventions of the wrapper layer, shared by every Java module's interface file.
//
// SWIG's Java defaults already give the handle layout (the object's address in the first bytes
// of the jlong), the exception table of SWIG_JavaThrowException, OUTPUT arrays, fixed char
// array members, fixed scalar arrays (arrays_java.i), delete_X(0) and the __SWIG_N overload
// suffixes. What follows overrides the places where its defaults differ from what the Java
// side of the device expects, and adds what it lacks.
//
// A module's interface file reads, in this order: "// package <java.package>" on its first
// line; %module; %include "tovr_conventions.i"; the %{ #include %} of its headers; then, per
// real header, the %ignore of what the module keeps internal followed by %include "x.h" (no
// ../ paths: SWIG's include path holds every source folder); no class, record or enumeration
// is declared again by hand. A record or constant that several modules expose comes from one
// shared piece, an interface file without a package line (esv_zel_max_sizes.i,
// esv_zel_job_state.i), which each of them includes and so gets its own natives for.

%include <typemaps.i>
%include <std_string.i>
%include <std_except.i>
%include <arrays_java.i>
%include "tovr_loader.i"
// Enumerations reach Java as plain int, so values outside the enumerators can be passed on.
%include <enumtypeunsafe.swg>

%{
#include <cstdint>
#include <stdexcept>
#include <string>
#include <vector>
%}

// ---------------------------------------------------------------------------------------------
// The Java side knows exactly these exception codes; SWIG's own table has a tenth row
// (IllegalStateException) that must not be reachable, so every module throws through this one.
%insert(runtime) %{
static void tovr_JavaThrowException(JNIEnv *jenv, SWIG_JavaExceptionCodes code, const char *msg) {
  static const struct { int code; const char *java_exception; } table[] = {
    { 1, "java/lang/OutOfMemoryError" },
    { 2, "java/io/IOException" },
    { 3, "java/lang/RuntimeException" },
    { 4, "java/lang/IndexOutOfBoundsException" },
    { 5, "java/lang/ArithmeticException" },
    { 6, "java/lang/IllegalArgumentException" },
    { 7, "java/lang/NullPointerException" },
    { 8, "java/lang/RuntimeException" },
    { 9, "java/lang/UnknownError" },
    { 0, "java/lang/UnknownError" }
  };
  int row = 0;
  while (table[row].code != (int)code && table[row].code != 0) row++;
  jenv->ExceptionClear();
  jclass exception_class = jenv->FindClass(table[row].java_exception);
  if (exception_class) {
    jenv->ThrowNew(exception_class, msg);
    jenv->DeleteLocalRef(exception_class);
  }
}
#define SWIG_JavaThrowException tovr_JavaThrowException
%}

// No native exception leaves a wrapper function: a failed allocation is the table's
// OutOfMemoryError, anything else a RuntimeException with the exception's text. (A module's own
// %catches are handled inside this, with their own Java exception.)
%exception {
  try {
    $action
  } catch (const std::bad_alloc&) {
    SWIG_JavaThrowException(jenv, SWIG_JavaOutOfMemoryError, "native memory allocation failed");
    return $null;
  } catch (const std::exception& e) {
    SWIG_JavaThrowException(jenv, SWIG_JavaRuntimeException, e.what());
    return $null;
  }
}

// ---------------------------------------------------------------------------------------------
// char* arguments: the characters are taken into a holder that releases them when the wrapper
// function returns, whichever way it returns: a later argument's check (a null reference) may
// return before SWIG's freearg would have run.
%insert(runtime) %{
namespace {
struct tovr_utf_in {
  JNIEnv *env = nullptr;
  jstring text = nullptr;
  const char *chars = nullptr;
  tovr_utf_in() = default;
  tovr_utf_in(const tovr_utf_in&) = delete;
  tovr_utf_in& operator=(const tovr_utf_in&) = delete;
  ~tovr_utf_in() { if (chars) env->ReleaseStringUTFChars(text, chars); }
  // False, with the VM's exception pending, when the characters could not be had.
  bool take(JNIEnv *e, jstring s) {
    env = e;
    text = s;
    chars = s ? e->GetStringUTFChars(s, 0) : nullptr;
    return !s || chars;
  }
};
}
%}
%typemap(in, noblock=1) char * (tovr_utf_in utf), char[ANY] (tovr_utf_in utf), char[] (tovr_utf_in utf) {
  if (!utf.take(jenv, $input)) return $null;
  $1 = ($1_ltype)utf.chars;
}
%typemap(freearg) char *, char[ANY], char[] ""

// Text members read back bounded by their size and made fit for NewStringUTF, by the library's one
// field-to-string conversion (tovr_jni_text.h).
%{
#include "tovr_jni_text.h"
%}
%typemap(out) char [ANY] %{
  if ($1) $result = tarnwick::jni::new_field_string(jenv, $1, $1_dim0);
%}

// ---------------------------------------------------------------------------------------------
// Java proxies.
//
// A member call or field access on a proxy whose handle is 0 (deleted, or never had one)
// throws IllegalStateException "<class> has been deleted" before any native call: the native
// layer does not test the handle. delete() stays idempotent.
//
// A proxy returned by a member (an embedded record, a reference into the object) keeps the
// proxy it came from reachable, so the record it points into is not finalized under it; and a
// proxy that has lent such members out frees its object at finalization rather than at delete()
// (its own calls are refused from delete() on), so no member ever reads freed memory.
%typemap(javabody) SWIGTYPE %{
  private transient long swigCPtr;
  protected transient boolean swigCMemOwn;
  // The proxy this one points into (keeps it reachable), and whether this one lent members out.
  transient Object swigOwner;
  transient boolean swigLent;
  // An owned object whose delete() came while members were lent: freed at finalization.
  private transient long swigHeld;

  protected $javaclassname(long cPtr, boolean cMemoryOwn) {
    swigCMemOwn = cMemoryOwn;
    swigCPtr = cPtr;
  }

  // An argument's handle. A deleted object is refused here, before the native call, wherever
  // it is passed (the native side would take its handle as it stands).
  protected static long getCPtr($javaclassname obj) {
    if (obj == null) return 0;
    if (obj.swigCPtr == 0) throw obj.swigDeleted();
    return obj.swigCPtr;
  }

  // The handle of a record an embedded member is copied from (after the owner's own test).
  protected static long swigSource($javaclassname obj) {
    if (obj == null) throw new NullPointerException("null $javaclassname");
    return getCPtr(obj);
  }

  protected static long swigRelease($javaclassname obj) {
    long ptr = 0;
    if (obj != null) {
      if (!obj.swigCMemOwn)
        throw new RuntimeException("Cannot release ownership as memory is not owned");
      ptr = obj.swigCPtr;
      obj.swigCMemOwn = false;
      obj.swigLent = false;
      obj.delete();
    }
    return ptr;
  }

  private IllegalStateException swigDeleted() {
    return new IllegalStateException("$javaclassname has been deleted");
  }
%}

%typemap(javabody) SWIGTYPE *, SWIGTYPE &, SWIGTYPE &&, SWIGTYPE [] %{
  private transient long swigCPtr;
  transient Object swigOwner;

  protected $javaclassname(long cPtr, @SuppressWarnings("unused") boolean futureUse) {
    swigCPtr = cPtr;
  }

  protected $javaclassname() {
    swigCPtr = 0;
  }

  protected static long getCPtr($javaclassname obj) {
    return (obj == null) ? 0 : obj.swigCPtr;
  }

  protected static long swigRelease($javaclassname obj) {
    return (obj == null) ? 0 : obj.swigCPtr;
  }
%}

%typemap(javadestruct, methodname="delete", methodmodifiers="public synchronized", parameters="") SWIGTYPE {
    long swigFree = 0;
    if (swigCPtr != 0) {
      if (swigCMemOwn) {
        swigCMemOwn = false;
        if (swigLent) swigHeld = swigCPtr;
        else swigFree = swigCPtr;
      }
      swigCPtr = 0;
    }
    if (swigFree != 0) {
      long swigCPtr = swigFree;
      $jnicall;
    }
  }

// Finalized: no member proxy can reach this one any more.
%typemap(javafinalize) SWIGTYPE %{
  @SuppressWarnings("deprecation")
  protected void finalize() {
    synchronized (this) {
      if (swigHeld != 0) {
        swigCPtr = swigHeld;
        swigCMemOwn = true;
        swigHeld = 0;
      }
      swigLent = false;
    }
    delete();
  }
%}

// Results of members and static functions, each family as SWIG's own, with the handle test
// (LIVE) and the owner link (KEEP) of an instance member. NAME names one function for the
// static forms (TOVR_STATIC).
%define TOVR_JAVAOUT(LIVE, KEEP, NAME)
%typemap(javaout) void NAME {
    LIVE $jnicall;
  }
%typemap(javaout) bool NAME, const bool &NAME, char NAME, const char &NAME,
                  signed char NAME, const signed char &NAME, unsigned char NAME, const unsigned char &NAME,
                  short NAME, const short &NAME, unsigned short NAME, const unsigned short &NAME,
                  int NAME, const int &NAME, unsigned int NAME, const unsigned int &NAME,
                  long NAME, const long &NAME, unsigned long NAME, const unsigned long &NAME,
                  long long NAME, const long long &NAME, unsigned long long NAME, const unsigned long long &NAME,
                  float NAME, const float &NAME, double NAME, const double &NAME,
                  size_t NAME, const size_t &NAME, std::size_t NAME, const std::size_t &NAME,
                  char *NAME, char *&NAME, char NAME[ANY], char NAME[],
                  std::string NAME, const std::string &NAME,
                  enum SWIGTYPE NAME, const enum SWIGTYPE &NAME,
                  jboolean NAME, jchar NAME, jbyte NAME, jshort NAME, jint NAME, jlong NAME, jfloat NAME, jdouble NAME,
                  jstring NAME, jobject NAME, jbooleanArray NAME, jcharArray NAME, jbyteArray NAME, jshortArray NAME,
                  jintArray NAME, jlongArray NAME, jfloatArray NAME, jdoubleArray NAME, jobjectArray NAME,
                  bool NAME[ANY], bool NAME[], signed char NAME[ANY], signed char NAME[],
                  unsigned char NAME[ANY], unsigned char NAME[], short NAME[ANY], short NAME[],
                  unsigned short NAME[ANY], unsigned short NAME[], int NAME[ANY], int NAME[],
                  unsigned int NAME[ANY], unsigned int NAME[], long NAME[ANY], long NAME[],
                  unsigned long NAME[ANY], unsigned long NAME[], long long NAME[ANY], long long NAME[],
                  float NAME[ANY], float NAME[], double NAME[ANY], double NAME[] {
    LIVE return $jnicall;
  }
%typemap(javaout) SWIGTYPE NAME {
    LIVE return new $&javaclassname($jnicall, true);
  }
%typemap(javaout) SWIGTYPE &NAME, SWIGTYPE &&NAME {
    LIVE $javaclassname ret = new $javaclassname($jnicall, $owner);
    KEEP return ret;
  }
%typemap(javaout) SWIGTYPE *NAME, SWIGTYPE *const NAME, SWIGTYPE NAME[] {
    LIVE long cPtr = $jnicall;
    if (cPtr == 0) return null;
    $javaclassname ret = new $javaclassname(cPtr, $owner);
    KEEP return ret;
  }
%typemap(javaout) SWIGTYPE *const&NAME {
    LIVE long cPtr = $jnicall;
    if (cPtr == 0) return null;
    $*javaclassname ret = new $*javaclassname(cPtr, $owner);
    KEEP return ret;
  }
%enddef

// A module's own javaout of an instance member begins with the same test.
TOVR_JAVAOUT(if (swigCPtr == 0) throw swigDeleted();, swigLent = true; ret.swigOwner = this;, )

// A static member function (or a function outside a class) has no handle to test. Name each one,
// fully qualified, before its header's %include: TOVR_STATIC(tarnwick::Class::function). javac
// refuses the handle test in a static method, so a missing one is found at build time.
%define TOVR_STATIC(NAME)
TOVR_JAVAOUT(, , NAME)
%enddef

// The setter of an embedded record member copies the whole record from the one it is given,
// without testing its handle: a null value is refused before the native call (NullPointerException
// "null <record>"), after the owner's own test. Name each embedded member, its type as declared,
// before its header's %include: TOVR_EMBEDDED(ESV_ZEL_NAME_INFO, name_info). (A pointer argument
// of a function stays free to be null; SWIG gives a setter's parameter the member's name, which
// is what tells them apart. EmbeddedMemberTest finds a member left out.)
%define TOVR_EMBEDDED(TYPE, MEMBER)
%typemap(javain) TYPE *MEMBER "$javaclassname.swigSource($javainput)"
%enddef

// ---------------------------------------------------------------------------------------------
// Enumerations travel as int constants on the Java side; no getter native per enumerator.
// A #define of a module's real header that must stay a native NAME_get is named with
// `%javaconst(0) NAME;` before the header's %include; its literal gives the Java type (65 int,
// 65u long). TOVR_CONSTANT below declares a native constant that no header holds.
%javaconst(1);

%define TOVR_CONSTANT(TYPE, NAME, VALUE)
%javaconst(0) NAME;
%constant TYPE NAME = VALUE;
%enddef

// ---------------------------------------------------------------------------------------------
// The device is ILP32: long and unsigned long are 32 bits there. A host build narrows at the
// same places, so Java sees the same values on both.
%typemap(in) unsigned long %{ $1 = ($1_ltype)(std::uint32_t)$input; %}
%typemap(in) const unsigned long & ($*1_ltype temp)
%{ temp = ($*1_ltype)(std::uint32_t)$input;
   $1 = &temp; %}
%typemap(out) unsigned long %{ $result = (jlong)(std::uint32_t)$1; %}
%typemap(out) const unsigned long & %{ $result = (jlong)(std::uint32_t)*$1; %}
%typemap(out) long %{ $result = (jint)$1; %}
%typemap(out) const long & %{ $result = (jint)*$1; %}

// ---------------------------------------------------------------------------------------------
// Strings: a null Java string names the C++ type in its message.
%typemap(in) std::string
%{ if (!$input) {
     SWIG_JavaThrowException(jenv, SWIG_JavaNullPointerException, "null std::string");
     return $null;
   }
   const char *$1_pstr = (const char *)jenv->GetStringUTFChars($input, 0);
   if (!$1_pstr) return $null;
   $1.assign($1_pstr);
   jenv->ReleaseStringUTFChars($input, $1_pstr); %}

%typemap(in) const std::string &
%{ if (!$input) {
     SWIG_JavaThrowException(jenv, SWIG_JavaNullPointerException, "null std::string");
     return $null;
   }
   const char *$1_pstr = (const char *)jenv->GetStringUTFChars($input, 0);
   if (!$1_pstr) return $null;
   $*1_ltype $1_str($1_pstr);
   $1 = &$1_str;
   jenv->ReleaseStringUTFChars($input, $1_pstr); %}

// ---------------------------------------------------------------------------------------------
// References: the message names the parameter's type as declared, "const &" included.
%typemap(in) SWIGTYPE &
%{ $1 = *($&1_ltype)&$input;
   if (!$1) {
     SWIG_JavaThrowException(jenv, SWIG_JavaNullPointerException, "$1_type reference is null");
     return $null;
   } %}

// ---------------------------------------------------------------------------------------------
// In/out scalars: element 0 is read into a local of the native type and written back as one
// element. (SWIG's stock INOUT hands the Java buffer itself to the native code, which reads
// the wrong bytes for the widening types on a big-endian device.)
%define TOVR_INOUT(TYPE, JNITYPE, JAVATYPE, FROM_JAVA, TO_JAVA)
%typemap(in) TYPE *INOUT ($*1_ltype temp), TYPE &INOUT ($*1_ltype temp) {
  if (!$input) {
    SWIG_JavaThrowException(jenv, SWIG_JavaNullPointerException, "array null");
    return $null;
  }
  if (JCALL1(GetArrayLength, jenv, $input) == 0) {
    SWIG_JavaThrowException(jenv, SWIG_JavaIndexOutOfBoundsException, "Array must contain at least 1 element");
    return $null;
  }
  JNITYPE jvalue;
  JCALL4(Get##JAVATYPE##ArrayRegion, jenv, $input, 0, 1, &jvalue);
  temp = FROM_JAVA(jvalue);
  $1 = &temp;
}
%typemap(argout) TYPE *INOUT, TYPE &INOUT {
  JNITYPE jvalue = TO_JAVA(temp$argnum);
  JCALL4(Set##JAVATYPE##ArrayRegion, jenv, $input, 0, 1, &jvalue);
}
%enddef

%{
// Plain conversions, and the 32-bit ones of the ILP32 device for long and unsigned long.
#define TOVR_AS(T) (T)
static inline unsigned long tovr_ulong_from_java(jlong v) { return (unsigned long)(std::uint32_t)v; }
static inline jlong tovr_ulong_to_java(unsigned long v) { return (jlong)(std::uint32_t)v; }
static inline long tovr_long_from_java(jint v) { return (long)v; }
static inline jint tovr_long_to_java(long v) { return (jint)v; }
%}

TOVR_INOUT(bool, jboolean, Boolean, TOVR_AS(bool), TOVR_AS(jboolean))
TOVR_INOUT(signed char, jbyte, Byte, TOVR_AS(signed char), TOVR_AS(jbyte))
TOVR_INOUT(unsigned char, jshort, Short, TOVR_AS(unsigned char), TOVR_AS(jshort))
TOVR_INOUT(short, jshort, Short, TOVR_AS(short), TOVR_AS(jshort))
TOVR_INOUT(unsigned short, jint, Int, TOVR_AS(unsigned short), TOVR_AS(jint))
TOVR_INOUT(int, jint, Int, TOVR_AS(int), TOVR_AS(jint))
TOVR_INOUT(unsigned int, jlong, Long, TOVR_AS(unsigned int), TOVR_AS(jlong))
TOVR_INOUT(long, jint, Int, tovr_long_from_java, tovr_long_to_java)
TOVR_INOUT(unsigned long, jlong, Long, tovr_ulong_from_java, tovr_ulong_to_java)
TOVR_INOUT(long long, jlong, Long, TOVR_AS(long long), TOVR_AS(jlong))
TOVR_INOUT(float, jfloat, Float, TOVR_AS(float), TOVR_AS(jfloat))
TOVR_INOUT(double, jdouble, Double, TOVR_AS(double), TOVR_AS(jdouble))

// Output-only unsigned long keeps 32 bits too.
%typemap(argout) unsigned long *OUTPUT, unsigned long &OUTPUT {
  jlong jvalue = tovr_ulong_to_java(temp$argnum);
  JCALL4(SetLongArrayRegion, jenv, $input, 0, 1, &jvalue);
}

// ---------------------------------------------------------------------------------------------
// std::vector<unsigned int> as the Java list type `vectorl` (declare it in a module with
// TOVR_VECTORL). Its method set is fixed: size, capacity, reserve, isEmpty, clear, add, get, set.
%define TOVR_VECTORL
%{
// A size from Java is checked against the 32-bit device's max_size() before it is narrowed to
// size_t: -1, 2^32 + n and 2^40 then fail alike on host and device, and never reach the
// allocator (a std::length_error or std::bad_alloc escaping here would end the VM).
static std::size_t tovr_vectorl_size(long long n) {
  const long long device_max_size = 0x1FFFFFFF;
  if (n < 0 || n > device_max_size) throw std::length_error("vector size out of range");
  return (std::size_t)n;
}
%}
// A size out of range is the caller's argument; memory the device does not have is the VM's
// out-of-memory case.
%typemap(throws) std::length_error
%{ SWIG_JavaThrowException(jenv, SWIG_JavaIllegalArgumentException, $1.what());
   return $null; %}
%typemap(throws) std::bad_alloc
%{ SWIG_JavaThrowException(jenv, SWIG_JavaOutOfMemoryError, "vector memory allocation failed");
   return $null; %}
namespace std {
  template<class T> class vector {
    public:
      typedef size_t size_type;
      typedef T value_type;
      typedef const value_type& const_reference;
      vector();
      size_type size() const;
      size_type capacity() const;
      %rename(isEmpty) empty;
      bool empty() const;
      void clear();
      %rename(add) push_back;
      void push_back(const value_type& x);
      %extend {
        %catches(std::length_error, std::bad_alloc) vector(long long n);
        vector(long long n) { return new std::vector<T>(tovr_vectorl_size(n)); }
        %catches(std::length_error, std::bad_alloc) reserve(long long n);
        void reserve(long long n) { self->reserve(tovr_vectorl_size(n)); }
        %catches(std::out_of_range) get;
        const_reference get(int i) {
          int size = int(self->size());
          if (i >= 0 && i < size) return (*self)[i];
          throw std::out_of_range("vector index out of range");
        }
        %catches(std::out_of_range) set;
        void set(int i, const value_type& val) {
          int size = int(self->size());
          if (i >= 0 && i < size) (*self)[i] = val;
          else throw std::out_of_range("vector index out of range");
        }
      }
  };
}
%template(vectorl) std::vector<unsigned int>;
%enddef
