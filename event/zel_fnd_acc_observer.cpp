// Access-control observer.
#include "zel_fnd_acc_observer.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <vector>

#include "cmt_trace.h"
#include "tovr_jni_text.h"
#include "emw_osw_mem.h"
#include "zel_fnd_card_data.h"

#define CMT_TRACE_MODULE "zel_fnd_acc_observer"

namespace tarnwick {

namespace {

// One bit per card type, as the Java side knows them.
jbyte card_type_bits(std::uint32_t type) {
    return type >= 1 && type <= 6 ? static_cast<jbyte>(1u << (type - 1)) : 0;
}

enum ICCardInfoMember : std::size_t { kCardInfoInit, kSetCardId, kSetCardType, kSetSystemData };

jni::JavaClass& iccard_info_class() {
    static const jni::Member members[] = {
        {jni::Member::kConstructor, "<init>", "()V"},
        {jni::Member::kMethod, "setCardId", "(Ljava/lang/String;)V"},
        {jni::Member::kMethod, "setCardType", "(B)V"},
        {jni::Member::kMethod, "setSystemData", "([Ltarnwick/zel/controller/event/device/SystemData;)V"},
    };
    static jni::JavaClass holder("tarnwick/zel/controller/event/device/ICCardInfo", members);
    return holder;
}

enum SystemDataMember : std::size_t { kSystemDataInit, kSetSystemCode, kSetServiceCode, kSetBlockData };

jni::JavaClass& system_data_class() {
    static const jni::Member members[] = {
        {jni::Member::kConstructor, "<init>", "()V"},
        {jni::Member::kMethod, "setSystemCode", "(I)V"},
        {jni::Member::kMethod, "setServiceCode", "([I)V"},
        {jni::Member::kMethod, "setBlockData", "([[B)V"},
    };
    static jni::JavaClass holder("tarnwick/zel/controller/event/device/SystemData", members);
    return holder;
}

// byte[], the element class of a service's block data.
jni::JavaClass& byte_array_class() {
    static jni::JavaClass holder("[B", nullptr, 0);
    return holder;
}

// Member `i` of `cls`, as the step that would have looked it up: null, after tracing `missing`,
// when the class has none such.
jmethodID card_method(const jni::JavaClass& cls, std::size_t i, const char* missing) {
    const jmethodID mid = cls.method(i);
    if (mid == nullptr) CMT_TRACE_OP(kTraceError, "notify_iccard_detect", "%s", missing);
    return mid;
}

}  // namespace

zel_fnd_acc_observer::zel_fnd_acc_observer() : zel_fnd_observer(CMT_TRACE_MODULE, Thrown::kFails) {}

int zel_fnd_acc_observer::init() {
    return start({"tarnwick/zel/controller/event/proxy/AccProxy"}, {&iccard_info_class(), &system_data_class()},
                 {{0, "fireICCardEvent", "(Ltarnwick/zel/controller/event/device/ICCardInfo;)V"},
                  {0, "fireICCardErrorEvent", "(I)V"},
                  {0, "fireICCardDeviceEvent", "(IIZB)V"}});
}

// Every failure: one error trace, then call.fail() (the pending exception, if any, described
// and cleared) and the thread detaches as the notification's scope ends.

int zel_fnd_acc_observer::notify_iccard_state_change_info(ESV_ZEL_ACC_ICCARD_STATE_CHANGE_INFO& info) {
    Notification call(*this, kFailure, __func__);
    if (!call.attached()) return kFailure;
    CMT_TRACE(kTraceFlow, "[Start]");
    return call.fire(kICCardDevice, "[End]", "AccProxy.fireICCardDeviceEvent() threw",
                     static_cast<jint>(info.vendor_id), static_cast<jint>(info.product_id),
                     static_cast<jboolean>(info.state == 1 ? JNI_TRUE : JNI_FALSE), static_cast<jbyte>(info.card_types));
}

int zel_fnd_acc_observer::notify_iccard_read_error(int code) {
    Notification call(*this, kFailure, __func__);
    if (!call.attached()) return kFailure;
    CMT_TRACE(kTraceFlow, "[Enter]");
    return call.fire(kICCardError, "[Exit]", "AccProxy.fireICCardErrorEvent() threw", static_cast<jint>(code));
}

int zel_fnd_acc_observer::notify_iccard_detect(ESV_ZEL_ACC_ICCARD_INFO& card_info) {
    Notification call(*this, kFailure, __func__);
    if (!call.attached()) return kFailure;
    JNIEnv* const env = call.env();
    CMT_TRACE(kTraceFlow, "[Start]");
    jni::JavaClass& card_class = iccard_info_class();
    const jclass iccard_info = card_class.get(env);

    jmethodID mid =
        card_method(card_class, kCardInfoInit, "jnienv_->GetMethodID(jcls_iccard_info_, <init>, ()V) mid = 0");
    if (mid == nullptr) return call.fail();
    jni::LocalRef<jobject> obj_iccard_info(env, env->NewObject(iccard_info, mid));
    if (!obj_iccard_info) {
        CMT_TRACE(kTraceError, "jnienv_->NewObject(jcls_iccard_info_, mid) obj = NULL");
        return call.fail();
    }

    mid = card_method(card_class, kSetCardId,
                      "jnienv_->GetMethodID(jcls_iccard_info_, setCardId, (Ljava/lang/String;)V) mid = 0");
    if (mid == nullptr) return call.fail();
    jni::LocalRef<jstring> jstr_card_id(env, jni::new_field_string(env, card_info.card_id));
    if (!jstr_card_id) {
        CMT_TRACE(kTraceError, "jnienv_->NewStringUTF(card_info.card_id) obj = NULL");
        return call.fail();
    }
    env->CallVoidMethod(obj_iccard_info.get(), mid, jstr_card_id.get());
    if (jni::pending(env)) {
        CMT_TRACE(kTraceError, "ICCardInfo.setCardId() threw");
        return call.fail();
    }

    mid = card_method(card_class, kSetCardType, "jnienv_->GetMethodID(jcls_iccard_info_, setCardType, (B)V) mid = 0");
    if (mid == nullptr) return call.fail();
    env->CallVoidMethod(obj_iccard_info.get(), mid, card_type_bits(card_info.card_type));
    if (jni::pending(env)) {
        CMT_TRACE(kTraceError, "ICCardInfo.setCardType() threw");
        return call.fail();
    }

    jni::JavaClass& data_class = system_data_class();
    const jclass system_data = data_class.get(env);
    jni::LocalRef<jobjectArray> jarr_system_data;
    if (card_info.card_data_size == 0) {
        CMT_TRACE(kTraceFlow, "card_info.card_data_size = 0");
        if (system_data != nullptr) jarr_system_data.reset(env, env->NewObjectArray(0, system_data, nullptr));
        if (!jarr_system_data) {
            CMT_TRACE(kTraceError, "jnienv_->NewObjectArray(0, jcls_system_data_, NULL) obj = NULL");
            return call.fail();
        }
    } else {
        EMWOSW_MEMPART_HANDLE handle = 0;
        EMWRET ret = emwOSWIpcCreateMemPart(&handle, ESV_ZEL_ACC_ICCARD_DATA_PARTITION,
                                            ESV_ZEL_ACC_ICCARD_DATA_PARTITION_SIZE);
        // Platform codes are 32 bits on the device; print them so on every host too.
        if (ret != 0) {
            CMT_TRACE(kTraceError, "emwOSWIpcCreateMemPart() EMWRET = [0x%08lx]",
                      static_cast<unsigned long>(static_cast<std::uint32_t>(ret)));
            return call.fail();
        }
        void* block = nullptr;
        ret = emwOSWIpcGetBlockByIdMemPart(handle, static_cast<unsigned long>(card_info.blkid), &block);
        if (ret != 0) {
            CMT_TRACE(kTraceError, "emwOSWIpcGetBlockByIdMemPart() EMWRET = [0x%08lx]",
                      static_cast<unsigned long>(static_cast<std::uint32_t>(ret)));
            return call.fail();
        }

        // The counts come from outside: walk the whole block before anything of it reaches Java.
        // The platform gives no partition base, so the walk is bounded by the partition's size
        // from the block's start (the device writes one card's data from the partition's start).
        std::vector<zel_fnd_card_system> systems;
        if (!zel_fnd_decode_card_data(static_cast<const unsigned char*>(block),
                                      ESV_ZEL_ACC_ICCARD_DATA_PARTITION_SIZE, systems)) {
            CMT_TRACE(kTraceError, "card data run past the end of DVC_ACC_ICCARD_DATA_PARTITION. blkid = [%d]",
                      static_cast<int>(card_info.blkid));
            return call.fail();
        }

        const jmethodID mid_system_data_constructor = card_method(
            data_class, kSystemDataInit, "jnienv_->GetMethodID(jcls_system_data_, <init>, ()V) mid = 0");
        if (mid_system_data_constructor == nullptr) return call.fail();
        const jmethodID mid_set_system_code = card_method(
            data_class, kSetSystemCode, "jnienv_->GetMethodID(jcls_system_data_, setSystemCode, (I)V) mid = 0");
        if (mid_set_system_code == nullptr) return call.fail();
        const jmethodID mid_set_service_code = card_method(
            data_class, kSetServiceCode, "jnienv_->GetMethodID(jcls_system_data_, setServiceCode, ([I)V) mid = 0");
        if (mid_set_service_code == nullptr) return call.fail();
        const jmethodID mid_set_block_data = card_method(
            data_class, kSetBlockData, "jnienv_->GetMethodID(jcls_system_data_, setBlockData, ([[B)V) mid = 0");
        if (mid_set_block_data == nullptr) return call.fail();
        const jclass jcls_byte = byte_array_class().get(env);
        if (jcls_byte == nullptr) {
            CMT_TRACE(kTraceError, "jnienv_->FindClass([B) jcls_byte = 0");
            return call.fail();
        }

        const jsize sysdata_num = static_cast<jsize>(systems.size());
        jarr_system_data.reset(env, env->NewObjectArray(sysdata_num, system_data, nullptr));
        if (!jarr_system_data) {
            CMT_TRACE(kTraceError, "jnienv_->NewObjectArray((jsize)sysdata_num, jcls_system_data_, NULL) obj = NULL");
            return call.fail();
        }
        for (jsize i = 0; i < sysdata_num; ++i) {
            const zel_fnd_card_system& system = systems[i];
            // Each entry's objects live in a frame of their own: the count of local
            // references stays flat however many entries the card has.
            jni::LocalFrame frame(env, 4);
            if (!frame.ok()) {
                CMT_TRACE(kTraceError, "jnienv_->PushLocalFrame(4) failed");
                return call.fail();
            }
            jni::LocalRef<jobject> obj_system_data(env, env->NewObject(system_data, mid_system_data_constructor));
            if (!obj_system_data) {
                CMT_TRACE(kTraceError, "jnienv_->NewObject(jcls_system_data_, mid_system_data_constructor) obj = NULL");
                return call.fail();
            }
            env->CallVoidMethod(obj_system_data.get(), mid_set_system_code, static_cast<jint>(system.system_code));
            if (jni::pending(env)) {
                CMT_TRACE(kTraceError, "SystemData.setSystemCode() threw");
                return call.fail();
            }

            const jsize service_num = static_cast<jsize>(system.services.size());
            jni::LocalRef<jintArray> jiarr_service_code(env, env->NewIntArray(service_num));
            if (!jiarr_service_code) {
                CMT_TRACE(kTraceError, "jnienv_->NewIntArray((jsize)service_num) obj = NULL");
                return call.fail();
            }
            jni::IntElements service_codes(env, jiarr_service_code.get());
            if (!service_codes) {
                CMT_TRACE(kTraceError, "jnienv_->GetIntArrayElements(jiarr_service_code, NULL) obj = NULL");
                return call.fail();
            }
            jni::LocalRef<jobjectArray> jarr_block_data(env,
                                                        env->NewObjectArray(service_num, jcls_byte, nullptr));
            if (!jarr_block_data) {
                CMT_TRACE(kTraceError, "jnienv_->NewObjectArray((jsize)service_num, jcls_byte, NULL) obj = NULL");
                return call.fail();
            }
            for (jsize j = 0; j < service_num; ++j) {
                const zel_fnd_card_service& service = system.services[j];
                service_codes.get()[j] = static_cast<jint>(service.service_code);
                const jsize length = static_cast<jsize>(service.block_count * kZelFndCardBlockSize);
                jni::LocalRef<jbyteArray> jbarr_block_data(env, env->NewByteArray(length));
                if (!jbarr_block_data) {
                    CMT_TRACE(kTraceError, "jnienv_->NewByteArray(block_num * 16) obj = NULL");
                    return call.fail();
                }
                jni::ByteElements bytes(env, jbarr_block_data.get());
                if (!bytes) {
                    CMT_TRACE(kTraceError, "jnienv_->GetByteArrayElements(jbarr_block_data, NULL) obj = NULL");
                    return call.fail();
                }
                if (length > 0) std::memcpy(bytes.get(), service.blocks, static_cast<std::size_t>(length));
                bytes.release();
                env->SetObjectArrayElement(jarr_block_data.get(), j, jbarr_block_data.get());
                if (jni::pending(env)) {
                    CMT_TRACE(kTraceError, "jnienv_->SetObjectArrayElement(jarr_block_data) failed");
                    return call.fail();
                }
            }
            service_codes.release();
            env->CallVoidMethod(obj_system_data.get(), mid_set_service_code, jiarr_service_code.get());
            if (jni::pending(env)) {
                CMT_TRACE(kTraceError, "SystemData.setServiceCode() threw");
                return call.fail();
            }
            env->CallVoidMethod(obj_system_data.get(), mid_set_block_data, jarr_block_data.get());
            if (jni::pending(env)) {
                CMT_TRACE(kTraceError, "SystemData.setBlockData() threw");
                return call.fail();
            }
            env->SetObjectArrayElement(jarr_system_data.get(), i, obj_system_data.get());
            if (jni::pending(env)) {
                CMT_TRACE(kTraceError, "jnienv_->SetObjectArrayElement(jarr_system_data) failed");
                return call.fail();
            }
        }
    }

    mid = card_method(card_class, kSetSystemData,
                      "jnienv_->GetMethodID(jcls_iccard_info_, setSystemData, "
                      "([Ltarnwick/zel/controller/event/device/SystemData;)V) mid = 0");
    if (mid == nullptr) return call.fail();
    env->CallVoidMethod(obj_iccard_info.get(), mid, jarr_system_data.get());
    if (jni::pending(env)) {
        CMT_TRACE(kTraceError, "ICCardInfo.setSystemData() threw");
        return call.fail();
    }

    // The local references go as the scope ends (array, card-ID string, card-info object), then
    // the thread detaches.
    return call.fire(kICCard, "[End]", "AccProxy.fireICCardEvent() threw", obj_iccard_info.get());
}

}  // namespace tarnwick
