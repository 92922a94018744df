#include "zel_fnd_document_manager.h"

#include <cstdint>
#include <cstring>
#include <new>

#include "CJvm.h"
#include "cmt_trace.h"
#include "emw_osw_mem.h"
#include "esv_zel_common_facade.h"
#include "osw_thread_guard.h"
#include "tovr_field_text.h"
#include "tovr_jni.h"
#include "tovr_jni_class.h"
#include "zel_fnd_removable_memory_file.h"
#include "zel_fnd_removable_memory_file_info.h"

#define CMT_TRACE_MODULE "zel_fnd_document_manager"

namespace tarnwick {

std::atomic<zel_fnd_document_manager*> zel_fnd_document_manager::instance{nullptr};

namespace {

esv_zel_common_facade* facade() { return esv_zel_common_facade::esv_zel_common_get_instance(); }

// The length of a text field of the record, never past its size (traced as it stands).
template <std::size_t N>
int raw_length(const char (&field)[N]) {
    return static_cast<int>(strnlen(field, N));
}

jni::JavaClass& array_list_class() {
    static const jni::Member members[] = {{jni::Member::kMethod, "add", "(Ljava/lang/Object;)Z"}};
    static jni::JavaClass holder("java/util/ArrayList", members);
    return holder;
}

// Local references of one entry: strings, calendar, date, info and file objects.
constexpr jint kEntryFrame = 16;

}  // namespace

zel_fnd_document_manager::zel_fnd_document_manager() {}

zel_fnd_document_manager::~zel_fnd_document_manager() {}

zel_fnd_document_manager* zel_fnd_document_manager::zel_fnd_get_instance() {
    zel_fnd_document_manager* p = instance.load(std::memory_order_acquire);
    if (p == nullptr) {
        OSW_Thread_Guard guard;
        p = instance.load(std::memory_order_relaxed);
        if (p == nullptr) {
            p = new zel_fnd_document_manager;
            instance.store(p, std::memory_order_release);
        }
    }
    return p;
}

int zel_fnd_document_manager::zel_fnd_delete_document(const std::string& path) {
    CMT_TRACE(kTraceFlow, "[Enter]. path=(%s)", path.c_str());
    unsigned long rc = facade()->esv_zel_delete_easy_document(path.c_str());
    if (rc == 0) return 0;
    if (static_cast<std::uint32_t>(rc) == ESV_ZEL_COMMON_PATH_ERROR) {
        CMT_TRACE(kTraceError, "result(%d)=ESV_ZEL_COMMON_PATH_ERROR", static_cast<int>(rc));
        return 8;
    }
    CMT_TRACE(kTraceError, "result(%d)=UNKNOWN", static_cast<int>(rc));
    return 1;
}

int zel_fnd_document_manager::zel_fnd_get_easy_box_list(const std::string& path, jobject list) {
    CMT_TRACE(kTraceFlow, "[Enter] path = [%s]", path.c_str());
    JNIEnv* env = CJvm::GetJNIEnv();
    if (env == nullptr) {
        CMT_TRACE(kTraceError, "GetJNIEnv() failed.");
        return 1;
    }
    unsigned int handle = 0;
    unsigned int total_num = 0;
    unsigned long rc = facade()->esv_zel_get_easy_box_info_prepare(path.c_str(), 1, handle, total_num);
    if (rc != 0) {
        CMT_TRACE(kTraceError, "result(%d)", static_cast<int>(rc));
        return 1;
    }
    auto finish = [&] { return facade()->esv_zel_get_easy_box_info_finish(handle); };
    if (total_num == 0) {
        finish();
        CMT_TRACE(kTraceFlow, "total_num == 0.");
        return 0;
    }

    jclass array_list = array_list_class().get(env);
    jmethodID add = array_list ? array_list_class().method(0) : nullptr;
    if (add == nullptr) {
        finish();
        CMT_TRACE(kTraceError, "java/util/ArrayList.add not found.");
        return 1;
    }
    if (list == nullptr || !env->IsInstanceOf(list, array_list)) {
        finish();
        CMT_TRACE(kTraceError, "list is not a java.util.ArrayList.");
        return 1;
    }

    auto* easy_box_info = static_cast<ESV_ZEL_EASY_BOX_INFO*>(emwOSWSubAllocMem(sizeof(ESV_ZEL_EASY_BOX_INFO)));
    if (easy_box_info == nullptr) {
        emwOSWOrgFreeMemPart(0, easy_box_info);
        finish();
        CMT_TRACE(kTraceError, "easy_box_info == NULL.");
        return 1;
    }
    auto fail = [&] {
        emwOSWOrgFreeMemPart(0, easy_box_info);
        finish();
        return 1;
    };

    zel_fnd_removable_memory_file_info info_builder;
    zel_fnd_removable_memory_file file_builder;
    if (!info_builder.ready_ || !file_builder.ready_) return fail();
    // A native allocation that fails inside an entry (its texts) ends the listing like a failed
    // Java step: the buffer goes back and the listing is finished.
    try {
        for (unsigned int count = 0; count < total_num; ++count) {
            unsigned int get_num = 0;
            rc = facade()->esv_zel_get_easy_box_info(handle, get_num, easy_box_info);
            if (rc != 0) {
                fail();
                CMT_TRACE(kTraceError, "result(%d)", static_cast<int>(rc));
                return 1;
            }
            if (get_num == 0) {
                CMT_TRACE(kTraceFlow, "get_num = %d", get_num);
                continue;
            }
            // Traced as the device's 32-bit long prints them.
            long size = static_cast<long>(static_cast<std::int32_t>(easy_box_info->size));
            long date = static_cast<long>(easy_box_info->date);
            int type = static_cast<int>(easy_box_info->type);
            CMT_TRACE(kTraceFlow, "count=(%d), total_num=(%d), get_num=(%d)", count, total_num, get_num);
            CMT_TRACE(kTraceFlow, "name=(%.*s)", raw_length(easy_box_info->name), easy_box_info->name);
            CMT_TRACE(kTraceFlow, "size=(%ld)", size);
            CMT_TRACE(kTraceFlow, "date=(%ld)", date);
            CMT_TRACE(kTraceFlow, "path=(%.*s)", raw_length(easy_box_info->path), easy_box_info->path);
            CMT_TRACE(kTraceFlow, "type=(%d)", type);
            CMT_TRACE(kTraceFlow, "-------------------------------------------");

            jni::LocalFrame frame(env, kEntryFrame);
            if (!frame.ok()) return fail();
            using info_t = zel_fnd_removable_memory_file_info;
            // NewObject answers null exactly when no object could be made (its exception pending).
            jobject info = info_t::make(env);
            if (info == nullptr) return fail();
            if (!info_t::put_text(env, info, info_t::kName, FieldText(easy_box_info->name).c_str())) return fail();
            info_t::put_data_size(env, info, easy_box_info->size);
            if (!info_t::put_date(env, info, date)) return fail();
            if (!info_t::put_text(env, info, info_t::kPath, FieldText(easy_box_info->path).c_str())) return fail();
            jobject file = zel_fnd_removable_memory_file::make(env);
            if (file == nullptr) return fail();
            zel_fnd_removable_memory_file::put_info(env, file, info);
            zel_fnd_removable_memory_file::put_isfile(env, file, type != ESV_ZEL_EASY_BOX_TYPE_FOLDER);
            env->CallBooleanMethod(list, add, file);
            if (jni::pending(env)) return fail();
        }
    } catch (const std::bad_alloc&) {
        return fail();
    }
    emwOSWOrgFreeMemPart(0, easy_box_info);
    rc = finish();
    if (rc != 0) CMT_TRACE(kTraceError, "result(%d)", static_cast<int>(rc));
    return 0;
}

}  // namespace tarnwick
