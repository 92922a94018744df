package tarnwick.user.attribute;

/** The name shown for a user. */
public final class UserName extends TextAttribute {
    public UserName(String value) {
        super(value);
    }
}
