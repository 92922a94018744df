package tarnwick.zel.controller.event.job;

/** A printed page. */
public class PrintPageInfo {
    private long userJobId;
    private long pageNum;
    private int outputDev;
    private int inputDev;
    private int customX;
    private int customY;
    private int paperSize;
    private int paperType;
    private int paperDir;
    private int paperWeight;
    private int duplex;
    private int staple;
    private int punch;
    private int colorMode;

    public PrintPageInfo() {}

    public void setUserJobId(long userJobId) {
        this.userJobId = userJobId;
    }

    public long getUserJobId() {
        return userJobId;
    }

    public void setPageNum(long pageNum) {
        this.pageNum = pageNum;
    }

    public long getPageNum() {
        return pageNum;
    }

    public void setOutputDev(int outputDev) {
        this.outputDev = outputDev;
    }

    public int getOutputDev() {
        return outputDev;
    }

    public void setInputDev(int inputDev) {
        this.inputDev = inputDev;
    }

    public int getInputDev() {
        return inputDev;
    }

    public void setCustomX(int customX) {
        this.customX = customX;
    }

    public int getCustomX() {
        return customX;
    }

    public void setCustomY(int customY) {
        this.customY = customY;
    }

    public int getCustomY() {
        return customY;
    }

    public void setPaperSize(int paperSize) {
        this.paperSize = paperSize;
    }

    public int getPaperSize() {
        return paperSize;
    }

    public void setPaperType(int paperType) {
        this.paperType = paperType;
    }

    public int getPaperType() {
        return paperType;
    }

    public void setPaperDir(int paperDir) {
        this.paperDir = paperDir;
    }

    public int getPaperDir() {
        return paperDir;
    }

    public void setPaperWeight(int paperWeight) {
        this.paperWeight = paperWeight;
    }

    public int getPaperWeight() {
        return paperWeight;
    }

    public void setDuplex(int duplex) {
        this.duplex = duplex;
    }

    public int getDuplex() {
        return duplex;
    }

    public void setStaple(int staple) {
        this.staple = staple;
    }

    public int getStaple() {
        return staple;
    }

    public void setPunch(int punch) {
        this.punch = punch;
    }

    public int getPunch() {
        return punch;
    }

    public void setColorMode(int colorMode) {
        this.colorMode = colorMode;
    }

    public int getColorMode() {
        return colorMode;
    }

    @Override
    public String toString() {
        return "PrintPageInfo[" + "userJobId=" + userJobId + ", " + "pageNum=" + pageNum + ", " + "outputDev=" + outputDev + ", " + "inputDev=" + inputDev + ", " + "customX=" + customX + ", " + "customY=" + customY + ", " + "paperSize=" + paperSize + ", " + "paperType=" + paperType + ", " + "paperDir=" + paperDir + ", " + "paperWeight=" + paperWeight + ", " + "duplex=" + duplex + ", " + "staple=" + staple + ", " + "punch=" + punch + ", " + "colorMode=" + colorMode + "]";
    }
}
