package tarnwick.zel.address.attribute;

import java.util.Arrays;

/**
 * What the parts of an address share: equality, hash and text over the part's fields, in their
 * order. The fields themselves are declared in the part's class (or, for FTP and SMB, in the
 * {@link ServerInfo} they share), where the library sets them by name.
 */
abstract class AddressPart {
    /**
     * The part's fields in their order, each as its name followed by its value
     * ({@code {"name", name, "pronunciation", pronunciation}}): one list, so that a name cannot
     * drift away from its value.
     */
    abstract Object[] fields();

    @Override
    public boolean equals(Object other) {
        if (this == other) return true;
        if (other == null || other.getClass() != getClass()) return false;
        return Arrays.equals(fields(), ((AddressPart) other).fields());
    }

    @Override
    public int hashCode() {
        return Arrays.hashCode(fields());
    }

    /** {@code Class{name="text", number=1}}; texts are quoted, a password shows only whether one is set. */
    @Override
    public String toString() {
        Object[] fields = fields();
        StringBuilder s = new StringBuilder(getClass().getSimpleName()).append('{');
        for (int i = 0; i < fields.length; i += 2) {
            String name = (String) fields[i];
            if (i > 0) s.append(", ");
            s.append(name).append('=').append(text(name, fields[i + 1]));
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
