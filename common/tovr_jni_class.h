// One Java class the library builds or calls, and the IDs of the members it uses.
//
// Each Java class has one such holder in the library (a function-local static beside the code
// that uses it), so a class is found and its members are looked up once per process instead of
// once per object, search or notification. The class is kept as a global reference for the
// life of the library.
//
//     jni::JavaClass& name_info_class() {
//         static const jni::Member members[] = {
//             {jni::Member::kConstructor, "<init>", "()V"},
//             {jni::Member::kField, "name", "Ljava/lang/String;"},
//         };
//         static jni::JavaClass holder("tarnwick/zel/address/attribute/NameInfoImpl", members);
//         return holder;
//     }
//
// A class that is not found is looked for again at the next use: FindClass answers with the
// class loader of the calling Java method, so a later caller may see it. Once it is found its
// member IDs are final (a class does not change); a member it lacks stays null, and the code
// using it takes the failure path it would take had its own lookup failed, with the same trace.
#ifndef TARNWICK_TOVR_JNI_CLASS_H
#define TARNWICK_TOVR_JNI_CLASS_H

#include <jni.h>

#include <atomic>
#include <cstddef>
#include <mutex>

namespace tarnwick {
namespace jni {

// A member of a Java class that the library uses.
struct Member {
    enum Kind : unsigned char { kConstructor, kMethod, kStaticMethod, kField, kStaticField };
    Kind kind;
    const char* name;
    const char* signature;
};

class JavaClass {
public:
    template <std::size_t N>
    JavaClass(const char* path, const Member (&members)[N]) : JavaClass(path, members, N) {}
    JavaClass(const char* path, const Member* members, std::size_t count);
    JavaClass(const JavaClass&) = delete;
    JavaClass& operator=(const JavaClass&) = delete;
    // Runs when the library is unloaded: the global reference is deleted when the unloading
    // thread is attached to a live VM, else only forgotten (the VM is going or gone with it).
    ~JavaClass();

    // The class, found and its members looked up at the first call that finds it. Null when it
    // cannot be found (the exception described and cleared, as at any failed Java step).
    // Safe from any number of threads at once.
    jclass get(JNIEnv* env);

    // As get(), for a caller that leaves its failures to its Java caller: a class that cannot be
    // found leaves NoClassDefFoundError (naming the class) pending.
    jclass require(JNIEnv* env);

    // After get() answered the class: member `i` of the list given at construction, null when
    // the class has none such. Before that, null.
    jmethodID method(std::size_t i) const;
    jfieldID field(std::size_t i) const;

    // A new instance through constructor member `i` (no arguments), as a local reference. Null
    // when the class or constructor is missing (nothing pending) or the constructor threw
    // (exception left pending: the caller decides whether it fails its step or passes it on).
    jobject create(JNIEnv* env, std::size_t i = 0);

    const char* path() const { return path_; }

    // Every holder of the process forgets its class and IDs without releasing them, as if never
    // used: for tests that replace the VM between cases. Not while any holder is in use.
    static void forget_all();

private:
    jclass find(JNIEnv* env);

    const char* const path_;
    const Member* const members_;
    const std::size_t count_;
    void** const ids_;  // one per member; written before class_ is published
    std::atomic<jclass> class_{nullptr};
    std::mutex lookup_;
    JavaClass* next_ = nullptr;  // every holder of the process, for forget_all()
};

}  // namespace jni
}  // namespace tarnwick

#endif
