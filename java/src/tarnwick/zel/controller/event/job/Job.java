package tarnwick.zel.controller.event.job;

/** A job as the job service reports it when its state changes. */
public class Job extends EventRecord {
    private int jobid;
    private JobState state;
    private int jobMode;
    private String userName;
    private int indev;
    private int outdev;

    public Job() {}

    public void setJobid(int jobid) {
        this.jobid = jobid;
    }

    public int getJobid() {
        return jobid;
    }

    public void setState(JobState state) {
        this.state = state;
    }

    public JobState getState() {
        return state;
    }

    public void setJobMode(int jobMode) {
        this.jobMode = jobMode;
    }

    public int getJobMode() {
        return jobMode;
    }

    public void setUserName(String userName) {
        this.userName = userName;
    }

    public String getUserName() {
        return userName;
    }

    public void setIndev(int indev) {
        this.indev = indev;
    }

    public int getIndev() {
        return indev;
    }

    public void setOutdev(int outdev) {
        this.outdev = outdev;
    }

    public int getOutdev() {
        return outdev;
    }

    @Override
    Object[] fields() {
        return new Object[] {"jobid", jobid, "state", state, "jobMode", jobMode, "userName", userName, "indev", indev, "outdev", outdev};
    }
}
