package tarnwick.user.attribute;

/** The name a user logs in with. */
public final class LoginName extends TextAttribute {
    public LoginName(String value) {
        super(value);
    }
}
