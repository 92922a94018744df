// Natives of the list benchmarks, written for the benchmark only:
// - the floors: the same Java objects the library makes for a local user, a box entry and a
//   personal address, by the fewest JNI calls with IDs looked up once (no checks, no trace);
// - the bare lists: each list's prepare / fetch / finish sequence as the library makes it, the
//   floor's objects made from every fetched record in between and, on request, the library's
//   trace lines (same formats, same number): what the list costs with nothing of the library's
//   own, its facade and trace work done where the library does it (so the same caches suffer).
#include <jni.h>

#include <cstdarg>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string>

#include "emw_clb_time.h"
#include "emw_gen_trc.h"
#include "emw_osw_mem.h"
#include "esv_zel_address_types.h"
#include "esv_zel_box_types.h"
#include "esv_zel_common_facade.h"
#include "esv_zel_user_facade.h"

namespace {

jclass global(JNIEnv* env, const char* path) {
    jclass local = env->FindClass(path);
    jclass g = static_cast<jclass>(env->NewGlobalRef(local));
    env->DeleteLocalRef(local);
    return g;
}

// One class the floors make: its constructor and the fields they set, in order.
struct Shape {
    jclass cls;
    jmethodID init;
    jfieldID f[12];
    Shape(JNIEnv* env, const char* path, std::initializer_list<std::pair<const char*, const char*>> fields = {},
          const char* init_signature = "()V") {
        cls = global(env, path);
        init = env->GetMethodID(cls, "<init>", init_signature);
        int i = 0;
        for (auto& p : fields) f[i++] = env->GetFieldID(cls, p.first, p.second);
    }
};

// ArrayList.add, which the user and box floors fill the caller's list with.
struct ListAdd {
    jclass cls;
    jmethodID add;
    explicit ListAdd(JNIEnv* env)
        : cls(global(env, "java/util/ArrayList")), add(env->GetMethodID(cls, "add", "(Ljava/lang/Object;)Z")) {}
};

const char* S = "Ljava/lang/String;";
const char* kTextInit = "(Ljava/lang/String;)V";

struct UserIds {
    Shape user, login, name, mail;
    jmethodID set_attribute;
    jclass level;
    jfieldID admin, usr;
    ListAdd list;
    explicit UserIds(JNIEnv* env)
        : user(env, "tarnwick/zel/user/UserImpl"),
          login(env, "tarnwick/user/attribute/LoginName", {}, kTextInit),
          name(env, "tarnwick/user/attribute/UserName", {}, kTextInit),
          mail(env, "tarnwick/user/attribute/MailAddress", {}, kTextInit),
          set_attribute(env->GetMethodID(user.cls, "setAttribute", "(Ltarnwick/user/attribute/UserAttribute;)V")),
          level(global(env, "tarnwick/user/attribute/AccessLevel")),
          admin(env->GetStaticFieldID(level, "ADMIN", "Ltarnwick/user/attribute/AccessLevel;")),
          usr(env->GetStaticFieldID(level, "USER", "Ltarnwick/user/attribute/AccessLevel;")),
          list(env) {}
};

// The box entry: its information's fields name, datasize, date, path; the file's info, isfile.
struct BoxIds {
    Shape info, file;
    jclass calendar;
    jmethodID get_instance, set, get_time;
    ListAdd list;
    explicit BoxIds(JNIEnv* env)
        : info(env, "tarnwick/zel/box/document/RemovableMemoryFileInfoImpl",
               {{"name", S}, {"datasize", "J"}, {"date", "Ljava/util/Date;"}, {"path", S}}),
          file(env, "tarnwick/zel/box/document/RemovableMemoryFileImpl",
               {{"info", "Ltarnwick/zel/box/document/RemovableMemoryFileInfoImpl;"}, {"isfile", "Z"}}),
          calendar(global(env, "java/util/Calendar")),
          get_instance(env->GetStaticMethodID(calendar, "getInstance", "()Ljava/util/Calendar;")),
          set(env->GetMethodID(calendar, "set", "(IIIIII)V")),
          get_time(env->GetMethodID(calendar, "getTime", "()Ljava/util/Date;")),
          list(env) {}
};

const std::initializer_list<std::pair<const char*, const char*>> kServerFields = {
    {"host", S}, {"path", S}, {"port", "I"}, {"loginName", S}, {"password", S}};

struct AddressIds {
    Shape name, email, ftp, smb, fax, ifax, personal;
    explicit AddressIds(JNIEnv* env)
        : name(env, "tarnwick/zel/address/attribute/NameInfoImpl", {{"name", S}, {"pronunciation", S}}),
          email(env, "tarnwick/zel/address/attribute/EmailInfoImpl", {{"mailAddress", S}}),
          ftp(env, "tarnwick/zel/address/attribute/FtpInfoImpl", kServerFields),
          smb(env, "tarnwick/zel/address/attribute/SmbInfoImpl", kServerFields),
          fax(env, "tarnwick/zel/address/attribute/FaxInfoImpl",
              {{"faxNum", S}, {"bitrateType", "B"}, {"ecm", "B"}, {"faxAddress", S}, {"encode", "B"}, {"encodeID", "B"},
               {"encodeBox", "B"}, {"encodeBoxNum", "B"}, {"name", S}, {"department", S}, {"company", S},
               {"honorificTitleType", "B"}}),
          ifax(env, "tarnwick/zel/address/attribute/IfaxInfoImpl",
               {{"ifaxAddress", S}, {"modeType", "B"}, {"sizeType", "B"}, {"resolutionType", "B"}, {"fileType", "B"}}),
          personal(env, "tarnwick/zel/address/PersonalAddressImpl",
                   {{"name", "Ltarnwick/zel/address/attribute/NameInfoImpl;"},
                    {"email", "Ltarnwick/zel/address/attribute/EmailInfoImpl;"},
                    {"ftp", "Ltarnwick/zel/address/attribute/FtpInfoImpl;"},
                    {"smb", "Ltarnwick/zel/address/attribute/SmbInfoImpl;"},
                    {"fax", "Ltarnwick/zel/address/attribute/FaxInfoImpl;"},
                    {"ifax", "Ltarnwick/zel/address/attribute/IfaxInfoImpl;"}}) {}
};

jstring text(JNIEnv* env, const char* s) { return env->NewStringUTF(s); }

void text(JNIEnv* env, jobject o, jfieldID f, const char* s) { env->SetObjectField(o, f, text(env, s)); }

// A trace line as the library writes it (cmt_trace.h).
void trace(const char* module, const char* operation, const char* format, ...) {
    char message[256];
    std::memset(message, 0, sizeof message);
    va_list args;
    va_start(args, format);
    std::vsnprintf(message, sizeof message, format, args);
    va_end(args);
    emwGENTrcPrintf(0x2601, 0x101, 3, "%s[%04d]::%s,%s\n", module, 200, operation, message);
}

// One entry of each list, by the fewest JNI calls, in a frame of its own.
void user_entry(JNIEnv* env, const UserIds& ids, jobject list, const ESV_ZEL_USERINFO_RECORD& r) {
    env->PushLocalFrame(16);
    jobject user = env->NewObject(ids.user.cls, ids.user.init);
    env->CallVoidMethod(user, ids.set_attribute,
                        env->NewObject(ids.login.cls, ids.login.init, text(env, r.login_name)));
    env->CallVoidMethod(user, ids.set_attribute, env->NewObject(ids.name.cls, ids.name.init, text(env, r.user_name)));
    env->CallVoidMethod(user, ids.set_attribute, env->NewObject(ids.mail.cls, ids.mail.init, text(env, r.email)));
    env->CallVoidMethod(user, ids.set_attribute, env->GetStaticObjectField(ids.level, r.rights == 0 ? ids.admin : ids.usr));
    env->CallBooleanMethod(list, ids.list.add, user);
    env->PopLocalFrame(nullptr);
}

void box_entry(JNIEnv* env, const BoxIds& ids, jobject list, const ESV_ZEL_EASY_BOX_INFO& e) {
    env->PushLocalFrame(16);
    jobject info = env->NewObject(ids.info.cls, ids.info.init);
    text(env, info, ids.info.f[0], e.name);
    env->SetLongField(info, ids.info.f[1], e.size);
    time_t t = e.date;
    struct tm local;
    emwCLBLocalTime_r(&t, &local);
    jobject cal = env->CallStaticObjectMethod(ids.calendar, ids.get_instance);
    env->CallVoidMethod(cal, ids.set, local.tm_year + 1900, local.tm_mon, local.tm_mday, local.tm_hour, local.tm_min,
                        local.tm_sec);
    env->SetObjectField(info, ids.info.f[2], env->CallObjectMethod(cal, ids.get_time));
    text(env, info, ids.info.f[3], e.path);
    jobject file = env->NewObject(ids.file.cls, ids.file.init);
    env->SetObjectField(file, ids.file.f[0], info);
    env->SetBooleanField(file, ids.file.f[1], e.type != ESV_ZEL_EASY_BOX_TYPE_FOLDER);
    env->CallBooleanMethod(list, ids.list.add, file);
    env->PopLocalFrame(nullptr);
}

jbyte low(std::int32_t v) { return static_cast<jbyte>(v & 0xFF); }

// The FTP and SMB destinations: the same fields (host, path, port, login name, password).
jobject server(JNIEnv* env, const Shape& s, const char* host, const char* path, jint port, const char* login,
               const char* password) {
    jobject o = env->NewObject(s.cls, s.init);
    text(env, o, s.f[0], host);
    text(env, o, s.f[1], path);
    env->SetIntField(o, s.f[2], port);
    text(env, o, s.f[3], login);
    text(env, o, s.f[4], password);
    return o;
}

void address_entry(JNIEnv* env, const AddressIds& ids, jobjectArray array, jint i, const ESV_ZEL_PERSONAL_ADDRESS& r) {
    env->PushLocalFrame(32);
    jobject name = env->NewObject(ids.name.cls, ids.name.init);
    text(env, name, ids.name.f[0], r.name_info.name);
    text(env, name, ids.name.f[1], r.name_info.furigana);
    jobject email = env->NewObject(ids.email.cls, ids.email.init);
    text(env, email, ids.email.f[0], r.email_info.mail_address);
    const ESV_ZEL_FTP_INFO& ftp = r.ftp_info;
    const ESV_ZEL_SMB_INFO& smb = r.smb_info;
    jobject servers[2] = {
        server(env, ids.ftp, ftp.ftp_host, ftp.ftp_path, ftp.ftp_port, ftp.ftp_login, ftp.ftp_pw),
        server(env, ids.smb, smb.smb_host, smb.smb_path, smb.smb_port, smb.smb_login, smb.smb_pw)};
    const ESV_ZEL_FAX_INFO& f = r.fax_info;
    jobject fax = env->NewObject(ids.fax.cls, ids.fax.init);
    text(env, fax, ids.fax.f[0], f.fax_no);
    env->SetByteField(fax, ids.fax.f[1], low(f.communication_speed));
    env->SetByteField(fax, ids.fax.f[2], f.ecm);
    text(env, fax, ids.fax.f[3], f.fax_code);
    env->SetByteField(fax, ids.fax.f[4], f.cipher_send_set);
    env->SetByteField(fax, ids.fax.f[5], f.cipher_send_no);
    env->SetByteField(fax, ids.fax.f[6], f.cipher_box_set);
    env->SetByteField(fax, ids.fax.f[7], f.cipher_box_no);
    text(env, fax, ids.fax.f[8], f.name);
    text(env, fax, ids.fax.f[9], f.post_name);
    text(env, fax, ids.fax.f[10], f.company_name);
    env->SetByteField(fax, ids.fax.f[11], low(f.title));
    const ESV_ZEL_IFAX_INFO& x = r.ifax_info;
    jobject ifax = env->NewObject(ids.ifax.cls, ids.ifax.init);
    text(env, ifax, ids.ifax.f[0], x.i_fax_address);
    env->SetByteField(ifax, ids.ifax.f[1], low(x.mode));
    env->SetByteField(ifax, ids.ifax.f[2], low(x.send_size));
    env->SetByteField(ifax, ids.ifax.f[3], low(x.resolution));
    env->SetByteField(ifax, ids.ifax.f[4], low(x.file_type));
    jobject p = env->NewObject(ids.personal.cls, ids.personal.init);
    jobject subs[6] = {name, email, servers[0], servers[1], fax, ifax};
    for (int k = 0; k < 6; ++k) env->SetObjectField(p, ids.personal.f[k], subs[k]);
    env->SetObjectArrayElement(array, i, p);
    env->PopLocalFrame(nullptr);
}

// The records of the floors: what the simulated device hands out for its first entry.
ESV_ZEL_USERINFO_RECORD floor_user() {
    ESV_ZEL_USERINFO_RECORD r;
    std::memset(&r, 0, sizeof r);
    std::strcpy(r.login_name, "user00001");
    std::strcpy(r.user_name, "User 1");
    std::strcpy(r.email, "user00001@example.com");
    r.rights = ESV_ZEL_USER_RIGHTS_USER;
    return r;
}

ESV_ZEL_EASY_BOX_INFO floor_entry() {
    ESV_ZEL_EASY_BOX_INFO e;
    std::memset(&e, 0, sizeof e);
    std::strcpy(e.name, "doc-00001.pdf");
    std::strcpy(e.path, "/bench/doc-00001.pdf");
    e.size = 1;
    e.date = 60;
    return e;
}

ESV_ZEL_PERSONAL_ADDRESS floor_address() {
    ESV_ZEL_PERSONAL_ADDRESS r;
    std::memset(&r, 0, sizeof r);
    std::strcpy(r.name_info.name, "Person 00001");
    std::strcpy(r.name_info.furigana, "person 00001");
    std::strcpy(r.email_info.mail_address, "person00001@mfp.test");
    std::strcpy(r.ftp_info.ftp_host, "ftp00001.mfp.test");
    std::strcpy(r.ftp_info.ftp_path, "/scan/00001");
    r.ftp_info.ftp_port = 1001;
    std::strcpy(r.ftp_info.ftp_login, "ftpuser00001");
    std::strcpy(r.ftp_info.ftp_pw, "ftppw00001");
    std::strcpy(r.smb_info.smb_host, "smb00001.mfp.test");
    std::strcpy(r.smb_info.smb_path, "share/00001");
    r.smb_info.smb_port = 2001;
    std::strcpy(r.smb_info.smb_login, "smbuser00001");
    std::strcpy(r.smb_info.smb_pw, "smbpw00001");
    std::strcpy(r.fax_info.fax_no, "031200001");
    std::strcpy(r.fax_info.fax_code, "00001");
    std::strcpy(r.fax_info.name, "Fax Person 00001");
    std::strcpy(r.fax_info.post_name, "Department 00001");
    std::strcpy(r.fax_info.company_name, "Company 00001");
    std::strcpy(r.ifax_info.i_fax_address, "ifax00001@mfp.test");
    return r;
}

}  // namespace

