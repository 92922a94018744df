// Natives of the list benchmarks, written for the benchmark only:
// - the floors: the same Java objects the library makes for a local user, a box entry and a
//   personal address, by the fewest JNI calls with IDs looked up once (no checks, no trace);
// - the facade alone: each list's prepare / fetch / finish sequence as the library makes it,
//   without any Java step, so that the library's own cost is the call's time less this one;
// - trace lines in the library's shape, to tell their share.
#include <jni.h>

#include <cstdio>
#include <cstring>
#include <string>

#include "emw_clb_time.h"
#include "emw_gen_trc.h"
#include "emw_osw_mem.h"
#include "esv_zel_common_facade.h"
#include "esv_zel_user_facade.h"

namespace {

jclass global(JNIEnv* env, const char* path) {
    jclass local = env->FindClass(path);
    jclass g = static_cast<jclass>(env->NewGlobalRef(local));
    env->DeleteLocalRef(local);
    return g;
}

struct UserIds {
    jclass user, login, name, mail, level, list;
    jmethodID user_init, set_attribute, login_init, name_init, mail_init, add;
    jfieldID admin, usr;
    explicit UserIds(JNIEnv* env) {
        user = global(env, "tarnwick/zel/user/UserImpl");
        login = global(env, "tarnwick/user/attribute/LoginName");
        name = global(env, "tarnwick/user/attribute/UserName");
        mail = global(env, "tarnwick/user/attribute/MailAddress");
        level = global(env, "tarnwick/user/attribute/AccessLevel");
        list = global(env, "java/util/ArrayList");
        user_init = env->GetMethodID(user, "<init>", "()V");
        set_attribute = env->GetMethodID(user, "setAttribute", "(Ltarnwick/user/attribute/UserAttribute;)V");
        login_init = env->GetMethodID(login, "<init>", "(Ljava/lang/String;)V");
        name_init = env->GetMethodID(name, "<init>", "(Ljava/lang/String;)V");
        mail_init = env->GetMethodID(mail, "<init>", "(Ljava/lang/String;)V");
        add = env->GetMethodID(list, "add", "(Ljava/lang/Object;)Z");
        admin = env->GetStaticFieldID(level, "ADMIN", "Ltarnwick/user/attribute/AccessLevel;");
        usr = env->GetStaticFieldID(level, "USER", "Ltarnwick/user/attribute/AccessLevel;");
    }
};

struct BoxIds {
    jclass info, file, calendar, list;
    jmethodID info_init, file_init, get_instance, set, get_time, add;
    jfieldID name, datasize, date, path, info_field, isfile;
    explicit BoxIds(JNIEnv* env) {
        info = global(env, "tarnwick/zel/box/document/RemovableMemoryFileInfoImpl");
        file = global(env, "tarnwick/zel/box/document/RemovableMemoryFileImpl");
        calendar = global(env, "java/util/Calendar");
        list = global(env, "java/util/ArrayList");
        info_init = env->GetMethodID(info, "<init>", "()V");
        file_init = env->GetMethodID(file, "<init>", "()V");
        get_instance = env->GetStaticMethodID(calendar, "getInstance", "()Ljava/util/Calendar;");
        set = env->GetMethodID(calendar, "set", "(IIIIII)V");
        get_time = env->GetMethodID(calendar, "getTime", "()Ljava/util/Date;");
        add = env->GetMethodID(list, "add", "(Ljava/lang/Object;)Z");
        name = env->GetFieldID(info, "name", "Ljava/lang/String;");
        datasize = env->GetFieldID(info, "datasize", "J");
        date = env->GetFieldID(info, "date", "Ljava/util/Date;");
        path = env->GetFieldID(info, "path", "Ljava/lang/String;");
        info_field = env->GetFieldID(file, "info", "Ltarnwick/zel/box/document/RemovableMemoryFileInfoImpl;");
        isfile = env->GetFieldID(file, "isfile", "Z");
    }
};

// One class of the address objects: its constructor and fields in order.
struct Shape {
    jclass cls;
    jmethodID init;
    jfieldID f[12];
    Shape(JNIEnv* env, const char* path, std::initializer_list<std::pair<const char*, const char*>> fields) {
        cls = global(env, path);
        init = env->GetMethodID(cls, "<init>", "()V");
        int i = 0;
        for (auto& p : fields) f[i++] = env->GetFieldID(cls, p.first, p.second);
    }
};

const char* S = "Ljava/lang/String;";

struct AddressIds {
    Shape name, email, ftp, smb, fax, ifax, personal;
    explicit AddressIds(JNIEnv* env)
        : name(env, "tarnwick/zel/address/attribute/NameInfoImpl", {{"name", S}, {"pronunciation", S}}),
          email(env, "tarnwick/zel/address/attribute/EmailInfoImpl", {{"mailAddress", S}}),
          ftp(env, "tarnwick/zel/address/attribute/FtpInfoImpl",
              {{"host", S}, {"path", S}, {"port", "I"}, {"loginName", S}, {"password", S}}),
          smb(env, "tarnwick/zel/address/attribute/SmbInfoImpl",
              {{"host", S}, {"path", S}, {"port", "I"}, {"loginName", S}, {"password", S}}),
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

void text(JNIEnv* env, jobject o, jfieldID f, const char* s) {
    jstring j = env->NewStringUTF(s);
    env->SetObjectField(o, f, j);
}

}  // namespace

extern "C" {

// n users into `list`, as the user list makes them (user name and mail of a generated user).
JNIEXPORT void JNICALL Java_tarnwick_bench_ListBench_usersFloor(JNIEnv* env, jclass, jobject list, jint n) {
    static UserIds ids(env);
    for (jint i = 0; i < n; ++i) {
        env->PushLocalFrame(16);
        jobject user = env->NewObject(ids.user, ids.user_init);
        env->CallVoidMethod(user, ids.set_attribute, env->NewObject(ids.login, ids.login_init, env->NewStringUTF("user00001")));
        env->CallVoidMethod(user, ids.set_attribute, env->NewObject(ids.name, ids.name_init, env->NewStringUTF("User 00001")));
        env->CallVoidMethod(user, ids.set_attribute,
                            env->NewObject(ids.mail, ids.mail_init, env->NewStringUTF("user00001@mfp.test")));
        env->CallVoidMethod(user, ids.set_attribute, env->GetStaticObjectField(ids.level, ids.usr));
        env->CallBooleanMethod(list, ids.add, user);
        env->PopLocalFrame(nullptr);
    }
}

JNIEXPORT void JNICALL Java_tarnwick_bench_ListBench_boxFloor(JNIEnv* env, jclass, jobject list, jint n) {
    static BoxIds ids(env);
    for (jint i = 0; i < n; ++i) {
        env->PushLocalFrame(16);
        jobject info = env->NewObject(ids.info, ids.info_init);
        text(env, info, ids.name, "doc-00001.pdf");
        env->SetLongField(info, ids.datasize, i);
        time_t t = i * 60;
        struct tm local;
        emwCLBLocalTime_r(&t, &local);
        jobject cal = env->CallStaticObjectMethod(ids.calendar, ids.get_instance);
        env->CallVoidMethod(cal, ids.set, local.tm_year + 1900, local.tm_mon, local.tm_mday, local.tm_hour, local.tm_min,
                            local.tm_sec);
        env->SetObjectField(info, ids.date, env->CallObjectMethod(cal, ids.get_time));
        text(env, info, ids.path, "/bench/doc-00001.pdf");
        jobject file = env->NewObject(ids.file, ids.file_init);
        env->SetObjectField(file, ids.info_field, info);
        env->SetBooleanField(file, ids.isfile, JNI_TRUE);
        env->CallBooleanMethod(list, ids.add, file);
        env->PopLocalFrame(nullptr);
    }
}

JNIEXPORT jobjectArray JNICALL Java_tarnwick_bench_ListBench_addressFloor(JNIEnv* env, jclass, jint n) {
    static AddressIds ids(env);
    jobjectArray array = env->NewObjectArray(n, ids.personal.cls, nullptr);
    for (jint i = 0; i < n; ++i) {
        env->PushLocalFrame(16);
        jobject name = env->NewObject(ids.name.cls, ids.name.init);
        text(env, name, ids.name.f[0], "Person 00001");
        text(env, name, ids.name.f[1], "person 00001");
        jobject email = env->NewObject(ids.email.cls, ids.email.init);
        text(env, email, ids.email.f[0], "person00001@mfp.test");
        jobject parts[2];
        const Shape* shapes[2] = {&ids.ftp, &ids.smb};
        for (int k = 0; k < 2; ++k) {
            const Shape& s = *shapes[k];
            jobject o = env->NewObject(s.cls, s.init);
            text(env, o, s.f[0], "ftp00001.mfp.test");
            text(env, o, s.f[1], "/scan/00001");
            env->SetIntField(o, s.f[2], 1001);
            text(env, o, s.f[3], "ftpuser00001");
            text(env, o, s.f[4], "ftppw00001");
            parts[k] = o;
        }
        jobject fax = env->NewObject(ids.fax.cls, ids.fax.init);
        text(env, fax, ids.fax.f[0], "031200001");
        env->SetByteField(fax, ids.fax.f[1], 1);
        env->SetByteField(fax, ids.fax.f[2], 1);
        text(env, fax, ids.fax.f[3], "00001");
        for (int k = 4; k < 8; ++k) env->SetByteField(fax, ids.fax.f[k], 1);
        text(env, fax, ids.fax.f[8], "Fax Person 00001");
        text(env, fax, ids.fax.f[9], "Department 00001");
        text(env, fax, ids.fax.f[10], "Company 00001");
        env->SetByteField(fax, ids.fax.f[11], 1);
        jobject ifax = env->NewObject(ids.ifax.cls, ids.ifax.init);
        text(env, ifax, ids.ifax.f[0], "ifax00001@mfp.test");
        for (int k = 1; k < 5; ++k) env->SetByteField(ifax, ids.ifax.f[k], 1);
        jobject p = env->NewObject(ids.personal.cls, ids.personal.init);
        jobject subs[6] = {name, email, parts[0], parts[1], fax, ifax};
        for (int k = 0; k < 6; ++k) env->SetObjectField(p, ids.personal.f[k], subs[k]);
        env->SetObjectArrayElement(array, i, p);
        env->PopLocalFrame(nullptr);
    }
    return array;
}

// The facade alone, as each list runs it.
JNIEXPORT jint JNICALL Java_tarnwick_bench_ListBench_usersFacade(JNIEnv*, jclass) {
    auto* f = tarnwick::esv_zel_user_facade::esv_zel_user_get_instance();
    unsigned int handle = 0, total = 0, got = 0, fetched = 0;
    if (f->esv_zel_user_get_local_user_list_prepare(1, handle, total) != 0) return -1;
    void* block = emwOSWSubAllocMem(sizeof(ESV_ZEL_USERINFO_RECORD));
    while (fetched < total) {
        if (f->esv_zel_user_get_local_user_list(handle, got, static_cast<ESV_ZEL_USERINFO_RECORD*>(block)) != 0) break;
        fetched += got;
    }
    emwOSWOrgFreeMemPart(0, block);
    f->esv_zel_user_get_local_user_list_finish(handle);
    return static_cast<jint>(fetched);
}

JNIEXPORT jint JNICALL Java_tarnwick_bench_ListBench_boxFacade(JNIEnv* env, jclass, jstring path) {
    const char* p = env->GetStringUTFChars(path, nullptr);
    auto* f = tarnwick::esv_zel_common_facade::esv_zel_common_get_instance();
    unsigned int handle = 0, total = 0, fetched = 0;
    if (f->esv_zel_get_easy_box_info_prepare(p, 1, handle, total) == 0) {
        void* block = emwOSWSubAllocMem(sizeof(ESV_ZEL_EASY_BOX_INFO));
        for (unsigned int i = 0; i < total; ++i) {
            unsigned int got = 0;
            if (f->esv_zel_get_easy_box_info(handle, got, static_cast<ESV_ZEL_EASY_BOX_INFO*>(block)) != 0) break;
            fetched += got;
        }
        emwOSWOrgFreeMemPart(0, block);
        f->esv_zel_get_easy_box_info_finish(handle);
    }
    env->ReleaseStringUTFChars(path, p);
    return static_cast<jint>(fetched);
}

JNIEXPORT jint JNICALL Java_tarnwick_bench_ListBench_addressFacade(JNIEnv* env, jclass, jstring key) {
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
            if (rc != 0) break;
            total += static_cast<int>(ret_num);
            if (ret_num < 20) break;
        }
        f->esv_zel_search_personal_address_list_finish(handle);
    }
    int fetched = 0;
    if (total > 0 && f->esv_zel_search_personal_address_list_prepare(1, handle, second) == 0) {
        for (int i = 0; i < total; ++i) {
            auto* record = static_cast<ESV_ZEL_PERSONAL_ADDRESS*>(emwOSWSubAllocMem(sizeof(ESV_ZEL_PERSONAL_ADDRESS)));
            std::memset(record, 0, sizeof *record);
            unsigned long rc = f->esv_zel_search_personal_address_list(handle, name, ret_num, record);
            emwOSWOrgFreeMemPart(0, record);
            if (rc != 0) break;
            fetched += static_cast<int>(ret_num);
        }
        f->esv_zel_search_personal_address_list_finish(handle);
    }
    env->ReleaseStringUTFChars(key, name);
    return fetched;
}

// `n` trace lines shaped as the library writes them.
JNIEXPORT void JNICALL Java_tarnwick_bench_ListBench_traceLines(JNIEnv*, jclass, jint n) {
    for (jint i = 0; i < n; ++i) {
        char message[256];
        std::memset(message, 0, sizeof message);
        std::snprintf(message, sizeof message, "count=(%d), total_num=(%d), get_num=(%d)", i, n, 1);
        emwGENTrcPrintf(0x2601, 0x101, 3, "%s[%04d]::%s,%s\n", "zel_fnd_document_manager", 171,
                        "zel_fnd_get_easy_box_list", message);
    }
}

}  // extern "C"
