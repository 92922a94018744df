package tarnwick.zel.address.attribute;

/**
 * The e-mail destination of an address.
 *
 * <p>Made by the address book's search (fields filled by the library); applications read it.
 */
public class EmailInfoImpl extends AddressPart {
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
    Object[] fields() {
        return new Object[] {"mailAddress", mailAddress};
    }
}
