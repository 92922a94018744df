package tarnwick.zel.controller.event.job;

/** A page sent by fax. */
public class FaxSendPageInfo {
    private long userJobId;
    private long pageNum;

    public FaxSendPageInfo() {}

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

    @Override
    public String toString() {
        return "FaxSendPageInfo[" + "userJobId=" + userJobId + ", " + "pageNum=" + pageNum + "]";
    }
}
