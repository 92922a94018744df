// Access-control observer.
#include "zel_fnd_acc_observer.h"

#include <cstdint>
#include <cstring>
#include <vector>

#include "CJvm.h"
#include "cmt_trace.h"
#include "emw_osw_mem.h"
#include "zel_fnd_card_data.h"
#include "zel_fnd_observer_env.h"

#define CMT_TRACE_MODULE "zel_fnd_acc_observer"

namespace tarnwick {

namespace {

// One bit per card type, as the Java side knows them.
jbyte card_type_bits(std::uint32_t type) {
    return type >= 1 && type <= 6 ? static_cast<jbyte>(1u << (type - 1)) : 0;
}

}  // namespace

zel_fnd_acc_observer::zel_fnd_acc_observer()
    : vm_(nullptr),
      jnienv_(nullptr),
      jcls_acc_proxy_(nullptr),
      jcls_iccard_info_(nullptr),
      jcls_system_data_(nullptr),
      mid_iccard_(nullptr),
      mid_iccard_error_(nullptr),
      mid_iccard_device_(nullptr) {}

zel_fnd_acc_observer::~zel_fnd_acc_observer() {
    if (vm_ == nullptr) return;
    JNIEnv* env = zel_fnd_calling_thread_env(vm_);
    zel_fnd_delete_global(env, &jcls_acc_proxy_);
    zel_fnd_delete_global(env, &jcls_iccard_info_);
    zel_fnd_delete_global(env, &jcls_system_data_);
    thread_detach();
}

int zel_fnd_acc_observer::init() {
    jsize count = 0;
    jint rc = JNI_GetCreatedJavaVMs(&vm_, 1, &count);
    if (rc != JNI_OK) return rc;
    JNIEnv* const env = thread_attach();
    if (env == nullptr) return 0;
    if (zel_fnd_find_global_class(env, "tarnwick/zel/controller/event/proxy/AccProxy", &jcls_acc_proxy_) &&
        zel_fnd_find_global_class(env, "tarnwick/zel/controller/event/device/ICCardInfo", &jcls_iccard_info_) &&
        zel_fnd_find_global_class(env, "tarnwick/zel/controller/event/device/SystemData", &jcls_system_data_)) {
        const zel_fnd_static_method methods[] = {
            {&jcls_acc_proxy_, "fireICCardEvent", "(Ltarnwick/zel/controller/event/device/ICCardInfo;)V", &mid_iccard_},
            {&jcls_acc_proxy_, "fireICCardErrorEvent", "(I)V", &mid_iccard_error_},
            {&jcls_acc_proxy_, "fireICCardDeviceEvent", "(IIZB)V", &mid_iccard_device_},
        };
        zel_fnd_lookup_static_methods(env, methods);
    }
    return thread_detach();
}

// Attaches the delivering thread. The environment lands in a local first and is then stored in
// the member, which every notification overwrites; the notification itself works only with the
// value returned here, since a notification of the same observer on another facade thread may
// overwrite the member at any moment.
JNIEnv* zel_fnd_acc_observer::thread_attach() {
    JNIEnv* env = nullptr;
    const bool attached = zel_fnd_thread_attach(vm_, &env);
    jnienv_ = env;
    return attached ? env : nullptr;
}

int zel_fnd_acc_observer::thread_detach() { return zel_fnd_thread_detach(vm_); }

// Every failure: one error trace, the pending exception (if any) described and cleared, detach.
// Local references made so far go with the detach.
#define ACC_FAIL(...)                        \
    do {                                     \
        zel_fnd_drop_exception(env);         \
        CMT_TRACE(kTraceError, __VA_ARGS__); \
        thread_detach();                     \
        return kFailure;                     \
    } while (0)

int zel_fnd_acc_observer::notify_iccard_state_change_info(ESV_ZEL_ACC_ICCARD_STATE_CHANGE_INFO& info) {
    JNIEnv* const env = thread_attach();
    if (env == nullptr) return kFailure;
    CMT_TRACE(kTraceFlow, "[Start]");
    env->CallStaticVoidMethod(jcls_acc_proxy_, mid_iccard_device_, static_cast<jint>(info.vendor_id),
                                  static_cast<jint>(info.product_id),
                                  static_cast<jboolean>(info.state == 1 ? JNI_TRUE : JNI_FALSE),
                                  static_cast<jbyte>(info.card_types));
    if (env->ExceptionCheck()) ACC_FAIL("AccProxy.fireICCardDeviceEvent() threw");
    CMT_TRACE(kTraceFlow, "[End]");
    thread_detach();
    return 0;
}

int zel_fnd_acc_observer::notify_iccard_read_error(int code) {
    JNIEnv* const env = thread_attach();
    if (env == nullptr) return kFailure;
    CMT_TRACE(kTraceFlow, "[Enter]");
    env->CallStaticVoidMethod(jcls_acc_proxy_, mid_iccard_error_, static_cast<jint>(code));
    if (env->ExceptionCheck()) ACC_FAIL("AccProxy.fireICCardErrorEvent() threw");
    CMT_TRACE(kTraceFlow, "[Exit]");
    thread_detach();
    return 0;
}

int zel_fnd_acc_observer::notify_iccard_detect(ESV_ZEL_ACC_ICCARD_INFO& card_info) {
    JNIEnv* const env = thread_attach();
    if (env == nullptr) return kFailure;
    CMT_TRACE(kTraceFlow, "[Start]");

    jmethodID mid = env->GetMethodID(jcls_iccard_info_, "<init>", "()V");
    if (mid == 0) ACC_FAIL("jnienv_->GetMethodID(jcls_iccard_info_, <init>, ()V) mid = 0");
    jobject obj_iccard_info = env->NewObject(jcls_iccard_info_, mid);
    if (obj_iccard_info == nullptr) ACC_FAIL("jnienv_->NewObject(jcls_iccard_info_, mid) obj = NULL");

    mid = env->GetMethodID(jcls_iccard_info_, "setCardId", "(Ljava/lang/String;)V");
    if (mid == 0) ACC_FAIL("jnienv_->GetMethodID(jcls_iccard_info_, setCardId, (Ljava/lang/String;)V) mid = 0");
    // The identifier is read within its field even when the facade left it unterminated.
    char card_id[sizeof card_info.card_id + 1];
    std::memcpy(card_id, card_info.card_id, sizeof card_info.card_id);
    card_id[sizeof card_info.card_id] = '\0';
    jstring jstr_card_id = env->NewStringUTF(card_id);
    if (jstr_card_id == nullptr) ACC_FAIL("jnienv_->NewStringUTF(card_info.card_id) obj = NULL");
    env->CallVoidMethod(obj_iccard_info, mid, jstr_card_id);
    if (env->ExceptionCheck()) ACC_FAIL("ICCardInfo.setCardId() threw");

    mid = env->GetMethodID(jcls_iccard_info_, "setCardType", "(B)V");
    if (mid == 0) ACC_FAIL("jnienv_->GetMethodID(jcls_iccard_info_, setCardType, (B)V) mid = 0");
    env->CallVoidMethod(obj_iccard_info, mid, card_type_bits(card_info.card_type));
    if (env->ExceptionCheck()) ACC_FAIL("ICCardInfo.setCardType() threw");

    jobjectArray jarr_system_data = nullptr;
    if (card_info.card_data_size == 0) {
        CMT_TRACE(kTraceFlow, "card_info.card_data_size = 0");
        jarr_system_data = env->NewObjectArray(0, jcls_system_data_, nullptr);
        if (jarr_system_data == nullptr) ACC_FAIL("jnienv_->NewObjectArray(0, jcls_system_data_, NULL) obj = NULL");
    } else {
        EMWOSW_MEMPART_HANDLE handle = 0;
        EMWRET ret = emwOSWIpcCreateMemPart(&handle, ESV_ZEL_ACC_ICCARD_DATA_PARTITION,
                                            ESV_ZEL_ACC_ICCARD_DATA_PARTITION_SIZE);
        // Platform codes are 32 bits on the device; print them so on every host too.
        if (ret != 0) ACC_FAIL("emwOSWIpcCreateMemPart() EMWRET = [0x%08lx]", static_cast<unsigned long>(static_cast<std::uint32_t>(ret)));
        void* block = nullptr;
        ret = emwOSWIpcGetBlockByIdMemPart(handle, static_cast<unsigned long>(card_info.blkid), &block);
        if (ret != 0) ACC_FAIL("emwOSWIpcGetBlockByIdMemPart() EMWRET = [0x%08lx]", static_cast<unsigned long>(static_cast<std::uint32_t>(ret)));

        // The counts come from outside: walk the whole block before anything of it reaches Java.
        // The platform gives no partition base, so the walk is bounded by the partition's size
        // from the block's start (the device writes one card's data from the partition's start).
        std::vector<zel_fnd_card_system> systems;
        if (!zel_fnd_decode_card_data(static_cast<const unsigned char*>(block),
                                      ESV_ZEL_ACC_ICCARD_DATA_PARTITION_SIZE, systems)) {
            ACC_FAIL("card data run past the end of DVC_ACC_ICCARD_DATA_PARTITION. blkid = [%d]",
                     static_cast<int>(card_info.blkid));
        }

        jmethodID mid_system_data_constructor = env->GetMethodID(jcls_system_data_, "<init>", "()V");
        if (mid_system_data_constructor == 0) ACC_FAIL("jnienv_->GetMethodID(jcls_system_data_, <init>, ()V) mid = 0");
        jmethodID mid_set_system_code = env->GetMethodID(jcls_system_data_, "setSystemCode", "(I)V");
        if (mid_set_system_code == 0) ACC_FAIL("jnienv_->GetMethodID(jcls_system_data_, setSystemCode, (I)V) mid = 0");
        jmethodID mid_set_service_code = env->GetMethodID(jcls_system_data_, "setServiceCode", "([I)V");
        if (mid_set_service_code == 0) ACC_FAIL("jnienv_->GetMethodID(jcls_system_data_, setServiceCode, ([I)V) mid = 0");
        jmethodID mid_set_block_data = env->GetMethodID(jcls_system_data_, "setBlockData", "([[B)V");
        if (mid_set_block_data == 0) ACC_FAIL("jnienv_->GetMethodID(jcls_system_data_, setBlockData, ([[B)V) mid = 0");
        jclass jcls_byte = env->FindClass("[B");
        if (jcls_byte == 0) ACC_FAIL("jnienv_->FindClass([B) jcls_byte = 0");

        const jsize sysdata_num = static_cast<jsize>(systems.size());
        jarr_system_data = env->NewObjectArray(sysdata_num, jcls_system_data_, nullptr);
        if (jarr_system_data == nullptr) {
            ACC_FAIL("jnienv_->NewObjectArray((jsize)sysdata_num, jcls_system_data_, NULL) obj = NULL");
        }
        for (jsize i = 0; i < sysdata_num; ++i) {
            const zel_fnd_card_system& system = systems[i];
            jobject obj_system_data = env->NewObject(jcls_system_data_, mid_system_data_constructor);
            if (obj_system_data == nullptr) {
                ACC_FAIL("jnienv_->NewObject(jcls_system_data_, mid_system_data_constructor) obj = NULL");
            }
            env->CallVoidMethod(obj_system_data, mid_set_system_code, static_cast<jint>(system.system_code));
            if (env->ExceptionCheck()) ACC_FAIL("SystemData.setSystemCode() threw");

            const jsize service_num = static_cast<jsize>(system.services.size());
            jintArray jiarr_service_code = env->NewIntArray(service_num);
            if (jiarr_service_code == nullptr) ACC_FAIL("jnienv_->NewIntArray((jsize)service_num) obj = NULL");
            jint* service_codes = env->GetIntArrayElements(jiarr_service_code, nullptr);
            if (service_codes == nullptr) ACC_FAIL("jnienv_->GetIntArrayElements(jiarr_service_code, NULL) obj = NULL");
            jobjectArray jarr_block_data = env->NewObjectArray(service_num, jcls_byte, nullptr);
            if (jarr_block_data == nullptr) {
                env->ReleaseIntArrayElements(jiarr_service_code, service_codes, 0);
                ACC_FAIL("jnienv_->NewObjectArray((jsize)service_num, jcls_byte, NULL) obj = NULL");
            }
            for (jsize j = 0; j < service_num; ++j) {
                const zel_fnd_card_service& service = system.services[j];
                service_codes[j] = static_cast<jint>(service.service_code);
                const jsize length = static_cast<jsize>(service.block_count * kZelFndCardBlockSize);
                jbyteArray jbarr_block_data = env->NewByteArray(length);
                if (jbarr_block_data == nullptr) {
                    env->ReleaseIntArrayElements(jiarr_service_code, service_codes, 0);
                    ACC_FAIL("jnienv_->NewByteArray(block_num * 16) obj = NULL");
                }
                jbyte* bytes = env->GetByteArrayElements(jbarr_block_data, nullptr);
                if (bytes == nullptr) {
                    env->ReleaseIntArrayElements(jiarr_service_code, service_codes, 0);
                    ACC_FAIL("jnienv_->GetByteArrayElements(jbarr_block_data, NULL) obj = NULL");
                }
                if (length > 0) std::memcpy(bytes, service.blocks, static_cast<std::size_t>(length));
                env->ReleaseByteArrayElements(jbarr_block_data, bytes, 0);
                env->SetObjectArrayElement(jarr_block_data, j, jbarr_block_data);
                if (env->ExceptionCheck()) {
                    env->ReleaseIntArrayElements(jiarr_service_code, service_codes, 0);
                    ACC_FAIL("jnienv_->SetObjectArrayElement(jarr_block_data) failed");
                }
                env->DeleteLocalRef(jbarr_block_data);
            }
            env->ReleaseIntArrayElements(jiarr_service_code, service_codes, 0);
            env->CallVoidMethod(obj_system_data, mid_set_service_code, jiarr_service_code);
            if (env->ExceptionCheck()) ACC_FAIL("SystemData.setServiceCode() threw");
            env->CallVoidMethod(obj_system_data, mid_set_block_data, jarr_block_data);
            if (env->ExceptionCheck()) ACC_FAIL("SystemData.setBlockData() threw");
            env->SetObjectArrayElement(jarr_system_data, i, obj_system_data);
            if (env->ExceptionCheck()) ACC_FAIL("jnienv_->SetObjectArrayElement(jarr_system_data) failed");
            env->DeleteLocalRef(jarr_block_data);
            env->DeleteLocalRef(jiarr_service_code);
            env->DeleteLocalRef(obj_system_data);
        }
    }

    mid = env->GetMethodID(jcls_iccard_info_, "setSystemData",
                               "([Ltarnwick/zel/controller/event/device/SystemData;)V");
    if (mid == 0) {
        ACC_FAIL("jnienv_->GetMethodID(jcls_iccard_info_, setSystemData, "
                 "([Ltarnwick/zel/controller/event/device/SystemData;)V) mid = 0");
    }
    env->CallVoidMethod(obj_iccard_info, mid, jarr_system_data);
    if (env->ExceptionCheck()) ACC_FAIL("ICCardInfo.setSystemData() threw");

    env->CallStaticVoidMethod(jcls_acc_proxy_, mid_iccard_, obj_iccard_info);
    if (env->ExceptionCheck()) ACC_FAIL("AccProxy.fireICCardEvent() threw");
    CMT_TRACE(kTraceFlow, "[End]");
    env->DeleteLocalRef(jarr_system_data);
    env->DeleteLocalRef(jstr_card_id);
    env->DeleteLocalRef(obj_iccard_info);
    thread_detach();
    return 0;
}

}  // namespace tarnwick
