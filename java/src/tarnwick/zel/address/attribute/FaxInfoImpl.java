package tarnwick.zel.address.attribute;

/**
 * The fax destination of an address: number, line settings, sub-address, encoding and cover-sheet texts. Type values are the device's codes, passed on as bytes.
 *
 * <p>Made by the address book's search (fields filled by the library); applications read it.
 */
public class FaxInfoImpl extends AddressPart {
    private String faxNum;
    private byte bitrateType;
    private byte ecm;
    private String faxAddress;
    private byte encode;
    private byte encodeID;
    private byte encodeBox;
    private byte encodeBoxNum;
    private String name;
    private String department;
    private String company;
    private byte honorificTitleType;

    /** An empty object; the library fills its fields. */
    public FaxInfoImpl() {}

    public FaxInfoImpl(String faxNum, byte bitrateType, byte ecm, String faxAddress, byte encode, byte encodeID, byte encodeBox, byte encodeBoxNum, String name, String department, String company, byte honorificTitleType) {
        this.faxNum = faxNum;
        this.bitrateType = bitrateType;
        this.ecm = ecm;
        this.faxAddress = faxAddress;
        this.encode = encode;
        this.encodeID = encodeID;
        this.encodeBox = encodeBox;
        this.encodeBoxNum = encodeBoxNum;
        this.name = name;
        this.department = department;
        this.company = company;
        this.honorificTitleType = honorificTitleType;
    }

    public String getFaxNum() {
        return faxNum;
    }

    public byte getBitrateType() {
        return bitrateType;
    }

    public byte getEcm() {
        return ecm;
    }

    public String getFaxAddress() {
        return faxAddress;
    }

    public byte getEncode() {
        return encode;
    }

    public byte getEncodeID() {
        return encodeID;
    }

    public byte getEncodeBox() {
        return encodeBox;
    }

    public byte getEncodeBoxNum() {
        return encodeBoxNum;
    }

    public String getName() {
        return name;
    }

    public String getDepartment() {
        return department;
    }

    public String getCompany() {
        return company;
    }

    public byte getHonorificTitleType() {
        return honorificTitleType;
    }

    @Override
    Object[] fields() {
        return new Object[] {"faxNum", faxNum, "bitrateType", bitrateType, "ecm", ecm, "faxAddress", faxAddress, "encode", encode, "encodeID", encodeID, "encodeBox", encodeBox, "encodeBoxNum", encodeBoxNum, "name", name, "department", department, "company", company, "honorificTitleType", honorificTitleType};
    }
}
