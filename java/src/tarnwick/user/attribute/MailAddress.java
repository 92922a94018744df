package tarnwick.user.attribute;

/** A user's mail address. */
public final class MailAddress extends TextAttribute {
    public MailAddress(String value) {
        super(value);
    }
}
