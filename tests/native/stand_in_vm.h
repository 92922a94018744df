// A stand-in Java VM for native tests of code that builds Java objects (no JVM: also under
// qemu-ppc). Objects are plain records the test can read back; the JNI functions the library
// uses are implemented over them, count what the library takes and gives back (UTF characters,
// frames, global references), note every call made while an exception is pending, and can be
// made to fail: a missing class, a throwing constructor, a string the VM has no room for, or a
// native exception thrown out of a JNI function (an allocation failing inside a step).
//
// One Vm at a time: constructing it installs its environment as the fake VM's (fake_jvm.h),
// so CJvm::GetJNIEnv() hands it out; destroying it restores the previous state. Method calls:
// ArrayList.add appends to `elements`; setAttribute keeps the attribute under its class name;
// Calendar.getInstance, set and getTime make a calendar and a date; a constructor taking an
// object keeps it under "value". A long[] is read and written through its `longs`.
#ifndef TOVR_TESTS_STAND_IN_VM_H
#define TOVR_TESTS_STAND_IN_VM_H

#include <jni.h>

#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace stand_in {

// One Java object: a class, a string, an array (of objects, or a long[] of class "[J") or a
// plain object.
struct Obj {
    enum Kind { kClass, kString, kArray, kPlain } kind;
    std::string cls;  // class name (of the object, or the class itself)
    std::string text;
    std::map<std::string, Obj*> refs;
    std::map<std::string, long long> ints;
    std::vector<Obj*> elements;
    std::vector<jlong> longs;  // a long[]'s elements
};

inline Obj* O(jobject o) { return reinterpret_cast<Obj*>(o); }
inline jobject J(Obj* o) { return reinterpret_cast<jobject>(o); }

class Vm {
public:
    // `classes`: the classes FindClass finds (every member of them exists).
    explicit Vm(std::set<std::string> classes);
    ~Vm();
    Vm(const Vm&) = delete;
    Vm& operator=(const Vm&) = delete;

    JNIEnv* env() { return &env_; }
    Obj* make(Obj::Kind kind, const std::string& cls);
    jstring string(const std::string& text);
    jobject object(const std::string& cls) { return J(make(Obj::kPlain, cls)); }
    jlongArray long_array(std::vector<jlong> values);

    // Failures to provoke.
    std::set<std::string> missing_classes;
    std::set<std::string> failing_constructors;   // the constructor throws (a Java exception)
    std::set<std::string> bad_alloc_constructors;  // NewObject throws std::bad_alloc
    int fail_strings = 0;                          // the next n NewStringUTF fail
    int bad_alloc_strings = 0;                     // the next n NewStringUTF throw std::bad_alloc
    jsize array_limit = 1 << 20;                   // larger arrays fail
    bool fail_utf = false;                         // GetStringUTFChars fails

    // What happened.
    bool pending = false;
    int violations = 0;  // JNI calls made while an exception was pending
    int cleared = 0;
    int utf_taken = 0, utf_released = 0;
    int globals = 0;
    int frames = 0, max_frames = 0, frames_pushed = 0;
    std::vector<std::string> thrown;  // "class: message" of each ThrowNew

    // The current Vm (the one the JNI functions act on).
    static Vm& current();

    void check() {
        if (pending) ++violations;
    }
    bool has_class(const std::string& name) const { return classes_.count(name) && !missing_classes.count(name); }
    std::set<std::string> ids;  // field and method IDs: "Class.name:signature"

private:
    std::set<std::string> classes_;
    std::vector<std::unique_ptr<Obj>> heap_;
    JNINativeInterface_ functions_;
    JNIEnv env_;
    Vm* previous_;
    JavaVM* saved_jvm_ = nullptr;
};

}  // namespace stand_in

#endif
