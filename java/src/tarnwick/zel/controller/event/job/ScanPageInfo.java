package tarnwick.zel.controller.event.job;

/** A scanned page. */
public class ScanPageInfo extends PaperPageInfo {
    private int resolution;

    public ScanPageInfo() {}

    public void setResolution(int resolution) {
        this.resolution = resolution;
    }

    public int getResolution() {
        return resolution;
    }

    @Override
    Object[] fields() {
        return new Object[] {"userJobId", getUserJobId(), "pageNum", getPageNum(), "customX", getCustomX(), "customY", getCustomY(), "paperSize", getPaperSize(), "paperDir", getPaperDir(), "duplex", getDuplex(), "colorMode", getColorMode(), "resolution", resolution};
    }
}
