package tarnwick.zel.controller.event.job;

/** The state a job reached; the library reads these constants by name. */
public enum JobState {
    START,
    COMPLETE,
    CANCEL,
    ERROR,
    SCAN_COMPLETE
}
