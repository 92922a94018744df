package tarnwick.zel.address;

import java.util.Objects;
import tarnwick.zel.address.attribute.EmailInfoImpl;
import tarnwick.zel.address.attribute.FaxInfoImpl;
import tarnwick.zel.address.attribute.FtpInfoImpl;
import tarnwick.zel.address.attribute.IfaxInfoImpl;
import tarnwick.zel.address.attribute.NameInfoImpl;
import tarnwick.zel.address.attribute.SmbInfoImpl;

/**
 * One personal address of the device's address book with all its destinations. A part that
 * the library could not build is null.
 */
public class PersonalAddressImpl {
    private NameInfoImpl name;
    private EmailInfoImpl email;
    private FtpInfoImpl ftp;
    private SmbInfoImpl smb;
    private FaxInfoImpl fax;
    private IfaxInfoImpl ifax;

    /** An empty address; the library fills its parts. */
    public PersonalAddressImpl() {}

    public PersonalAddressImpl(NameInfoImpl name, EmailInfoImpl email, FtpInfoImpl ftp, SmbInfoImpl smb,
                               FaxInfoImpl fax, IfaxInfoImpl ifax) {
        this.name = name;
        this.email = email;
        this.ftp = ftp;
        this.smb = smb;
        this.fax = fax;
        this.ifax = ifax;
    }

    public NameInfoImpl getName() {
        return name;
    }

    public EmailInfoImpl getEmail() {
        return email;
    }

    public FtpInfoImpl getFtp() {
        return ftp;
    }

    public SmbInfoImpl getSmb() {
        return smb;
    }

    public FaxInfoImpl getFax() {
        return fax;
    }

    public IfaxInfoImpl getIfax() {
        return ifax;
    }

    @Override
    public boolean equals(Object other) {
        if (this == other) return true;
        if (other == null || other.getClass() != getClass()) return false;
        PersonalAddressImpl o = (PersonalAddressImpl) other;
        return Objects.equals(name, o.name) && Objects.equals(email, o.email) && Objects.equals(ftp, o.ftp)
                && Objects.equals(smb, o.smb) && Objects.equals(fax, o.fax) && Objects.equals(ifax, o.ifax);
    }

    @Override
    public int hashCode() {
        return Objects.hash(name, email, ftp, smb, fax, ifax);
    }

    @Override
    public String toString() {
        return "PersonalAddressImpl{name=" + name + ", email=" + email + ", ftp=" + ftp + ", smb=" + smb + ", fax=" + fax
                + ", ifax=" + ifax + "}";
    }
}
