/** The records that job events carry: a job and its state, pages printed, scanned and sent, job-log entries. */
package tarnwick.zel.controller.event.job;
