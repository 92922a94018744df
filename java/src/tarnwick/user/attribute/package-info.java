/**
 * Typed attributes of a user (login name, user name, mail address, access level), which the
 * library sets on the {@code tarnwick.zel.user.UserImpl} objects of the local user list.
 */
package tarnwick.user.attribute;
