package tarnwick.zel.controller.event.job;

/**
 * What the records of job events share: the text {@code Class[name=value, ...]} over the record's
 * fields in their order. The library fills a record through its public setters.
 */
abstract class EventRecord {
    /** The names of the record's fields, in their order. */
    abstract String[] names();

    /** The values of the record's fields, in the order of {@link #names()}. */
    abstract Object[] values();

    @Override
    public String toString() {
        String[] names = names();
        Object[] values = values();
        StringBuilder s = new StringBuilder(getClass().getSimpleName()).append('[');
        for (int i = 0; i < names.length; ++i) {
            s.append(i == 0 ? "" : ", ").append(names[i]).append('=').append(values[i]);
        }
        return s.append(']').toString();
    }
}
