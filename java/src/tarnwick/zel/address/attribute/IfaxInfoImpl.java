package tarnwick.zel.address.attribute;

import java.util.Objects;

/**
 * The Internet-fax destination of an address. Type values are the device's codes, passed on as bytes.
 *
 * <p>Made by the address book's search (fields filled by the library); applications read it.
 */
public class IfaxInfoImpl {
    private String ifaxAddress;
    private byte modeType;
    private byte sizeType;
    private byte resolutionType;
    private byte fileType;

    /** An empty object; the library fills its fields. */
    public IfaxInfoImpl() {}

    public IfaxInfoImpl(String ifaxAddress, byte modeType, byte sizeType, byte resolutionType, byte fileType) {
        this.ifaxAddress = ifaxAddress;
        this.modeType = modeType;
        this.sizeType = sizeType;
        this.resolutionType = resolutionType;
        this.fileType = fileType;
    }

    public String getIfaxAddress() {
        return ifaxAddress;
    }

    public byte getModeType() {
        return modeType;
    }

    public byte getSizeType() {
        return sizeType;
    }

    public byte getResolutionType() {
        return resolutionType;
    }

    public byte getFileType() {
        return fileType;
    }

    @Override
    public boolean equals(Object other) {
        if (this == other) return true;
        if (other == null || other.getClass() != getClass()) return false;
        IfaxInfoImpl o = (IfaxInfoImpl) other;
        return Objects.equals(ifaxAddress, o.ifaxAddress) && modeType == o.modeType && sizeType == o.sizeType && resolutionType == o.resolutionType && fileType == o.fileType;
    }

    @Override
    public int hashCode() {
        return Objects.hash(ifaxAddress, modeType, sizeType, resolutionType, fileType);
    }

    @Override
    public String toString() {
        return "IfaxInfoImpl{" + "ifaxAddress=" + quote(ifaxAddress) + ", " + "modeType=" + modeType + ", " + "sizeType=" + sizeType + ", " + "resolutionType=" + resolutionType + ", " + "fileType=" + fileType + "}";
    }

    private static String quote(String s) {
        return s == null ? "null" : "\"" + s + "\"";
    }
}
