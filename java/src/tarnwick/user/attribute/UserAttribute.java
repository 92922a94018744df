package tarnwick.user.attribute;

/** One typed attribute of a user (login name, display name, mail address, access level ...). */
public interface UserAttribute {}
