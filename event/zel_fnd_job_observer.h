// Forwards the job facade's notifications to JobProxy; a state change arrives as a Job object.
#ifndef TARNWICK_ZEL_FND_JOB_OBSERVER_H
#define TARNWICK_ZEL_FND_JOB_OBSERVER_H

#include <jni.h>

#include "esv_zel_job_observer.h"
#include "tovr_jni.h"

namespace tarnwick {

class zel_fnd_job_observer : public esv_zel_job_observer {
public:
    // Answer to the facade when the thread cannot be attached or a Java step fails.
    static constexpr long kFailure = 0x04010001;

    zel_fnd_job_observer();
    virtual ~zel_fnd_job_observer();

    int init();
    // The delivering thread's environment (null when it cannot be attached); also kept in
    // the environment member.
    JNIEnv* thread_attach();
    int thread_detach();

    long notify_job_state_changed(ESV_ZEL_JOB_STATE state) override;
    long notify_scan_count(unsigned int count_1, unsigned int count_2) override;
    long notify_start_phb(unsigned int current_id) override;
    long notify_disable_info(unsigned int current_id) override;
    long notify_main_message(unsigned int current_id) override;
    long notify_phb_info(unsigned int current_id, ESV_ZEL_PHB_INFO& info) override;
    long notify_message_info(unsigned int current_id, ESV_ZEL_PHB_GET_MESSAGE& message) override;

private:
    zel_fnd_job_observer(const zel_fnd_job_observer&) = delete;
    zel_fnd_job_observer& operator=(const zel_fnd_job_observer&) = delete;

    // One of the four notifications that pass unsigned values straight to a fire method.
    long fire_simple(const char* operation, jmethodID method, jlong first, jlong second, int count);

    JavaVM* vm_;
    JNIEnv* jnienv_;
    jni::GlobalClass jcls_job_proxy_;
    jni::GlobalClass jcls_job_;
    jni::GlobalClass jcls_job_state_;
    jmethodID mid_job_state_changed_;
    jmethodID mid_scan_count_;
    jmethodID mid_start_prohibition_;
    jmethodID mid_comb_constraint_;
    jmethodID mid_panel_message_update_;
};

}  // namespace tarnwick

#endif
