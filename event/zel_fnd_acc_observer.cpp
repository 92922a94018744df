// Access-control observer.
#include "zel_fnd_acc_observer.h"

#include <cstdint>
#include <cstring>
#include <vector>

#include "CJvm.h"
#include "cmt_trace.h"
#include "emw_osw_mem.h"
#include "zel_fnd_card_data.h"

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
      mid_iccard_(nullptr),
      mid_iccard_error_(nullptr),
      mid_iccard_device_(nullptr) {}

zel_fnd_acc_observer::~zel_fnd_acc_observer() {
    if (vm_ == nullptr) return;
    JNIEnv* env = jni::calling_thread_env(vm_);
    jcls_acc_proxy_.reset(env);
    jcls_iccard_info_.reset(env);
    jcls_system_data_.reset(env);
    thread_detach();
}

int zel_fnd_acc_observer::init() {
    jsize count = 0;
    jint rc = JNI_GetCreatedJavaVMs(&vm_, 1, &count);
    if (rc != JNI_OK) return rc;
    JNIEnv* const env = thread_attach();
    if (env == nullptr) return 0;
    if (jcls_acc_proxy_.find(env, "tarnwick/zel/controller/event/proxy/AccProxy") &&
        jcls_iccard_info_.find(env, "tarnwick/zel/controller/event/device/ICCardInfo") &&
        jcls_system_data_.find(env, "tarnwick/zel/controller/event/device/SystemData")) {
        const jni::StaticMethod methods[] = {
            {&jcls_acc_proxy_, "fireICCardEvent", "(Ltarnwick/zel/controller/event/device/ICCardInfo;)V", &mid_iccard_},
            {&jcls_acc_proxy_, "fireICCardErrorEvent", "(I)V", &mid_iccard_error_},
            {&jcls_acc_proxy_, "fireICCardDeviceEvent", "(IIZB)V", &mid_iccard_device_},
        };
        jni::lookup_static_methods(env, methods);
    }
    return thread_detach();
}

JNIEnv* zel_fnd_acc_observer::thread_attach() { return jni::attach_thread_env(vm_, &jnienv_); }

int zel_fnd_acc_observer::thread_detach() { return jni::detach_thread(vm_); }

// Every failure: one error trace, then call.fail() (the pending exception, if any, described
// and cleared) and the thread detaches as the notification's scope ends.

int zel_fnd_acc_observer::notify_iccard_state_change_info(ESV_ZEL_ACC_ICCARD_STATE_CHANGE_INFO& info) {
    jni::Notification call(*this, kFailure);
    if (!call.attached()) return kFailure;
    JNIEnv* const env = call.env();
    CMT_TRACE(kTraceFlow, "[Start]");
    env->CallStaticVoidMethod(jcls_acc_proxy_.get(), mid_iccard_device_, static_cast<jint>(info.vendor_id),
                                  static_cast<jint>(info.product_id),
                                  static_cast<jboolean>(info.state == 1 ? JNI_TRUE : JNI_FALSE),
                                  static_cast<jbyte>(info.card_types));
    if (jni::pending(env)) {
        CMT_TRACE(kTraceError, "AccProxy.fireICCardDeviceEvent() threw");
        return call.fail();
    }
    CMT_TRACE(kTraceFlow, "[End]");
    return 0;
}

int zel_fnd_acc_observer::notify_iccard_read_error(int code) {
    jni::Notification call(*this, kFailure);
    if (!call.attached()) return kFailure;
    JNIEnv* const env = call.env();
    CMT_TRACE(kTraceFlow, "[Enter]");
    env->CallStaticVoidMethod(jcls_acc_proxy_.get(), mid_iccard_error_, static_cast<jint>(code));
    if (jni::pending(env)) {
        CMT_TRACE(kTraceError, "AccProxy.fireICCardErrorEvent() threw");
        return call.fail();
    }
    CMT_TRACE(kTraceFlow, "[Exit]");
    return 0;
}

