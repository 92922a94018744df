// package tarnwick.zel.wrapper.user
// Users: logins and logouts, authentication modes, rights, the local user list, hidden user
// accounts and the user-object builder, with the records they fill.
%module ZELFNDUser

%include "tovr_conventions.i"
%include <stdint.i>

%{
#include "esv_zel_user_facade.h"
#include "zel_fnd_user_records.h"
#include "zel_fnd_authentication.h"
#include "zel_fnd_user_account.h"
#include "zel_fnd_user_info.h"
using namespace tarnwick;
%}

// The module results are Java int, although the operations answer unsigned int.
%apply int { unsigned int login, unsigned int iccard_login, unsigned int logout, unsigned int get_login_user_info,
             unsigned int get_auth_mode, unsigned int set_auth_mode, unsigned int get_rights,
             unsigned int set_func_login_mode, unsigned int get_local_user_list,
             unsigned int create_hide_user, unsigned int update_hide_user, unsigned int remove_hide_user,
             unsigned int remove_all_hide_user };

// Kept inside the library: the facade itself.
%ignore tarnwick::esv_zel_user_facade;

%include "esv_zel_user_facade.h"
%include "zel_fnd_user_records.h"
%include "zel_fnd_authentication.h"
%include "zel_fnd_user_account.h"
%include "zel_fnd_user_info.h"
