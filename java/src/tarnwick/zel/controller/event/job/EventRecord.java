package tarnwick.zel.controller.event.job;

/**
 * What the records of job events share: the text {@code Class[name=value, ...]} over the record's
 * fields in their order. The library fills a record through its public setters.
 */
abstract class EventRecord {
    /**
     * The record's fields in their order, each as its name followed by its value
     * ({@code {"userJobId", getUserJobId(), "receiptId", receiptId}}): one list, so that a name
     * cannot drift away from its value.
     */
    abstract Object[] fields();

    @Override
    public String toString() {
        Object[] fields = fields();
        StringBuilder s = new StringBuilder(getClass().getSimpleName()).append('[');
        for (int i = 0; i < fields.length; i += 2) {
            s.append(i == 0 ? "" : ", ").append(fields[i]).append('=').append(fields[i + 1]);
        }
        return s.append(']').toString();
    }
}
