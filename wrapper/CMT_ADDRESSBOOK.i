// package tarnwick.zel.wrapper.address
// The address book: searches of personal addresses, returned as arrays of address objects.
%module CMT_ADDRESSBOOK

%include "tovr_conventions.i"

%{
#include "cmt_address_book.h"
using namespace tarnwick;
%}

// The search key arrives as any Java object and the result goes back as Object[] unchanged.
// The personal-address search itself is reached through search_address only.
%ignore tarnwick::cmt_address_book::search_personal_address;
%include "cmt_address_book.h"
