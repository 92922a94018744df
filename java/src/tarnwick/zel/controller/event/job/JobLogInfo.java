package tarnwick.zel.controller.event.job;

/** A job-log entry that was written. */
public class JobLogInfo {
    private long userJobId;
    private long receiptId;

    public JobLogInfo() {}

    public void setUserJobId(long userJobId) {
        this.userJobId = userJobId;
    }

    public long getUserJobId() {
        return userJobId;
    }

    public void setReceiptId(long receiptId) {
        this.receiptId = receiptId;
    }

    public long getReceiptId() {
        return receiptId;
    }

    @Override
    public String toString() {
        return "JobLogInfo[" + "userJobId=" + userJobId + ", " + "receiptId=" + receiptId + "]";
    }
}
