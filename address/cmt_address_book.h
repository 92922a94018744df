// Searches of the device's address book, returned to Java as arrays of personal-address
// objects.
#ifndef TARNWICK_CMT_ADDRESS_BOOK_H
#define TARNWICK_CMT_ADDRESS_BOOK_H

#include <jni.h>

namespace tarnwick {

/**
 * The device's address book: {@code search_address(1, new tarnwick.address.SearchKey(name))}
 * answers the personal addresses whose name begins with {@code name}, as
 * {@code tarnwick.zel.address.PersonalAddressImpl} objects.
 */
class cmt_address_book {
public:
    cmt_address_book();
    virtual ~cmt_address_book();

    /**
     * Searches the address book; search type 1 searches the personal addresses (it is the only
     * type: any other answers null without asking the device).
     * @param type 1, the personal addresses
     * @param key a {@code tarnwick.address.SearchKey} whose name the entries' names must begin with
     * @return one {@code tarnwick.zel.address.PersonalAddressImpl} per match, or null when nothing
     * matches or the search failed
     */
    jobjectArray search_address(int type, jobject key);

    /**
     * The personal-address search: a "tarnwick/address/SearchKey" in, an array of
     * "tarnwick/zel/address/PersonalAddressImpl" out (exactly one element per match), or null
     * when nothing matches or a step fails.
     */
    jobjectArray search_personal_address(jobject key);

private:
    cmt_address_book(const cmt_address_book&);
    cmt_address_book& operator=(const cmt_address_book&);
};

}  // namespace tarnwick

#endif
