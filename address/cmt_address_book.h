// Searches of the device's address book, returned to Java as arrays of personal-address
// objects.
#ifndef TARNWICK_CMT_ADDRESS_BOOK_H
#define TARNWICK_CMT_ADDRESS_BOOK_H

#include <jni.h>


namespace tarnwick {

class cmt_address_book {
public:
    cmt_address_book();
    virtual ~cmt_address_book();

    // Type 1 searches the personal addresses whose name matches the key's name; any other type
    // gives null without reaching the device.
    jobjectArray search_address(int type, jobject key);

    // The personal-address search: a "tarnwick/address/SearchKey" in, an array of
    // "tarnwick/zel/address/PersonalAddressImpl" out (exactly one element per match), or null
    // when nothing matches or a step fails.
    jobjectArray search_personal_address(jobject key);

private:
    cmt_address_book(const cmt_address_book&);
    cmt_address_book& operator=(const cmt_address_book&);
};

}  // namespace tarnwick

#endif
