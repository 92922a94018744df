// Forwards the job-information facade's page, job-log and interpreter notifications to
// JobInfoProxy as info objects.
#ifndef TARNWICK_ZEL_FND_JOBINFO_OBSERVER_H
#define TARNWICK_ZEL_FND_JOBINFO_OBSERVER_H

#include <jni.h>

#include "esv_zel_jobinfo_observer.h"

namespace tarnwick {

class zel_fnd_jobinfo_observer : public esv_zel_jobinfo_observer {
public:
    // Answer to the facade when the thread cannot be attached or a Java step fails.
    static constexpr long kFailure = 0x04010001;

    zel_fnd_jobinfo_observer();
    virtual ~zel_fnd_jobinfo_observer();

    int init();
    // The delivering thread's environment (null when it cannot be attached); also kept in
    // the environment member.
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

    // Looks a setter up on `cls` and calls it on `obj`; false when the lookup fails or the
    // setter throws (the exception is described and cleared).
    bool call_setter(JNIEnv* env, jobject obj, jclass cls, const char* name, const char* signature, jvalue value);
    bool set_long(JNIEnv* env, jobject obj, jclass cls, const char* name, jlong value);
    bool set_int(JNIEnv* env, jobject obj, jclass cls, const char* name, jint value);
    // Fires `object` through `method`, deletes it and detaches; the notification's answer.
    long fire(JNIEnv* env, jmethodID method, jobject object, const char* operation);
    // Detaches after a failed step; the failure answer.
    long fail(JNIEnv* env);

    JavaVM* vm_;
    JNIEnv* jnienv_;
    jclass jcls_jobinfo_proxy_;
    jclass jcls_print_page_info_;
    jclass jcls_scan_page_info_;
    jclass jcls_fax_send_page_info_;
    jclass jcls_joblog_info_;
    jclass jcls_interpreter_info_;
    jmethodID mid_page_;
    jmethodID mid_job_log_;
    jmethodID mid_interpreter_;
};

}  // namespace tarnwick

#endif
