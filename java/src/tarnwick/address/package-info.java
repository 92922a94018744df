/**
 * What an application passes to an address-book search: {@link tarnwick.address.SearchKey},
 * the name the entries' names must begin with
 * ({@code tarnwick.zel.wrapper.address.cmt_address_book.search_address}).
 */
package tarnwick.address;
