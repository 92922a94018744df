package tarnwick.zel.controller.event.job;

/** An interpreter that started for a print job. */
public class InterpreterInfo extends UserJobInfo {
    private int nameSetting;
    private long interfaceInfo;
    private String jobName;

    public InterpreterInfo() {}

    public void setNameSetting(int nameSetting) {
        this.nameSetting = nameSetting;
    }

    public int getNameSetting() {
        return nameSetting;
    }

    public void setInterfaceInfo(long interfaceInfo) {
        this.interfaceInfo = interfaceInfo;
    }

    public long getInterfaceInfo() {
        return interfaceInfo;
    }

    public void setJobName(String jobName) {
        this.jobName = jobName;
    }

    public String getJobName() {
        return jobName;
    }

    @Override
    Object[] fields() {
        return new Object[] {"userJobId", getUserJobId(), "nameSetting", nameSetting, "interfaceInfo", interfaceInfo, "jobName", jobName};
    }
}
