package tarnwick.zel.controller.event.job;

/** A record about one user job: the pages, job-log entries and interpreters of a job. */
abstract class UserJobInfo extends EventRecord {
    private long userJobId;

    public void setUserJobId(long userJobId) {
        this.userJobId = userJobId;
    }

    public long getUserJobId() {
        return userJobId;
    }
}
