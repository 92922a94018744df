package tarnwick.zel.user;

import java.util.ArrayList;
import java.util.Collections;
import java.util.LinkedHashMap;
import java.util.List;
import java.util.Map;

import tarnwick.account.attribute.AccountID;
import tarnwick.user.attribute.AccessLevel;
import tarnwick.user.attribute.LoginName;
import tarnwick.user.attribute.MailAddress;
import tarnwick.user.attribute.UserAttribute;
import tarnwick.user.attribute.UserName;

/**
 * A user of the device with its typed attributes, at most one of each attribute class; setting
 * an attribute of a class the user already has replaces it. Two users are equal when they
 * hold equal attributes.
 */
public class UserImpl {
    private final Map<Class<? extends UserAttribute>, UserAttribute> attributes = new LinkedHashMap<>();

    public UserImpl() {}

    /** Sets (or replaces) the attribute of the given attribute's class. */
    public synchronized void setAttribute(UserAttribute attribute) {
        if (attribute == null) throw new NullPointerException("attribute");
        attributes.put(attribute.getClass(), attribute);
    }

    /** The attribute of class {@code type}, or null when the user has none. */
    public synchronized <T extends UserAttribute> T getAttribute(Class<T> type) {
        return type.cast(attributes.get(type));
    }

    /** Every attribute, in the order first set. */
    public synchronized List<UserAttribute> getAttributes() {
        return Collections.unmodifiableList(new ArrayList<>(attributes.values()));
    }

    public LoginName getLoginName() {
        return getAttribute(LoginName.class);
    }

    public UserName getUserName() {
        return getAttribute(UserName.class);
    }

    public MailAddress getMailAddress() {
        return getAttribute(MailAddress.class);
    }

    public AccessLevel getAccessLevel() {
        return getAttribute(AccessLevel.class);
    }

    public AccountID getAccountID() {
        return getAttribute(AccountID.class);
    }

    private synchronized Map<Class<? extends UserAttribute>, UserAttribute> snapshot() {
        return new LinkedHashMap<>(attributes);
    }

    @Override
    public boolean equals(Object o) {
        if (this == o) return true;
        if (!(o instanceof UserImpl)) return false;
        return snapshot().equals(((UserImpl) o).snapshot());
    }

    @Override
    public int hashCode() {
        return snapshot().hashCode();
    }

    @Override
    public String toString() {
        return "UserImpl" + snapshot().values();
    }
}
