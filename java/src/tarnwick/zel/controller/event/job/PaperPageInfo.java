package tarnwick.zel.controller.event.job;

/** A page on paper, printed or scanned: its size, direction, sides and colour. */
abstract class PaperPageInfo extends PageInfo {
    private int customX;
    private int customY;
    private int paperSize;
    private int paperDir;
    private int duplex;
    private int colorMode;

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
}
