package tarnwick.zel.controller.event.job;

/** A printed page. */
public class PrintPageInfo extends PaperPageInfo {
    private int outputDev;
    private int inputDev;
    private int paperType;
    private int paperWeight;
    private int staple;
    private int punch;

    public PrintPageInfo() {}

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

    public void setPaperType(int paperType) {
        this.paperType = paperType;
    }

    public int getPaperType() {
        return paperType;
    }

    public void setPaperWeight(int paperWeight) {
        this.paperWeight = paperWeight;
    }

    public int getPaperWeight() {
        return paperWeight;
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

    @Override
    Object[] fields() {
        return new Object[] {"userJobId", getUserJobId(), "pageNum", getPageNum(), "outputDev", outputDev, "inputDev", inputDev, "customX", getCustomX(), "customY", getCustomY(), "paperSize", getPaperSize(), "paperType", paperType, "paperDir", getPaperDir(), "paperWeight", paperWeight, "duplex", getDuplex(), "staple", staple, "punch", punch, "colorMode", getColorMode()};
    }
}
