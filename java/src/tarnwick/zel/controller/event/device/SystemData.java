package tarnwick.zel.controller.event.device;

/** One FeliCa system of a card: its code, its service codes and the blocks read per service. */
public class SystemData {
    private int systemCode;
    private int[] serviceCode;
    private byte[][] blockData;

    public SystemData() {}

    public void setSystemCode(int systemCode) {
        this.systemCode = systemCode;
    }

    public int getSystemCode() {
        return systemCode;
    }

    public void setServiceCode(int[] serviceCode) {
        this.serviceCode = serviceCode;
    }

    public int[] getServiceCode() {
        return serviceCode;
    }

    public void setBlockData(byte[][] blockData) {
        this.blockData = blockData;
    }

    public byte[][] getBlockData() {
        return blockData;
    }

    @Override
    public String toString() {
        return "SystemData[" + "systemCode=" + systemCode + ", " + "serviceCode=" + java.util.Arrays.toString(serviceCode) + ", " + "blockData=" + java.util.Arrays.deepToString(blockData) + "]";
    }
}