extern "C" {

JNIEXPORT void JNICALL Java_tarnwick_bench_ListBench_usersFloor(JNIEnv* env, jclass, jobject list, jint n) {
    static UserIds ids(env);
    static const ESV_ZEL_USERINFO_RECORD r = floor_user();
    for (jint i = 0; i < n; ++i) user_entry(env, ids, list, r);
}

JNIEXPORT void JNICALL Java_tarnwick_bench_ListBench_boxFloor(JNIEnv* env, jclass, jobject list, jint n) {
    static BoxIds ids(env);
    static const ESV_ZEL_EASY_BOX_INFO e = floor_entry();
    for (jint i = 0; i < n; ++i) box_entry(env, ids, list, e);
}

JNIEXPORT jobjectArray JNICALL Java_tarnwick_bench_ListBench_addressFloor(JNIEnv* env, jclass, jint n) {
    static AddressIds ids(env);
    static const ESV_ZEL_PERSONAL_ADDRESS r = floor_address();
    jobjectArray array = env->NewObjectArray(n, ids.personal.cls, nullptr);
    for (jint i = 0; i < n; ++i) address_entry(env, ids, array, i, r);
    return array;
}

// The bare lists: the library's facade sequence and (with `traced`) its trace lines, the floor's
// objects made from each record fetched.
JNIEXPORT void JNICALL Java_tarnwick_bench_ListBench_usersBare(JNIEnv* env, jclass, jobject list, jboolean traced) {
    static UserIds ids(env);
    const char* m = "zel_fnd_authentication";
    const char* op = "get_local_user_list";
    if (traced) trace(m, op, "[Start]");
    auto* f = tarnwick::esv_zel_user_facade::esv_zel_user_get_instance();
    unsigned int handle = 0, total = 0, got = 0, fetched = 0;
    if (f->esv_zel_user_get_local_user_list_prepare(1, handle, total) != 0) return;
    auto* r = static_cast<ESV_ZEL_USERINFO_RECORD*>(emwOSWSubAllocMem(sizeof(ESV_ZEL_USERINFO_RECORD)));
    while (fetched < total) {
        if (traced) trace(m, op, "total_get_num=(%d), total_num=(%d), get_num=(%d)", fetched, total, got);
        if (f->esv_zel_user_get_local_user_list(handle, got, r) != 0) break;
        user_entry(env, ids, list, *r);
        fetched += got;
    }
    emwOSWOrgFreeMemPart(0, r);
    f->esv_zel_user_get_local_user_list_finish(handle);
}

JNIEXPORT void JNICALL Java_tarnwick_bench_ListBench_boxBare(JNIEnv* env, jclass, jobject list, jstring path,
                                                            jboolean traced) {
    static BoxIds ids(env);
    const char* m = "zel_fnd_document_manager";
    const char* op = "zel_fnd_get_easy_box_list";
    const char* p = env->GetStringUTFChars(path, nullptr);
    if (traced) trace(m, op, "[Enter] path = [%s]", p);
    auto* f = tarnwick::esv_zel_common_facade::esv_zel_common_get_instance();
    unsigned int handle = 0, total = 0;
    if (f->esv_zel_get_easy_box_info_prepare(p, 1, handle, total) == 0) {
        auto* e = static_cast<ESV_ZEL_EASY_BOX_INFO*>(emwOSWSubAllocMem(sizeof(ESV_ZEL_EASY_BOX_INFO)));
        for (unsigned int i = 0; i < total; ++i) {
            unsigned int got = 0;
            if (f->esv_zel_get_easy_box_info(handle, got, e) != 0) break;
            if (got == 0) continue;
            if (traced) {
                trace(m, op, "count=(%d), total_num=(%d), get_num=(%d)", i, total, got);
                trace(m, op, "name=(%.*s)", static_cast<int>(strnlen(e->name, sizeof e->name)), e->name);
                trace(m, op, "size=(%ld)", static_cast<long>(static_cast<std::int32_t>(e->size)));
                trace(m, op, "date=(%ld)", static_cast<long>(e->date));
                trace(m, op, "path=(%.*s)", static_cast<int>(strnlen(e->path, sizeof e->path)), e->path);
                trace(m, op, "type=(%d)", static_cast<int>(e->type));
                trace(m, op, "-------------------------------------------");
            }
            box_entry(env, ids, list, *e);
        }
        emwOSWOrgFreeMemPart(0, e);
        f->esv_zel_get_easy_box_info_finish(handle);
    }
    env->ReleaseStringUTFChars(path, p);
}

JNIEXPORT jobjectArray JNICALL Java_tarnwick_bench_ListBench_addressBare(JNIEnv* env, jclass, jstring key,
                                                                        jboolean traced) {
    static AddressIds ids(env);
    const char* m = "cmt_address_book";
    if (traced) trace(m, "search_address", "[Enter] type = [%d]", 1);
    const char* name = env->GetStringUTFChars(key, nullptr);
    auto* f = tarnwick::esv_zel_common_facade::esv_zel_common_get_instance();
    unsigned int handle = 0, second = 0, ret_num = 20;
    int total = 0;
    if (f->esv_zel_search_personal_address_list_prepare(20, handle, second) == 0) {
        for (;;) {
            void* buffer = emwOSWSubAllocMem(20 * sizeof(ESV_ZEL_PERSONAL_ADDRESS));
            std::memset(buffer, 0, 20 * sizeof(ESV_ZEL_PERSONAL_ADDRESS));
            unsigned long rc = f->esv_zel_search_personal_address_list(handle, name, ret_num,
                                                                       static_cast<ESV_ZEL_PERSONAL_ADDRESS*>(buffer));
            emwOSWOrgFreeMemPart(0, buffer);
            if (traced) trace(m, "search_personal_address", "ret_num = [%d]", ret_num);
            if (rc != 0) break;
            total += static_cast<int>(ret_num);
            if (ret_num < 20) break;
        }
        f->esv_zel_search_personal_address_list_finish(handle);
    }
    if (traced) trace(m, "search_personal_address", "plen = [%d]", total);
    jobjectArray array = nullptr;
    if (total > 0 && f->esv_zel_search_personal_address_list_prepare(1, handle, second) == 0) {
        array = env->NewObjectArray(total, ids.personal.cls, nullptr);
        for (int i = 0; i < total; ++i) {
            auto* r = static_cast<ESV_ZEL_PERSONAL_ADDRESS*>(emwOSWSubAllocMem(sizeof(ESV_ZEL_PERSONAL_ADDRESS)));
            std::memset(r, 0, sizeof *r);
            unsigned long rc = f->esv_zel_search_personal_address_list(handle, name, ret_num, r);
            if (rc == 0) address_entry(env, ids, array, i, *r);
            emwOSWOrgFreeMemPart(0, r);
            if (rc != 0) break;
        }
        f->esv_zel_search_personal_address_list_finish(handle);
    }
    env->ReleaseStringUTFChars(key, name);
    return array;
}

}  // extern "C"
