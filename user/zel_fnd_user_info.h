// The user-object builder: makes Java tarnwick.zel.user.UserImpl objects and gives them typed
// attribute objects through UserImpl.setAttribute.
//
// The class is kept as a global reference for the builder's life; each call takes the calling
// thread's environment. A builder made on a thread without an environment does nothing. JNI
// failures are left pending for the Java caller.
#ifndef TARNWICK_ZEL_FND_USER_INFO_H
#define TARNWICK_ZEL_FND_USER_INFO_H

#include <jni.h>

#include "esv_zel_user_facade.h"
#include "tovr_jni.h"

namespace tarnwick {

/**
 * Makes {@code tarnwick.zel.user.UserImpl} objects and gives them their attributes (login
 * name, user name, mail address, department, access level): the builder behind
 * {@code zel_fnd_authentication.get_local_user_list}.
 */
class zel_fnd_user_info {
public:
    zel_fnd_user_info();
    ~zel_fnd_user_info();
    zel_fnd_user_info(const zel_fnd_user_info&) = delete;
    zel_fnd_user_info& operator=(const zel_fnd_user_info&) = delete;

    /** A new UserImpl (local reference), or null. */
    jobject create_user_info();
    void set_field_login_name(jobject user, char* text);
    void set_field_user_name(jobject user, char* text);
    void set_field_mail_address(jobject user, char* text);
    void set_field_account_id(jobject user, int id);
    /** Levels other than 0 and 1 set no attribute. */
    void set_field_access_level(jobject user, ESV_ZEL_USER_RIGHTS level);

private:
    void set_text_attribute(jobject user, const char* class_path, const char* text);
    void set_attribute(JNIEnv* env, jobject user, jobject attribute);

    jni::GlobalClass user_class_;
    jmethodID set_attribute_ = nullptr;
};

}  // namespace tarnwick

#endif