int zel_fnd_acc_observer::notify_iccard_detect(ESV_ZEL_ACC_ICCARD_INFO& card_info) {
    jni::Notification call(*this, kFailure);
    if (!call.attached()) return kFailure;
    JNIEnv* const env = call.env();
    CMT_TRACE(kTraceFlow, "[Start]");
    const jclass iccard_info = jcls_iccard_info_.get();
    const jclass system_data = jcls_system_data_.get();

    jmethodID mid = env->GetMethodID(iccard_info, "<init>", "()V");
    if (mid == nullptr) {
        CMT_TRACE(kTraceError, "jnienv_->GetMethodID(jcls_iccard_info_, <init>, ()V) mid = 0");
        return call.fail();
    }
    jni::LocalRef<jobject> obj_iccard_info(env, env->NewObject(iccard_info, mid));
    if (!obj_iccard_info) {
        CMT_TRACE(kTraceError, "jnienv_->NewObject(jcls_iccard_info_, mid) obj = NULL");
        return call.fail();
    }

    mid = env->GetMethodID(iccard_info, "setCardId", "(Ljava/lang/String;)V");
    if (mid == nullptr) {
        CMT_TRACE(kTraceError, "jnienv_->GetMethodID(jcls_iccard_info_, setCardId, (Ljava/lang/String;)V) mid = 0");
        return call.fail();
    }
    jni::LocalRef<jstring> jstr_card_id(env, jni::new_string_of_field(env, card_info.card_id));
    if (!jstr_card_id) {
        CMT_TRACE(kTraceError, "jnienv_->NewStringUTF(card_info.card_id) obj = NULL");
        return call.fail();
    }
    env->CallVoidMethod(obj_iccard_info.get(), mid, jstr_card_id.get());
    if (jni::pending(env)) {
        CMT_TRACE(kTraceError, "ICCardInfo.setCardId() threw");
        return call.fail();
    }

    mid = env->GetMethodID(iccard_info, "setCardType", "(B)V");
    if (mid == nullptr) {
        CMT_TRACE(kTraceError, "jnienv_->GetMethodID(jcls_iccard_info_, setCardType, (B)V) mid = 0");
        return call.fail();
    }
    env->CallVoidMethod(obj_iccard_info.get(), mid, card_type_bits(card_info.card_type));
    if (jni::pending(env)) {
        CMT_TRACE(kTraceError, "ICCardInfo.setCardType() threw");
        return call.fail();
    }

    jni::LocalRef<jobjectArray> jarr_system_data;
    if (card_info.card_data_size == 0) {
        CMT_TRACE(kTraceFlow, "card_info.card_data_size = 0");
        jarr_system_data.reset(env, env->NewObjectArray(0, system_data, nullptr));
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

        jmethodID mid_system_data_constructor = env->GetMethodID(system_data, "<init>", "()V");
        if (mid_system_data_constructor == nullptr) {
            CMT_TRACE(kTraceError, "jnienv_->GetMethodID(jcls_system_data_, <init>, ()V) mid = 0");
            return call.fail();
        }
        jmethodID mid_set_system_code = env->GetMethodID(system_data, "setSystemCode", "(I)V");
        if (mid_set_system_code == nullptr) {
            CMT_TRACE(kTraceError, "jnienv_->GetMethodID(jcls_system_data_, setSystemCode, (I)V) mid = 0");
            return call.fail();
        }
        jmethodID mid_set_service_code = env->GetMethodID(system_data, "setServiceCode", "([I)V");
        if (mid_set_service_code == nullptr) {
            CMT_TRACE(kTraceError, "jnienv_->GetMethodID(jcls_system_data_, setServiceCode, ([I)V) mid = 0");
            return call.fail();
        }
        jmethodID mid_set_block_data = env->GetMethodID(system_data, "setBlockData", "([[B)V");
        if (mid_set_block_data == nullptr) {
            CMT_TRACE(kTraceError, "jnienv_->GetMethodID(jcls_system_data_, setBlockData, ([[B)V) mid = 0");
            return call.fail();
        }
        jni::LocalRef<jclass> jcls_byte(env, env->FindClass("[B"));
        if (!jcls_byte) {
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
                                                        env->NewObjectArray(service_num, jcls_byte.get(), nullptr));
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

    mid = env->GetMethodID(iccard_info, "setSystemData", "([Ltarnwick/zel/controller/event/device/SystemData;)V");
    if (mid == nullptr) {
        CMT_TRACE(kTraceError, "jnienv_->GetMethodID(jcls_iccard_info_, setSystemData, "
                               "([Ltarnwick/zel/controller/event/device/SystemData;)V) mid = 0");
        return call.fail();
    }
    env->CallVoidMethod(obj_iccard_info.get(), mid, jarr_system_data.get());
    if (jni::pending(env)) {
        CMT_TRACE(kTraceError, "ICCardInfo.setSystemData() threw");
        return call.fail();
    }

    env->CallStaticVoidMethod(jcls_acc_proxy_.get(), mid_iccard_, obj_iccard_info.get());
    if (jni::pending(env)) {
        CMT_TRACE(kTraceError, "AccProxy.fireICCardEvent() threw");
        return call.fail();
    }
    CMT_TRACE(kTraceFlow, "[End]");
    // The local references go as the scope ends (array, card-ID string, card-info object), then
    // the thread detaches.
    return 0;
}

}  // namespace tarnwick
