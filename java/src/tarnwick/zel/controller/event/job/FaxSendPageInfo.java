package tarnwick.zel.controller.event.job;

/** A page sent by fax. */
public class FaxSendPageInfo extends PageInfo {
    public FaxSendPageInfo() {}

    @Override
    Object[] fields() {
        return new Object[] {"userJobId", getUserJobId(), "pageNum", getPageNum()};
    }
}
