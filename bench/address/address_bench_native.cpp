// Natives of the address-book benchmark: the empty static native (the floor), the facade's two
// passes as the library makes them without any Java step, and trace lines in the library's
// shape.
#include <jni.h>

#include <cstdio>
#include <cstring>

#include "emw_gen_trc.h"
#include "emw_osw_mem.h"
#include "esv_zel_common_facade.h"

extern "C" {

JNIEXPORT void JNICALL Java_tarnwick_bench_AddressBench_empty(JNIEnv*, jclass) {}

// Both passes of a search through the facade, buffers included; returns the matches fetched.
JNIEXPORT jint JNICALL Java_tarnwick_bench_AddressBench_facadePasses(JNIEnv* env, jclass, jstring key) {
    const char* name = env->GetStringUTFChars(key, nullptr);
    if (name == nullptr) return -1;
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
            ret_num = 20;
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
JNIEXPORT void JNICALL Java_tarnwick_bench_AddressBench_traceLines(JNIEnv*, jclass, jint n) {
    for (jint i = 0; i < n; ++i) {
        char message[256];
        std::memset(message, 0, sizeof message);
        std::snprintf(message, sizeof message, "ret_num = [%d]", 20);
        emwGENTrcPrintf(0x2601, 0x101, 3, "%s[%04d]::%s,%s\n", "cmt_address_book", 171, "search_personal_address",
                        message);
    }
}

}  // extern "C"
