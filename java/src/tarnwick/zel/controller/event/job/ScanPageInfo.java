package tarnwick.zel.controller.event.job;

/** A scanned page. */
public class ScanPageInfo extends PaperPageInfo {
    private static final String[] NAMES = {"userJobId", "pageNum", "customX", "customY", "paperSize", "paperDir", "duplex", "colorMode", "resolution"};

    private int resolution;

    public ScanPageInfo() {}

    public void setResolution(int resolution) {
        this.resolution = resolution;
    }

    public int getResolution() {
        return resolution;
    }

    @Override
    String[] names() {
        return NAMES;
    }

    @Override
    Object[] values() {
        return new Object[] {getUserJobId(), getPageNum(), getCustomX(), getCustomY(), getPaperSize(), getPaperDir(), getDuplex(), getColorMode(), resolution};
    }
}
