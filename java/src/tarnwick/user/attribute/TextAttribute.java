package tarnwick.user.attribute;

import java.util.Objects;

/**
 * A user attribute that is one text. Two attributes are equal when they are of the same class
 * and hold the same text (null included).
 */
public abstract class TextAttribute implements UserAttribute {
    private final String value;

    protected TextAttribute(String value) {
        this.value = value;
    }

    /** The text, as given (may be null). */
    public final String getValue() {
        return value;
    }

    @Override
    public final boolean equals(Object o) {
        if (this == o) return true;
        if (o == null || o.getClass() != getClass()) return false;
        return Objects.equals(value, ((TextAttribute) o).value);
    }

    @Override
    public final int hashCode() {
        return getClass().hashCode() * 31 + Objects.hashCode(value);
    }

    @Override
    public String toString() {
        return getClass().getSimpleName() + "[" + value + "]";
    }
}
