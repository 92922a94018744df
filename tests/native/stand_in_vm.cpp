#include "stand_in_vm.h"

#include <cstdarg>
#include <cstdlib>
#include <cstring>
#include <new>

#include "CJvm.h"
#include "fake_jvm.h"
#include "tovr_jni_class.h"

namespace stand_in {
namespace {

Vm* g_current = nullptr;

Vm& vm() { return Vm::current(); }

// The member an ID stands for: "Class.name:signature".
const std::string& id_text(const void* id) { return *reinterpret_cast<const std::string*>(id); }
std::string member_name(const void* id) {
    const std::string& s = id_text(id);
    std::size_t dot = s.find('.');
    return s.substr(dot + 1, s.find(':') - dot - 1);
}
std::string signature(const void* id) {
    const std::string& s = id_text(id);
    return s.substr(s.find(':') + 1);
}
void* make_id(jclass c, const char* name, const char* sig) {
    return const_cast<std::string*>(&*vm().ids.insert(O(c)->cls + "." + name + ":" + sig).first);
}

jclass JNICALL find_class(JNIEnv*, const char* name) {
    vm().check();
    if (!vm().has_class(name)) {
        vm().pending = true;  // NoClassDefFoundError
        return nullptr;
    }
    return reinterpret_cast<jclass>(vm().make(Obj::kClass, name));
}
jint JNICALL throw_new(JNIEnv*, jclass c, const char* message) {
    vm().thrown.push_back(O(c)->cls + ": " + message);
    vm().pending = true;
    return 0;
}
jobject JNICALL new_global_ref(JNIEnv*, jobject o) {
    vm().check();
    ++vm().globals;
    return o;
}
void JNICALL delete_global_ref(JNIEnv*, jobject) { --vm().globals; }
void JNICALL delete_local_ref(JNIEnv*, jobject) {}
jfieldID JNICALL get_field_id(JNIEnv*, jclass c, const char* name, const char* sig) {
    vm().check();
    return static_cast<jfieldID>(make_id(c, name, sig));
}
jmethodID JNICALL get_method_id(JNIEnv*, jclass c, const char* name, const char* sig) {
    vm().check();
    return static_cast<jmethodID>(make_id(c, name, sig));
}
jboolean JNICALL exception_check(JNIEnv*) { return vm().pending ? JNI_TRUE : JNI_FALSE; }
void JNICALL exception_describe(JNIEnv*) {}
void JNICALL exception_clear(JNIEnv*) {
    if (vm().pending) ++vm().cleared;
    vm().pending = false;
}
jboolean JNICALL is_instance_of(JNIEnv*, jobject o, jclass c) {
    vm().check();
    return O(o)->cls == O(c)->cls ? JNI_TRUE : JNI_FALSE;
}
jobject JNICALL get_object_field(JNIEnv*, jobject o, jfieldID id) {
    vm().check();
    auto it = O(o)->refs.find(member_name(id));
    return it == O(o)->refs.end() ? nullptr : J(it->second);
}
jobject JNICALL get_static_object_field(JNIEnv*, jclass c, jfieldID id) {
    vm().check();
    Obj* constant = vm().make(Obj::kPlain, O(c)->cls);
    constant->text = member_name(id);
    return J(constant);
}
const char* JNICALL get_string_utf_chars(JNIEnv*, jstring s, jboolean*) {
    vm().check();
    if (vm().fail_utf) {
        vm().pending = true;  // OutOfMemoryError
        return nullptr;
    }
    ++vm().utf_taken;
    char* copy = static_cast<char*>(std::malloc(O(s)->text.size() + 1));
    std::memcpy(copy, O(s)->text.c_str(), O(s)->text.size() + 1);
    // Some paths keep the characters on purpose (the count above tells); a list that stays
    // reachable keeps the leak checker of the sanitizer build from reporting those.
    static std::vector<char*>* taken = new std::vector<char*>;
    taken->push_back(copy);
    return copy;
}
void JNICALL release_string_utf_chars(JNIEnv*, jstring, const char* chars) {
    ++vm().utf_released;
    std::free(const_cast<char*>(chars));
}
jobject JNICALL new_object_v(JNIEnv*, jclass c, jmethodID m, va_list args) {
    vm().check();
    const std::string& cls = O(c)->cls;
    if (vm().bad_alloc_constructors.count(cls)) throw std::bad_alloc();
    if (vm().failing_constructors.count(cls)) {
        vm().pending = true;  // the constructor threw
        return nullptr;
    }
    Obj* o = vm().make(Obj::kPlain, cls);
    // Every constructor the library calls takes nothing or one object (a String).
    if (signature(m) != "()V") o->refs["value"] = O(va_arg(args, jobject));
    return J(o);
}
jobject JNICALL new_object(JNIEnv* env, jclass c, jmethodID m, ...) {
    va_list args;
    va_start(args, m);
    jobject o = new_object_v(env, c, m, args);
    va_end(args);
    return o;
}
jstring JNICALL new_string_utf(JNIEnv*, const char* chars) {
    vm().check();
    if (vm().bad_alloc_strings > 0) {
        --vm().bad_alloc_strings;
        throw std::bad_alloc();
    }
    if (vm().fail_strings > 0) {
        --vm().fail_strings;
        vm().pending = true;  // OutOfMemoryError
        return nullptr;
    }
    Obj* s = vm().make(Obj::kString, "java/lang/String");
    s->text = chars;
    return reinterpret_cast<jstring>(s);
}
void JNICALL set_object_field(JNIEnv*, jobject o, jfieldID id, jobject v) {
    vm().check();
    O(o)->refs[member_name(id)] = O(v);
}
// Every whole-number field (byte, int, long, boolean) is kept as a number.
template <class T>
void JNICALL set_number_field(JNIEnv*, jobject o, jfieldID id, T v) {
    vm().check();
    O(o)->ints[member_name(id)] = v;
}
jsize JNICALL get_array_length(JNIEnv*, jarray a) {
    vm().check();
    const Obj* o = O(a);
    return static_cast<jsize>(o->cls == "[J" ? o->longs.size() : o->elements.size());
}
void JNICALL set_long_array_region(JNIEnv*, jlongArray a, jsize start, jsize len, const jlong* buf) {
    vm().check();
    for (jsize i = 0; i < len; ++i) O(a)->longs.at(static_cast<std::size_t>(start + i)) = buf[i];
}
void JNICALL get_long_array_region(JNIEnv*, jlongArray a, jsize start, jsize len, jlong* buf) {
    vm().check();
    for (jsize i = 0; i < len; ++i) buf[i] = O(a)->longs.at(static_cast<std::size_t>(start + i));
}
jobjectArray JNICALL new_object_array(JNIEnv*, jsize n, jclass c, jobject) {
    vm().check();
    if (n > vm().array_limit) {
        vm().pending = true;
        return nullptr;
    }
    Obj* a = vm().make(Obj::kArray, O(c)->cls);
    a->elements.assign(static_cast<std::size_t>(n), nullptr);
    return reinterpret_cast<jobjectArray>(a);
}
void JNICALL set_object_array_element(JNIEnv*, jobjectArray a, jsize i, jobject v) {
    vm().check();
    O(a)->elements.at(static_cast<std::size_t>(i)) = O(v);
}
jint JNICALL push_local_frame(JNIEnv*, jint) {
    vm().check();
    ++vm().frames_pushed;
    if (++vm().frames > vm().max_frames) vm().max_frames = vm().frames;
    return 0;
}
jobject JNICALL pop_local_frame(JNIEnv*, jobject keep) {
    --vm().frames;
    return keep;
}

// The few Java methods the library calls, acted out on the objects.
jobject call(jobject target, jmethodID m, va_list args) {
    vm().check();
    const std::string name = member_name(m);
    if (name == "add") {
        O(target)->elements.push_back(O(va_arg(args, jobject)));
        return nullptr;
    }
    if (name == "setAttribute") {
        Obj* attribute = O(va_arg(args, jobject));
        O(target)->refs[attribute->cls] = attribute;
        return nullptr;
    }
    if (name == "getInstance") return J(vm().make(Obj::kPlain, "java/util/Calendar"));
    if (name == "set") {
        static const char* const fields[] = {"year", "month", "day", "hour", "minute", "second"};
        for (const char* f : fields) O(target)->ints[f] = va_arg(args, jint);
        return nullptr;
    }
    if (name == "getTime") {
        Obj* date = vm().make(Obj::kPlain, "java/util/Date");
        date->ints = O(target)->ints;
        return J(date);
    }
    return nullptr;
}
jboolean JNICALL call_boolean_method_v(JNIEnv*, jobject o, jmethodID m, va_list args) {
    call(o, m, args);
    return JNI_TRUE;
}
jboolean JNICALL call_boolean_method(JNIEnv*, jobject o, jmethodID m, ...) {
    va_list args;
    va_start(args, m);
    call(o, m, args);
    va_end(args);
    return JNI_TRUE;
}
void JNICALL call_void_method_v(JNIEnv*, jobject o, jmethodID m, va_list args) { call(o, m, args); }
void JNICALL call_void_method(JNIEnv*, jobject o, jmethodID m, ...) {
    va_list args;
    va_start(args, m);
    call(o, m, args);
    va_end(args);
}
jobject JNICALL call_object_method_v(JNIEnv*, jobject o, jmethodID m, va_list args) { return call(o, m, args); }
jobject JNICALL call_object_method(JNIEnv*, jobject o, jmethodID m, ...) {
    va_list args;
    va_start(args, m);
    jobject r = call(o, m, args);
    va_end(args);
    return r;
}
jobject JNICALL call_static_object_method_v(JNIEnv*, jclass c, jmethodID m, va_list args) {
    return call(J(O(c)), m, args);
}
jobject JNICALL call_static_object_method(JNIEnv*, jclass c, jmethodID m, ...) {
    va_list args;
    va_start(args, m);
    jobject r = call(J(O(c)), m, args);
    va_end(args);
    return r;
}

}  // namespace

Vm& Vm::current() { return *g_current; }

Vm::Vm(std::set<std::string> classes) : classes_(std::move(classes)), previous_(g_current) {
    classes_.insert({"java/util/ArrayList", "java/lang/NullPointerException", "java/lang/OutOfMemoryError",
                     "java/lang/RuntimeException", "java/lang/IndexOutOfBoundsException",
                     "java/lang/ClassCastException", "java/lang/NoClassDefFoundError"});
    std::memset(&functions_, 0, sizeof functions_);
    functions_.FindClass = find_class;
    functions_.ThrowNew = throw_new;
    functions_.NewGlobalRef = new_global_ref;
    functions_.DeleteGlobalRef = delete_global_ref;
    functions_.DeleteLocalRef = delete_local_ref;
    functions_.GetFieldID = get_field_id;
    functions_.GetStaticFieldID = get_field_id;
    functions_.GetMethodID = get_method_id;
    functions_.GetStaticMethodID = get_method_id;
    functions_.ExceptionCheck = exception_check;
    functions_.ExceptionDescribe = exception_describe;
    functions_.ExceptionClear = exception_clear;
    functions_.IsInstanceOf = is_instance_of;
    functions_.GetObjectField = get_object_field;
    functions_.GetStaticObjectField = get_static_object_field;
    functions_.GetStringUTFChars = get_string_utf_chars;
    functions_.ReleaseStringUTFChars = release_string_utf_chars;
    functions_.NewObject = new_object;
    functions_.NewObjectV = new_object_v;
    functions_.NewStringUTF = new_string_utf;
    functions_.SetObjectField = set_object_field;
    functions_.SetByteField = set_number_field<jbyte>;
    functions_.SetIntField = set_number_field<jint>;
    functions_.SetLongField = set_number_field<jlong>;
    functions_.SetBooleanField = set_number_field<jboolean>;
    functions_.NewObjectArray = new_object_array;
    functions_.GetArrayLength = get_array_length;
    functions_.SetLongArrayRegion = set_long_array_region;
    functions_.GetLongArrayRegion = get_long_array_region;
    functions_.SetObjectArrayElement = set_object_array_element;
    functions_.PushLocalFrame = push_local_frame;
    functions_.PopLocalFrame = pop_local_frame;
    functions_.CallBooleanMethod = call_boolean_method;
    functions_.CallBooleanMethodV = call_boolean_method_v;
    functions_.CallVoidMethod = call_void_method;
    functions_.CallVoidMethodV = call_void_method_v;
    functions_.CallObjectMethod = call_object_method;
    functions_.CallObjectMethodV = call_object_method_v;
    functions_.CallStaticObjectMethod = call_static_object_method;
    functions_.CallStaticObjectMethodV = call_static_object_method_v;
    env_.functions = &functions_;
    g_current = this;
    fake_jvm::reset();
    fake_jvm::control().env = &env_;
    saved_jvm_ = tarnwick::CJvm::ms_jvm;
    tarnwick::CJvm::ms_jvm = fake_jvm::vm();
    tarnwick::jni::JavaClass::forget_all();  // classes of another test's stand-in VM
}

Vm::~Vm() {
    tarnwick::jni::JavaClass::forget_all();
    tarnwick::CJvm::ms_jvm = saved_jvm_;
    fake_jvm::reset();
    g_current = previous_;
}

Obj* Vm::make(Obj::Kind kind, const std::string& cls) {
    heap_.push_back(std::make_unique<Obj>());
    heap_.back()->kind = kind;
    heap_.back()->cls = cls;
    return heap_.back().get();
}

jlongArray Vm::long_array(std::vector<jlong> values) {
    Obj* a = make(Obj::kArray, "[J");
    a->longs = std::move(values);
    return reinterpret_cast<jlongArray>(a);
}

jstring Vm::string(const std::string& text) {
    Obj* s = make(Obj::kString, "java/lang/String");
    s->text = text;
    return reinterpret_cast<jstring>(s);
}

}  // namespace stand_in
