package tarnwick.zel.controller.event.device;

/** An IC card held to the reader, with the FeliCa data read from it. */
public class ICCardInfo {
    private String cardId;
    private byte cardType;
    private SystemData[] systemData;

    public ICCardInfo() {}

    public void setCardId(String cardId) {
        this.cardId = cardId;
    }

    public String getCardId() {
        return cardId;
    }

    public void setCardType(byte cardType) {
        this.cardType = cardType;
    }

    public byte getCardType() {
        return cardType;
    }

    public void setSystemData(SystemData[] systemData) {
        this.systemData = systemData;
    }

    public SystemData[] getSystemData() {
        return systemData;
    }

    @Override
    public String toString() {
        return "ICCardInfo[" + "cardId=" + cardId + ", " + "cardType=" + cardType + ", " + "systemData=" + java.util.Arrays.toString(systemData) + "]";
    }
}
