// package tarnwick.zel.wrapper.account
// Department accounting: the device-wide settings, hidden departments and the department
// object with its limits and restrictions. The department record itself stays inside.
%module CMT_Account_Module

%include "tovr_conventions.i"

%{
#include "cmt_account.h"
#include "cmt_account_config.h"
#include "cmt_account_manager.h"
using namespace tarnwick;
%}

%ignore tarnwick::cmt_account::init;
%ignore tarnwick::cmt_account::get_deptinfo;

%include "cmt_account.h"
%include "cmt_account_config.h"
%include "cmt_account_manager.h"
