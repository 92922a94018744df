package tarnwick.zel.address.attribute;

/**
 * The name of an address and its pronunciation.
 *
 * <p>Made by the address book's search (fields filled by the library); applications read it.
 */
public class NameInfoImpl extends AddressPart {
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
    Object[] fields() {
        return new Object[] {"name", name, "pronunciation", pronunciation};
    }
}
