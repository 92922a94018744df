package tarnwick.zel.controller.event.job;

/** A page of a user job: printed, scanned or sent by fax. */
abstract class PageInfo extends UserJobInfo {
    private long pageNum;

    public void setPageNum(long pageNum) {
        this.pageNum = pageNum;
    }

    public long getPageNum() {
        return pageNum;
    }
}
