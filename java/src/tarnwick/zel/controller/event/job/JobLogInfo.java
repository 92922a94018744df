package tarnwick.zel.controller.event.job;

/** A job-log entry that was written. */
public class JobLogInfo extends UserJobInfo {
    private static final String[] NAMES = {"userJobId", "receiptId"};

    private long receiptId;

    public JobLogInfo() {}

    public void setReceiptId(long receiptId) {
        this.receiptId = receiptId;
    }

    public long getReceiptId() {
        return receiptId;
    }

    @Override
    String[] names() {
        return NAMES;
    }

    @Override
    Object[] values() {
        return new Object[] {getUserJobId(), receiptId};
    }
}
