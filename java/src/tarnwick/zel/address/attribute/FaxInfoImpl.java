package tarnwick.zel.address.attribute;

import java.util.Objects;

/**
 * The fax destination of an address: number, line settings, sub-address, encoding and cover-sheet texts. Type values are the device's codes, passed on as bytes.
 *
 * <p>Made by the address book's search (fields filled by the library); applications read it.
 */
public class FaxInfoImpl {
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
    public boolean equals(Object other) {
        if (this == other) return true;
        if (other == null || other.getClass() != getClass()) return false;
        FaxInfoImpl o = (FaxInfoImpl) other;
        return Objects.equals(faxNum, o.faxNum) && bitrateType == o.bitrateType && ecm == o.ecm && Objects.equals(faxAddress, o.faxAddress) && encode == o.encode && encodeID == o.encodeID && encodeBox == o.encodeBox && encodeBoxNum == o.encodeBoxNum && Objects.equals(name, o.name) && Objects.equals(department, o.department) && Objects.equals(company, o.company) && honorificTitleType == o.honorificTitleType;
    }

    @Override
    public int hashCode() {
        return Objects.hash(faxNum, bitrateType, ecm, faxAddress, encode, encodeID, encodeBox, encodeBoxNum, name, department, company, honorificTitleType);
    }

    @Override
    public String toString() {
        return "FaxInfoImpl{" + "faxNum=" + quote(faxNum) + ", " + "bitrateType=" + bitrateType + ", " + "ecm=" + ecm + ", " + "faxAddress=" + quote(faxAddress) + ", " + "encode=" + encode + ", " + "encodeID=" + encodeID + ", " + "encodeBox=" + encodeBox + ", " + "encodeBoxNum=" + encodeBoxNum + ", " + "name=" + quote(name) + ", " + "department=" + quote(department) + ", " + "company=" + quote(company) + ", " + "honorificTitleType=" + honorificTitleType + "}";
    }

    private static String quote(String s) {
        return s == null ? "null" : "\"" + s + "\"";
    }
}
