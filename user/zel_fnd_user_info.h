// The user-object builder: makes Java tarnwick.zel.user.UserImpl objects and gives them typed
// attribute objects through UserImpl.setAttribute.
//
// The classes and their members are looked up once per process (jni::JavaClass); each call takes
// the calling thread's environment. A builder made on a thread without an environment does
// nothing. JNI failures are left pending for the Java caller.
#ifndef TARNWICK_ZEL_FND_USER_INFO_H
#define TARNWICK_ZEL_FND_USER_INFO_H

#include <jni.h>

#include "esv_zel_user_facade.h"

namespace tarnwick {

class zel_fnd_authentication;
namespace jni {
class JavaClass;
}

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
    friend class zel_fnd_authentication;

    enum Attribute { kLoginName, kUserName, kMailAddress, kAccountId };
    static jni::JavaClass& attribute_class(Attribute attribute);

    // The attributes, on a user object this builder made, with the caller's environment: the
    // list fetch needs no instance test. Each leaves a failed Java step pending.
    static void put_text(JNIEnv* env, jobject user, Attribute attribute, const char* text);
    static void put_access_level(JNIEnv* env, jobject user, ESV_ZEL_USER_RIGHTS level);
    static jobject make_user(JNIEnv* env);

    // The calling thread's environment when `user` is a UserImpl of a builder that found its
    // class; else null (nothing called).
    JNIEnv* env_for(jobject user) const;

    bool ready_ = false;
};

}  // namespace tarnwick

#endif
