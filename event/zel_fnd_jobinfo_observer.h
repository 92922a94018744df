// Forwards the job-information facade's page, job-log and interpreter notifications to
// JobInfoProxy as info objects.
#ifndef TARNWICK_ZEL_FND_JOBINFO_OBSERVER_H
#define TARNWICK_ZEL_FND_JOBINFO_OBSERVER_H

#include <jni.h>

#include "esv_zel_jobinfo_observer.h"
#include "tovr_jni.h"

namespace tarnwick {

class zel_fnd_jobinfo_observer : public esv_zel_jobinfo_observer {
public:
    // Answer to the facade when the thread cannot be attached or a Java step fails.
    static constexpr long kFailure = 0x04010001;

    zel_fnd_jobinfo_observer();
    virtual ~zel_fnd_jobinfo_observer();

    int init();
    JNIEnv* thread_attach();
    int thread_detach();

    long notify_job_update_log(const ESV_ZEL_EVENT_JOB_UPDATE_LOG& log) override;
    long notify_fax_send_page_info(const ESV_ZEL_EVENT_SEND_PAGE& page) override;
    long notify_renint_start_info(const ESV_ZEL_EVENT_RENINT_START& info, const char* job_name) override;
    long notify_print_page_info(const ESV_ZEL_EVENT_PRINT_PAGE& page) override;
    long notify_scan_page_info(const ESV_ZEL_EVENT_SCAN_PAGE& page) override;

private:
    zel_fnd_jobinfo_observer(const zel_fnd_jobinfo_observer&) = delete;
    zel_fnd_jobinfo_observer& operator=(const zel_fnd_jobinfo_observer&) = delete;

    // One notification on the facade thread, answering kFailure when a step fails.
    using Notification = jni::Notification<zel_fnd_jobinfo_observer, long>;

    // Looks a setter up on `cls` and calls it on `obj`; false when the lookup fails or the
    // setter throws (the exception stays pending for the notification's fail()).
    bool call_setter(JNIEnv* env, jobject obj, jclass cls, const char* name, const char* signature, jvalue value);
    bool set_long(JNIEnv* env, jobject obj, jclass cls, const char* name, jlong value);
    bool set_int(JNIEnv* env, jobject obj, jclass cls, const char* name, jint value);
    // Creates an info object of `cls` with its no-argument constructor; null when that fails,
    // after tracing `message` under `operation` when the object itself could not be made (a
    // missing constructor is not traced).
    jobject new_info(JNIEnv* env, const jni::GlobalClass& cls, const char* operation, const char* message);
    // Fires `info` through `method` and traces "[End]": the notification's answer.
    long fire(const Notification& call, jmethodID method, jobject info, const char* operation);

    JavaVM* vm_;
    JNIEnv* jnienv_;
    jni::GlobalClass jcls_jobinfo_proxy_;
    jni::GlobalClass jcls_print_page_info_;
    jni::GlobalClass jcls_scan_page_info_;
    jni::GlobalClass jcls_fax_send_page_info_;
    jni::GlobalClass jcls_joblog_info_;
    jni::GlobalClass jcls_interpreter_info_;
    jmethodID mid_page_;
    jmethodID mid_job_log_;
    jmethodID mid_interpreter_;
};

}  // namespace tarnwick

#endif
