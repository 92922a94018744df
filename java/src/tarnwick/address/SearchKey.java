package tarnwick.address;

import java.util.Objects;

/**
 * What an address-book search looks for: the name that the device's address book matches its
 * personal addresses against. A key without a name finds nothing.
 */
public class SearchKey {
    private String name;

    public SearchKey() {}

    public SearchKey(String name) {
        this.name = name;
    }

    public String getName() {
        return name;
    }

    public void setName(String name) {
        this.name = name;
    }

    @Override
    public boolean equals(Object other) {
        if (this == other) return true;
        if (other == null || other.getClass() != getClass()) return false;
        return Objects.equals(name, ((SearchKey) other).name);
    }

    @Override
    public int hashCode() {
        return Objects.hashCode(name);
    }

    @Override
    public String toString() {
        return "SearchKey{name=" + (name == null ? "null" : "\"" + name + "\"") + "}";
    }
}
