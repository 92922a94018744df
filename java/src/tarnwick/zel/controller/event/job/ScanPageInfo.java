package tarnwick.zel.controller.event.job;

/** A scanned page. */
public class ScanPageInfo {
    private long userJobId;
    private long pageNum;
    private int customX;
    private int customY;
    private int paperSize;
    private int paperDir;
    private int duplex;
    private int colorMode;
    private int resolution;

    public ScanPageInfo() {}

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

    public void setPaperDir(int paperDir) {
        this.paperDir = paperDir;
    }

    public int getPaperDir() {
        return paperDir;
    }

    public void setDuplex(int duplex) {
        this.duplex = duplex;
    }

    public int getDuplex() {
        return duplex;
    }

    public void setColorMode(int colorMode) {
        this.colorMode = colorMode;
    }

    public int getColorMode() {
        return colorMode;
    }

    public void setResolution(int resolution) {
        this.resolution = resolution;
    }

    public int getResolution() {
        return resolution;
    }

    @Override
    public String toString() {
        return "ScanPageInfo[" + "userJobId=" + userJobId + ", " + "pageNum=" + pageNum + ", " + "customX=" + customX + ", " + "customY=" + customY + ", " + "paperSize=" + paperSize + ", " + "paperDir=" + paperDir + ", " + "duplex=" + duplex + ", " + "colorMode=" + colorMode + ", " + "resolution=" + resolution + "]";
    }
}
