package tarnwick.zel.address.attribute;

import java.util.Objects;

/**
 * The e-mail destination of an address.
 *
 * <p>Made by the address book's search (fields filled by the library); applications read it.
 */
public class EmailInfoImpl {
    private String mailAddress;

    /** An empty object; the library fills its fields. */
    public EmailInfoImpl() {}

    public EmailInfoImpl(String mailAddress) {
        this.mailAddress = mailAddress;
    }

    public String getMailAddress() {
        return mailAddress;
    }

    @Override
    public boolean equals(Object other) {
        if (this == other) return true;
        if (other == null || other.getClass() != getClass()) return false;
        EmailInfoImpl o = (EmailInfoImpl) other;
        return Objects.equals(mailAddress, o.mailAddress);
    }

    @Override
    public int hashCode() {
        return Objects.hash(mailAddress);
    }

    @Override
    public String toString() {
        return "EmailInfoImpl{" + "mailAddress=" + quote(mailAddress) + "}";
    }

    private static String quote(String s) {
        return s == null ? "null" : "\"" + s + "\"";
    }
}
