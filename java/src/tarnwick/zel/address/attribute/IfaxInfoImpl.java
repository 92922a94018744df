package tarnwick.zel.address.attribute;

/**
 * The Internet-fax destination of an address. Type values are the device's codes, passed on as bytes.
 *
 * <p>Made by the address book's search (fields filled by the library); applications read it.
 */
public class IfaxInfoImpl extends AddressPart {
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
    Object[] fields() {
        return new Object[] {"ifaxAddress", ifaxAddress, "modeType", modeType, "sizeType", sizeType, "resolutionType", resolutionType, "fileType", fileType};
    }
}
