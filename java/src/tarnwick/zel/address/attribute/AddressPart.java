package tarnwick.zel.address.attribute;

import java.util.Arrays;

/**
 * What the parts of an address share: equality, hash and text over the part's field values, in
 * the order of its fields. The fields themselves stay declared in each part's own class, where
 * the library sets them by name.
 */
abstract class AddressPart {
    /** The names of the part's fields, in their order. */
    abstract String[] names();

    /** The values of the part's fields, in the order of {@link #names()}. */
    abstract Object[] values();

    @Override
    public boolean equals(Object other) {
        if (this == other) return true;
        if (other == null || other.getClass() != getClass()) return false;
        return Arrays.equals(values(), ((AddressPart) other).values());
    }

    @Override
    public int hashCode() {
        return Arrays.hashCode(values());
    }

    /** {@code Class{name="text", number=1}}; texts are quoted, a password shows only whether one is set. */
    @Override
    public String toString() {
        String[] names = names();
        Object[] values = values();
        StringBuilder s = new StringBuilder(getClass().getSimpleName()).append('{');
        for (int i = 0; i < names.length; ++i) {
            if (i > 0) s.append(", ");
            s.append(names[i]).append('=').append(text(names[i], values[i]));
        }
        return s.append('}').toString();
    }

    private static String text(String name, Object value) {
        if (!(value instanceof String)) return String.valueOf(value);
        String s = (String) value;
        if (name.equals("password")) return s.isEmpty() ? "\"\"" : "***";
        return "\"" + s + "\"";
    }
}
