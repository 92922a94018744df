package tarnwick.zel.address.attribute;

import java.util.Objects;

/**
 * The name of an address and its pronunciation.
 *
 * <p>Made by the address book's search (fields filled by the library); applications read it.
 */
public class NameInfoImpl {
    private String name;
    private String pronunciation;

    /** An empty object; the library fills its fields. */
    public NameInfoImpl() {}

    public NameInfoImpl(String name, String pronunciation) {
        this.name = name;
        this.pronunciation = pronunciation;
    }

    public String getName() {
        return name;
    }

    public String getPronunciation() {
        return pronunciation;
    }

    @Override
    public boolean equals(Object other) {
        if (this == other) return true;
        if (other == null || other.getClass() != getClass()) return false;
        NameInfoImpl o = (NameInfoImpl) other;
        return Objects.equals(name, o.name) && Objects.equals(pronunciation, o.pronunciation);
    }

    @Override
    public int hashCode() {
        return Objects.hash(name, pronunciation);
    }

    @Override
    public String toString() {
        return "NameInfoImpl{" + "name=" + quote(name) + ", " + "pronunciation=" + quote(pronunciation) + "}";
    }

    private static String quote(String s) {
        return s == null ? "null" : "\"" + s + "\"";
    }
}
