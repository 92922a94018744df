/**
 * A user of the device as the library reports it ({@link tarnwick.zel.user.UserImpl}): the
 * elements of {@code zel_fnd_authentication.get_local_user_list}.
 */
package tarnwick.zel.user;
