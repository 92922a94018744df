package tarnwick.zel.controller.event.job;

/** A job-log entry that was written. */
public class JobLogInfo extends UserJobInfo {
    private long receiptId;

    public JobLogInfo() {}

    public void setReceiptId(long receiptId) {
        this.receiptId = receiptId;
    }

    public long getReceiptId() {
        return receiptId;
    }

    @Override
    Object[] fields() {
        return new Object[] {"userJobId", getUserJobId(), "receiptId", receiptId};
    }
}
