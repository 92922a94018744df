package tarnwick.zel.controller.event.job;

/** A page sent by fax. */
public class FaxSendPageInfo extends PageInfo {
    private static final String[] NAMES = {"userJobId", "pageNum"};

    public FaxSendPageInfo() {}

    @Override
    String[] names() {
        return NAMES;
    }

    @Override
    Object[] values() {
        return new Object[] {getUserJobId(), getPageNum()};
    }
}
