/**
 * A personal address of the device's address book as the library builds it
 * ({@link tarnwick.zel.address.PersonalAddressImpl}): the elements of an address-book search.
 */
package tarnwick.zel.address;
