package tarnwick.user.attribute;

/** A user's access level: {@link #ADMIN} (device administrator) or {@link #USER}. */
public final class AccessLevel implements UserAttribute {
    public static final AccessLevel ADMIN = new AccessLevel("ADMIN", 0);
    public static final AccessLevel USER = new AccessLevel("USER", 1);

    private final String name;
    private final int level;

    private AccessLevel(String name, int level) {
        this.name = name;
        this.level = level;
    }

    /** "ADMIN" or "USER". */
    public String getName() {
        return name;
    }

    /** The device's number of the level: 0 administrator, 1 user. */
    public int getLevel() {
        return level;
    }

    /** The level of a device number, or null for a number the device does not define. */
    public static AccessLevel valueOf(int level) {
        switch (level) {
            case 0: return ADMIN;
            case 1: return USER;
            default: return null;
        }
    }

    @Override
    public String toString() {
        return name;
    }
}
