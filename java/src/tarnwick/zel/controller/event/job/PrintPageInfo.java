package tarnwick.zel.controller.event.job;

/** A printed page. */
public class PrintPageInfo extends PaperPageInfo {
    private static final String[] NAMES = {"userJobId", "pageNum", "outputDev", "inputDev", "customX", "customY", "paperSize", "paperType", "paperDir", "paperWeight", "duplex", "staple", "punch", "colorMode"};

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
    String[] names() {
        return NAMES;
    }

    @Override
    Object[] values() {
        return new Object[] {getUserJobId(), getPageNum(), outputDev, inputDev, getCustomX(), getCustomY(), getPaperSize(), paperType, getPaperDir(), paperWeight, getDuplex(), staple, punch, getColorMode()};
    }
}
