// Forwards the access-control facade's IC card notifications to AccProxy; a detected card
// arrives as an ICCardInfo with its FeliCa data decoded from the card-data partition.
#ifndef TARNWICK_ZEL_FND_ACC_OBSERVER_H
#define TARNWICK_ZEL_FND_ACC_OBSERVER_H

#include <jni.h>

#include "esv_zel_acc_facade.h"
#include "tovr_jni.h"

namespace tarnwick {

struct zel_fnd_card_system;

class zel_fnd_acc_observer : public esv_zel_acc_observer {
public:
    // Answer to the facade on any failure.
    static constexpr int kFailure = 0x04010A05;

    zel_fnd_acc_observer();
    virtual ~zel_fnd_acc_observer();

    int init();
    // The delivering thread's environment (null when it cannot be attached); also kept in
    // the environment member.
    JNIEnv* thread_attach();
    int thread_detach();

    int notify_iccard_detect(ESV_ZEL_ACC_ICCARD_INFO& card_info) override;
    int notify_iccard_read_error(int code) override;
    int notify_iccard_state_change_info(ESV_ZEL_ACC_ICCARD_STATE_CHANGE_INFO& info) override;

private:
    zel_fnd_acc_observer(const zel_fnd_acc_observer&) = delete;
    zel_fnd_acc_observer& operator=(const zel_fnd_acc_observer&) = delete;

    JavaVM* vm_;
    JNIEnv* jnienv_;
    jni::GlobalClass jcls_acc_proxy_;
    jni::GlobalClass jcls_iccard_info_;
    jni::GlobalClass jcls_system_data_;
    jmethodID mid_iccard_;
    jmethodID mid_iccard_error_;
    jmethodID mid_iccard_device_;
};

}  // namespace tarnwick

#endif
